// The sample definition files and studio setup that ship with the program.
#include <gtest/gtest.h>

#include <set>

#include "common/hex.hpp"
#include "common/vb_conv.hpp"
#include "tests/setupfile/setup_rig.hpp"

namespace station {
namespace {

using testing::readBytes;
using testing::SetupRig;

const std::filesystem::path kSamples = STATION_SAMPLES_DIR;

struct SampleRig : SetupRig {
    SampleRig() {
        types.DefinitionFolder = kSamples;
        list();
        dialogs.openAnswer = (kSamples / "studio.csd").string();
        file.CamFileOpen();
    }
    int slots() const { return static_cast<int>(val(tables.FclName(0))); }
};

bool isHex(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789ABCDEF") == std::string::npos;
}
int byteAt(const std::string& code, std::size_t n) { return static_cast<int>(val("&H" + code.substr(2 * n, 2))); }

TEST(Samples, TheStudioOpensWithoutAMessageAndSavesToTheSameBytes) {
    SampleRig rig;
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_EQ(rig.tables.TypeFile(0), "4");
    EXPECT_EQ(std::set<std::string>(rig.List1.items().begin() + 1, rig.List1.items().end()).size(), 4U);
    EXPECT_EQ(rig.slots(), 4);

    rig.file.FileName = (rig.folder / "copy.csd").string();
    rig.file.CsdSave();
    EXPECT_EQ(readBytes(rig.folder / "copy.csd"), readBytes(kSamples / "studio.csd"));
}

TEST(Samples, TogetherTheTypesOfferEveryPanelSwitch) {
    SampleRig rig;
    std::set<std::string> offered;
    for (int k = 1; k <= rig.slots(); ++k)
        for (const auto& [name, value] : {std::pair{"gain", rig.tables.FormGain(k)}, {"filter", rig.tables.FormFilter(k)},
                                          {"tally", rig.tables.FormTally(k)}, {"monitor", rig.tables.FormMonitor(k)},
                                          {"iris", rig.tables.FormIris(k)}, {"lens", rig.tables.FormLens(k)}})
            offered.insert(std::string(name) + std::to_string(value));
    EXPECT_EQ(offered, (std::set<std::string>{"gain0", "gain1", "gain2", "gain3", "filter0", "filter1", "filter2",
                                              "tally0", "tally1", "monitor0", "monitor1", "iris0", "iris1", "lens0",
                                              "lens1"}));
}

// Registers and levels the main panel drives itself; function items must leave them alone.
bool panelRegister(int cls, int address) {
    static const std::set<int> modes20 = {0x00, 0x01, 0x02, 0x03, 0x04, 0x05, 0x08, 0x0F, 0x14};
    static const std::set<int> modes28 = {0x06, 0x07, 0x12, 0x13};
    static const std::set<int> levels30 = {0x18, 0x1A, 0x21, 0x23, 0x2B, 0x2C, 0x2E, 0x39};
    return (cls == 0x20 && modes20.count(address)) || (cls == 0x28 && modes28.count(address)) ||
           (cls == 0x30 && levels30.count(address));
}

TEST(Samples, ItemCodesAreSetCommandsOnRegistersOfTheirOwn) {
    SampleRig rig;
    std::set<std::string> kinds;
    for (int k = 1; k <= rig.slots(); ++k) {
        for (int f = 1; f <= val(rig.tables.FuncList(k, 0, 0)); ++f) {
            for (int i = 1; i <= val(rig.tables.ItemList(k, f, 0)); ++i) {
                const std::string kind = rig.tables.ItemList(k, f, i);
                const std::string code = rig.tables.ItemList(k, f, i + kItemCodeCell);
                SCOPED_TRACE(rig.tables.FclName(k) + ": " + rig.tables.ItemList(k, f, i + kItemNameCell));
                kinds.insert(kind);
                // Mode items: class, register and mask; levels and shutters: class and level; actions: a prefix.
                const std::size_t size = kind == "M" ? 6U : kind == "T" ? 2U : 4U;
                ASSERT_TRUE(isHex(code) && code.size() == size) << code;
                EXPECT_TRUE(kind == "T" || !panelRegister(byteAt(code, 0), byteAt(code, 1))) << code;
                for (int p = 1; kind == "M" && p <= val(rig.tables.ModeList(k, f, i, 0, 0)); ++p)
                    EXPECT_EQ(byteAt(rig.tables.ModeList(k, f, i, p, 1), 0) & byteAt(code, 2), 0);  // inside the open bits
            }
        }
    }
    EXPECT_EQ(kinds, (std::set<std::string>{"M", "A", "S", "T"}));
}

}  // namespace
}  // namespace station
