#pragma once
// The station as clients outside the windows read it (the remote command set, corvane-ctl):
// the selected camera and its panel, the line's state and answer marks, the function page,
// the file name. Read only: what changes the station goes through the named actions.

#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/panel_controls.hpp"
#include "funcedit/function_items.hpp"
#include "line/camera_answers.hpp"
#include "line/line_state.hpp"
#include "link/send_queue.hpp"

namespace station {

class Station;

class StationReadout {
public:
    explicit StationReadout(const Station& station) : station_(station) {}

    bool ended() const;
    // 0 is GROUP.
    int selectedCamera() const;
    int sceneOf(int camera) const;
    std::string cameraType(int camera) const;
    std::string cameraId(int camera) const;
    // "camera 3 (TYPE, ID 01)", "camera 4 (no type)".
    std::string cameraName(int camera) const;

    // A group of buttons: its indexes and their captions.
    struct Buttons {
        int lo = 0;
        int hi = 0;
        std::vector<std::string> captions;  // lo..hi
        const std::string& caption(int index) const { return captions.at(static_cast<std::size_t>(index - lo)); }
    };
    Buttons cameraButtons() const;
    Buttons modeButtons(Mode m) const;
    int selectedScene() const;
    // Whether the panel's working copy equals the selected scene as stored; whether pressing
    // scene button `scene` now would drop settings made since it was recalled.
    bool workingCopyStored() const;
    bool scenePressDropsChanges(int scene) const;
    int selectedMode(Mode m) const;  // -1 when none is

    // A level bar's range (lo <= hi) and where it stands; its number label.
    struct Range {
        long lo = 0;
        long hi = 0;
        long value = 0;
    };
    Range levelRange(Level l) const;
    std::string levelText(Level l) const;
    std::string gainStepText(int step) const;  // 0 LOW, 1 MID, 2 HIGH
    // The selected camera's gain type ("GAIN=" of its definition), and the values the spin
    // buttons of gain step `step` can trim it to (lo > hi: the step's value is fixed).
    int gainType() const;
    Range gainValueRange(int step) const;
    std::string filterText() const;
    bool tally() const;
    bool callHeld() const;

    // Which of the main panel's controls the window offers now (the rest it greys), by the
    // rule each gesture's action asks.
    struct Offered {
        bool camera = true;
        bool scene = true;
        bool sceneClear = true;
        bool filter = false;
        bool call = false;
        bool autoWhite = true;
        bool autoBlack = true;
        std::array<bool, kModes.size()> modes{};
        std::array<bool, kLevels.size()> levels{true, true, true, true, true, true, true};
        std::array<bool, kGainSteps.size()> gainValues{};  // a spin button of LOW, MID, HIGH can be pressed
    };
    Offered offered() const;
    // One press of a gain step's up or down arrow.
    bool gainStepOffered(int step, bool up) const;
    // The panel answers the operator (it is deaf while a redraw sets its controls).
    bool panelLive() const;

    // The auto message: its operation ("" before the first), "Now doing" or the result,
    // and whether the window is up.
    std::string autoOperation() const;
    std::string autoResult() const;
    bool autoShown() const;

    // The line: its state and device in words, each camera's answer mark at `now`.
    std::string lineState() const;
    std::string lineDevice() const;
    std::chrono::system_clock::time_point now() const;
    Answer answer(int camera, std::chrono::system_clock::time_point now) const;
    std::optional<std::chrono::system_clock::time_point> lastAnswer(int camera) const;
    LineCondition lineCondition() const;
    bool connected() const { return lineCondition() == LineCondition::Connected; }
    const PortChoice& portChoice() const;
    // Bytes that went over the line so far (a redraw is due when it moved), and the console's
    // injected bytes.
    std::uint64_t traffic() const;
    int testBytes() const;
    // Frames waiting to go out; whether the link waits for an acknowledge or an answer.
    int queued() const;
    const SendRec& queuedFrame(int index) const;  // 1 is the head
    // The most frames one window gesture can queue at once: "PC to Camera" for the loaded
    // camera type with the most function items (the main page, then one frame per item).
    int largestPageSend() const;
    bool awaitingAcknowledge() const;
    bool awaitingAnswer() const;
    // The ticks since the frame awaiting its acknowledge or answer went out (-1: none waits).
    int ackWaitTicks() const;
    int answerWaitTicks() const;

    // Whether frames wait for the camera's acknowledge ("Ack On").
    bool handshake() const;
    bool cameraIdOn() const;
    bool checksumsReadExactly() const;
    // Camera types loaded from the definition folder.
    int typeCount() const;

    std::string fileName() const;
    // Settings changed since the setup file was opened or saved (the title's "*").
    bool modified() const;

    // The settings kept for a camera: main setting `field` (1..18, the setup file's order) of
    // its working copy, and every function item's value as (item code, value): the working
    // copy's for scene functions, the one value for plain functions.
    std::string mainSetting(int field, int camera, int scene = 0) const;
    std::vector<std::pair<std::string, std::string>> functionSettings(int camera) const;

    // The Function window: the function list, the function shown (-1 for none) and its items.
    std::vector<std::string> functionTitles() const;
    int shownFunction() const;
    std::vector<std::string> shownItems() const;
    // Function f's items (f and i from 1), the value kept for one, and how it reads.
    int itemCount(int f) const;
    FunctionItem item(int f, int i) const;
    std::optional<std::string> storedValue(int f, const FunctionItem& it) const;
    std::string valueText(const FunctionItem& it, const std::string& value) const;

private:
    const Station& station_;
};

}  // namespace station
