#include "ui/panel/scene_view.hpp"

#include <QCheckBox>
#include <QGridLayout>
#include <QPainter>
#include <QPushButton>

namespace station::ui {

namespace {

// A small orange dot: the selected scene does not hold what the panel shows.
class NotStoredMark : public QWidget {
public:
    explicit NotStoredMark(QWidget* parent) : QWidget(parent) {
        setObjectName(QStringLiteral("notStoredMark"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFixedSize(9, 9);
        hide();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(QColor(0x5a, 0x2e, 0x00), 1));
        painter.setBrush(QColor(0xff, 0x8c, 0x00));
        painter.drawEllipse(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    }
};

}  // namespace

SceneView::SceneView(Form1& form, StationReadout readout, const Forward& forward, QWidget* parent)
    : QGroupBox(QStringLiteral("SCENE"), parent), form_(form), readout_(readout),
      scenes_(form.Option7, "Option7", OptionButtons::Look::Push, this,
              [f = &form, forward](int i) { forward([f, i] { f->Option7.click(i); }); }),
      store_(new QCheckBox(this)),
      clear_(commandButton(this, "Command2", forward, [f = &form] { f->Command2.click(); })),
      preset_(commandButton(this, "Command1", forward, [f = &form] { f->Command1.click(); })),
      func_(commandButton(this, "Command5", forward, [f = &form] { f->Command5.click(); })),
      lens_(commandButton(this, "Command6", forward, [f = &form] { f->Command6.click(); })),
      mark_(new NotStoredMark(this)) {
    setObjectName(QStringLiteral("scenes"));
    store_->setObjectName(QStringLiteral("ScnStore"));
    QObject::connect(store_, &QCheckBox::clicked, [f = &form, forward] {
        forward([f] { f->ScnStore.setValue(f->ScnStore.value() == 1 ? 0 : 1); });
    });

    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(4);
    for (int scene = 1; scene <= 4; ++scene) {
        scenes_.button(scene).setMinimumWidth(40);
        grid->addWidget(&scenes_.button(scene), 0, scene - 1);
    }
    grid->addWidget(store_, 0, 4);
    grid->addWidget(clear_, 1, 0, 1, 2);
    grid->addWidget(preset_, 1, 2, 1, 2);
    grid->addWidget(func_, 2, 0, 1, 2);
    grid->addWidget(lens_, 2, 2, 1, 2);
    render();
}

void SceneView::render() {
    scenes_.render();
    showCheck(*store_, form_.ScnStore);
    showButton(*clear_, form_.Command2);
    showButton(*preset_, form_.Command1);
    showButton(*func_, form_.Command5);
    showButton(*lens_, form_.Command6);
    renderMark();
}

void SceneView::renderMark() {
    const int scene = readout_.sceneOf(readout_.selectedCamera());
    const bool show = scene >= 1 && scene <= 4 && !readout_.workingCopyStored();
    if (show) {
        QAbstractButton& button = scenes_.button(scene);
        if (mark_->parentWidget() != &button) {
            mark_->setParent(&button);
            mark_->setToolTip(QStringLiteral("The panel holds changes not stored into this scene"));
        }
        const QPoint corner(button.width() - mark_->width() - 3, 3);
        if (mark_->pos() != corner) mark_->move(corner);
    }
    if (mark_->isVisible() != show) mark_->setVisible(show);
}

}  // namespace station::ui
