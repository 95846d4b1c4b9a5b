// The remote command set against a station on a fake port: each command has the effect of
// the window gesture it stands for, refuses what the window would not allow, and reports
// what a surface shows when it changes.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "common/runtime_error.hpp"
#include "remote/command_words.hpp"
#include "tests/remote/remote_rig.hpp"

namespace station {
namespace {

using testing::RemoteRig;

// Remote lines on one station and the window's gestures on another leave both with the
// same frames queued, the same panel and the same stored settings.
TEST(Remote, SameEffectAsGesture) {
    const std::pair<std::vector<std::string>, std::function<void(RemoteRig&)>> cases[] = {
        {{"camera group", "scene recall 3", "level mblk 9", "scene store 4"},
         [](RemoteRig& r) {
             r.form1.Option9.click(0), r.form1.Option7.click(3), r.form1.VrMblk.setValue(9);
             r.form1.ScnStore.setValue(1), r.form1.Option7.click(4);
         }},
        {{"level rgain 7", "scene clear", "mode white ATW", "mode bar 1", "MODE Monitor pgm", "call on", "call off",
          "filter up", "filter down", "filter down", "auto black", "page read"},
         [](RemoteRig& r) {
             r.form1.VrRGain.setValue(7), r.form1.Command2.click(), r.form1.OptWhite.click(3);
             r.form1.OptBar.click(1), r.form1.OptMonsel.click(16), r.form1.Command9.mouseDown();
             r.form1.Command9.mouseUp(), r.form1.SpinButton2.spinUp(), r.form1.SpinButton2.spinDown();
             r.form1.SpinButton2.spinDown(), r.form1.Command7.click(), r.form1.Command12.click();
         }},
        {{"camera 3", "gain high", "level iris 20", "level mblk step -3", "level detail step 500",
          "gain value mid up 2", "GAIN VALUE high down", "gain value low up"},
         [](RemoteRig& r) {
             r.form1.Option9.click(3), r.form1.OptGain.click(2), r.form1.VrIris.setValue(20);
             r.form1.VrMblk.setValue(r.form1.VrMblk.value() - 3), r.form1.VrDtl.setValue(127);
             r.form1.SpinButton1(1).spinUp(), r.form1.SpinButton1(1).spinUp();
             r.form1.SpinButton1(2).spinDown(), r.form1.SpinButton1(0).spinUp();
         }},
        // Function items through the Function window's lists: the function, the item, its value.
        {{"camera 3", "function Gamma \"gamma mode\" FILM", "function Knee \"Knee Point\" 0x80",
          "function Matrix \"Matrix Table\" 4", "function Shutter \"Shutter Speed\" 1/50.5",
          "function Shutter \"Clear Scan\" step -3", "function output aspect 4:3", "page function"},
         [](RemoteRig& r) {
             Form2& f = r.form2;
             r.form1.Option9.click(3);
             f.List1.setListIndex(0), f.List2.setListIndex(0), f.List3.setListIndex(1);
             f.List1.setListIndex(2), f.List2.setListIndex(1), f.HScroll1.setValue(0x80);
             f.List1.setListIndex(1), f.List2.setListIndex(1), f.List3.setListIndex(3);
             f.List1.setListIndex(3), f.List2.setListIndex(1), f.List3.setListIndex(7);
             f.List2.setListIndex(2), f.HScroll1.setValue(f.HScroll1.value() - 3);
             f.List1.setListIndex(4), f.List2.setListIndex(1), f.List3.setListIndex(1);
             r.form1.Command3.click();
         }},
        {{"camera 5", "page send", "page function"},
         [](RemoteRig& r) { r.form1.Option9.click(5), r.form1.Command13.click(), r.form1.Command3.click(); }},
    };
    for (const auto& [lines, gesture] : cases) {
        SCOPED_TRACE(lines.front());
        RemoteRig remote;
        RemoteRig window;
        for (const std::string& line : lines) EXPECT_EQ(remote.commands.execute(line), "OK") << line;
        gesture(window);
        EXPECT_EQ(remote.takeQueued(), window.takeQueued());
        EXPECT_EQ(remote.commands.state(), window.commands.state());
        for (int camera = 0; camera <= kMaxCamera; ++camera)
            for (int scene = 0; scene <= 4; ++scene)
                for (int f = mBar; f <= mFILTER; ++f) ASSERT_EQ(remote.field(f, camera, scene), window.field(f, camera, scene));
    }
}

TEST(Remote, RefusesWithReason) {
    const std::pair<std::string, const char*> refused[] = {
        {"zoom 3", "ERR unknown command \"zoom\""},
        {"camera 9", "ERR camera must be from 0 to 8, not 9"},
        {"level iris 128", "ERR level must be a number from -128 to 127"},
        {"level gamma 1", "ERR no level \"gamma\""},
        {"mode white 4", "ERR mode white must be from 0 to 3, not 4"},
        {"scene recall 5", "ERR scene must be a number from 1 to 4"},
        {"call maybe", "ERR call state must be on or off"},
        {"open \"unclosed", "ERR quote not closed"},
        {"save notes.txt", "ERR only setup data files (*.csd)"},
        {"save", "ERR no setup file is open: name one"},
        {"function Gamma \"Gamma Mode\" SEPIA", "ERR \"Gamma Mode\" has no value \"SEPIA\""},
        {"function Gamma \"Gamma Level\" 256", "ERR \"Gamma Level\" must be from 0 to 255 (0x00 to 0xFF)"},
        {std::string(1025, 'x'), "ERR line too long"},
        {"camera \x01\x02", "ERR not a text line (control byte)"},
        {"camera \xff", "ERR not a text line (not UTF-8)"},
    };
    RemoteRig rig;
    rig.station.forgetFileName();
    EXPECT_EQ(rig.commands.execute("camera 3"), "OK");
    rig.takeQueued();
    for (const auto& [line, reply] : refused) EXPECT_EQ(rig.commands.execute(line).rfind(reply, 0), 0u) << line;

    // Camera 6 has no filter, tally or monitor: their groups are disabled, as on the window.
    EXPECT_EQ(rig.commands.execute("camera 6"), "OK");
    // BX4 keeps LOW fixed, and the GROUP position has no functions.
    for (const char* line : {"filter up", "call on", "mode monitor 3", "gain value low up"})
        EXPECT_EQ(rig.commands.execute(line).rfind("ERR", 0), 0u) << line;
    EXPECT_EQ(rig.commands.execute("camera group"), "OK");
    EXPECT_EQ(rig.commands.execute("function Gamma Knee 1").rfind("ERR the selected camera has no functions", 0), 0u);
    EXPECT_TRUE(rig.takeQueued().empty());
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_EQ(rig.commands.execute(""), "");
}

// Remote commands leave the window room for its largest gesture: on a queue remote commands
// have filled, "PC to Camera" of the largest page on any camera still fits, with no
// run-time error for the operator.
TEST(Remote, FullQueueRefusesSendsAndLeavesTheWindowItsPage) {
    RemoteRig rig;
    rig.port.close();
    const int largest = rig.readout.largestPageSend();
    const int limit = std::min(200, SendQueue::kCapacity - largest);
    EXPECT_GE(largest, 15 + 8);  // the main page and a function page at least
    for (int i = 0; i < limit; ++i) rig.form1.OptBar.click(1 - rig.form1.OptBar.selected());
    EXPECT_EQ(rig.commands.execute("level iris 3"), "OK");
    EXPECT_EQ(rig.commands.execute("level iris 4"),
              "ERR queue full: " + std::to_string(limit + 1) + " frames waiting, try again");
    EXPECT_EQ(rig.commands.execute("get queue"), "OK queue " + std::to_string(limit + 1));

    // Without a limit of its own, only the window's room holds remote commands back.
    remote::CommandSet wide(rig.station, rig.preset, {std::nullopt, SendQueue::kCapacity});
    for (int camera = 1; camera <= 8; ++camera) {
        SCOPED_TRACE(camera);
        (void)rig.actions.dropQueued();
        EXPECT_EQ(wide.execute("camera " + std::to_string(camera)), "OK");
        for (int i = 0; i < 300 && wide.execute(i % 2 ? "mode bar 1" : "mode bar 0") == "OK";) ++i;
        const int before = rig.readout.queued();
        if (before == 0) continue;  // a camera without an ID is sent nothing in ID mode
        EXPECT_EQ(before, SendQueue::kCapacity - largest + 1);
        (void)rig.actions.sendPage();  // a camera without a type has no page
        EXPECT_LE(rig.readout.queued() - before, largest);
        // (A camera without an ID is told "No Camera ID" by the station's own rule.)
        for (const auto& told : rig.messages.shown) EXPECT_EQ(told.text.find("Run-time error"), std::string::npos) << told.text;
    }
}

TEST(Remote, PushesPanelAndAutoResult) {
    RemoteRig rig;
    EXPECT_TRUE(rig.commands.changes().empty());
    rig.commands.execute("level iris 12");
    EXPECT_EQ(rig.commands.changes(), (remote::StateList{{"level iris", "12"}}));
    rig.form1.OptBar.click(1);  // the operator's own click is reported too
    EXPECT_EQ(rig.commands.changes(), (remote::StateList{{"mode bar", "1"}}));

    rig.commands.execute("auto white");
    EXPECT_EQ(rig.commands.changes(),
              (remote::StateList{{"auto", "AUTO WHITE: Now doing"}, {"auto window", "on"}}));
    rig.run(200);
    rig.port.arrive(testing::reply("40 10 02"));
    rig.run(100);
    EXPECT_EQ(rig.commands.changes(),
              (remote::StateList{{"auto", "AUTO WHITE: OK : COLOR TEMP.=5600K"}, {"answer 1", "answering"}}));
    rig.run(2000);  // the fake line acknowledges nothing further
    EXPECT_EQ(rig.commands.changes(), (remote::StateList{{"auto window", "off"}, {"answer 1", "not answering"}}));

    rig.commands.execute("camera 3");
    const remote::StateList changed = rig.commands.changes();
    EXPECT_EQ(changed.front(), (remote::StateItem{"camera", "3"}));
    EXPECT_GT(changed.size(), 5u);
    EXPECT_EQ(rig.commands.execute("get level iris"), "OK level iris " + rig.form1.Label2.Caption);
    EXPECT_EQ(rig.commands.execute("get type"), "OK type HD3");
}

TEST(Remote, PushesFunctionLineAnswers) {
    RemoteRig rig;
    EXPECT_EQ(rig.commands.execute("camera 3"), "OK");
    rig.run(200);
    rig.commands.changes();
    // An action item is run from its list of actions, as in the Function window.
    EXPECT_EQ(rig.commands.execute("function output \"auto setup\" \"auto flare\""), "OK");
    EXPECT_EQ(rig.commands.execute("function Gamma \"Gamma Mode\" cine"), "OK");
    const remote::StateList page = rig.commands.changes();
    EXPECT_NE(std::find(page.begin(), page.end(), remote::StateItem{"function item 1", "Gamma Mode: CINE"}), page.end());
    EXPECT_EQ(rig.commands.execute("get function gamma \"gamma mode\""), "OK function Gamma \"Gamma Mode\" CINE");
    EXPECT_EQ(rig.commands.execute("get function"), "OK function Gamma");
    EXPECT_EQ(rig.commands.execute("get function item 2"), "OK function item 2 \"" + rig.form2.List2.list(1) + "\"");

    rig.run(40);
    rig.port.arrive(testing::wire("06"));  // camera 3 acknowledges the item
    rig.run(40);
    EXPECT_EQ(rig.commands.changes(), (remote::StateList{{"answer 3", "answering"}}));
    EXPECT_EQ(rig.commands.execute("get answers"),
              "OK answers 1 \"not heard\"; 2 \"not heard\"; 3 answering; 4 \"not heard\"; 5 \"not heard\"; "
              "6 \"not heard\"; 7 \"not heard\"; 8 \"not heard\"");
    rig.port.hungUp = true;
    rig.run(200);
    EXPECT_EQ(rig.commands.changes().front(), (remote::StateItem{"line", rig.readout.lineState()}));
    EXPECT_EQ(rig.commands.execute("get line"), "OK line \"" + rig.readout.lineState() + "\"");
    EXPECT_EQ(rig.readout.lineState().rfind("lost (", 0), 0u);
}

// A script splits every reply as the command line is split: the name's words, then the value
// as one word (quoted when it holds blanks or is empty); help is one command a line.
TEST(Remote, RepliesSplitIntoWords) {
    RemoteRig rig;
    rig.commands.execute("camera 3");
    rig.commands.execute("function Gamma \"Gamma Mode\" cine");
    EXPECT_EQ(rig.commands.execute("save \"show one.csd\""), "OK");
    std::vector<remote::StateItem> items = rig.commands.state();
    items.push_back({"file", rig.readout.fileName()});
    int withBlanks = 0;
    for (const remote::StateItem& item : items) {
        const std::string reply = rig.commands.execute("get " + item.key);
        std::vector<std::string> words = remote::splitWords(reply);
        const std::vector<std::string> key = remote::splitWords(item.key);
        ASSERT_EQ(words.size(), key.size() + 2) << reply;
        EXPECT_EQ(words.front(), "OK");
        EXPECT_TRUE(std::equal(key.begin(), key.end(), words.begin() + 1)) << reply;
        EXPECT_EQ(words.back(), item.value) << reply;
        withBlanks += item.value.find(' ') != std::string::npos;
    }
    EXPECT_GT(withBlanks, 3);
    const std::string help = rig.commands.execute("help");
    std::vector<std::string> lines{""};
    for (const char c : help) {
        if (c == '\n') lines.emplace_back();
        else lines.back().push_back(c);
    }
    ASSERT_EQ(lines.size(), rig.commands.usage().size() + 2) << help;  // OK, the commands, the blank line's start
    EXPECT_EQ(lines.front(), "OK");
    EXPECT_EQ(lines[1], "auth PASSCODE (from beyond this computer, before any other command)");
    EXPECT_EQ(lines.back(), "");  // the transport's line end makes the blank line
    EXPECT_TRUE(std::none_of(lines.begin() + 1, lines.end() - 1, [](const std::string& l) { return l.empty(); }));
}

// A fader's position as a fraction of the level's range.
TEST(Remote, LevelAsFractionOfItsRange) {
    RemoteRig rig;
    const std::pair<const char*, int> cases[] = {{"0", -128}, {"1", 127}, {"0.5", 0}, {"0.25", -64}, {"1.0", 127}};
    for (const auto& [fraction, level] : cases) {
        EXPECT_EQ(rig.commands.execute(std::string("level mblk norm ") + fraction), "OK");
        EXPECT_EQ(rig.form1.VrMblk.value(), level) << fraction;
        rig.takeQueued();  // the frame leaves, as on a line that answers
    }
    EXPECT_EQ(rig.commands.execute("level mblk norm 1.5").rfind("ERR ", 0), 0u);
}

// An encoder on a function level: while its frame waits, steps add up on the kept value and
// one frame goes when the first has gone, ending where unpaced steps end.
TEST(Remote, FunctionLevelStepsArePaced) {
    RemoteRig paced, plain;
    for (RemoteRig* rig : {&paced, &plain}) {
        EXPECT_EQ(rig->commands.execute("camera 3"), "OK");
        EXPECT_EQ(rig->commands.execute("function Knee \"Knee Point\" 0x80"), "OK");
        rig->takeQueued();
    }
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(paced.commands.execute("function Knee \"Knee Point\" step 1"), "OK");
        EXPECT_EQ(plain.commands.execute("function Knee \"Knee Point\" step 1"), "OK");
        plain.takeQueued();
    }
    EXPECT_EQ(paced.takeQueued().size(), 1u);  // the first step; the rest is kept
    paced.commands.beforePoll();
    EXPECT_EQ(paced.takeQueued().size(), 1u);
    const std::string get = "get function Knee \"Knee Point\"";
    EXPECT_EQ(paced.commands.execute(get), plain.commands.execute(get));
    EXPECT_NE(paced.commands.execute(get), "OK function Knee \"Knee Point\" 80");
}

TEST(Remote, FilesInAllowedFolder) {
    RemoteRig rig;
    EXPECT_EQ(rig.commands.execute("level mblk 11"), "OK");
    EXPECT_EQ(rig.commands.execute("save \"show one.csd\""), "OK");
    EXPECT_EQ(rig.readout.fileName(), (rig.folder / "show one.csd").string());
    EXPECT_EQ(rig.commands.execute("level mblk 3"), "OK");
    EXPECT_EQ(rig.commands.execute("scene store 1"), "OK");
    EXPECT_EQ(rig.commands.execute("save"), "OK");
    EXPECT_EQ(rig.commands.execute("level mblk 50"), "OK");
    EXPECT_EQ(rig.commands.execute("open \"show one.csd\""), "OK");
    EXPECT_EQ(rig.commands.execute("get level mblk"), "OK level mblk 3");
    EXPECT_EQ(rig.commands.execute("open missing.csd").rfind("ERR no such file", 0), 0u);
    EXPECT_EQ(rig.dialogs.calls.size(), 1u);  // the rig's own opening of the studio: no dialog since
}

// A save names a file, never what a link planted under its name points to; a failure is the
// client's reply, and the operator's screen stays clear.
TEST(Remote, SaveRefusesLinks) {
    namespace fs = std::filesystem;
    RemoteRig rig;
    testing::TempFolder outside;
    const auto victim = outside.write("victim.csd", "outside");
    fs::create_symlink(victim, rig.folder / "linked.csd");
    EXPECT_EQ(rig.commands.execute("save linked.csd"), "ERR linked.csd is a symbolic link: not saved");

    EXPECT_EQ(rig.commands.execute("save show.csd"), "OK");

    // The open file became a link since, even to a file inside: the station refuses and says why.
    const auto other = rig.folder.write("other.csd", "other");
    fs::remove(rig.folder / "show.csd");
    fs::create_symlink(other, rig.folder / "show.csd");
    // The station's words are the client's reply, not a box on the operator's screen.
    const std::string reply = rig.commands.execute("save");
    EXPECT_EQ(reply.rfind("ERR ", 0), 0u) << reply;
    EXPECT_NE(reply.find("show.csd is a symbolic link"), std::string::npos) << reply;
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_EQ(testing::readBytes(other), "other");
    EXPECT_EQ(testing::readBytes(victim), "outside");
    EXPECT_EQ(rig.commands.execute("save \"no such folder/show.csd\"").rfind("ERR The setup data file could not be saved: ", 0), 0u);
    EXPECT_TRUE(rig.messages.shown.empty());
    rig.station.HELP_Click();  // the operator's own gesture still shows its box
    EXPECT_EQ(rig.messages.shown.size(), 1u);
}

// Only well-formed UTF-8 is a text line: no surrogate halves, no overlong forms, nothing
// above U+10FFFF, no sequence cut short.
TEST(Remote, Utf8Lines) {
    for (const char* good : {"\xC3\xA9", "\xED\x9F\xBF", "\xEE\x80\x80", "\xEF\xBF\xBF", "\xF0\x90\x80\x80",
                             "\xF4\x8F\xBF\xBF", "\xE0\xA0\x80"})
        EXPECT_EQ(remote::lineProblem(std::string("open ") + good), std::nullopt) << good;
    for (const char* bad : {"\xED\xA0\x80", "\xED\xBF\xBF", "\xE0\x80\xAF", "\xE0\x9F\xBF", "\xC0\xAF", "\xC1\xBF",
                            "\xF0\x80\x80\xAF", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80",
                            "\xE2\x82", "\xC3(", "\x80"})
        EXPECT_EQ(remote::lineProblem(std::string("open ") + bad), "not a text line (not UTF-8)") << bad;
}

// Whatever a command raises, it ends with an answer and the next command works.
TEST(Remote, EveryCommandEndsAndTheNextWorks) {
    RemoteRig rig;
    rig.commands.add({"boom", "boom", true, [](remote::Words&) -> std::string { throw RuntimeError::subscriptOutOfRange(); }});
    rig.commands.add({"crash", "crash", false, [](remote::Words&) { return std::string("short").substr(9); }});
    EXPECT_EQ(rig.commands.execute("boom"), "ERR Run-time error 9: Subscript out of range");
    EXPECT_EQ(rig.commands.execute("get camera"), "OK camera 1");
    EXPECT_EQ(rig.commands.execute("crash").rfind("ERR internal error: ", 0), 0u);
    EXPECT_EQ(rig.commands.execute("camera 2"), "OK");
    EXPECT_EQ(rig.commands.execute("get camera"), "OK camera 2");
}

// A box on the operator's screen: reading goes on, acting is refused with the box's text,
// every surface hears it open and close, and "box ok" closes it.
TEST(Remote, WhileABoxIsUp) {
    RemoteRig rig;
    std::optional<std::string> box;
    int closed = 0;
    rig.commands.box = [&] { return box; };
    rig.commands.closeBox = [&] {
        ++closed;
        box.reset();
        return true;
    };
    EXPECT_EQ(rig.commands.execute("box ok"), "ERR no box is up");
    box = "No Acknowledge";
    EXPECT_EQ(rig.commands.changes(), (remote::StateList{{"box", "No Acknowledge"}}));
    EXPECT_EQ(rig.commands.execute("get line"), "OK line connected");
    EXPECT_EQ(rig.commands.execute("help").rfind("OK", 0), 0u);
    for (const char* acting : {"camera 2", "level iris 5", "open studio.csd", "mode bar 1"})
        EXPECT_EQ(rig.commands.execute(acting), "ERR box: No Acknowledge") << acting;
    EXPECT_TRUE(rig.takeQueued().empty());
    EXPECT_EQ(rig.commands.execute("box cancel"), "ERR box takes ok, not \"cancel\"");
    EXPECT_EQ(rig.commands.execute("box ok"), "OK");
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(rig.commands.changes(), (remote::StateList{{"box", "closed"}}));
    EXPECT_EQ(rig.commands.execute("camera 2"), "OK");
}

}  // namespace
}  // namespace station
