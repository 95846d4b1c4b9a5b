#include "line/line_state.hpp"

#include <exception>

#include "common/hex.hpp"

namespace station {

LineState::LineState(const Shared& shared, SerialPort& port, std::function<Clock::time_point()> clock)
    : shared_(shared), port_(port), clock_(std::move(clock)) {}

std::string LineState::deviceText() const {
    if (choice_.simulated) return "simulated line";
    return choice_.device.empty() ? "COM1" : choice_.device;
}

std::string LineState::versionPortName() const {
    return !choice_.simulated && choice_.device == "/dev/ttyS0" ? "COM1" : deviceText();
}

std::string LineState::stateText() const {
    switch (condition_) {
    case LineCondition::Connected: return reopenedAt_.empty() ? "connected" : "connected (reopened " + reopenedAt_ + ")";
    case LineCondition::NotConnected: return "not connected (" + reason_ + ")";
    case LineCondition::Lost: return "lost (" + reason_ + ")";
    }
    return {};
}

void LineState::setCondition(LineCondition condition, std::string reason) {
    condition_ = condition;
    reason_ = std::move(reason);
    retryCount_ = 0;
}

bool LineState::open() {
    try {
        port_.open();
    } catch (const std::exception& e) {
        // Each new reason is logged once; the same failure on every retry is not.
        const LineCondition held = condition_ == LineCondition::Lost ? LineCondition::Lost : LineCondition::NotConnected;
        if (condition_ == LineCondition::Connected || reason_ != e.what())
            note("Not connected: " + std::string(e.what()) + "; trying again about once a second", {}, 0);
        setCondition(held, e.what());
        return false;
    }
    note(everConnected_ ? "Line reopened: " + deviceText() : "Line connected: " + deviceText(), {}, 0);
    reopenedAt_ = everConnected_ ? log.entries().front().time : std::string();
    everConnected_ = true;
    setCondition(LineCondition::Connected, {});
    return true;
}

bool LineState::choose(PortChoice choice) {
    port_.close();
    choice_ = std::move(choice);
    everConnected_ = false;
    answers.reset();  // what the old port's cameras said tells nothing of the new one's
    reason_.clear();  // a failure of the new device is logged even if the old one failed alike
    condition_ = LineCondition::NotConnected;
    if (switchPort) switchPort(choice_);
    if (remember) remember(choice_);
    return open();
}

void LineState::retryTick() {
    if (connected()) return;
    if (++retryCount_ < kRetryPolls) return;
    retryCount_ = 0;
    open();
}

void LineState::lost(const std::string& reason) {
    if (!connected()) return;
    port_.close();
    answers.lineLost();
    note("Line lost: " + reason, {}, 0);
    setCondition(LineCondition::Lost, reason);
}

bool LineState::takeCleanFrame() {
    const bool clean = cleanFrame_;
    cleanFrame_ = false;
    return clean;
}

void LineState::note(const std::string& what, const Bytes& frame, int camera) {
    noteHex(what, frame.empty() ? std::string() : spacedHex(frame), camera);
}

void LineState::noteHex(const std::string& what, const std::string& frameHex, int camera) {
    if (camera < 0) camera = lastCamera_;
    LineLogEntry entry{clockText(now()), what, camera, {}, frameHex};
    if (camera >= 1 && camera <= kMaxCamera) entry.id = shared_.cams.CamID(camera);
    log.add(std::move(entry));
}

void LineState::frameSent(const SendRec& sent, bool resend) {
    // The camera the frame was queued for, not the one selected now: a page queued for one
    // camera may still be going out after the operator has selected another.
    lastCamera_ = sent.Camera;
    if (resend) note("NAK received, frame sent again", sent.Data);
}

void LineState::frameAcknowledged(const SendRec&) { answers.answered(lastCamera_, now()); }

void LineState::frameReceived(const Bytes& frame, bool good) {
    if (good) {
        answers.answered(lastCamera_, now());
        cleanFrame_ = true;
    } else {
        note("Checksum failure, NAK sent", frame);
    }
}

void LineState::noAcknowledge(const SendRec& sent) {
    answers.failed(lastCamera_);
    note("No Acknowledge", sent.Data);
}

void LineState::noAnswer() { note("No Answer from Camera"); }

}  // namespace station
