#pragma once
// Whole-page transfers between the station and the selected camera: reading every setting
// the camera's type defines ("Camera to PC"), which only queues the read requests (the
// replies are stored by the reply decoders as they arrive), and writing every stored setting
// ("PC to Camera"), the main panel first and then each function page of the editor.

#include <string>
#include <vector>

#include "camtype/type_tables.hpp"
#include "funcedit/function_editor.hpp"
#include "link/link.hpp"
#include "panel/main_panel.hpp"

namespace station {

class PageTransfer {
public:
    PageTransfer(TypeTables& types, Link& link, MainPanel& panel, FunctionEditor& editor, Form2& form2);

    void Command12_Click();  // read all ("Camera to PC")
    void Command13_Click();  // send all ("PC to Camera")
    void Command3_Click();   // "1Page to CAM": the function page now shown in the editor
    void READ_Click() { Command12_Click(); }
    void SEND_Click() { Command13_Click(); }

    // The read requests of a page, in the order they are queued.
    std::vector<std::string> readRequests() const;

    // A read request is the set command with 3 added to its first byte ("20" -> "23").
    static std::string requestCode(const std::string& setCommand);

private:
    TypeTables& types_;
    Link& link_;
    MainPanel& panel_;
    FunctionEditor& editor_;
    Form2& form2_;
};

}  // namespace station
