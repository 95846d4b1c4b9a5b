#pragma once
// The port chosen in "&Setup" > "Port", kept for the next start in the program's settings
// (~/.config/corvane-station/corvane-station.conf).

#include <optional>

#include "line/line_state.hpp"

namespace station::ui {

std::optional<PortChoice> rememberedPort();
void rememberPort(const PortChoice& choice);

}  // namespace station::ui
