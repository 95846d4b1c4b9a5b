#include "sim/camera.hpp"

#include <utility>

namespace station::sim {

namespace {
std::uint8_t byteAt(const Bytes& data, std::size_t i) { return i < data.size() ? data[i] : 0; }
}  // namespace

Camera::Camera(std::string type, std::string id)
    : type_(std::move(type)), id_(std::move(id)), header_(idField(id_)) {}

std::uint8_t Camera::mode(std::uint8_t address, std::uint8_t cls) const { return modes_[bank(cls)][address]; }

void Camera::setMode(std::uint8_t address, std::uint8_t value, std::uint8_t cls) {
    modes_[bank(cls)][address] = value;
}

int Camera::level(std::uint8_t address, std::uint8_t cls) const { return levels_[bank(cls)][address]; }

void Camera::setLevel(std::uint8_t address, int value, std::uint8_t cls) {
    const std::size_t b = bank(cls);
    levels_[b][address] = static_cast<std::uint16_t>(wide_[b][address] ? value & 0xFFFF : value & 0xFF);
}

void Camera::setWide(std::uint8_t address, bool isWide, std::uint8_t cls) {
    const std::size_t b = bank(cls);
    wide_[b][address] = isWide;
    if (!isWide) levels_[b][address] &= 0xFF;
}

bool Camera::wide(std::uint8_t address, std::uint8_t cls) const { return wide_[bank(cls)][address]; }

void Camera::setTally(bool on) {
    const std::uint8_t reg = mode(kTallyRegister);
    setMode(kTallyRegister, static_cast<std::uint8_t>(on ? reg | 0x01 : reg & ~0x01));
}

Bytes Camera::report(std::uint8_t cls, std::uint8_t address) const {
    const std::uint8_t setClass = static_cast<std::uint8_t>(cls & 0xF8);
    const std::uint8_t replyClass = static_cast<std::uint8_t>(setClass + 2);
    if ((setClass & 0xF0) == kLevelClass) {
        const int v = level(address, setClass);
        if (wide(address, setClass))
            return {replyClass, address, static_cast<std::uint8_t>(v >> 8), static_cast<std::uint8_t>(v & 0xFF)};
        return {replyClass, address, static_cast<std::uint8_t>(v)};
    }
    return {replyClass, address, mode(address, setClass)};
}

Camera::Answer Camera::apply(const Bytes& data) {
    Answer answer;
    if (data.empty()) return answer;
    const std::uint8_t cls = data[0];
    const std::uint8_t kind = cls & 0xF0;
    const std::uint8_t op = cls & 0x07;
    const std::uint8_t address = byteAt(data, 1);
    ++commandsApplied;

    if (cls == kAutoClass) {
        ++autoRuns;
        lastAutoOperation = address;
        answer.autoOperation = address;
        return answer;
    }
    if (kind != kModeClass && kind != kLevelClass) return answer;  // not ours: acknowledged only
    if (op == 0) {
        if (kind == kModeClass) {
            const std::uint8_t mask = byteAt(data, 3);
            const std::uint8_t keep = static_cast<std::uint8_t>(mode(address, cls) & mask);
            setMode(address, static_cast<std::uint8_t>(keep | (byteAt(data, 2) & ~mask)), cls);
        } else {
            // A non-zero second value byte shows a two-byte level (high byte first): the
            // camera keeps that level wide from then on.
            if (byteAt(data, 3) != 0) setWide(address, true, cls);
            setLevel(address, wide(address, cls) ? byteAt(data, 2) << 8 | byteAt(data, 3) : byteAt(data, 2), cls);
        }
        answer.reply = report(cls, address);
    } else if (op == 3) {
        answer.reply = report(cls, address);
    }
    return answer;
}

}  // namespace station::sim
