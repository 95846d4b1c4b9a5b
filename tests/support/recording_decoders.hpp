#pragma once
// Reply decoders that only record their calls, as "Name(a,b,c)" texts.

#include <string>
#include <vector>

#include "link/reply_decoders.hpp"

namespace station::testing {

class RecordingDecoders : public ReplyDecoders {
public:
    using S = const std::string&;
    void RecModeMain(S a, S b, S c) override { record("RecModeMain", a + "," + b + "," + c); }
    void RecModeFunc(S a, S b, S c) override { record("RecModeFunc", a + "," + b + "," + c); }
    void RecAnalogMain(S a, S b, S c) override { record("RecAnalogMain", a + "," + b + "," + c); }
    void RecAnalogFunc(S a, S b, S c, S d) override { record("RecAnalogFunc", a + "," + b + "," + c + "," + d); }
    void RecAuto(S a, S b) override { record("RecAuto", a + "," + b); }
    std::vector<std::string> calls;

private:
    void record(const char* name, const std::string& args) { calls.push_back(std::string(name) + "(" + args + ")"); }
};

}  // namespace station::testing
