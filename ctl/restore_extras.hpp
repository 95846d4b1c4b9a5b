#pragma once
// What a restore sets beyond "PC to Camera". The page send carries no gain step and no gain
// step values, and writes the white mode in a way that clears it; a restored camera would go
// on air with the wrong gain and white balance. So after the page, the selected camera is
// given those settings through the panel's own gestures, as an operator would set them by
// hand: the gain step values with their spin buttons, the gain step and white mode with
// their buttons. The station's stored settings end as the file holds them.

#include <string>
#include <vector>

#include "app/actions.hpp"

namespace station::ctl {

// Sets them on the selected camera (queued behind its page). Says what was set, one entry
// each ("gain mid 9", "gain step MID", "white B"); std::runtime_error when a gesture was
// refused or failed.
std::vector<std::string> restoreBeyondPage(Actions& actions);

}  // namespace station::ctl
