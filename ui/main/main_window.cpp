#include "ui/main/main_window.hpp"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>

#include "ui/main/answer_marks.hpp"
#include "ui/panel/camera_select_view.hpp"
#include "ui/main/line_status_view.hpp"
#include "ui/panel/filter_tally_view.hpp"
#include "ui/panel/levels_view.hpp"
#include "ui/main/main_tooltips.hpp"
#include "ui/panel/mode_view.hpp"
#include "ui/panel/monitor_view.hpp"
#include "ui/panel/scene_view.hpp"
#include "ui/panel/transfer_view.hpp"
#include "ui/widgets/focus_mark.hpp"

namespace station::ui {

MainWindow::MainWindow(Station& station, Forward forward)
    : station_(station), forward_(std::move(forward)) {
    setObjectName(QStringLiteral("Form1"));
    auto* central = new QWidget(this);
    cameras_ = new CameraSelectView(station.form1, forward_, central);
    scenes_ = new SceneView(station, forward_, central);
    transfer_ = new TransferView(station, forward_, central);
    modes_ = new ModeView(station.form1, station.panel, forward_, central);
    levels_ = new LevelsView(station.form1, forward_, central);
    extras_ = new FilterTallyView(station, forward_, central);
    monitor_ = new MonitorView(station.link, station.form1, central);

    auto* left = new QVBoxLayout;
    left->addWidget(scenes_);
    left->addWidget(transfer_);
    left->addStretch(1);

    auto* middle = new QHBoxLayout;
    middle->addLayout(left);
    middle->addWidget(modes_, 1);
    middle->addWidget(extras_);
    middle->addWidget(levels_);

    auto* column = new QVBoxLayout(central);
    column->addWidget(cameras_);
    column->addLayout(middle, 1);
    column->addWidget(monitor_);
    setCentralWidget(central);
    new FocusMark(*central);

    menus_ = std::make_unique<MainMenus>(station, forward_, *menuBar());
    keys_ = std::make_unique<MainKeys>(station.form1, forward_, *this, *menus_);
    std::vector<QWidget*> reading{cameras_, scenes_, transfer_};
    for (QWidget* group : gridOrder(*modes_)) reading.push_back(group);
    reading.insert(reading.end(), {extras_, levels_});
    setReadingOrder(reading);
    explainMainWindow(*this);
    status_ = new LineStatusView(station, this);
    statusBar()->addWidget(status_, 1);
    answers_ = std::make_unique<AnswerMarks>(station.line, *cameras_);
    render();
}

MainWindow::~MainWindow() = default;

void MainWindow::render() {
    // "*" before the title while the settings hold changes not saved: quitting does not
    // ask, so the title is the operator's warning.
    showWindow(*this, station_.form1.form, station_.setupFile.modified() ? QStringLiteral("*") : QString());
    cameras_->render();
    scenes_->render();
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
