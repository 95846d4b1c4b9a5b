#include "remote/osc_codec.hpp"

#include <lo/lo.h>

#include <cmath>
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

std::optional<std::string> rounded(double v) {
    if (!std::isfinite(v) || std::fabs(v) > 1e9) return std::nullopt;
    return std::to_string(std::lround(v));
}

// One argument as a command word; nothing for a type commands cannot take.
std::optional<std::string> word(char type, const lo_arg* arg) {
    switch (type) {
    case LO_INT32: return std::to_string(value<std::int32_t>(arg));
    case LO_INT64: return std::to_string(value<std::int64_t>(arg));
    case LO_FLOAT: return rounded(value<float>(arg));
    case LO_DOUBLE: return rounded(value<double>(arg));
    case LO_TRUE: return "on";
    case LO_FALSE: return "off";
    case LO_STRING:
    case LO_SYMBOL: {
        const std::string s = text(arg);
        return s.find(' ') == std::string::npos ? s : "\"" + s + "\"";
    }
    default: return std::nullopt;
    }
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
    std::string line;
    for (std::size_t i = 1; i <= out.address.size(); ++i) {
        if (i == out.address.size() || out.address[i] == '/') {
            if (!line.empty() && line.back() != ' ') line += ' ';
        } else {
            line += out.address[i];
        }
    }
    const char* types = lo_message_get_types(m.get());
    lo_arg** argv = lo_message_get_argv(m.get());
    const int argc = lo_message_get_argc(m.get());
    for (int i = 0; i < argc; ++i) {
        const auto w = word(types[i], argv[i]);
        if (!w) {
            out.error = std::string("argument type '") + types[i] + "' is not taken";
            return out;
        }
        if (!line.empty() && line.back() != ' ') line += ' ';
        line += *w;
    }
    while (!line.empty() && line.back() == ' ') line.pop_back();
    out.text = line;
    if (out.text.empty()) out.error = "empty address";
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

Packet encodeReply(const std::string& reply) { return encodeMessage("/reply", {reply}); }

Packet encodeState(const StateItem& item) {
    std::string address = "/" + item.key;
    for (char& c : address)
        if (c == ' ') c = '/';
    const auto n = wholeNumber(item.value);
    if (n && *n >= INT32_MIN && *n <= INT32_MAX) return encodeMessage(address, {}, {static_cast<std::int32_t>(*n)});
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
        else out += std::string(" ?") + types[i];
    }
    return out;
}

}  // namespace station::remote
