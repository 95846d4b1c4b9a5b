// The file paths an operator waits on: loading the definitions of eight camera types of
// the largest size the tables take, and loading plus saving a full setup data file.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>
#include <random>
#include <string>

#include "camtype/camera_types.hpp"
#include "camtype/item_rows.hpp"
#include "setupfile/setup_file.hpp"
#include "tests/support/null_platform.hpp"

namespace {

using station::testing::NoDialogs;

using namespace station;

class QuietMessages : public MessageSink {
public:
    void show(const std::string&, Icon) override { ++shown; }
    int shown = 0;
};

// A scratch folder for the run, removed at the end.
class Scratch {
public:
    Scratch() {
        std::random_device rd;
        path_ = std::filesystem::temp_directory_path() / ("station-bench-" + std::to_string(rd()));
        std::filesystem::create_directories(path_);
    }
    ~Scratch() {
        std::error_code ec;
        std::filesystem::remove_all(path_, ec);
    }
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

std::string hex2(int v) {
    char buf[3];
    std::snprintf(buf, sizeof buf, "%02X", v & 0xFF);
    return buf;
}

// A definition file at every limit: 20 functions (10 scene, 10 plain) of 12 items with 20
// parameters each, and 350 shutter steps. The item codes are the same in every type, as
// they would be for one family of cameras, so they share the setting rows.
std::string largestDefinition(int type) {
    std::string t;
    const auto line = [&](const std::string& s) { t += s + "\r\n"; };
    line("[camera type]");
    line("CODE=T" + hex2(type));
    line("NOTE=Largest type " + std::to_string(type));
    line("[form control]");
    for (const char* key : {"GAIN=", "IRIS=", "TALLY=", "FILTER=", "MONITOR=", "LENS="})
        line(std::string(key) + std::to_string(type % 4));
    line("[function menu]");
    static const char kinds[] = {'M', 'A', 'S', 'T'};
    for (int f = 1; f <= 20; ++f) {
        line(std::string(f <= 10 ? "FS" : "F") + "=Function " + std::to_string(f));
        for (int i = 1; i <= 12; ++i) {
            const char kind = kinds[(i - 1) % 4];
            const std::string code = kind == 'M' ? "20 " + hex2(f) + " " + hex2(i) : "30 " + hex2(f * 12 + i);
            line(std::string(1, kind) + "\tItem " + std::to_string(i) + "=" + code);
            for (int p = 1; p <= 20; ++p) {
                static const char* analog[] = {"SIZE", "MIN", "MAX", "STEP"};
                const std::string name = kind == 'A' && p <= 4 ? analog[p - 1] : "VALUE " + std::to_string(p);
                line("+" + name + "=" + hex2(p));
            }
        }
    }
    line("[variable shutter]");
    for (int s = 1; s <= 350; ++s) line(std::to_string(s) + "\t1/" + std::to_string(60 + s) + ".0=" + hex2(s >> 8) + hex2(s));
    return t;
}

// The camera types of a station whose definition folder is `folder`.
struct TypesIn {
    explicit TypesIn(const std::filesystem::path& folder) : types(shared, tables, stores, messages, folder) {}
    Shared shared;
    TypeTables tables;
    SettingStores stores;
    QuietMessages messages;
    CameraTypes types;
    ListBox list;
};

void BM_FclLoadEightSlots(benchmark::State& state) {
    Scratch scratch;
    for (int type = 1; type <= 8; ++type)
        std::ofstream(scratch.path() / ("t" + std::to_string(type) + ".fcl"), std::ios::binary) << largestDefinition(type);

    TypesIn rig(scratch.path());
    auto& [shared, tables, stores, messages, types, list] = rig;
    types.FclListSet(list);
    for (int c = 1; c <= 8; ++c) shared.cams.CamType(c) = "T" + hex2(c);
    types.FclDataSet();

    for (auto _ : state) {
        types.FclLoad();
        benchmark::DoNotOptimize(tables.VsList(8, 0, 0));
    }
    if (tables.FclName(0) != "8" || tables.VsList(8, 0, 0) != "350" || stores.FuncScnData(0, 0, 0) != "120" ||
        messages.shown != 0)
        state.SkipWithError("the definitions did not load as intended");
}
BENCHMARK(BM_FclLoadEightSlots)->Unit(benchmark::kMillisecond);

// The start-up path over a definition folder of `files` types at the largest size: the type
// list, eight cameras assigned to eight of the types, and their definitions loaded.
void BM_StartUpListAssignLoad(benchmark::State& state) {
    Scratch scratch;
    const int files = static_cast<int>(state.range(0));
    for (int type = 1; type <= files; ++type)
        std::ofstream(scratch.path() / ("t" + hex2(type) + ".fcl"), std::ios::binary) << largestDefinition(type);

    TypesIn rig(scratch.path());
    auto& [shared, tables, stores, messages, types, list] = rig;
    for (int c = 1; c <= 8; ++c) shared.cams.CamType(c) = "T" + hex2(c * files / 8);

    for (auto _ : state) {
        types.FclListSet(list);
        types.FclDataSet();
        types.FclLoad();
        benchmark::DoNotOptimize(tables.VsList(8, 0, 0));
    }
    if (list.listCount() != files + 1 || tables.FclName(0) != "8" || tables.VsList(8, 0, 0) != "350" ||
        messages.shown != 0)
        state.SkipWithError("the start-up path did not run as intended");
    state.SetComplexityN(files);
}
BENCHMARK(BM_StartUpListAssignLoad)->RangeMultiplier(2)->Range(8, 64)->Unit(benchmark::kMillisecond)->Complexity();

struct FullSetup {
    FullSetup() {
        stores.fillMainKey();
        for (int c = 1; c <= 8; ++c) {
            shared.cams.CamType(c) = "T" + hex2(c);
            shared.cams.CamID(c) = std::to_string(c);
            shared.ScnNo(c) = static_cast<Integer>(1 + c % 4);
            for (int j = 1; j <= 18; ++j)
                for (int s = 1; s <= 4; ++s) stores.MainScnData(j, c, s) = std::to_string((j * 31 + c * 7 + s) % 256);
        }
        for (int r = 1; r <= 300; ++r) {
            FScnItemSet(stores, messages, "20" + hex2(r >> 8) + hex2(r) + "FE");
            FuncItemSet(stores, messages, "30" + hex2(r >> 8) + hex2(r));
            for (int c = 1; c <= 8; ++c) {
                stores.FuncData(r, c) = hex2(r + c);
                for (int s = 1; s <= 4; ++s) stores.FuncScnData(r, c, s) = hex2(r * s + c);
            }
        }
        file.FileName = (scratch.path() / "full.csd").string();
        file.CsdSave();
    }
    Scratch scratch;
    Shared shared;
    TypeTables tables;
    SettingStores stores;
    QuietMessages messages;
    NoDialogs dialogs;
    DiskWriter writer;
    CameraTypes types{shared, tables, stores, messages, scratch.path()};
    SetupFile file{shared, stores, types, messages, dialogs, writer};
};

void BM_CsdLoadAndSave(benchmark::State& state) {
    FullSetup setup;
    for (auto _ : state) {
        setup.file.CsdLoad();
        setup.file.CsdSave();
    }
    if (setup.stores.FuncScnData(0, 0, 0) != "300" || setup.stores.FuncData(0, 0) != "300" || setup.messages.shown != 0)
        state.SkipWithError("the setup did not load and save as intended");
    state.counters["bytes"] = static_cast<double>(std::filesystem::file_size(setup.file.FileName));
}
BENCHMARK(BM_CsdLoadAndSave)->Unit(benchmark::kMillisecond);

void BM_CsdLoad(benchmark::State& state) {
    FullSetup setup;
    for (auto _ : state) setup.file.CsdLoad();
}
BENCHMARK(BM_CsdLoad)->Unit(benchmark::kMillisecond);

void BM_CsdSave(benchmark::State& state) {
    FullSetup setup;
    for (auto _ : state) setup.file.CsdSave();
}
BENCHMARK(BM_CsdSave)->Unit(benchmark::kMillisecond);

}  // namespace
