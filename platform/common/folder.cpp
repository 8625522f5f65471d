#include "platform/folder.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <string>
#include <system_error>
#include <thread>
#include <tuple>
#include <vector>

#include "platform/common/regular_file.h"
#include "platform/common/replacement.h"

namespace {

namespace fs = std::filesystem;

constexpr std::chrono::milliseconds lock_pause(10);
constexpr int lock_attempts = 500;

int lock_descriptor = -1;

// Locked, the file is nobody's: its writer would hold the lock.
void leftover_remove(const fs::path& path) {
    int descriptor = open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (descriptor < 0) {
        return;
    }
    if (lock_try(descriptor)) {
        unlink(path.c_str());
    }
    close(descriptor);
}

}  // namespace

void folder_sweep(str folder) {
    std::error_code error;
    std::vector<fs::path> found;
    auto entry = fs::recursive_directory_iterator(path_text(folder), error);
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
        if (is_temporary(entry->path().filename())) {
            found.push_back(entry->path());
        }
    }
    for (const fs::path& path : found) {
        leftover_remove(path);
    }
}

void folder_trim(str folder, i64 count) {
    std::error_code error;
    // By age; those of one moment by their numbers, which grow longer.
    std::vector<std::tuple<fs::file_time_type, std::size_t, std::string>> files;
    auto entry = fs::directory_iterator(path_text(folder), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code gone;
        std::string path = entry->path().string();
        if (is_dated(entry->path().filename()) && entry->is_regular_file(gone)) {
            files.emplace_back(entry->last_write_time(gone), path.size(), path);
        }
    }
    std::sort(files.begin(), files.end());
    for (i64 i = 0; i < static_cast<i64>(files.size()) - count; ++i) {
        unlink(std::get<std::string>(files[static_cast<std::size_t>(i)]).c_str());
    }
}

void folder_lock(str folder) {
    folders_create(path_text(folder));
    std::string path = (fs::path(path_text(folder)) / ".quorrel_lock").string();
    lock_descriptor = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    for (int i = 0; lock_descriptor >= 0 && i < lock_attempts; ++i) {
        if (lock_try(lock_descriptor) || errno != EWOULDBLOCK) {
            return;
        }
        std::this_thread::sleep_for(lock_pause);
    }
}

void folder_unlock() {
    if (lock_descriptor >= 0) {
        close(lock_descriptor);
        lock_descriptor = -1;
    }
}
