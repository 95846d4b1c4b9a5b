#include "ui/panel/transfer_view.hpp"

#include <QGridLayout>
#include <QPushButton>

namespace station::ui {

TransferView::TransferView(Station& station, const Forward& forward, QWidget* parent)
    : QGroupBox(QStringLiteral("PAGE"), parent), form_(station.form1),
      open_(commandButton(this, "Command10", forward, [s = &station] { s->Command10_Click(); })),
      save_(commandButton(this, "Command11", forward, [s = &station] { s->Command11_Click(); })),
      read_(commandButton(this, "Command12", forward, [s = &station] { s->pages.Command12_Click(); })),
      send_(commandButton(this, "Command13", forward, [s = &station] { s->pages.Command13_Click(); })),
      page_(commandButton(this, "Command3", forward, [s = &station] { s->pages.Command3_Click(); })) {
    setObjectName(QStringLiteral("transfer"));
    auto* grid = new QGridLayout(this);
    grid->setSpacing(4);
    grid->addWidget(open_, 0, 0);
    grid->addWidget(save_, 0, 1);
    grid->addWidget(read_, 1, 0);
    grid->addWidget(send_, 1, 1);
    grid->addWidget(page_, 2, 0, 1, 2);
    render();
}

void TransferView::render() {
    showButton(*open_, form_.Command10);
    showButton(*save_, form_.Command11);
    showButton(*read_, form_.Command12);
    showButton(*send_, form_.Command13);
    showButton(*page_, form_.Command3);
}

}  // namespace station::ui
