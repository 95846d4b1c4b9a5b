#include "ui/main/main_tooltips.hpp"

#include <QWidget>

#include "ui/main/main_keys.hpp"

namespace station::ui {

namespace {

struct Tip {
    const char* name;
    const char* text;
};

// Names are the controls' names; a name ending in "*" covers a whole button group.
constexpr Tip kTips[] = {
    {"CamCopy", "COPY: tick it, then press a camera button: that camera gets a copy of the selected camera's "
                "stored settings and becomes the selected one. One-shot. Sends nothing to the cameras."},
    {"Option7*", "Scene: loads this stored scene into the working copy. With STORE ticked, stores the working copy "
                 "into it instead. Sends nothing to the camera; \"PC to Camera\" does."},
    {"ScnStore", "STORE: tick it, then press a scene button to store the working copy into that scene. One-shot. "
                 "Sends nothing."},
    {"Command2", "CLEAR: discards the unstored changes: the working copy is reloaded from the selected scene. "
                 "Sends nothing."},
    {"Command1", "PRESET: no action."},
    {"Command6", "LENS: no action."},
    {"Command5", "FUNC: shows the \"Function\" window, the function editor of the selected camera."},
    {"Command10", "Open: opens a setup data file (*.csd) as File > OPEN does. Sends nothing."},
    {"Command11", "Save: saves the setup data to the open file, or asks for a name as SAVE AS does."},
    {"Command12", "Camera to PC: reads every setting of the selected camera into the working copy."},
    {"Command13", "PC to Camera: writes the working copy of the selected camera (panel and every function page) "
                  "to the camera."},
    {"Command3", "1Page to CAM: sends the one function page shown in the \"Function\" window, not the panel."},
    {"OptBar*", "Colour bars: sent to the camera at once."},
    {"OptDtl*", "Detail on or off: sent to the camera at once."},
    {"OptSht*", "Shutter on or off: sent to the camera at once."},
    {"OptGain*", "Gain step: sent to the camera at once; the value of each step stands beside it."},
    {"OptWhite*", "White balance memory: sent to the camera at once."},
    {"OptIris*", "Iris mode: sent to the camera at once. The iris level is sent in MANUAL and AUTO only."},
    {"OptMonsel*", "Monitor output: the signal the camera puts on its monitor output; sent at once."},
    {"SpinButton2.up", "Steps the camera's optical filter up; sent at once."},
    {"SpinButton2.down", "Steps the camera's optical filter down; sent at once."},
    {"Label16", "The filter position the camera reported."},
    {"Label15", "Tally lamp: red while the camera reports tally or while CALL is held."},
    {"Command9", "CALL: calls the camera operator for as long as it is held down (needs Ack On)."},
    {"Command8", "WHITE: starts the camera's automatic white balance; the result shows in \"Auto Message\"."},
    {"Command7", "BLACK: starts the camera's automatic black balance; the result shows in \"Auto Message\"."},
    {"Label10", "The bytes of the last frame sent on the line."},
    {"Label11", "The bytes of the last frame received from the line."},
};

constexpr const char* kLevelTip =
    "%1 level: sent to the camera when the thumb is let go, or at each step of the arrows, "
    "the trough, and the keys (arrows one step, Page Up and Page Down ten). The wheel moves it only when "
    "it has the keyboard focus.";

void tip(QWidget& window, const QString& name, const QString& text) {
    if (auto* w = window.findChild<QWidget*>(name)) w->setToolTip(text);
}

}  // namespace

void explainMainWindow(QWidget& window) {
    for (const Tip& t : kTips) {
        QString name = QString::fromLatin1(t.name);
        const QString text = QString::fromLatin1(t.text);
        if (!name.endsWith(QLatin1Char('*'))) {
            tip(window, name, text);
            continue;
        }
        name.chop(1);
        for (QWidget* w : window.findChildren<QWidget*>())
            if (w->objectName().startsWith(name + QLatin1Char('('))) w->setToolTip(text);
    }
    tip(window, QStringLiteral("Option9(0)"),
        QStringLiteral("GROUP (key %1): the panel's commands go to the whole group of cameras, without acknowledge. "
                       "Selecting sends nothing.")
            .arg(MainKeys::cameraKey(0)));
    for (int camera = 1; camera <= 8; ++camera)
        tip(window, QStringLiteral("Option9(%1)").arg(camera),
            QStringLiteral("Camera %1 (key %2): shows its working copy on the panel. Selecting sends nothing to the "
                           "camera; \"PC to Camera\" does.")
                .arg(camera)
                .arg(MainKeys::cameraKey(camera)));
    const char* levels[][2] = {{"VrMblk", "Master black"}, {"VrIris", "Iris"},       {"VrDtl", "Detail"},
                               {"VrRGain", "Red gain"},    {"VrBGain", "Blue gain"}, {"VrRBlk", "Red black"},
                               {"VrBBlk", "Blue black"}};
    for (const auto& level : levels)
        tip(window, QString::fromLatin1(level[0]) + QStringLiteral(".bar"),
            QString::fromLatin1(kLevelTip).arg(QString::fromLatin1(level[1])));
}

}  // namespace station::ui
