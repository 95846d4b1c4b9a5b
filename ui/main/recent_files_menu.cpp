#include "ui/main/recent_files_menu.hpp"

#include <QAction>
#include <QFile>
#include <QMenu>

#include "ui/start/remembered_settings.hpp"

namespace station::ui {

RecentFilesMenu::RecentFilesMenu(QMenu& file, RememberedSettings& settings,
                                 std::function<void(const std::string&)> open)
    : settings_(settings), open_(std::move(open)), menu_(new QMenu(QStringLiteral("&Recent files"), &file)) {
    menu_->setObjectName(QStringLiteral("recentFiles"));
    QAction* quit = nullptr;
    for (QAction* a : file.actions())
        if (a->text().remove(QLatin1Char('&')) == QStringLiteral("Quit")) quit = a;
    // Before the separator that stands above "&Quit".
    const QList<QAction*> entries = file.actions();
    const qsizetype at = quit ? entries.indexOf(quit) : -1;
    QAction* before = at > 0 && entries[at - 1]->isSeparator() ? entries[at - 1] : quit;
    file.insertMenu(before, menu_);
    QObject::connect(menu_, &QMenu::aboutToShow, menu_, [this] { fill(); });
    fill();
}

void RecentFilesMenu::fill() {
    menu_->clear();
    const auto files = settings_.recentFiles();
    int n = 0;
    for (const std::string& path : files) {
        ++n;
        const QString shown = QFile::decodeName(QByteArray::fromStdString(path));
        QString label = shown;
        label.replace(QLatin1Char('&'), QStringLiteral("&&"));  // a "&" in a path is no shortcut mark
        QAction* entry = menu_->addAction(QStringLiteral("&%1 %2").arg(n).arg(label));
        entry->setToolTip(QStringLiteral("Open %1 again").arg(shown));
        QObject::connect(entry, &QAction::triggered, menu_, [this, path] { open_(path); });
    }
    if (files.empty()) menu_->addAction(QStringLiteral("(none yet)"))->setEnabled(false);
}

}  // namespace station::ui
