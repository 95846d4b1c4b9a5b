// The line as the status bar and the camera buttons' answer marks show it: the device, its
// state (connected, not connected, lost) and whether each camera answers. Read only.
#include "remote/command_set.hpp"

namespace station::remote {

namespace {

std::string answerWords(Answer state) {
    switch (state) {
    case Answer::Answering: return "answering";
    case Answer::Quiet: return "quiet";
    case Answer::NotAnswering: return "not answering";
    case Answer::NotHeard: break;
    }
    return "not heard";
}

}  // namespace

void addLineState(CommandSet& commands) {
    commands.watch([](const Station& s, StateList& out) {
        out.push_back({"line", s.line.stateText()});
        out.push_back({"line port", s.line.deviceText()});
        // "quiet" comes with time alone: the watch looks at the clock each time it is asked.
        const auto now = s.line.now();
        for (int camera = 1; camera <= 8; ++camera)
            out.push_back({"answer " + std::to_string(camera), answerWords(s.line.answers.state(camera, now))});
    });

    commands.addGet("answers", [&s = commands.station()](Words& w) -> std::optional<std::string> {
        w.take("answers");
        w.end();
        const auto now = s.line.now();
        std::string all = "answers";
        for (int camera = 1; camera <= 8; ++camera)
            all += (camera == 1 ? " " : "; ") + std::to_string(camera) + " " + quoteWord(answerWords(s.line.answers.state(camera, now)));
        return all;
    });
}

}  // namespace station::remote
