// FclLoad: the "[form control]", "[function menu]" and "[variable shutter]" sections of each
// load slot's definition file, into the type tables.
#include <string>

#include "camtype/camera_types.hpp"
#include "camtype/item_rows.hpp"
#include "camtype/text_lines.hpp"

namespace station {

namespace {

// The reading of one file into one slot. The counters run over the whole file: a function
// line restarts the items, an item line restarts the parameters, a section header restarts
// the functions (and with them the shutter steps, which use the same counter).
class DefinitionReader {
public:
    DefinitionReader(TypeTables& types, SettingStores& stores, MessageSink& messages, int slot)
        : types_(types), stores_(stores), messages_(messages), k_(slot) {}

    void line(std::string_view raw) {
        line_.assign(raw);
        for (char& c : line_)
            if (c == '\t') c = ' ';
        if (!line_.empty() && line_.front() == '[') {
            section_ = sectionName(line_);
            f_ = 0;
            return;
        }
        if (line_.empty()) return;
        const Entry e = splitEntry(line_);
        if (section_ == "[form control]") formControl(e);
        else if (section_ == "[function menu]") functionMenu(e);
        else if (section_ == "[variable shutter]") shutterStep(e);
    }

private:
    // Counts one more line into `counter`; one beyond `most` is refused with the message
    // `full` and not counted.
    bool counted(int& counter, int most, const char* full) {
        if (++counter <= most) return true;
        messages_.show(full, Icon::Stop);
        --counter;
        return false;
    }

    void formControl(const Entry& e) {
        // Only the first character of the value counts: "GAIN= 1" is 0, "GAIN=12" is 1.
        const auto flag = [&] { return toInteger(val(e.value.substr(0, 1))); };
        if (e.key == "GAIN=") types_.FormGain(k_) = flag();
        else if (e.key == "IRIS=") types_.FormIris(k_) = flag();
        else if (e.key == "TALLY=") types_.FormTally(k_) = flag();
        else if (e.key == "FILTER=") types_.FormFilter(k_) = flag();
        else if (e.key == "MONITOR=") types_.FormMonitor(k_) = flag();
        else if (e.key == "LENS=") types_.FormLens(k_) = flag();
    }

    void functionMenu(const Entry& e) {
        switch (line_.front()) {
        case 'F': function(e); break;
        case 'M':
        case 'A':
        case 'S':
        case 'T': item(e); break;
        case '+': parameter(e); break;
        default: break;
        }
    }

    // Lines that lack the key their name is taken from ("F", "M Gain", "+ON") are skipped.
    void function(const Entry& e) {
        if (e.key.empty() || !counted(f_, kMaxFunctions, "Number of the Function List is exceeding 20")) return;
        types_.FuncList(k_, f_, 0) = keyName(e.key);
        types_.FuncList(k_, f_, 1) = e.value;
        types_.FuncList(k_, 0, 0) = std::to_string(f_);
        i_ = 0;
    }

    // "M Gamma Mode=6A": kind M, name "Gamma Mode" (from the third character), code "6A".
    void item(const Entry& e) {
        if (e.key.size() < 3) return;  // no room for a separator before the "="
        if (!counted(i_, kMaxItems, "Number of the Item List is exceeding 12")) return;
        const std::string code = withoutBlanks(e.value);
        types_.ItemList(k_, f_, i_) = std::string(1, line_.front());
        types_.ItemList(k_, f_, i_ + kItemNameCell) = e.key.substr(2, e.key.size() - 3);
        types_.ItemList(k_, f_, i_ + kItemCodeCell) = code;
        types_.ItemList(k_, f_, 0) = std::to_string(i_);
        const std::string& functionKey = types_.FuncList(k_, f_, 0);
        if (functionKey == "FS") FScnItemSet(stores_, messages_, code);
        else if (functionKey == "F") FuncItemSet(stores_, messages_, code);
        p_ = 0;
    }

    // "+ON=01": a named value of the latest item, or one of an analog item's four limits.
    void parameter(const Entry& e) {
        if (e.key.empty() || !counted(p_, kMaxModes, "Number of the Item Parameter is exceeding 20")) return;
        const std::string_view name = trimBlanks(e.key.substr(1, e.key.size() - 2));
        std::string code = withoutBlanks(e.value);
        if (types_.ItemList(k_, f_, i_) == "A") {
            int row = 0;
            if (name == "SIZE") row = kAnalogSize;
            else if (name == "MIN") row = kAnalogMin;
            else if (name == "MAX") row = kAnalogMax;
            else if (name == "STEP") row = kAnalogStep;
            if (row != 0) types_.ModeList(k_, f_, i_, row, 1) = std::move(code);
            return;
        }
        types_.ModeList(k_, f_, i_, p_, 0) = name;
        types_.ModeList(k_, f_, i_, p_, 1) = std::move(code);
        types_.ModeList(k_, f_, i_, 0, 0) = std::to_string(p_);
    }

    // "1 1/100=0002": text "1/100" (after the key's first blank), code "0002".
    void shutterStep(const Entry& e) {
        if (e.key.empty() || !counted(f_, kMaxShutterSteps, "Number of the Variable Shutter Data is exceeding 350"))
            return;
        std::string_view text = keyName(e.key);
        const std::size_t blank = text.find(' ');
        if (blank != std::string_view::npos) text.remove_prefix(blank + 1);
        types_.VsList(k_, f_, 0) = text;
        types_.VsList(k_, f_, 1) = withoutBlanks(e.value);
        types_.VsList(k_, 0, 0) = std::to_string(f_);
    }

    TypeTables& types_;
    SettingStores& stores_;
    MessageSink& messages_;
    const int k_;
    std::string line_;
    std::string section_;
    int f_ = 0;
    int i_ = 0;
    int p_ = 0;
};

}  // namespace

void CameraTypes::loadDefinition(int slot, std::string_view text) {
    DefinitionReader reader(types_, stores_, messages_, slot);
    forEachLine(withoutByteOrderMark(text), [&](std::string_view line) { reader.line(line); });
}

void CameraTypes::FclLoad() {
    const long slots = static_cast<long>(val(types_.FclName(0)));
    for (long k = 1; k <= slots; ++k) {
        const auto text = readTextFile(DefinitionFolder / types_.FclName(k));
        if (text) loadDefinition(static_cast<int>(k), *text);
    }
}

}  // namespace station
