#include "ctl/ctl_session.hpp"

#include <array>
#include <cctype>
#include <fstream>
#include <ostream>
#include <sstream>
#include <stdexcept>

#include "common/vb_conv.hpp"
#include "ctl/exit_status.hpp"
#include "ctl/files/restore_check.hpp"
#include "ctl/restore_extras.hpp"

namespace station::ctl {

namespace {

using std::chrono::milliseconds;

// A camera's replies have stopped when nothing arrived for this long with nothing queued.
constexpr Micros kQuiet = milliseconds(600);

// The words of one of corvane-ctl's own commands after its verb, each named as a refusal
// names it when it is missing; nothing may follow them.
template <typename... Names>
std::array<std::string, sizeof...(Names)> arguments(remote::Words& words, const Names&... names) {
    words.take("command");
    std::array<std::string, sizeof...(Names)> taken{words.take(names)...};  // taken in order
    words.end();
    return taken;
}

}  // namespace

void CtlMessages::show(const std::string& text, Icon icon) {
    // A message repeated for every frame of a page is told once.
    if (text != last_) err_ << "corvane-ctl: the station says: " << oneLine(text) << "\n";
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

Session::Session(remote::CommandSet& commands, TickLoop& ticks, ReplyCount& replies, LinkTally& tally,
                 CtlMessages& messages, std::ostream& out, std::ostream& err, bool quiet, bool terminal)
    : commands_(commands), view_(commands.readout()), ticks_(ticks), replies_(replies), tally_(tally),
      messages_(messages), out_(out), err_(err), progress_(err, terminal, quiet) {
    // A line that goes away is not waited out camera by camera: the run ends at once.
    ticks_.watch = [this] {
        const std::string state = view_.lineState();
        if (state.rfind("lost (", 0) != 0) return;
        const std::string name = device.empty() ? view_.lineDevice() : device;
        std::string reason = state.substr(6, state.size() - 7);
        if (reason.rfind(name + ": ", 0) == 0) reason.erase(0, name.size() + 2);
        progress_.abandon();
        throw RunError(ExitStatus::NoLine, "the line " + name + " was lost: " + reason);
    };
}

Session::~Session() { ticks_.watch = nullptr; }

void Session::settle() {
    ticks_.runUntil([this] { return !view_.awaitingAcknowledge() && !view_.awaitingAnswer(); }, milliseconds(2000));
}

bool Session::waitUntilSent(Micros limit) {
    return ticks_.runUntil(
        [this] { return view_.queued() == 0 && !view_.awaitingAcknowledge(); }, limit);
}

void Session::giveUp() {
    tally_.ended(FrameEnd::GivenUp, view_.queued());
    (void)commands_.actions().dropQueued();
}

bool Session::run(const std::string& line) {
    remote::Words words(remote::splitWords(line));
    const std::string verb = remote::lower(words.peek());
    try {
        if (verb == "read" || verb == "write") {
            const auto [cameras] = arguments(words, "cameras");
            return pageOf(verb, cameras);
        }
        if (verb == "verify") {
            const auto [file, cameras] = arguments(words, "file", "cameras");
            return verify(file, cameras);
        }
        if (verb == "auto") {
            words.take("command");
            const std::string which = words.take("white or black");
            const std::string camera = words.done() ? "" : words.take("camera");
            words.end();
            return autoRun(which, camera);
        }
        if (verb == "raw") {
            const auto [hex] = arguments(words, "hex bytes");
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
    } catch (const RunError&) {
        throw;
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
    if (!waitUntilSent(cameraTimeLimit(view_.queued(), allowance))) {
        giveUp();
        err_ << "corvane-ctl: " << line << ": the camera did not take its frames in time; they were dropped\n";
        refused_ = true;
        return false;
    }
    return true;
}

Session::Part Session::onePage(int camera, bool reading, bool last, bool store) {
    const std::string select = commands_.execute("camera " + std::to_string(camera));
    if (select != "OK") return {camera, tally_.settled(), 0, 0, select, {}};
    const int failuresBefore = messages_.failures();
    const long first = tally_.settled() + view_.queued();
    const std::string reply = commands_.execute(reading ? "page read" : "page send");
    std::vector<std::string> extras;
    std::string extraFailure;
    if (!reading && reply == "OK") {
        try {
            extras = restoreBeyondPage(commands_.actions());
        } catch (const std::exception& e) {
            extraFailure = e.what();
        }
    }
    Part part{camera, first, tally_.settled() + view_.queued() - first, 0, {}, {}};
    for (const std::string& e : extras) part.extras += (part.extras.empty() ? "" : ", ") + e;
    if (reply != "OK") part.failure = reply;
    else if (!extraFailure.empty()) part.failure = extraFailure;
    else if (messages_.failures() != failuresBefore) part.failure = messages_.last();  // e.g. "No Camera ID"
    if (!part.failure.empty()) {
        giveUp();
        return part;
    }
    const bool blind = !view_.handshake();
    const long receivedBefore = replies_.replies(camera);
    progress_.begin(view_.cameraName(camera) + " " + (reading ? "read" : "write"), part.expected);
    int queuedBefore = view_.queued();
    Micros lastReply = ticks_.now();
    auto failed = [&] {
        return tally_.count(part.first, part.expected, FrameEnd::NoAcknowledge) > 0 ||
               tally_.count(part.first, part.expected, FrameEnd::GivenUp) > 0;
    };
    // Cleared however the wait ends (a lost line ends it with an exception).
    struct Cleared {
        TickLoop& ticks;
        ~Cleared() { ticks.afterTick = nullptr; }
    } cleared{ticks_};
    ticks_.afterTick = [&] {
        if (blind) tally_.ended(FrameEnd::SentBlind, queuedBefore - view_.queued());
        queuedBefore = view_.queued();
        if (replies_.replies(camera) - receivedBefore != part.replies) {
            part.replies = replies_.replies(camera) - receivedBefore;
            lastReply = ticks_.now();
        }
        // A camera that does not answer would keep the line for a second per frame:
        // the rest of its page is given up at its first failure.
        if (failed()) giveUp();
        progress_.update(reading ? part.replies : tally_.count(part.first, part.expected, FrameEnd::Acknowledged));
    };
    const long end = part.first + part.expected;
    // A read ends when every request is answered; silence ends it for a camera that
    // answers less. A send moves on while its last frame awaits the acknowledge, so
    // that the next camera's first frame leaves on the poll that takes it.
    const bool done = ticks_.runUntil(
        [&] {
            if (failed()) return true;
            if (reading)
                return tally_.settled() >= end && !view_.awaitingAcknowledge() &&
                       (part.replies >= part.expected || ticks_.now() - lastReply >= kQuiet);
            return tally_.settled() >= (last ? end : end - 1) && view_.queued() <= (last ? 0 : 1);
        },
        cameraTimeLimit(part.expected, allowance));
    ticks_.afterTick = nullptr;
    if (!done) {
        giveUp();  // its frames still queued must not go to the next camera
        part.failure = "no answer in time";
    }
    if (store && part.failure.empty() && !failed() && part.replies >= part.expected) {
        // The settings read are in the working copy; they become the selected scene.
        const std::string stored = commands_.execute("scene store " + std::to_string(view_.sceneOf(camera)));
        if (stored != "OK") part.failure = stored;
    }
    progress_.end(!part.failure.empty() ? part.failure
                  : reading          ? std::to_string(part.replies) + "/" + std::to_string(part.expected) + " replies"
                                     : std::to_string(part.expected) + " frames queued");
    return part;
}

bool Session::pageOf(const std::string& action, const std::string& cameraText) {
    const bool reading = action == "read";
    const std::vector<int> cameras = cameraList(cameraText);
    std::vector<Part> parts;
    for (std::size_t i = 0; i < cameras.size(); ++i)
        parts.push_back(onePage(cameras[i], reading, i + 1 == cameras.size(), reading));
    // The last camera's last frame may still await its acknowledge.
    waitUntilSent(cameraTimeLimit(1, allowance));

    bool allGood = true;
    for (const Part& part : parts) {
        const Outcome o = outcomeOf(part, action);
        outcomes_.push_back(o);
        if (o.failed && reading) unread_.push_back(part.camera);
        allGood = allGood && !o.failed;
    }
    return allGood;
}

Session::Outcome Session::outcomeOf(const Part& part, const std::string& action) const {
    const bool reading = action != "write";
    std::string detail = part.failure;
    const long blind = tally_.count(part.first, part.expected, FrameEnd::SentBlind);
    const long acked = tally_.count(part.first, part.expected, FrameEnd::Acknowledged) + blind;
    const long sent = acked + tally_.count(part.first, part.expected, FrameEnd::NoAcknowledge);
    if (detail.empty() && tally_.count(part.first, part.expected, FrameEnd::NoAcknowledge) > 0) detail = "No Acknowledge";
    if (detail.empty() && acked < part.expected) detail = "frames dropped";
    if (detail.empty() && reading && part.replies < part.expected)
        detail = "answered " + std::to_string(part.replies) + " of " + std::to_string(part.expected) + " requests";
    const bool failed = !detail.empty();
    const std::string counts = reading ? std::to_string(part.replies) + " replies"
                                       : std::to_string(sent) + " frames sent, " +
                                             (blind > 0 ? "no acknowledge asked" : std::to_string(acked) + " acknowledged");
    const std::string set = part.extras.empty() ? "" : "; set beyond the page: " + part.extras;
    return {part.camera, action, failed, failed ? detail + " (" + counts + ")" : counts + set};
}

CameraSettings Session::settingsOf(int camera) const {
    CameraSettings out;
    for (std::size_t j = 0; j < out.main.size(); ++j) out.main[j] = view_.mainSetting(static_cast<int>(j + 1), camera);
    for (auto [code, value] : view_.functionSettings(camera)) {
        for (char& c : code) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        out.items[code] = value;
    }
    return out;
}

bool Session::verify(const std::string& file, const std::string& cameraText) {
    const std::vector<int> cameras = cameraList(cameraText);
    std::ifstream in(file, std::ios::binary);
    if (!in) throw RunError(ExitStatus::BadFile, "verify: cannot read " + file);
    std::ostringstream text;
    text << in.rdbuf();
    if (const auto problem = checkRestore(text.str(), cameras, definitions, false))
        throw RunError(ExitStatus::BadFile, file + (problem->lineNumber > 0 ? ":" + std::to_string(problem->lineNumber) : "") +
                                                ": " + problem->reason + "; nothing was verified");
    // The station takes the file's settings; each camera's selected scene is then the
    // working copy that its reading overwrites.
    const std::string path = std::filesystem::absolute(file).string();
    commands_.dialogs().answerNextOpen(path);
    (void)commands_.actions().open();  // a failure is told on the error stream; the name tells the outcome
    if (view_.fileName() != path) throw RunError(ExitStatus::BadFile, "verify: cannot open " + path);

    bool allSame = true;
    for (const int camera : cameras) {
        const auto type = findTypeDefinition(definitions, view_.cameraType(camera));
        CameraSettings fromFile;
        if (commands_.execute("camera " + std::to_string(camera)) == "OK") fromFile = settingsOf(camera);
        Outcome o = outcomeOf(onePage(camera, true, true, false), "verify");
        if (!o.failed && type) {
            const std::vector<std::string> differ = settingDifferences(camera, fromFile, settingsOf(camera), *type);
            for (const std::string& d : differ) out_ << d << "\n";
            o.failed = !differ.empty();
            o.detail = differ.empty() ? "as " + file + " says"
                                      : std::to_string(differ.size()) + (differ.size() == 1 ? " setting differs" : " settings differ") +
                                            " from " + file;
            std::string skipped;
            for (const std::string& s : uncomparedSettings(*type, fromFile)) skipped += (skipped.empty() ? "" : ", ") + s;
            if (!skipped.empty()) o.detail += "; not compared, the camera does not report them: " + skipped;
        }
        outcomes_.push_back(o);
        allSame = allSame && !o.failed;
    }
    waitUntilSent(cameraTimeLimit(1, allowance));
    return allSame;
}

bool Session::autoRun(const std::string& which, const std::string& camera) {
    int number = view_.selectedCamera();
    if (!camera.empty()) {
        number = cameraList(camera).front();
        if (!remote("camera " + std::to_string(number))) return false;
    }
    progress_.note(view_.cameraName(number) + ": auto " + which);
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

std::vector<int> Session::unreadCameras() const { return unread_; }

}  // namespace station::ctl
