// The function editor from outside. An item of the selected camera's function menu is named
// by its function's title and its own name, and set through the Function window's controls
// in the order an operator uses them (the function list, the item list, then MODE/VALUE), so
// that it is stored and sent exactly as for a click there. The page the editor shows is
// reported as the window lists it.
#include <algorithm>

#include "remote/command_set.hpp"

namespace station::remote {

namespace {

// A name as one word of a reply: in double quotes when it holds a blank.
std::string quoted(const std::string& name) {
    return name.find_first_of(" \t") == std::string::npos ? name : "\"" + name + "\"";
}

// The function titled `title` in the function list (1..), or 0.
int functionTitled(const Station& s, const std::string& title) {
    const ListBox& titles = s.form2.List1;
    for (int f = 1; f <= titles.listCount(); ++f)
        if (lower(titles.list(f - 1)) == lower(title)) return f;
    return 0;
}

struct ItemRef {
    int function = 0;
    int item = 0;
};

ItemRef takeItem(Station& s, Words& w) {
    const ListBox& titles = s.form2.List1;
    if (titles.listCount() == 0) throw CommandError("the selected camera has no functions (GROUP, or no camera type)");
    const std::string title = w.take("function title");
    ItemRef ref{functionTitled(s, title), 0};
    if (ref.function == 0) {
        std::string names;
        for (const std::string& t : titles.items()) names += (names.empty() ? "" : ", ") + quoted(t);
        throw CommandError("no function \"" + title + "\" (" + names + ")");
    }
    const std::string name = w.take("item name");
    std::string names;
    for (int i = 1; i <= s.editor.itemCount(ref.function) && ref.item == 0; ++i) {
        const std::string& n = s.editor.item(ref.function, i).name();
        if (lower(n) == lower(name)) ref.item = i;
        names += (names.empty() ? "" : ", ") + quoted(n);
    }
    if (ref.item == 0) throw CommandError("no item \"" + name + "\" in " + quoted(title) + " (" + names + ")");
    return ref;
}

// A named value by its name, else by its place in the MODE/VALUE list (1..).
int namedValue(const FunctionItem& it, const std::string& word) {
    for (int k = 1; k <= it.valueCount(); ++k)
        if (lower(it.valueName(k)) == lower(word)) return k;
    if (const auto n = wholeNumber(word); n && *n >= 1 && *n <= it.valueCount()) return static_cast<int>(*n);
    throw CommandError(quoted(it.name()) + " has no value \"" + word + "\" (a name of its list, or its number 1 to " +
                       std::to_string(it.valueCount()) + ")");
}

// An analog value: a whole number, "0x" and hex digits, or "step N" in the item's STEPs from
// the value it holds (an encoder stops at the ends).
long analogValue(const FunctionItem& it, long now, Words& w) {
    const FunctionItem::Range r = it.range();
    if (lower(w.peek()) == "step") {
        w.take("step");
        return std::clamp(now + w.number("step", -65535, 65535) * r.step, r.min, r.max);
    }
    const std::string word = w.take("value");
    std::optional<long> v;
    if (word.size() > 2 && lower(word.substr(0, 2)) == "0x") {
        if (const auto h = hexNumber(std::string_view(word).substr(2))) v = static_cast<long>(*h);
    } else {
        v = wholeNumber(word);
    }
    if (!v || *v < r.min || *v > r.max)
        throw CommandError(quoted(it.name()) + " must be from " + std::to_string(r.min) + " to " + std::to_string(r.max) +
                           " (0x" + hexDigits(static_cast<unsigned long>(r.min), r.digits) + " to 0x" +
                           hexDigits(static_cast<unsigned long>(r.max), r.digits) + "), not \"" + word + "\"");
    return *v;
}

}  // namespace

void addFunctionCommands(CommandSet& commands) {
    CommandSet* c = &commands;
    Station& s = commands.station();

    commands.add({"function", "function TITLE ITEM VALUE|N | function TITLE ITEM step N (the Function window's items)",
                  true, [c, &s](Words& w) {
        const ItemRef ref = takeItem(s, w);
        const FunctionItem it = s.editor.item(ref.function, ref.item);
        const std::string* held = s.editor.stored(ref.function, it);
        const std::string control = "function " + lower(s.form2.List1.list(ref.function - 1)) + "/" + lower(it.name());
        int choice = 0;
        long value = 0;
        if (it.kind() == 'A') {
            const auto stored = hexNumber(held != nullptr ? *held : std::string());
            long now = stored ? static_cast<long>(*stored) : it.range().min;
            if (c->faders().busy(control)) now = c->faders().latest(control).value_or(now);  // an encoder's next step
            value = analogValue(it, now, w);
        } else if (it.kind() == 'M' || it.kind() == 'S' || it.kind() == 'T') {
            choice = namedValue(it, w.take("value"));
        } else {
            throw CommandError(quoted(it.name()) + " has nothing to set");
        }
        w.end();
        Form2& form = s.form2;
        if (it.kind() == 'A') {
            c->paced(control, value, [c, &form, ref](long v) {
                c->gesture([&form, ref, v] {
                    form.List1.setListIndex(ref.function - 1);
                    form.List2.setListIndex(ref.item - 1);
                    form.HScroll1.setValue(static_cast<int>(v));
                });
            });
            return std::string();
        }
        c->gesture([&form, ref, choice, value] {
            form.List1.setListIndex(ref.function - 1);
            form.List2.setListIndex(ref.item - 1);
            if (choice > 0) form.List3.setListIndex(choice - 1);
            else form.HScroll1.setValue(static_cast<int>(value));
        });
        return std::string();
    }});

    // "get function TITLE ITEM"; "get function" and "get function item N" are the shown page.
    commands.addGet("function", [&s](Words& w) -> std::optional<std::string> {
        if (functionTitled(s, w.peek(1)) == 0) return std::nullopt;
        w.take("function");
        const ItemRef ref = takeItem(s, w);
        w.end();
        const FunctionItem it = s.editor.item(ref.function, ref.item);
        const std::string* held = s.editor.stored(ref.function, it);
        const std::string value = it.kind() == 'T' ? "(action)" : s.editor.valueText(it, held ? *held : std::string());
        return "function " + quoted(s.form2.List1.list(ref.function - 1)) + " " + quoted(it.name()) + " " + quoteWord(value);
    });

    commands.watch([](const Station& station, StateList& out) {
        const Form2& form = station.form2;
        const int shown = form.List1.listIndex();
        out.push_back({"function", shown >= 0 && shown < form.List1.listCount() ? form.List1.list(shown) : "none"});
        out.push_back({"function items", std::to_string(form.List2.listCount())});
        for (int i = 0; i < form.List2.listCount(); ++i)
            out.push_back({"function item " + std::to_string(i + 1), form.List2.list(i)});
    });
}

}  // namespace station::remote
