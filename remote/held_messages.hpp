#pragma once
// The operator's messages, held back while a remote command runs: a failure that command
// causes (a save that cannot be written, a file that cannot be opened) is the client's to
// hear, as its ERR reply, and must not put up a box on the operator's screen that waits for
// someone to click it. Outside remote commands every message goes to the screen as before.

#include <string>
#include <utility>
#include <vector>

#include "common/messages.hpp"

namespace station::remote {

class HeldMessages : public MessageSink {
public:
    explicit HeldMessages(MessageSink& screen) : screen_(screen) {}

    void show(const std::string& text, Icon icon) override {
        if (holding_ > 0) held_.push_back(text);
        else screen_.show(text, icon);
    }

    // While a Hold lives, messages are kept instead of shown; take() hands them over.
    class Hold {
    public:
        explicit Hold(HeldMessages& messages) : messages_(messages) { ++messages_.holding_; }
        ~Hold() { --messages_.holding_; }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;
        std::vector<std::string> take() { return std::exchange(messages_.held_, {}); }

    private:
        HeldMessages& messages_;
    };

private:
    MessageSink& screen_;
    int holding_ = 0;
    std::vector<std::string> held_;
};

}  // namespace station::remote
