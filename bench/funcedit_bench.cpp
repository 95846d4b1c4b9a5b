// The function editor's two paths an operator waits on: opening a function page (twelve
// items, the first a shutter item with a 350-step variable-shutter table), and decoding one
// function reply against a camera type of twenty functions of twelve items each.
#include <benchmark/benchmark.h>

#include <string>

#include "camtype/item_rows.hpp"
#include "funcedit/function_editor.hpp"
#include "tests/support/null_platform.hpp"

namespace {

using station::testing::CountingDecoders;
using station::testing::NullPort;
using station::testing::QuietMessages;

using namespace station;

std::string hex2(int v) { return hexDigits(static_cast<unsigned long>(v), 2); }

// Camera 1 on a type of 20 scene functions of 12 items: a shutter item first, then mode
// items on registers of their own and analog items; every item has a value.
struct Editor {
    Editor() {
        shared.CamNo = 1;
        shared.ScnNo(1) = 1;
        shared.cams.CamFclNo(1) = "1";
        types.FuncList(1, 0, 0) = "20";
        for (int s = 1; s <= kMaxShutterSteps; ++s) {
            types.VsList(1, s, 0) = "1/" + std::to_string(50 + s);
            types.VsList(1, s, 1) = hexDigits(static_cast<unsigned long>(s), 4);
        }
        types.VsList(1, 0, 0) = std::to_string(kMaxShutterSteps);
        for (int f = 1; f <= kMaxFunctions; ++f) {
            types.FuncList(1, f, 0) = "FS";
            types.FuncList(1, f, 1) = "Function " + std::to_string(f);
            types.ItemList(1, f, 0) = std::to_string(kMaxItems);
            for (int i = 1; i <= kMaxItems; ++i) {
                const int reg = 0x40 + (f - 1) * kMaxItems + i;  // every item its own register
                const char kind = i == 1 ? 'S' : i % 2 == 0 ? 'M' : 'A';
                std::string code = (kind == 'M' ? "20" : "30") + hex2(reg & 0xFF) + (kind == 'M' ? "FC" : "");
                types.ItemList(1, f, i) = std::string(1, kind);
                types.ItemList(1, f, i + kItemNameCell) = "Item " + std::to_string(i);
                types.ItemList(1, f, i + kItemCodeCell) = code;
                if (kind == 'A') {
                    for (auto [row, v] : {std::pair{kAnalogSize, "2"}, {kAnalogMin, "00"}, {kAnalogMax, "FF"}, {kAnalogStep, "01"}})
                        types.ModeList(1, f, i, row, 1) = v;
                } else {
                    types.ModeList(1, f, i, 0, 0) = kind == 'S' ? "6" : "4";
                    for (int p = 1; p <= (kind == 'S' ? 6 : 4); ++p) {
                        types.ModeList(1, f, i, p, 0) = "Mode " + std::to_string(p);
                        types.ModeList(1, f, i, p, 1) = hex2(p - 1);
                    }
                }
                FScnItemSet(stores, messages, code);
                for (int r = 1; r <= kMaxSettingRows; ++r)
                    if (stores.FuncScnData(r, 0, 0) == code) stores.FuncScnData(r, 1, 0) = kind == 'S' ? "0020" : "01";
            }
        }
        editor.FuncListDsp();
    }

    QuietMessages messages;
    NullPort port;
    CountingDecoders decoders;
    Shared shared;
    TypeTables types;
    SettingStores stores;
    Form2 form;
    Link link{shared, port, messages, decoders};
    FunctionEditor editor{shared, types, stores, link, form};
};

void BM_OpenPage(benchmark::State& state) {
    Editor e;
    int f = 0;
    for (auto _ : state) {
        e.form.List1.setListIndex(f);  // the shutter item's 356 values are listed afresh each time
        f = 1 - f;
        benchmark::DoNotOptimize(e.form.List3.listCount());
    }
    if (e.form.List3.listCount() != 6 + kMaxShutterSteps) state.SkipWithError("shutter list not shown");
}
BENCHMARK(BM_OpenPage)->Unit(benchmark::kMicrosecond);

void BM_DecodeReply(benchmark::State& state) {
    Editor e;
    e.form.List1.setListIndex(kMaxFunctions - 1);
    bool flip = false;
    for (auto _ : state) {
        // The last function's second item: every item of the type is looked at.
        e.editor.RecModeFunc("22", hex2((0x40 + kMaxFunctions * kMaxItems - 10) & 0xFF), flip ? "02" : "01");
        flip = !flip;
    }
    if (e.form.List2.list(1).find("Mode") == std::string::npos) state.SkipWithError("reply not shown");
}
BENCHMARK(BM_DecodeReply)->Unit(benchmark::kMicrosecond);

}  // namespace
