#include "remote/command_set.hpp"

#include "common/runtime_error.hpp"

#include <algorithm>

namespace station::remote {

CommandSet::CommandSet(Station& station, PresetDialogs& dialogs, RemoteAccess access)
    : actions_(station), dialogs_(dialogs), access_(std::move(access)), watch_(actions_.readout()) {
    actions_.watchLine(sent_);  // the command set lives no longer than the station's polls
    add({"help", "help", false, [this](Words& w) {
             w.end();
             // One command a line after the "OK", and a blank line at the end.
             std::string all;
             for (const std::string& u : usage()) all += "\n" + u;
             return all + "\n";
         }});
    // A peer beyond this computer gives the passcode before anything else (remote_session.hpp);
    // here, on this computer, it is already in.
    add({"auth", "auth PASSCODE (from beyond this computer, before any other command)", false,
         [](Words&) { return std::string(); }});
    add({"box", "box ok (closes the box on the operator's screen as its OK button does)", false, [this](Words& w) {
             const std::string word = lower(w.take("ok"));
             if (word != "ok") throw CommandError("box takes ok, not \"" + word + "\"");
             w.end();
             if (!box || !box() || !closeBox || !closeBox()) throw CommandError("no box is up");
             return std::string();
         }});
    // Every surface hears when a box opens ("box <text>") and when it closes ("box closed").
    watch([this](const StationReadout&, StateList& out) {
        const auto text = box ? box() : std::nullopt;
        out.push_back({"box", text ? *text : "closed"});
    });
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

namespace {

// Marks a command as running for as long as it runs, however it ends.
class Running {
public:
    explicit Running(bool& flag) : flag_(flag) { flag_ = true; }
    ~Running() { flag_ = false; }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

private:
    bool& flag_;
};

// What the station would have told in boxes, as one reply line.
std::string toldText(const std::vector<std::string>& told) {
    std::string text;
    for (const std::string& t : told) text += (text.empty() ? "" : "; ") + t;
    for (char& ch : text)
        if (ch == '\r' || ch == '\n') ch = ' ';
    return text;
}

}  // namespace

std::string CommandSet::execute(std::string_view line) {
    while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) line.remove_suffix(1);
    if (line.find_first_not_of(" \t") == std::string_view::npos) return {};
    // Only a command that waits inside itself lets another in; the second is not carried out.
    if (running_) return "ERR busy: another command is still running, try again";
    if (const auto problem = lineProblem(line)) return "ERR " + *problem;
    const Running running(running_);
    // What the station would tell in a box while this command runs is its reply instead.
    std::optional<HeldMessages::Hold> hold;
    if (held != nullptr) hold.emplace(*held);
    std::string reply;
    try {
        Words words(splitWords(line));
        const std::string value = run(words);
        reply = value.empty() ? "OK" : value.front() == '\n' ? "OK" + value : "OK " + value;
    } catch (const CommandError& e) {
        reply = std::string("ERR ") + e.what();
    } catch (const RuntimeError& e) {
        reply = "ERR " + runtimeErrorText(e);
    } catch (const std::exception& e) {
        reply = std::string("ERR internal error: ") + e.what();
    } catch (...) {
        reply = "ERR internal error";
    }
    // The station's own words say best what went wrong.
    if (hold) {
        const std::vector<std::string> told = hold->take();
        if (!told.empty()) reply = "ERR " + toldText(told);
    }
    if (changed) changed();
    return reply;
}

std::string CommandSet::run(Words& words) {
    const std::string verb = lower(words.peek());
    const auto found = commands_.find(verb);
    if (found == commands_.end()) throw CommandError("unknown command \"" + words.peek() + "\" (help lists them)");
    const Command& command = found->second;
    if (command.acts) {
        if (const auto text = box ? box() : std::nullopt) throw CommandError("box: " + *text);
        if (readout().ended()) throw CommandError("the station has ended");
        // The window keeps room for its largest gesture, so that a page sent at the window
        // never meets a queue remote traffic has filled.
        const int waiting = readout().queued();
        if (waiting > std::min(access_.queueLimit, SendQueue::kCapacity - readout().largestPageSend()))
            throw CommandError("queue full: " + std::to_string(waiting) + " frames waiting, try again");
    }
    // Values a fader gave before this command take effect before it.
    if (command.acts && !command.paced) faders_.flush();
    words.take("command");
    return command.run(words);
}

std::string CommandSet::perform(const ActionResult& result) {
    if (result.acted() && afterGesture) afterGesture();
    if (!result.ok()) throw CommandError(result.why());
    return {};
}

}  // namespace station::remote
