#include "ui/main/station_view.hpp"

#include "ui/windows/auto_message_window.hpp"
#include "ui/windows/camera_set_window.hpp"
#include "ui/windows/console_window.hpp"
#include "ui/windows/function_window.hpp"
#include "ui/windows/line_log_window.hpp"
#include "ui/main/main_window.hpp"

namespace station::ui {

StationView::StationView(Station& station, ModalPause& modal, std::function<void()> beforePoll,
                         std::function<bool()> lineBusy)
    : station_(station), modal_(modal),
      timers_(station, [this] { afterTick(); }, std::move(beforePoll), std::move(lineBusy)) {
    const Forward forward = [this](const Gesture& gesture) { this->forward(gesture); };
    main_ = std::make_unique<MainWindow>(station, forward);
    cameraSet_ = std::make_unique<CameraSetWindow>(station, forward, main_.get());
    function_ = std::make_unique<FunctionWindow>(station, forward, main_.get());
    autoMessage_ = std::make_unique<AutoMessageWindow>(station, forward, main_.get());
    console_ = std::make_unique<ConsoleWindow>(station, forward, main_.get());
    lineLog_ = std::make_unique<LineLogWindow>(station, forward, main_.get());
    modal_.onEnter = [this] { timers_.pause(); };
    modal_.onLeave = [this] { timers_.resume(); };
    refresh();
}

StationView::~StationView() {
    modal_.onEnter = nullptr;
    modal_.onLeave = nullptr;
    timers_.stop();
}

void StationView::forward(const Gesture& gesture) {
    if (ended_) return;
    station_.act(gesture);
    refresh();
}

void StationView::refresh() {
    if (ended_) return;
    if (station_.ended()) {
        ended_ = true;
        timers_.stop();
        if (onEnded) onEnded();
        return;
    }
    main_->render();
    cameraSet_->render();
    function_->render();
    autoMessage_->render();
    console_->render();
    lineLog_->render();
    timers_.sync();
    if (onRedrawn) onRedrawn();
    shown_ = tickState();
}

StationView::TickState StationView::tickState() const {
    const Link& link = station_.link;
    const LineState& line = station_.line;
    TickState state;
    state.traffic = link.traffic();
    state.queued = link.queue().SendCnt();
    state.ackWait = link.AckWait();
    state.answerWait = link.AnsWait();
    state.testBytes = link.TestCnt();
    state.fault = station_.form1.faultLine.Caption;
    state.autoMessage = station_.form6.form.Visible;
    state.autoStatus = station_.form6.Label2.Caption;
    state.line = line.stateText();
    state.logRevision = line.log.revision();
    const auto now = line.now();
    for (int camera = 1; camera <= 8; ++camera)
        state.answers.at(static_cast<std::size_t>(camera - 1)) = static_cast<int>(line.answers.state(camera, now));
    return state;
}

void StationView::afterTick() {
    if (!ended_ && !station_.ended() && tickState() == shown_) {
        timers_.sync();
        return;
    }
    refresh();
}

}  // namespace station::ui
