#pragma once
// Keyboard for an option-button group: the group is one Tab stop (the selected button, or
// the one last focused), and the arrow keys move inside it in reading order. Radio groups
// select the button an arrow moves to, as radio buttons do; push-button groups (cameras,
// scenes) only move the focus and Space selects, because a scene chosen while "STORE" is
// ticked is stored into. Selecting goes through the button's click, as the mouse does.

#include <QObject>

#include <vector>

class QAbstractButton;

namespace station::ui {

class GroupKeys : public QObject {
public:
    // `columns`: buttons per row, for Up and Down; 0 when they are all in one row.
    GroupKeys(std::vector<QAbstractButton*> buttons, bool selectOnArrow, QObject* parent);

    void setColumns(int columns) { columns_ = columns; }
    // Makes the selected button (or, with none, the first) the Tab stop unless the focus is
    // already inside the group.
    void follow(int selected);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeTabStop(int index);
    int step(int key) const;

    std::vector<QAbstractButton*> buttons_;
    bool selectOnArrow_;
    int columns_ = 0;
    int tabStop_ = -1;
};

}  // namespace station::ui
