// Drawing the selected camera's working scene into the main window.
#include "common/vb_conv.hpp"
#include "panel/main_panel.hpp"

namespace station {

namespace {

// The gain label text of the computed gain types: the number's shortest decimal text with
// every blank removed, then "dB".
std::string decibels(double value) { return decText(value) + "dB"; }

}  // namespace

MainPanel::MainPanel(Shared& shared, TypeTables& types, SettingStores& stores, Link& link, Form1& form)
    : shared_(shared), types_(types), stores_(stores), link_(link), form_(form) {
    wireEvents();
}

void MainPanel::wireEvents() {
    form_.OptBar.onClick = [this](int i) { OptBar_Click(i); };
    form_.OptDtl.onClick = [this](int i) { OptDtl_Click(i); };
    form_.OptSht.onClick = [this](int i) { OptSht_Click(i); };
    form_.OptGain.onClick = [this](int i) { OptGain_Click(i); };
    form_.OptWhite.onClick = [this](int i) { OptWhite_Click(i); };
    form_.OptIris.onClick = [this](int i) { OptIris_Click(i); };
    form_.OptMonsel.onClick = [this](int i) { OptMonsel_Click(i); };
    form_.VrMblk.onChange = [this] { VrMblk_Change(); };
    form_.VrIris.onChange = [this] { VrIris_Change(); };
    form_.VrDtl.onChange = [this] { VrDtl_Change(); };
    form_.VrRGain.onChange = [this] { VrRGain_Change(); };
    form_.VrBGain.onChange = [this] { VrBGain_Change(); };
    form_.VrRBlk.onChange = [this] { VrRBlk_Change(); };
    form_.VrBBlk.onChange = [this] { VrBBlk_Change(); };
}

std::string& MainPanel::field(int f) { return stores_.MainScnData(f, shared_.CamNo, 0); }

double MainPanel::numeric(int f) { return val(field(f)); }

int MainPanel::FclNo() const { return toInteger(val(shared_.cams.CamFclNo(shared_.CamNo))); }

void MainPanel::selectButton(OptionGroup& group, int f) { group.setValue(toInteger(numeric(f)), true); }

void MainPanel::showLevel(ScrollBar& bar, Label& label, int f) {
    bar.setValue(toInteger(numeric(f)));
    label.Caption = decText(bar.value());
}

void MainPanel::MainDsp() {
    MainFormSet();
    selectButton(form_.OptBar, mBar);
    selectButton(form_.OptDtl, mDTL);
    selectButton(form_.OptSht, mSHT);
    selectButton(form_.OptGain, mGAIN);
    selectButton(form_.OptWhite, mWHITE);
    selectButton(form_.OptIris, mIRIS);
    // A monitor select of 0 or empty stands for output 16, and the table is corrected.
    if (numeric(mMONSEL) < 1) field(mMONSEL) = "16";
    selectButton(form_.OptMonsel, mMONSEL);
    showLevel(form_.VrMblk, form_.Label3, aMBLK);
    showLevel(form_.VrIris, form_.Label2, aIRIS);
    showLevel(form_.VrDtl, form_.Label4, aDTL);
    showLevel(form_.VrRGain, form_.Label6, aRGAIN);
    showLevel(form_.VrBGain, form_.Label5, aBGAIN);
    showLevel(form_.VrRBlk, form_.Label8, aRBLK);
    showLevel(form_.VrBBlk, form_.Label7, aBBLK);
    PGainDsp();
    FilterDsp();
}

void MainPanel::MainFormSet() {
    const int slot = FclNo();
    // Tally and call need the acknowledge handshake: they are offered only with "Ack On".
    form_.Frame19.Enabled = types_.FormTally(slot) == 1 && shared_.AckMode == 0;
    form_.Frame17.Enabled = !(types_.FormFilter(slot) < 1);
    form_.Frame12.Enabled = types_.FormMonitor(slot) == 1;
}

void MainPanel::PGainDsp() {
    const int gainType = types_.FormGain(FclNo());
    // Types 0 and 3 compute the decibels from the step values; their MID offsets differ
    // (3 and 6) because the two camera families count their MID steps differently.
    switch (gainType) {
    case 0:
    case 3:
        form_.Label1(0).Caption = decibels(numeric(mLOW) * -3);
        form_.Label1(1).Caption = decibels(numeric(mMID) * 3 + (gainType == 0 ? 3 : 6));
        form_.Label1(2).Caption = decibels(numeric(mHIGH) * 6 + 12);
        break;
    case 1:
    case 2:
        form_.Label1(0).Caption = "0dB";
        form_.Label1(1).Caption = field(mMID) + "dB";
        form_.Label1(2).Caption = field(mHIGH) + "dB";
        break;
    default:
        break;
    }
}

void MainPanel::FilterDsp() {
    const int filterType = types_.FormFilter(FclNo());
    const double c = numeric(mFILTER);
    // The two filter wheels order their positions differently: type 1 has the 1/8 ND at
    // code 1 and clear 5600K at code 2, type 2 has clear 5600K at code 1.
    if (filterType == 0) {
        form_.Label16.Caption = "un-known";
    } else if (filterType == 1) {
        form_.Label16.Caption = c == 0 ? "3200K" : c == 1 ? "5600K+1/8ND" : c == 2 ? "5600K" : c == 3 ? "5600K+1/64ND" : "NG";
    } else if (filterType == 2) {
        form_.Label16.Caption = c == 0 ? "3200K" : c == 1 ? "5600K" : c == 2 ? "5600K+ND" : "NG";
    }
}

void MainPanel::TallyDsp() {
    form_.Label15.BackColor = (form_.TallyOn != 0 || form_.CallOn != 0) ? kColourRed : kColourGrey;
}

}  // namespace station
