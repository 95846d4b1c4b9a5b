#include "ui/platform/qt_messages.hpp"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>

#include "ui/widgets/render.hpp"

namespace station::ui {

namespace {

QMessageBox::Icon boxIcon(Icon icon) {
    switch (icon) {
        case Icon::Exclamation: return QMessageBox::Warning;
        case Icon::Stop: return QMessageBox::Critical;
        case Icon::Information: return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

}  // namespace

QString QtMessages::boxText(const std::string& text) {
    QString out = fileText(text);
    out.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    out.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return out;
}

void QtMessages::show(const std::string& text, Icon icon) {
    QMessageBox box(boxIcon(icon), QString::fromLatin1(kApplicationTitle), boxText(text), QMessageBox::Ok,
                    QApplication::activeWindow());
    box.setObjectName(QStringLiteral("message"));
    box.setTextFormat(Qt::PlainText);
    // Lines as one, so that a remote client reads the box's text on its one line.
    std::string oneLine = text;
    for (char& c : oneLine)
        if (c == '\r' || c == '\n') c = ' ';
    const ModalPause::Scope paused(pause_, oneLine, [&box] { box.button(QMessageBox::Ok)->click(); });
    box.exec();
}

}  // namespace station::ui
