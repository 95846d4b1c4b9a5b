#pragma once
// Auto white and auto black: the request to the camera, the "Auto Message" window that
// says "Now doing" while the camera works, and the result text, after which the window
// hides itself (about 1.5 s for an OK, 3 s for an NG, 2 s when no result can be read).

#include <string>

#include "common/controls.hpp"
#include "common/shared.hpp"
#include "link/link.hpp"

namespace station {

// The auto-message window (Form6).
struct Form6 {
    FormWindow form{"Auto Message"};
    Label Label1;  // the operation
    Label Label2;  // "Now doing" or the result
    Timer Timer1;  // the hiding countdown, 500 ms
};

class AutoSetup {
public:
    AutoSetup(Shared& shared, Link& link, Form6& form);

    void Command8_Click() { start("10", "AUTO WHITE"); }  // "WHITE"
    void Command7_Click() { start("20", "AUTO BLACK"); }  // "BLACK"
    void SendAuto(const std::string& command, const std::string& operation);
    void RecAuto(const std::string& operation, const std::string& result);
    void Timer1_Timer();  // Form6's countdown tick
    // Sends the request and shows "Now doing" under `title`; the function editor's
    // automatic-setup actions start here too, so that their result is shown the same way.
    void start(const std::string& operation, const std::string& title);

    Integer AutoCount() const { return autoCount_; }

    // The text shown for a result code ("NG : ????" for a code the cameras do not define).
    static std::string resultText(const std::string& result);

private:
    Shared& shared_;
    Link& link_;
    Form6& form_;
    Integer autoCount_ = 0;
};

}  // namespace station
