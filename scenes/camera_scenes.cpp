#include "scenes/camera_scenes.hpp"

#include "common/runtime_error.hpp"
#include "common/vb_conv.hpp"

namespace station {

CameraScenes::CameraScenes(Shared& shared, SettingStores& stores, Form1& form, MainPanel& panel,
                           FunctionEditor& editor, Form2& form2, MessageSink& messages)
    : shared_(shared), stores_(stores), form_(form), panel_(panel), editor_(editor), form2_(form2),
      messages_(messages) {
    wireEvents();
}

void CameraScenes::wireEvents() {
    form_.Option9.onClick = [this](int i) { Option9_Click(i); };
    form_.CamCopy.onClick = [this] { CamCopy_Click(); };
    form_.Option7.onClick = [this](int i) { Option7_Click(i); };
    form_.ScnStore.onClick = [this] { ScnStore_Click(); };
}

void CameraScenes::ScnDataChange(int dst, int src) {
    const int cam = shared_.CamNo;
    const double fields = val(stores_.MainKey(0));
    for (int i = 1; i <= fields; ++i) stores_.MainScnData(i, cam, dst) = stores_.MainScnData(i, cam, src);
    // The GROUP position has no function settings of its own.
    if (cam < 1) return;
    const double rows = val(stores_.FuncScnData(0, 0, 0));
    for (int i = 1; i <= rows; ++i) stores_.FuncScnData(i, cam, dst) = stores_.FuncScnData(i, cam, src);
}

bool CameraScenes::workingCopyStored() const {
    try {
        const int cam = shared_.CamNo;
        const int scene = shared_.ScnNo(cam);
        const double fields = val(stores_.MainKey(0));
        for (int i = 1; i <= fields; ++i) {
            const std::string& shown = stores_.MainScnData(i, cam, 0);
            const std::string& kept = stores_.MainScnData(i, cam, scene);
            // The panel shows a monitor select of 0 or none as output 16 and writes that into
            // the working copy: the same setting, not a change.
            const bool same = shown == kept || (i == mMONSEL && shown == "16" && val(kept) < 1);
            if (!same) return false;
        }
        if (cam < 1) return true;
        const double rows = val(stores_.FuncScnData(0, 0, 0));
        for (int i = 1; i <= rows; ++i)
            if (stores_.FuncScnData(i, cam, 0) != stores_.FuncScnData(i, cam, scene)) return false;
        return true;
    } catch (const RuntimeError&) {
        return false;  // a store beyond its rows: a STORE would not hold it either
    }
}

bool CameraScenes::pressDropsChanges(int index) const {
    const bool reloads = index != shared_.CamNo || form_.CamCopy.value() == 1;
    return reloads && !workingCopyStored();
}

// Old camera and its scene button grey, the new camera and its scene button highlighted, and
// the new camera's scene button selected without loading it.
void CameraScenes::colourSelection(int camera) {
    form_.Option9[shared_.CamNo].BackColor = kColourGrey;
    form_.Option7[shared_.ScnNo(shared_.CamNo)].BackColor = kColourGrey;
    form_.Option9[camera].BackColor = kColourSelected;
    form_.Option7[shared_.ScnNo(camera)].BackColor = kColourSelected;
    form_.SelectLock = 0;
    form_.Option7.setValue(shared_.ScnNo(camera), true);
    form_.SelectLock = 1;
}

void CameraScenes::reloadSelected() {
    ScnDataChange(0, shared_.ScnNo(shared_.CamNo));
    panel_.MainDsp();
    editor_.FuncListDsp();
    editor_.DataFuncDsp();
}

void CameraScenes::Option9_Click(int index) {
    if (form_.CamCopy.value() == 1) {
        // A copy is one-shot: clearing the box first also reselects the current camera.
        form_.CamCopy.setValue(0);
        if (shared_.cams.CamType(index) != shared_.cams.CamType(shared_.CamNo)) {
            messages_.show("Different the Camera Types", Icon::Exclamation);
            return;
        }
        colourSelection(index);
        const int from = shared_.CamNo;
        const double fields = val(stores_.MainKey(0));
        const double sceneRows = val(stores_.FuncScnData(0, 0, 0));
        for (int k = 1; k <= 4; ++k) {
            for (int i = 1; i <= fields; ++i) stores_.MainScnData(i, index, k) = stores_.MainScnData(i, from, k);
            for (int i = 1; i <= sceneRows; ++i) stores_.FuncScnData(i, index, k) = stores_.FuncScnData(i, from, k);
        }
        const double rows = val(stores_.FuncData(0, 0));
        for (int i = 1; i <= rows; ++i) stores_.FuncData(i, index) = stores_.FuncData(i, from);
        // The target keeps its own selected scene; its working copy is reloaded from it. The
        // copied settings reach the camera only through a page write, so the reload is quiet.
        shared_.CamNo = static_cast<Integer>(index);
        const Integer ready = shared_.CtrlReady;
        shared_.CtrlReady = 0;
        reloadSelected();
        shared_.CtrlReady = ready;
        return;
    }

    shared_.CtrlReady = 0;
    colourSelection(index);
    shared_.CamNo = static_cast<Integer>(index);
    reloadSelected();
    shared_.CtrlReady = 1;
    // The GROUP position is always run without the handshake: several cameras cannot all
    // acknowledge one frame.
    panel_.SetAckCont(shared_.CamNo == 0 ? Integer{1} : shared_.AckMode);
}

void CameraScenes::CamCopy_Click() {
    // Ticked: the current camera's button is released so that pressing it copies onto itself.
    if (form_.CamCopy.value() == 1) form_.Option9.setValue(shared_.CamNo, false);
    else if (form_.CamCopy.value() == 0) form_.Option9.setValue(shared_.CamNo, true);
}

void CameraScenes::redrawWithoutSending() {
    const Integer ready = shared_.CtrlReady;
    shared_.CtrlReady = 0;
    panel_.MainDsp();
    shared_.CtrlReady = ready;
}

void CameraScenes::Option7_Click(int index) {
    for (int i = 1; i <= 4; ++i) form_.Option7[i].BackColor = kColourGrey;
    form_.Option7[index].BackColor = kColourSelected;
    if (form_.SelectLock != 1) return;  // set by a camera selection: nothing to load
    shared_.ScnNo(shared_.CamNo) = static_cast<Integer>(index);
    if (form_.ScnStore.value() == 0) {
        // Recalling a scene reloads the station's copy only; the function page is shown
        // without being sent, like the panel.
        ScnDataChange(0, index);
        const Integer ready = shared_.CtrlReady;
        shared_.CtrlReady = 0;
        panel_.MainDsp();
        editor_.DataFuncDsp();
        shared_.CtrlReady = ready;
    } else if (form_.ScnStore.value() == 1) {
        ScnDataChange(index, 0);
        form_.ScnStore.setValue(0);  // one-shot, as "COPY"
    }
}

void CameraScenes::ScnStore_Click() {
    // Ticked: the current scene button is released so that it, too, can take the store.
    const int scene = shared_.ScnNo(shared_.CamNo);
    if (form_.ScnStore.value() == 1) form_.Option7.setValue(scene, false);
    else if (form_.ScnStore.value() == 0) form_.Option7.setValue(scene, true);
}

void CameraScenes::Command2_Click() {
    ScnDataChange(0, shared_.ScnNo(shared_.CamNo));
    redrawWithoutSending();
}

void CameraScenes::Command5_Click() { form2_.form.Show(); }

}  // namespace station
