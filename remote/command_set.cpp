#include "remote/command_set.hpp"

namespace station::remote {

CommandSet::CommandSet(Station& station, PresetDialogs& dialogs, RemoteAccess access)
    : actions_(station), dialogs_(dialogs), access_(std::move(access)), watch_(actions_.readout()) {
    add({"help", "help", false, [this](Words& w) {
             w.end();
             std::string all;
             for (const std::string& u : usage()) all += (all.empty() ? "" : "; ") + u;
             return all;
         }});
    addPanelCommands(*this);
    addFileCommands(*this);
    addLineState(*this);
    addFunctionCommands(*this);  // last: the shown page's item count varies
}

void CommandSet::add(Command command) {
    std::string verb = command.verb;
    commands_.insert_or_assign(std::move(verb), std::move(command));
}

std::optional<std::string> CommandSet::getAdded(Words& words) {
    const auto found = getters_.find(lower(words.peek()));
    if (found == getters_.end()) return std::nullopt;
    return found->second(words);
}

std::vector<std::string> CommandSet::usage() const {
    std::vector<std::string> out;
    for (const auto& [verb, command] : commands_) out.push_back(command.usage);
    return out;
}

std::string CommandSet::execute(std::string_view line) {
    while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) line.remove_suffix(1);
    if (line.find_first_not_of(" \t") == std::string_view::npos) return {};
    if (running_ || (busy && busy())) return "ERR busy: the station is showing a message, try again";
    if (const auto problem = lineProblem(line)) return "ERR " + *problem;
    running_ = true;
    std::string reply;
    try {
        Words words(splitWords(line));
        const std::string value = run(words);
        reply = value.empty() ? "OK" : "OK " + value;
    } catch (const CommandError& e) {
        reply = std::string("ERR ") + e.what();
    }
    running_ = false;
    return reply;
}

std::string CommandSet::run(Words& words) {
    const std::string verb = lower(words.peek());
    const auto found = commands_.find(verb);
    if (found == commands_.end()) throw CommandError("unknown command \"" + words.peek() + "\" (help lists them)");
    const Command& command = found->second;
    if (command.acts) {
        if (readout().ended()) throw CommandError("the station has ended");
        const int waiting = readout().queued();
        if (waiting > access_.queueLimit)
            throw CommandError("queue full: " + std::to_string(waiting) + " frames waiting, try again");
    }
    words.take("command");
    return command.run(words);
}

std::string CommandSet::perform(const ActionResult& result) {
    if (result.acted() && afterGesture) afterGesture();
    if (!result.ok()) throw CommandError(result.why());
    return {};
}

}  // namespace station::remote
