// The remote command set against a station on a fake port: each command has the effect of
// the window gesture it stands for, refuses what the window would not allow, and reports
// what a surface shows when it changes.
#include <gtest/gtest.h>

#include <functional>

#include "tests/remote/remote_rig.hpp"

namespace station {
namespace {

using testing::RemoteRig;
using Gesture = std::function<void(Station&)>;

struct Case {
    std::vector<std::string> lines;
    Gesture gesture;
};

// The remote lines on one station and the window gestures on another leave both with the
// same frames queued, the same panel and the same stored settings.
TEST(RemoteCommands, EachCommandDoesWhatItsGestureDoes) {
    const Case cases[] = {
        {{"camera 2"}, [](Station& s) { s.form1.Option9.click(2); }},
        {{"camera group"}, [](Station& s) { s.form1.Option9.click(0); }},
        {{"scene recall 3"}, [](Station& s) { s.form1.Option7.click(3); }},
        {{"level mblk 9", "scene store 4"},
         [](Station& s) {
             s.form1.VrMblk.setValue(9);
             s.form1.ScnStore.setValue(1);
             s.form1.Option7.click(4);
         }},
        {{"level rgain 7", "scene clear"},
         [](Station& s) {
             s.form1.VrRGain.setValue(7);
             s.scenes.Command2_Click();
         }},
        {{"mode white ATW", "mode bar 1", "MODE Monitor pgm"},
         [](Station& s) {
             s.form1.OptWhite.click(3);
             s.form1.OptBar.click(1);
             s.form1.OptMonsel.click(16);
         }},
        {{"camera 3", "gain high"},
         [](Station& s) {
             s.form1.Option9.click(3);
             s.form1.OptGain.click(2);
         }},
        {{"level iris 20", "level mblk step -3", "level detail step 500"},
         [](Station& s) {
             s.form1.VrIris.setValue(20);
             s.form1.VrMblk.setValue(s.form1.VrMblk.value() - 3);
             s.form1.VrDtl.setValue(127);
         }},
        {{"filter up", "filter down", "filter down"},
         [](Station& s) {
             s.panel.SpinButton2_SpinUp();
             s.panel.SpinButton2_SpinDown();
             s.panel.SpinButton2_SpinDown();
         }},
        {{"call on", "call off"},
         [](Station& s) {
             s.panel.Command9_MouseDown();
             s.panel.Command9_MouseUp();
         }},
        {{"auto black"}, [](Station& s) { s.autoSetup.Command7_Click(); }},
        {{"page read"}, [](Station& s) { s.pages.Command12_Click(); }},
        {{"camera 5", "page send", "page function"},
         [](Station& s) {
             s.form1.Option9.click(5);
             s.pages.Command13_Click();
             s.pages.Command3_Click();
         }},
    };
    for (const Case& c : cases) {
        RemoteRig remote;
        RemoteRig window;
        for (const std::string& line : c.lines) EXPECT_EQ(remote.commands.execute(line), "OK") << line;
        c.gesture(window.station);
        SCOPED_TRACE(c.lines.front());
        EXPECT_EQ(remote.takeQueued(), window.takeQueued());
        EXPECT_EQ(remote.commands.state(), window.commands.state());
        for (int camera = 0; camera <= kMaxCamera; ++camera)
            for (int scene = 0; scene <= 4; ++scene)
                for (int f = mBar; f <= mFILTER; ++f)
                    ASSERT_EQ(remote.station.stores.MainScnData(f, camera, scene),
                              window.station.stores.MainScnData(f, camera, scene));
    }
}

TEST(RemoteCommands, RefusesWhatTheWindowWouldNotDoWithAReason) {
    const std::pair<std::string, const char*> refused[] = {
        {"zoom 3", "ERR unknown command \"zoom\""},
        {"camera 9", "ERR camera must be from 0 to 8, not 9"},
        {"camera", "ERR missing camera after \"camera\""},
        {"camera 2 3", "ERR unexpected \"3\""},
        {"level iris 128", "ERR level must be a number from -128 to 127"},
        {"level gamma 1", "ERR no level \"gamma\""},
        {"level iris step x", "ERR step must be a number"},
        {"mode white 4", "ERR mode white must be from 0 to 3, not 4"},
        {"mode white sunny", "ERR mode white has no button \"sunny\""},
        {"scene recall 5", "ERR scene must be a number from 1 to 4"},
        {"call maybe", "ERR call state must be on or off"},
        {"open \"unclosed", "ERR quote not closed"},
        {"open ../elsewhere.csd", "ERR only files inside the allowed folder"},
        {"open /etc/passwd", "ERR only files inside the allowed folder"},
        {"save notes.txt", "ERR only setup data files (*.csd)"},
        {"save", "ERR no setup file is open: name one"},
        {"get colour", "ERR nothing called \"colour\""},
        {std::string(1025, 'x'), "ERR line too long"},
        {"camera \x01\x02", "ERR not a text line (control byte)"},
        {"camera \xff", "ERR not a text line (not UTF-8)"},
    };
    RemoteRig rig;
    rig.station.setupFile.FileName.clear();
    for (const auto& [line, reply] : refused) EXPECT_EQ(rig.commands.execute(line).rfind(reply, 0), 0u) << line;

    // Camera 6 has no filter, tally or monitor: their groups are disabled, as on the window.
    EXPECT_EQ(rig.commands.execute("camera 6"), "OK");
    for (const char* line : {"filter up", "call on", "mode monitor 3"})
        EXPECT_EQ(rig.commands.execute(line).rfind("ERR", 0), 0u) << line;
    EXPECT_TRUE(rig.takeQueued().empty());
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_EQ(rig.commands.execute(""), "");
}

TEST(RemoteCommands, AFullQueueRefusesWhatCouldSendButNotWhatReads) {
    RemoteRig rig;
    rig.port.close();
    for (int i = 0; i < 201; ++i) rig.station.link.SendCmd("200801FE");
    EXPECT_EQ(rig.commands.execute("level iris 3"), "ERR queue full: 201 frames waiting, try again");
    EXPECT_EQ(rig.commands.execute("get queue"), "OK queue 201");
    rig.station.link.queue().SendBuffShift();
    EXPECT_EQ(rig.commands.execute("level iris 3"), "OK");
}

TEST(RemoteCommands, ReportsEveryChangeASurfaceShowsAndTheAutoResultWhenItArrives) {
    RemoteRig rig;
    EXPECT_TRUE(rig.commands.changes().empty());
    rig.commands.execute("level iris 12");
    EXPECT_EQ(rig.commands.changes(), (remote::StateList{{"level iris", "12"}}));
    rig.station.form1.OptBar.click(1);  // the operator's own click is reported too
    EXPECT_EQ(rig.commands.changes(), (remote::StateList{{"mode bar", "1"}}));

    rig.commands.execute("auto white");
    EXPECT_EQ(rig.commands.changes(),
              (remote::StateList{{"auto", "AUTO WHITE: Now doing"}, {"auto window", "on"}}));
    rig.run(200);
    rig.port.arrive(testing::reply("40 10 02"));
    rig.run(100);
    EXPECT_EQ(rig.commands.changes(), (remote::StateList{{"auto", "AUTO WHITE: OK : COLOR TEMP.=5600K"}}));
    rig.run(2000);
    EXPECT_EQ(rig.commands.changes(), (remote::StateList{{"auto window", "off"}}));

    rig.commands.execute("camera 3");
    const remote::StateList changed = rig.commands.changes();
    EXPECT_EQ(changed.front(), (remote::StateItem{"camera", "3"}));
    EXPECT_GT(changed.size(), 5u);
    EXPECT_EQ(rig.commands.execute("get level iris"), "OK level iris " + rig.station.form1.Label2.Caption);
    EXPECT_EQ(rig.commands.execute("get type"), "OK type HD3");
}

TEST(RemoteCommands, SavesAndOpensSetupFilesInTheAllowedFolderThroughTheFileMenu) {
    RemoteRig rig;
    EXPECT_EQ(rig.commands.execute("level mblk 11"), "OK");
    EXPECT_EQ(rig.commands.execute("save \"show one.csd\""), "OK");
    EXPECT_EQ(rig.station.setupFile.FileName, (rig.folder / "show one.csd").string());
    EXPECT_EQ(rig.commands.execute("level mblk 3"), "OK");
    EXPECT_EQ(rig.commands.execute("scene store 1"), "OK");
    EXPECT_EQ(rig.commands.execute("save"), "OK");
    EXPECT_EQ(rig.commands.execute("level mblk 50"), "OK");
    EXPECT_EQ(rig.commands.execute("open \"show one.csd\""), "OK");
    EXPECT_EQ(rig.commands.execute("get level mblk"), "OK level mblk 3");
    EXPECT_EQ(rig.commands.execute("open missing.csd").rfind("ERR no such file", 0), 0u);
    EXPECT_TRUE(rig.fake.calls.empty());  // no dialog was ever shown
}

}  // namespace
}  // namespace station
