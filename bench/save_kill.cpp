// save-kill: kills saves of a setup data file at random moments and checks what each kill
// leaves: the file and its backup must each be a whole earlier or later version, never
// empty or torn. Run by hand (not by CTest); it takes a few seconds per thousand saves.
//
//   save_kill [SAVES] [FOLDER]     (default: 1000 saves in the system's temporary folder)
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "setupfile/file_writer.hpp"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

// Version n of the file: its number first, then enough lines that writing it takes a while.
std::string version(int n) {
    std::string text = "[system]\r\nversion=" + std::to_string(n) + "\r\n";
    const int lines = 4000 + (n % 7) * 300;
    for (int i = 0; i < lines; ++i) text += "aRGAIN=" + std::to_string(n * 31 + i) + ",1,2,3,4,5,6,7,8\r\n";
    return text;
}

std::string readAll(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Saves version n in a child process; returns its process id.
pid_t saveInChild(const fs::path& target, const std::string& text) {
    const pid_t pid = ::fork();
    if (pid == 0) {
        station::DiskWriter writer;
        const auto outcome = station::saveReplacing(writer, target, text);
        ::_exit(outcome.error ? 1 : 0);
    }
    return pid;
}

}  // namespace

int main(int argc, char** argv) {
    const int saves = argc > 1 ? std::atoi(argv[1]) : 1000;
    const fs::path base = argc > 2 ? fs::path(argv[2]) : fs::temp_directory_path();
    const fs::path folder = base / ("save-kill-" + std::to_string(::getpid()));
    fs::create_directories(folder);
    const fs::path target = folder / "studio.csd";
    const fs::path backup = station::backupPath(target);

    // Two whole saves first, so that the file and its backup both exist; they also tell how
    // long one save takes, and the kills are spread over that time.
    const std::vector<std::string> versions{version(0), version(1)};
    std::vector<double> took;
    for (int n = 0; n < 2 || took.size() < 20; ++n) {
        const auto start = Clock::now();
        const pid_t pid = saveInChild(target, versions[static_cast<std::size_t>(n % 2)]);
        int status = 0;
        ::waitpid(pid, &status, 0);
        took.push_back(std::chrono::duration<double, std::micro>(Clock::now() - start).count());
    }
    std::sort(took.begin(), took.end());
    const double span = took[took.size() / 2] * 1.2;
    int current = 1;  // the version the file holds
    int kept = 0;     // the version its backup holds
    if (readAll(target) != versions[1] || readAll(backup) != versions[0]) {
        std::fprintf(stderr, "save-kill: the first saves did not come out whole\n");
        return 2;
    }

    std::mt19937 gen(std::random_device{}());
    std::uniform_real_distribution<double> delay(0.0, span);
    int finished = 0, killedBefore = 0, newBackupOnly = 0, staleTemp = 0, staleBackupTemp = 0;
    int tornFile = 0, tornBackup = 0, emptyFile = 0, emptyBackup = 0;
    for (int i = 0; i < saves; ++i) {
        const int next = current + 1;
        const std::string fresh = version(next);
        const pid_t pid = saveInChild(target, fresh);
        const auto wake = Clock::now() + std::chrono::duration<double, std::micro>(delay(gen));
        while (Clock::now() < wake) {
        }
        ::kill(pid, SIGKILL);
        int status = 0;
        ::waitpid(pid, &status, 0);
        if (WIFEXITED(status)) ++finished;

        const std::string file = readAll(target);
        const std::string held = readAll(backup);
        if (file.empty()) ++emptyFile;
        if (held.empty()) ++emptyBackup;
        const std::string old = version(current);
        const std::string oldBackup = version(kept);
        if (file != old && file != fresh) ++tornFile;
        if (held != oldBackup && held != old) ++tornBackup;
        if (fs::exists(fs::symlink_status(station::savingPath(target)))) ++staleTemp;
        if (fs::exists(fs::symlink_status(station::backupSavingPath(target)))) ++staleBackupTemp;
        if (file == fresh) {
            kept = current;
            current = next;
        } else {
            if (held == old && kept != current) ++newBackupOnly;
            if (held == old) kept = current;
            ++killedBefore;
        }
    }
    fs::remove_all(folder);
    std::printf("save-kill: %d saves killed at random within %.0f us (a whole save took %.0f us)\n", saves, span,
                took[took.size() / 2]);
    std::printf("  replaced before the kill: %d (of which finished: %d); killed before the rename: %d\n",
                saves - killedBefore, finished, killedBefore);
    std::printf("  killed before the rename with the backup already renewed: %d\n", newBackupOnly);
    std::printf("  temporaries left by a kill (removed by the next save): %d file, %d backup\n", staleTemp,
                staleBackupTemp);
    std::printf("  torn file: %d, empty file: %d, torn backup: %d, empty backup: %d\n", tornFile, emptyFile,
                tornBackup, emptyBackup);
    return tornFile + emptyFile + tornBackup + emptyBackup == 0 ? 0 : 1;
}
