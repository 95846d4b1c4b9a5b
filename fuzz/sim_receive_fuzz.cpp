// Feeds arbitrary station bytes, in arbitrary chunks and pauses, to a line of cameras in
// either ID setting. The first input byte picks the setting and the chunking; anything
// the cameras do (apply, answer, resend) must stay within the line's rules and never
// crash or read out of bounds.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "sim/line.hpp"

using namespace station;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    sim::Line line(data[0] & 0x01 ? 19200 : 9600);
    line.setIdMode((data[0] & 0x02) != 0);
    for (int p = 1; p <= 8; ++p) {
        sim::Camera& cam = line.addCamera(p, "FZ1", std::to_string(p));
        cam.setWide(0x50, true);
        cam.timing.autoDelay = sim::Micros{50'000};
    }
    line.at(2).faults.split = sim::Faults::kEvery;
    line.at(2).faults.splitAt = 3;
    line.at(3).faults.nak = 2;
    line.at(4).faults.badChecksum = sim::Faults::kEvery;

    const std::size_t chunk = 1 + (data[1] & 0x0F);
    std::size_t received = 0;
    for (std::size_t i = 2; i < size; i += chunk) {
        const std::size_t n = std::min(chunk, size - i);
        line.fromStation(Bytes(data + i, data + i + n));
        line.advance(sim::Micros{(data[i] & 0x07) * 20'000});
        received += line.takeForStation().size();
    }
    line.advance(sim::Micros{60'000'000});
    received += line.takeForStation().size();
    if (line.nextActivity()) std::abort();  // everything ends once the station is quiet
    (void)received;
    return 0;
}
