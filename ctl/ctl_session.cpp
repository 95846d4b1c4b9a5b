#include "ctl/ctl_session.hpp"

#include <ostream>
#include <stdexcept>

#include "common/vb_conv.hpp"

namespace station::ctl {

namespace {

using std::chrono::milliseconds;

// A camera's replies have stopped when nothing arrived for this long with nothing queued.
constexpr Micros kQuiet = milliseconds(600);
constexpr Micros kCameraLimit = milliseconds(120'000);

}  // namespace

void CtlMessages::show(const std::string& text, Icon icon) {
    // A message repeated for every frame of a page is told once.
    if (text != last_) err_ << "corvane-ctl: the station says: " << text << "\n";
    last_ = text;
    if (icon != Icon::Information) ++failures_;
}

void ReplyCount::frameReceived(const Bytes&, bool good) {
    if (good && camera_ >= 0 && camera_ <= kMaxCamera) ++replies_.at(static_cast<std::size_t>(camera_));
}

long ReplyCount::replies(int camera) const {
    return camera >= 0 && camera <= kMaxCamera ? replies_.at(static_cast<std::size_t>(camera)) : 0;
}

std::vector<int> cameraList(const std::string& text) {
    std::vector<int> cameras;
    std::size_t start = 0;
    auto number = [&](const std::string& part) {
        const auto n = remote::wholeNumber(part);
        if (!n || *n < 1 || *n > kMaxCamera) throw std::invalid_argument("cameras are 1 to 8, not \"" + part + "\"");
        return static_cast<int>(*n);
    };
    while (start <= text.size()) {
        const std::size_t comma = text.find(',', start);
        const std::string part = text.substr(start, comma == std::string::npos ? std::string::npos : comma - start);
        if (const std::size_t dash = part.find('-'); dash != std::string::npos && dash > 0) {
            const int from = number(part.substr(0, dash));
            const int to = number(part.substr(dash + 1));
            if (to < from) throw std::invalid_argument("camera range runs backwards: " + part);
            for (int c = from; c <= to; ++c) cameras.push_back(c);
        } else {
            cameras.push_back(number(part));
        }
        if (comma == std::string::npos) break;
        start = comma + 1;
    }
    return cameras;
}

Session::Session(remote::CommandSet& commands, TickLoop& ticks, ReplyCount& replies, CtlMessages& messages,
                 std::ostream& out, std::ostream& err, bool quiet)
    : commands_(commands), view_(commands.readout()), ticks_(ticks), replies_(replies), messages_(messages),
      out_(out), err_(err), quiet_(quiet) {}

void Session::progress(const std::string& text) {
    if (!quiet_) err_ << "corvane-ctl: " << text << "\n";
}

void Session::settle() {
    ticks_.runUntil([this] { return !view_.awaitingAcknowledge() && !view_.awaitingAnswer(); }, milliseconds(2000));
}

bool Session::waitUntilSent(Micros limit) {
    return ticks_.runUntil(
        [this] { return view_.queued() == 0 && !view_.awaitingAcknowledge(); }, limit);
}

bool Session::run(const std::string& line) {
    remote::Words words(remote::splitWords(line));
    const std::string verb = remote::lower(words.peek());
    try {
        if (verb == "read" || verb == "write") {
            words.take("command");
            const std::string cameras = words.take("cameras");
            words.end();
            return pageOf(verb, cameras);
        }
        if (verb == "auto") {
            words.take("command");
            const std::string which = words.take("white or black");
            const std::string camera = words.done() ? "" : words.take("camera");
            words.end();
            return autoRun(which, camera);
        }
        if (verb == "raw") {
            words.take("command");
            const std::string hex = words.take("hex bytes");
            words.end();
            commands_.perform(commands_.actions().consoleFrame(hex));
            ticks_.run(milliseconds(200));
            return true;
        }
        if (verb == "wait") {
            words.take("command");
            const long ms = words.number("milliseconds", 0, 3'600'000);
            words.end();
            ticks_.run(milliseconds(ms));
            return true;
        }
    } catch (const std::exception& e) {
        err_ << "corvane-ctl: " << line << ": " << e.what() << "\n";
        refused_ = true;
        return false;
    }
    return remote(line);
}

bool Session::remote(const std::string& line) {
    const std::string reply = commands_.execute(line);
    out_ << reply << "\n";
    if (reply.rfind("ERR", 0) == 0) {
        refused_ = true;
        return false;
    }
    if (!waitUntilSent(milliseconds(30'000))) {
        err_ << "corvane-ctl: " << line << ": the line did not take its frames\n";
        refused_ = true;
        return false;
    }
    return true;
}

bool Session::pageOf(const std::string& action, const std::string& cameraText) {
    bool allGood = true;
    for (const int camera : cameraList(cameraText)) {
        progress(view_.cameraName(camera) + ": page " + action);
        const std::string select = commands_.execute("camera " + std::to_string(camera));
        if (select != "OK") {
            outcomes_.push_back({camera, action, true, select});
            allGood = false;
            continue;
        }
        const int failuresBefore = messages_.failures();
        const long repliesBefore = replies_.replies(camera);
        const std::string reply = commands_.execute(action == "read" ? "page read" : "page send");
        Micros lastReply = ticks_.now();
        long seen = repliesBefore;
        ticks_.afterTick = [&] {
            if (replies_.replies(camera) != seen) {
                seen = replies_.replies(camera);
                lastReply = ticks_.now();
            }
            // A camera that does not answer would keep the line for a second per frame:
            // the rest of its page is given up at its first failure.
            if (messages_.failures() != failuresBefore) (void)commands_.actions().dropQueued();
        };
        bool done = reply == "OK";
        if (done) {
            done = ticks_.runUntil(
                [&] {
                    return view_.queued() == 0 && !view_.awaitingAcknowledge() &&
                           (action == "write" || ticks_.now() - lastReply >= kQuiet);
                },
                kCameraLimit);
        }
        ticks_.afterTick = nullptr;
        const long replies = replies_.replies(camera) - repliesBefore;
        std::string detail;
        if (reply != "OK") detail = reply;
        else if (!done) detail = "the line did not finish in time";
        else if (messages_.failures() != failuresBefore) detail = messages_.last();
        else if (action == "read" && replies == 0) detail = "no answer";
        if (detail.empty() && action == "read") {
            // The settings read are in the working copy; they become the selected scene.
            const std::string stored =
                commands_.execute("scene store " + std::to_string(view_.sceneOf(camera)));
            if (stored != "OK") detail = stored;
        }
        if (detail.empty()) detail = action == "read" ? std::to_string(replies) + " replies" : "sent";
        const bool failed = !(detail == "sent" || detail.find(" replies") != std::string::npos);
        outcomes_.push_back({camera, action, failed, detail});
        progress(view_.cameraName(camera) + ": " + detail);
        allGood = allGood && !failed;
    }
    return allGood;
}

bool Session::autoRun(const std::string& which, const std::string& camera) {
    int number = view_.selectedCamera();
    if (!camera.empty()) {
        number = cameraList(camera).front();
        if (!remote("camera " + std::to_string(number))) return false;
    }
    progress(view_.cameraName(number) + ": auto " + which);
    const std::string reply = commands_.execute("auto " + which);
    if (reply != "OK") {
        out_ << reply << "\n";
        outcomes_.push_back({number, "auto " + which, true, reply});
        return false;
    }
    const bool answered = ticks_.runUntil(
        [&] { return view_.autoResult() != "Now doing" || !view_.autoShown(); }, milliseconds(60'000));
    std::string result = view_.autoResult();
    if (!answered || result == "Now doing") result = "no result";
    const bool failed = result.rfind("OK", 0) != 0;
    out_ << "auto " << which << " " << number << ": " << result << "\n";
    outcomes_.push_back({number, "auto " + which, failed, result});
    return !failed;
}

int Session::finish() {
    bool failed = refused_;
    for (const Outcome& o : outcomes_) {
        err_ << "corvane-ctl: " << view_.cameraName(o.camera) << " " << o.action << ": " << (o.failed ? "FAILED, " : "")
             << o.detail << "\n";
        failed = failed || o.failed;
    }
    return failed ? 1 : 0;
}

}  // namespace station::ctl
