#include "app/availability.hpp"

namespace station::availability {

bool monitorSelect(const Form1& form) { return form.Frame12.Enabled; }
bool gainStep(const MainPanel& panel, int step, bool up) { return panel.canStepGain(step, up ? +1 : -1); }
bool filterStep(const Form1& form) { return form.Frame17.Enabled; }
bool call(const Form1& form) { return form.Frame19.Enabled; }
bool pageRead(const Form1& form) { return form.Command12.Enabled; }
bool functionItems(const Form2& form) { return form.List1.listCount() > 0; }

}  // namespace station::availability
