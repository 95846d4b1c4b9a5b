#pragma once
// The station's remote command set: one text command per line, carried out through the
// station's named actions (the front door its windows' gestures share), so every behaviour
// of the panel holds as for a mouse click; state is read from the station's readout. Each
// command is answered by lines whose last is "OK", "OK <value>" or "ERR <reason>".
// Changes of what a surface shows are reported separately, by changes().
//
//   CommandSet commands(station, {.fileFolder = "/srv/studio"});
//   commands.execute("camera 3");          // "OK"
//   commands.execute("level iris step -1"); // "OK"
//   commands.changes();                    // {"camera", "3"}, {"level iris", "11"}, ...
//
// The command table is open: each group of commands (panel, files, function items, the
// line's state) adds its commands, state sources and values with add(), watch() and addGet().

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/actions.hpp"
#include "app/preset_dialogs.hpp"
#include "remote/command_words.hpp"
#include "remote/held_messages.hpp"
#include "remote/fader_pacer.hpp"
#include "remote/sent_frames.hpp"
#include "remote/station_state.hpp"

namespace station::remote {

struct RemoteAccess {
    // Setup files may be opened and saved only inside this folder; none: no file commands.
    std::optional<std::filesystem::path> fileFolder;
    // A command that could queue frames is refused while more than this many wait, or more
    // than leave room for the window's largest gesture (StationReadout::largestPageSend).
    int queueLimit = 200;
};

class CommandSet {
public:
    // A handler reads its words and acts; it returns the text after "OK" ("" for none), or
    // raises CommandError.
    using Handler = std::function<std::string(Words&)>;
    struct Command {
        std::string verb;   // the first word
        std::string usage;  // e.g. "level NAME VALUE | level NAME step N"
        bool acts = true;   // false for commands that only read (never refused for a full queue)
        Handler run;
        // Values go through the fader pacing; any other acting command first puts values
        // kept by the pacing in place.
        bool paced = false;
    };

    // `dialogs` must be the file dialogs the station was built with, so that the file
    // commands can name the file a dialog would have asked for.
    CommandSet(Station& station, PresetDialogs& dialogs, RemoteAccess access);
    CommandSet(const CommandSet&) = delete;
    CommandSet& operator=(const CommandSet&) = delete;

    // Carries out one line; the reply, "OK..." or "ERR ...", whatever is raised inside the
    // command (a run-time error is answered with its number and text). A blank line gets ""
    // (no reply).
    std::string execute(std::string_view line);

    // What surfaces show that changed since the last call; a camera's echo of an older value
    // of a fader still moving is held back (see fader_pacer.hpp).
    StateList changes() {
        return watch_.changes([this](const StateItem& i) { return worthPushing(i); });
    }
    StateList state() const { return watch_.current(); }

    void add(Command command);
    void watch(StateWatch::Source source) { watch_.addSource(std::move(source)); }
    // "get WORD ...": a value not in the state list (a function item, every camera's answer).
    // `read` is given the words from WORD on; it answers nothing, taking no word, to leave
    // them to the state list.
    using Getter = std::function<std::optional<std::string>(Words&)>;
    void addGet(const std::string& word, Getter read) { getters_.insert_or_assign(lower(word), std::move(read)); }
    // The answer of an added "get WORD ..." when the next word is one; nothing otherwise.
    std::optional<std::string> getAdded(Words& words);
    std::vector<std::string> usage() const;

    // The outcome of an action as a command's: "" when done; CommandError with the reason
    // when it was refused or failed (the operator was told of a failure as for a window's
    // gesture).
    std::string perform(const ActionResult& result);
    // Runs after every action that acted (the desktop program redraws its windows).
    std::function<void()> afterGesture;
    // Runs whenever what surfaces show may have changed: after every line carried out,
    // whatever its reply, and when a fader has settled so that a value held back may show.
    std::function<void()> changed;
    // The text of the box up on the operator's screen, if any. While one is up the commands
    // that only read are answered as usual and every other gets "ERR box: <text>"; "box ok"
    // closes it through `closeBox`, as its OK button does. Unset: there are no boxes.
    std::function<std::optional<std::string>()> box;
    std::function<bool()> closeBox;
    // The station's messages, held back while a command runs so that a failure it causes is
    // the client's ERR reply and never a box on the operator's screen; none: shown as usual.
    HeldMessages* held = nullptr;

    // Carries out `act` with the newest value a surface gave `control` (a level, a function
    // level), at most one of its frames waiting in the queue to be sent (fader_pacer.hpp).
    void paced(const std::string& control, long value, std::function<ActionResult(long)> act);
    FaderPacer& faders() { return faders_; }
    // Runs just before each poll: kept values whose control's frame has gone out follow
    // it now, in time for this poll.
    void beforePoll() {
        if (faders_.release() && changed) changed();
    }

    Actions& actions() { return actions_; }
    const StationReadout& readout() const { return actions_.readout(); }
    PresetDialogs& dialogs() { return dialogs_; }
    const RemoteAccess& access() const { return access_; }

private:
    std::string run(Words& words);
    bool frameWaiting(FaderPacer::Ticket ticket) const;
    // Whether a surface should be shown `item` now (fader_pacer.hpp); a function item of the
    // shown page is known by its function and name, as its fader is.
    bool worthPushing(const StateItem& item) const;

    Actions actions_;
    PresetDialogs& dialogs_;
    RemoteAccess access_;
    StateWatch watch_;
    SentFrames sent_;
    FaderPacer faders_{[this](FaderPacer::Ticket ticket) { return frameWaiting(ticket); }};
    std::map<std::string, Command> commands_;
    std::map<std::string, Getter> getters_;
    bool running_ = false;
};

// The panel's commands: camera, scene, mode, level, gain, filter, call, auto, page, get.
void addPanelCommands(CommandSet& commands);
// open and save of setup files inside the allowed folder.
void addFileCommands(CommandSet& commands);
// The function editor's items: set and get by function title and item name; the shown page.
void addFunctionCommands(CommandSet& commands);
// The line's state and which camera answers: pushed, and "get answers".
void addLineState(CommandSet& commands);

}  // namespace station::remote
