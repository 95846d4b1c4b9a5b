#pragma once
// "Read every checksum exactly" in the "&Setup" menu: a ticked entry that has the line
// accept every camera reply whose checksum matches (see Link::readChecksumsExactly), kept
// in the program's settings as "line/exactChecksum", and a status-bar note while it is on.
// --exact-checksum turns it on for one run without changing what is kept.

class QMainWindow;
class QSettings;

namespace station {
class Station;
}

namespace station::ui {

// `forRun`: on for this run whatever is kept.
void installChecksumMenu(QMainWindow& window, Station& station, QSettings& store, bool forRun);

}  // namespace station::ui
