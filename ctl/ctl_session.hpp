#pragma once
// One run of corvane-ctl: the commands carried out in order on a started station, the
// ticks in between, and the record of which camera answered. The whole-camera commands
// (read, write, auto with a camera) wait until the line is done with the camera; every
// other command is a remote command and waits until the frames it queued have gone out.

#include <array>
#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

#include "common/messages.hpp"
#include "common/shared.hpp"
#include "ctl/camera_time_limit.hpp"
#include "ctl/link_tally.hpp"
#include "ctl/progress_line.hpp"
#include "ctl/files/setting_compare.hpp"
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
    void frameReceived(const Bytes& frame, bool good) override;
    void noAcknowledge(const SendRec&) override {}
    void noAnswer() override {}
    long replies(int camera) const;

private:
    int camera_ = 0;
    std::array<long, kMaxCamera + 1> replies_{};
};

class Session {
public:
    // `terminal`: standard error is a terminal (progress counts up in place).
    Session(remote::CommandSet& commands, TickLoop& ticks, ReplyCount& replies, LinkTally& tally,
            CtlMessages& messages, std::ostream& out, std::ostream& err, bool quiet, bool terminal = false);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // How long each camera may take; the defaults suit a line at 9600 bit/s.
    TimeAllowance allowance;
    // The camera-type definitions the station uses (verify names items by them).
    std::filesystem::path definitions{"."};
    // The camera line's device, as a lost line is named.
    std::string device;

    // Waits until the line's acknowledge and answer watches are idle after start-up.
    void settle();
    // Carries out one command; false when it was refused or a camera failed.
    bool run(const std::string& line);
    // The summary of every camera worked on, on the error stream; the exit status.
    int finish();

    // The cameras asked for in a read that did not answer every request, in order.
    std::vector<int> unreadCameras() const;

private:
    struct Outcome {
        int camera;
        std::string action;
        bool failed;
        std::string detail;
    };

    // One camera's part of a page read or send.
    struct Part {
        int camera;
        long first;     // the index of its first frame in the tally's record
        long expected;  // frames its page queued
        long replies;   // good frames received while it was read
        std::string failure;
        std::string extras;  // a restore's settings beyond the page send, in words
    };
    // `last`: no camera follows in this command; `store`: what was read becomes the
    // camera's selected scene.
    Part onePage(int camera, bool reading, bool last, bool store);
    Outcome outcomeOf(const Part& part, const std::string& action) const;

    // "verify FILE CAMERAS": reads the cameras and lists every setting that differs from
    // FILE; changes neither. A damaged FILE ends the run (RunError).
    bool verify(const std::string& file, const std::string& cameras);
    // The camera's settings in the station: the working copy and its function items.
    CameraSettings settingsOf(int camera) const;

    bool remote(const std::string& line);
    bool pageOf(const std::string& action, const std::string& cameras);
    bool autoRun(const std::string& which, const std::string& camera);
    bool waitUntilSent(Micros limit);
    void giveUp();

    remote::CommandSet& commands_;
    const StationReadout& view_;
    TickLoop& ticks_;
    ReplyCount& replies_;
    LinkTally& tally_;
    CtlMessages& messages_;
    std::ostream& out_;
    std::ostream& err_;
    ProgressLine progress_;
    bool refused_ = false;
    std::vector<Outcome> outcomes_;
    std::vector<int> unread_;
};

// The cameras of "1-8", "3" or "1,3,5"; std::invalid_argument when the text is not that.
std::vector<int> cameraList(const std::string& text);

}  // namespace station::ctl
