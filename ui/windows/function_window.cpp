#include "ui/windows/function_window.hpp"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QShortcut>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>

#include "app/availability.hpp"

namespace station::ui {

namespace {

// A spin box that shows and takes its value in upper-case hex, zero-padded to the item's
// width (two or four digits).
class HexSpinBox : public QSpinBox {
public:
    explicit HexSpinBox(QWidget* parent) : QSpinBox(parent) { setDisplayIntegerBase(16); }
    void setDigits(int digits) { digits_ = digits; }

protected:
    QString textFromValue(int value) const override {
        return QString::number(value, 16).toUpper().rightJustified(digits_, QLatin1Char('0'));
    }

private:
    int digits_ = 2;
};

QLabel* heading(const char* text, QWidget* parent) {
    auto* label = new QLabel(QString::fromLatin1(text), parent);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    return label;
}

}  // namespace

FunctionWindow::FunctionWindow(const StationForms& forms, const Forward& forward, QWidget* parent)
    : SatelliteWindow(forms.function.form, forward, parent, "Form2"), form_(forms.function),
      functions_(new QListWidget(this)), scene_(new QLabel(this)), items_(new QListWidget(this)),
      item_(new QLabel(this)), choices_(new QWidget(this)), search_(new QLineEdit(choices_)),
      values_(new QListWidget(choices_)), analog_(new QWidget(this)), slider_(new QSlider(Qt::Horizontal, analog_)),
      hex_(new HexSpinBox(analog_)), value_(new QLabel(this)) {
    Form2* f = &forms.function;
    functions_->setObjectName(QStringLiteral("List1"));
    functions_->setToolTip(QStringLiteral("The functions of the selected camera's type; choosing one shows its "
                                          "items without sending them"));
    QObject::connect(functions_, &QListWidget::currentRowChanged,
                     [f, forward](int row) { forward([f, row] { f->List1.setListIndex(row); }); });

    scene_->setObjectName(QStringLiteral("Label1"));
    scene_->setToolTip(QStringLiteral("Whether the page's values belong to the camera or to the scene in use"));
    items_->setObjectName(QStringLiteral("List2"));
    items_->setToolTip(QStringLiteral("The function's items and the values the station keeps for the camera"));
    QObject::connect(items_, &QListWidget::currentRowChanged,
                     [f, forward](int row) { forward([f, row] { f->List2.setListIndex(row); }); });

    item_->setObjectName(QStringLiteral("Label2"));
    search_->setObjectName(QStringLiteral("List3.search"));
    search_->setPlaceholderText(QStringLiteral("Search"));
    search_->setClearButtonEnabled(true);
    search_->setToolTip(QStringLiteral("Shows only the values whose name holds this text"));
    QObject::connect(search_, &QLineEdit::textChanged, [this] { applyFilter(); });
    // Enter in the search chooses the first value that matches, as Enter on it would; with
    // nothing typed it chooses nothing (every value would match, and the first would go).
    QObject::connect(search_, &QLineEdit::returnPressed, [f, forward, this] {
        if (search_->text().trimmed().isEmpty()) return;
        int row = 0;
        while (row < values_->count() && values_->item(row)->isHidden()) ++row;
        if (row >= values_->count() || !values_->isEnabled()) return;
        values_->setCurrentRow(row);
        forward([f, row] { f->List3.setListIndex(row); });
    });
    values_->setObjectName(QStringLiteral("List3"));
    values_->setToolTip(QStringLiteral("Click a value, or press Enter on it, to send it to the camera"));
    // A value is chosen by a click or by Enter, not by moving through the list with the
    // arrow keys, so that looking through a long shutter table sends nothing.
    auto choose = [f, forward, this] {
        const int row = values_->currentRow();
        if (row >= 0) forward([f, row] { f->List3.setListIndex(row); });
    };
    QObject::connect(values_, &QListWidget::itemClicked, choose);
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* enter = new QShortcut(QKeySequence(key), values_, nullptr, nullptr, Qt::WidgetShortcut);
        QObject::connect(enter, &QShortcut::activated, choose);
    }

    slider_->setObjectName(QStringLiteral("HScroll1"));
    slider_->setTracking(false);  // a drag sends once, where the slider is let go
    slider_->setToolTip(QStringLiteral("The item's value, from its MIN to its MAX in steps of STEP"));
    hex_->setObjectName(QStringLiteral("HScroll1.hex"));
    hex_->setKeyboardTracking(false);  // typed digits are sent on Enter, not per key
    hex_->setToolTip(QStringLiteral("The value in hexadecimal; the arrows step by STEP"));
    auto setValue = [f, forward](int v) { forward([f, v] { f->HScroll1.setValue(v); }); };
    QObject::connect(slider_, &QSlider::valueChanged, setValue);
    QObject::connect(hex_, &QSpinBox::valueChanged, setValue);
    value_->setObjectName(QStringLiteral("Label3"));
    value_->setToolTip(QStringLiteral("The item's value and its range"));

    auto* choiceColumn = new QVBoxLayout(choices_);
    choiceColumn->setContentsMargins(0, 0, 0, 0);
    choiceColumn->addWidget(search_);
    choiceColumn->addWidget(values_);
    auto* analogRow = new QHBoxLayout(analog_);
    analogRow->setContentsMargins(0, 0, 0, 0);
    analogRow->addWidget(slider_, 1);
    analogRow->addWidget(hex_);

    auto* functionColumn = new QVBoxLayout;
    functionColumn->addWidget(heading("FUNCTION LIST", this));
    functionColumn->addWidget(functions_, 1);
    auto* itemColumn = new QVBoxLayout;
    itemColumn->addWidget(heading("ITEM LIST", this));
    itemColumn->addWidget(scene_);
    itemColumn->addWidget(items_, 1);
    auto* valueColumn = new QVBoxLayout;
    valueColumn->addWidget(heading("MODE/VALUE", this));
    valueColumn->addWidget(item_);
    valueColumn->addWidget(choices_, 1);
    valueColumn->addWidget(analog_);
    valueColumn->addWidget(value_);
    valueColumn->addStretch(0);
    auto* columns = new QHBoxLayout(this);
    columns->addLayout(functionColumn, 2);
    columns->addLayout(itemColumn, 3);
    columns->addLayout(valueColumn, 3);
    hex_->setMinimumWidth(72);
    functions_->setMinimumWidth(140);
    items_->setMinimumWidth(220);
    values_->setMinimumWidth(200);
    setMinimumHeight(320);
    setTabOrder(functions_, items_);
    setTabOrder(items_, search_);
    setTabOrder(search_, values_);
    setTabOrder(values_, slider_);
    setTabOrder(slider_, hex_);
    render();
}

void FunctionWindow::showEvent(QShowEvent* event) {
    SatelliteWindow::showEvent(event);
    // The window opens on its function list: a key pressed at once only looks.
    functions_->setFocus(Qt::OtherFocusReason);
}

void FunctionWindow::render() {
    renderWindow();
    if (!isVisible()) return;
    showList(*functions_, form_.List1);
    // Greyed while the selected camera has no functions to choose from (GROUP, no type).
    const bool offered = availability::functionItems(form_);
    if (functions_->isEnabled() != offered) functions_->setEnabled(offered);
    showLabel(*scene_, form_.Label1);
    showList(*items_, form_.List2);
    showLabel(*item_, form_.Label2);
    showLabel(*value_, form_.Label3);
    renderValue();
}

void FunctionWindow::renderValue() {
    choices_->setVisible(form_.List3.Enabled);
    analog_->setVisible(form_.HScroll1.Enabled);
    // The operator moves through the values with the arrow keys without choosing; the row
    // is set from the model only when the model's choice or the list itself changed.
    const ListBox& list = form_.List3;
    const QSignalBlocker quiet(*values_);
    bool same = values_->count() == list.listCount();
    for (int i = 0; same && i < list.listCount(); ++i) same = values_->item(i)->text() == qs(list.list(i));
    if (!same) {
        values_->clear();
        for (const std::string& entry : list.items()) values_->addItem(qs(entry));
        search_->clear();  // another item's values: start unfiltered
        applyFilter();
    }
    if (!same || list.listIndex() != shownChoice_) {
        values_->setCurrentRow(list.listIndex());
        shownChoice_ = list.listIndex();
    }
    values_->setEnabled(list.Enabled);

    const ScrollBar& bar = form_.HScroll1;
    if (!bar.Enabled || slider_->isSliderDown()) return;
    const QSignalBlocker quietSlider(*slider_);
    const QSignalBlocker quietHex(*hex_);
    const int lo = std::min(bar.Min, bar.Max);
    const int hi = std::max(bar.Min, bar.Max);
    if (slider_->minimum() != lo || slider_->maximum() != hi) {
        slider_->setRange(lo, hi);
        hex_->setRange(lo, hi);
    }
    slider_->setSingleStep(bar.SmallChange);
    slider_->setPageStep(bar.LargeChange);
    hex_->setSingleStep(bar.SmallChange);
    static_cast<HexSpinBox*>(hex_)->setDigits(hi > 0xFF ? 4 : 2);
    if (slider_->value() != bar.value()) slider_->setValue(bar.value());
    if (hex_->value() != bar.value()) hex_->setValue(bar.value());
}

void FunctionWindow::applyFilter() {
    const QString text = search_->text().trimmed();
    for (int row = 0; row < values_->count(); ++row) {
        QListWidgetItem* entry = values_->item(row);
        entry->setHidden(!text.isEmpty() && !entry->text().contains(text, Qt::CaseInsensitive));
    }
}

}  // namespace station::ui
