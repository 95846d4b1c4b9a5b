// Checked tables, and the control models whose events the station's logic relies on.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "common/controls.hpp"
#include "common/runtime_error.hpp"
#include "common/table.hpp"

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

TEST(Tables, BoundsAreInclusiveAndEveryAccessIsChecked) {
    Table<std::string, 3> t({Bounds{0, 30}, Bounds{0, 8}, Bounds{0, 4}});
    t(30, 8, 4) = "last";
    t(0, 0, 0) = "first";
    EXPECT_EQ(t(30, 8, 4) + t(0, 0, 0) + t(1, 0, 0), "lastfirst");
    EXPECT_EQ(errorNumber([&] { t(31, 0, 0); }), 9);
    EXPECT_EQ(errorNumber([&] { t(0, -1, 0); }), 9);
    EXPECT_EQ(errorNumber([&] { t(0, 0, 5); }), 9);
    Array<int> a(1, 3);
    EXPECT_EQ(errorNumber([&] { a(0); }), 9);
    EXPECT_EQ(errorNumber([&] { a(4); }), 9);
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

TEST(Controls, ValueControlsRaiseTheirEventOnlyWhenTheValueChanges) {
    ScrollBar s;
    s.Min = 127;  // a vertical bar with its maximum at the top
    s.Max = -128;
    int events = 0;
    s.onChange = [&] { ++events; };
    s.setValue(300);
    EXPECT_EQ(s.value(), 127);
    s.setValue(127);
    s.setValue(-500);
    EXPECT_EQ(s.value(), -128);
    EXPECT_EQ(events, 2);

    CheckBox c;
    TextBox t;
    ListBox l;
    c.onClick = t.onChange = l.onClick = [&] { ++events; };
    c.setValue(1);
    c.setValue(1);
    c.setValue(0);
    t.setText("01");
    t.setText("01");
    l.addItem("delete");
    l.addItem("AB1");
    l.setListIndex(1);
    l.setListIndex(1);  // a list raises Click even for the same index
    EXPECT_EQ(events, 2 + 2 + 1 + 2);
    EXPECT_EQ(errorNumber([&] { l.setListIndex(2); }), 5);
    l.clear();
    EXPECT_EQ(l.listIndex(), -1);
}

}  // namespace
}  // namespace station
