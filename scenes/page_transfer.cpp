#include "scenes/page_transfer.hpp"

#include <algorithm>

#include "common/hex.hpp"
#include "common/vb_conv.hpp"

namespace station {

PageTransfer::PageTransfer(TypeTables& types, Link& link, MainPanel& panel, FunctionEditor& editor, Form2& form2)
    : types_(types), link_(link), panel_(panel), editor_(editor), form2_(form2) {}

std::string PageTransfer::requestCode(const std::string& setCommand) {
    // Written back without a leading zero, as the station always has.
    return hexNoPad(readHexPrefix(setCommand.substr(0, 2)) + 3);
}

std::vector<std::string> PageTransfer::readRequests() const {
    const int slot = panel_.FclNo();
    std::vector<std::string> out;
    if (types_.FormFilter(slot) >= 1) out.emplace_back("2300");
    switch (types_.FormGain(slot)) {
    case 0: out.insert(out.end(), {"2301"}); break;
    case 1: out.insert(out.end(), {"2301", "2B06", "2B07"}); break;
    case 2: out.insert(out.end(), {"2B12", "2B06", "2B07"}); break;
    case 3: out.insert(out.end(), {"2B12", "2B13"}); break;
    default: break;
    }
    out.insert(out.end(), {"2302", "2304", "2305", "2308"});
    if (types_.FormMonitor(slot) > 0) out.emplace_back("230F");
    out.insert(out.end(), {"3318", "331A", "3321", "3323", "332B", "332C", "332E", "3339"});

    const double functions = val(types_.FuncList(slot, 0, 0));
    for (int r = 1; r <= functions; ++r) {
        const double items = val(types_.ItemList(slot, r, 0));
        for (int j = 1; j <= items; ++j) {
            const std::string& kind = types_.ItemList(slot, r, j);
            const std::string& code = types_.ItemList(slot, r, j + kItemCodeCell);
            if (kind == "M") out.push_back(requestCode(code) + code.substr(std::min<std::size_t>(2, code.size()), 2));
            else if (kind == "A" || kind == "S") out.push_back(requestCode(code) + code.substr(std::min<std::size_t>(2, code.size())));
        }
    }
    return out;
}

void PageTransfer::Command12_Click() {
    for (const std::string& request : readRequests()) link_.SendCmd(request);
}

void PageTransfer::Command13_Click() {
    panel_.MainSend();
    const int slot = panel_.FclNo();
    const double functions = val(types_.FuncList(slot, 0, 0));
    for (int f = 1; f <= functions; ++f) {
        form2_.List1.setListIndex(f - 1);  // shows the page without sending it
        editor_.DataFuncDsp();             // and sends it
    }
    if (form2_.List1.listCount() > 0) form2_.List1.setListIndex(0);
}

void PageTransfer::Command3_Click() { editor_.DataFuncDsp(); }

}  // namespace station
