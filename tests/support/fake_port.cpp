#include "tests/support/fake_port.hpp"

#include <stdexcept>

#include "common/line_fault.hpp"

namespace station::testing {

void FakePort::open() {
    ++opens;
    if (failOpen) throw std::runtime_error("port not available");
    opened = true;
}

int FakePort::bytesWaiting() {
    if (hungUp && opened) throw LineFault("fake: the device hung up");
    return static_cast<int>(incoming.size());
}

Bytes FakePort::readAll() {
    Bytes out;
    out.swap(incoming);
    return out;
}

void FakePort::write(const Bytes& data) {
    if (hungUp && opened) throw LineFault("fake: write failed");
    writes.push_back(data);
}

Bytes FakePort::takeWritten() {
    Bytes out;
    for (const Bytes& w : writes) out.insert(out.end(), w.begin(), w.end());
    writes.clear();
    return out;
}

}  // namespace station::testing
