#pragma once
// One item of a camera type's function menu as the type tables hold it, and the commands and
// values it is made of. An item's code is its set command without the value:
//   M  class, register, mask ("2040FC"); a value is the data byte already in its bit field,
//      sent as class, register, value, mask ("204001FC");
//   A  class and level ("3050"); the value is SIZE hex digits (2: one byte, 4: two bytes, high
//      byte first) within MIN..MAX on the STEP grid, sent padded to four bytes ("30507F00");
//   S  class and level like A; its values are its named speeds followed by the type's
//      variable-shutter steps, each sent as its two- or four-digit code, padded to four bytes;
//   T  a command prefix; each value is an action that completes it ("40" + "30").
// A reply to a set or a read carries the set class plus 2, the address and the value.

#include <optional>
#include <string>
#include <string_view>

#include "camtype/type_tables.hpp"

namespace station {

// The whole text read as hex digits; nullopt when it is empty, longer than eight digits or
// holds anything else.
std::optional<unsigned long> hexNumber(std::string_view text);

// A value in exactly `digits` upper-case hex digits ("01A0").
std::string hexDigits(unsigned long value, int digits);

class FunctionItem {
public:
    FunctionItem(const TypeTables& types, int slot, int function, int item);

    char kind() const { return kind_; }
    // The Function window's control that sets the item: the MODE/VALUE list of a mode,
    // shutter or action item, the analog bar of an analog item, or none.
    enum class Setter { None, List, Bar };
    Setter setter() const {
        if (kind_ == 'A') return Setter::Bar;
        return kind_ == 'M' || kind_ == 'S' || kind_ == 'T' ? Setter::List : Setter::None;
    }
    const std::string& name() const;
    const std::string& code() const { return code_; }

    // Named values (M, T, and S's own speeds) and then, for S, the variable-shutter steps.
    int valueCount() const { return modes_ + shutterSteps_; }
    const std::string& valueName(int k) const;  // k = 1..valueCount()
    const std::string& valueCode(int k) const;
    // The value whose code is `code` (1..valueCount()), or 0.
    int findValue(std::string_view code) const;

    // Analog range, read from SIZE, MIN, MAX and STEP.
    struct Range {
        int digits = 2;  // 2 or 4
        long min = 0;
        long max = 0xFF;
        long step = 1;
        // Clamped to MIN..MAX and put on the nearest STEP from MIN that is not past MAX.
        long snap(long value) const;
    };
    Range range() const;

    // The value a stored text denotes, in the item's own form: SIZE digits for an A item,
    // clamped to MIN..MAX; two digits for an M item; for an S item the code of its speed or
    // step, else two or four digits as the text had. A hand-edited file may hold "7", "1a0"
    // or "1"; the editor shows and sends "07", "01A0", "01". Empty when the text denotes
    // no value the item can send (not hex, too big).
    struct Value {
        std::string text;
        bool clamped = false;  // an A value outside MIN..MAX, brought to the nearer end
    };
    Value valueOf(std::string_view stored) const;

    // The set command that sends `value` (a value code, or an analog value's hex text).
    std::string command(const std::string& value) const;

    // The mask of a mode item (the code's third byte), when it is hex.
    std::optional<unsigned long> mask() const { return byteOf(2); }

private:
    std::optional<unsigned long> byteOf(std::size_t n) const;

    const TypeTables& types_;
    int slot_, function_, item_;
    char kind_ = '\0';
    const std::string& code_;
    int modes_ = 0;
    int shutterSteps_ = 0;
};

}  // namespace station
