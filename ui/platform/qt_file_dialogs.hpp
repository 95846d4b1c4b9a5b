#pragma once
// The setup data file dialogs as Qt file dialogs: the station's filter in Qt's form, a
// cancel answered with nothing, and the question before a file is replaced asked by the
// station once it has the final name. The station's timers stand still meanwhile.

#include "setupfile/file_dialogs.hpp"
#include "ui/platform/modal_pause.hpp"

namespace station::ui {

class QtFileDialogs : public FileDialogs {
public:
    explicit QtFileDialogs(ModalPause& pause) : pause_(pause) {}
    std::optional<std::string> openFile(const std::string& filter) override;
    std::optional<std::string> saveFile(const std::string& filter) override;
    bool confirmReplace(const std::string& path) override;

private:
    ModalPause& pause_;
};

}  // namespace station::ui
