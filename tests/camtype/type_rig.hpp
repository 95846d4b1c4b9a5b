#pragma once
// The camera-type layer on fresh tables, with recorded messages and a temporary
// definition folder.

#include "camtype/camera_types.hpp"
#include "tests/support/fake_messages.hpp"
#include "tests/support/temp_folder.hpp"

namespace station::testing {

struct TypeRig {
    TypeRig() { stores.fillMainKey(); }

    // Lists the folder, as start-up does.
    void list() { types.FclListSet(List1); }
    // Sets camera n's type code.
    void camera(int n, const std::string& code) { shared.cams.CamType(n) = code; }

    TempFolder folder;
    Shared shared;
    TypeTables tables;
    SettingStores stores;
    FakeMessages messages;
    ListBox List1;
    CameraTypes types{shared, tables, stores, messages, folder.path()};
};

}  // namespace station::testing
