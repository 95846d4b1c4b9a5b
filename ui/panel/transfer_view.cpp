#include "ui/panel/transfer_view.hpp"

#include <QGridLayout>
#include <QPushButton>

namespace station::ui {

namespace {

QPushButton* actionButton(QWidget* parent, const char* name, QAction& action) {
    auto* button = new QPushButton(parent);
    button->setObjectName(QString::fromLatin1(name));
    bindButton(*button, action);
    return button;
}

}  // namespace

TransferView::TransferView(Form1& form, const GestureActions& actions, const Forward& forward, QWidget* parent)
    : QGroupBox(QStringLiteral("PAGE"), parent), form_(form),
      open_(actionButton(this, "Command10", actions.open())),
      save_(actionButton(this, "Command11", actions.save())),
      read_(actionButton(this, "Command12", actions.readPage())),
      send_(actionButton(this, "Command13", actions.sendPage())),
      page_(commandButton(this, "Command3", forward, [f = &form] { f->Command3.click(); })) {
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
    showCaption(*open_, form_.Command10);
    showCaption(*save_, form_.Command11);
    showCaption(*read_, form_.Command12);
    showCaption(*send_, form_.Command13);
    showButton(*page_, form_.Command3);
}

}  // namespace station::ui
