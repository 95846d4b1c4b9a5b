#include "camtype/camera_types.hpp"

#include <utility>

namespace station {

CameraTypes::CameraTypes(Shared& shared, TypeTables& types, SettingStores& stores, MessageSink& messages,
                         std::filesystem::path definitionFolder)
    : DefinitionFolder(std::move(definitionFolder)),
      shared_(shared),
      types_(types),
      stores_(stores),
      messages_(messages) {}

}  // namespace station
