// CsdLoad's reading of a setup data file's lines into the settings.
#include <string>

#include "camtype/text_lines.hpp"
#include "common/vb_conv.hpp"
#include "setupfile/setup_file.hpp"

namespace station {

namespace {

// The values of a list, taken one at a time. When no "," is left the whole rest is the
// value and stays the rest, so a short list repeats its last value ("Scene=2" gives 2 to
// every camera) and an empty list gives empty values.
class ValueList {
public:
    explicit ValueList(std::string_view text) : rest_(text) {}
    std::string_view next() {
        const std::size_t comma = rest_.find(',');
        if (comma == std::string_view::npos) return rest_;
        const std::string_view value = rest_.substr(0, comma);
        rest_.remove_prefix(comma + 1);
        return value;
    }

private:
    std::string_view rest_;
};

// The key without its "=", as a text operation that fails on the empty key.
std::string_view rowKey(std::string_view key) {
    if (key.empty()) throw RuntimeError::invalidCall();
    return keyName(key);
}

}  // namespace

void SetupFile::loadText(std::string_view text) {
    CameraTable& cams = shared_.cams;
    std::string section;
    long r = 0;
    trace_ = {};

    forEachLine(withoutByteOrderMark(text), [&](std::string_view line) {
        ++trace_.line;
        trace_.row = 0;
        // Unlike a definition file, the whole header line names the section.
        if (!line.empty() && line.front() == '[') {
            section = line;
            r = 1;
            if (!knownSection(section)) trace_.leftOut(line);  // its lines go unread with it
            return;
        }
        const Entry e = splitEntry(line);

        if (section == "[system]") {
            if (e.key == "ACK Check=") shared_.AckMode = toInteger(val(e.value));
            else if (e.key == "Camera Select=") shared_.IDMode = toInteger(val(e.value));
            else if (!line.empty()) trace_.leftOut(line);
        } else if (section == "[camera type/ID]") {
            bool camera = false;
            for (int n = 1; n <= kMaxCamera; ++n) {
                if (e.key != "Camera " + std::to_string(n) + "=") continue;
                const std::size_t bar = e.value.find('|');
                if (bar == std::string_view::npos) throw RuntimeError::invalidCall();
                cams.CamType(n) = e.value.substr(0, bar);
                cams.CamID(n) = e.value.substr(bar + 1);
                camera = true;
            }
            if (!camera && !line.empty()) trace_.leftOut(line);
        } else if (section == "[scene no]") {
            ValueList values(e.value);
            for (int c = 1; c <= kMaxCamera; ++c) shared_.ScnNo(c) = toInteger(val(values.next()));
        } else if (section == "[main data]") {
            // An unknown key fills the row after the last field rather than failing.
            const long keys = static_cast<long>(val(stores_.MainKey(0)));
            long j = keys + 1;
            for (long m = keys; m >= 1; --m)
                if (stores_.MainKey(m) == e.key) j = m;
            if (j > keys && !line.empty()) trace_.leftOut(line);  // read into the spare row, which nothing uses
            ValueList values(e.value);
            for (int c = 1; c <= kMaxCamera; ++c)
                for (int s = 1; s <= kScenes; ++s) stores_.MainScnData(j, c, s) = values.next();
        } else if (section == "[function scene data]") {
            if (e.key.empty()) {
                if (!line.empty()) trace_.leftOut(line);
                return;
            }
            trace_.row = r;
            // The row is reached before it is counted, so a 301st row stops the load with the
            // count still at 300.
            std::string& key = stores_.FuncScnData(r, 0, 0);
            stores_.FuncScnData(0, 0, 0) = std::to_string(r);
            key = keyName(e.key);
            ValueList values(e.value);
            for (int c = 1; c <= kMaxCamera; ++c)
                for (int s = 1; s <= kScenes; ++s) stores_.FuncScnData(r, c, s) = values.next();
            ++r;
        } else if (section == "[function data]") {
            trace_.row = r;
            std::string& key = stores_.FuncData(r, 0);
            stores_.FuncData(0, 0) = std::to_string(r);
            key = rowKey(e.key);  // every line counts here: one without "=" stops the load
            ValueList values(e.value);
            for (int c = 1; c <= kMaxCamera; ++c) stores_.FuncData(r, c) = values.next();
            ++r;
        } else if (section.empty() && !line.empty()) {
            trace_.leftOut(line);
        }
    });
}

bool SetupFile::knownSection(std::string_view section) {
    for (const char* known : {"[system]", "[camera type/ID]", "[scene no]", "[main data]", "[function scene data]",
                              "[function data]", "[end]"})
        if (section == known) return true;
    return false;
}

void SetupFile::LoadTrace::leftOut(std::string_view text) {
    if (++ignored == 1) {
        firstIgnored = line;
        constexpr std::size_t kShown = 60;
        firstText = text.size() > kShown ? std::string(text.substr(0, kShown)) + "..." : std::string(text);
    }
}

void SetupFile::tellLoad(const RuntimeError* stop) const {
    if (!Notify) return;
    const std::string name = std::filesystem::path(FileName).filename().string();
    if (trace_.ignored > 0)
        Notify(name + ", line " + std::to_string(trace_.firstIgnored) + ": \"" + trace_.firstText + "\" is not understood" +
               (trace_.ignored > 1 ? " (nor " + std::to_string(trace_.ignored - 1) + " more lines)" : std::string()) +
               "; left out");
    if (stop == nullptr) return;
    if (trace_.row > kMaxSettingRows)
        Notify(name + ", line " + std::to_string(trace_.line) + ": more than " + std::to_string(kMaxSettingRows) +
               " function rows; the load stopped there, and the rest of the file is left out");
    else
        Notify(name + ", line " + std::to_string(trace_.line) + ": the load stopped (Run-time error " +
               std::to_string(stop->number()) + ": " + stop->what() + "); the rest of the file is left out");
}

}  // namespace station
