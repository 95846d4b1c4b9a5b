#pragma once
// Reads a command line one word at a time, so that corvane-ctl and camera-sim take their
// options alike: "--name VALUE" or "--name=VALUE" for an option with a value, "--name"
// alone for a flag ("--quiet=yes" is refused: a flag takes no value), and every complaint
// in the station's words (option_errors.hpp), raised as std::invalid_argument.
//
//   OptionReader r(args);
//   while (r.next()) {
//       if (r.name() == "--port") port = r.value("a device");
//       else if (r.name() == "--quiet") { r.flag(); quiet = true; }
//       else r.unknown();
//   }

#include <optional>
#include <string>
#include <vector>

namespace station::options {

class OptionReader {
public:
    explicit OptionReader(const std::vector<std::string>& args) : args_(args) {}

    // Moves to the next word; false after the last.
    bool next();
    // The word as given.
    const std::string& word() const { return args_.at(at_); }
    // An option starts with "-"; a negative number such as "-3" is no option.
    bool isOption() const;
    // The option without the "=VALUE" it may carry; the word itself when it is no option.
    const std::string& name() const { return name_; }

    // The option's value: the text after "=", else the next word. None, or an empty one,
    // is refused: "--port needs a value" (`what` names the kind of value).
    std::string value(const std::string& what = "a value");
    // The option is a flag: "--trace=yes" is refused with "--trace takes no value".
    void flag() const;
    // The same, and `set` is set.
    void flag(bool& set) const {
        flag();
        set = true;
    }
    // Refuses the word: "unknown option --colour", or "unknown argument: WORD" for a word
    // that is no option where the program takes none.
    [[noreturn]] void unknown() const;

private:
    const std::vector<std::string>& args_;
    std::size_t at_ = 0;
    bool started_ = false;
    std::string name_;
    std::optional<std::string> inlineValue_;
};

}  // namespace station::options
