// The mode and level commands of the main panel.
#include "common/hex.hpp"
#include "common/runtime_error.hpp"
#include "common/vb_conv.hpp"
#include "panel/main_panel.hpp"

namespace station {

namespace {

// Two hex digits of a number as the runtime's Hex$ prints it (rounded half to even, two's
// complement for negatives): only the last two digits are kept, so 300 goes out as "2C"
// and -1 as "FF".
std::string lastTwoHexDigits(double value) {
    const double r = roundHalfEven(value);
    if (!(r >= -2147483648.0 && r <= 2147483647.0)) throw RuntimeError::overflow();
    const std::string digits = "00" + hexNoPad(static_cast<long long>(r));
    return digits.substr(digits.size() - 2);
}

}  // namespace

void MainPanel::SendMode(const std::string& control, const std::string& mode, const std::string& code, int shift,
                         const std::string& mask) {
    const double data = val(code) * static_cast<double>(1L << shift);
    link_.SendCmd(control + mode + lastTwoHexDigits(data) + mask);
}

void MainPanel::SendAnalog(const std::string& control, const std::string& mode, const std::string& value) {
    link_.SendCmd(control + mode + lastTwoHexDigits(val(value)) + "00");
}

void MainPanel::MainSend() {
    const int slot = FclNo();
    SendMode("20", "08", field(mBar), 0, "FE");
    SendMode("20", "02", field(mDTL), 4, "EF");
    SendMode("20", "05", field(mSHT), 0, "FE");
    // The whole-page white command shifts by 4 under the mask of bits 2..3, unlike the
    // white buttons; the cameras in the field have always been sent it this way.
    SendMode("20", "04", field(mWHITE), 4, "F3");
    SendMode("20", "04", field(mIRIS), 0, "FC");
    // The page write sets the whole monitor register (mask 00), the button only bits 0..4.
    if (types_.FormMonitor(slot) > 0) SendMode("20", "0F", field(mMONSEL), 0, "00");
    SendAnalog("30", "2B", field(aMBLK));
    SendAnalog("30", "2E", field(aIRIS));
    SendAnalog("30", "39", field(aIRIS));
    SendAnalog("30", "2C", field(aDTL));
    SendAnalog("30", "18", field(aRGAIN));
    SendAnalog("30", "1A", field(aBGAIN));
    SendAnalog("30", "21", field(aRBLK));
    SendAnalog("30", "23", field(aBBLK));
    if (types_.FormFilter(slot) > 0) SendMode("20", "00", field(mFILTER), 0, "F8");
}

void MainPanel::storeMode(int f, int index, const std::string& address, int shift, const std::string& mask) {
    if (shared_.CtrlReady != 1) return;
    field(f) = decText(index);
    SendMode("20", address, field(f), shift, mask);
}

void MainPanel::OptBar_Click(int index) { storeMode(mBar, index, "08", 0, "FE"); }
void MainPanel::OptDtl_Click(int index) { storeMode(mDTL, index, "02", 4, "EF"); }
void MainPanel::OptSht_Click(int index) { storeMode(mSHT, index, "05", 0, "FE"); }
void MainPanel::OptWhite_Click(int index) { storeMode(mWHITE, index, "04", 2, "F3"); }
void MainPanel::OptIris_Click(int index) { storeMode(mIRIS, index, "04", 0, "FC"); }
void MainPanel::OptMonsel_Click(int index) { storeMode(mMONSEL, index, "0F", 0, "E0"); }

void MainPanel::OptGain_Click(int index) {
    if (shared_.CtrlReady != 1) return;
    field(mGAIN) = decText(index);
    switch (types_.FormGain(FclNo())) {
    case 0:
        // This family takes the chosen step's value, not its number: LOW in bits 6 and up,
        // MID + 1 in bits 0 and up, HIGH + 2 shifted by one bit.
        if (index == 0) SendMode("20", "01", field(mLOW), 6, "80");
        else if (index == 1) SendMode("20", "01", decText(numeric(mMID) + 1), 0, "80");
        else if (index == 2) SendMode("20", "01", decText(numeric(mHIGH) + 2), 1, "80");
        break;
    case 1:
        SendMode("20", "01", field(mGAIN), 5, "9F");
        break;
    case 2:
    case 3:
        SendMode("28", "12", field(mGAIN), 2, "F3");
        break;
    default:
        break;
    }
}

void MainPanel::levelChanged(ScrollBar& bar, Label& label, int f, const std::string& address) {
    label.Caption = decText(bar.value());
    if (shared_.CtrlReady != 1) return;
    field(f) = decText(bar.value());
    SendAnalog("30", address, field(f));
}

void MainPanel::VrMblk_Change() { levelChanged(form_.VrMblk, form_.Label3, aMBLK, "2B"); }
void MainPanel::VrDtl_Change() { levelChanged(form_.VrDtl, form_.Label4, aDTL, "2C"); }
void MainPanel::VrRGain_Change() { levelChanged(form_.VrRGain, form_.Label6, aRGAIN, "18"); }
void MainPanel::VrBGain_Change() { levelChanged(form_.VrBGain, form_.Label5, aBGAIN, "1A"); }
void MainPanel::VrRBlk_Change() { levelChanged(form_.VrRBlk, form_.Label8, aRBLK, "21"); }
void MainPanel::VrBBlk_Change() { levelChanged(form_.VrBBlk, form_.Label7, aBBLK, "23"); }

void MainPanel::VrIris_Change() {
    form_.Label2.Caption = decText(form_.VrIris.value());
    if (shared_.CtrlReady != 1) return;
    field(aIRIS) = decText(form_.VrIris.value());
    // The iris level has two addresses, chosen by the iris mode; other modes keep the level
    // in the station only.
    const double irisMode = numeric(mIRIS);
    if (irisMode == 1) SendAnalog("30", "2E", field(aIRIS));
    else if (irisMode == 2) SendAnalog("30", "39", field(aIRIS));
}

}  // namespace station
