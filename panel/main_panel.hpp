#pragma once
// The main control panel's logic: it draws the selected camera's working scene into the
// Form1 controls, turns the operator's gestures into mode and level commands, and brings
// the panel into line with the camera's replies without sending anything back.
//
// Everything acts on the selected camera (CamNo) and its working scene (slot 0 of
// MainScnData). Handlers store and send only while CtrlReady is 1; a redraw or a reply
// clears it first, so setting a control from code never sends.

#include <string>

#include "camtype/setting_stores.hpp"
#include "camtype/type_tables.hpp"
#include "common/shared.hpp"
#include "link/link.hpp"
#include "panel/form1.hpp"

namespace station {

// Field numbers of MainScnData, in the order of the main-data keys.
enum MainField : int {
    mBar = 1, mDTL, mSHT, mGAIN, mWHITE, mIRIS, mMONSEL,
    aMBLK, aIRIS, aDTL, aRGAIN, aBGAIN, aRBLK, aBBLK,
    mLOW, mMID, mHIGH, mFILTER
};

class MainPanel {
public:
    MainPanel(Shared& shared, TypeTables& types, SettingStores& stores, Link& link, Form1& form);

    // Display.
    void MainDsp();
    void MainFormSet();
    void PGainDsp();
    void FilterDsp();
    void TallyDsp();

    // Command builders.
    void SendMode(const std::string& control, const std::string& mode, const std::string& code, int shift,
                  const std::string& mask);
    void SendAnalog(const std::string& control, const std::string& mode, const std::string& value);
    void MainSend();

    // Option-button and scroll-bar handlers (wired to the Form1 controls' events).
    void OptBar_Click(int index);
    void OptDtl_Click(int index);
    void OptSht_Click(int index);
    void OptGain_Click(int index);
    void OptWhite_Click(int index);
    void OptIris_Click(int index);
    void OptMonsel_Click(int index);
    void VrMblk_Change();
    void VrIris_Change();
    void VrDtl_Change();
    void VrRGain_Change();
    void VrBGain_Change();
    void VrRBlk_Change();
    void VrBBlk_Change();

    // Filter stepping, the pulse release and the call button.
    void SpinButton2_SpinUp() { stepFilter(+1); }
    void SpinButton2_SpinDown() { stepFilter(-1); }
    void Timer4_Timer();
    void Command9_MouseDown();
    void Command9_MouseUp();

    // The gain-step spin buttons beside the LOW (0), MID (1) and HIGH (2) labels. They act
    // on the operator's press only, whatever CtrlReady says.
    void SpinButton1_SpinUp(int index) { stepGain(index, +1); }
    void SpinButton1_SpinDown(int index) { stepGain(index, -1); }
    // The values a step can take under the selected camera's gain type; none when fixed.
    struct GainStepRange {
        int lo = 0;
        int hi = -1;
        bool offered() const { return hi >= lo; }
    };
    GainStepRange gainStepRange(int index) const;
    // Whether a press of that spin arrow would change the step (false at its limit).
    bool canStepGain(int index, int direction) const;

    // The acknowledge and camera-ID settings applied to timers, controls and menu ticks.
    void SetAckCont(Integer mode);
    void SetIDCont();

    // Reply decoders.
    void RecModeMain(const std::string& cls, const std::string& addr, const std::string& data);
    void RecAnalogMain(const std::string& cls, const std::string& addr, const std::string& data);
    static std::string RecM_Regen1(const std::string& data, const std::string& mask);

    // The working-scene field of the selected camera.
    std::string& field(int f);
    // Load slot of the selected camera's type.
    int FclNo() const;

private:
    void wireEvents();
    void storeMode(int f, int index, const std::string& address, int shift, const std::string& mask);
    void levelChanged(ScrollBar& bar, Label& label, int f, const std::string& address);
    void showLevel(ScrollBar& bar, Label& label, int f);
    void selectButton(OptionGroup& group, int f);
    void decodeGain(const std::string& data);
    void decodeGainExtended(const std::string& addr, const std::string& data);
    void stepFilter(int direction);
    void stepGain(int index, int direction);
    double numeric(int f);

    Shared& shared_;
    TypeTables& types_;
    SettingStores& stores_;
    Link& link_;
    Form1& form_;
};

}  // namespace station
