#pragma once
// Reply decoders that only record their calls, as "Name(a,b,c)" texts.

#include <string>
#include <vector>

#include "link/reply_decoders.hpp"

namespace station::testing {

class RecordingDecoders : public ReplyDecoders {
public:
    void RecModeMain(const std::string& a, const std::string& b, const std::string& c) override {
        calls.push_back("RecModeMain(" + a + "," + b + "," + c + ")");
    }
    void RecModeFunc(const std::string& a, const std::string& b, const std::string& c) override {
        calls.push_back("RecModeFunc(" + a + "," + b + "," + c + ")");
    }
    void RecAnalogMain(const std::string& a, const std::string& b, const std::string& c) override {
        calls.push_back("RecAnalogMain(" + a + "," + b + "," + c + ")");
    }
    void RecAnalogFunc(const std::string& a, const std::string& b, const std::string& c,
                       const std::string& d) override {
        calls.push_back("RecAnalogFunc(" + a + "," + b + "," + c + "," + d + ")");
    }
    void RecAuto(const std::string& a, const std::string& b) override {
        calls.push_back("RecAuto(" + a + "," + b + ")");
    }
    std::vector<std::string> calls;
};

}  // namespace station::testing
