#pragma once
// The setup data file ("*.csd"): opening, loading, saving, and the open sequence that ties
// the loaded cameras to their types and loads the type definitions.

#include <functional>
#include <string>
#include <string_view>

#include "camtype/camera_types.hpp"
#include "camtype/setting_stores.hpp"
#include "common/controls.hpp"
#include "common/messages.hpp"
#include "common/shared.hpp"
#include "setupfile/file_dialogs.hpp"
#include "setupfile/file_writer.hpp"

namespace station {

class SetupFile {
public:
    SetupFile(Shared& shared, SettingStores& stores, CameraTypes& types, MessageSink& messages,
              FileDialogs& dialogs, FileWriter& writer);

    // The path of the current setup data file; "" until a file was opened or saved.
    std::string FileName;

    // The last step of CamFileOpen: the refresh of every window (the station's InitSet).
    std::function<void()> InitSet;

    // OPEN: CsdOpen, CsdLoad, the type mapping (FclDataSet), the definitions (FclLoad), and
    // InitSet. A cancelled dialog reloads the current file; with none, the load does nothing.
    void CamFileOpen();

    // The open dialog; a choice becomes FileName, a cancel leaves it as it was.
    void CsdOpen();

    // Reads FileName into the stores and the camera settings. A missing or unreadable file,
    // or a line that cannot be taken apart, ends the load silently where it is.
    void CsdLoad();

    // CsdLoad's reading of a file's content. A malformed line raises the runtime's error.
    void loadText(std::string_view text);

    // Writes every setting to FileName, replacing the file only once the new one is
    // complete; on failure the operator is told why and the old file is untouched.
    void CsdSave();

    // The save dialog, then CsdSave to the chosen path; a cancel saves nothing.
    void CsdSave_New();

    void SAVE_Click();     // CsdSave to the current file, or CsdSave_New when there is none
    void SAVE_AS_Click();  // CsdSave_New

    // A diagnostic listing of the settings as a save would write them, less the
    // "Camera Select=" line, the scene numbers and the end mark; writes no file.
    void CsdSave_Mon(ListBox& list) const;

private:
    Shared& shared_;
    SettingStores& stores_;
    CameraTypes& types_;
    MessageSink& messages_;
    FileDialogs& dialogs_;
    FileWriter& writer_;
};

}  // namespace station
