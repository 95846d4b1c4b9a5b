#include "funcedit/function_editor.hpp"

namespace station {

FunctionEditor::FunctionEditor(Shared& shared, TypeTables& types, Form2& form)
    : shared_(shared), types_(types), form_(form) {
    form_.List1.onClick = [this] { List1_Click(); };
}

void FunctionEditor::FuncListDsp() {
    form_.List1.clear();
    const int slot = toInteger(val(shared_.cams.CamFclNo(shared_.CamNo)));
    const double functions = val(types_.FuncList(slot, 0, 0));
    for (int f = 1; f <= functions; ++f) form_.List1.addItem(types_.FuncList(slot, f, 1));
}

void FunctionEditor::DataFuncDsp() {}

void FunctionEditor::List1_Click() {
    shared_.CtrlReady = 0;
    DataFuncDsp();
    shared_.CtrlReady = 1;
}

void FunctionEditor::RecModeFunc(const std::string&, const std::string&, const std::string&) {}

void FunctionEditor::RecAnalogFunc(const std::string&, const std::string&, const std::string&, const std::string&) {}

}  // namespace station
