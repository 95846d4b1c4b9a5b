#include "ui/panel/filter_tally_view.hpp"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace station::ui {

namespace {

// The call button reports the mouse going down and coming up, wherever the pointer is
// when it comes up, so that a call never stays on because the pointer slid off.
class CallButton : public QPushButton {
public:
    CallButton(QWidget* parent, Forward forward, Gesture down, Gesture up)
        : QPushButton(parent), forward_(std::move(forward)), down_(std::move(down)), up_(std::move(up)) {}

protected:
    void mousePressEvent(QMouseEvent* event) override {
        QPushButton::mousePressEvent(event);
        forward_(down_);
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        QPushButton::mouseReleaseEvent(event);
        forward_(up_);
    }

private:
    Forward forward_;
    Gesture down_;
    Gesture up_;
};

QLabel* sunkenLabel(QWidget* parent, const char* name) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setFrameShape(QFrame::Panel);
    label->setFrameShadow(QFrame::Sunken);
    label->setAlignment(Qt::AlignCenter);
    label->setMinimumWidth(104);
    return label;
}

QToolButton* spinButton(QWidget* parent, const char* name, Qt::ArrowType arrow, const Forward& forward,
                        Gesture gesture) {
    auto* button = new QToolButton(parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setArrowType(arrow);
    QObject::connect(button, &QToolButton::clicked, [forward, gesture = std::move(gesture)] { forward(gesture); });
    return button;
}

}  // namespace

FilterTallyView::FilterTallyView(Form1& form, const Forward& forward, QWidget* parent)
    : QWidget(parent), form_(form), filter_(new QGroupBox(this)),
      filterLabel_(sunkenLabel(filter_, "Label16")),
      up_(spinButton(filter_, "SpinButton2.up", Qt::UpArrow, forward,
                     [f = &form] { f->SpinButton2.spinUp(); })),
      down_(spinButton(filter_, "SpinButton2.down", Qt::DownArrow, forward,
                       [f = &form] { f->SpinButton2.spinDown(); })),
      tally_(new QGroupBox(this)), lamp_(sunkenLabel(tally_, "Label15")),
      call_(new CallButton(
          tally_, forward, [f = &form] { f->Command9.mouseDown(); }, [f = &form] { f->Command9.mouseUp(); })),
      auto_(new QGroupBox(this)),
      white_(commandButton(auto_, "Command8", forward, [f = &form] { f->Command8.click(); })),
      black_(commandButton(auto_, "Command7", forward, [f = &form] { f->Command7.click(); })) {
    filter_->setObjectName(QStringLiteral("Frame17"));
    tally_->setObjectName(QStringLiteral("Frame19"));
    auto_->setObjectName(QStringLiteral("Frame15"));
    call_->setObjectName(QStringLiteral("Command9"));

    auto* filterGrid = new QGridLayout(filter_);
    filterGrid->addWidget(filterLabel_, 0, 0, 2, 1);
    filterGrid->addWidget(up_, 0, 1);
    filterGrid->addWidget(down_, 1, 1);

    auto* tallyGrid = new QGridLayout(tally_);
    tallyGrid->addWidget(lamp_, 0, 0);
    tallyGrid->addWidget(call_, 1, 0);

    auto* autoGrid = new QGridLayout(auto_);
    autoGrid->addWidget(white_, 0, 0);
    autoGrid->addWidget(black_, 1, 0);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(filter_);
    column->addWidget(tally_);
    column->addWidget(auto_);
    column->addStretch(1);
    render();
}

void FilterTallyView::render() {
    showFrame(*filter_, form_.Frame17);
    showLabel(*filterLabel_, form_.Label16);

    showFrame(*tally_, form_.Frame19);
    showLabel(*lamp_, form_.Label15);
    setBackColour(*lamp_, form_.Label15.BackColor);
    showButton(*call_, form_.Command9);

    showFrame(*auto_, form_.Frame15);
    showButton(*white_, form_.Command8);
    showButton(*black_, form_.Command7);
}

}  // namespace station::ui
