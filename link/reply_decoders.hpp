#pragma once
// The decoders that a received reply is handed to, each argument a two-digit upper-case
// hex text (an entry past the frame's data is ""). The main panel, the function editor
// and the automatic setup implement their parts; the Station joins them.

#include <string>

namespace station {

class ReplyDecoders {
public:
    virtual ~ReplyDecoders() = default;
    virtual void RecModeMain(const std::string& cls, const std::string& addr, const std::string& data) = 0;
    virtual void RecModeFunc(const std::string& cls, const std::string& addr, const std::string& data) = 0;
    virtual void RecAnalogMain(const std::string& cls, const std::string& addr, const std::string& data) = 0;
    virtual void RecAnalogFunc(const std::string& cls, const std::string& addr, const std::string& data,
                               const std::string& data2) = 0;
    virtual void RecAuto(const std::string& operation, const std::string& result) = 0;
};

}  // namespace station
