#include "funcedit/function_editor.hpp"

#include <algorithm>

#include "common/ctrl_ready.hpp"
#include "common/vb_conv.hpp"

namespace station {

namespace {

int count(const std::string& cell, int limit) { return std::clamp(toInteger(val(cell)), Integer{0}, Integer(limit)); }

// Whether an item code names the register or level of a reply: its set class plus 2 is the
// reply's class and its second byte the reply's address.
bool answers(const std::string& code, unsigned long cls, unsigned long addr) {
    if (code.size() < 4) return false;
    const auto c = hexNumber(std::string_view(code).substr(0, 2));
    const auto a = hexNumber(std::string_view(code).substr(2, 2));
    return c && a && *c + 2 == cls && *a == addr;
}

}  // namespace

FunctionEditor::FunctionEditor(Shared& shared, TypeTables& types, SettingStores& stores, Link& link, Form2& form)
    : shared_(shared), types_(types), stores_(stores), link_(link), form_(form) {
    form_.List1.onClick = [this] { List1_Click(); };
    form_.List2.onClick = [this] { List2_Click(); };
    form_.List3.onClick = [this] { List3_Click(); };
    form_.HScroll1.onChange = [this] { HScroll1_Change(); };
    form_.List3.Enabled = false;
    form_.HScroll1.Enabled = false;
}

int FunctionEditor::slot() const { return toInteger(val(shared_.cams.CamFclNo(shared_.CamNo))); }

int FunctionEditor::itemCount(int f) const { return count(types_.ItemList(slot(), f, 0), kMaxItems); }

std::string* FunctionEditor::storedValue(const std::string& functionKey, const std::string& code) {
    const int row = rowOf(functionKey, code);
    if (row == 0) return nullptr;
    const int cam = shared_.CamNo;
    return functionKey == "FS" ? &stores_.FuncScnData(row, cam, 0) : &stores_.FuncData(row, cam);
}

int FunctionEditor::rowOf(const std::string& functionKey, const std::string& code) const {
    if (shared_.CamNo < 1) return 0;  // the GROUP position keeps no function values
    const bool scene = functionKey == "FS";
    if (!scene && functionKey != "F") return 0;
    auto key = [&](int r) -> const std::string& { return scene ? stores_.FuncScnData(r, 0, 0) : stores_.FuncData(r, 0); };
    const int rows = count(scene ? stores_.FuncScnData(0, 0, 0) : stores_.FuncData(0, 0), kMaxSettingRows);
    // Rows are found by their code; the row last found for a code is tried first, since a
    // setup file load may have put the rows in another order since.
    auto& known = scene ? sceneRows_ : plainRows_;
    if (const auto hint = known.find(code); hint != known.end() && hint->second <= rows && key(hint->second) == code)
        return hint->second;
    for (int r = 1; r <= rows; ++r)
        if (key(r) == code) {
            known[code] = r;
            return r;
        }
    return 0;
}

std::string* FunctionEditor::stored(int f, const FunctionItem& it) {
    return storedValue(types_.FuncList(slot(), f, 0), it.code());
}

const std::string* FunctionEditor::stored(int f, const FunctionItem& it) const {
    const std::string& functionKey = types_.FuncList(slot(), f, 0);
    const int row = rowOf(functionKey, it.code());
    if (row == 0) return nullptr;
    const int cam = shared_.CamNo;
    const SettingStores& stores = stores_;
    return functionKey == "FS" ? &stores.FuncScnData(row, cam, 0) : &stores.FuncData(row, cam);
}

std::string FunctionEditor::valueText(const FunctionItem& item, const std::string& value) const {
    if (item.kind() == 'T') return "";
    if (value.empty()) return "(not set)";
    const FunctionItem::Value v = item.valueOf(value);
    if (v.text.empty()) return "unknown (" + value + ")";
    if (item.kind() == 'A') return v.text;
    if (const int k = item.findValue(v.text); k > 0) return item.valueName(k);
    return "unknown (" + v.text + ")";
}

void FunctionEditor::tellClamped(int f, const FunctionItem& it, const std::string& value) {
    if (!Notify || !clampTold_.insert(std::to_string(shared_.CamNo) + " " + it.code() + "=" + value).second) return;
    const FunctionItem::Range r = it.range();
    Notify(types_.FuncList(slot(), f, 1) + ", " + it.name() + ": the stored value " + value + " is outside " +
           hexDigits(static_cast<unsigned long>(r.min), r.digits) + " to " +
           hexDigits(static_cast<unsigned long>(r.max), r.digits) + "; " + it.valueOf(value).text +
           " is shown and sent");
}

void FunctionEditor::FuncListDsp() {
    const QuietControls quiet(shared_.CtrlReady);
    const int keep = form_.List1.listIndex();
    form_.List1.clear();
    built_ = {};
    const int s = slot();
    const int functions = count(types_.FuncList(s, 0, 0), kMaxFunctions);
    for (int f = 1; f <= functions; ++f) form_.List1.addItem(types_.FuncList(s, f, 1));
    if (functions > 0) form_.List1.setListIndex(std::clamp(keep, 0, functions - 1));
    else showPage();
}

void FunctionEditor::DataFuncDsp() {
    const Integer ready = shared_.CtrlReady;
    {
        const QuietControls quiet(shared_.CtrlReady);
        showPage();
    }
    const int f = function();
    if (ready != 1 || f < 1) return;
    // The page goes out in item order; actions and items without a value are not sent.
    const int items = itemCount(f);
    for (int i = 1; i <= items; ++i) {
        const FunctionItem it = item(f, i);
        if (it.kind() != 'M' && it.kind() != 'A' && it.kind() != 'S') continue;
        const std::string* v = stored(f, it);
        if (v == nullptr) continue;
        // The value as the page shows it, not the text the file held.
        if (const FunctionItem::Value shown = it.valueOf(*v); !shown.text.empty()) link_.SendCmd(it.command(shown.text));
    }
}

void FunctionEditor::List1_Click() {
    shared_.CtrlReady = 0;
    if (function() != page_) item_ = 1;
    DataFuncDsp();
    shared_.CtrlReady = 1;
}

void FunctionEditor::List2_Click() {
    item_ = form_.List2.listIndex() + 1;
    const QuietControls quiet(shared_.CtrlReady);
    showItem();
}

void FunctionEditor::showPage() {
    const int f = function();
    page_ = f;
    form_.List2.clear();
    if (f < 1) {
        form_.Label1.Caption.clear();
        item_ = 0;
        showItem();
        return;
    }
    const std::string& key = types_.FuncList(slot(), f, 0);
    form_.Label1.Caption = key == "FS"  ? "Scene function: working copy of scene " + decText(shared_.ScnNo(shared_.CamNo))
                           : key == "F" ? "Camera function"
                                        : "Not kept in the setup data";
    const int items = itemCount(f);
    for (int i = 1; i <= items; ++i) {
        const FunctionItem it = item(f, i);
        const std::string* v = stored(f, it);
        if (v != nullptr && it.valueOf(*v).clamped) tellClamped(f, it, *v);
        form_.List2.addItem(it.kind() == 'T' ? it.name() : it.name() + ": " + valueText(it, v ? *v : std::string()));
    }
    if (items < 1) item_ = 0;
    else item_ = std::clamp(item_, 1, items);
    if (item_ > 0) form_.List2.setListIndex(item_ - 1);  // shows the item
    else showItem();
}

void FunctionEditor::showItem() {
    const int f = function();
    if (f < 1 || item_ < 1) {
        form_.Label2.Caption.clear();
        form_.Label3.Caption.clear();
        form_.List3.clear();
        form_.List3.Enabled = false;
        form_.HScroll1.Enabled = false;
        built_ = {};
        return;
    }
    const FunctionItem it = item(f, item_);
    const std::string* stored = this->stored(f, it);
    const std::string value = stored ? *stored : std::string();
    const std::string shown = it.valueOf(value).text;
    form_.Label2.Caption = it.name();
    if (it.setter() == FunctionItem::Setter::Bar) {
        form_.List3.clear();
        form_.List3.Enabled = false;
        built_ = {};
        const FunctionItem::Range r = it.range();
        ScrollBar& bar = form_.HScroll1;
        bar.Min = static_cast<int>(r.min);
        bar.Max = static_cast<int>(r.max);
        bar.SmallChange = static_cast<int>(r.step);
        bar.LargeChange = static_cast<int>(std::min(r.step * 16, std::max(r.max - r.min, r.step)));
        bar.Enabled = true;
        const auto v = hexNumber(shown);
        bar.setValue(v ? static_cast<int>(*v) : static_cast<int>(r.min));
        form_.Label3.Caption = valueText(it, value) + "   (" + hexDigits(static_cast<unsigned long>(r.min), r.digits) +
                               " to " + hexDigits(static_cast<unsigned long>(r.max), r.digits) + ", step " +
                               hexDigits(static_cast<unsigned long>(r.step), r.digits) + ")";
        return;
    }
    form_.HScroll1.Enabled = false;
    form_.List3.Enabled = it.setter() == FunctionItem::Setter::List;
    const Built now{slot(), f, item_};
    if (built_ != now) {
        form_.List3.clear();
        for (int k = 1; k <= it.valueCount(); ++k) form_.List3.addItem(it.valueName(k));
        built_ = now;
    }
    form_.List3.setListIndex(it.kind() == 'T' || shown.empty() ? -1 : it.findValue(shown) - 1);
    form_.Label3.Caption = valueText(it, value);
}

void FunctionEditor::changeItem(const FunctionItem& it, const std::string& value) {
    if (std::string* v = stored(function(), it)) *v = value;
    link_.SendCmd(it.command(value));
    const QuietControls quiet(shared_.CtrlReady);
    showPage();
}

void FunctionEditor::List3_Click() {
    const int f = function();
    const int k = form_.List3.listIndex() + 1;
    if (shared_.CtrlReady != 1 || f < 1 || item_ < 1 || k < 1) return;
    const FunctionItem it = item(f, item_);
    if (k > it.valueCount()) return;
    const std::string& code = it.valueCode(k);
    if (it.kind() == 'T') {
        // An action is sent and kept nowhere; the list is left without a choice so that the
        // same action can be run again.
        if (it.code() == "40" && startAutoSetup) startAutoSetup(code, it.valueName(k));
        else link_.SendCmd(it.command(code));
        const QuietControls quiet(shared_.CtrlReady);
        form_.List3.setListIndex(-1);
    } else if (it.kind() == 'M' || it.kind() == 'S') {
        changeItem(it, code);
    }
}

void FunctionEditor::HScroll1_Change() {
    const int f = function();
    if (f < 1 || item_ < 1) return;
    const FunctionItem it = item(f, item_);
    if (it.kind() != 'A') return;
    const FunctionItem::Range r = it.range();
    const long value = form_.HScroll1.value();
    if (shared_.CtrlReady != 1) {
        form_.Label3.Caption = hexDigits(static_cast<unsigned long>(value), r.digits);
        return;
    }
    const long snapped = r.snap(value);
    if (snapped != value) {
        form_.HScroll1.setValue(static_cast<int>(snapped));  // comes back here on the grid
        return;
    }
    changeItem(it, hexDigits(static_cast<unsigned long>(snapped), r.digits));
}

void FunctionEditor::RecModeFunc(const std::string& cls, const std::string& addr, const std::string& data) {
    const ReplyGuard guard(shared_.CtrlReady);
    const auto c = hexNumber(cls), a = hexNumber(addr), d = hexNumber(data);
    if (!c || !a || !d) return;
    takeReply(*c, *a, "M", [&](const FunctionItem& it, std::string& v) {
        const auto mask = it.mask();
        if (!mask) return false;
        // Two items on one register each take the bits their own mask leaves open.
        const unsigned long bits = *d & ~*mask & 0xFF;
        int k = 1;
        while (k <= it.valueCount() && hexNumber(it.valueCode(k)) != bits) ++k;
        v = k <= it.valueCount() ? it.valueCode(k) : hexDigits(bits, 2);
        return true;
    });
}

void FunctionEditor::RecAnalogFunc(const std::string& cls, const std::string& addr, const std::string& data,
                                   const std::string& data2) {
    const ReplyGuard guard(shared_.CtrlReady);
    const auto c = hexNumber(cls), a = hexNumber(addr), d = hexNumber(data);
    if (!c || !a || !d) return;
    // A reply of one value byte reads as a second byte of 00.
    const std::string low = data2.empty() ? std::string("00") : data2;
    const unsigned long wire = *d * 256 + hexNumber(low).value_or(0);
    takeReply(*c, *a, "AS", [&](const FunctionItem& it, std::string& v) {
        if (it.kind() == 'A') {
            v = it.range().digits == 4 ? data + low : data;
            return true;
        }
        // A two-digit speed travels as its code and a 00 byte, a four-digit step as itself.
        int k = 1;
        for (; k <= it.valueCount(); ++k) {
            const std::string& code = it.valueCode(k);
            const auto n = hexNumber(code);
            if (n && (code.size() <= 2 ? *n * 256 : *n) == wire) break;
        }
        v = k <= it.valueCount() ? it.valueCode(k) : low == "00" ? data : data + low;
        return true;
    });
}

void FunctionEditor::takeReply(unsigned long cls, unsigned long addr, const std::string& kinds,
                               const std::function<bool(const FunctionItem&, std::string&)>& take) {
    const int s = slot();
    const int functions = count(types_.FuncList(s, 0, 0), kMaxFunctions);
    bool changed = false;
    for (int f = 1; f <= functions; ++f) {
        const int items = itemCount(f);
        for (int i = 1; i <= items; ++i) {
            const std::string& kind = types_.ItemList(s, f, i);
            if (kind.size() != 1 || kinds.find(kind[0]) == std::string::npos ||
                !answers(types_.ItemList(s, f, i + kItemCodeCell), cls, addr))
                continue;
            const FunctionItem it = item(f, i);
            std::string* v = stored(f, it);
            if (v != nullptr && take(it, *v)) changed = true;
        }
    }
    if (changed) showPage();
}

}  // namespace station
