#include "ui/platform/qt_messages.hpp"

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
    const ModalPause::Scope paused(pause_);
    QMessageBox box(boxIcon(icon), QString::fromLatin1(kApplicationTitle), boxText(text), QMessageBox::Ok,
                    QApplication::activeWindow());
    box.setObjectName(QStringLiteral("message"));
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

}  // namespace station::ui
