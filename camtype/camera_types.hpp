#pragma once
// The camera-type definitions ("*.fcl" files) of the definition folder: the list of known
// types, the assignment of the eight cameras to types and load slots, and the load of each
// slot's file into the type tables (which registers item codes in the setting stores).

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "camtype/setting_stores.hpp"
#include "camtype/type_tables.hpp"
#include "common/controls.hpp"
#include "common/messages.hpp"
#include "common/shared.hpp"

namespace station {

class CameraTypes {
public:
    CameraTypes(Shared& shared, TypeTables& types, SettingStores& stores, MessageSink& messages,
                std::filesystem::path definitionFolder = ".");

    // Where the definition files are looked for (see definition_folder.hpp).
    std::filesystem::path DefinitionFolder;

    // A word to the operator that needs no answer: definition files left out of the list.
    std::function<void(const std::string&)> Notify;

    // Lists the folder's definition files in name order (at most 64) as the type list, reads
    // each one's "[camera type]" code and note, and fills the camera set dialog's type list
    // (List1) with "delete" followed by the type codes.
    void FclListSet(ListBox& List1);

    // Ties each camera to the type of its CamType and gives every distinct type in use a
    // load slot, in camera order; tells the operator about a camera whose type has no file.
    void FclDataSet();

    // Reads the definition file of every load slot into the type tables.
    void FclLoad();

    // FclLoad's reading of one slot's file content; a file that cannot be read is skipped.
    void loadDefinition(int slot, std::string_view text);

    // FclListSet's reading of one file content into row `row` of the type list.
    void readTypeEntry(int row, std::string_view text);

private:
    Shared& shared_;
    TypeTables& types_;
    SettingStores& stores_;
    MessageSink& messages_;
};

}  // namespace station
