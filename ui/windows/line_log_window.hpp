#pragma once
// "Line log": the line's faults and state changes, newest first, the last 1000; the text
// can be selected and copied, or copied whole with "Copy all".

#include <cstdint>
#include <limits>

#include "app/station.hpp"
#include "ui/windows/satellite_window.hpp"

class QPlainTextEdit;

namespace station::ui {

class LineLogWindow : public SatelliteWindow {
public:
    LineLogWindow(const StationForms& forms, const Forward& forward, QWidget* parent);
    void render();

private:
    const LineLog& log_;
    QPlainTextEdit* text_;
    std::uint64_t shown_ = std::numeric_limits<std::uint64_t>::max();
};

}  // namespace station::ui
