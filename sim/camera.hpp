#pragma once
// One virtual camera: its identity, its register file and levels, tally and call, and its
// automatic white / black set-up. It knows commands, not timing: the line decides when
// its ACK, replies and set-up results go out.
//
// Commands (data bytes of a frame), by the first byte, the command class:
//   20 / 28  set a mode register:  class, address, data, mask. The bits that are 1 in the
//            mask keep their value, the others take the data's bits.
//   30 / 38  set a level:          class, address, level [, second byte of a wide level];
//            a level first set with a non-zero second byte is wide from then on
//   class+3  read request:         class+3, address
//   40       automatic set-up:     40, operation (10 white, 20 black, ...)
// A set or a read is answered with class+2, the address and the register's value (one
// byte, or two for a wide level); the set-up answers later with 40, operation, result.

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "common/bytes.hpp"
#include "sim/faults.hpp"
#include "sim/wire.hpp"

namespace station::sim {

inline constexpr std::uint8_t kModeClass = 0x20;
inline constexpr std::uint8_t kModeClass2 = 0x28;
inline constexpr std::uint8_t kLevelClass = 0x30;
inline constexpr std::uint8_t kLevelClass2 = 0x38;
inline constexpr std::uint8_t kAutoClass = 0x40;
inline constexpr std::uint8_t kTallyRegister = 0x03;  // bit 0 tally, bit 2 call

// Result codes of the automatic set-up that the station knows as OK.
inline constexpr std::uint8_t kAutoOk = 0x00;

class Camera {
public:
    // How quickly the camera reacts; all measured from the end of the station's frame.
    struct Timing {
        Micros turnaround{2'000};   // until its ACK (or NAK) starts
        Micros answerDelay{3'000};  // from the ACK until its reply starts
        Micros autoDelay{3'000'000};  // from the set-up request until its result starts
    };

    // What a command asks of the line besides applying it.
    struct Answer {
        Bytes reply;                                 // empty when the command has no reply
        std::optional<std::uint8_t> autoOperation;   // a set-up was started
    };

    Camera(std::string type, std::string id);

    const std::string& type() const { return type_; }
    const std::string& id() const { return id_; }
    // The ID as frame headers carry it ("  1").
    const std::string& header() const { return header_; }

    // Register file: `cls` is the set class of the bank (20 or 28 for modes, 30 or 38 for
    // levels); any other class names the first bank of its kind.
    std::uint8_t mode(std::uint8_t address, std::uint8_t cls = kModeClass) const;
    void setMode(std::uint8_t address, std::uint8_t value, std::uint8_t cls = kModeClass);
    int level(std::uint8_t address, std::uint8_t cls = kLevelClass) const;
    // A wide level keeps 0..65535; a narrow one keeps the low byte.
    void setLevel(std::uint8_t address, int value, std::uint8_t cls = kLevelClass);
    // Makes a level two bytes wide (sent and answered high byte first).
    void setWide(std::uint8_t address, bool wide, std::uint8_t cls = kLevelClass);
    bool wide(std::uint8_t address, std::uint8_t cls = kLevelClass) const;

    bool tally() const { return (mode(kTallyRegister) & 0x01) != 0; }
    void setTally(bool on);
    bool callOn() const { return (mode(kTallyRegister) & 0x04) != 0; }

    // Applies one command and says what it asks of the line.
    Answer apply(const Bytes& data);

    // The reply that reports a register's present value (class + 2, address, value).
    Bytes report(std::uint8_t cls, std::uint8_t address) const;

    // The result frame's data for a finished set-up.
    Bytes autoResult(std::uint8_t operation) const { return {kAutoClass, operation, autoResultCode}; }

    Timing timing;
    std::uint8_t autoResultCode = kAutoOk;
    Faults faults;

    // What happened to it, for tests and the traffic trace.
    int framesHeard = 0;       // intact frames meant for it
    int commandsApplied = 0;
    int autoRuns = 0;
    std::optional<std::uint8_t> lastAutoOperation;

private:
    static std::size_t bank(std::uint8_t cls) { return (cls & 0x08) != 0 ? 1 : 0; }

    std::string type_;
    std::string id_;
    std::string header_;
    std::array<std::array<std::uint8_t, 256>, 2> modes_{};
    std::array<std::array<std::uint16_t, 256>, 2> levels_{};
    std::array<std::array<bool, 256>, 2> wide_{};
};

}  // namespace station::sim
