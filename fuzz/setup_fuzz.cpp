// Feeds arbitrary text to the setup data reader. A malformed line may end the load with
// one of the runtime's errors (and only those); whatever was loaded must then save, and
// that saved text must load and save again to the same bytes.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "camtype/item_rows.hpp"
#include "setupfile/setup_file.hpp"
#include "setupfile/setup_text.hpp"
#include "tests/support/null_platform.hpp"

namespace {

using station::testing::QuietMessages;
using station::testing::NoDialogs;

using namespace station;

// The load never touches the type tables; one unused set serves every input.
CameraTypes& unusedTypes() {
    static Shared shared;
    static TypeTables tables;
    static SettingStores stores;
    static QuietMessages messages;
    static CameraTypes types(shared, tables, stores, messages, "/nonexistent");
    return types;
}

struct Station {
    Station() { stores.fillMainKey(); }
    Shared shared;
    SettingStores stores;
    QuietMessages messages;
    NoDialogs dialogs;
    DiskWriter writer;
    SetupFile file{shared, stores, unusedTypes(), messages, dialogs, writer};
};

// Brings a station back to its state at start; cheaper than building the stores again.
void reset(Station& s) {
    s.shared = Shared{};
    s.stores.MainScnData.fill({});
    s.stores.FuncScnData.fill({});
    s.stores.FuncData.fill({});
}

void loadExpectingKnownErrors(Station& s, std::string_view text) {
    try {
        s.file.loadText(text);
    } catch (const RuntimeError& e) {
        if (e.number() != 5 && e.number() != 6 && e.number() != 9) std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    const std::string_view text(reinterpret_cast<const char*>(data + 1), size - 1);

    static Station first;
    static Station second;

    // Rows registered by an earlier definition load, which the file's rows renumber.
    const int registered = data[0] % 5;
    for (int r = 0; r < registered; ++r) {
        FScnItemSet(first.stores, first.messages, "S" + std::to_string(r));
        FuncItemSet(first.stores, first.messages, "F" + std::to_string(r));
    }
    loadExpectingKnownErrors(first, text);
    const std::string saved = setupText(first.shared, first.stores);

    second.file.loadText(saved);  // a saved file always loads whole
    if (setupText(second.shared, second.stores) != saved) std::abort();

    reset(first);
    reset(second);
    return 0;
}
