#pragma once
// The setup data dialogs' filter as the station states it ("Camera setup data files
// (*.csd)|*.csd|": description and pattern pairs joined by bars) in Qt's form
// ("Camera setup data files (*.csd)", pairs joined by ";;", patterns in parentheses).

#include <string>
#include <string_view>

namespace station::ui {

std::string qtFileFilter(std::string_view barFilter);

}  // namespace station::ui
