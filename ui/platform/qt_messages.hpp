#pragma once
// The operator's messages as Qt message boxes: the station's icon, the application's
// title as the caption, an OK button only. show() returns once the box is dismissed;
// the station's timers stand still meanwhile.

#include <QString>

#include "common/messages.hpp"
#include "ui/platform/modal_pause.hpp"

namespace station::ui {

// The caption of every message box.
inline const char* const kApplicationTitle = "Corvane Camera Setup Control";

class QtMessages : public MessageSink {
public:
    explicit QtMessages(ModalPause& pause) : pause_(pause) {}
    void show(const std::string& text, Icon icon) override;

    // The station separates lines with carriage returns; Qt wants line feeds.
    static QString boxText(const std::string& text);

private:
    ModalPause& pause_;
};

}  // namespace station::ui
