#pragma once
// The main window, "Camera Control": camera selection, scenes, page transfer, the mode
// groups, the level bars, filter, tally and auto set-up, the traffic monitor and the
// menus. Closing it ends the station as "&Quit" does.

#include <QLabel>
#include <QMainWindow>

#include <memory>

#include "app/station.hpp"
#include "ui/main/gesture_actions.hpp"
#include "ui/main/main_keys.hpp"
#include "ui/main/main_menus.hpp"
#include "ui/widgets/render.hpp"

namespace station::ui {

class CameraSelectView;
class SceneView;
class TransferView;
class ModeView;
class LevelsView;
class FilterTallyView;
class MonitorView;
class LineStatusView;
class AnswerMarks;
class NoticeQueue;

class MainWindow : public QMainWindow {
public:
    MainWindow(Station& station, Forward forward);
    ~MainWindow() override;
    void render();
    MainMenus& menus() { return *menus_; }
    GestureActions& gestures() { return *gestures_; }
    NoticeQueue& notices() { return *notices_; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    Station& station_;
    const StationForms forms_;
    const StationReadout readout_;
    Forward forward_;
    std::unique_ptr<GestureActions> gestures_;  // before the buttons and menus that share them
    CameraSelectView* cameras_;
    SceneView* scenes_;
    TransferView* transfer_;
    ModeView* modes_;
    LevelsView* levels_;
    FilterTallyView* extras_;
    MonitorView* monitor_;
    std::unique_ptr<MainMenus> menus_;
    LineStatusView* status_;
    QLabel* panelState_;  // "GROUP: every camera", "not stored"
    NoticeQueue* notices_;
    std::unique_ptr<AnswerMarks> answers_;
    std::unique_ptr<MainKeys> keys_;
};

}  // namespace station::ui
