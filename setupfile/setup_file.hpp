#pragma once
// The setup data file ("*.csd"): opening, loading, saving, and the open sequence that ties
// the loaded cameras to their types and loads the type definitions.

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "camtype/camera_types.hpp"
#include "camtype/setting_stores.hpp"
#include "common/controls.hpp"
#include "common/messages.hpp"
#include "common/runtime_error.hpp"
#include "common/shared.hpp"
#include "setupfile/file_dialogs.hpp"
#include "setupfile/file_writer.hpp"

namespace station {

// The path with ".csd" added unless it ends in that extension already (in any case).
std::string withSetupExtension(const std::string& path);

class SetupFile {
public:
    SetupFile(Shared& shared, SettingStores& stores, CameraTypes& types, MessageSink& messages,
              FileDialogs& dialogs, FileWriter& writer);

    // The path of the current setup data file; "" until a file was opened or saved.
    std::string FileName;

    // The last step of CamFileOpen: the refresh of every window (the station's InitSet).
    std::function<void()> InitSet;

    // Raised when FileName was set by a dialog or by setFileName (the window's title names it).
    std::function<void()> FileNameChanged;
    // Raised with FileName after it was read or written whole (the desktop program keeps a
    // list of recent files).
    std::function<void(const std::string&)> FileUsed;
    // A word to the operator that needs no answer: where the previous version was kept; what
    // a load left out (lines not understood, a load stopped by the runtime's error).
    std::function<void(const std::string&)> Notify;

    // Makes `name` the current file, as a dialog's choice would, without reading it.
    void setFileName(std::string name);

    // OPEN: CsdOpen, CsdLoad, the type mapping (FclDataSet), the definitions (FclLoad), and
    // InitSet. A cancelled dialog reloads the current file; with none, the load does nothing.
    void CamFileOpen();

    // The open dialog; a choice becomes FileName, a cancel leaves it as it was.
    void CsdOpen();

    // Reads FileName into the stores and the camera settings. A missing or unreadable file,
    // or a line that cannot be taken apart, ends the load silently where it is. The answer
    // is whether the file could be read (whole or in part).
    bool CsdLoad();

    // CsdLoad's reading of a file's content. A malformed line raises the runtime's error.
    void loadText(std::string_view text);

    // Writes every setting to FileName, replacing the file only once the new one is
    // complete and on the disk; the replaced version is kept as "<name>.bak". On failure the
    // operator is told why and the old file is untouched. When the replaced file did not
    // look like setup data (no "[system]" line), the operator is told where its backup is.
    void CsdSave();

    // The save dialog, then CsdSave to the chosen path; a cancel saves nothing. A name
    // without the ".csd" extension gets it (OPEN lists only those), and an existing file is
    // replaced only when the operator agrees.
    void CsdSave_New();

    void SAVE_Click();     // CsdSave to the current file, or CsdSave_New when there is none
    void SAVE_AS_Click();  // CsdSave_New

    // Whether SAVE would write other bytes than the open file holds (as it was read or
    // last written); with no file open, whether the settings differ from those at
    // start-up. The working copy is not part of a file (only STORE puts it into a scene).
    // Settings that cannot be listed (a store beyond its rows) count as a change.
    bool modified() const;
    // Takes the present settings as the saved ones (at start-up, with nothing to lose).
    void rememberSaved();

    // A diagnostic listing of the settings as a save would write them, less the
    // "Camera Select=" line, the scene numbers and the end mark; writes no file.
    void CsdSave_Mon(ListBox& list) const;

private:
    // Where the load is, and the lines it leaves out, for the words after it.
    struct LoadTrace {
        long line = 0;  // the line being read, from 1
        long row = 0;   // the function row it fills, 0 for none
        long ignored = 0;
        long firstIgnored = 0;
        std::string firstText;
        void leftOut(std::string_view text);
    };
    static bool knownSection(std::string_view section);
    void tellLoad(const RuntimeError* stop) const;

    Shared& shared_;
    SettingStores& stores_;
    CameraTypes& types_;
    MessageSink& messages_;
    FileDialogs& dialogs_;
    FileWriter& writer_;
    LoadTrace trace_;
    // The bytes the open file holds, or the settings' text at start-up.
    std::string held_;
    std::string loaded_;  // the bytes of the file the last load read
};

}  // namespace station
