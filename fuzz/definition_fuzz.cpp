// Feeds arbitrary text to the camera-type definition reader, as a slot's file and as an
// entry of the type list, then ties cameras to the type it names. Malformed lines must be
// skipped or reported, never raise: any exception, crash or sanitizer report is a finding,
// and so is a count beyond its table's limit.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "camtype/camera_types.hpp"
#include "common/vb_conv.hpp"
#include "tests/support/null_platform.hpp"

namespace {

using station::testing::QuietMessages;

using namespace station;

void expectAtMost(const std::string& count, int limit) {
    if (val(count) > limit) std::abort();
}

// Empties what a load into `slot` and the type list's first row read back, and the counts
// checked below. The load only writes ModeList and VsList, so their other cells may keep
// what an earlier input left without changing the outcome.
void clear(Shared& shared, TypeTables& t, SettingStores& s, int slot) {
    shared = Shared{};
    t.TypeCode(1).clear();
    t.TypeNote(1).clear();
    t.TypeFile.fill({});
    t.FclName.fill({});
    for (Array<Integer>* a : {&t.FormGain, &t.FormIris, &t.FormTally, &t.FormFilter, &t.FormMonitor, &t.FormLens})
        a->fill(0);
    for (int f = 0; f <= kMaxFunctions; ++f) {
        t.FuncList(slot, f, 0).clear();
        t.FuncList(slot, f, 1).clear();
        for (int c = 0; c <= kItemCodeCell + kMaxItems; ++c) t.ItemList(slot, f, c).clear();
        for (int i = 0; i <= kMaxItems; ++i) t.ModeList(slot, f, i, 0, 0).clear();
    }
    t.VsList(slot, 0, 0).clear();
    // The definition load only registers row keys.
    for (int r = 0; r <= kMaxSettingRows; ++r) {
        s.FuncScnData(r, 0, 0).clear();
        s.FuncData(r, 0).clear();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    const int slot = 1 + data[0] % kMaxSlots;
    const std::string_view text(reinterpret_cast<const char*>(data + 1), size - 1);

    // The tables are large: they are made once, and what an input can change is emptied
    // before it, so that every input starts from the same state.
    static Shared shared;
    static TypeTables tables;
    static SettingStores stores;
    static QuietMessages messages;
    static CameraTypes types(shared, tables, stores, messages, "/nonexistent");
    clear(shared, tables, stores, slot);

    // Twice into the same slot: the second load runs over what the first left.
    types.loadDefinition(slot, text);
    types.loadDefinition(slot, text.substr(text.size() / 2));
    expectAtMost(tables.FuncList(slot, 0, 0), kMaxFunctions);
    expectAtMost(tables.VsList(slot, 0, 0), kMaxShutterSteps);
    for (int f = 0; f <= kMaxFunctions; ++f) {
        expectAtMost(tables.ItemList(slot, f, 0), kMaxItems);
        for (int i = 0; i <= kMaxItems; ++i) expectAtMost(tables.ModeList(slot, f, i, 0, 0), kMaxModes);
    }
    expectAtMost(stores.FuncScnData(0, 0, 0), kMaxSettingRows);
    expectAtMost(stores.FuncData(0, 0), kMaxSettingRows);

    types.readTypeEntry(1, text);
    if (tables.TypeCode(1).size() > 3) std::abort();
    tables.TypeFile(0) = "1";
    tables.TypeFile(1) = "fuzz.fcl";
    for (int c = 1; c <= kMaxCamera; ++c) shared.cams.CamType(c) = (data[0] >> (c % 8)) & 1 ? tables.TypeCode(1) : "";
    types.FclDataSet();
    expectAtMost(tables.FclName(0), 1);
    types.FclLoad();  // the slot's file does not exist: nothing happens
    return 0;
}
