#pragma once
// The main window ("Camera Control") as a toolkit-free model: every control the logic reads
// or writes, with the original control names. The desktop program renders it; tests drive it.
//
// Window design decided here:
//   - every option group has a button for each value its bit field can carry, so a value a
//     camera reports always has a button (bars, detail, shutter: 1 bit; white, iris: 2 bits;
//     gain step: 2 bits; monitor select: 5 bits, 0..31);
//   - the seven level bars run from -128 to 127, every level a reply can carry, with the
//     highest value at the top (Min 127, Max -128).

#include <array>
#include <string>

#include "common/controls.hpp"
#include "common/version.hpp"
#include "common/vb_conv.hpp"

namespace station {

struct Form1 {
    Form1();

    FormWindow form{"Camera Control"};

    // Mode groups.
    Frame Frame12{"MONITOR"};  // monitor select
    Frame Frame17{"FILTER"};   // filter
    Frame Frame19{"TALLY"};    // tally and call
    Frame Frame15{"AUTO"};     // auto white / black
    OptionGroup OptBar{0, 1};
    OptionGroup OptDtl{0, 1};
    OptionGroup OptSht{0, 1};
    OptionGroup OptGain{0, 3};
    OptionGroup OptWhite{0, 3};
    OptionGroup OptIris{0, 3};
    OptionGroup OptMonsel{0, 31};

    // Levels and their number labels.
    ScrollBar VrMblk, VrIris, VrDtl, VrRGain, VrBGain, VrRBlk, VrBBlk;
    Label Label3, Label2, Label4, Label6, Label5, Label8, Label7;

    Array<Label> Label1{0, 2};  // gain-step values LOW, MID, HIGH
    Label Label16;              // filter position
    Label faultLine;            // the last fault the line's poll ran into, if any
    Label Label15{"TALLY"};     // tally lamp
    Integer TallyOn = 0;        // tally last reported by the camera
    Integer CallOn = 0;         // 1 while the call button is held

    CommandButton Command7{"BLACK"};
    CommandButton Command8{"WHITE"};
    CommandButton Command9{"CALL"};
    Array<SpinButton> SpinButton1{0, 2};  // trims the gain-step values LOW, MID, HIGH
    SpinButton SpinButton2;               // steps the filter
    Timer Timer4;               // release of a filter-step pulse
    Integer RelCount = 0;

    // Camera selection and scenes.
    Frame cameraSelect{"CAMERA SELECT"};
    OptionGroup Option9{0, 8};
    CheckBox CamCopy;
    OptionGroup Option7{1, 4};
    CheckBox ScnStore;
    CommandButton Command1{"PRESET"};
    CommandButton Command2{"CLEAR"};
    CommandButton Command5{"FUNC"};
    CommandButton Command6{"LENS"};
    Integer SelectLock = 1;
    Array<Label> Label12{1, 8};  // type of each camera
    Array<Label> Label9{1, 8};   // ID of each camera

    // Page transfer and files.
    CommandButton Command3{"1Page to CAM"};
    CommandButton Command10{"Open"};
    CommandButton Command11{"Save"};
    CommandButton Command12{"Camera to PC"};
    CommandButton Command13{"PC to Camera"};

    // Menus.
    MenuItem IDcont{"Camera ID on"};
    Array<MenuItem> ACK{0, 1};
    Array<MenuItem> Speed{0, 1};
    MenuItem helpVersion{"Ver " + std::string(kStationVersion)};
};

}  // namespace station
