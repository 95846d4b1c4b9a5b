#pragma once
// The remote commands as OSC messages, encoded and decoded by liblo. An address's parts
// and the arguments make the command's words:
//   /camera 3            -> "camera 3"
//   /level/iris 12       -> "level iris 12"      (a float argument is rounded: faders send floats)
//   /level/iris/step -1  -> "level iris step -1"
//   /auto "white"        -> "auto white"
//   /call T              -> "call on"            (true/false are on/off)
// Feedback goes out the other way: the state "level iris" = "12" is the message
// /level/iris 12 (a whole number as int32, any other value as a string), and a reply is
// /reply "OK" or /reply "ERR <reason>".

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "remote/station_state.hpp"

namespace station::remote {

using Packet = std::vector<std::uint8_t>;

struct OscCommand {
    std::string address;  // e.g. "/level/iris"
    std::string text;     // the command's text, or empty when `error` says why there is none
    std::string error;
};

// Decodes one received packet; never throws, whatever the bytes.
OscCommand decodeOsc(const std::uint8_t* data, std::size_t size);

Packet encodeReply(const std::string& reply);
Packet encodeState(const StateItem& item);
// An address and its string arguments (for clients and tests).
Packet encodeMessage(const std::string& address, const std::vector<std::string>& strings,
                     const std::vector<std::int32_t>& ints = {}, const std::vector<float>& floats = {});
// The address and arguments of a packet as text, e.g. "/level/iris 12"; nothing if it is not OSC.
std::optional<std::string> describeOsc(const Packet& packet);

}  // namespace station::remote
