#pragma once
// When each operator gesture may act: the one rule the windows use to grey its control and
// the actions ask before they act, so that a click, a remote command and a script line are
// offered or refused alike. A control inside a frame is available only while both are.

#include "app/panel_controls.hpp"
#include "funcedit/function_editor.hpp"
#include "link/console.hpp"
#include "panel/form1.hpp"
#include "panel/main_panel.hpp"

namespace station::availability {

// The camera buttons (and their keys in the menus).
bool cameraSelection(const Form1& form);
// The scene buttons, for recall and store; CLEAR.
bool sceneSelection(const Form1& form);
bool sceneClear(const Form1& form);
// A mode group; the monitor select only while its frame is.
bool mode(const Form1& form, Mode m);
bool level(const Form1& form, Level l);
// The spin buttons of a gain step: only for a step the camera's gain type can trim.
bool gainValue(const MainPanel& panel, int step);
bool filterStep(const Form1& form);
bool call(const Form1& form);
bool autoSetup(const Form1& form, bool white);
bool pageRead(const Form1& form);
bool pageSend(const Form1& form);
bool onePage(const Form1& form);
bool fileOpen(const Form1& form);
bool fileSave(const Form1& form);
// The Function window's lists: the selected camera has functions to choose from.
bool functionItems(const Form2& form);
bool consoleFrame(const Console& console);

}  // namespace station::availability
