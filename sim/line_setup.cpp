#include "sim/line_setup.hpp"

#include <charconv>
#include <stdexcept>

namespace station::sim {

namespace {

// A whole decimal (or, with base 16, hex) number within min..max, or nullopt.
std::optional<long> number(std::string_view text, long min, long max, int base = 10) {
    long v = 0;
    const char* end = text.data() + text.size();
    const auto [ptr, ec] = std::from_chars(text.data(), end, v, base);
    if (text.empty() || ec != std::errc() || ptr != end || v < min || v > max) return std::nullopt;
    return v;
}

int position(std::string_view text, std::string_view option) {
    const auto p = number(text, 1, kMaxCameras);
    if (!p) throw std::invalid_argument(std::string(option) + ": camera position must be 1 to 8");
    return static_cast<int>(*p);
}

std::string_view chopCr(std::string_view line) {
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    return line;
}

}  // namespace

CameraSetup& LineSetup::at(int position) {
    if (position < 1 || position > kMaxCameras) throw std::invalid_argument("camera position must be 1 to 8");
    return cameras[static_cast<std::size_t>(position - 1)];
}

int LineSetup::count() const {
    int n = 0;
    for (const CameraSetup& c : cameras) n += c.present ? 1 : 0;
    return n;
}

void LineSetup::build(Line& line) const {
    line.setSpeed(speed);
    line.setIdMode(idMode);
    for (int p = 1; p <= kMaxCameras; ++p) {
        const CameraSetup& c = cameras[static_cast<std::size_t>(p - 1)];
        if (!c.present) {
            line.removeCamera(p);
            continue;
        }
        Camera& cam = line.addCamera(p, c.type, c.id);
        if (const auto found = startValues.find(c.type); found != startValues.end())
            for (const StartValue& v : found->second) {
                cam.setWide(v.address, v.wide, v.cls);
                cam.setLevel(v.address, v.value, v.cls);
            }
        cam.faults = c.faults;
        if (c.autoResult) cam.autoResultCode = *c.autoResult;
        if (autoDelay) cam.timing.autoDelay = *autoDelay;
    }
}

void readSetupData(std::istream& in, LineSetup& setup) {
    std::string raw;
    std::string section;
    bool first = true;
    while (std::getline(in, raw)) {
        std::string_view line = chopCr(raw);
        // A byte-order mark that an editor put before the first line is not part of it.
        if (first && line.substr(0, 3) == "\xEF\xBB\xBF") line.remove_prefix(3);
        first = false;
        if (!line.empty() && line.front() == '[') {
            section = line;
            continue;
        }
        const std::size_t eq = line.find('=');
        if (eq == std::string_view::npos) continue;
        const std::string_view key = line.substr(0, eq + 1);
        const std::string_view value = line.substr(eq + 1);
        if (section == "[system]" && key == "Camera Select=") {
            setup.idMode = number(value, -32768, 32767) == 1;
        } else if (section == "[camera type/ID]" && key.size() == 9 && key.substr(0, 7) == "Camera ") {
            const auto p = number(key.substr(7, 1), 1, kMaxCameras);
            const std::size_t bar = value.find('|');
            if (!p || bar == std::string_view::npos) continue;
            CameraSetup& c = setup.at(static_cast<int>(*p));
            c.type = value.substr(0, bar);
            c.id = value.substr(bar + 1);
            c.present = !c.type.empty() || !c.id.empty();
        }
    }
}

void addCameraOption(std::string_view text, LineSetup& setup) {
    const std::size_t a = text.find(':');
    const std::size_t b = a == std::string_view::npos ? a : text.find(':', a + 1);
    if (b == std::string_view::npos)
        throw std::invalid_argument("--camera " + std::string(text) + ": expected N:TYPE:ID");
    CameraSetup& c = setup.at(position(text.substr(0, a), "--camera"));
    c.present = true;
    c.type = text.substr(a + 1, b - a - 1);
    c.id = text.substr(b + 1);
}

void addFaultOption(std::string_view text, LineSetup& setup) {
    const std::string option = "--fault " + std::string(text);
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos) throw std::invalid_argument(option + ": expected N:KIND[=VALUE]");
    CameraSetup& c = setup.at(position(text.substr(0, colon), "--fault"));
    std::string_view kind = text.substr(colon + 1);
    std::optional<std::string_view> value;
    if (const std::size_t eq = kind.find('='); eq != std::string_view::npos) {
        value = kind.substr(eq + 1);
        kind = kind.substr(0, eq);
    }
    auto need = [&](long min, long max, int base = 10) {
        const auto v = value ? number(*value, min, max, base) : std::nullopt;
        if (!v) throw std::invalid_argument(option + ": needs a value from " + std::to_string(min) + " to " +
                                            std::to_string(max) + (base == 16 ? " (hex)" : ""));
        return static_cast<int>(*v);
    };
    auto countOrEvery = [&] { return value ? need(1, 1'000'000) : Faults::kEvery; };

    Faults& f = c.faults;
    if (kind == "no-ack") {
        f.noAck = countOrEvery();
    } else if (kind == "nak") {
        f.nak = countOrEvery();
    } else if (kind == "bad-checksum") {
        f.badChecksum = countOrEvery();
    } else if (kind == "split") {
        f.splitAt = need(1, 255);
        f.split = Faults::kEvery;
    } else if (kind == "noise") {
        f.noiseBytes = need(1, 64);
        f.noise = Faults::kEvery;
    } else if (kind == "late") {
        f.lateBy = Micros{static_cast<long long>(need(0, 600'000)) * 1000};
        f.late = Faults::kEvery;
    } else if (kind == "silent" && !value) {
        f.silent = true;
    } else if (kind == "auto-ng") {
        c.autoResult = static_cast<std::uint8_t>(need(0, 0xFF, 16));
    } else {
        throw std::invalid_argument(option + ": unknown fault");
    }
    c.faulted = true;
}

std::string faultHelp() {
    return "  no-ack[=COUNT]      applies and answers frames but never acknowledges them\n"
           "  nak[=COUNT]         answers good frames with NAK (the station resends)\n"
           "  bad-checksum[=COUNT]  spoils the checksum of its replies (resends are clean)\n"
           "  split=AT            sends each reply in two parts, cut after AT bytes, 60 ms apart\n"
           "  noise=BYTES         sends BYTES stray bytes before each reply\n"
           "  late=MS             holds every reply back by MS milliseconds\n"
           "  silent              hears nothing and sends nothing (a camera switched off)\n"
           "  auto-ng=CODE        ends auto white / black with result CODE (hex, e.g. 13)\n"
           "  A COUNT limits the fault to that many frames; without one it never stops.\n";
}

}  // namespace station::sim
