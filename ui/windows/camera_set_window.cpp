#include "ui/windows/camera_set_window.hpp"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace station::ui {

CameraSetWindow::CameraSetWindow(const StationForms& forms, const Forward& forward, QWidget* parent)
    : SatelliteWindow(forms.cameraSet.form, forward, parent, "Form4"), form_(forms.cameraSet),
      cameras_(forms.cameraSet.Option1, "Option1", OptionButtons::Look::Push, this,
               [f = &forms.cameraSet, forward](int i) { forward([f, i] { f->Option1.click(i); }); }),
      types_(new QListWidget(this)), note_(new QLabel(this)),
      ok_(commandButton(this, "Command1", forward, [f = &forms.cameraSet] { f->Command1.click(); })) {
    types_->setObjectName(QStringLiteral("List1"));
    note_->setObjectName(QStringLiteral("Label5"));
    note_->setWordWrap(true);
    note_->setFrameShape(QFrame::Panel);
    note_->setFrameShadow(QFrame::Sunken);
    note_->setMinimumHeight(48);
    Form4* f = &forms.cameraSet;
    QObject::connect(types_, &QListWidget::currentRowChanged,
                     [f, forward](int row) { forward([f, row] { f->List1.setListIndex(row); }); });

    auto* grid = new QGridLayout(this);
    grid->addWidget(new QLabel(QStringLiteral("Camera"), this), 0, 0);
    grid->addWidget(new QLabel(QStringLiteral("Type"), this), 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("ID"), this), 0, 2);
    for (int camera = 1; camera <= 8; ++camera) {
        auto* id = new QLineEdit(this);
        id->setObjectName(QStringLiteral("Text1(%1)").arg(camera));
        id->setMaximumWidth(64);
        QObject::connect(id, &QLineEdit::textEdited, [f, forward, camera](const QString& text) {
            forward([f, camera, t = fromQt(text)] { f->Text1(camera).setText(t); });
        });
        ids_.push_back(id);
        cameras_.button(camera).setMinimumWidth(72);
        grid->addWidget(new QLabel(QString::number(camera), this), camera, 0, Qt::AlignCenter);
        grid->addWidget(&cameras_.button(camera), camera, 1);
        grid->addWidget(id, camera, 2);
    }
    grid->addWidget(types_, 0, 3, 9, 1);
    grid->addWidget(note_, 9, 0, 1, 4);
    grid->addWidget(ok_, 10, 3, Qt::AlignRight);
    render();
}

void CameraSetWindow::render() {
    renderWindow();
    if (!isVisible()) return;
    cameras_.render();
    for (int camera = 1; camera <= 8; ++camera) {
        QLineEdit& id = *ids_.at(static_cast<std::size_t>(camera - 1));
        showText(id, form_.Text1(camera).text());
        id.setEnabled(form_.Text1(camera).Enabled);
    }
    showList(*types_, form_.List1);
    showLabel(*note_, form_.Label5);
    showButton(*ok_, form_.Command1);
}

}  // namespace station::ui
