#pragma once
// The one error type of the station's logic. It carries the number and text that the
// original runtime used for the same fault, so that the operator sees familiar wording
// and tests can tell the three faults apart.

#include <stdexcept>
#include <string>

namespace station {

class RuntimeError : public std::runtime_error {
public:
    RuntimeError(int number, const std::string& text) : std::runtime_error(text), number_(number) {}
    int number() const noexcept { return number_; }

    static RuntimeError subscriptOutOfRange() { return {9, "Subscript out of range"}; }
    static RuntimeError overflow() { return {6, "Overflow"}; }
    static RuntimeError invalidCall() { return {5, "Invalid procedure call or argument"}; }

private:
    int number_;
};

// "Run-time error 9: Subscript out of range": how every client words the fault.
inline std::string runtimeErrorText(const RuntimeError& error) {
    return "Run-time error " + std::to_string(error.number()) + ": " + error.what();
}

}  // namespace station
