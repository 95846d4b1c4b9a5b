// The control models whose events the station's logic relies on (the checked tables' error 9
// is shown wherever a table limit is passed: the send queue, the panel, the stores).
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "common/controls.hpp"
#include "common/runtime_error.hpp"

namespace station {
namespace {

int errorNumber(const std::function<void()>& f) {
    try {
        f();
    } catch (const RuntimeError& e) {
        return e.number();
    }
    return 0;
}

TEST(Controls, CodeSelectionRaisesClickOnceAndDeselectionIsSilent) {
    OptionGroup g(0, 3);
    std::vector<int> clicks;
    g.onClick = [&](int i) { clicks.push_back(i); };
    g.setValue(2, true);
    g.click(2);  // already selected: nothing
    g.setValue(1, true);
    EXPECT_EQ(g.selected(), 1);
    EXPECT_FALSE(g[2].Value);
    g.setValue(1, false);  // deselected by code: no event, and then a click on it counts
    EXPECT_EQ(g.selected(), -1);
    g.click(1);
    EXPECT_EQ(clicks, (std::vector<int>{2, 1, 1}));
    EXPECT_EQ(errorNumber([&] { g.setValue(4, true); }), 9);
}

// The scroll bars' clamping and the other controls' events are shown by the panel, scene and
// camera set tests that rely on them; a list's click for the index it already has is not.
TEST(Controls, AListRaisesClickEvenForTheSameIndexAndRefusesOneBeyondItsItems) {
    ListBox l;
    int clicks = 0;
    l.onClick = [&] { ++clicks; };
    l.addItem("delete");
    l.addItem("AB1");
    l.setListIndex(1);
    l.setListIndex(1);
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(errorNumber([&] { l.setListIndex(2); }), 5);
    l.clear();
    EXPECT_EQ(l.listIndex(), -1);
}

}  // namespace
}  // namespace station
