#pragma once
// Which camera answers: for cameras 1..8, when each last acknowledged a frame or sent a
// reply, and whether its last frame went unacknowledged. Observation only. While the line
// is lost nothing is known of any camera until it answers again; another port starts afresh.

#include <array>
#include <chrono>
#include <optional>
#include <string>

namespace station {

enum class Answer {
    NotHeard,      // nothing from it since the station started
    Answering,     // an ACK or a reply within the last minute
    Quiet,         // heard before, but not within the last minute
    NotAnswering,  // its last frame got "No Acknowledge"
    Unknown,       // the line was lost since it last answered
};

class CameraAnswers {
public:
    using Clock = std::chrono::system_clock;
    static constexpr std::chrono::seconds kRecent{60};

    // Cameras outside 1..8 (the group, or a camera not known) are not recorded.
    void answered(int camera, Clock::time_point when);
    void failed(int camera);
    // The line went: every camera is unknown until it answers (or fails) again.
    void lineLost();
    // Another port: nothing heard from any camera on it yet.
    void reset() { cameras_ = {}; }

    Answer state(int camera, Clock::time_point now) const;
    std::optional<Clock::time_point> lastAnswer(int camera) const;

private:
    struct Camera {
        std::optional<Clock::time_point> last;
        bool failed = false;
        bool unknown = false;
    };
    static bool known(int camera) { return camera >= 1 && camera <= 8; }
    std::array<Camera, 9> cameras_{};
};

// The camera button's tooltip: the state in words and the time of the last answer.
std::string answerText(int camera, Answer state, std::optional<CameraAnswers::Clock::time_point> last);

}  // namespace station
