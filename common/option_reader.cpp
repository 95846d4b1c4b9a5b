#include "common/option_reader.hpp"

#include <stdexcept>

#include "common/option_errors.hpp"

namespace station::options {

bool OptionReader::next() {
    if (started_) ++at_;
    started_ = true;
    if (at_ >= args_.size()) return false;
    name_ = word();
    inlineValue_.reset();
    if (const std::size_t eq = name_.find('='); name_.rfind("--", 0) == 0 && eq != std::string::npos) {
        inlineValue_ = name_.substr(eq + 1);
        name_.resize(eq);
    }
    return true;
}

bool OptionReader::isOption() const {
    const std::string& w = word();
    const bool number = w.size() > 1 && w.find_first_not_of("0123456789", 1) == std::string::npos;
    return w.rfind("-", 0) == 0 && !number;
}

std::string OptionReader::value(const std::string& what) {
    std::string v;
    if (inlineValue_) v = *inlineValue_;
    else if (at_ + 1 < args_.size()) v = args_.at(++at_);
    if (v.empty()) throw std::invalid_argument(needsValue(name_, what));
    return v;
}

void OptionReader::flag() const {
    if (inlineValue_) throw std::invalid_argument(takesNoValue(name_));
}

void OptionReader::unknown() const {
    throw std::invalid_argument(isOption() ? unknownOption(name_) : unknownArgument(word()));
}

}  // namespace station::options
