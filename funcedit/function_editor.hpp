#pragma once
// The function editor window ("Function"): the current camera type's functions, their items
// and each item's mode or value. So far it lists the functions; the item page, its sending
// and the function reply decoding are not built yet. These are the entry points the rest of
// the station calls, in the order it calls them, so that the editor can be completed without
// touching its callers; until then a page shows nothing and sends nothing.

#include <string>

#include "camtype/type_tables.hpp"
#include "common/controls.hpp"
#include "common/shared.hpp"

namespace station {

struct Form2 {
    FormWindow form{"Function"};
    ListBox List1;  // "FUNCTION LIST"
};

class FunctionEditor {
public:
    FunctionEditor(Shared& shared, TypeTables& types, Form2& form);

    // Rebuilds the function list (the titles) for the selected camera's type.
    void FuncListDsp();
    // Shows the selected function's items and, while CtrlReady is 1, sends them.
    void DataFuncDsp();
    // Choosing a function shows its page without sending it.
    void List1_Click();

    // Function replies, called after the main panel's decoders.
    void RecModeFunc(const std::string& cls, const std::string& addr, const std::string& data);
    void RecAnalogFunc(const std::string& cls, const std::string& addr, const std::string& data,
                       const std::string& data2);

private:
    Shared& shared_;
    TypeTables& types_;
    Form2& form_;
};

}  // namespace station
