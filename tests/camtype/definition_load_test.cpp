#include <gtest/gtest.h>

#include "tests/camtype/type_rig.hpp"

namespace station {
namespace {

using testing::crlf;
using testing::TypeRig;

// The format's own example, with the tabs an engineer's editor leaves.
const std::string kExample = crlf({
    "[camera type]", "CODE=AB1", "NOTE=Studio camera, 8 functions", "[form control]", "GAIN=1", "IRIS=1",
    "TALLY=1", "FILTER=0", "MONITOR=1", "LENS=0", "[function menu]", "FS=Gamma", "M\tGamma Mode=6A", "+OFF=00",
    "+ON=01", "A\tGamma Level=6B", "+SIZE=2", "+MIN=00", "+MAX=FF", "+STEP=01", "F=System", "S\tBars=7C",
    "+OFF=00", "+ON=01", "[variable shutter]", "1\t1/60.2=0000", "2\t1/61.0=0001",
});

TEST(DefinitionLoad, TheFormatExampleFillsTheTables) {
    TypeRig rig;
    rig.types.loadDefinition(2, kExample);
    const TypeTables& t = rig.tables;

    EXPECT_EQ(t.FormGain(2), 1);
    EXPECT_EQ(t.FormIris(2), 1);
    EXPECT_EQ(t.FormTally(2), 1);
    EXPECT_EQ(t.FormFilter(2), 0);
    EXPECT_EQ(t.FormMonitor(2), 1);
    EXPECT_EQ(t.FormLens(2), 0);

    EXPECT_EQ(t.FuncList(2, 0, 0), "2");
    EXPECT_EQ(t.FuncList(2, 1, 0), "FS");
    EXPECT_EQ(t.FuncList(2, 1, 1), "Gamma");
    EXPECT_EQ(t.FuncList(2, 2, 0), "F");
    EXPECT_EQ(t.FuncList(2, 2, 1), "System");

    EXPECT_EQ(t.ItemList(2, 1, 0), "2");
    EXPECT_EQ(t.ItemList(2, 1, 1), "M");
    EXPECT_EQ(t.ItemList(2, 1, 1 + kItemNameCell), "Gamma Mode");
    EXPECT_EQ(t.ItemList(2, 1, 1 + kItemCodeCell), "6A");
    EXPECT_EQ(t.ItemList(2, 1, 2), "A");
    EXPECT_EQ(t.ItemList(2, 1, 2 + kItemNameCell), "Gamma Level");
    EXPECT_EQ(t.ItemList(2, 2, 0), "1");
    EXPECT_EQ(t.ItemList(2, 2, 1), "S");
    EXPECT_EQ(t.ItemList(2, 2, 1 + kItemCodeCell), "7C");

    EXPECT_EQ(t.ModeList(2, 1, 1, 0, 0), "2");
    EXPECT_EQ(t.ModeList(2, 1, 1, 1, 0), "OFF");
    EXPECT_EQ(t.ModeList(2, 1, 1, 2, 1), "01");
    EXPECT_EQ(t.ModeList(2, 1, 2, kAnalogSize, 1), "2");
    EXPECT_EQ(t.ModeList(2, 1, 2, kAnalogMin, 1), "00");
    EXPECT_EQ(t.ModeList(2, 1, 2, kAnalogMax, 1), "FF");
    EXPECT_EQ(t.ModeList(2, 1, 2, kAnalogStep, 1), "01");
    EXPECT_EQ(t.ModeList(2, 1, 2, 0, 0), "");  // no count for an analog item
    EXPECT_EQ(t.ModeList(2, 1, 2, 1, 0), "");  // and no names

    EXPECT_EQ(t.VsList(2, 0, 0), "2");
    EXPECT_EQ(t.VsList(2, 1, 0), "1/60.2");
    EXPECT_EQ(t.VsList(2, 1, 1), "0000");
    EXPECT_EQ(t.VsList(2, 2, 0), "1/61.0");

    // Scene-function items go to the scene store, plain-function items to the other.
    EXPECT_EQ(rig.stores.FuncScnData(0, 0, 0), "2");
    EXPECT_EQ(rig.stores.FuncScnData(1, 0, 0), "6A");
    EXPECT_EQ(rig.stores.FuncScnData(2, 0, 0), "6B");
    EXPECT_EQ(rig.stores.FuncData(0, 0), "1");
    EXPECT_EQ(rig.stores.FuncData(1, 0), "7C");
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(DefinitionLoad, OnlyTheFirstCharacterOfASwitchCounts) {
    TypeRig rig;
    rig.types.loadDefinition(1, crlf({"[form control]", "GAIN= 1", "IRIS=12", "TALLY=x", "FILTER=2",
                                      "MONITOR=", "LENS=9", "Gain=3", " FILTER=1"}));
    EXPECT_EQ(rig.tables.FormGain(1), 0);
    EXPECT_EQ(rig.tables.FormIris(1), 1);
    EXPECT_EQ(rig.tables.FormTally(1), 0);
    EXPECT_EQ(rig.tables.FormFilter(1), 2);  // keys are exact: "Gain=" and " FILTER=" are ignored
    EXPECT_EQ(rig.tables.FormMonitor(1), 0);
    EXPECT_EQ(rig.tables.FormLens(1), 9);
}

TEST(DefinitionLoad, ItemNamesCodesAndParameters) {
    TypeRig rig;
    rig.types.loadDefinition(1, crlf({"[function menu]", "FS=Paint", "+EARLY=07", "M X=05", "T\tAuto  Setup=4 0",
                                      "+  AUTO FLARE =3 0", "A Hue=30 57", "+STEP=01", "+MAX=FF", "+OFFSET=10",
                                      "+MIN=00", "+SIZE=2", "MX=01", "F==Odd=Title"}));
    const TypeTables& t = rig.tables;
    // A parameter before any item of the function belongs to item 0.
    EXPECT_EQ(t.ModeList(1, 1, 0, 1, 0), "EARLY");
    EXPECT_EQ(t.ModeList(1, 1, 0, 0, 0), "1");

    EXPECT_EQ(t.ItemList(1, 1, 1), "M");
    EXPECT_EQ(t.ItemList(1, 1, 1 + kItemNameCell), "X");
    EXPECT_EQ(t.ItemList(1, 1, 1 + kItemCodeCell), "05");
    // Tabs become blanks; the name keeps inner blanks, the code loses all of them.
    EXPECT_EQ(t.ItemList(1, 1, 2 + kItemNameCell), "Auto  Setup");
    EXPECT_EQ(t.ItemList(1, 1, 2 + kItemCodeCell), "40");
    EXPECT_EQ(t.ModeList(1, 1, 2, 1, 0), "AUTO FLARE");
    EXPECT_EQ(t.ModeList(1, 1, 2, 1, 1), "30");

    // Analog limits land in their rows whatever their order; other names are dropped.
    EXPECT_EQ(t.ModeList(1, 1, 3, kAnalogSize, 1), "2");
    EXPECT_EQ(t.ModeList(1, 1, 3, kAnalogMin, 1), "00");
    EXPECT_EQ(t.ModeList(1, 1, 3, kAnalogMax, 1), "FF");
    EXPECT_EQ(t.ModeList(1, 1, 3, kAnalogStep, 1), "01");
    EXPECT_EQ(t.ModeList(1, 1, 3, 0, 0), "");

    // "MX=01": the second character is the separator, so the name is empty.
    EXPECT_EQ(t.ItemList(1, 1, 4 + kItemNameCell), "");
    EXPECT_EQ(t.ItemList(1, 1, 0), "4");

    // A function's key is all before the first "=", its title all after.
    EXPECT_EQ(t.FuncList(1, 2, 0), "F");
    EXPECT_EQ(t.FuncList(1, 2, 1), "=Odd=Title");
}

TEST(DefinitionLoad, LinesWithoutTheKeyTheyNeedAreSkipped) {
    TypeRig rig;
    rig.types.loadDefinition(1, crlf({"[function menu]", "F=Good", "M A=01", "+ON=01", "F", "FS Gamma", "M Gain",
                                      "M=07", "+OFF", "Q=Ignored", "", "   ", "M B=02", "+OFF=00"}));
    const TypeTables& t = rig.tables;
    EXPECT_EQ(t.FuncList(1, 0, 0), "1");
    EXPECT_EQ(t.ItemList(1, 1, 0), "2");
    EXPECT_EQ(t.ItemList(1, 1, 2 + kItemNameCell), "B");
    EXPECT_EQ(t.ModeList(1, 1, 1, 0, 0), "1");
    EXPECT_EQ(t.ModeList(1, 1, 2, 0, 0), "1");
    EXPECT_EQ(rig.stores.FuncData(0, 0), "2");
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
    EXPECT_EQ(t.FuncList(3, 0, 0), "20");
    EXPECT_EQ(t.FuncList(3, 20, 1), "Menu 20");
    EXPECT_EQ(t.ItemList(3, 20, 0), "12");
    EXPECT_EQ(t.ItemList(3, 20, 12 + kItemNameCell), "Item12");
    EXPECT_EQ(t.ModeList(3, 20, 12, 0, 0), "20");  // the 13th item was ignored, so these went to item 12
    EXPECT_EQ(t.ModeList(3, 20, 12, 20, 1), "20");
    EXPECT_EQ(t.VsList(3, 0, 0), "350");
    EXPECT_EQ(t.VsList(3, 350, 0), "1/350");

    const std::vector<std::string> expected = {
        "Number of the Function List is exceeding 20",
        "Number of the Function List is exceeding 20",
        "Number of the Item List is exceeding 12",
        "Number of the Item Parameter is exceeding 20",
        "Number of the Variable Shutter Data is exceeding 350",
        "Number of the Variable Shutter Data is exceeding 350",
    };
    EXPECT_EQ(rig.messages.texts(), expected);
    for (const auto& m : rig.messages.shown) EXPECT_EQ(m.icon, Icon::Stop);
}

TEST(DefinitionLoad, AnalogParametersCountAgainstTheLimitToo) {
    TypeRig rig;
    std::string text = "[function menu]\r\nF=Levels\r\nA Level=30 50\r\n";
    for (int p = 1; p <= 21; ++p) text += "+NOTE" + std::to_string(p) + "=1\r\n";
    rig.types.loadDefinition(1, text);
    EXPECT_EQ(rig.messages.texts(), std::vector<std::string>{"Number of the Item Parameter is exceeding 20"});
}

TEST(DefinitionLoad, ShutterLines) {
    TypeRig rig;
    rig.types.loadDefinition(1, crlf({"[variable shutter]", "1 1/100=00 02", "no equals sign", "1/250=0003",
                                      "=0004", "2  two blanks=0005"}));
    const TypeTables& t = rig.tables;
    EXPECT_EQ(t.VsList(1, 0, 0), "4");
    EXPECT_EQ(t.VsList(1, 1, 0), "1/100");
    EXPECT_EQ(t.VsList(1, 1, 1), "0002");
    EXPECT_EQ(t.VsList(1, 2, 0), "1/250");  // no blank: the whole key
    EXPECT_EQ(t.VsList(1, 3, 0), "");
    EXPECT_EQ(t.VsList(1, 4, 0), " two blanks");  // only the first blank goes
}

TEST(DefinitionLoad, SectionsFollowHeadersAndLineEnds) {
    TypeRig rig;
    // A header keeps only the text up to its "]"; one without "]" hides what follows;
    // CR, LF and CR LF all end lines; tabs inside a header become blanks.
    rig.types.loadDefinition(1, "[form control] trailing words\rGAIN=3\n[form control\r\nIRIS=1\r\n"
                                "[form\tcontrol]\r\nTALLY=1\r\n[function menu]\nF=A\r\nF=B");
    EXPECT_EQ(rig.tables.FormGain(1), 3);
    EXPECT_EQ(rig.tables.FormIris(1), 0);
    EXPECT_EQ(rig.tables.FormTally(1), 1);
    EXPECT_EQ(rig.tables.FuncList(1, 0, 0), "2");
    EXPECT_EQ(rig.tables.FuncList(1, 2, 1), "B");  // the last line needs no line end
}

TEST(DefinitionLoad, AHeaderRestartsTheFunctionsButNotTheItems) {
    TypeRig rig;
    rig.types.loadDefinition(1, crlf({"[function menu]", "FS=One", "M A=01", "M B=02", "[function menu]", "M C=03"}));
    // After the header the function counter is 0: the item goes to function 0 as item 3.
    EXPECT_EQ(rig.tables.ItemList(1, 0, 3 + kItemNameCell), "C");
    EXPECT_EQ(rig.tables.ItemList(1, 0, 0), "3");
    EXPECT_EQ(rig.stores.FuncScnData(0, 0, 0), "2");  // function 0 is neither "FS" nor "F"
}

TEST(DefinitionLoad, OtherFunctionKeysRegisterNothing) {
    TypeRig rig;
    rig.types.loadDefinition(1, crlf({"[function menu]", "FX=Service", "M A=20 47 FE", "FS =Spaced", "M B=20 48 FE"}));
    EXPECT_EQ(rig.tables.FuncList(1, 1, 0), "FX");
    EXPECT_EQ(rig.tables.FuncList(1, 2, 0), "FS ");
    EXPECT_EQ(rig.stores.FuncScnData(0, 0, 0), "");
    EXPECT_EQ(rig.stores.FuncData(0, 0), "");
}

TEST(DefinitionLoad, TablesAreOverwrittenNotCleared) {
    TypeRig rig;
    rig.types.loadDefinition(1, crlf({"[function menu]", "F=One", "M A=01", "M B=02", "F=Two", "F=Three"}));
    rig.types.loadDefinition(1, crlf({"[function menu]", "F=New", "M Z=09"}));
    const TypeTables& t = rig.tables;
    EXPECT_EQ(t.FuncList(1, 0, 0), "1");
    EXPECT_EQ(t.FuncList(1, 1, 1), "New");
    EXPECT_EQ(t.FuncList(1, 2, 1), "Two");  // beyond the count, still there
    EXPECT_EQ(t.ItemList(1, 1, 0), "1");
    EXPECT_EQ(t.ItemList(1, 1, 2 + kItemNameCell), "B");
    // Registered rows stay as well: rows are never removed.
    EXPECT_EQ(rig.stores.FuncData(0, 0), "3");
}

}  // namespace
}  // namespace station
