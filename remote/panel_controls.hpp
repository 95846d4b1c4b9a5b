#pragma once
// The main panel's controls by the names remote commands and state lines use for them:
// the mode groups, the level bars with their number labels, and the gain-step labels.

#include <array>

#include "panel/form1.hpp"

namespace station::remote {

struct ModeControl {
    const char* name;
    OptionGroup Form1::*group;
};

struct LevelControl {
    const char* name;
    ScrollBar Form1::*bar;
    Label Form1::*number;
};

inline constexpr std::array<ModeControl, 7> kModes{{
    {"bar", &Form1::OptBar},
    {"detail", &Form1::OptDtl},
    {"shutter", &Form1::OptSht},
    {"gain", &Form1::OptGain},
    {"white", &Form1::OptWhite},
    {"iris", &Form1::OptIris},
    {"monitor", &Form1::OptMonsel},
}};

inline constexpr std::array<LevelControl, 7> kLevels{{
    {"mblk", &Form1::VrMblk, &Form1::Label3},
    {"iris", &Form1::VrIris, &Form1::Label2},
    {"detail", &Form1::VrDtl, &Form1::Label4},
    {"rgain", &Form1::VrRGain, &Form1::Label6},
    {"bgain", &Form1::VrBGain, &Form1::Label5},
    {"rblk", &Form1::VrRBlk, &Form1::Label8},
    {"bblk", &Form1::VrBBlk, &Form1::Label7},
}};

// The gain-step value labels, LOW, MID and HIGH (Label1 elements 0..2).
inline constexpr std::array<const char*, 3> kGainSteps{"low", "mid", "high"};

}  // namespace station::remote
