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
int functionTitled(const StationReadout& s, const std::string& title) {
    const std::vector<std::string> titles = s.functionTitles();
    for (std::size_t f = 0; f < titles.size(); ++f)
        if (lower(titles[f]) == lower(title)) return static_cast<int>(f) + 1;
    return 0;
}

struct ItemRef {
    int function = 0;
    int item = 0;
};

ItemRef takeItem(const StationReadout& s, Words& w) {
    const std::vector<std::string> titles = s.functionTitles();
    if (titles.empty()) throw CommandError("the selected camera has no functions (GROUP, or no camera type)");
    const std::string title = w.take("function title");
    ItemRef ref{functionTitled(s, title), 0};
    if (ref.function == 0) {
        std::string names;
        for (const std::string& t : titles) names += (names.empty() ? "" : ", ") + quoted(t);
        throw CommandError("no function \"" + title + "\" (" + names + ")");
    }
    const std::string name = w.take("item name");
    std::string names;
    for (int i = 1; i <= s.itemCount(ref.function) && ref.item == 0; ++i) {
        const std::string n = s.item(ref.function, i).name();
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
    Actions& a = commands.actions();
    const StationReadout& s = a.readout();

    commands.add({"function", "function TITLE ITEM VALUE|N | function TITLE ITEM step N (the Function window's items)",
                  true, [c, &a, &s](Words& w) {
        const ItemRef ref = takeItem(s, w);
        const FunctionItem it = s.item(ref.function, ref.item);
        const std::optional<std::string> held = s.storedValue(ref.function, it);
        const std::string title = s.functionTitles().at(static_cast<std::size_t>(ref.function - 1));
        const std::string control = "function " + lower(title) + "/" + lower(it.name());
        int choice = 0;
        long value = 0;
        if (it.setter() == FunctionItem::Setter::Bar) {
            const auto stored = hexNumber(held.value_or(std::string()));
            long now = stored ? static_cast<long>(*stored) : it.range().min;
            if (c->faders().busy(control)) now = c->faders().latest(control).value_or(now);  // an encoder's next step
            value = analogValue(it, now, w);
        } else if (it.setter() == FunctionItem::Setter::List) {
            choice = namedValue(it, w.take("value"));
        } else {
            throw CommandError(quoted(it.name()) + " has nothing to set");
        }
        w.end();
        if (choice > 0) return c->perform(a.chooseFunctionValue(ref.function, ref.item, choice));
        c->paced(control, value, [&a, ref](long v) { return a.setFunctionValue(ref.function, ref.item, v); });
        return std::string();
    }, true});

    // "get function TITLE ITEM"; "get function" and "get function item N" are the shown page.
    commands.addGet("function", [&s](Words& w) -> std::optional<std::string> {
        if (functionTitled(s, w.peek(1)) == 0) return std::nullopt;
        w.take("function");
        const ItemRef ref = takeItem(s, w);
        w.end();
        const FunctionItem it = s.item(ref.function, ref.item);
        const std::string value = it.kind() == 'T' ? "(action)" : s.valueText(it, s.storedValue(ref.function, it).value_or(""));
        const std::string title = s.functionTitles().at(static_cast<std::size_t>(ref.function - 1));
        return "function " + quoted(title) + " " + quoted(it.name()) + " " + quoteWord(value);
    });

    commands.watch([](const StationReadout& station, StateList& out) {
        const std::vector<std::string> titles = station.functionTitles();
        const int shown = station.shownFunction();
        out.push_back({"function", shown >= 0 && shown < static_cast<int>(titles.size())
                                       ? titles[static_cast<std::size_t>(shown)]
                                       : "none"});
        const std::vector<std::string> items = station.shownItems();
        out.push_back({"function items", std::to_string(items.size())});
        for (std::size_t i = 0; i < items.size(); ++i)
            out.push_back({"function item " + std::to_string(i + 1), items[i]});
    });
}

}  // namespace station::remote
