// The main panel's remote commands. Each reads its words and carries out the named action
// of the matching gesture on the main window; the action refuses what the window would not
// let the operator do (a greyed control), the words refuse a value the control does not have.
#include <algorithm>

#include "remote/command_set.hpp"

namespace station::remote {

namespace {

// A button of a group, by index or by its caption ("ATW", "high").
int buttonOf(const StationReadout::Buttons& group, const std::string& word, const std::string& what) {
    if (const auto n = wholeNumber(word)) {
        if (*n < group.lo || *n > group.hi)
            throw CommandError(what + " must be from " + std::to_string(group.lo) + " to " + std::to_string(group.hi) +
                               ", not " + word);
        return static_cast<int>(*n);
    }
    for (int i = group.lo; i <= group.hi; ++i)
        if (lower(group.caption(i)) == lower(word)) return i;
    throw CommandError(what + " has no button \"" + word + "\"");
}

template <typename T, std::size_t N>
const T& named(const std::array<T, N>& table, const std::string& word, const std::string& what) {
    const auto it = std::find_if(table.begin(), table.end(), [&](const T& t) { return lower(word) == t.name; });
    if (it == table.end()) {
        std::string names;
        for (const T& t : table) names += std::string(names.empty() ? "" : ", ") + t.name;
        throw CommandError("no " + what + " \"" + word + "\" (" + names + ")");
    }
    return *it;
}

std::string choice(Words& w, const std::string& what, std::initializer_list<const char*> allowed) {
    const std::string word = lower(w.take(what));
    std::string names;
    for (const char* a : allowed) {
        if (word == a) return word;
        names += std::string(names.empty() ? "" : " or ") + a;
    }
    throw CommandError(what + " must be " + names + ", not \"" + word + "\"");
}

}  // namespace

void addPanelCommands(CommandSet& commands) {
    CommandSet* c = &commands;
    Actions& a = commands.actions();
    const StationReadout& view = a.readout();

    commands.add({"camera", "camera N|group", true, [c, &a, &view](Words& w) {
        const std::string word = w.take("camera");
        const int camera = lower(word) == "group" ? 0 : buttonOf(view.cameraButtons(), word, "camera");
        w.end();
        return c->perform(a.selectCamera(camera));
    }});

    commands.add({"scene", "scene recall N | scene store N | scene clear", true, [c, &a](Words& w) {
        const std::string what = choice(w, "scene action", {"recall", "store", "clear"});
        if (what == "clear") {
            w.end();
            return c->perform(a.clearScene());
        }
        const int scene = static_cast<int>(w.number("scene", 1, 4));
        w.end();
        return c->perform(what == "recall" ? a.recallScene(scene) : a.storeScene(scene));
    }});

    commands.add({"mode", "mode bar|detail|shutter|gain|white|iris|monitor INDEX|CAPTION", true,
                  [c, &a, &view](Words& w) {
        const ModeControl& mode = named(kModes, w.take("mode name"), "mode");
        const int index = buttonOf(view.modeButtons(mode.mode), w.take("button"), std::string("mode ") + mode.name);
        w.end();
        return c->perform(a.setMode(mode.mode, index));
    }});

    commands.add({"gain", "gain low|mid|high|super|INDEX (the gain step) | gain value low|mid|high up|down [N]", true,
                  [c, &a, &view](Words& w) {
        if (lower(w.peek()) == "value") {
            w.take("value");
            const std::string step = choice(w, "gain step", {"low", "mid", "high"});
            const int index = step == "low" ? 0 : step == "mid" ? 1 : 2;
            const bool up = choice(w, "direction", {"up", "down"}) == "up";
            const int presses = w.done() ? 1 : static_cast<int>(w.number("presses", 1, 64));
            w.end();
            return c->perform(a.stepGain(index, up, presses));
        }
        const int index = buttonOf(view.modeButtons(Mode::Gain), w.take("gain step"), "gain step");
        w.end();
        return c->perform(a.chooseGainStep(index));
    }});

    commands.add({"level", "level mblk|iris|detail|rgain|bgain|rblk|bblk VALUE | level NAME step N", true,
                  [c, &a, &view](Words& w) {
        const LevelControl& level = named(kLevels, w.take("level name"), "level");
        const StationReadout::Range bar = view.levelRange(level.level);
        long target = 0;
        if (lower(w.peek()) == "step") {
            w.take("step");
            // A surface's encoder steps past the ends without complaint: the bar stops there.
            target = std::clamp(bar.value + w.number("step", -32768, 32767), bar.lo, bar.hi);
        } else {
            target = w.number("level", bar.lo, bar.hi);
        }
        w.end();
        return c->perform(a.setLevel(level.level, static_cast<int>(target)));
    }});

    commands.add({"filter", "filter up|down", true, [c, &a](Words& w) {
        const std::string way = choice(w, "direction", {"up", "down"});
        w.end();
        return c->perform(a.stepFilter(way == "up"));
    }});

    commands.add({"call", "call on|off", true, [c, &a](Words& w) {
        const std::string state = choice(w, "call state", {"on", "off"});
        w.end();
        return c->perform(a.call(state == "on"));
    }});

    commands.add({"auto", "auto white|black", true, [c, &a](Words& w) {
        const std::string which = choice(w, "auto set-up", {"white", "black"});
        w.end();
        return c->perform(a.startAuto(which == "white"));
    }});

    commands.add({"page", "page read|send|function", true, [c, &a](Words& w) {
        const std::string what = choice(w, "page action", {"read", "send", "function"});
        w.end();
        if (what == "read") return c->perform(a.readPage());
        if (what == "send") return c->perform(a.sendPage());
        return c->perform(a.sendOnePage());
    }});

    commands.add({"get", "get [NAME...] (all when no name: camera, scene, mode NAME, level NAME, gain STEP, "
                         "filter, tally, call, auto, auto window, line, line port, answer N, function, "
                         "function item N, type, id, queue, file) | get answers | get function TITLE ITEM",
                  false, [c, &view](Words& w) {
        if (auto added = c->getAdded(w)) return *added;
        StateList items = c->state();
        const int camera = view.selectedCamera();
        items.push_back({"type", view.cameraType(camera)});
        items.push_back({"id", view.cameraId(camera)});
        items.push_back({"queue", std::to_string(view.queued())});
        items.push_back({"file", view.fileName()});
        std::string key;
        while (!w.done()) key += (key.empty() ? "" : " ") + lower(w.take("name"));
        if (key.empty()) {
            std::string all;
            for (const StateItem& item : items) all += (all.empty() ? "" : "; ") + item.key + " " + item.value;
            return all;
        }
        for (const StateItem& item : items)
            if (item.key == key) return item.key + " " + item.value;
        throw CommandError("nothing called \"" + key + "\" to get");
    }});
}

}  // namespace station::remote
