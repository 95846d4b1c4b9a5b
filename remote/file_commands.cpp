// Opening and saving setup data files from outside. A remote client names a file only
// inside the folder the operator allowed, and only a setup data file ("*.csd"); the station
// then opens or saves it through its own File commands, as if the operator had chosen that
// file in the dialog.
#include <system_error>

#include "remote/command_set.hpp"

namespace station::remote {

namespace {

namespace fs = std::filesystem;

fs::path allowedPath(const RemoteAccess& access, const std::string& name, bool saving = false) {
    if (!access.fileFolder) throw CommandError("file commands are off: no folder was allowed for them");
    std::error_code ec;
    const fs::path folder = fs::weakly_canonical(*access.fileFolder, ec);
    if (ec) throw CommandError("the allowed folder cannot be read");
    fs::path path = fs::path(name);
    if (path.is_relative()) path = folder / path;
    // A save replaces the file named, never the one a link of that name points to.
    if (saving && fs::is_symlink(fs::symlink_status(path, ec)))
        throw CommandError(name + " is a symbolic link: not saved");
    path = fs::weakly_canonical(path, ec);
    if (ec) throw CommandError("no such path: " + name);
    const fs::path inside = path.lexically_relative(folder);
    if (inside.empty() || *inside.begin() == "..") throw CommandError("only files inside the allowed folder");
    if (lower(path.extension().string()) != ".csd") throw CommandError("only setup data files (*.csd)");
    return path;
}

std::optional<fs::file_time_type> modified(const fs::path& path) {
    std::error_code ec;
    const auto t = fs::last_write_time(path, ec);
    if (ec) return std::nullopt;
    return t;
}

// A file action that failed half-way has told the operator why; the client learns from the
// file itself whether it was opened or saved.
void fileGesture(CommandSet& c, const ActionResult& result) {
    if (result.acted()) c.perform(ActionResult::done());
    else c.perform(result);
}

// The file the command's last word names, inside the allowed folder.
fs::path namedFile(const CommandSet& c, Words& w, bool saving = false) {
    fs::path path = allowedPath(c.access(), w.take("file"), saving);
    w.end();
    return path;
}

// Saves through `save`; refused unless the file was written (a save the station refused,
// with its box on the operator's screen, leaves the file as it was).
template <typename Save>
void saveChecked(CommandSet& c, const fs::path& path, Save save) {
    const auto before = modified(path);
    fileGesture(c, save());
    const auto after = modified(path);
    if (!after || after == before) throw CommandError("the file was not saved (the station says why)");
}

}  // namespace

void addFileCommands(CommandSet& commands) {
    CommandSet* c = &commands;
    Actions& a = commands.actions();
    const StationReadout& s = a.readout();

    commands.add({"open", "open FILE (a *.csd file in the allowed folder)", true, [c, &a, &s](Words& w) {
        const fs::path path = namedFile(*c, w);
        std::error_code ec;
        if (!fs::is_regular_file(path, ec)) throw CommandError("no such file: " + path.string());
        c->dialogs().answerNextOpen(path.string());
        fileGesture(*c, a.open());
        if (s.fileName() != path.string()) throw CommandError("the file was not opened");
        return std::string();
    }});

    commands.add({"save", "save [FILE] (the open file, or a *.csd file in the allowed folder)", true,
                  [c, &a, &s](Words& w) {
        if (w.done()) {
            // Only the file already open, never a dialog on the operator's screen.
            if (s.fileName().empty()) throw CommandError("no setup file is open: name one");
            saveChecked(*c, allowedPath(c->access(), s.fileName()), [&a] { return a.save(); });
            return std::string();
        }
        const fs::path path = namedFile(*c, w, true);
        c->dialogs().answerNextSave(path.string());
        saveChecked(*c, path, [&a] { return a.saveAs(); });
        return std::string();
    }});
}

}  // namespace station::remote
