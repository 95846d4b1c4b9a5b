#pragma once
// Walks a menu bar and every menu below it and names each Alt key that two entries of one
// level share ("Setup: Alt+R twice"). Empty when every level's mnemonics are unique.

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QStringList>

#include <map>

namespace station::testing {

inline void walkMnemonics(const QString& where, const QList<QAction*>& actions, QStringList& clashes) {
    std::map<int, int> seen;
    for (QAction* a : actions) {
        if (a->isSeparator()) continue;
        const QKeySequence key = QKeySequence::mnemonic(a->text());
        if (!key.isEmpty() && ++seen[key[0].toCombined()] == 2)
            clashes << QStringLiteral("%1: %2 twice").arg(where, key.toString());
        if (a->menu() != nullptr) {
            QString name = a->text();
            walkMnemonics(name.remove(QLatin1Char('&')), a->menu()->actions(), clashes);
        }
    }
}

inline QStringList mnemonicClashes(const QMenuBar& bar) {
    QStringList clashes;
    walkMnemonics(QStringLiteral("menu bar"), bar.actions(), clashes);
    return clashes;
}

}  // namespace station::testing
