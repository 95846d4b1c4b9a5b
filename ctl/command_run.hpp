#pragma once
// The commands of a run, carried out in order. The first command that fails ends the run:
// nothing after it reaches a camera (a later "level iris 3" would otherwise act on whichever
// camera happened to be selected). With keep-going the rest are carried out all the same.

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace station::ctl {

struct CommandRun {
    std::size_t carriedOut = 0;  // commands started
    bool failed = false;         // at least one of them failed
};

// `run` carries out one command and says whether it succeeded. The commands left out are
// told in one line on `err`.
CommandRun runCommands(const std::vector<std::string>& commands, bool keepGoing,
                       const std::function<bool(const std::string&)>& run, std::ostream& err);

}  // namespace station::ctl
