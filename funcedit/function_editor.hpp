#pragma once
// The function editor window ("Function"): the selected camera type's functions, the items
// of the chosen function with their current values, and the mode or value of the chosen
// item. A change of an item is stored and sent at once; showing a page or a reply never
// sends (CtrlReady 0 while the controls are set), and showing a page while CtrlReady is 1
// also sends every item of it that has a value, which is how a page is written to a camera.
//
// Values are kept as the hex text of the code that is sent ("01", "7F", "01A0"); a value in
// another form (from a hand-edited file: "7", "1a0") is shown and sent in the item's form,
// clamped to its range, and kept as it was until the item is changed. Items of
// scene functions ("FS") in the selected camera's working scene of FuncScnData, items of
// plain functions ("F") in its FuncData, in the row of the item's code. An item never set
// is empty and is never sent. Replies store into the selected camera, like the main panel.

#include <functional>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "camtype/setting_stores.hpp"
#include "camtype/type_tables.hpp"
#include "common/controls.hpp"
#include "common/shared.hpp"
#include "funcedit/function_items.hpp"
#include "link/link.hpp"

namespace station {

struct Form2 {
    FormWindow form{"Function"};
    ListBox List1;       // "FUNCTION LIST": the titles of the camera type's functions
    Label Label1;        // what the page's values belong to: the scene or the camera
    ListBox List2;       // "ITEM LIST": each item's name and current value
    Label Label2;        // the chosen item, over "MODE/VALUE"
    ListBox List3;       // "MODE/VALUE" of a mode, shutter or action item (Enabled while one is chosen)
    ScrollBar HScroll1;  // "MODE/VALUE" of an analog item (Enabled while one is chosen)
    Label Label3;        // the analog value in hex and its range
};

class FunctionEditor {
public:
    FunctionEditor(Shared& shared, TypeTables& types, SettingStores& stores, Link& link, Form2& form);

    // Rebuilds the function list for the selected camera's type, keeping the chosen function
    // where the list allows; never sends and leaves CtrlReady as it found it.
    void FuncListDsp();
    // Shows the chosen function's items and, while CtrlReady is 1, sends every item of the
    // page that has a value, in item order.
    void DataFuncDsp();
    // Choosing a function shows its page without sending it.
    void List1_Click();
    // Choosing an item shows its modes or value; never sends.
    void List2_Click();
    // The operator's choice of a mode, shutter speed or action: stored and sent.
    void List3_Click();
    // The analog value moved: stored and sent, on the STEP grid.
    void HScroll1_Change();

    // Function replies, called after the main panel's decoders; they store and redraw, never send.
    void RecModeFunc(const std::string& cls, const std::string& addr, const std::string& data);
    void RecAnalogFunc(const std::string& cls, const std::string& addr, const std::string& data,
                       const std::string& data2);

    // Starts an automatic set-up (operation code, action name) and shows its progress; an
    // action item with the prefix "40" goes here instead of straight to the line.
    std::function<void(const std::string& operation, const std::string& title)> startAutoSetup;
    // A word to the operator that needs no answer: a stored value outside its item's range,
    // told once per camera, item and value.
    std::function<void(const std::string&)> Notify;

    // The stored value of an item code in a function of key "FS" or "F" for the selected
    // camera; nullptr for other keys, the GROUP position and codes without a row.
    std::string* storedValue(const std::string& functionKey, const std::string& code);
    // How an item's value reads in the item list: a mode by its name, an analog value in hex,
    // "unknown (05)" for a code no value has, "(not set)" when empty.
    std::string valueText(const FunctionItem& item, const std::string& value) const;

    // Function f's items (f and i from 1) for the selected camera's type, and where an
    // item's value is kept (nullptr where none is).
    int itemCount(int f) const;
    FunctionItem item(int f, int i) const { return FunctionItem(types_, slot(), f, i); }
    std::string* stored(int f, const FunctionItem& it);
    const std::string* stored(int f, const FunctionItem& it) const;
    // The row of the setting stores that keeps `code` (0: none, or GROUP selected).
    int rowOf(const std::string& functionKey, const std::string& code) const;

private:
    int slot() const;
    int function() const { return form_.List1.listIndex() + 1; }
    void showPage();
    void showItem();
    void changeItem(const FunctionItem& it, const std::string& value);
    void tellClamped(int f, const FunctionItem& it, const std::string& value);
    // Hands each item of the shown type whose kind is in `kinds` and which answers to the
    // reply's class and address, with its stored value, to `take`; redraws the page when
    // `take` stored into any of them (it returns whether it did).
    void takeReply(unsigned long cls, unsigned long addr, const std::string& kinds,
                   const std::function<bool(const FunctionItem&, std::string&)>& take);

    Shared& shared_;
    TypeTables& types_;
    SettingStores& stores_;
    Link& link_;
    Form2& form_;
    int item_ = 0;  // the chosen item of the page, 0 for none
    int page_ = 0;  // the function whose page is shown, 0 for none
    // The item whose values List3 holds, so that a redraw does not rebuild a long list.
    struct Built {
        int slot = -1, function = -1, item = -1;
        bool operator==(const Built&) const = default;
    } built_;
    // The row of each item code in FuncScnData and FuncData, as last found.
    // Where each code's row was last found: a lookup cache, so kept by const lookups too.
    mutable std::unordered_map<std::string, int> sceneRows_;
    mutable std::unordered_map<std::string, int> plainRows_;
    std::unordered_set<std::string> clampTold_;  // "camera code=value" already told
};

}  // namespace station
