#pragma once
// The main panel's controls by the names the actions, remote commands and state lines use
// for them: the mode groups, the level bars with their number labels, and the gain-step
// labels. Only app/ maps a name to the control of the window model.

#include <array>
#include <cstddef>

#include "panel/form1.hpp"

namespace station {

enum class Mode { Bar, Detail, Shutter, Gain, White, Iris, Monitor };
enum class Level { Mblk, Iris, Detail, RGain, BGain, RBlk, BBlk };

struct ModeControl {
    const char* name;
    Mode mode;
    OptionGroup Form1::*group;
};

struct LevelControl {
    const char* name;
    Level level;
    ScrollBar Form1::*bar;
    Label Form1::*number;
};

inline constexpr std::array<ModeControl, 7> kModes{{
    {"bar", Mode::Bar, &Form1::OptBar},
    {"detail", Mode::Detail, &Form1::OptDtl},
    {"shutter", Mode::Shutter, &Form1::OptSht},
    {"gain", Mode::Gain, &Form1::OptGain},
    {"white", Mode::White, &Form1::OptWhite},
    {"iris", Mode::Iris, &Form1::OptIris},
    {"monitor", Mode::Monitor, &Form1::OptMonsel},
}};

inline constexpr std::array<LevelControl, 7> kLevels{{
    {"mblk", Level::Mblk, &Form1::VrMblk, &Form1::Label3},
    {"iris", Level::Iris, &Form1::VrIris, &Form1::Label2},
    {"detail", Level::Detail, &Form1::VrDtl, &Form1::Label4},
    {"rgain", Level::RGain, &Form1::VrRGain, &Form1::Label6},
    {"bgain", Level::BGain, &Form1::VrBGain, &Form1::Label5},
    {"rblk", Level::RBlk, &Form1::VrRBlk, &Form1::Label8},
    {"bblk", Level::BBlk, &Form1::VrBBlk, &Form1::Label7},
}};

inline constexpr const ModeControl& modeControl(Mode m) { return kModes.at(static_cast<std::size_t>(m)); }
inline constexpr const LevelControl& levelControl(Level l) { return kLevels.at(static_cast<std::size_t>(l)); }

// The gain-step value labels, LOW, MID and HIGH (Label1 elements 0..2).
inline constexpr std::array<const char*, 3> kGainSteps{"low", "mid", "high"};

}  // namespace station
