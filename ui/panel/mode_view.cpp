#include "ui/panel/mode_view.hpp"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>


namespace station::ui {

namespace {

// A group box whose buttons are laid out in `columns` columns.
QGroupBox* groupBox(const QString& title, const QString& name, QWidget* parent) {
    auto* box = new QGroupBox(title, parent);
    box->setObjectName(name);
    return box;
}

void layOut(QGroupBox* box, OptionButtons& buttons, const OptionGroup& group, int columns) {
    auto* grid = new QGridLayout(box);
    grid->setSpacing(2);
    buttons.setColumns(columns);
    for (int i = group.lo(); i <= group.hi(); ++i)
        grid->addWidget(&buttons.button(i), (i - group.lo()) / columns, (i - group.lo()) % columns,
                        columns == 1 ? Qt::AlignLeft : Qt::Alignment());
}

// SpinButton1(index): an up and a down arrow that trim one gain-step value.
QWidget* gainSpin(const SpinButton& spin, int index, const Forward& forward, QWidget* parent) {
    auto* pair = new QWidget(parent);
    pair->setObjectName(QStringLiteral("SpinButton1(%1)").arg(index));
    auto* column = new QVBoxLayout(pair);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    const char* step[] = {"LOW", "MID", "HIGH"};
    for (const bool up : {true, false}) {
        auto* button = new QToolButton(pair);
        button->setObjectName(QString::fromLatin1(up ? "up" : "down"));
        button->setArrowType(up ? Qt::UpArrow : Qt::DownArrow);
        button->setFixedSize(18, 11);
        button->setFocusPolicy(Qt::TabFocus);
        button->setToolTip(QStringLiteral("%1 the %2 gain value and send it to the camera")
                               .arg(up ? QStringLiteral("Raise") : QStringLiteral("Lower"),
                                    QString::fromLatin1(step[index])));
        QObject::connect(button, &QToolButton::clicked, [s = &spin, forward, up] {
            forward([s, up] { up ? s->spinUp() : s->spinDown(); });
        });
        column->addWidget(button);
    }
    return pair;
}

}  // namespace

ModeView::ModeView(Form1& form, StationReadout readout, const Forward& forward, QWidget* parent)
    : QWidget(parent), form_(form), readout_(readout) {
    auto make = [&](OptionGroup& group, const char* name, QWidget* box) {
        OptionGroup* g = &group;
        return std::make_unique<OptionButtons>(group, name, OptionButtons::Look::Radio, box,
                                               [g, forward](int i) { forward([g, i] { g->click(i); }); });
    };

    struct Small {
        OptionGroup& group;
        const char* name;
        const char* title;
    };
    const Small small[] = {
        {form.OptBar, "OptBar", "BARS"},     {form.OptDtl, "OptDtl", "DETAIL"},  {form.OptSht, "OptSht", "SHUTTER"},
        {form.OptWhite, "OptWhite", "WHITE"}, {form.OptIris, "OptIris", "IRIS"},
    };

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    int n = 0;
    for (const Small& s : small) {
        QGroupBox* box = groupBox(QString::fromLatin1(s.title), QString::fromLatin1(s.name) + "Frame", this);
        groups_.at(static_cast<std::size_t>(n)) = make(s.group, s.name, box);
        layOut(box, *groups_.at(static_cast<std::size_t>(n)), s.group, 1);
        // Two rows of three: BARS, DETAIL, SHUTTER over GAIN, WHITE, IRIS.
        grid->addWidget(box, n < 3 ? 0 : 1, n < 3 ? n : n - 2);
        ++n;
    }

    // Gain step: the value of each step beside its button.
    QGroupBox* gain = groupBox(QStringLiteral("GAIN"), QStringLiteral("OptGainFrame"), this);
    groups_.at(5) = make(form.OptGain, "OptGain", gain);
    auto* gainGrid = new QGridLayout(gain);
    gainGrid->setSpacing(2);
    for (int i = form.OptGain.lo(); i <= form.OptGain.hi(); ++i) {
        gainGrid->addWidget(&groups_.at(5)->button(i), i, 0);
        if (i > 2) continue;
        auto* step = new QLabel(gain);
        step->setObjectName(QStringLiteral("Label1(%1)").arg(i));
        step->setFrameShape(QFrame::Panel);
        step->setFrameShadow(QFrame::Sunken);
        step->setMinimumWidth(48);
        step->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        gainSteps_.at(static_cast<std::size_t>(i)) = step;
        gainGrid->addWidget(step, i, 1);
        gainSpins_.at(static_cast<std::size_t>(i)) = gainSpin(form.SpinButton1(i), i, forward, gain);
        gainGrid->addWidget(gainSpins_.at(static_cast<std::size_t>(i)), i, 2);
    }
    grid->addWidget(gain, 1, 0);

    monitor_ = groupBox(QString(), QStringLiteral("Frame12"), this);
    // The 32 monitor outputs as a compact block of tiles, eight to a row.
    groups_.at(6) = std::make_unique<OptionButtons>(
        form.OptMonsel, "OptMonsel", OptionButtons::Look::Tile, monitor_,
        [g = &form.OptMonsel, forward](int i) { forward([g, i] { g->click(i); }); });
    layOut(monitor_, *groups_.at(6), form.OptMonsel, 8);
    grid->addWidget(monitor_, 2, 0, 1, 3);
    grid->setRowStretch(3, 1);  // on a tall window the groups keep their height; the levels grow
    render();
}

void ModeView::render() {
    for (auto& group : groups_) group->render();
    for (int i = 0; i <= 2; ++i) {
        showLabel(*gainSteps_.at(static_cast<std::size_t>(i)), form_.Label1(i));
        // An arrow is greyed for a step the camera's gain type keeps fixed and at its step's
        // limit; a step with neither arrow has nothing to trim.
        QWidget& spin = *gainSpins_.at(static_cast<std::size_t>(i));
        const bool up = readout_.gainStepOffered(i, true);
        const bool down = readout_.gainStepOffered(i, false);
        if (spin.isEnabled() != (up || down)) spin.setEnabled(up || down);
        for (const bool upArrow : {true, false}) {
            QWidget& arrow = *spin.findChild<QWidget*>(QString::fromLatin1(upArrow ? "up" : "down"));
            const bool can = upArrow ? up : down;
            if (arrow.isEnabled() != can) arrow.setEnabled(can);
        }
    }
    showFrame(*monitor_, form_.Frame12);
}

}  // namespace station::ui
