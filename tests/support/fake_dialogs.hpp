#pragma once
// File dialogs answered in advance; every call is recorded with its filter.

#include <optional>
#include <string>
#include <vector>

#include "setupfile/file_dialogs.hpp"

namespace station::testing {

class FakeDialogs : public FileDialogs {
public:
    std::optional<std::string> openFile(const std::string& filter) override {
        calls.push_back("open " + filter);
        return openAnswer;
    }
    std::optional<std::string> saveFile(const std::string& filter) override {
        calls.push_back("save " + filter);
        return saveAnswer;
    }
    bool confirmReplace(const std::string& path) override {
        calls.push_back("replace? " + path);
        return replaceAnswer;
    }
    std::optional<std::string> openAnswer;  // nothing = the operator cancels
    std::optional<std::string> saveAnswer;
    bool replaceAnswer = true;
    std::vector<std::string> calls;
};

}  // namespace station::testing
