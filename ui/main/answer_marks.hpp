#pragma once
// Which camera answers, on the camera buttons: a small mark in each button's corner
// (green dot answering, grey dot quiet for a minute, hollow ring not heard yet, amber
// triangle not answering, grey question mark unknown since the line was lost) and the state with the time of the last answer below the
// button's own tooltip. Kept apart from the buttons' own look, which only the buttons' view sets.

#include <QString>

#include <optional>
#include <vector>

#include "app/station_readout.hpp"

class QAbstractButton;
class QLabel;
class QWidget;

namespace station::ui {

class AnswerMarks {
public:
    // Finds camera buttons 1..8 ("Option9(1)" ..) among `window`'s children.
    AnswerMarks(StationReadout readout, QWidget& window);
    void render();

private:
    struct Mark {
        QAbstractButton* button;
        QLabel* label;
        QString tip;  // the button's own tooltip, which the answer state follows
        int shown = -1;  // the state last drawn, and the answer time in its tooltip
        std::optional<std::chrono::system_clock::time_point> shownLast;
    };
    const StationReadout readout_;
    std::vector<Mark> marks_;
};

}  // namespace station::ui
