#pragma once
// A description of a camera line, as the standalone program takes it from its options
// and from a setup data file, and the building of a Line from it.
//
// Options:   camera  "N:TYPE:ID"        camera at position N (1..8), type code, ID
//            fault   "N:KIND[=VALUE]"   see faultHelp()
// Setup data file: "Camera Select=1" under "[system]" puts the cameras in ID mode, and
// "Camera N=TYPE|ID" under "[camera type/ID]" places camera N; other lines are ignored.
// Malformed options raise std::invalid_argument with a message for the user.

#include <array>
#include <istream>
#include <optional>
#include <string>
#include <string_view>

#include "sim/line.hpp"
#include "sim/type_registers.hpp"

namespace station::sim {

struct CameraSetup {
    bool present = false;
    std::string type;
    std::string id;
    Faults faults;
    bool faulted = false;  // a fault was asked for at this position
    std::optional<std::uint8_t> autoResult;
};

struct LineSetup {
    int speed = 9600;
    bool idMode = false;
    std::optional<Micros> autoDelay;  // for every camera
    std::array<CameraSetup, kMaxCameras> cameras;  // position N at index N - 1
    // Where each type's registers start (from its definition file); a type not listed
    // starts every register at 0.
    std::map<std::string, std::vector<StartValue>> startValues;

    // Raises std::invalid_argument outside 1..8.
    CameraSetup& at(int position);
    int count() const;

    // Puts the described cameras on the line and sets its speed and ID mode.
    void build(Line& line) const;
};

// Reads the parts of a setup data file that describe the line (CR LF or LF lines).
void readSetupData(std::istream& in, LineSetup& setup);

void addCameraOption(std::string_view text, LineSetup& setup);
void addFaultOption(std::string_view text, LineSetup& setup);

// One line per fault kind, for the program's help.
std::string faultHelp();

}  // namespace station::sim
