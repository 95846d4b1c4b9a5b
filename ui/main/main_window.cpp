#include "ui/main/main_window.hpp"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QStatusBar>
#include <QVBoxLayout>

#include "ui/main/answer_marks.hpp"
#include "ui/panel/camera_select_view.hpp"
#include "ui/main/line_status_view.hpp"
#include "ui/panel/filter_tally_view.hpp"
#include "ui/panel/levels_view.hpp"
#include "ui/main/main_tooltips.hpp"
#include "ui/main/notice_queue.hpp"
#include "ui/panel/mode_view.hpp"
#include "ui/panel/monitor_view.hpp"
#include "ui/panel/scene_view.hpp"
#include "ui/panel/transfer_view.hpp"
#include "ui/widgets/focus_mark.hpp"

namespace station::ui {

namespace {

// Asks for the whole panel's size, where Qt's own scroll area asks for a small box: the
// window opens showing everything when the screen has room, and scrolls only when not.
class PanelScroll : public QScrollArea {
public:
    using QScrollArea::QScrollArea;
    QSize sizeHint() const override {
        if (widget() == nullptr) return QScrollArea::sizeHint();
        const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
        return widget()->sizeHint() + QSize(scrollBar, 0);
    }
};

}  // namespace

MainWindow::MainWindow(Station& station, Forward forward)
    : station_(station), forms_(station.forms()), readout_(station), forward_(std::move(forward)) {
    setObjectName(QStringLiteral("Form1"));
    Form1& form = forms_.main;
    gestures_ = std::make_unique<GestureActions>(station, forward_, *this);
    auto* central = new QWidget(this);
    cameras_ = new CameraSelectView(form, forward_, central);
    scenes_ = new SceneView(form, readout_, forward_, central);
    transfer_ = new TransferView(form, *gestures_, forward_, central);
    modes_ = new ModeView(form, readout_, forward_, central);
    levels_ = new LevelsView(form, forward_, central);
    extras_ = new FilterTallyView(form, forward_, central);
    monitor_ = new MonitorView(forms_, central);

    auto* left = new QVBoxLayout;
    left->addWidget(scenes_);
    left->addWidget(transfer_);
    left->addStretch(1);

    auto* middle = new QHBoxLayout;
    middle->addLayout(left);
    middle->addWidget(modes_, 1);
    middle->addWidget(extras_);
    middle->addWidget(levels_);

    // The panel scrolls when the screen is smaller than it (a laptop at 150 %, a 1024x600
    // screen); the LINE box below it and the status bar stay in sight.
    auto* panel = new QWidget;
    panel->setObjectName(QStringLiteral("panel"));
    cameras_->setParent(panel);
    scenes_->setParent(panel);
    transfer_->setParent(panel);
    modes_->setParent(panel);
    levels_->setParent(panel);
    extras_->setParent(panel);
    auto* panelColumn = new QVBoxLayout(panel);
    panelColumn->setContentsMargins(0, 0, 0, 0);
    panelColumn->addWidget(cameras_);
    panelColumn->addLayout(middle, 1);
    auto* scroll = new PanelScroll(central);
    scroll->setObjectName(QStringLiteral("panelScroll"));
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidget(panel);

    auto* column = new QVBoxLayout(central);
    column->addWidget(scroll, 1);
    column->addWidget(monitor_);
    setCentralWidget(central);
    new FocusMark(*central);

    menus_ = std::make_unique<MainMenus>(station, *gestures_, forward_, *menuBar());
    notices_ = new NoticeQueue(*this);
    keys_ = std::make_unique<MainKeys>(form, readout_, forward_, *this, *menus_,
                                       [n = notices_](const QString& text) { n->sayNow(text, 2000); });
    std::vector<QWidget*> reading{cameras_, scenes_, transfer_};
    for (QWidget* group : gridOrder(*modes_)) reading.push_back(group);
    reading.insert(reading.end(), {extras_, levels_});
    setReadingOrder(reading);
    explainMainWindow(*this);
    status_ = new LineStatusView(station, this);
    // A long line state is cut at the window's edge (the Line log holds it whole); it never
    // makes the window wider than the screen.
    status_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addWidget(status_, 1);
    panelState_ = new QLabel(this);
    panelState_->setObjectName(QStringLiteral("panelState"));
    panelState_->setStyleSheet(QStringLiteral("font-weight: bold;"));
    statusBar()->addPermanentWidget(panelState_);
    // Words raised before the window was there come first, in their order.
    for (const std::string& text : forms_.notice.takeWaiting()) notices_->add(fileText(text));
    forms_.notice.shown = [n = notices_](const std::string& text) { n->add(fileText(text)); };
    answers_ = std::make_unique<AnswerMarks>(readout_, *cameras_);
    render();
    // Qt's first size for a window is at most two thirds of the screen: the whole panel where
    // the screen has room for it, else the screen less room for the title bar (the panel
    // scrolls). A place remembered from the last run replaces this.
    if (const QScreen* shown = screen())
        resize(sizeHint().boundedTo(shown->availableGeometry().size() - QSize(0, 40)));
}

MainWindow::~MainWindow() { forms_.notice.shown = nullptr; }

void MainWindow::render() {
    // "*" before the title while SAVE would write other bytes than the file holds: quitting
    // does not ask, so the title is the operator's warning. Changes not stored into a scene
    // are in no file; they are marked on the scene button and here in the status bar.
    showWindow(*this, forms_.main.form, readout_.modified() ? QStringLiteral("*") : QString());
    QStringList state;
    if (readout_.selectedCamera() == 0) state << QStringLiteral("GROUP: every camera");
    if (!readout_.workingCopyStored()) state << QStringLiteral("not stored");
    const QString stateText = state.join(QStringLiteral(" \u00b7 "));
    if (panelState_->text() != stateText) panelState_->setText(stateText);
    cameras_->render();
    scenes_->render();
    gestures_->render();
    transfer_->render();
    modes_->render();
    levels_->render();
    extras_->render();
    monitor_->render();
    menus_->render();
    status_->render();
    answers_->render();
    keys_->render();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    forward_([s = &station_] { s->Form_Unload(); });
    event->accept();
}

}  // namespace station::ui
