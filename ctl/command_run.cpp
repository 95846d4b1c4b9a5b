#include "ctl/command_run.hpp"

#include <ostream>

namespace station::ctl {

CommandRun runCommands(const std::vector<std::string>& commands, bool keepGoing,
                       const std::function<bool(const std::string&)>& run, std::ostream& err) {
    CommandRun out;
    for (const std::string& command : commands) {
        ++out.carriedOut;
        if (run(command)) continue;
        out.failed = true;
        if (keepGoing) continue;
        const std::size_t left = commands.size() - out.carriedOut;
        if (left > 0)
            err << "corvane-ctl: stopped after \"" << command << "\" failed: " << left
                << (left == 1 ? " command was" : " commands were") << " not carried out (--keep-going goes on)\n";
        break;
    }
    return out;
}

}  // namespace station::ctl
