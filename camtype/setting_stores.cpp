#include "camtype/setting_stores.hpp"

#include <array>

namespace station {

void SettingStores::fillMainKey() {
    static constexpr std::array<const char*, kMainKeys> keys = {
        "mBar=",  "mDTL=",   "mSHT=",   "mGAIN=",  "mWHITE=", "mIRIS=", "mMONSEL=", "aMBLK=", "aIRIS=",
        "aDTL=",  "aRGAIN=", "aBGAIN=", "aRBLK=",  "aBBLK=",  "mLOW=",  "mMID=",    "mHIGH=", "mFILTER=",
    };
    MainKey(0) = std::to_string(kMainKeys);
    for (int j = 1; j <= kMainKeys; ++j) MainKey(j) = keys[static_cast<std::size_t>(j - 1)];
}

}  // namespace station
