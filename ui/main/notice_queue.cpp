#include "ui/main/notice_queue.hpp"

#include <QEvent>
#include <QMainWindow>
#include <QStatusBar>

#include <algorithm>

namespace station::ui {

NoticeQueue::NoticeQueue(QMainWindow& window) : QObject(&window), window_(window) {
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, this, [this] {
        window_.statusBar()->clearMessage();
        showing_.clear();
        next();
    });
    window.installEventFilter(this);
}

int NoticeQueue::readingTime(const QString& text) {
    // About 250 words a minute, a word being six characters, and 4 s to notice the word.
    return std::clamp(4000 + static_cast<int>(text.size()) * 40, 6000, 20000);
}

void NoticeQueue::add(const QString& text) {
    waiting_.push_back(text);
    QTimer::singleShot(0, this, [this] { next(); });
}

void NoticeQueue::sayNow(const QString& text, int msecs) {
    if (!showing_.isEmpty()) waiting_.push_front(showing_);
    showing_.clear();
    window_.statusBar()->showMessage(text);
    timer_.start(msecs);
}

void NoticeQueue::next() {
    if (timer_.isActive() || waiting_.empty() || !window_.isVisible()) return;
    showing_ = waiting_.front();
    waiting_.pop_front();
    window_.statusBar()->showMessage(showing_);
    timer_.start(readingTime(showing_));
}

bool NoticeQueue::eventFilter(QObject* watched, QEvent* event) {
    // Held back until the window is shown; then the first word waits for the event loop,
    // so that it is laid out with the window, not under it.
    if (watched == &window_ && event->type() == QEvent::Show) QTimer::singleShot(0, this, [this] { next(); });
    return QObject::eventFilter(watched, event);
}

}  // namespace station::ui
