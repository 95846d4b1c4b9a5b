#include "app/station.hpp"

#include <cctype>
#include <system_error>

#include "common/line_fault.hpp"
#include "common/runtime_error.hpp"
#include "common/vb_conv.hpp"
#include "common/version.hpp"

namespace station {

Station::Station(const StationPlatform& platform)
    : link(shared, platform.port, platform.messages, *this),
      line(shared, platform.port, platform.clock),
      console(link),
      cameraTypes(shared, types, stores, platform.messages, platform.definitionFolder),
      setupFile(shared, stores, cameraTypes, platform.messages, platform.dialogs, platform.writer),
      panel(shared, types, stores, link, form1),
      autoSetup(shared, link, form6),
      editor(shared, types, stores, link, form2),
      scenes(shared, stores, form1, panel, editor, form2, platform.messages),
      pages(types, link, panel, editor, form2),
      cameraSet(shared, types, cameraTypes, form4, form1.Label12, form1.Label9),
      port_(platform.port),
      messages_(platform.messages) {
    link.watch(&line);
    setupFile.InitSet = [this] { InitSet(); };
    // The title names the current setup data file, the one SAVE writes to.
    setupFile.FileNameChanged = [this] {
        const std::string name = std::filesystem::path(setupFile.FileName).filename().string();
        form1.form.Caption = name.empty() ? "Camera Control" : name + " - Camera Control";
    };
    const auto tell = [this](const std::string& text) { this->tell(text); };
    setupFile.Notify = tell;
    cameraTypes.Notify = tell;
    editor.Notify = tell;
    editor.startAutoSetup = [this](const std::string& operation, const std::string& title) {
        autoSetup.start(operation, title);
    };
    cameraSet.refreshEditor = [this] {
        editor.FuncListDsp();
        editor.DataFuncDsp();
    };
    wireControls();
}

// The procedures that handle each button's events.
void Station::wireControls() {
    form1.Command1.onClick = [this] { scenes.Command1_Click(); };
    form1.Command2.onClick = [this] { scenes.Command2_Click(); };
    form1.Command5.onClick = [this] { scenes.Command5_Click(); };
    form1.Command6.onClick = [this] { scenes.Command6_Click(); };
    form1.Command3.onClick = [this] { pages.Command3_Click(); };
    form1.Command10.onClick = [this] { Command10_Click(); };
    form1.Command11.onClick = [this] { Command11_Click(); };
    form1.Command12.onClick = [this] { pages.Command12_Click(); };
    form1.Command13.onClick = [this] { pages.Command13_Click(); };
    form1.Command7.onClick = [this] { autoSetup.Command7_Click(); };
    form1.Command8.onClick = [this] { autoSetup.Command8_Click(); };
    form1.Command9.onMouseDown = [this] { panel.Command9_MouseDown(); };
    form1.Command9.onMouseUp = [this] { panel.Command9_MouseUp(); };
    for (int step = 0; step <= 2; ++step) {
        form1.SpinButton1(step).onSpinUp = [this, step] { panel.SpinButton1_SpinUp(step); };
        form1.SpinButton1(step).onSpinDown = [this, step] { panel.SpinButton1_SpinDown(step); };
    }
    form1.SpinButton2.onSpinUp = [this] { panel.SpinButton2_SpinUp(); };
    form1.SpinButton2.onSpinDown = [this] { panel.SpinButton2_SpinDown(); };
    form4.Command1.onClick = [this] { cameraSet.Command1_Click(); };
    console.Command1.onClick = [this] { console.Command1_Click(); };
    console.Command2.onClick = [this] { console.Command2_Click(); };
}

StationForms Station::forms() {
    return {form1, form2, form4, form6, console, line.window, line.log, link.Label10, link.Label11, notice};
}

void Station::assembleLine(PortChoice start, std::function<void(const PortChoice&)> switchPort,
                           std::function<void(const PortChoice&)> remember) {
    line.name(std::move(start));
    line.switchPort = std::move(switchPort);
    line.remember = std::move(remember);
}

void Station::copyLineLogTo(std::function<void(const std::string&)> sink) { line.log.sink = std::move(sink); }

void Station::onFileUsed(std::function<void(const std::string&)> used) { setupFile.FileUsed = std::move(used); }

void Station::tell(const std::string& text) {
    notice.raise(text);
    line.note(text, {}, 0);
}

void Station::noteLine(const std::string& text) { line.note(text); }

void Station::showConsole() {
    console.form.Show();
    setupFile.CsdSave_Mon(console.List1);
}

void Station::Form_Load() {
    stores.fillMainKey();
    cameraTypes.FclListSet(form4.List1);

    // Camera 1 is the window's initial selection.
    shared.CamNo = 1;
    form1.Option9.preset(1);
    form1.Option9[1].BackColor = kColourSelected;
    for (int camera = 0; camera <= kMaxCamera; ++camera) shared.ScnNo(camera) = 1;
    form1.Option7.setValue(shared.ScnNo(1), true);

    // The iris mode starts as the number 2 in its text form with the leading blank.
    stores.MainScnData(mIRIS, 1, 0) = str(2);

    port_.setCommPort(1);
    BaudStr = "9600";
    port_.setSettings(BaudStr + ",N,8,1");
    // Without its device the station starts all the same, and keeps trying it.
    if (!line.open()) tellNotConnected();
    form1.Speed(0).Checked = true;

    link.Timer1.Interval = 40;
    link.Timer1.Enabled = true;
    form1.Timer4.Interval = 500;
    form1.Timer4.Enabled = true;  // ready for the release of the first filter pulse
    form6.form.Loaded = true;
    form6.Timer1.Interval = 500;

    shared.AckMode = 0;
    panel.SetAckCont(shared.AckMode);
    shared.IDMode = 0;
    panel.SetIDCont();
    form1.ACK(0).Checked = true;
    panel.MainFormSet();

    form1.form.Show();
    shared.CtrlReady = 1;  // the panel is live from here on
    loaded_ = true;
    setupFile.rememberSaved();  // nothing set yet that a quit could lose
}

void Station::InitSet() {
    form1.ACK(0).Checked = shared.AckMode == 0;
    form1.ACK(1).Checked = shared.AckMode == 1;
    panel.SetAckCont(shared.AckMode);
    panel.SetIDCont();

    for (int camera = 1; camera <= kMaxCamera; ++camera) {
        form1.Label12(camera).Caption = shared.cams.CamType(camera);
        form1.Label9(camera).Caption = shared.cams.CamID(camera);
        form4.Option1[camera].Caption = shared.cams.CamType(camera);
        form4.Text1(camera).setText(shared.cams.CamID(camera));
    }

    // Redrawing every window must not send: the guard stays down until the end, also if
    // selecting the camera button runs the selection itself.
    shared.CtrlReady = 0;
    form1.Option9.setValue(shared.CamNo, true);
    shared.CtrlReady = 0;
    form1.Option7.setValue(shared.ScnNo(shared.CamNo), true);
    shared.CtrlReady = 0;
    scenes.ScnDataChange(0, shared.ScnNo(shared.CamNo));
    panel.MainDsp();
    editor.FuncListDsp();
    editor.DataFuncDsp();
    shared.CtrlReady = 1;
}

void Station::QUIT_Click() {
    // Nothing is saved or asked, and frames still queued are abandoned.
    link.Timer1.Enabled = false;
    link.Timer2.Enabled = false;
    link.Timer3.Enabled = false;
    form1.Timer4.Enabled = false;
    ended_ = true;
}

void Station::tellNotConnected() {
    // A passing word, not a box: a box would stop the timers, and with them the retry, until
    // someone at the screen dismissed it.
    std::string reason = line.reason();
    if (!reason.empty()) reason[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(reason[0])));
    notice.raise(reason + ": the station works without the line and tries it again about once a second");
}

void Station::choosePort(PortChoice choice) {
    if (!line.choose(std::move(choice))) tellNotConnected();
}

std::string Station::lineStatus() const {
    return line.deviceText() + "  |  " + BaudStr + "bps  |  " + (shared.AckMode == 1 ? "Ack Off" : "Ack On") +
           "  |  " + (shared.IDMode == 1 ? "Camera ID on" : "Camera ID off") + "  |  " + line.stateText();
}

std::string Station::versionText() const {
    return "Corvane Camera Setup Control " + std::string(kStationVersion) + "\r" + std::string(7, ' ') + BaudStr +
           "bps " + line.versionPortName() + "\r" + std::string(19, ' ') + "Copyright (C) Corvane. All rights reserved.";
}

void Station::HELP_Click() { messages_.show(versionText(), Icon::Information); }

void Station::Camera_ID_Click() {
    act([this] { cameraSet.show(); });
}

void Station::IDcont_Click() {
    if (shared.IDMode == 0) shared.IDMode = 1;
    else if (shared.IDMode == 1) shared.IDMode = 0;
    panel.SetIDCont();
}

void Station::ACK_Click(int entry) {
    act([this, entry] {
        form1.ACK(entry).Checked = true;
        form1.ACK(1 - entry).Checked = false;
        shared.AckMode = static_cast<Integer>(entry);
        panel.SetAckCont(shared.AckMode);
    });
}

void Station::Speed_Click(int entry) {
    act([this, entry] {
        form1.Speed(entry).Checked = true;
        form1.Speed(1 - entry).Checked = false;
        BaudStr = entry == 0 ? "9600" : "19200";
        // The cameras are not told: they must be set to the same speed by other means.
        try {
            port_.setSettings(BaudStr + ",N,8,1");
        } catch (const std::system_error& e) {
            speedRefused(e.what());
        } catch (const LineFault& e) {
            speedRefused(e.what());
        }
    });
}

void Station::report(const RuntimeError& error) { messages_.show(runtimeErrorText(error), Icon::Stop); }

std::optional<std::string> Station::act(const std::function<void()>& action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        // The action ends here; the panel must not stay deaf because it failed half-way.
        if (loaded_) shared.CtrlReady = 1;
        report(error);
        return runtimeErrorText(error);
    }
    return std::nullopt;
}

void Station::speedRefused(const std::string& reason) {
    line.note("Speed " + BaudStr + " refused: " + reason, {}, 0);
    messages_.show(line.deviceText() + " refused " + BaudStr + " bit/s: " + reason, Icon::Exclamation);
}

void Station::Timer1_Timer() {
    if (!line.connected()) {
        line.retryTick();
        if (line.connected()) poll([this] { link.lineBack(); });
        return;
    }
    poll([this] { link.Timer1_Timer(); });
}

void Station::poll(const std::function<void()>& tick) {
    line.takeCleanFrame();
    try {
        tick();
    } catch (const RuntimeError& error) {
        if (loaded_) shared.CtrlReady = 1;
        form1.faultLine.Caption = "Line: " + runtimeErrorText(error);
        line.noteHex(runtimeErrorText(error), link.Label11.Caption);  // with the bytes last received
        return;
    } catch (const LineFault& fault) {
        line.lost(fault.what());
        return;
    }
    // A frame received and acknowledged cleanly shows the line works again.
    if (line.takeCleanFrame()) form1.faultLine.Caption.clear();
}

void Station::RecModeMain(const std::string& c, const std::string& a, const std::string& d) {
    panel.RecModeMain(c, a, d);
}
void Station::RecModeFunc(const std::string& c, const std::string& a, const std::string& d) {
    editor.RecModeFunc(c, a, d);
}
void Station::RecAnalogMain(const std::string& c, const std::string& a, const std::string& d) {
    panel.RecAnalogMain(c, a, d);
}
void Station::RecAnalogFunc(const std::string& c, const std::string& a, const std::string& d, const std::string& d2) {
    editor.RecAnalogFunc(c, a, d, d2);
}
void Station::RecAuto(const std::string& op, const std::string& result) {
    autoSetup.RecAuto(op, result);
    const std::string text = AutoSetup::resultText(result);
    if (text.rfind("NG", 0) == 0) line.note("Auto setup " + op + " " + text);
}

}  // namespace station
