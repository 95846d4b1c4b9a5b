#pragma once
// What became of a named action: done; refused before anything happened (the control is
// greyed, or the gesture would do something else); or failed at the station's error
// boundary, where the operator was told. Clients word a refusal or failure as they like
// ("ERR ..." for a remote command, a line on standard error for corvane-ctl).

#include <string>
#include <utility>

namespace station {

class [[nodiscard]] ActionResult {
public:
    enum class Status { Done, Refused, Failed };

    static ActionResult done() { return ActionResult(Status::Done, {}); }
    static ActionResult refused(std::string why) { return ActionResult(Status::Refused, std::move(why)); }
    static ActionResult failed(std::string why) { return ActionResult(Status::Failed, std::move(why)); }

    bool ok() const { return status_ == Status::Done; }
    // Whether the gesture ran (done or failed half-way): the windows have something to redraw.
    bool acted() const { return status_ != Status::Refused; }
    Status status() const { return status_; }
    const std::string& why() const { return why_; }

private:
    ActionResult(Status status, std::string why) : status_(status), why_(std::move(why)) {}
    Status status_;
    std::string why_;
};

}  // namespace station
