#include "setupfile/setup_text.hpp"

#include "common/vb_conv.hpp"

namespace station {

namespace {

// Each value followed by ",", then the last character dropped: no list ends in ",".
template <typename ValueAt>
std::string valueList(int count, ValueAt valueAt, bool& anySet) {
    std::string list;
    for (int n = 0; n < count; ++n) {
        const std::string& v = valueAt(n);
        if (!v.empty()) anySet = true;
        list += v;
        list += ',';
    }
    list.pop_back();
    return list;
}

// 32 values: cameras 1..8, each camera's scenes 1..4.
template <typename Cell>
std::string sceneValues(Cell cell, bool& anySet) {
    return valueList(kMaxCamera * kScenes, [&](int n) -> const std::string& { return cell(n / kScenes + 1, n % kScenes + 1); },
                     anySet);
}

}  // namespace

std::vector<std::string> setupLines(const Shared& shared, const SettingStores& stores, SetupListing listing) {
    const bool file = listing == SetupListing::File;
    std::vector<std::string> lines;
    lines.reserve(32 + 2 * kMaxSettingRows);

    lines.emplace_back("[system]");
    lines.push_back("ACK Check=" + decText(shared.AckMode));
    if (file) lines.push_back("Camera Select=" + decText(shared.IDMode));

    lines.emplace_back("[camera type/ID]");
    for (int n = 1; n <= kMaxCamera; ++n)
        lines.push_back("Camera " + std::to_string(n) + "=" + shared.cams.CamType(n) + "|" + shared.cams.CamID(n));

    if (file) {
        lines.emplace_back("[scene no]");
        std::string scenes = "Scene=";
        for (int c = 1; c <= kMaxCamera; ++c) {
            scenes += decText(shared.ScnNo(c));
            scenes += ',';
        }
        scenes.pop_back();
        lines.push_back(std::move(scenes));
    }

    lines.emplace_back("[main data]");
    const long keys = static_cast<long>(val(stores.MainKey(0)));
    for (long j = 1; j <= keys; ++j) {
        bool unused = false;
        lines.push_back(stores.MainKey(j) +
                        sceneValues([&](int c, int s) -> const std::string& { return stores.MainScnData(j, c, s); }, unused));
    }

    lines.emplace_back("[function scene data]");
    const long sceneRows = static_cast<long>(val(stores.FuncScnData(0, 0, 0)));
    for (long r = 1; r <= sceneRows; ++r) {
        bool anySet = false;
        std::string values =
            sceneValues([&](int c, int s) -> const std::string& { return stores.FuncScnData(r, c, s); }, anySet);
        if (anySet) lines.push_back(stores.FuncScnData(r, 0, 0) + "=" + values);
    }

    lines.emplace_back("[function data]");
    const long rows = static_cast<long>(val(stores.FuncData(0, 0)));
    for (long r = 1; r <= rows; ++r) {
        bool anySet = false;
        std::string values =
            valueList(kMaxCamera, [&](int n) -> const std::string& { return stores.FuncData(r, n + 1); }, anySet);
        if (anySet) lines.push_back(stores.FuncData(r, 0) + "=" + values);
    }

    if (file) lines.emplace_back("[end]");
    return lines;
}

std::string setupText(const Shared& shared, const SettingStores& stores) {
    std::string text;
    for (const std::string& line : setupLines(shared, stores, SetupListing::File)) {
        text += line;
        text += "\r\n";
    }
    return text;
}

}  // namespace station
