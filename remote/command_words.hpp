#pragma once
// A remote command line taken apart into words, and the checks every line passes before it
// is read: a line is at most 1 KiB of printable UTF-8 text. Words are separated by blanks;
// a word in double quotes may hold blanks (a file path).

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace station::remote {

inline constexpr std::size_t kMaxLineBytes = 1024;

// A command that cannot be carried out; what() is the reason given after "ERR ".
class CommandError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Why a received line is not a command line, or nothing when it is one.
std::optional<std::string> lineProblem(std::string_view line);

// The words of a line. A quote left open raises CommandError.
std::vector<std::string> splitWords(std::string_view line);

// The words of one command, read left to right by its handler.
class Words {
public:
    explicit Words(std::vector<std::string> words) : words_(std::move(words)) {}

    bool done() const { return next_ >= words_.size(); }
    // The next word (or one further ahead) without taking it; "" when none is left.
    const std::string& peek(std::size_t ahead = 0) const;
    // Takes the next word; CommandError "missing <what>" when none is left.
    std::string take(const std::string& what);
    // Takes the next word as a whole number from lo to hi.
    long number(const std::string& what, long lo, long hi);
    // Takes the next word as a decimal fraction from 0 to 1 ("0.25", "1").
    double fraction(const std::string& what);
    // CommandError when words are left over.
    void end() const;
    // Everything said so far, for messages ("level iris").
    std::string said() const;

private:
    std::vector<std::string> words_;
    std::size_t next_ = 0;
};

// A whole number in decimal, with an optional sign; nothing when the text is not one.
std::optional<long> wholeNumber(std::string_view text);

// A value as one word of a reply or pushed line: in double quotes when it is empty or holds
// a blank, so that a client splits every line as splitWords() does.
std::string quoteWord(std::string_view text);

// Lower-case ASCII copy (names are matched without regard to case).
std::string lower(std::string_view text);

}  // namespace station::remote
