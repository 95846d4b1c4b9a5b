#include "setupfile/setup_file.hpp"

#include <system_error>

#include "camtype/text_lines.hpp"
#include "common/runtime_error.hpp"
#include "common/vb_conv.hpp"
#include "setupfile/setup_text.hpp"

namespace station {

namespace {

// Whether a file holds the "[system]" line every setup data file starts with. A file too
// big to be setup data is not read.
bool looksLikeSetupFile(const std::filesystem::path& path) {
    constexpr std::uintmax_t kLargest = 4u << 20;
    std::error_code ec;
    const auto size = std::filesystem::file_size(path, ec);
    if (ec || size > kLargest) return false;
    const auto text = readTextFile(path);
    if (!text) return false;
    bool found = false;
    forEachLine(withoutByteOrderMark(*text), [&](std::string_view line) { found = found || line == "[system]"; });
    return found;
}

}  // namespace

std::string withSetupExtension(const std::string& path) {
    const std::string ext = std::filesystem::path(path).extension().string();
    const bool csd = ext.size() == 4 && ext[0] == '.' && (ext[1] | 0x20) == 'c' && (ext[2] | 0x20) == 's' &&
                     (ext[3] | 0x20) == 'd';
    return csd ? path : path + ".csd";
}

SetupFile::SetupFile(Shared& shared, SettingStores& stores, CameraTypes& types, MessageSink& messages,
                     FileDialogs& dialogs, FileWriter& writer)
    : shared_(shared), stores_(stores), types_(types), messages_(messages), dialogs_(dialogs), writer_(writer) {}

void SetupFile::CamFileOpen() {
    CsdOpen();
    const bool read = CsdLoad();
    types_.FclDataSet();
    types_.FclLoad();
    if (InitSet) InitSet();
    // From here a SAVE that would write other bytes than the file holds marks the title.
    if (read) held_ = std::move(loaded_);
}

bool SetupFile::modified() const {
    try {
        return !setupTextIs(shared_, stores_, held_);
    } catch (const RuntimeError&) {
        return true;
    }
}

void SetupFile::rememberSaved() {
    try {
        held_ = setupText(shared_, stores_);
    } catch (const RuntimeError&) {
        held_.clear();
    }
}

void SetupFile::setFileName(std::string name) {
    FileName = std::move(name);
    if (FileNameChanged) FileNameChanged();
}

void SetupFile::CsdOpen() {
    if (const auto chosen = dialogs_.openFile(kSetupFileFilter)) setFileName(*chosen);
}

bool SetupFile::CsdLoad() {
    // What an interrupted save of this file left beside it goes, whether or not the file
    // was used before.
    removeStaleSaving(writer_, FileName);
    auto text = readTextFile(FileName);
    if (!text) return false;
    loaded_ = std::move(*text);
    try {
        loadText(loaded_);
    } catch (const RuntimeError& e) {
        // What was read stays; the rest of the file is not read. No box: a word in passing.
        tellLoad(&e);
        return true;
    }
    tellLoad(nullptr);
    if (FileUsed) FileUsed(FileName);
    return true;
}

void SetupFile::CsdSave() {
    const std::string text = setupText(shared_, stores_);
    const bool setupData = looksLikeSetupFile(FileName);
    const SaveOutcome saved = saveReplacing(writer_, FileName, text);
    if (saved.error) {
        messages_.show("The setup data file could not be saved: " + *saved.error, Icon::Exclamation);
        return;
    }
    held_ = text;
    if (saved.backup && !setupData && Notify)
        Notify("The replaced file did not look like setup data; its previous content is kept in " +
               saved.backup->string());
    if (FileUsed) FileUsed(FileName);
}

void SetupFile::CsdSave_New() {
    const auto chosen = dialogs_.saveFile(kSetupFileFilter);
    if (!chosen) return;
    const std::string path = withSetupExtension(*chosen);
    std::error_code ec;
    if (std::filesystem::exists(path, ec) && !dialogs_.confirmReplace(path)) return;
    setFileName(path);
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
