#pragma once
// The remote commands as OSC messages, encoded and decoded by liblo, in the forms control
// surfaces send. An address's parts and the arguments make the command's words, and any
// number may come as int or float (a float is rounded):
//   /camera 3            -> "camera 3"
//   /level/iris 12.4     -> "level iris 12"
//   /level/iris/step -1  -> "level iris step -1"
//   /norm/level/iris 0.5 -> "level iris norm 0.500000"   (0.0 to 1.0 of the level's range)
//   /auto "white"        -> "auto white"
// An address that is a whole command is a button: it acts with no argument, with a number
// from 0.5 on, or T, and a release (a number below 0.5, or F) does nothing:
//   /camera/2 1.0 -> "camera 2"    /camera/2 0.0 -> nothing    /scene/3 -> "scene recall 3"
// except /call, which is held: /call 1 -> "call on", /call 0 -> "call off".
// Feedback goes out the other way, typed: the state "level iris" = "12" is /level/iris 12
// (int32), on/off states are 0/1, names are strings; a reply is /reply "OK" or
// /reply "ERR <reason>".

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "remote/command_words.hpp"
#include "remote/station_state.hpp"

namespace station::remote {

using Packet = std::vector<std::uint8_t>;

struct OscCommand {
    std::string address;  // e.g. "/level/iris"
    std::string text;     // the command's text, or empty when `error` says why there is none
    std::string error;
    bool ignored = false;  // a button's release: nothing to do and nothing to answer
};

// "/register [HOST] [PORT]" and "/unregister [HOST] [PORT]": who gets replies and pushes.
struct OscReceiver {
    bool add = true;
    std::string host;  // empty: the sender's host
    int port = 0;      // 0: the sender's port
};
// The receiver a /register or /unregister message names; nothing for any other message.
// Raises CommandError for a port that is not one.
std::optional<OscReceiver> receiverOf(const OscCommand& message);

// Decodes one received packet; never throws, whatever the bytes.
OscCommand decodeOsc(const std::uint8_t* data, std::size_t size);

Packet encodeReply(const std::string& reply);
Packet encodeState(const StateItem& item);
// An address and its string arguments (for clients and tests).
Packet encodeMessage(const std::string& address, const std::vector<std::string>& strings,
                     const std::vector<std::int32_t>& ints = {}, const std::vector<float>& floats = {});
// A message with arguments of any type a surface sends, in order (for clients and tests).
using OscArg = std::variant<std::int32_t, float, bool, std::string>;
Packet encodeArgs(const std::string& address, const std::vector<OscArg>& args);
// The address and arguments of a packet as text, e.g. "/level/iris 12"; nothing if it is not OSC.
std::optional<std::string> describeOsc(const Packet& packet);

}  // namespace station::remote
