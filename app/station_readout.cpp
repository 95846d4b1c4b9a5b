#include "app/station_readout.hpp"

#include "app/availability.hpp"
#include <algorithm>

#include "app/station.hpp"
#include "common/vb_conv.hpp"

namespace station {

namespace {

StationReadout::Buttons buttonsOf(const OptionGroup& group) {
    StationReadout::Buttons b{group.lo(), group.hi(), {}};
    for (int i = group.lo(); i <= group.hi(); ++i) b.captions.push_back(group[i].Caption);
    return b;
}

}  // namespace

bool StationReadout::ended() const { return station_.ended(); }
int StationReadout::selectedCamera() const { return station_.shared.CamNo; }
int StationReadout::sceneOf(int camera) const { return station_.shared.ScnNo(camera); }
std::string StationReadout::cameraType(int camera) const { return station_.shared.cams.CamType(camera); }
std::string StationReadout::cameraId(int camera) const { return station_.shared.cams.CamID(camera); }

std::string StationReadout::cameraName(int camera) const {
    const std::string type = cameraType(camera);
    return "camera " + std::to_string(camera) + (type.empty() ? " (no type)" : " (" + type + ", ID " + cameraId(camera) + ")");
}

StationReadout::Buttons StationReadout::cameraButtons() const { return buttonsOf(station_.form1.Option9); }
StationReadout::Buttons StationReadout::modeButtons(Mode m) const { return buttonsOf(station_.form1.*modeControl(m).group); }
int StationReadout::selectedScene() const { return station_.form1.Option7.selected(); }
bool StationReadout::workingCopyStored() const { return station_.scenes.workingCopyStored(); }
bool StationReadout::scenePressDropsChanges(int scene) const { return station_.scenes.pressDropsChanges(scene); }
int StationReadout::selectedMode(Mode m) const { return (station_.form1.*modeControl(m).group).selected(); }

StationReadout::Range StationReadout::levelRange(Level l) const {
    const ScrollBar& bar = station_.form1.*levelControl(l).bar;
    return {std::min(bar.Min, bar.Max), std::max(bar.Min, bar.Max), bar.value()};
}

std::string StationReadout::levelText(Level l) const { return (station_.form1.*levelControl(l).number).Caption; }
std::string StationReadout::gainStepText(int step) const { return station_.form1.Label1(step).Caption; }
int StationReadout::gainType() const { return station_.types.FormGain(station_.panel.FclNo()); }

StationReadout::Range StationReadout::gainValueRange(int step) const {
    const MainPanel::GainStepRange r = station_.panel.gainStepRange(step);
    return {r.lo, r.hi, toInteger(val(station_.stores.MainScnData(15 + step, station_.shared.CamNo, 0)))};
}

std::string StationReadout::filterText() const { return station_.form1.Label16.Caption; }
bool StationReadout::tally() const { return station_.form1.Label15.BackColor == kColourRed; }
bool StationReadout::callHeld() const { return station_.form1.CallOn != 0; }

StationReadout::Offered StationReadout::offered() const {
    const Form1& form = station_.form1;
    Offered o;  // what has no rule is always offered
    o.filter = availability::filterStep(form);
    o.call = availability::call(form);
    for (std::size_t i = 0; i < kModes.size(); ++i)
        o.modes.at(i) = kModes.at(i).mode != Mode::Monitor || availability::monitorSelect(form);
    for (std::size_t i = 0; i < kGainSteps.size(); ++i) {
        const int step = static_cast<int>(i);
        o.gainValues.at(i) = gainStepOffered(step, true) || gainStepOffered(step, false);
    }
    return o;
}

bool StationReadout::gainStepOffered(int step, bool up) const { return availability::gainStep(station_.panel, step, up); }
bool StationReadout::panelLive() const { return station_.shared.CtrlReady != 0; }

std::string StationReadout::autoOperation() const { return station_.form6.Label1.Caption; }
std::string StationReadout::autoResult() const { return station_.form6.Label2.Caption; }
bool StationReadout::autoShown() const { return station_.form6.form.Visible; }

std::string StationReadout::lineState() const { return station_.line.stateText(); }
std::string StationReadout::lineDevice() const { return station_.line.deviceText(); }
std::chrono::system_clock::time_point StationReadout::now() const { return station_.line.now(); }
Answer StationReadout::answer(int camera, std::chrono::system_clock::time_point now) const {
    return station_.line.answers.state(camera, now);
}
std::optional<std::chrono::system_clock::time_point> StationReadout::lastAnswer(int camera) const {
    return station_.line.answers.lastAnswer(camera);
}
LineCondition StationReadout::lineCondition() const { return station_.line.condition(); }
const PortChoice& StationReadout::portChoice() const { return station_.line.choice(); }
std::uint64_t StationReadout::traffic() const { return station_.link.traffic(); }
int StationReadout::testBytes() const { return station_.link.TestCnt(); }
int StationReadout::queued() const { return station_.link.queue().SendCnt(); }
const SendRec& StationReadout::queuedFrame(int index) const { return station_.link.queue().entry(index); }
bool StationReadout::awaitingAcknowledge() const { return station_.link.AckWait() >= 0; }
bool StationReadout::awaitingAnswer() const { return station_.link.AnsWait() >= 0; }
int StationReadout::ackWaitTicks() const { return station_.link.AckWait(); }
int StationReadout::answerWaitTicks() const { return station_.link.AnsWait(); }

bool StationReadout::handshake() const { return station_.shared.AckMode == 0; }
bool StationReadout::cameraIdOn() const { return station_.shared.IDMode == 1; }
bool StationReadout::checksumsReadExactly() const { return station_.link.checksumsReadExactly(); }
int StationReadout::typeCount() const { return static_cast<int>(val(station_.types.TypeFile(0))); }

std::string StationReadout::fileName() const { return station_.setupFile.FileName; }
bool StationReadout::modified() const { return station_.setupFile.modified(); }

std::string StationReadout::mainSetting(int field, int camera, int scene) const {
    return station_.stores.MainScnData(field, camera, scene);
}

std::vector<std::pair<std::string, std::string>> StationReadout::functionSettings(int camera) const {
    const SettingStores& stores = station_.stores;
    std::vector<std::pair<std::string, std::string>> out;
    const int sceneRows = static_cast<int>(val(stores.FuncScnData(0, 0, 0)));
    for (int r = 1; r <= sceneRows; ++r) out.emplace_back(stores.FuncScnData(r, 0, 0), stores.FuncScnData(r, camera, 0));
    const int rows = static_cast<int>(val(stores.FuncData(0, 0)));
    for (int r = 1; r <= rows; ++r) out.emplace_back(stores.FuncData(r, 0), stores.FuncData(r, camera));
    return out;
}

std::vector<std::string> StationReadout::functionTitles() const { return station_.form2.List1.items(); }
int StationReadout::shownFunction() const { return station_.form2.List1.listIndex(); }
std::vector<std::string> StationReadout::shownItems() const { return station_.form2.List2.items(); }
int StationReadout::itemCount(int f) const { return station_.editor.itemCount(f); }
FunctionItem StationReadout::item(int f, int i) const { return station_.editor.item(f, i); }

std::optional<std::string> StationReadout::storedValue(int f, const FunctionItem& it) const {
    const std::string* held = station_.editor.stored(f, it);
    if (held == nullptr) return std::nullopt;
    return *held;
}

std::string StationReadout::valueText(const FunctionItem& it, const std::string& value) const {
    return station_.editor.valueText(it, value);
}

int StationReadout::largestPageSend() const {
    constexpr int kMainPage = 15;  // the modes, monitor, levels and filter of the main page
    int most = kMainPage;
    const TypeTables& types = station_.types;
    for (int slot = 0; slot <= kMaxSlots; ++slot) {
        int frames = kMainPage;
        const int functions = static_cast<int>(val(types.FuncList(slot, 0, 0)));
        for (int f = 1; f <= functions && f <= kMaxFunctions; ++f) frames += static_cast<int>(val(types.ItemList(slot, f, 0)));
        most = std::max(most, frames);
    }
    return most;
}

}  // namespace station
