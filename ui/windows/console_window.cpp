#include "ui/windows/console_window.hpp"

#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace station::ui {

namespace {

QLineEdit* textBox(QWidget* parent, const char* name, TextBox& model, const Forward& forward) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(QString::fromLatin1(name));
    edit->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    TextBox* m = &model;
    QObject::connect(edit, &QLineEdit::textEdited,
                     [m, forward](const QString& text) { forward([m, t = fromQt(text)] { m->setText(t); }); });
    return edit;
}

}  // namespace

ConsoleWindow::ConsoleWindow(const StationForms& forms, const Forward& forward, QWidget* parent)
    : SatelliteWindow(forms.console.form, forward, parent, "Form5"), console_(forms.console),
      text1_(textBox(this, "Text1", forms.console.Text1, forward)),
      text2_(textBox(this, "Text2", forms.console.Text2, forward)),
      text3_(textBox(this, "Text3", forms.console.Text3, forward)),
      command1_(commandButton(this, "Command1", forward, [c = &forms.console] { c->Command1.click(); })),
      command2_(commandButton(this, "Command2", forward, [c = &forms.console] { c->Command2.click(); })),
      list_(new QListWidget(this)), label_(new QLabel(this)) {
    list_->setObjectName(QStringLiteral("List1"));
    list_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    label_->setObjectName(QStringLiteral("Label1"));
    text3_->setMaximumWidth(64);

    auto* grid = new QGridLayout(this);
    grid->addWidget(text1_, 0, 0);
    grid->addWidget(command1_, 0, 1);
    grid->addWidget(text2_, 1, 0);
    grid->addWidget(command2_, 1, 1);
    grid->addWidget(text3_, 2, 0, Qt::AlignLeft);
    grid->addWidget(label_, 2, 1);
    grid->addWidget(list_, 3, 0, 1, 2);
    resize(560, 420);
    render();
}

void ConsoleWindow::render() {
    renderWindow();
    if (!isVisible()) return;
    showText(*text1_, console_.Text1.text());
    showText(*text2_, console_.Text2.text());
    showText(*text3_, console_.Text3.text());
    showButton(*command1_, console_.Command1);
    showButton(*command2_, console_.Command2);
    showList(*list_, console_.List1);
    showLabel(*label_, console_.Label1);
}

}  // namespace station::ui
