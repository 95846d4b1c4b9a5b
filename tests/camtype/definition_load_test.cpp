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

TEST(DefinitionLoad, TheFormatExampleFillsTheTables) {
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

TEST(DefinitionLoad, OnlyTheFirstCharacterOfASwitchCountsAndKeysAreExact) {
    TypeRig rig;
    rig.types.loadDefinition(1, crlf({"[form control]", "GAIN= 1", "IRIS=12", "TALLY=x", "FILTER=2", "MONITOR=",
                                      "LENS=9", "Gain=3", " FILTER=1"}));
    const TypeTables& t = rig.tables;
    EXPECT_EQ(std::to_string(t.FormGain(1)) + std::to_string(t.FormIris(1)) + std::to_string(t.FormTally(1)) +
                  std::to_string(t.FormFilter(1)) + std::to_string(t.FormMonitor(1)) + std::to_string(t.FormLens(1)),
              "010209");
}

TEST(DefinitionLoad, ItemNamesCodesAndParameters) {
    TypeRig rig;
    rig.types.loadDefinition(1, crlf({"[function menu]", "FS=Paint", "+EARLY=07", "M X=05", "T\tAuto  Setup=4 0",
                                      "+  AUTO FLARE =3 0", "A Hue=30 57", "+STEP=01", "+MAX=FF", "+OFFSET=10",
                                      "+MIN=00", "+SIZE=2", "MX=01", "F==Odd=Title"}));
    const TypeTables& t = rig.tables;
    // A parameter before any item of the function belongs to item 0.
    EXPECT_EQ(cells({t.ModeList(1, 1, 0, 0, 0), t.ModeList(1, 1, 0, 1, 0)}), "1|EARLY");
    EXPECT_EQ(cells({t.ItemList(1, 1, 1), t.ItemList(1, 1, 1 + kItemNameCell), t.ItemList(1, 1, 1 + kItemCodeCell)}),
              "M|X|05");
    // Tabs become blanks; the name keeps inner blanks, the code and parameters lose all of them.
    EXPECT_EQ(cells({t.ItemList(1, 1, 2 + kItemNameCell), t.ItemList(1, 1, 2 + kItemCodeCell),
                     t.ModeList(1, 1, 2, 1, 0), t.ModeList(1, 1, 2, 1, 1)}),
              "Auto  Setup|40|AUTO FLARE|30");
    // Analog limits land in their rows whatever their order; other names are dropped.
    EXPECT_EQ(cells({t.ModeList(1, 1, 3, kAnalogSize, 1), t.ModeList(1, 1, 3, kAnalogMin, 1),
                     t.ModeList(1, 1, 3, kAnalogMax, 1), t.ModeList(1, 1, 3, kAnalogStep, 1),
                     t.ModeList(1, 1, 3, 0, 0)}),
              "2|00|FF|01|");
    // "MX=01": the second character is the separator, so the name is empty.
    EXPECT_EQ(cells({t.ItemList(1, 1, 0), t.ItemList(1, 1, 4 + kItemNameCell)}), "4|");
    // A function's key is all before the first "=", its title all after.
    EXPECT_EQ(cells({t.FuncList(1, 2, 0), t.FuncList(1, 2, 1)}), "F|=Odd=Title");
}

TEST(DefinitionLoad, LinesWithoutTheKeyTheyNeedAreSkipped) {
    TypeRig rig;
    rig.types.loadDefinition(1, crlf({"[function menu]", "F=Good", "M A=01", "+ON=01", "F", "FS Gamma", "M Gain",
                                      "M=07", "+OFF", "Q=Ignored", "", "   ", "M B=02", "+OFF=00"}));
    const TypeTables& t = rig.tables;
    EXPECT_EQ(cells({t.FuncList(1, 0, 0), t.ItemList(1, 1, 0), t.ItemList(1, 1, 2 + kItemNameCell),
                     t.ModeList(1, 1, 1, 0, 0), t.ModeList(1, 1, 2, 0, 0), rig.stores.FuncData(0, 0)}),
              "1|2|B|1|1|2");
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(DefinitionLoad, EachLimitAcceptsItsMaximumAndWarnsOncePerIgnoredLine) {
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
    for (const auto& m : rig.messages.shown) EXPECT_EQ(m.icon, Icon::Stop);

    rig.messages.shown.clear();  // analog parameters count against the limit too
    text = "[function menu]\r\nF=Levels\r\nA Level=30 50\r\n";
    for (int p = 1; p <= 21; ++p) text += "+NOTE" + std::to_string(p) + "=1\r\n";
    rig.types.loadDefinition(4, text);
    EXPECT_EQ(rig.messages.texts(), std::vector<std::string>{params});
}

TEST(DefinitionLoad, ShutterLinesSectionsAndLineEnds) {
    TypeRig rig;
    rig.types.loadDefinition(1, crlf({"[variable shutter]", "1 1/100=00 02", "no equals sign", "1/250=0003", "=0004",
                                      "2  two blanks=0005"}));
    const TypeTables& t = rig.tables;
    // No blank: the whole key; only the first blank goes.
    EXPECT_EQ(cells({t.VsList(1, 0, 0), t.VsList(1, 1, 0), t.VsList(1, 1, 1), t.VsList(1, 2, 0), t.VsList(1, 3, 0),
                     t.VsList(1, 4, 0)}),
              "4|1/100|0002|1/250|| two blanks");

    // A header keeps only the text up to its "]"; one without "]" hides what follows;
    // CR, LF and CR LF all end lines; tabs inside a header become blanks.
    rig.types.loadDefinition(2, "[form control] trailing words\rGAIN=3\n[form control\r\nIRIS=1\r\n"
                                "[form\tcontrol]\r\nTALLY=1\r\n[function menu]\nF=A\r\nF=B");
    EXPECT_EQ(std::to_string(t.FormGain(2)) + std::to_string(t.FormIris(2)) + std::to_string(t.FormTally(2)), "301");
    EXPECT_EQ(cells({t.FuncList(2, 0, 0), t.FuncList(2, 2, 1)}), "2|B");  // the last line needs no line end
}

TEST(DefinitionLoad, AHeaderRestartsTheFunctionsButNotTheItemsAndOtherKeysRegisterNothing) {
    TypeRig rig;
    rig.types.loadDefinition(1, crlf({"[function menu]", "FX=Service", "M A=20 47 FE", "FS =Spaced", "M B=20 48 FE",
                                      "[function menu]", "M C=03"}));
    // After the header the function counter is 0, the item counter goes on: C is item 2 of function 0.
    EXPECT_EQ(cells({rig.tables.FuncList(1, 1, 0), rig.tables.FuncList(1, 2, 0), rig.tables.ItemList(1, 0, 0),
                     rig.tables.ItemList(1, 0, 2 + kItemNameCell)}),
              "FX|FS |2|C");
    EXPECT_EQ(rig.stores.FuncScnData(0, 0, 0) + rig.stores.FuncData(0, 0), "");  // neither "FS" nor "F"
}

TEST(DefinitionLoad, TablesAreOverwrittenNotCleared) {
    TypeRig rig;
    rig.types.loadDefinition(1, crlf({"[function menu]", "F=One", "M A=01", "M B=02", "F=Two", "F=Three"}));
    rig.types.loadDefinition(1, crlf({"[function menu]", "F=New", "M Z=09"}));
    const TypeTables& t = rig.tables;
    // Beyond the counts the old entries stay; registered rows are never removed.
    EXPECT_EQ(cells({t.FuncList(1, 0, 0), t.FuncList(1, 1, 1), t.FuncList(1, 2, 1), t.ItemList(1, 1, 0),
                     t.ItemList(1, 1, 2 + kItemNameCell), rig.stores.FuncData(0, 0)}),
              "1|New|Two|1|B|3");
}

}  // namespace
}  // namespace station

namespace station {
namespace {

TEST(DefinitionLoad, AByteOrderMarkAtTheStartIsSkippedByTheLoadAndTheList) {
    const std::string bom = "\xEF\xBB\xBF";
    testing::TypeRig rig;
    const std::string gain = testing::crlf({"[form control]", "GAIN=1"});
    rig.types.loadDefinition(1, bom + gain);
    rig.types.loadDefinition(2, "x" + bom + gain);
    EXPECT_EQ(rig.tables.FormGain(1) * 10 + rig.tables.FormGain(2), 10);

    rig.folder.write("a.fcl", bom + testing::crlf({"[camera type]", "CODE=A11"}));
    rig.folder.write("b.fcl", bom + bom + testing::crlf({"[camera type]", "CODE=B22"}));
    rig.list();
    EXPECT_EQ(rig.List1.items(), (std::vector<std::string>{"delete", "A11", ""}));
}

}  // namespace
}  // namespace station
