#pragma once
// A frame in the highlight colour around the control that has the keyboard focus in one
// window, for the controls the style draws no clear focus on of its own (level bars,
// spin arrows, option and scene buttons): keys change them, so the operator must see
// which one they will change. Text fields, lists and spin boxes show their own focus.

#include <QPointer>
#include <QWidget>

namespace station::ui {

class FocusMark : public QWidget {
public:
    // Marks controls inside `area` (usually a window's central widget or the window).
    explicit FocusMark(QWidget& area);

    // The control marked now; null while none is.
    QWidget* marked() const { return target_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static bool wanted(const QWidget& w);
    void follow(QWidget* now);
    void place();

    QWidget& area_;
    QPointer<QWidget> target_;
};

}  // namespace station::ui
