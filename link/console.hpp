#pragma once
// The command console (Form5): an engineer types a frame as hex digits and feeds it into
// the receive path as though the camera had sent it. Nothing is sent by the console itself;
// the next poll processes the bytes and answers them on the line.

#include "common/controls.hpp"
#include "link/link.hpp"

namespace station {

class Console {
public:
    explicit Console(Link& link);

    FormWindow form{"Form5"};
    TextBox Text1;
    TextBox Text2;  // preset to the frame 02 03 40 00 00 BC FF
    TextBox Text3;  // the byte count of the last injection
    CommandButton Command1{"Command1"};
    CommandButton Command2{"Command2"};
    ListBox List1;  // the setup-data listing
    Label Label1;

    void Command1_Click() { inject(Text1.text()); }
    void Command2_Click() { inject(Text2.text()); }

private:
    void inject(const std::string& digits);
    Link& link_;
};

}  // namespace station
