#pragma once
// Camera selection, copying one camera's set-up onto another, and the four stored scenes
// of each camera. Nothing here sends to a camera: a selection or a scene recall reloads the
// panel from the station's stored settings only, and copied settings reach a camera only
// through a page write.

#include "camtype/setting_stores.hpp"
#include "common/messages.hpp"
#include "common/shared.hpp"
#include "funcedit/function_editor.hpp"
#include "panel/form1.hpp"
#include "panel/main_panel.hpp"

namespace station {

class CameraScenes {
public:
    CameraScenes(Shared& shared, SettingStores& stores, Form1& form, MainPanel& panel, FunctionEditor& editor,
                 Form2& form2, MessageSink& messages);

    // The camera buttons ("GROUP", "1".."8") and the one-shot "COPY" box.
    void Option9_Click(int index);
    void CamCopy_Click();

    // The scene buttons "1".."4", the one-shot "STORE" box, and the scene buttons' neighbours.
    void Option7_Click(int index);
    void ScnStore_Click();
    void Command2_Click();  // "CLEAR": back to the selected scene's stored values
    void Command5_Click();  // "FUNC": the function editor
    void Command1_Click() {}  // "PRESET": a placeholder, it has never had an action
    void Command6_Click() {}  // "LENS": a placeholder, it has never had an action

    // Copies the selected camera's scene slot src into slot dst (0 is the working copy).
    void ScnDataChange(int dst, int src);

    // Whether the working copy holds what the selected scene holds: false once an edit or a
    // camera's reply changed it, true again after STORE, CLEAR, a recall or a selection.
    // What is not stored into a scene is in no file, and is lost by choosing a camera.
    bool workingCopyStored() const;
    // Whether pressing camera button `index` now would drop changes not stored: a selection
    // or a copy reloads the working copy; pressing the selected camera without COPY does not.
    bool pressDropsChanges(int index) const;

private:
    void wireEvents();
    void colourSelection(int camera);
    void reloadSelected();
    void redrawWithoutSending();

    Shared& shared_;
    SettingStores& stores_;
    Form1& form_;
    MainPanel& panel_;
    FunctionEditor& editor_;
    Form2& form2_;
    MessageSink& messages_;
};

}  // namespace station
