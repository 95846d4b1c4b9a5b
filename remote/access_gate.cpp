#include "remote/access_gate.hpp"

#include <algorithm>
#include <random>

namespace station::remote {

namespace {

// Compares without stopping at the first difference, so that the time taken tells nothing.
bool samePasscode(std::string_view a, std::string_view b) {
    unsigned char diff = a.size() == b.size() ? 0 : 1;
    for (std::size_t i = 0; i < a.size(); ++i) diff |= static_cast<unsigned char>(a[i] ^ (i < b.size() ? b[i] : 0));
    return diff == 0;
}

}  // namespace

std::string AccessGate::passcodeProblem(std::string_view passcode) {
    if (passcode.size() < kShortestPasscode)
        return "a passcode needs at least " + std::to_string(kShortestPasscode) + " characters";
    if (std::any_of(passcode.begin(), passcode.end(), [](char c) { return static_cast<unsigned char>(c) <= ' '; }))
        return "a passcode has no blanks or control characters";
    return {};
}

std::string AccessGate::generate() {
    // No 0/O or 1/l/I: read out over a talkback without spelling.
    static constexpr std::string_view kSigns = "abcdefghijkmnpqrstuvwxyz23456789";
    std::random_device device;
    std::uniform_int_distribution<std::size_t> pick(0, kSigns.size() - 1);
    std::string out;
    for (int group = 0; group < 4; ++group) {
        if (group > 0) out += '-';
        for (int i = 0; i < 4; ++i) out += kSigns[pick(device)];
    }
    return out;
}

std::string AccessGate::attempt(const std::string& host, std::string_view passcode, Clock::time_point now) {
    if (!hasPasscode()) return "auth: remote control has no passcode";
    Failures& f = failures_[host];
    if (now < f.until) {
        const auto wait = std::chrono::ceil<std::chrono::seconds>(f.until - now).count();
        note("remote: passcode attempt from " + host + " ignored, " + std::to_string(wait) + " s to wait");
        return "auth: wait " + std::to_string(wait) + " s after a wrong passcode";
    }
    if (samePasscode(passcode, passcode_)) {
        failures_.erase(host);
        note("remote: " + host + " gave the passcode");
        return {};
    }
    ++f.count;
    const auto wait = std::min<Clock::duration>(kFirstWait * (1L << std::min(f.count - 1, 10)), kLongestWait);
    f.until = now + wait;
    note("remote: wrong passcode from " + host + " (" + std::to_string(f.count) + " in a row)");
    return "auth: wrong passcode";
}

}  // namespace station::remote
