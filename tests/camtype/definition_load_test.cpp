// Reading one camera-type definition into the type tables and the item rows.
#include <gtest/gtest.h>

#include "tests/camtype/type_rig.hpp"

namespace station {
namespace {

using testing::crlf;
using testing::TypeRig;

// Table cells joined with "|", to compare several at once.
std::string cells(std::initializer_list<std::string> values) {
    std::string out;
    for (const std::string& v : values) out += (out.empty() ? "" : "|") + v;
    return out;
}

TEST(Definition, FormatExample) {
    TypeRig rig;
    // With the tabs an engineer's editor leaves.
    rig.types.loadDefinition(2, crlf({"[camera type]", "CODE=AB1", "NOTE=Studio camera, 8 functions", "[form control]",
                                      "GAIN=1", "IRIS=1", "TALLY=1", "FILTER=0", "MONITOR=1", "LENS=0",
                                      "[function menu]", "FS=Gamma", "M\tGamma Mode=6A", "+OFF=00", "+ON=01",
                                      "A\tGamma Level=6B", "+SIZE=2", "+MIN=00", "+MAX=FF", "+STEP=01", "F=System",
                                      "S\tBars=7C", "+OFF=00", "+ON=01", "[variable shutter]", "1\t1/60.2=0000",
                                      "2\t1/61.0=0001"}));
    const TypeTables& t = rig.tables;
    EXPECT_EQ(std::to_string(t.FormGain(2)) + std::to_string(t.FormIris(2)) + std::to_string(t.FormTally(2)) +
                  std::to_string(t.FormFilter(2)) + std::to_string(t.FormMonitor(2)) + std::to_string(t.FormLens(2)),
              "111010");
    EXPECT_EQ(cells({t.FuncList(2, 0, 0), t.FuncList(2, 1, 0), t.FuncList(2, 1, 1), t.FuncList(2, 2, 0),
                     t.FuncList(2, 2, 1)}),
              "2|FS|Gamma|F|System");
    EXPECT_EQ(cells({t.ItemList(2, 1, 0), t.ItemList(2, 1, 1), t.ItemList(2, 1, 1 + kItemNameCell),
                     t.ItemList(2, 1, 1 + kItemCodeCell), t.ItemList(2, 1, 2), t.ItemList(2, 1, 2 + kItemNameCell)}),
              "2|M|Gamma Mode|6A|A|Gamma Level");
    EXPECT_EQ(cells({t.ItemList(2, 2, 0), t.ItemList(2, 2, 1), t.ItemList(2, 2, 1 + kItemCodeCell)}), "1|S|7C");
    EXPECT_EQ(cells({t.ModeList(2, 1, 1, 0, 0), t.ModeList(2, 1, 1, 1, 0), t.ModeList(2, 1, 1, 2, 1)}), "2|OFF|01");
    // An analog item keeps its limits in their rows, with no count and no names.
    EXPECT_EQ(cells({t.ModeList(2, 1, 2, kAnalogSize, 1), t.ModeList(2, 1, 2, kAnalogMin, 1),
                     t.ModeList(2, 1, 2, kAnalogMax, 1), t.ModeList(2, 1, 2, kAnalogStep, 1),
                     t.ModeList(2, 1, 2, 0, 0), t.ModeList(2, 1, 2, 1, 0)}),
              "2|00|FF|01||");
    EXPECT_EQ(cells({t.VsList(2, 0, 0), t.VsList(2, 1, 0), t.VsList(2, 1, 1), t.VsList(2, 2, 0)}),
              "2|1/60.2|0000|1/61.0");
    // Scene-function items go to the scene store, plain-function items to the other.
    EXPECT_EQ(cells({rig.stores.FuncScnData(0, 0, 0), rig.stores.FuncScnData(1, 0, 0), rig.stores.FuncScnData(2, 0, 0),
                     rig.stores.FuncData(0, 0), rig.stores.FuncData(1, 0)}),
              "2|6A|6B|1|7C");
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(Definition, Limits) {
    TypeRig rig;
    std::string text = "[function menu]\r\n";
    for (int f = 1; f <= 22; ++f) text += "F=Menu " + std::to_string(f) + "\r\n";
    // The items after two ignored function lines belong to function 20.
    for (int i = 1; i <= 13; ++i) text += "M Item" + std::to_string(i) + "=20 4" + std::to_string(i % 10) + " FE\r\n";
    for (int p = 1; p <= 21; ++p) text += "+V" + std::to_string(p) + "=" + std::to_string(p) + "\r\n";
    text += "[variable shutter]\r\n";
    for (int s = 1; s <= 352; ++s) text += std::to_string(s) + " 1/" + std::to_string(s) + "=0001\r\n";
    rig.types.loadDefinition(3, text);

    const TypeTables& t = rig.tables;
    EXPECT_EQ(cells({t.FuncList(3, 0, 0), t.FuncList(3, 20, 1), t.ItemList(3, 20, 0),
                     t.ItemList(3, 20, 12 + kItemNameCell)}),
              "20|Menu 20|12|Item12");
    // The 13th item was ignored, so its parameters went to item 12.
    EXPECT_EQ(cells({t.ModeList(3, 20, 12, 0, 0), t.ModeList(3, 20, 12, 20, 1)}), "20|20");
    EXPECT_EQ(cells({t.VsList(3, 0, 0), t.VsList(3, 350, 0)}), "350|1/350");
    const std::string functions = "Number of the Function List is exceeding 20";
    const std::string items = "Number of the Item List is exceeding 12";
    const std::string params = "Number of the Item Parameter is exceeding 20";
    const std::string shutter = "Number of the Variable Shutter Data is exceeding 350";
    EXPECT_EQ(rig.messages.texts(), (std::vector<std::string>{functions, functions, items, params, shutter, shutter}));
}


}  // namespace
}  // namespace station
