#include "setupfile/setup_file.hpp"

#include "camtype/text_lines.hpp"
#include "setupfile/setup_text.hpp"

namespace station {

SetupFile::SetupFile(Shared& shared, SettingStores& stores, CameraTypes& types, MessageSink& messages,
                     FileDialogs& dialogs, FileWriter& writer)
    : shared_(shared), stores_(stores), types_(types), messages_(messages), dialogs_(dialogs), writer_(writer) {}

void SetupFile::CamFileOpen() {
    CsdOpen();
    CsdLoad();
    types_.FclDataSet();
    types_.FclLoad();
    if (InitSet) InitSet();
}

void SetupFile::CsdOpen() {
    if (const auto chosen = dialogs_.openFile(kSetupFileFilter)) FileName = *chosen;
}

void SetupFile::CsdLoad() {
    const auto text = readTextFile(FileName);
    if (!text) return;
    try {
        loadText(*text);
    } catch (const RuntimeError&) {
        // What was read stays; the rest of the file is not read.
    }
}

void SetupFile::CsdSave() {
    const std::string text = setupText(shared_, stores_);
    if (const auto reason = saveReplacing(writer_, FileName, text))
        messages_.show("The setup data file could not be saved: " + *reason, Icon::Exclamation);
}

void SetupFile::CsdSave_New() {
    const auto chosen = dialogs_.saveFile(kSetupFileFilter);
    if (!chosen) return;
    FileName = *chosen;
    CsdSave();
}

void SetupFile::SAVE_Click() {
    if (!FileName.empty()) CsdSave();
    else CsdSave_New();
}

void SetupFile::SAVE_AS_Click() { CsdSave_New(); }

void SetupFile::CsdSave_Mon(ListBox& list) const {
    list.clear();
    for (std::string& line : setupLines(shared_, stores_, SetupListing::Monitor)) list.addItem(std::move(line));
}

}  // namespace station
