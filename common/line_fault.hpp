#pragma once
// Raised by a serial port whose device failed while in use: hung up, unplugged, a read or
// write refused. The station then holds its line, closes the port and tries the device
// again; the text names the device and the reason.

#include <stdexcept>

namespace station {

class LineFault : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace station
