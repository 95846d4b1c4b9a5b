#pragma once
// The desktop program's windows bound to one Station. Every gesture is forwarded to the
// station's models at its error boundary and every timer tick goes to the station; after
// each, the windows are redrawn from the models and the timers follow their models. A
// tick that moved no byte on the line and changed none of the line's waits redraws
// nothing: at rest the 40 ms poll then costs almost nothing.
// When the station has ended, the timers stop and `onEnded` runs once.

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "app/station.hpp"
#include "ui/platform/modal_pause.hpp"
#include "ui/widgets/render.hpp"
#include "ui/start/station_timers.hpp"

namespace station::ui {

class MainWindow;
class CameraSetWindow;
class FunctionWindow;
class AutoMessageWindow;
class ConsoleWindow;
class LineLogWindow;

class StationView {
public:
    // `beforePoll` runs before each 40 ms poll (the built-in camera line catches up);
    // `lineBusy` lets the poll sleep while no byte waits or travels (see StationTimers).
    StationView(Station& station, ModalPause& modal, std::function<void()> beforePoll = {},
                std::function<bool()> lineBusy = {});
    ~StationView();
    StationView(const StationView&) = delete;
    StationView& operator=(const StationView&) = delete;

    // Runs a gesture at the station's error boundary, then redraws.
    void forward(const Gesture& gesture);
    // Redraws every window from the models and lets the timers follow theirs.
    void refresh();

    std::function<void()> onEnded;
    // Runs after every redraw: what the windows show may have changed (remote surfaces follow).
    std::function<void()> onRedrawn;

    MainWindow& mainWindow() { return *main_; }
    CameraSetWindow& cameraSetWindow() { return *cameraSet_; }
    FunctionWindow& functionWindow() { return *function_; }
    AutoMessageWindow& autoMessageWindow() { return *autoMessage_; }
    ConsoleWindow& consoleWindow() { return *console_; }
    LineLogWindow& lineLogWindow() { return *lineLog_; }
    StationTimers& timers() { return timers_; }

private:
    // What a timer tick can change that the windows show.
    struct TickState {
        std::uint64_t traffic = 0;
        int queued = 0, ackWait = 0, answerWait = 0, testBytes = 0;
        std::string fault;
        bool autoMessage = false;
        std::string autoStatus;
        // The line's state, its log and which camera answers: these change without traffic
        // (a lost device, an answer growing old).
        std::string line;
        std::uint64_t logRevision = 0;
        std::array<int, 8> answers{};
        bool operator==(const TickState&) const = default;
    };
    TickState tickState() const;
    void afterTick();

    Station& station_;
    TickState shown_;
    ModalPause& modal_;
    StationTimers timers_;
    bool ended_ = false;
    // The satellites are children of the main window and go before it.
    std::unique_ptr<MainWindow> main_;
    std::unique_ptr<CameraSetWindow> cameraSet_;
    std::unique_ptr<FunctionWindow> function_;
    std::unique_ptr<AutoMessageWindow> autoMessage_;
    std::unique_ptr<ConsoleWindow> console_;
    std::unique_ptr<LineLogWindow> lineLog_;
};

}  // namespace station::ui
