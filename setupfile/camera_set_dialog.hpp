#pragma once
// The camera set dialog ("Camera set"): gives each of the eight camera positions a camera
// type and a camera ID. An ID takes effect as it is typed; a type change takes effect in
// the type tables when the dialog is confirmed.

#include <functional>

#include "camtype/camera_types.hpp"
#include "common/controls.hpp"
#include "common/shared.hpp"

namespace station {

struct Form4 {
    FormWindow form{"Camera set"};
    OptionGroup Option1{1, 8};       // the camera being edited; caption = its type code
    Array<TextBox> Text1{1, 8};      // each camera's ID
    ListBox List1;                   // "delete", then every known type code
    Label Label5;                    // the note of the chosen type
    CommandButton Command1{"OK"};
    int selectedCamera = 0;          // 0 until a camera button was pressed
};

class CameraSetDialog {
public:
    // typeLabels and idLabels are the main window's per-camera labels (1..8).
    CameraSetDialog(Shared& shared, TypeTables& types, CameraTypes& cameraTypes, Form4& form,
                    Array<Label>& typeLabels, Array<Label>& idLabels);

    // Rebuilds the function editor after a confirmed change (the editor lives above this layer).
    std::function<void()> refreshEditor;

    // Shows the dialog with the current types and IDs.
    void show();

    void Option1_Click(int camera);
    void Text1_Change(int camera);
    void List1_Click();
    void Command1_Click();

private:
    Shared& shared_;
    TypeTables& types_;
    CameraTypes& cameraTypes_;
    Form4& form_;
    Array<Label>& typeLabels_;
    Array<Label>& idLabels_;
};

}  // namespace station
