#include "setupfile/setup_text.hpp"

#include "common/vb_conv.hpp"

namespace station {

namespace {

// Walks the settings in file order and hands the text to `out` piece by piece:
// out.piece(text) for the parts of a line, out.endLine() after each line. The one walk
// serves the save, the diagnostic listing and the comparison with the file on disk, so
// they cannot disagree.
template <typename Out>
void writeSetup(const Shared& shared, const SettingStores& stores, SetupListing listing, Out& out) {
    const bool file = listing == SetupListing::File;
    auto line = [&](std::string_view text) {
        out.piece(text);
        out.endLine();
    };
    // Values separated by "," (no list ends in ",").
    auto values = [&](int count, auto valueAt) {
        for (int n = 0; n < count; ++n) {
            if (n > 0) out.piece(",");
            out.piece(valueAt(n));
        }
    };
    // 32 values: cameras 1..8, each camera's scenes 1..4.
    auto sceneValues = [&](auto cell) {
        values(kMaxCamera * kScenes, [&](int n) -> const std::string& { return cell(n / kScenes + 1, n % kScenes + 1); });
    };

    line("[system]");
    out.piece("ACK Check=");
    line(decText(shared.AckMode));
    if (file) {
        out.piece("Camera Select=");
        line(decText(shared.IDMode));
    }

    line("[camera type/ID]");
    for (int n = 1; n <= kMaxCamera; ++n) {
        out.piece("Camera ");
        out.piece(std::to_string(n));
        out.piece("=");
        out.piece(shared.cams.CamType(n));
        out.piece("|");
        line(shared.cams.CamID(n));
    }

    if (file) {
        line("[scene no]");
        out.piece("Scene=");
        values(kMaxCamera, [&](int n) { return decText(shared.ScnNo(n + 1)); });
        out.endLine();
    }

    line("[main data]");
    const long keys = static_cast<long>(val(stores.MainKey(0)));
    for (long j = 1; j <= keys; ++j) {
        out.piece(stores.MainKey(j));
        sceneValues([&](int c, int s) -> const std::string& { return stores.MainScnData(j, c, s); });
        out.endLine();
    }

    // Function rows whose values are all empty are left out: items never set are not kept.
    line("[function scene data]");
    const long sceneRows = static_cast<long>(val(stores.FuncScnData(0, 0, 0)));
    for (long r = 1; r <= sceneRows; ++r) {
        bool anySet = false;
        for (int c = 1; c <= kMaxCamera && !anySet; ++c)
            for (int s = 1; s <= kScenes && !anySet; ++s) anySet = !stores.FuncScnData(r, c, s).empty();
        if (!anySet) continue;
        out.piece(stores.FuncScnData(r, 0, 0));
        out.piece("=");
        sceneValues([&](int c, int s) -> const std::string& { return stores.FuncScnData(r, c, s); });
        out.endLine();
    }

    line("[function data]");
    const long rows = static_cast<long>(val(stores.FuncData(0, 0)));
    for (long r = 1; r <= rows; ++r) {
        bool anySet = false;
        for (int c = 1; c <= kMaxCamera && !anySet; ++c) anySet = !stores.FuncData(r, c).empty();
        if (!anySet) continue;
        out.piece(stores.FuncData(r, 0));
        out.piece("=");
        values(kMaxCamera, [&](int n) -> const std::string& { return stores.FuncData(r, n + 1); });
        out.endLine();
    }

    if (file) line("[end]");
}

struct Lines {
    std::vector<std::string> lines{std::string()};
    void piece(std::string_view text) { lines.back() += text; }
    void endLine() { lines.emplace_back(); }
};

struct Text {
    std::string text;
    void piece(std::string_view t) { text += t; }
    void endLine() { text += "\r\n"; }
};

// Compares the text as it is walked with a text held, without building it.
struct Match {
    std::string_view held;
    bool same = true;
    void piece(std::string_view t) {
        if (!same) return;
        same = held.substr(0, t.size()) == t;
        held.remove_prefix(same ? t.size() : 0);
    }
    void endLine() { piece("\r\n"); }
};

}  // namespace

std::vector<std::string> setupLines(const Shared& shared, const SettingStores& stores, SetupListing listing) {
    Lines out;
    out.lines.reserve(32 + 2 * kMaxSettingRows);
    writeSetup(shared, stores, listing, out);
    out.lines.pop_back();  // the empty line begun after the last one
    return std::move(out.lines);
}

std::string setupText(const Shared& shared, const SettingStores& stores) {
    Text out;
    writeSetup(shared, stores, SetupListing::File, out);
    return std::move(out.text);
}

bool setupTextIs(const Shared& shared, const SettingStores& stores, std::string_view text) {
    Match out{text};
    writeSetup(shared, stores, SetupListing::File, out);
    return out.same && out.held.empty();
}

}  // namespace station
