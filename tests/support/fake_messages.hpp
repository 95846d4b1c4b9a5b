#pragma once
// Operator messages for tests: records each text and icon; an optional hook runs while the
// message is "on screen", before show() returns, to check what happens only after dismissal.

#include <functional>
#include <string>
#include <vector>

#include "common/messages.hpp"

namespace station::testing {

class FakeMessages : public MessageSink {
public:
    struct Shown {
        std::string text;
        Icon icon;
    };
    void show(const std::string& text, Icon icon) override {
        shown.push_back({text, icon});
        if (whileShown) whileShown(text);
    }
    std::vector<std::string> texts() const {
        std::vector<std::string> out;
        for (const Shown& s : shown) out.push_back(s.text);
        return out;
    }
    std::vector<Shown> shown;
    std::function<void(const std::string&)> whileShown;
};

}  // namespace station::testing
