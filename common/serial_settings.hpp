#pragma once
// The serial settings text of the station, "9600,N,8,1", read once for every port: a rate
// in bit/s written in digits (1200 to 115200, one of the usual rates), parity N, E or O in
// either case, 7 or 8 data bits, 1 or 2 stop bits.

#include <string>

namespace station {

struct SerialSettings {
    int rate = 9600;
    char parity = 'N';  // N, E or O
    int dataBits = 8;
    int stopBits = 1;
};

// Anything else raises the runtime's error 5, as the port does for a setting it refuses.
SerialSettings parseSerialSettings(const std::string& text);

}  // namespace station
