// camera-sim refuses an option it cannot use in the words corvane-ctl and the desktop
// program use for the same mistake.
#include <gtest/gtest.h>

#include <stdexcept>

#include "sim/tool/tool_options.hpp"

namespace station::sim {
namespace {

TEST(ToolOptions, RefusedInTheStationsWords) {
    const std::pair<std::vector<std::string>, const char*> bad[] = {
        {{"--camera"}, "--camera needs a value"},
        {{"--colour"}, "unknown option --colour"},
        {{"--trace=yes"}, "--trace takes no value"},
        {{"9600"}, "unknown argument: 9600"},
        {{"--setup", "/nonexistent/studio.csd"}, "--setup /nonexistent/studio.csd: cannot read the file"},
        {{"--speed", "4800"}, "--speed: 9600 or 19200"},
        {{"--link="}, "--link needs a path"},
    };
    for (const auto& [args, text] : bad) {
        try {
            parseToolOptions(args);
            ADD_FAILURE() << text << ": accepted";
        } catch (const std::invalid_argument& e) {
            EXPECT_STREQ(e.what(), text);
        }
    }
}

}  // namespace
}  // namespace station::sim
