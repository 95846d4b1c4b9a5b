#pragma once
// How every program of the station words a command-line option it cannot use, so that
// corvane-station, corvane-ctl and camera-sim complain alike:
//   "--port needs a value", "--definitions needs a folder", "unknown option --colour",
//   "--script show.txt: cannot read the file", "--remote-port: not a port number: 70000".

#include <string>

namespace station::options {

// The option was given without its value; `what` names the kind of value.
inline std::string needsValue(const std::string& option, const std::string& what = "a value") {
    return option + " needs " + what;
}

inline std::string takesNoValue(const std::string& option) { return option + " takes no value"; }

inline std::string unknownOption(const std::string& option) { return "unknown option " + option; }

// A word that is no option where the program takes none.
inline std::string unknownArgument(const std::string& word) { return "unknown argument: " + word; }

inline std::string cannotRead(const std::string& option, const std::string& path) {
    return option + " " + path + ": cannot read the file";
}

// The option's value is not one it takes; `why` says what it must be.
inline std::string badValue(const std::string& option, const std::string& why) { return option + ": " + why; }

}  // namespace station::options
