#include "remote/osc_codec.hpp"

#include <lo/lo.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "remote/command_words.hpp"

namespace station::remote {

namespace {

struct MessageFree {
    void operator()(lo_message m) const { lo_message_free(m); }
};
using Message = std::unique_ptr<std::remove_pointer_t<lo_message>, MessageFree>;

Packet serialise(lo_message m, const std::string& address) {
    std::size_t size = 0;
    void* bytes = lo_message_serialise(m, address.c_str(), nullptr, &size);
    Packet packet;
    if (bytes) {
        const auto* b = static_cast<const std::uint8_t*>(bytes);
        packet.assign(b, b + size);
        std::free(bytes);
    }
    return packet;
}

// An argument's value. liblo's argument pointers are only 4-byte aligned inside the
// message, so 64-bit values are copied out rather than read through the union.
template <typename T>
T value(const lo_arg* arg) {
    T v;
    std::memcpy(&v, static_cast<const void*>(arg), sizeof v);
    return v;
}

const char* text(const lo_arg* arg) { return reinterpret_cast<const char*>(arg); }

// One received argument: a number (int or float alike), a truth value or a text.
struct Arg {
    enum Kind { Number, Truth, Text, Other } kind = Other;
    double number = 0;
    bool truth = false;
    std::string text;
    char type = 0;
};

Arg argument(char type, const lo_arg* arg) {
    Arg a;
    a.type = type;
    switch (type) {
    case LO_INT32: a.kind = Arg::Number, a.number = value<std::int32_t>(arg); break;
    case LO_INT64: a.kind = Arg::Number, a.number = static_cast<double>(value<std::int64_t>(arg)); break;
    case LO_FLOAT: a.kind = Arg::Number, a.number = value<float>(arg); break;
    case LO_DOUBLE: a.kind = Arg::Number, a.number = value<double>(arg); break;
    case LO_TRUE: a.kind = Arg::Truth, a.truth = true; break;
    case LO_FALSE: a.kind = Arg::Truth, a.truth = false; break;
    case LO_STRING:
    case LO_SYMBOL: a.kind = Arg::Text, a.text = text(arg); break;
    default: break;
    }
    return a;
}

bool usable(double v) { return std::isfinite(v) && std::fabs(v) <= 1e9; }

// An argument as a command word: numbers rounded (faders send floats), true/false as on/off,
// a text with blanks in quotes; nothing for a type commands cannot take.
std::optional<std::string> word(const Arg& a) {
    switch (a.kind) {
    case Arg::Number:
        if (!usable(a.number)) return std::nullopt;
        return std::to_string(std::lround(a.number));
    case Arg::Truth: return a.truth ? "on" : "off";
    case Arg::Text: return quoteWord(a.text);
    case Arg::Other: break;
    }
    return std::nullopt;
}

bool isNumber(const std::string& w) { return wholeNumber(w).has_value(); }

// Addresses that are a whole command by themselves, like a button on a surface: /camera/2,
// /scene/3, /scene/store/2, /mode/white/ATW, /gain/high, /gain/value/mid/up, /filter/up,
// /auto/white, /page/read, /call.
bool isButton(const std::vector<std::string>& w) {
    if (w.empty()) return false;
    const std::string& verb = w[0];
    const std::size_t n = w.size();
    if (verb == "camera" || verb == "filter" || verb == "auto" || verb == "page") return n == 2;
    if (verb == "scene") return (n == 2 && (isNumber(w[1]) || w[1] == "clear")) || (n == 3 && w[1] != "clear");
    if (verb == "mode") return n == 3;
    if (verb == "gain") return (n == 2 && w[1] != "value") || (n == 4 && w[1] == "value");
    return verb == "call" && n == 1;
}

// A button's argument: pressed (a number from 0.5 on, or true), let go, or not a button value.
std::optional<bool> pressed(const std::vector<Arg>& args) {
    if (args.empty()) return true;
    if (args.size() != 1) return std::nullopt;
    if (args[0].kind == Arg::Truth) return args[0].truth;
    if (args[0].kind == Arg::Number && usable(args[0].number)) return args[0].number >= 0.5;
    return std::nullopt;
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& w : words) text += (text.empty() ? "" : " ") + w;
    return text;
}

// The command of a button address: a press acts, a release does nothing, except on the call
// button, which is held (on) and let go (off).
void buttonCommand(std::vector<std::string> words, bool down, OscCommand& out) {
    if (words[0] == "call") {
        out.text = down ? "call on" : "call off";
        return;
    }
    if (!down) {
        out.ignored = true;
        return;
    }
    if (words[0] == "scene" && words.size() == 2 && words[1] != "clear") words.insert(words.begin() + 1, "recall");
    out.text = joined(words);
}

// /norm/level/NAME F: the level as 0.0 to 1.0 of its range.
void normCommand(const std::vector<std::string>& words, const std::vector<Arg>& args, OscCommand& out) {
    if (words.size() != 2 || words[0] != "level" || args.size() != 1 || args[0].kind != Arg::Number ||
        !(args[0].number >= 0.0 && args[0].number <= 1.0)) {
        out.error = "/norm/ takes a level (/norm/level/NAME) and one number from 0.0 to 1.0";
        return;
    }
    char fraction[32];
    std::snprintf(fraction, sizeof fraction, "%.6f", args[0].number);
    out.text = joined(words) + " norm " + fraction;
}

}  // namespace

OscCommand decodeOsc(const std::uint8_t* data, std::size_t size) {
    OscCommand out;
    if (size == 0 || size > kMaxLineBytes) {
        out.error = size == 0 ? "empty packet" : "packet too long (over 1024 bytes)";
        return out;
    }
    if (data[0] == '#') {
        out.error = "bundles are not taken: send each message on its own";
        return out;
    }
    Packet copy(data, data + size);  // liblo reads but wants a writable buffer
    int result = 0;
    const Message m(lo_message_deserialise(copy.data(), copy.size(), &result));
    if (!m || result != 0) {
        out.error = "not an OSC message";
        return out;
    }
    out.address = reinterpret_cast<const char*>(copy.data());
    std::vector<std::string> words;
    for (std::size_t at = 0; at < out.address.size();) {
        const std::size_t end = std::min(out.address.find('/', at), out.address.size());
        if (end > at) words.push_back(lower(out.address.substr(at, end - at)));
        at = end + 1;
    }
    if (words.empty()) {
        out.error = "empty address";
        return out;
    }
    const char* types = lo_message_get_types(m.get());
    lo_arg** argv = lo_message_get_argv(m.get());
    std::vector<Arg> args;
    for (int i = 0; i < lo_message_get_argc(m.get()); ++i) {
        args.push_back(argument(types[i], argv[i]));
        if (args.back().kind == Arg::Other) {
            out.error = std::string("argument type '") + types[i] + "' is not taken";
            return out;
        }
    }
    if (words[0] == "norm") {
        normCommand({words.begin() + 1, words.end()}, args, out);
        return out;
    }
    if (isButton(words)) {
        if (const auto down = pressed(args)) {
            buttonCommand(words, *down, out);
            return out;
        }
    }
    // /camera 0 (an int, as the station pushes it) is GROUP.
    if (words.size() == 1 && words[0] == "camera" && args.size() == 1 && args[0].type == 'i' && args[0].number == 0) {
        out.text = "camera group";
        return out;
    }
    // /camera 1.0 from a button that has no number of its own: its release (0) selects nothing.
    if (words.size() == 1 && words[0] == "camera" && args.size() == 1 && args[0].kind != Arg::Text) {
        if (const auto down = pressed(args); down && !*down) {
            out.ignored = true;
            return out;
        }
    }
    for (const Arg& a : args) {
        const auto w = word(a);
        if (!w) {
            out.error = std::string("argument '") + a.type + "' is not a usable number";
            return out;
        }
        words.push_back(*w);
    }
    out.text = joined(words);
    return out;
}

Packet encodeMessage(const std::string& address, const std::vector<std::string>& strings,
                     const std::vector<std::int32_t>& ints, const std::vector<float>& floats) {
    const Message m(lo_message_new());
    for (std::int32_t i : ints) lo_message_add_int32(m.get(), i);
    for (float f : floats) lo_message_add_float(m.get(), f);
    for (const std::string& s : strings) lo_message_add_string(m.get(), s.c_str());
    return serialise(m.get(), address);
}

Packet encodeArgs(const std::string& address, const std::vector<OscArg>& args) {
    const Message m(lo_message_new());
    for (const OscArg& a : args) {
        if (const auto* i = std::get_if<std::int32_t>(&a)) lo_message_add_int32(m.get(), *i);
        else if (const auto* f = std::get_if<float>(&a)) lo_message_add_float(m.get(), *f);
        else if (const auto* b = std::get_if<bool>(&a)) *b ? lo_message_add_true(m.get()) : lo_message_add_false(m.get());
        else lo_message_add_string(m.get(), std::get<std::string>(a).c_str());
    }
    return serialise(m.get(), address);
}

Packet encodeReply(const std::string& reply) { return encodeMessage("/reply", {reply}); }

std::optional<OscReceiver> receiverOf(const OscCommand& message) {
    if (!message.error.empty() || message.text.empty()) return std::nullopt;
    Words w(splitWords(message.text));
    const std::string verb = lower(w.peek());
    if (verb != "register" && verb != "unregister") return std::nullopt;
    w.take("command");
    OscReceiver out;
    out.add = verb == "register";
    if (!w.done() && !wholeNumber(w.peek())) out.host = w.take("host");
    if (!w.done()) out.port = static_cast<int>(w.number("port", 1, 65535));
    else if (!out.host.empty()) throw CommandError("missing port after the host \"" + out.host + "\"");
    w.end();
    return out;
}

namespace {

// What a surface shows of a state: on/off states and whether a camera answers or the line is
// connected as 0/1, whole numbers as int32, everything else (names, messages) as a string.
std::optional<std::int32_t> typedValue(const StateItem& item) {
    if (item.value == "on") return 1;
    if (item.value == "off") return 0;
    if (item.key.rfind("answer ", 0) == 0) return item.value == "answering" ? 1 : 0;
    if (item.key == "line") return item.value == "connected" ? 1 : 0;
    const auto n = wholeNumber(item.value);
    if (n && *n >= INT32_MIN && *n <= INT32_MAX) return static_cast<std::int32_t>(*n);
    return std::nullopt;
}

}  // namespace

Packet encodeState(const StateItem& item) {
    std::string address = "/" + item.key;
    for (char& c : address)
        if (c == ' ') c = '/';
    if (const auto n = typedValue(item)) return encodeMessage(address, {}, {*n});
    return encodeMessage(address, {item.value});
}

std::optional<std::string> describeOsc(const Packet& packet) {
    Packet copy = packet;
    int result = 0;
    const Message m(copy.empty() ? nullptr : lo_message_deserialise(copy.data(), copy.size(), &result));
    if (!m || result != 0) return std::nullopt;
    std::string out = reinterpret_cast<const char*>(copy.data());
    const char* types = lo_message_get_types(m.get());
    lo_arg** argv = lo_message_get_argv(m.get());
    for (int i = 0; i < lo_message_get_argc(m.get()); ++i) {
        if (types[i] == LO_INT32) out += " " + std::to_string(value<std::int32_t>(argv[i]));
        else if (types[i] == LO_STRING) out += " " + std::string(text(argv[i]));
        else if (types[i] == LO_FLOAT) out += " " + std::to_string(value<float>(argv[i])) + "f";
        else out += std::string(" ?") + types[i];
    }
    return out;
}

}  // namespace station::remote
