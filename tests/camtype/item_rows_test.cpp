#include <gtest/gtest.h>

#include "camtype/item_rows.hpp"
#include "tests/support/fake_messages.hpp"

namespace station {
namespace {

using testing::FakeMessages;

struct Rows {
    SettingStores stores;
    FakeMessages messages;
    void scene(const std::string& code) { FScnItemSet(stores, messages, code); }
    void plain(const std::string& code) { FuncItemSet(stores, messages, code); }
    std::string sceneKey(int r) const { return stores.FuncScnData(r, 0, 0); }
    std::string plainKey(int r) const { return stores.FuncData(r, 0); }
};

TEST(ItemRows, NewCodesAppendInOrderAndRepeatsShareARow) {
    Rows rows;
    rows.scene("2040FC");
    rows.scene("3050");
    rows.scene("2040FC");
    rows.scene("2040fc");  // case counts: a different code
    EXPECT_EQ(rows.sceneKey(0) + " " + rows.sceneKey(1) + " " + rows.sceneKey(2) + " " + rows.sceneKey(3),
              "3 2040FC 3050 2040fc");

    // The two stores are separate: the same code has its own row in each.
    rows.plain("3050");
    rows.plain("3050");
    EXPECT_EQ(rows.plainKey(0) + " " + rows.plainKey(1), "1 3050");
    EXPECT_TRUE(rows.messages.shown.empty());
}

TEST(ItemRows, RegistrationContinuesAfterTheRowsALoadLeft) {
    Rows rows;
    // A setup data load counted two rows; a third stale row is beyond the count.
    rows.stores.FuncData(0, 0) = "2";
    rows.stores.FuncData(1, 0) = "A";
    rows.stores.FuncData(2, 0) = "B";
    rows.stores.FuncData(3, 0) = "C";
    rows.plain("C");  // not among the counted rows: a new row 3 (same text as the stale one)
    rows.plain("B");
    EXPECT_EQ(rows.plainKey(0) + " " + rows.plainKey(3), "3 C");
}

TEST(ItemRows, Row300IsTheLastAndEveryLaterNewCodeIsRefused) {
    Rows rows;
    for (int n = 1; n <= 299; ++n) rows.scene("S" + std::to_string(n));
    rows.scene("LAST");
    rows.scene("S17");  // known codes are still fine
    EXPECT_EQ(rows.sceneKey(0) + " " + rows.sceneKey(300), "300 LAST");
    EXPECT_TRUE(rows.messages.shown.empty());

    rows.scene("NEW1");
    rows.scene("NEW2");
    ASSERT_EQ(rows.messages.shown.size(), 2U);
    EXPECT_EQ(rows.messages.shown[0].text, "Number of the total Scene Items is exceeding 300");
    EXPECT_EQ(rows.messages.shown[0].icon, Icon::Stop);
    EXPECT_EQ(rows.sceneKey(0), "300");

    for (int n = 1; n <= 300; ++n) rows.plain("P" + std::to_string(n));
    rows.plain("P301");
    EXPECT_EQ(rows.messages.shown.back().text, "Number of the total Items is exceeding 300");
    EXPECT_EQ(rows.plainKey(0), "300");
}

}  // namespace
}  // namespace station
