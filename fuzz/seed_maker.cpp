// Writes the fuzz targets' seed inputs from real traffic and real files: the whole station
// opens the sample setup data file on the in-process camera line, and the operator reads a
// page, sends a page and starts an auto white on each camera under each line setting. What
// the station put on the line seeds the cameras' receive path, what the cameras answered
// seeds the station's, and the samples seed the readers.
// Each seed is written in its target's input layout (see the targets' own comments).
//
// Usage: make-fuzz-seeds <samples folder> <seeds folder>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "app/station.hpp"
#include "app/station_readout.hpp"
#include "common/messages.hpp"
#include "setupfile/file_dialogs.hpp"
#include "sim/line.hpp"
#include "sim/line_setup.hpp"
#include "sim/sim_port.hpp"
#include "sim/tick_driver.hpp"
#include "tests/support/null_platform.hpp"

namespace {

using station::testing::QuietMessages;

using namespace station;
using namespace std::chrono_literals;
namespace fs = std::filesystem;

class AnsweredDialogs : public FileDialogs {
public:
    std::optional<std::string> openFile(const std::string&) override { return open; }
    std::optional<std::string> saveFile(const std::string&) override { return std::nullopt; }
    bool confirmReplace(const std::string&) override { return false; }
    std::optional<std::string> open;
};

std::string readWhole(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void writeSeed(const fs::path& path, std::uint8_t first, const std::string& rest) {
    fs::create_directories(path.parent_path());
    std::ofstream out(path, std::ios::binary);
    out.put(static_cast<char>(first));
    out << rest;
}

// The station on a line built from the setup data file, its timers run as the window runs them.
struct Rig {
    explicit Rig(const fs::path& samples) : platform{port, messages, dialogs, writer, samples} {
        std::ifstream csd(samples / "studio.csd", std::ios::binary);
        sim::LineSetup setup;
        sim::readSetupData(csd, setup);
        setup.build(line);
        port.setCommPort(1);
        line.onTraffic = [this](const sim::Traffic& t) { traffic.push_back(t); };
        station.Form_Load();
        dialogs.open = (samples / "studio.csd").string();
        station.OPEN_Click();
        const auto ackOn = [this] { return StationReadout(station).handshake(); };
        ticks.every(40ms, [this] { station.Timer1_Timer(); });
        ticks.every(100ms, [this] { station.Timer2_Timer(); }, ackOn);
        ticks.every(500ms, [this] { station.Timer3_Timer(); }, ackOn);
        ticks.every(500ms, [this] { station.Timer4_Timer(); });
        ticks.every(500ms, [this] { station.Form6Timer_Timer(); });
    }

    // Runs one operator action until the line is quiet; returns the traffic it caused.
    std::vector<sim::Traffic> run(const std::function<void()>& action) {
        traffic.clear();
        action();
        ticks.runUntil([this] {
            const StationReadout readout(station);
            return readout.queued() == 0 && !readout.awaitingAcknowledge();
        }, 30s);
        ticks.run(4s);  // answers, resends and an auto set-up's result
        return std::move(traffic);
    }

    sim::Line line;
    sim::SimPort port{line};
    QuietMessages messages;
    AnsweredDialogs dialogs;
    DiskWriter writer;
    StationPlatform platform;
    Station station{platform};
    sim::TickDriver ticks{line};
    std::vector<sim::Traffic> traffic;
};

// The station's receive path: camera and settings byte, then each camera transmission in
// chunks of at most 63 bytes. A lone ACK or NAK comes with a queued command, so that it
// has a frame to acknowledge.
std::string receiveInput(const std::vector<sim::Traffic>& traffic) {
    std::string out;
    for (const sim::Traffic& t : traffic) {
        if (t.from != sim::Traffic::From::Camera) continue;
        for (std::size_t at = 0; at < t.bytes.size(); at += 63) {
            const std::size_t n = std::min<std::size_t>(63, t.bytes.size() - at);
            const bool handshake = t.bytes.size() == 1 && (t.bytes[0] == 0x06 || t.bytes[0] == 0x15);
            out += static_cast<char>(n | (handshake ? 0x80 : 0));
            out.append(t.bytes.begin() + static_cast<long>(at), t.bytes.begin() + static_cast<long>(at + n));
        }
    }
    return out;
}

// The cameras' receive path: the chunk byte (16-byte chunks), then the station's bytes.
std::string stationBytes(const std::vector<sim::Traffic>& traffic) {
    std::string out(1, '\x0F');
    for (const sim::Traffic& t : traffic)
        if (t.from == sim::Traffic::From::Station) out.append(t.bytes.begin(), t.bytes.end());
    return out;
}

struct Action {
    const char* name;
    std::function<void(Station&)> run;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: make-fuzz-seeds <samples folder> <seeds folder>\n";
        return 2;
    }
    const fs::path samples = argv[1];
    const fs::path seeds = argv[2];

    // The readers: every sample, its first byte 5 (definition slot 6; no rows registered
    // before the setup file).
    for (const auto& entry : fs::directory_iterator(samples)) {
        const fs::path& p = entry.path();
        if (p.extension() == ".fcl") writeSeed(seeds / "definition" / p.filename(), 5, readWhole(p));
        if (p.extension() == ".csd") writeSeed(seeds / "setup" / p.filename(), 5, readWhole(p));
    }

    const std::vector<Action> actions{
        {"read", [](Station& s) { s.forms().main.Command12.click(); }},
        {"send", [](Station& s) { s.forms().main.Command13.click(); }},
        {"white", [](Station& s) { s.forms().main.Command8.click(); }},
    };
    struct Setting {
        const char* name;
        bool idOn;
        bool ackOn;
        std::vector<int> cameras;
    };
    // The sample puts the cameras in ID mode with acknowledge checking on; cameras 1, 3, 5
    // and 6 are of four different types.
    const std::vector<Setting> settings{
        {"id", true, true, {1, 3, 5, 6}},
        {"noid", false, true, {1, 3}},
        {"ackoff", true, false, {0, 1}},
    };
    int written = 0;
    for (const Setting& setting : settings) {
        Rig rig(samples);
        if (!setting.idOn) {
            rig.station.IDcont_Click();
            rig.line.setIdMode(false);
        }
        if (!setting.ackOn) rig.station.ACK_Click(1);
        for (const int camera : setting.cameras) {
            rig.station.forms().main.Option9.click(camera);
            for (const Action& action : actions) {
                const auto traffic = rig.run([&] { action.run(rig.station); });
                const std::string name = std::string(setting.name) + "_cam" + std::to_string(camera) + "_" + action.name;
                const std::uint8_t lineByte = setting.idOn ? 0x02 : 0x00;  // 9600 bit/s
                writeSeed(seeds / "sim_receive" / name, lineByte, stationBytes(traffic));
                const std::string received = receiveInput(traffic);
                if (setting.ackOn && !received.empty())
                    writeSeed(seeds / "receive" / name, static_cast<std::uint8_t>(camera), received);
                written += 2;
            }
        }
    }
    std::cout << "wrote " << written << " line seeds into " << seeds << "\n";
    return 0;
}
