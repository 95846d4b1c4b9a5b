#include "ui/panel/scene_view.hpp"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>

namespace station::ui {

SceneView::SceneView(Station& station, const Forward& forward, QWidget* parent)
    : QGroupBox(QStringLiteral("SCENE"), parent), form_(station.form1),
      scenes_(station.form1.Option7, "Option7", OptionButtons::Look::Push, this,
              [f = &station.form1, forward](int i) { forward([f, i] { f->Option7.click(i); }); }),
      store_(new QCheckBox(this)),
      clear_(commandButton(this, "Command2", forward, [s = &station] { s->scenes.Command2_Click(); })),
      preset_(commandButton(this, "Command1", forward, [s = &station] { s->scenes.Command1_Click(); })),
      func_(commandButton(this, "Command5", forward, [s = &station] { s->scenes.Command5_Click(); })),
      lens_(commandButton(this, "Command6", forward, [s = &station] { s->scenes.Command6_Click(); })) {
    setObjectName(QStringLiteral("scenes"));
    store_->setObjectName(QStringLiteral("ScnStore"));
    QObject::connect(store_, &QCheckBox::clicked, [f = &station.form1, forward] {
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
}

}  // namespace station::ui
