#pragma once
// Operator messages: a fixed text with an icon, shown modally. show() returns when the
// operator has dismissed the message, so code after it runs "after the box is closed".

#include <string>

namespace station {

enum class Icon { Exclamation, Stop, Information };

class MessageSink {
public:
    virtual ~MessageSink() = default;
    virtual void show(const std::string& text, Icon icon) = 0;
};

}  // namespace station
