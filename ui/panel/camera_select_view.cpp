#include "ui/panel/camera_select_view.hpp"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>

namespace station::ui {

namespace {

QLabel* cameraLabel(QWidget* parent, const QString& name) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignCenter);
    label->setFrameShape(QFrame::Panel);
    label->setFrameShadow(QFrame::Sunken);
    label->setMinimumWidth(44);
    return label;
}

}  // namespace

CameraSelectView::CameraSelectView(Form1& form, const Forward& forward, QWidget* parent)
    : QGroupBox(parent), form_(form),
      cameras_(form.Option9, "Option9", OptionButtons::Look::Push, this,
               [f = &form, forward](int i) { forward([f, i] { f->Option9.click(i); }); }),
      copy_(new QCheckBox(this)) {
    setObjectName(QStringLiteral("cameraSelect"));
    copy_->setObjectName(QStringLiteral("CamCopy"));
    QObject::connect(copy_, &QCheckBox::clicked, [f = &form, forward] {
        forward([f] { f->CamCopy.setValue(f->CamCopy.value() == 1 ? 0 : 1); });
    });

    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(4);
    grid->addWidget(&cameras_.button(0), 0, 0);
    grid->addWidget(new QLabel(QStringLiteral("Type"), this), 1, 0, Qt::AlignRight);
    grid->addWidget(new QLabel(QStringLiteral("ID"), this), 2, 0, Qt::AlignRight);
    for (int camera = 1; camera <= 8; ++camera) {
        cameras_.button(camera).setMinimumWidth(44);
        grid->addWidget(&cameras_.button(camera), 0, camera);
        types_.push_back(cameraLabel(this, QStringLiteral("Label12(%1)").arg(camera)));
        ids_.push_back(cameraLabel(this, QStringLiteral("Label9(%1)").arg(camera)));
        grid->addWidget(types_.back(), 1, camera);
        grid->addWidget(ids_.back(), 2, camera);
    }
    grid->addWidget(copy_, 0, 9);
    render();
}

void CameraSelectView::render() {
    showFrame(*this, form_.cameraSelect);
    cameras_.render();
    showCheck(*copy_, form_.CamCopy);
    for (int camera = 1; camera <= 8; ++camera) {
        showLabel(*types_.at(static_cast<std::size_t>(camera - 1)), form_.Label12(camera));
        showLabel(*ids_.at(static_cast<std::size_t>(camera - 1)), form_.Label9(camera));
    }
}

}  // namespace station::ui
