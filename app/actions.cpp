#include "app/actions.hpp"

#include "app/availability.hpp"
#include "app/station.hpp"

namespace station {

std::string notAvailable(const std::string& what) { return what + " is not available for this camera now"; }

ActionResult Actions::perform(const std::function<void()>& gesture) {
    if (const auto failure = station_.act(gesture)) return ActionResult::failed(*failure);
    return ActionResult::done();
}

ActionResult Actions::offered(bool available, const std::string& control, const std::function<void()>& gesture) {
    if (!available) return ActionResult::refused(notAvailable(control));
    return perform(gesture);
}

ActionResult Actions::selectCamera(int camera) {
    Form1& form = station_.form1;
    // A ticked COPY would turn the press into a copy onto that camera.
    if (form.CamCopy.value() == 1) return ActionResult::refused("COPY is ticked on the panel");
    return perform([&form, camera] { form.Option9.click(camera); });
}

ActionResult Actions::recallScene(int scene) {
    Form1& form = station_.form1;
    // With STORE ticked the press would store instead.
    if (form.ScnStore.value() == 1) return ActionResult::refused("STORE is ticked on the panel");
    return perform([&form, scene] { form.Option7.click(scene); });
}

ActionResult Actions::storeScene(int scene) {
    Form1& form = station_.form1;
    return perform([&form, scene] {
        form.ScnStore.setValue(1);
        form.Option7.click(scene);
    });
}

ActionResult Actions::clearScene() {
    return perform([this] { station_.scenes.Command2_Click(); });
}

ActionResult Actions::setMode(Mode mode, int button) {
    OptionGroup& group = station_.form1.*modeControl(mode).group;
    const bool available = mode != Mode::Monitor || availability::monitorSelect(station_.form1);
    return offered(available, std::string("mode ") + modeControl(mode).name, [&group, button] { group.click(button); });
}

ActionResult Actions::chooseGainStep(int button) { return setMode(Mode::Gain, button); }

ActionResult Actions::setLevel(Level level, int value) {
    ScrollBar& bar = station_.form1.*levelControl(level).bar;
    return perform([&bar, value] { bar.setValue(value); });
}

ActionResult Actions::stepGain(int step, bool up, int presses) {
    // The window greys an arrow for a step the gain type keeps fixed and at the end of the
    // step's range; the presses stop there as the operator's would.
    MainPanel& panel = station_.panel;
    return offered(availability::gainStep(panel, step, up),
                   std::string("gain value ") + kGainSteps.at(static_cast<std::size_t>(step)) + (up ? " up" : " down"),
                   [&panel, step, up, presses] {
                       for (int i = 0; i < presses && availability::gainStep(panel, step, up); ++i)
                           up ? panel.SpinButton1_SpinUp(step) : panel.SpinButton1_SpinDown(step);
                   });
}

ActionResult Actions::stepFilter(bool up) {
    MainPanel& panel = station_.panel;
    return offered(availability::filterStep(station_.form1), "the filter",
                   [&panel, up] { up ? panel.SpinButton2_SpinUp() : panel.SpinButton2_SpinDown(); });
}

ActionResult Actions::call(bool on) {
    MainPanel& panel = station_.panel;
    return offered(availability::call(station_.form1), "the call button",
                   [&panel, on] { on ? panel.Command9_MouseDown() : panel.Command9_MouseUp(); });
}

ActionResult Actions::startAuto(bool white) {
    AutoSetup& setup = station_.autoSetup;
    return perform([&setup, white] { white ? setup.Command8_Click() : setup.Command7_Click(); });
}

ActionResult Actions::readPage() {
    if (!availability::pageRead(station_.form1)) return ActionResult::refused(notAvailable("page read"));
    // A client's page goes into the queue at once and must fit; the window's own click is
    // not held back for room.
    const int needed = static_cast<int>(station_.pages.readRequests().size());
    const int room = SendQueue::kCapacity - readout_.queued();
    if (needed > room)
        return ActionResult::refused("page read needs " + std::to_string(needed) + " frames, the queue has room for " +
                                     std::to_string(room));
    return perform([this] { station_.pages.Command12_Click(); });
}

ActionResult Actions::sendPage() {
    return perform([this] { station_.pages.Command13_Click(); });
}

ActionResult Actions::sendOnePage() {
    return perform([this] { station_.pages.Command3_Click(); });
}

ActionResult Actions::open() {
    return perform([this] { station_.setupFile.CamFileOpen(); });
}

ActionResult Actions::save() {
    return perform([this] { station_.setupFile.SAVE_Click(); });
}

ActionResult Actions::saveAs() {
    return perform([this] { station_.setupFile.SAVE_AS_Click(); });
}

ActionResult Actions::functionGesture(int function, int item, const std::function<void()>& choose) {
    Form2& form = station_.form2;
    if (!availability::functionItems(form))
        return ActionResult::refused("the selected camera has no functions (GROUP, or no camera type)");
    if (function < 1 || function > form.List1.listCount()) return ActionResult::refused("no function " + std::to_string(function));
    if (item < 1 || item > station_.editor.itemCount(function))
        return ActionResult::refused("no item " + std::to_string(item) + " in " + form.List1.list(function - 1));
    // The order an operator uses: the function list, the item list, then MODE/VALUE.
    return perform([&form, function, item, &choose] {
        form.List1.setListIndex(function - 1);
        form.List2.setListIndex(item - 1);
        choose();
    });
}

ActionResult Actions::chooseFunctionValue(int function, int item, int choice) {
    Form2& form = station_.form2;
    return functionGesture(function, item, [&form, choice] { form.List3.setListIndex(choice - 1); });
}

ActionResult Actions::setFunctionValue(int function, int item, long value) {
    Form2& form = station_.form2;
    return functionGesture(function, item, [&form, value] { form.HScroll1.setValue(static_cast<int>(value)); });
}

ActionResult Actions::consoleFrame(const std::string& hex) {
    Console& console = station_.console;
    return perform([&console, &hex] {
        console.Text1.setText(hex);
        console.Command1_Click();
    });
}

void Actions::watchLine(LinkEvents& watcher) { station_.watchLine(watcher); }

ActionResult Actions::dropQueued() {
    // The frame awaiting its acknowledge goes too: a NAK for it must not send it again.
    station_.link.giveUpQueued();
    return ActionResult::done();
}

}  // namespace station
