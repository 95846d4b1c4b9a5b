#include "autosetup/auto_setup.hpp"

#include <array>
#include <utility>

namespace station {

namespace {

constexpr Integer kOkTicks = 3;
constexpr Integer kNgTicks = 6;
constexpr Integer kUnreadTicks = 4;

// The operations a result may concern; any other leaves the window's text alone.
bool knownOperation(const std::string& op) {
    return op == "00" || op == "10" || op == "20" || op == "30" || op == "31" || op == "32";
}

bool isOk(const std::string& result) { return result == "00" || result == "01" || result == "02"; }

}  // namespace

AutoSetup::AutoSetup(Shared& shared, Link& link, Form6& form) : shared_(shared), link_(link), form_(form) {}

std::string AutoSetup::resultText(const std::string& result) {
    // There is no text for "18": it falls to the unknown-code line like any other.
    static const std::array<std::pair<const char*, const char*>, 20> kTexts{{
        {"00", "OK"},
        {"01", "OK : COLOR TEMP.=3200K"},
        {"02", "OK : COLOR TEMP.=5600K"},
        {"10", "NG : EXECUTED TALLY"},
        {"11", "NG : CHANGE BAR/CAM SW TO CAM"},
        {"12", "NG : CHANGE WHITE BALANCE SW TO MEMORY"},
        {"13", "NG : LOW LIGHT"},
        {"14", "NG : OVER LIGHT"},
        {"15", "NG : COLOR TEMP. IS TOO HIGH"},
        {"16", "NG : COLOR TEMP. IS TOO LOW"},
        {"17", "NG : IRIS IS NOT CLOSED"},
        {"19", "NG : CONTROL LIMIT"},
        {"1A", "NG : FILTER POSITION NG"},
        {"1B", "NG : COLOR TEMP. HIGH CHANGE TO 5600K"},
        {"1C", "NG : COLOR TEMP. LOW CHANGE TO 3200K"},
        {"1D", "NG : TEST ON"},
        {"1E", "NG : BAD COLOR PHASE"},
        {"1F", "NG : LOW COLOR SATURATION"},
        {"20", "NG : LEVEL HIGH"},
        {"21", "NG : LEVEL LOW"},
    }};
    for (const auto& [code, text] : kTexts)
        if (result == code) return text;
    return "NG : ????";
}

void AutoSetup::SendAuto(const std::string& command, const std::string& operation) {
    link_.SendCmd(command + operation);
}

void AutoSetup::start(const std::string& operation, const std::string& title) {
    SendAuto("40", operation);
    form_.form.Show();
    form_.Label1.Caption = title;
    form_.Label2.Caption = "Now doing";
    // Under "Ack Off" no reply is read, so the window hides itself after a while.
    if (shared_.AckMode == 1) {
        form_.Timer1.Enabled = true;
        autoCount_ = kUnreadTicks;
    }
}

void AutoSetup::RecAuto(const std::string& operation, const std::string& result) {
    autoCount_ = kNgTicks;
    if (knownOperation(operation)) {
        if (isOk(result)) autoCount_ = kOkTicks;
        form_.form.Loaded = true;  // the text is set even if the window was already hidden
        form_.Label2.Caption = resultText(result);
    }
    form_.Timer1.Enabled = true;
}

void AutoSetup::Timer1_Timer() {
    if (autoCount_ <= 0) return;
    autoCount_ = static_cast<Integer>(autoCount_ - 1);
    if (autoCount_ == 0) {
        form_.form.Hide();
        form_.Timer1.Enabled = false;
    }
}

}  // namespace station
