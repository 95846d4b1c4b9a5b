#pragma once
// When an operator gesture may act: the one rule the windows use to grey its control and
// the actions ask before they act, so that a click, a remote command and a script line are
// offered or refused alike. Only controls the station greys have a rule: the rest are
// always offered.

#include "funcedit/function_editor.hpp"
#include "panel/form1.hpp"
#include "panel/main_panel.hpp"

namespace station::availability {

// The monitor select, while the camera's type has a monitor output (every other mode
// group is always offered).
bool monitorSelect(const Form1& form);
// One press of a gain step's spin arrow (0 LOW, 1 MID, 2 HIGH): only for a step the gain
// type can trim, and not at the end of its range, where the press would change nothing.
bool gainStep(const MainPanel& panel, int step, bool up);
// The filter spin buttons, while the camera's type has a filter.
bool filterStep(const Form1& form);
// CALL, while the tally frame is offered (a type with tally, Ack On).
bool call(const Form1& form);
// "Camera to PC", while the camera answers (Ack On).
bool pageRead(const Form1& form);
// The Function window's lists: the selected camera has functions to choose from.
bool functionItems(const Form2& form);

}  // namespace station::availability
