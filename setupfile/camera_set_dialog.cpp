#include "setupfile/camera_set_dialog.hpp"

namespace station {

CameraSetDialog::CameraSetDialog(Shared& shared, TypeTables& types, CameraTypes& cameraTypes, Form4& form,
                                 Array<Label>& typeLabels, Array<Label>& idLabels)
    : shared_(shared), types_(types), cameraTypes_(cameraTypes), form_(form), typeLabels_(typeLabels),
      idLabels_(idLabels) {
    form_.Option1.onClick = [this](int camera) { Option1_Click(camera); };
    for (int camera = 1; camera <= kMaxCamera; ++camera)
        form_.Text1(camera).onChange = [this, camera] { Text1_Change(camera); };
    form_.List1.onClick = [this] { List1_Click(); };
}

void CameraSetDialog::show() {
    for (int camera = 1; camera <= kMaxCamera; ++camera) {
        form_.Option1[camera].Caption = shared_.cams.CamType(camera);
        form_.Text1(camera).setText(shared_.cams.CamID(camera));
    }
    form_.form.Show();
}

void CameraSetDialog::Option1_Click(int camera) { form_.selectedCamera = camera; }

void CameraSetDialog::Text1_Change(int camera) {
    shared_.cams.CamID(camera) = form_.Text1(camera).text();
    idLabels_(camera).Caption = form_.Text1(camera).text();
}

void CameraSetDialog::List1_Click() {
    const int choice = form_.List1.listIndex();
    const int camera = form_.selectedCamera;
    if (choice != 0) {
        form_.Label5.Caption = types_.TypeNote(choice);
        if (camera == 0) return;
        const std::string& code = types_.TypeCode(choice);
        shared_.cams.CamType(camera) = code;
        form_.Option1[camera].Caption = code;
        typeLabels_(camera).Caption = code;
    } else {
        // "delete": the camera position becomes empty; its ID stays.
        form_.Label5.Caption.clear();
        if (camera == 0) return;
        shared_.cams.CamType(camera).clear();
        form_.Option1[camera].Caption.clear();
        typeLabels_(camera).Caption.clear();
    }
}

void CameraSetDialog::Command1_Click() {
    cameraTypes_.FclDataSet();
    cameraTypes_.FclLoad();
    // The panels are rebuilt for the new types without sending anything.
    shared_.CtrlReady = 0;
    if (refreshEditor) refreshEditor();
    shared_.CtrlReady = 1;
    form_.form.Hide();
}

}  // namespace station
