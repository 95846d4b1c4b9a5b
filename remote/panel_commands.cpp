// The main panel's remote commands. Each does what the matching gesture on the main window
// does, on the same control, and refuses what the window would not let the operator do (a
// disabled group, a value the control does not have).
#include <algorithm>
#include <cmath>

#include "remote/command_set.hpp"
#include "remote/panel_controls.hpp"

namespace station::remote {

namespace {

void require(bool enabled, const std::string& what) {
    if (!enabled) throw CommandError(what + " is not available for this camera now");
}

// A button of a group, by index or by its caption ("ATW", "high").
int buttonOf(const OptionGroup& group, const std::string& word, const std::string& what) {
    if (const auto n = wholeNumber(word)) {
        if (*n < group.lo() || *n > group.hi())
            throw CommandError(what + " must be from " + std::to_string(group.lo()) + " to " +
                               std::to_string(group.hi()) + ", not " + word);
        return static_cast<int>(*n);
    }
    for (int i = group.lo(); i <= group.hi(); ++i)
        if (lower(group[i].Caption) == lower(word)) return i;
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
    Station& s = commands.station();
    Form1& form = s.form1;

    commands.add({"camera", "camera N|group", true, [c, &form](Words& w) {
        const std::string word = w.take("camera");
        const int camera = lower(word) == "group" ? 0 : buttonOf(form.Option9, word, "camera");
        w.end();
        require(form.cameraSelect.Enabled && form.Option9.Enabled, "camera selection");
        // A ticked COPY would turn the press into a copy onto that camera.
        if (form.CamCopy.value() == 1) throw CommandError("COPY is ticked on the panel");
        c->gesture([&form, camera] { form.Option9.click(camera); });
        return std::string();
    }});

    commands.add({"scene", "scene recall N | scene store N | scene clear", true, [c, &s, &form](Words& w) {
        const std::string what = choice(w, "scene action", {"recall", "store", "clear"});
        if (what == "clear") {
            w.end();
            c->gesture([&s] { s.scenes.Command2_Click(); });
            return std::string();
        }
        const int scene = static_cast<int>(w.number("scene", 1, 4));
        w.end();
        require(form.Option7.Enabled, "scene selection");
        if (what == "recall") {
            // With STORE ticked the press would store instead.
            if (form.ScnStore.value() == 1) throw CommandError("STORE is ticked on the panel");
            c->gesture([&form, scene] { form.Option7.click(scene); });
        } else {
            c->gesture([&form, scene] {
                form.ScnStore.setValue(1);
                form.Option7.click(scene);
            });
        }
        return std::string();
    }});

    commands.add({"mode", "mode bar|detail|shutter|gain|white|iris|monitor INDEX|CAPTION", true,
                  [c, &form](Words& w) {
        const ModeControl& mode = named(kModes, w.take("mode name"), "mode");
        OptionGroup& group = form.*mode.group;
        const int index = buttonOf(group, w.take("button"), std::string("mode ") + mode.name);
        w.end();
        require(group.Enabled && (mode.group != &Form1::OptMonsel || form.Frame12.Enabled),
                std::string("mode ") + mode.name);
        c->gesture([&group, index] { group.click(index); });
        return std::string();
    }});

    commands.add({"gain", "gain low|mid|high|super|INDEX (the gain step) | gain value low|mid|high up|down [N]", true,
                  [c, &s, &form](Words& w) {
        if (lower(w.peek()) == "value") {
            w.take("value");
            const std::string step = choice(w, "gain step", {"low", "mid", "high"});
            const int index = step == "low" ? 0 : step == "mid" ? 1 : 2;
            const bool up = choice(w, "direction", {"up", "down"}) == "up";
            const int presses = w.done() ? 1 : static_cast<int>(w.number("presses", 1, 64));
            w.end();
            // The window offers the spin buttons only for a step the gain type can trim.
            require(s.panel.gainStepRange(index).offered(), "gain value " + step);
            c->gesture([&s, index, up, presses] {
                for (int i = 0; i < presses; ++i) up ? s.panel.SpinButton1_SpinUp(index) : s.panel.SpinButton1_SpinDown(index);
            });
            return std::string();
        }
        const int index = buttonOf(form.OptGain, w.take("gain step"), "gain step");
        w.end();
        require(form.OptGain.Enabled, "gain step");
        c->gesture([&form, index] { form.OptGain.click(index); });
        return std::string();
    }});

    commands.add({"level", "level mblk|iris|detail|rgain|bgain|rblk|bblk VALUE | level NAME step N | level NAME norm 0..1", true,
                  [c](Words& w) {
        const LevelControl& level = named(kLevels, w.take("level name"), "level");
        ScrollBar& bar = c->station().form1.*level.bar;
        const std::string control = std::string("level ") + level.name;
        const long lo = std::min(bar.Min, bar.Max);
        const long hi = std::max(bar.Min, bar.Max);
        long target = 0;
        if (lower(w.peek()) == "step") {
            w.take("step");
            // A surface's encoder steps past the ends without complaint: the bar stops there.
            // While a value of the fader is kept, the step is from that value.
            const long from = c->faders().busy(control) ? c->faders().latest(control).value_or(bar.value()) : bar.value();
            target = std::clamp(from + w.number("step", -32768, 32767), lo, hi);
        } else if (lower(w.peek()) == "norm") {
            w.take("norm");
            target = lo + std::lround(w.fraction("norm") * static_cast<double>(hi - lo));
        } else {
            target = w.number("level", lo, hi);
        }
        w.end();
        require(bar.Enabled, control);
        c->paced(control, target, [c, &bar](long v) { c->gesture([&bar, v] { bar.setValue(static_cast<int>(v)); }); });
        return std::string();
    }});

    commands.add({"filter", "filter up|down", true, [c, &s, &form](Words& w) {
        const std::string way = choice(w, "direction", {"up", "down"});
        w.end();
        require(form.Frame17.Enabled, "the filter");
        if (way == "up") c->gesture([&s] { s.panel.SpinButton2_SpinUp(); });
        else c->gesture([&s] { s.panel.SpinButton2_SpinDown(); });
        return std::string();
    }});

    commands.add({"call", "call on|off", true, [c, &s, &form](Words& w) {
        const std::string state = choice(w, "call state", {"on", "off"});
        w.end();
        require(form.Frame19.Enabled && form.Command9.Enabled, "the call button");
        if (state == "on") c->gesture([&s] { s.panel.Command9_MouseDown(); });
        else c->gesture([&s] { s.panel.Command9_MouseUp(); });
        return std::string();
    }});

    commands.add({"auto", "auto white|black", true, [c, &s, &form](Words& w) {
        const std::string which = choice(w, "auto set-up", {"white", "black"});
        w.end();
        const bool white = which == "white";
        require(form.Frame15.Enabled && (white ? form.Command8.Enabled : form.Command7.Enabled), "auto " + which);
        if (white) c->gesture([&s] { s.autoSetup.Command8_Click(); });
        else c->gesture([&s] { s.autoSetup.Command7_Click(); });
        return std::string();
    }});

    commands.add({"page", "page read|send|function", true, [c, &s, &form](Words& w) {
        const std::string what = choice(w, "page action", {"read", "send", "function"});
        w.end();
        if (what == "read") {
            require(form.Command12.Enabled, "page read");
            // The whole page goes into the queue at once; it must fit.
            const int needed = static_cast<int>(s.pages.readRequests().size());
            const int room = SendQueue::kCapacity - s.link.queue().SendCnt();
            if (needed > room)
                throw CommandError("page read needs " + std::to_string(needed) + " frames, the queue has room for " +
                                   std::to_string(room));
            c->gesture([&s] { s.pages.Command12_Click(); });
        } else if (what == "send") {
            require(form.Command13.Enabled, "page send");
            c->gesture([&s] { s.pages.Command13_Click(); });
        } else {
            require(form.Command3.Enabled, "1Page to CAM");
            c->gesture([&s] { s.pages.Command3_Click(); });
        }
        return std::string();
    }});

    commands.add({"get", "get [NAME...] (all when no name: camera, scene, mode NAME, level NAME, gain STEP, "
                         "filter, tally, call, auto, auto window, line, line port, answer N, function, "
                         "function item N, type, id, queue, file) | get answers | get function TITLE ITEM",
                  false, [c, &s](Words& w) {
        if (auto added = c->getAdded(w)) return *added;
        StateList items = c->state();
        const int camera = s.shared.CamNo;
        items.push_back({"type", s.shared.cams.CamType(camera)});
        items.push_back({"id", s.shared.cams.CamID(camera)});
        items.push_back({"queue", std::to_string(s.link.queue().SendCnt())});
        items.push_back({"file", s.setupFile.FileName});
        std::string key;
        while (!w.done()) key += (key.empty() ? "" : " ") + lower(w.take("name"));
        if (key.empty()) {
            std::string all;
            for (const StateItem& item : items) all += (all.empty() ? "" : "; ") + item.key + " " + quoteWord(item.value);
            return all;
        }
        for (const StateItem& item : items)
            if (item.key == key) return item.key + " " + quoteWord(item.value);
        throw CommandError("nothing called \"" + key + "\" to get");
    }});
}

}  // namespace station::remote
