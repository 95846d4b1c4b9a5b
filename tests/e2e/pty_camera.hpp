#pragma once
// A camera on a fresh pseudo-terminal reached through a link at a given path, as a USB-serial
// adapter plugged in at that path: it acknowledges every frame and records its data bytes as
// hex text. Gone (hung up, path removed) when destroyed.

#include <gtest/gtest.h>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "common/hex.hpp"

namespace station::testing {

class PtyCamera {
public:
    explicit PtyCamera(std::filesystem::path link) : link_(std::move(link)) {
        master_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
        std::array<char, 128> name{};
        EXPECT_TRUE(master_ >= 0 && ::grantpt(master_) == 0 && ::unlockpt(master_) == 0 &&
                    ::ptsname_r(master_, name.data(), name.size()) == 0);
        std::filesystem::create_symlink(name.data(), link_);
    }
    ~PtyCamera() {
        ::close(master_);
        std::filesystem::remove(link_);
    }
    void serve(std::vector<std::string>& frames) {
        std::array<std::uint8_t, 512> buf{};
        for (ssize_t n; (n = ::read(master_, buf.data(), buf.size())) > 0;) in_.insert(in_.end(), buf.begin(), buf.begin() + n);
        while (!in_.empty() && (in_[0] != 0x02 || (in_.size() >= 2 && in_.size() >= in_[1] + 4u))) {
            const std::size_t n = in_[0] == 0x02 ? in_[1] + 4u : 1;
            if (n > 1) {
                frames.push_back(hexText(Bytes(in_.begin() + 2, in_.begin() + static_cast<std::ptrdiff_t>(n) - 2)));
                EXPECT_EQ(::write(master_, "\x06", 1), 1);
            }
            in_.erase(in_.begin(), in_.begin() + static_cast<std::ptrdiff_t>(n));
        }
    }

private:
    std::filesystem::path link_;
    int master_ = -1;
    Bytes in_;
};

}  // namespace station::testing
