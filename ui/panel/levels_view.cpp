#include "ui/panel/levels_view.hpp"

#include <QHBoxLayout>

namespace station::ui {

LevelsView::LevelsView(Form1& form, const Forward& forward, QWidget* parent)
    : QGroupBox(QStringLiteral("LEVEL"), parent) {
    setObjectName(QStringLiteral("levels"));
    struct Level {
        ScrollBar& bar;
        Label& number;
        const char* title;
        const char* name;
    };
    const Level levels[] = {
        {form.VrMblk, form.Label3, "M.BLK", "VrMblk"},     {form.VrIris, form.Label2, "IRIS", "VrIris"},
        {form.VrDtl, form.Label4, "DTL", "VrDtl"},         {form.VrRGain, form.Label6, "R.GAIN", "VrRGain"},
        {form.VrBGain, form.Label5, "B.GAIN", "VrBGain"},  {form.VrRBlk, form.Label8, "R.BLK", "VrRBlk"},
        {form.VrBBlk, form.Label7, "B.BLK", "VrBBlk"},
    };
    auto* row = new QHBoxLayout(this);
    row->setSpacing(2);
    for (const Level& level : levels) {
        ScrollBar* bar = &level.bar;
        bars_.push_back(new LevelBar(level.bar, level.number, QString::fromLatin1(level.title), level.name, this,
                                     [bar, forward](int v) { forward([bar, v] { bar->setValue(v); }); }));
        row->addWidget(bars_.back());
    }
}

void LevelsView::render() {
    for (LevelBar* bar : bars_) bar->render();
}

}  // namespace station::ui
