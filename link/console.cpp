#include "link/console.hpp"

#include "common/hex.hpp"
#include "common/vb_conv.hpp"

namespace station {

Console::Console(Link& link) : link_(link) { Text2.setText("0203400000BCFF"); }

void Console::inject(const std::string& digits) {
    const Integer count = toInteger(static_cast<double>(digits.size()) / 2.0);
    Text3.setText(decText(count));
    if (count == 1) {
        link_.setTestData(count, {static_cast<std::uint8_t>(readHexPrefix(digits) & 0xFF)});
    } else if (count >= 2) {
        Bytes data;
        data.reserve(static_cast<std::size_t>(count));
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            data.push_back(static_cast<std::uint8_t>(readHexPrefix(std::string_view(digits).substr(2 * i, 2)) & 0xFF));
        link_.setTestData(count, std::move(data));
    } else {
        link_.setTestData(0, {});  // an empty text withdraws bytes still waiting
    }
}

}  // namespace station
