#pragma once
// Which camera answers, on the camera buttons: a small mark in each button's corner
// (green dot answering, grey dot quiet for a minute, hollow ring not heard yet, amber
// triangle not answering, grey question mark unknown since the line was lost) and the state with the time of the last answer below the
// button's own tooltip. Kept apart from the buttons' own look, which only the buttons' view sets.

#include <QString>

#include <optional>
#include <vector>

#include "line/line_state.hpp"

class QAbstractButton;
class QLabel;
class QWidget;

namespace station::ui {

class AnswerMarks {
public:
    // Finds camera buttons 1..8 ("Option9(1)" ..) among `window`'s children.
    AnswerMarks(const LineState& line, QWidget& window);
    void render();

private:
    struct Mark {
        QAbstractButton* button;
        QLabel* label;
        QString tip;  // the button's own tooltip, which the answer state follows
        int shown = -1;  // the state last drawn, and the answer time in its tooltip
        std::optional<LineState::Clock::time_point> shownLast;
    };
    const LineState& line_;
    std::vector<Mark> marks_;
};

}  // namespace station::ui
