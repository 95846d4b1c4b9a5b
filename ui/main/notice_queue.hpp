#pragma once
// The station's passing words in the main window's status bar: one at a time, each for as
// long as it takes to read, and only once the window is on the screen (a word shown
// before would be drawn over the line's state). A word the operator's own key asks for
// goes first; the notice it interrupted comes back after it.

#include <QObject>
#include <QString>
#include <QTimer>

#include <deque>

class QMainWindow;

namespace station::ui {

class NoticeQueue : public QObject {
public:
    explicit NoticeQueue(QMainWindow& window);

    void add(const QString& text);               // waits for its turn
    void sayNow(const QString& text, int msecs);  // at once, for msecs

    // How long a notice of this text stays: a few seconds plus time to read every word.
    static int readingTime(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void next();

    QMainWindow& window_;
    std::deque<QString> waiting_;
    QString showing_;  // the notice now in the status bar, "" when none
    QTimer timer_;
};

}  // namespace station::ui
