#include "remote/command_words.hpp"

#include <cctype>
#include <charconv>

namespace station::remote {

namespace {

// Length of the UTF-8 sequence starting with `lead`, or 0 when it cannot start one.
std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) return 2;
    if (lead >= 0xE0 && lead <= 0xEF) return 3;
    if (lead >= 0xF0 && lead <= 0xF4) return 4;
    return 0;
}

// The range the byte after `lead` must lie in. The narrow ranges shut out the overlong
// forms (E0, F0), the surrogate halves U+D800..U+DFFF (ED) and everything above U+10FFFF
// (F4); every later byte is a plain continuation byte.
bool secondByteFits(unsigned char lead, unsigned char second) {
    unsigned char low = 0x80;
    unsigned char high = 0xBF;
    if (lead == 0xE0) low = 0xA0;
    else if (lead == 0xED) high = 0x9F;
    else if (lead == 0xF0) low = 0x90;
    else if (lead == 0xF4) high = 0x8F;
    return second >= low && second <= high;
}

}  // namespace

std::optional<std::string> lineProblem(std::string_view line) {
    if (line.size() > kMaxLineBytes) return "line too long (over 1024 bytes)";
    for (std::size_t i = 0; i < line.size();) {
        const auto c = static_cast<unsigned char>(line[i]);
        if (c < 0x20 && c != '\t') return "not a text line (control byte)";
        if (c == 0x7F) return "not a text line (control byte)";
        const std::size_t n = sequenceLength(c);
        if (n == 0 || i + n > line.size()) return "not a text line (not UTF-8)";
        if (n > 1 && !secondByteFits(c, static_cast<unsigned char>(line[i + 1]))) return "not a text line (not UTF-8)";
        for (std::size_t k = 1; k < n; ++k)
            if ((static_cast<unsigned char>(line[i + k]) & 0xC0) != 0x80) return "not a text line (not UTF-8)";
        i += n;
    }
    return std::nullopt;
}

std::vector<std::string> splitWords(std::string_view line) {
    std::vector<std::string> words;
    std::size_t i = 0;
    while (i < line.size()) {
        if (line[i] == ' ' || line[i] == '\t') {
            ++i;
            continue;
        }
        std::string word;
        if (line[i] == '"') {
            const std::size_t close = line.find('"', i + 1);
            if (close == std::string_view::npos) throw CommandError("quote not closed");
            word = line.substr(i + 1, close - i - 1);
            i = close + 1;
        } else {
            const std::size_t end = line.find_first_of(" \t", i);
            word = line.substr(i, end == std::string_view::npos ? line.size() - i : end - i);
            i = end == std::string_view::npos ? line.size() : end;
        }
        words.push_back(std::move(word));
    }
    return words;
}

const std::string& Words::peek(std::size_t ahead) const {
    static const std::string none;
    return next_ + ahead >= words_.size() ? none : words_[next_ + ahead];
}

std::string Words::take(const std::string& what) {
    if (done()) throw CommandError("missing " + what + " after \"" + said() + "\"");
    return words_[next_++];
}

long Words::number(const std::string& what, long lo, long hi) {
    const std::string word = take(what);
    const auto n = wholeNumber(word);
    if (!n || *n < lo || *n > hi)
        throw CommandError(what + " must be a number from " + std::to_string(lo) + " to " + std::to_string(hi) +
                           ", not \"" + word + "\"");
    return *n;
}

void Words::end() const {
    if (!done()) throw CommandError("unexpected \"" + words_[next_] + "\" after \"" + said() + "\"");
}

std::string Words::said() const {
    std::string out;
    for (std::size_t i = 0; i < next_ && i < words_.size(); ++i) out += (i ? " " : "") + words_[i];
    return out;
}

std::optional<long> wholeNumber(std::string_view text) {
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    long v = 0;
    const auto [ptr, ec] = std::from_chars(text.data(), text.data() + text.size(), v);
    if (text.empty() || ec != std::errc() || ptr != text.data() + text.size()) return std::nullopt;
    return v;
}

std::string lower(std::string_view text) {
    std::string out(text);
    for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return out;
}

}  // namespace station::remote
