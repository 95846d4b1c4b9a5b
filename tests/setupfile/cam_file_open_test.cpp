#include <gtest/gtest.h>

#include "tests/setupfile/setup_rig.hpp"

namespace station {
namespace {

using testing::crlf;
using testing::SetupRig;

struct OpenRig : SetupRig {
    OpenRig() {
        folder.write("ab1.fcl", crlf({"[camera type]", "CODE=AB1", "[form control]", "GAIN=3", "[function menu]",
                                      "FS=Gamma", "M Gamma=20 40 FC", "F=System", "M Bars=20 44 FE"}));
        list();
        file.InitSet = [this] {
            // The refresh comes last, when the types of the loaded cameras are in place.
            refreshes.push_back(shared.cams.CamFclNo(1) + "/" + std::to_string(tables.FormGain(1)) + "/" +
                                stores.FuncScnData(0, 0, 0));
        };
    }
    std::vector<std::string> refreshes;
};

const std::string kStudio = crlf({"[system]", "ACK Check=1", "[camera type/ID]", "Camera 1=AB1|01", "Camera 2=ZZ9|02",
                                  "[function scene data]", "2040FC=01"});

TEST(CamFileOpen, LoadsMapsTypesLoadsDefinitionsThenRefreshes) {
    OpenRig rig;
    rig.dialogs.openAnswer = rig.folder.write("studio.csd", kStudio).string();
    rig.file.CamFileOpen();
    EXPECT_EQ(rig.dialogs.calls, std::vector<std::string>{"open Camera setup data files (*.csd)|*.csd|"});
    EXPECT_EQ(rig.file.FileName, *rig.dialogs.openAnswer);
    EXPECT_EQ(rig.shared.AckMode, 1);
    EXPECT_EQ(rig.messages.texts(), std::vector<std::string>{"There is loss file for Camera Contol"});  // ZZ9
    EXPECT_EQ(rig.refreshes, std::vector<std::string>{"1/3/1"});
    EXPECT_EQ(rig.stores.FuncScnData(1, 8, 4), "01");  // the file's row, found again by the load
    EXPECT_EQ(rig.stores.FuncData(1, 0), "2044FE");     // appended by the definition load
}

TEST(CamFileOpen, ACancelledDialogReadsTheCurrentFileAgain) {
    OpenRig rig;
    const auto path = rig.folder.write("studio.csd", kStudio);
    rig.dialogs.openAnswer = path.string();
    rig.file.CamFileOpen();
    rig.shared.AckMode = 0;
    rig.folder.write("studio.csd", crlf({"[system]", "Camera Select=1"}));

    rig.dialogs.openAnswer.reset();
    rig.file.CamFileOpen();
    EXPECT_EQ(rig.file.FileName, path.string());
    EXPECT_EQ(rig.shared.IDMode, 1);
    EXPECT_EQ(rig.shared.AckMode, 0);
    EXPECT_EQ(rig.refreshes.size(), 2U);
}

TEST(CamFileOpen, WithNoFileTheLoadFailsSilentlyAndTheRestRuns) {
    OpenRig rig;
    rig.shared.cams.CamType(4) = "AB1";
    rig.file.CamFileOpen();
    EXPECT_EQ(rig.file.FileName, "");
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_EQ(rig.shared.cams.CamFclNo(4), "1");
    EXPECT_EQ(rig.refreshes, std::vector<std::string>{"/3/1"});
}

}  // namespace
}  // namespace station
