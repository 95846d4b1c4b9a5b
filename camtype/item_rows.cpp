#include "camtype/item_rows.hpp"

#include "common/vb_conv.hpp"

namespace station {

namespace {

// keyOf(r) is the key cell of row r; keyOf(0) is the count cell.
template <typename KeyOf>
void registerRow(KeyOf keyOf, MessageSink& messages, const std::string& code, const char* fullText) {
    std::string& count = keyOf(0);
    if (count.empty()) {
        keyOf(1) = code;
        count = "1";
        return;
    }
    const long rows = static_cast<long>(val(count));
    bool found = false;
    for (long r = 1; r <= rows; ++r)
        if (keyOf(r) == code) found = true;
    if (found) return;
    if (rows <= kMaxSettingRows - 1) {
        count = std::to_string(rows + 1);
        keyOf(rows + 1) = code;
    } else {
        messages.show(fullText, Icon::Stop);
    }
}

}  // namespace

void FScnItemSet(SettingStores& stores, MessageSink& messages, const std::string& Code) {
    registerRow([&](long r) -> std::string& { return stores.FuncScnData(r, 0, 0); }, messages, Code,
                "Number of the total Scene Items is exceeding 300");
}

void FuncItemSet(SettingStores& stores, MessageSink& messages, const std::string& Code) {
    registerRow([&](long r) -> std::string& { return stores.FuncData(r, 0); }, messages, Code,
                "Number of the total Items is exceeding 300");
}

}  // namespace station
