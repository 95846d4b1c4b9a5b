// FclDataSet: cameras to types, and types in use to load slots.
#include <string>

#include "camtype/camera_types.hpp"

namespace station {

void CameraTypes::FclDataSet() {
    CameraTable& cams = shared_.cams;
    const long typeCount = static_cast<long>(val(types_.TypeFile(0)));
    int slots = 0;
    const auto newSlot = [&](int k) {
        ++slots;
        cams.CamFclNo(k) = std::to_string(slots);
        types_.FclName(slots) = types_.TypeFile(static_cast<long>(val(cams.CamTypeNo(k))));
    };

    for (int k = 1; k <= kMaxCamera; ++k) {
        if (!cams.CamType(k).empty()) {
            cams.CamTypeNo(k).clear();
            // Every type is visited, so of two files with the same code the later one wins.
            for (long j = 1; j <= typeCount; ++j)
                if (types_.TypeCode(j) == cams.CamType(k)) cams.CamTypeNo(k) = std::to_string(j);
            if (cams.CamTypeNo(k).empty()) messages_.show("There is loss file for Camera Contol", Icon::Exclamation);
        } else {
            cams.CamTypeNo(k).clear();
            cams.CamFclNo(k).clear();
        }

        if (slots == 0 && !cams.CamTypeNo(k).empty()) {
            newSlot(k);
        } else {
            // A camera of a type seen before shares that camera's slot. The comparison also
            // pairs cameras without a type number, copying such a camera's slot as it stands;
            // otherwise a camera of an unknown type keeps the slot it had before.
            bool found = false;
            for (int j = 1; j < k; ++j) {
                if (cams.CamTypeNo(j) == cams.CamTypeNo(k)) {
                    cams.CamFclNo(k) = cams.CamFclNo(j);
                    found = true;
                }
            }
            if (!cams.CamTypeNo(k).empty() && !found) newSlot(k);
        }
    }
    types_.FclName(0) = std::to_string(slots);
}

}  // namespace station
