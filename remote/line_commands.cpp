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
    case Answer::Unknown: return "unknown";
    case Answer::NotHeard: break;
    }
    return "not heard";
}

}  // namespace

void addLineState(CommandSet& commands) {
    commands.watch([](const StationReadout& s, StateList& out) {
        out.push_back({"line", s.lineState()});
        out.push_back({"line port", s.lineDevice()});
        // "quiet" comes with time alone: the watch looks at the clock each time it is asked.
        const auto now = s.now();
        for (int camera = 1; camera <= 8; ++camera)
            out.push_back({"answer " + std::to_string(camera), answerWords(s.answer(camera, now))});
    });

    commands.addGet("answers", [&s = commands.readout()](Words& w) -> std::optional<std::string> {
        w.take("answers");
        w.end();
        const auto now = s.now();
        std::string all = "answers";
        for (int camera = 1; camera <= 8; ++camera)
            all += (camera == 1 ? " " : "; ") + std::to_string(camera) + " " + quoteWord(answerWords(s.answer(camera, now)));
        return all;
    });
}

}  // namespace station::remote
