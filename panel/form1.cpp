#include "panel/form1.hpp"

namespace station {

namespace {

void caption(OptionGroup& group, std::initializer_list<const char*> captions) {
    int i = group.lo();
    for (const char* c : captions) group[i++].Caption = c;
}

void levelRange(ScrollBar& bar) {
    bar.Min = 127;
    bar.Max = -128;
    bar.SmallChange = 1;
    bar.LargeChange = 8;
}

}  // namespace

Form1::Form1() {
    caption(OptBar, {"CAM", "BARS"});
    caption(OptDtl, {"OFF", "ON"});
    caption(OptSht, {"OFF", "ON"});
    caption(OptGain, {"LOW", "MID", "HIGH", "SUPER"});
    caption(OptWhite, {"PRESET", "A", "B", "ATW"});
    caption(OptIris, {"MANUAL", "AUTO", "REMOTE", "EXT"});
    for (int i = OptMonsel.lo(); i <= OptMonsel.hi(); ++i) OptMonsel[i].Caption = decText(i);
    OptMonsel[0].Caption = "OFF";
    OptMonsel[16].Caption = "PGM";
    for (ScrollBar* bar : {&VrMblk, &VrIris, &VrDtl, &VrRGain, &VrBGain, &VrRBlk, &VrBBlk}) levelRange(*bar);

    Option9[0].Caption = "GROUP";
    for (int i = 1; i <= 8; ++i) Option9[i].Caption = decText(i);
    for (int i = 1; i <= 4; ++i) Option7[i].Caption = decText(i);
    CamCopy.Caption = "COPY";
    ScnStore.Caption = "STORE";

    ACK(0).Caption = "Ack On";
    ACK(1).Caption = "Ack Off";
    Speed(0).Caption = "9600bps";
    Speed(1).Caption = "19200bps";
}

}  // namespace station
