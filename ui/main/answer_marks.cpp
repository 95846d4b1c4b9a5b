#include "ui/main/answer_marks.hpp"

#include <QAbstractButton>
#include <QLabel>

#include "ui/widgets/render.hpp"

namespace station::ui {

namespace {

struct Look {
    const char* glyph;
    const char* colour;
};

// Green, grey and amber: nothing here may be taken for a tally lamp's red.
Look lookOf(Answer state) {
    switch (state) {
    case Answer::Answering: return {"\u25CF", "#1f9d3a"};
    case Answer::Quiet: return {"\u25CF", "#8a8a8a"};
    case Answer::NotAnswering: return {"\u25B2", "#d98c00"};
    case Answer::Unknown: return {"?", "#8a8a8a"};
    case Answer::NotHeard: break;
    }
    return {"\u25CB", "#8a8a8a"};
}

}  // namespace

AnswerMarks::AnswerMarks(StationReadout readout, QWidget& window) : readout_(readout) {
    for (int camera = 1; camera <= 8; ++camera) {
        auto* button = window.findChild<QAbstractButton*>(QStringLiteral("Option9(%1)").arg(camera));
        if (button == nullptr) continue;
        auto* label = new QLabel(button);
        label->setObjectName(QStringLiteral("answer(%1)").arg(camera));
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
        label->setFixedSize(12, 12);
        label->setAlignment(Qt::AlignCenter);
        marks_.push_back({button, label, button->toolTip(), -1, std::nullopt});
    }
    render();
}

void AnswerMarks::render() {
    const auto now = readout_.now();
    for (std::size_t i = 0; i < marks_.size(); ++i) {
        Mark& m = marks_[i];
        const int camera = static_cast<int>(i) + 1;
        const Answer state = readout_.answer(camera, now);
        m.label->move(m.button->width() - m.label->width() - 2, 2);
        const auto last = readout_.lastAnswer(camera);
        if (static_cast<int>(state) == m.shown && last == m.shownLast) continue;
        const QString answer = qs(answerText(camera, state, last));
        m.button->setToolTip(m.tip.isEmpty() ? answer : m.tip + QLatin1Char('\n') + answer);
        m.shownLast = last;
        if (static_cast<int>(state) == m.shown) continue;
        const Look look = lookOf(state);
        m.label->setText(QString::fromUtf8(look.glyph));
        m.label->setStyleSheet(QStringLiteral("color: %1; font-size: 9px; background: transparent;")
                                   .arg(QLatin1String(look.colour)));
        m.shown = static_cast<int>(state);
    }
}

}  // namespace station::ui
