#pragma once
// The settings that every part of the station reads: which camera is selected, how the
// link is run, the guard that keeps redraws from sending, the scene of each camera, and
// the camera table. One instance lives in the Station; nothing here is global.

#include <string>

#include "common/table.hpp"
#include "common/vb_conv.hpp"

namespace station {

// Cameras 0..8; 0 is the "GROUP" position, 1..8 the cameras on the line.
inline constexpr int kMaxCamera = 8;

struct CameraTable {
    Array<std::string> CamType{0, kMaxCamera};    // type code, "" = no camera
    Array<std::string> CamID{0, kMaxCamera};      // camera ID text
    Array<std::string> CamTypeNo{0, kMaxCamera};  // index in the type list, as text
    Array<std::string> CamFclNo{0, kMaxCamera};   // load slot of its type, as text
};

struct Shared {
    Integer CamNo = 0;      // set to 1 by start-up
    Integer AckMode = 0;    // 0 "Ack On", 1 "Ack Off"
    Integer IDMode = 0;     // 1 "Camera ID on"
    Integer CtrlReady = 0;  // control handlers store and send only while it is 1
    Array<Integer> ScnNo{0, kMaxCamera};
    CameraTable cams;
};

}  // namespace station
