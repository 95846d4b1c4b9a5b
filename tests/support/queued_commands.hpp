#pragma once
// The command texts waiting in a send queue: the data bytes of each frame as hex text,
// oldest first, past any ACK prefix and ID header. The queue is emptied.

#include <string>
#include <vector>

#include "common/hex.hpp"
#include "link/send_queue.hpp"

namespace station::testing {

// A frame's command text: its data bytes past any ACK prefix and ID header, without the
// length and checksum.
inline std::string commandText(const Bytes& f) {
    std::size_t start = 0;
    while (f.at(start) != 0x02) ++start;
    return hexText(Bytes(f.begin() + static_cast<std::ptrdiff_t>(start) + 2, f.end() - 2));
}

inline std::vector<std::string> takeQueuedCommands(SendQueue& q) {
    std::vector<std::string> out;
    while (q.SendCnt() > 0) {
        out.push_back(commandText(q.head().Data));
        q.SendBuffShift();
    }
    return out;
}

}  // namespace station::testing
