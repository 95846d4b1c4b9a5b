#include "funcedit/function_items.hpp"

#include <algorithm>

#include "common/vb_conv.hpp"

namespace station {

std::optional<unsigned long> hexNumber(std::string_view text) {
    if (text.empty() || text.size() > 8) return std::nullopt;
    unsigned long v = 0;
    for (const char c : text) {
        int d = 0;
        if (c >= '0' && c <= '9') d = c - '0';
        else if (c >= 'A' && c <= 'F') d = c - 'A' + 10;
        else if (c >= 'a' && c <= 'f') d = c - 'a' + 10;
        else return std::nullopt;
        v = v * 16 + static_cast<unsigned long>(d);
    }
    return v;
}

std::string hexDigits(unsigned long value, int digits) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string out(static_cast<std::size_t>(digits), '0');
    for (int i = digits - 1; i >= 0; --i, value >>= 4) out[static_cast<std::size_t>(i)] = kDigits[value & 0xF];
    return out;
}

FunctionItem::FunctionItem(const TypeTables& types, int slot, int function, int item)
    : types_(types), slot_(slot), function_(function), item_(item),
      code_(types.ItemList(slot, function, item + kItemCodeCell)) {
    const std::string& kind = types.ItemList(slot, function, item);
    kind_ = kind.size() == 1 ? kind[0] : '\0';
    if (kind_ == 'M' || kind_ == 'S' || kind_ == 'T')
        modes_ = std::clamp(toInteger(val(types.ModeList(slot, function, item, 0, 0))), Integer{0}, Integer{kMaxModes});
    if (kind_ == 'S')
        shutterSteps_ = std::clamp(toInteger(val(types.VsList(slot, 0, 0))), Integer{0}, Integer{kMaxShutterSteps});
}

const std::string& FunctionItem::name() const { return types_.ItemList(slot_, function_, item_ + kItemNameCell); }

const std::string& FunctionItem::valueName(int k) const {
    if (k > modes_) return types_.VsList(slot_, k - modes_, 0);
    return types_.ModeList(slot_, function_, item_, k, 0);
}

const std::string& FunctionItem::valueCode(int k) const {
    if (k > modes_) return types_.VsList(slot_, k - modes_, 1);
    return types_.ModeList(slot_, function_, item_, k, 1);
}

int FunctionItem::findValue(std::string_view code) const {
    for (int k = 1; k <= valueCount(); ++k)
        if (valueCode(k) == code) return k;
    return 0;
}

long FunctionItem::Range::snap(long value) const {
    const long v = std::clamp(value, min, max);
    long snapped = min + (v - min + step / 2) / step * step;
    if (snapped > max) snapped -= step;
    return snapped;
}

FunctionItem::Range FunctionItem::range() const {
    Range r;
    auto cell = [&](int row) { return hexNumber(types_.ModeList(slot_, function_, item_, row, 1)); };
    if (const auto size = cell(kAnalogSize); size && *size == 4) r.digits = 4;
    const long top = r.digits == 4 ? 0xFFFF : 0xFF;
    r.min = std::min(static_cast<long>(cell(kAnalogMin).value_or(0)), top);
    r.max = std::min(static_cast<long>(cell(kAnalogMax).value_or(static_cast<unsigned long>(top))), top);
    if (r.max < r.min) std::swap(r.min, r.max);
    r.step = std::clamp(static_cast<long>(cell(kAnalogStep).value_or(1)), 1L, top);
    return r;
}

FunctionItem::Value FunctionItem::valueOf(std::string_view stored) const {
    const auto number = hexNumber(stored);
    if (!number) return {};
    if (kind_ == 'A') {
        const Range r = range();
        const long v = static_cast<long>(std::min<unsigned long>(*number, 0xFFFFFFFFul >> 1));
        const long clamped = std::clamp(v, r.min, r.max);
        return {hexDigits(static_cast<unsigned long>(clamped), r.digits), clamped != v};
    }
    if (kind_ == 'M') return *number <= 0xFF ? Value{hexDigits(*number, 2)} : Value{};
    if (kind_ != 'S') return {};
    // A speed's code has two digits and a variable-shutter step's four: the stored text's
    // length tells which one "1" and "0001" mean.
    const bool step = stored.size() > 2;
    if (const int k = findValue(stored); k > 0) return {valueCode(k)};
    for (int k = 1; k <= valueCount(); ++k)
        if ((valueCode(k).size() > 2) == step && hexNumber(valueCode(k)) == number) return {valueCode(k)};
    if (*number > (step ? 0xFFFFul : 0xFFul)) return {};
    return {hexDigits(*number, step ? 4 : 2)};
}

std::string FunctionItem::command(const std::string& value) const {
    if (kind_ == 'M') return code_.substr(0, 4) + value + code_.substr(std::min<std::size_t>(4, code_.size()));
    std::string cmd = code_ + value;
    // Levels and shutter codes always travel in four data bytes, like the panel's levels.
    if ((kind_ == 'A' || kind_ == 'S') && cmd.size() < 8) cmd.append(8 - cmd.size(), '0');
    return cmd;
}

std::optional<unsigned long> FunctionItem::byteOf(std::size_t n) const {
    if (code_.size() < 2 * n + 2) return std::nullopt;
    return hexNumber(std::string_view(code_).substr(2 * n, 2));
}

}  // namespace station
