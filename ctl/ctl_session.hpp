#pragma once
// One run of corvane-ctl: the commands carried out in order on a started station, the
// ticks in between, and the record of which camera answered. The whole-camera commands
// (read, write, auto with a camera) wait until the line is done with the camera; every
// other command is a remote command and waits until the frames it queued have gone out.

#include <array>
#include <iosfwd>
#include <string>
#include <vector>

#include "common/messages.hpp"
#include "common/shared.hpp"
#include "link/link_events.hpp"
#include "ctl/tick_loop.hpp"
#include "remote/command_set.hpp"

namespace station::ctl {

// The station's messages, on standard error, counted so that a camera that fails is known.
class CtlMessages final : public MessageSink {
public:
    explicit CtlMessages(std::ostream& err) : err_(err) {}
    void show(const std::string& text, Icon icon) override;
    int failures() const { return failures_; }
    const std::string& last() const { return last_; }

private:
    std::ostream& err_;
    int failures_ = 0;
    std::string last_;
};

// The replies the line took cleanly, credited to the camera the last frame sent was queued
// for (a reply answers the request before it), whichever camera is selected meanwhile.
class ReplyCount final : public LinkEvents {
public:
    void frameSent(const SendRec& sent, bool) override { camera_ = sent.Camera; }
    void frameAcknowledged(const SendRec&) override {}
    void frameReceived(const Bytes&, bool good) override;
    void noAcknowledge(const SendRec&) override {}
    void noAnswer() override {}
    long replies(int camera) const;

private:
    int camera_ = 0;
    std::array<long, kMaxCamera + 1> replies_{};
};

class Session {
public:
    Session(remote::CommandSet& commands, TickLoop& ticks, ReplyCount& replies, CtlMessages& messages,
            std::ostream& out, std::ostream& err, bool quiet);

    // Waits until the acknowledge and answer watches are idle after start-up.
    void settle();
    // Carries out one command; false when it was refused or a camera failed.
    bool run(const std::string& line);
    // The summary of every camera worked on, on the error stream; the exit status.
    int finish();

private:
    struct Outcome {
        int camera;
        std::string action;
        bool failed;
        std::string detail;
    };

    bool remote(const std::string& line);
    bool pageOf(const std::string& action, const std::string& cameras);
    bool autoRun(const std::string& which, const std::string& camera);
    bool waitUntilSent(Micros limit);
    void progress(const std::string& text);

    remote::CommandSet& commands_;
    const StationReadout& view_;
    TickLoop& ticks_;
    ReplyCount& replies_;
    CtlMessages& messages_;
    std::ostream& out_;
    std::ostream& err_;
    bool quiet_;
    bool refused_ = false;
    std::vector<Outcome> outcomes_;
};

// The cameras of "1-8", "3" or "1,3,5"; std::invalid_argument when the text is not that.
std::vector<int> cameraList(const std::string& text);

}  // namespace station::ctl
