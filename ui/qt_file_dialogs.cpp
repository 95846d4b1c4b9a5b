#include "ui/qt_file_dialogs.hpp"

#include <QApplication>
#include <QFile>
#include <QFileDialog>

#include "ui/file_filter.hpp"
#include "ui/render.hpp"

namespace station::ui {

namespace {

std::optional<std::string> ask(QFileDialog::AcceptMode mode, const QString& caption, const std::string& filter) {
    QFileDialog dialog(QApplication::activeWindow(), caption, QString(), qs(qtFileFilter(filter)));
    dialog.setObjectName(QStringLiteral("fileDialog"));
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setOption(QFileDialog::ReadOnly, false);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString();
}

}  // namespace

std::optional<std::string> QtFileDialogs::openFile(const std::string& filter) {
    const ModalPause::Scope paused(pause_);
    return ask(QFileDialog::AcceptOpen, QStringLiteral("Open"), filter);
}

std::optional<std::string> QtFileDialogs::saveFile(const std::string& filter) {
    const ModalPause::Scope paused(pause_);
    return ask(QFileDialog::AcceptSave, QStringLiteral("Save As"), filter);
}

}  // namespace station::ui
