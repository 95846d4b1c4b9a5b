// OSC as control surfaces send it: buttons pressed and let go, faders as int or float or as a
// fraction of the range, receivers named by /register, and typed feedback.
#include <gtest/gtest.h>

#include <limits>

#include "remote/osc_codec.hpp"

namespace station::remote {
namespace {

OscCommand decode(const std::string& address, const std::vector<OscArg>& args) {
    const Packet p = encodeArgs(address, args);
    return decodeOsc(p.data(), p.size());
}

struct Decoded {
    std::string address;
    std::vector<OscArg> args;
    std::string line;  // "" with `ignored`: a release
    std::string error = {};
};

TEST(OscDecode, SurfaceMessagesBecomeCommands) {
    const Decoded cases[] = {
        // Buttons: a press acts, a release does nothing, with any argument type.
        {"/camera/2", {1.0f}, "camera 2"}, {"/camera/2", {0.49f}, ""}, {"/camera/2", {}, "camera 2"},
        {"/camera/2", {true}, "camera 2"}, {"/camera/2", {false}, ""}, {"/camera/2", {1}, "camera 2"},
        {"/camera", {3.0f}, "camera 3"}, {"/camera", {0.0f}, ""}, {"/camera", {std::string("group")}, "camera group"},
        {"/scene/3", {1.0f}, "scene recall 3"}, {"/scene/store/2", {1}, "scene store 2"}, {"/scene/clear", {}, "scene clear"},
        {"/mode/white/ATW", {1.0f}, "mode white atw"}, {"/mode/white", {3}, "mode white 3"},
        {"/gain/value", {std::string("mid"), std::string("up")}, "gain value mid up"}, {"/auto/white", {0.0f}, ""},
        // The call button is held: its release lets go.
        {"/call", {true}, "call on"}, {"/call", {false}, "call off"}, {"/call", {0}, "call off"},
        // Faders and encoders.
        {"/level/iris", {12.4f}, "level iris 12"}, {"/level/iris", {-12}, "level iris -12"},
        {"/level/iris/step", {-1.0f}, "level iris step -1"}, {"/norm/level/iris", {0.25f}, "level iris norm 0.250000"},
        {"/function", {std::string("Gamma"), std::string("Gamma Mode"), std::string("FILM")},
         "function Gamma \"Gamma Mode\" FILM"},
        {"/function", {std::string("Knee"), std::string("Knee Point"), 128.0f}, "function Knee \"Knee Point\" 128"},
        // What cannot be a command.
        {"/norm/level/iris", {1.5f}, "", "/norm/ takes a level (/norm/level/NAME) and one number from 0.0 to 1.0"},
        {"/level/iris", {std::numeric_limits<float>::infinity()}, "", "argument 'f' is not a usable number"},
        {"/", {1}, "", "empty address"},
    };
    for (const Decoded& c : cases) {
        const OscCommand got = decode(c.address, c.args);
        SCOPED_TRACE(c.address + " -> " + c.line);
        EXPECT_EQ(got.error, c.error);
        EXPECT_EQ(got.text, c.line);
        EXPECT_EQ(got.ignored, c.line.empty() && c.error.empty());
    }
}

TEST(OscEncode, PushesAreTyped) {
    const std::pair<StateItem, std::string> cases[] = {
        {{"level iris", "12"}, "/level/iris 12"}, {{"mode bar", "-1"}, "/mode/bar -1"}, {{"tally", "on"}, "/tally 1"},
        {{"call", "off"}, "/call 0"}, {{"answer 3", "answering"}, "/answer/3 1"}, {{"answer 4", "not heard"}, "/answer/4 0"},
        {{"line", "connected"}, "/line 1"}, {{"line", "lost (device gone)"}, "/line 0"}, {{"filter", "5600K"}, "/filter 5600K"},
        {{"function item 1", "Gamma Mode: FILM"}, "/function/item/1 Gamma Mode: FILM"},
    };
    for (const auto& [item, text] : cases) EXPECT_EQ(describeOsc(encodeState(item)), text) << item.key;
}

}  // namespace
}  // namespace station::remote
