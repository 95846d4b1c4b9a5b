#include "ui/platform/qt_file_dialogs.hpp"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

#include "ui/platform/file_filter.hpp"
#include "ui/widgets/render.hpp"

namespace station::ui {

namespace {

std::optional<std::string> ask(ModalPause& pause, QFileDialog::AcceptMode mode, const QString& caption,
                               const std::string& filter) {
    QFileDialog dialog(QApplication::activeWindow(), caption, QString(), qs(qtFileFilter(filter)));
    dialog.setObjectName(QStringLiteral("fileDialog"));
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setOption(QFileDialog::ReadOnly, false);
    // From outside the dialog can only be cancelled: nobody there chooses a file.
    const ModalPause::Scope paused(pause, "file dialog: " + caption.toStdString(), [&dialog] { dialog.reject(); });
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString();
}

}  // namespace

std::optional<std::string> QtFileDialogs::openFile(const std::string& filter) {
    return ask(pause_, QFileDialog::AcceptOpen, QStringLiteral("Open"), filter);
}

std::optional<std::string> QtFileDialogs::saveFile(const std::string& filter) {
    return ask(pause_, QFileDialog::AcceptSave, QStringLiteral("Save As"), filter);
}

bool QtFileDialogs::confirmReplace(const std::string& path) {
    const QString question = QStringLiteral("%1 already exists.\nDo you want to replace it?")
                                 .arg(QFileInfo(QFile::decodeName(path.c_str())).fileName());
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Save As"), question, QMessageBox::Yes | QMessageBox::No,
                    QApplication::activeWindow());
    box.setObjectName(QStringLiteral("replaceQuestion"));
    box.setDefaultButton(QMessageBox::No);
    // From outside it is answered as its default button: the file is kept.
    const ModalPause::Scope paused(pause_, QString(question).replace(QLatin1Char('\n'), QLatin1Char(' ')).toStdString(), [&box] { box.button(QMessageBox::No)->click(); });
    return box.exec() == QMessageBox::Yes;
}

}  // namespace station::ui
