// Bringing the main panel into line with the camera's mode and level replies. The panel
// always follows the selected camera, whichever camera the reply came from.
#include "common/ctrl_ready.hpp"
#include "common/hex.hpp"
#include "common/vb_conv.hpp"
#include "panel/main_panel.hpp"

namespace station {

namespace {

int hexValue(const std::string& text) { return static_cast<int>(readHexPrefix(text) & 0xFF); }

}  // namespace

std::string MainPanel::RecM_Regen1(const std::string& data, const std::string& mask) {
    const int open = ~hexValue(mask) & 0xFF;  // the bits the command writes
    if (open == 0) return "0";
    int shift = 0;
    while (((open >> shift) & 1) == 0) ++shift;
    return decText((hexValue(data) & open) >> shift);
}

void MainPanel::RecModeMain(const std::string& cls, const std::string& addr, const std::string& data) {
    ReplyGuard guard(shared_.CtrlReady);
    if (cls == "22") {
        if (addr == "00") {
            field(mFILTER) = RecM_Regen1(data, "F8");
            FilterDsp();
        } else if (addr == "01") {
            decodeGain(data);
        } else if (addr == "02") {
            field(mDTL) = RecM_Regen1(data, "EF");
            selectButton(form_.OptDtl, mDTL);
        } else if (addr == "03") {
            form_.TallyOn = toInteger(val(RecM_Regen1(data, "FE")));
            TallyDsp();
        } else if (addr == "04") {
            field(mWHITE) = RecM_Regen1(data, "F3");
            field(mIRIS) = RecM_Regen1(data, "FC");
            selectButton(form_.OptWhite, mWHITE);
            selectButton(form_.OptIris, mIRIS);
        } else if (addr == "05") {
            field(mSHT) = RecM_Regen1(data, "FE");
            selectButton(form_.OptSht, mSHT);
        } else if (addr == "08") {
            field(mBar) = RecM_Regen1(data, "FE");
            selectButton(form_.OptBar, mBar);
        } else if (addr == "0F") {
            field(mMONSEL) = RecM_Regen1(data, "E0");
            if (numeric(mMONSEL) < 1) field(mMONSEL) = "16";
            selectButton(form_.OptMonsel, mMONSEL);
        }
    } else if (cls == "2A") {
        decodeGainExtended(addr, data);
    }
    PGainDsp();
}

// Gain replies of class 22, register 01. The step-value family packs LOW in bit 6, and MID
// or HIGH in the low nibble with the offsets the gain buttons add when sending.
void MainPanel::decodeGain(const std::string& data) {
    const int gainType = types_.FormGain(FclNo());
    if (gainType == 1) {
        field(mGAIN) = RecM_Regen1(data, "9F");
    } else if (gainType == 0) {
        const double step = val(RecM_Regen1(data, "F0"));
        if (step == 0) {
            field(mGAIN) = "0";
            field(mLOW) = RecM_Regen1(data, "BF");
        } else if (step >= 1 && step <= 3) {
            field(mGAIN) = "1";
            field(mMID) = decText(val(RecM_Regen1(data, "FC")) - 1);
        } else if (step == 4 || step == 6 || step == 8) {
            field(mGAIN) = "2";
            field(mHIGH) = decText(val(RecM_Regen1(data, "F1")) - 2);
        }
    }
}

// Gain replies of class 2A: the step values and the step of the register-12 families.
void MainPanel::decodeGainExtended(const std::string& addr, const std::string& data) {
    const int gainType = types_.FormGain(FclNo());
    if (addr == "06") {
        if (gainType == 1 || gainType == 2) field(mMID) = RecM_Regen1(data, "E0");
    } else if (addr == "07") {
        if (gainType == 1 || gainType == 2) field(mHIGH) = RecM_Regen1(data, "E0");
    } else if (addr == "12") {
        if (gainType == 2 || gainType == 3) field(mGAIN) = RecM_Regen1(data, "F3");
    } else if (addr == "13") {
        if (gainType == 3) {
            field(mLOW) = RecM_Regen1(data, "BF");
            field(mMID) = RecM_Regen1(data, "FC");
            field(mHIGH) = RecM_Regen1(data, "F3");
        }
    }
}

void MainPanel::RecAnalogMain(const std::string& cls, const std::string& addr, const std::string& data) {
    // Levels travel as the low byte of a possibly negative number.
    int level = hexValue(data);
    if (level > 127) level -= 256;
    ReplyGuard guard(shared_.CtrlReady);
    if (cls != "32") return;

    struct Target {
        const char* address;
        int f;
        ScrollBar& bar;
        Label& label;
    };
    const Target targets[] = {
        {"18", aRGAIN, form_.VrRGain, form_.Label6}, {"1A", aBGAIN, form_.VrBGain, form_.Label5},
        {"21", aRBLK, form_.VrRBlk, form_.Label8},   {"23", aBBLK, form_.VrBBlk, form_.Label7},
        {"2B", aMBLK, form_.VrMblk, form_.Label3},   {"2C", aDTL, form_.VrDtl, form_.Label4},
    };
    for (const Target& t : targets) {
        if (addr == t.address) {
            field(t.f) = decText(level);
            showLevel(t.bar, t.label, t.f);
            return;
        }
    }
    // The iris level is taken from the address that matches the iris mode only.
    const double irisMode = numeric(mIRIS);
    if ((addr == "2E" && irisMode == 1) || (addr == "39" && irisMode == 2)) {
        field(aIRIS) = decText(level);
        showLevel(form_.VrIris, form_.Label2, aIRIS);
    }
}

}  // namespace station
