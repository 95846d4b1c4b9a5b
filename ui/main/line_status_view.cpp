#include "ui/main/line_status_view.hpp"

#include "app/station_readout.hpp"
#include "ui/widgets/render.hpp"

namespace station::ui {

LineStatusView::LineStatusView(const Station& station, QWidget* parent) : QLabel(parent), station_(station) {
    setObjectName(QStringLiteral("lineStatus"));
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    render();
}

void LineStatusView::render() {
    const QString text = qs(station_.lineStatus());
    if (text != this->text()) {
        setText(text);
        setToolTip(text);  // whole, where a narrow window cuts the label
    }
    const LineCondition now = StationReadout(station_).lineCondition();
    if (now == shown_) return;
    // A line that is not connected stands out; a connected one looks like any status text.
    setStyleSheet(now == LineCondition::Connected ? QString() : QStringLiteral("color: #b35c00; font-weight: bold;"));
    shown_ = now;
}

}  // namespace station::ui
