#include "ui/main/station_view.hpp"

#include "app/station_readout.hpp"

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
    const StationForms forms = station.forms();
    cameraSet_ = std::make_unique<CameraSetWindow>(forms, forward, main_.get());
    function_ = std::make_unique<FunctionWindow>(forms, forward, main_.get());
    autoMessage_ = std::make_unique<AutoMessageWindow>(forms, forward, main_.get());
    console_ = std::make_unique<ConsoleWindow>(forms, forward, main_.get());
    lineLog_ = std::make_unique<LineLogWindow>(forms, forward, main_.get());
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
    const StationReadout readout(station_);
    const StationForms forms = station_.forms();
    TickState state;
    state.traffic = readout.traffic();
    state.queued = readout.queued();
    state.ackWait = readout.ackWaitTicks();
    state.answerWait = readout.answerWaitTicks();
    state.testBytes = readout.testBytes();
    state.fault = forms.main.faultLine.Caption;
    state.autoMessage = readout.autoShown();
    state.autoStatus = readout.autoResult();
    state.line = readout.lineState();
    state.logRevision = forms.log.revision();
    const auto now = readout.now();
    for (int camera = 1; camera <= 8; ++camera)
        state.answers.at(static_cast<std::size_t>(camera - 1)) = static_cast<int>(readout.answer(camera, now));
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
