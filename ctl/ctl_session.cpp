#include "ctl/ctl_session.hpp"

#include <ostream>
#include <stdexcept>

#include "common/vb_conv.hpp"
#include "ctl/exit_status.hpp"

namespace station::ctl {

namespace {

using std::chrono::milliseconds;

// A camera's replies have stopped when nothing arrived for this long with nothing queued.
constexpr Micros kQuiet = milliseconds(600);

}  // namespace

void CtlMessages::show(const std::string& text, Icon icon) {
    // A message repeated for every frame of a page is told once.
    if (text != last_) err_ << "corvane-ctl: the station says: " << oneLine(text) << "\n";
    last_ = text;
    if (icon != Icon::Information) ++failures_;
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

Session::Session(Station& station, remote::CommandSet& commands, TickLoop& ticks, LinkTally& tally,
                 CtlMessages& messages, std::ostream& out, std::ostream& err, bool quiet)
    : station_(station), commands_(commands), ticks_(ticks), tally_(tally), messages_(messages), out_(out),
      err_(err), quiet_(quiet) {}

void Session::progress(const std::string& text) {
    if (!quiet_) err_ << "corvane-ctl: " << text << "\n";
}

std::string Session::cameraName(int camera) const {
    const auto& cams = station_.shared.cams;
    const std::string type = cams.CamType(camera);
    return "camera " + std::to_string(camera) + (type.empty() ? " (no type)" : " (" + type + ", ID " + cams.CamID(camera) + ")");
}

void Session::settle() {
    ticks_.runUntil([this] { return station_.link.AckWait() < 0 && station_.link.AnsWait() < 0; }, milliseconds(2000));
}

bool Session::waitUntilSent(Micros limit) {
    return ticks_.runUntil(
        [this] { return station_.link.queue().SendCnt() == 0 && station_.link.AckWait() < 0; }, limit);
}

void Session::giveUp() { station_.link.giveUpQueued(); }

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
            return autoSetup(which, camera);
        }
        if (verb == "raw") {
            words.take("command");
            const std::string hex = words.take("hex bytes");
            words.end();
            commands_.gesture([this, &hex] {
                station_.console.Text1.setText(hex);
                station_.console.Command1_Click();
            });
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
    const int before = station_.link.queue().SendCnt();
    const std::string reply = commands_.execute(line);
    out_ << reply << "\n";
    if (reply.rfind("ERR", 0) == 0) {
        refused_ = true;
        return false;
    }
    const int queued = station_.link.queue().SendCnt() - before;
    if (!waitUntilSent(cameraTimeLimit(queued + before, allowance))) {
        giveUp();
        err_ << "corvane-ctl: " << line << ": the camera did not take its frames in time; they were dropped\n";
        refused_ = true;
        return false;
    }
    return true;
}

bool Session::pageOf(const std::string& action, const std::string& cameraText) {
    const bool reading = action == "read";
    bool allGood = true;
    for (const int camera : cameraList(cameraText)) {
        progress(cameraName(camera) + ": page " + action);
        const std::string select = commands_.execute("camera " + std::to_string(camera));
        if (select != "OK") {
            outcomes_.push_back({camera, action, true, select});
            allGood = false;
            continue;
        }
        const int failuresBefore = messages_.failures();
        const int queuedBefore = station_.link.queue().SendCnt();
        tally_.reset();
        const std::string reply = commands_.execute(reading ? "page read" : "page send");
        // Every frame the page queued expects its acknowledge, and on a read its answer.
        const long expected = station_.link.queue().SendCnt() - queuedBefore;
        Micros lastReply = ticks_.now();
        long seen = 0;
        ticks_.afterTick = [&] {
            if (tally_.counts().received != seen) {
                seen = tally_.counts().received;
                lastReply = ticks_.now();
            }
            // A camera that does not answer would keep the line for a second per frame:
            // the rest of its page is given up at its first failure.
            if (messages_.failures() != failuresBefore) giveUp();
        };
        bool done = reply == "OK";
        if (done) {
            // A read ends when every request is answered; silence ends it for a camera that
            // answers less.
            done = ticks_.runUntil(
                [&] {
                    return station_.link.queue().SendCnt() == 0 && station_.link.AckWait() < 0 &&
                           (!reading || tally_.counts().received >= expected || ticks_.now() - lastReply >= kQuiet);
                },
                cameraTimeLimit(expected, allowance));
            if (!done) giveUp();  // its frames still queued must not go to the next camera
        }
        ticks_.afterTick = nullptr;
        const FrameCounts counts = tally_.counts();
        const bool handshake = station_.shared.AckMode == 0;
        std::string detail;
        if (reply != "OK") detail = reply;
        else if (!done) detail = "no answer in time";
        else if (messages_.failures() != failuresBefore) detail = messages_.last();
        else if (reading && counts.received < expected)
            detail = "answered " + std::to_string(counts.received) + " of " + std::to_string(expected) + " requests";
        else if (!reading && handshake && counts.acknowledged < expected)
            detail = "acknowledged " + std::to_string(counts.acknowledged) + " of " + std::to_string(expected) + " frames";
        if (detail.empty() && reading) {
            // The settings read are in the working copy; they become the selected scene.
            const std::string stored =
                commands_.execute("scene store " + std::to_string(station_.shared.ScnNo(camera)));
            if (stored != "OK") detail = stored;
        }
        const bool failed = !detail.empty();
        if (reading && !failed) detail = std::to_string(counts.received) + " replies";
        else if (!reading)
            detail = (failed ? detail + ": " : std::string()) + std::to_string(counts.sent) + " frames sent, " +
                     (handshake ? std::to_string(counts.acknowledged) + " acknowledged" : "no acknowledge asked");
        else detail += " (" + std::to_string(counts.received) + " replies)";
        outcomes_.push_back({camera, action, failed, detail});
        if (failed && reading) unread_.push_back(camera);
        progress(cameraName(camera) + ": " + detail);
        allGood = allGood && !failed;
    }
    return allGood;
}

bool Session::autoSetup(const std::string& which, const std::string& camera) {
    int number = station_.shared.CamNo;
    if (!camera.empty()) {
        number = cameraList(camera).front();
        if (!remote("camera " + std::to_string(number))) return false;
    }
    progress(cameraName(number) + ": auto " + which);
    const std::string reply = commands_.execute("auto " + which);
    if (reply != "OK") {
        out_ << reply << "\n";
        outcomes_.push_back({number, "auto " + which, true, reply});
        return false;
    }
    const Form6& message = station_.form6;
    const bool answered = ticks_.runUntil(
        [&] { return message.Label2.Caption != "Now doing" || !message.form.Visible; }, milliseconds(60'000));
    std::string result = message.Label2.Caption;
    if (!answered || result == "Now doing") result = "no result";
    const bool failed = result.rfind("OK", 0) != 0;
    out_ << "auto " << which << " " << number << ": " << result << "\n";
    outcomes_.push_back({number, "auto " + which, failed, result});
    return !failed;
}

int Session::finish() {
    bool failed = refused_;
    for (const Outcome& o : outcomes_) {
        err_ << "corvane-ctl: " << cameraName(o.camera) << " " << o.action << ": " << (o.failed ? "FAILED, " : "")
             << o.detail << "\n";
        failed = failed || o.failed;
    }
    return failed ? 1 : 0;
}

std::vector<int> Session::unreadCameras() const { return unread_; }

}  // namespace station::ctl
