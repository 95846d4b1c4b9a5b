#pragma once
// A window beside the main one, bound to its form model: shown and hidden as the model
// says, and closing it by the window frame hides it in the model. It is a dialog of the
// main window, so the window manager keeps it above the main window (a result in the
// "Auto Message" window is never hidden behind the panel that started it).

#include <QCloseEvent>
#include <QWidget>

#include <QKeyEvent>
#include <QScreen>

#include "common/controls.hpp"
#include "ui/widgets/focus_mark.hpp"
#include "ui/start/window_places.hpp"
#include "ui/widgets/render.hpp"

namespace station::ui {

class SatelliteWindow : public QWidget {
public:
    SatelliteWindow(FormWindow& form, Forward forward, QWidget* parent, const char* name)
        : QWidget(parent, Qt::Dialog), form_(form), forward_(std::move(forward)) {
        setObjectName(QString::fromLatin1(name));
        new FocusMark(*this);
    }

protected:
    void closeEvent(QCloseEvent* event) override {
        forward_([f = &form_] { f->Hide(); });
        event->accept();
    }
    // Esc closes, as the window frame does; a control that takes Esc itself keeps it.
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
            close();
            return;
        }
        QWidget::keyPressEvent(event);
    }
    void renderWindow() {
        // The first time it appears, unless a place was remembered for it, the window opens
        // beside the main window where the screen has room, not over the panel.
        if (form_.Visible && !placed_ && parentWidget() != nullptr) {
            if (!testAttribute(Qt::WA_Resized)) adjustSize();
            const QWidget& main = *parentWidget()->window();
            if (!testAttribute(Qt::WA_Moved) && main.screen() != nullptr) {
                // Before it is shown the frame is not known: the main window's stands for it.
                const QSize frame = size() + (main.frameGeometry().size() - main.size());
                move(placeBeside(main.frameGeometry(), frame, main.screen()->availableGeometry()));
            }
            placed_ = true;
        }
        showWindow(*this, form_);
    }
    const Forward& forward() const { return forward_; }

private:
    FormWindow& form_;
    Forward forward_;
    bool placed_ = false;
};

}  // namespace station::ui
