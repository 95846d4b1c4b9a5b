#include "line/camera_answers.hpp"

#include "line/line_log.hpp"

namespace station {

void CameraAnswers::answered(int camera, Clock::time_point when) {
    if (!known(camera)) return;
    cameras_[static_cast<std::size_t>(camera)] = {when, false, false};
}

void CameraAnswers::failed(int camera) {
    if (!known(camera)) return;
    cameras_[static_cast<std::size_t>(camera)].failed = true;
    cameras_[static_cast<std::size_t>(camera)].unknown = false;
}

void CameraAnswers::lineLost() {
    for (Camera& c : cameras_) c.unknown = true;
}

Answer CameraAnswers::state(int camera, Clock::time_point now) const {
    if (!known(camera)) return Answer::NotHeard;
    const Camera& c = cameras_[static_cast<std::size_t>(camera)];
    if (c.unknown) return Answer::Unknown;
    if (c.failed) return Answer::NotAnswering;
    if (!c.last) return Answer::NotHeard;
    return now - *c.last <= kRecent ? Answer::Answering : Answer::Quiet;
}

std::optional<CameraAnswers::Clock::time_point> CameraAnswers::lastAnswer(int camera) const {
    if (!known(camera)) return std::nullopt;
    return cameras_[static_cast<std::size_t>(camera)].last;
}

std::string answerText(int camera, Answer state, std::optional<CameraAnswers::Clock::time_point> last) {
    std::string text = "Camera " + std::to_string(camera);
    switch (state) {
    case Answer::NotHeard: text += ": not heard yet"; break;
    case Answer::Answering: text += ": answering"; break;
    case Answer::Quiet: text += ": no answer within the last minute"; break;
    case Answer::NotAnswering: text += ": not answering (No Acknowledge)"; break;
    case Answer::Unknown: text += ": not known (the line was lost)"; break;
    }
    if (last) text += "\nLast answer " + clockText(*last);
    return text;
}

}  // namespace station
