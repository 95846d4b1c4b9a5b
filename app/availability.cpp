#include "app/availability.hpp"

namespace station::availability {

bool cameraSelection(const Form1& form) { return form.cameraSelect.Enabled && form.Option9.Enabled; }
bool sceneSelection(const Form1& form) { return form.Option7.Enabled; }
bool sceneClear(const Form1& form) { return form.Command2.Enabled; }

bool mode(const Form1& form, Mode m) {
    const OptionGroup& group = form.*modeControl(m).group;
    return group.Enabled && (m != Mode::Monitor || form.Frame12.Enabled);
}

bool level(const Form1& form, Level l) { return (form.*levelControl(l).bar).Enabled; }
bool gainValue(const MainPanel& panel, int step) { return panel.gainStepRange(step).offered(); }
bool filterStep(const Form1& form) { return form.Frame17.Enabled; }
bool call(const Form1& form) { return form.Frame19.Enabled && form.Command9.Enabled; }

bool autoSetup(const Form1& form, bool white) {
    return form.Frame15.Enabled && (white ? form.Command8.Enabled : form.Command7.Enabled);
}

bool pageRead(const Form1& form) { return form.Command12.Enabled; }
bool pageSend(const Form1& form) { return form.Command13.Enabled; }
bool onePage(const Form1& form) { return form.Command3.Enabled; }
bool fileOpen(const Form1& form) { return form.Command10.Enabled; }
bool fileSave(const Form1& form) { return form.Command11.Enabled; }
bool functionItems(const Form2& form) { return form.List1.Enabled && form.List1.listCount() > 0; }
bool consoleFrame(const Console& console) { return console.Command1.Enabled; }

}  // namespace station::availability
