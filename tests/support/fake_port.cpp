#include "tests/support/fake_port.hpp"

#include <stdexcept>

namespace station::testing {

void FakePort::open() {
    if (failOpen) throw std::runtime_error("port not available");
    opened = true;
}

Bytes FakePort::readAll() {
    Bytes out;
    out.swap(incoming);
    return out;
}

void FakePort::write(const Bytes& data) { writes.push_back(data); }

Bytes FakePort::takeWritten() {
    Bytes out;
    for (const Bytes& w : writes) out.insert(out.end(), w.begin(), w.end());
    writes.clear();
    return out;
}

}  // namespace station::testing
