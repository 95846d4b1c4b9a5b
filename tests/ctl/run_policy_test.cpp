// The rules of a run that nobody watches: it stops at the first failure, and every message is
// one line.
#include <gtest/gtest.h>

#include <sstream>

#include "ctl/command_run.hpp"
#include "ctl/exit_status.hpp"

namespace station::ctl {
namespace {

using Lines = std::vector<std::string>;

struct Ran {
    Lines commands;
    CommandRun run;
    std::string err;
};

Ran runWith(const Lines& commands, const std::string& failing, bool keepGoing) {
    Ran out;
    std::ostringstream err;
    out.run = runCommands(commands, keepGoing,
                          [&](const std::string& c) {
                              out.commands.push_back(c);
                              return c != failing;
                          },
                          err);
    out.err = err.str();
    return out;
}

TEST(CommandRun, StopsAtTheFirstFailureUnlessKeepGoing) {
    const Lines commands{"camera 9", "level iris 3", "write 3"};
    const Ran stopped = runWith(commands, "camera 9", false);
    EXPECT_EQ(stopped.commands, Lines{"camera 9"});
    EXPECT_TRUE(stopped.run.failed);
    EXPECT_EQ(stopped.err, "corvane-ctl: stopped after \"camera 9\" failed: 2 commands were not carried out "
                           "(--keep-going goes on)\n");

    const Ran going = runWith(commands, "camera 9", true);
    EXPECT_EQ(going.commands, commands);
    EXPECT_TRUE(going.run.failed);
    EXPECT_EQ(going.err, "");

    const Ran last = runWith(commands, "write 3", false);
    EXPECT_EQ(last.commands, commands);
    EXPECT_EQ(last.err, "");  // nothing was left out
    EXPECT_FALSE(runWith(commands, "none", false).run.failed);
}

TEST(RunMessages, OneLineEach) {
    EXPECT_EQ(oneLine("No such file or directory\rThe station works without the line."),
              "No such file or directory; The station works without the line.");
    EXPECT_EQ(oneLine("a\r\nb\n"), "a; b");
    EXPECT_EQ(oneLine("plain"), "plain");
}

}  // namespace
}  // namespace station::ctl
