#include "platform/common/replacement.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace {

namespace fs = std::filesystem;

constexpr std::string_view temporary_name = ".quorrel-XXXXXX";  // X: any letter or digit
constexpr const char* date_format = ".%Y-%m-%d_%H-%M-%S";
constexpr std::string_view date_shape = "dddd-dd-dd_dd-dd-dd";  // d: any digit

// Where a write to `path` ends: a link is followed, so that it stays a link.
std::string link_end(const std::string& path) {
    std::error_code error;
    fs::path real = fs::canonical(path, error);
    return error ? path : real.string();
}

mode_t mode_of_new_file() {
    mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

// The permissions for the new content of `target`. False when it must not be replaced. A folder
// without anything, which a name below it may have left, makes way.
bool target_mode(const std::string& target, mode_t& mode) {
    struct stat status;
    rmdir(target.c_str());
    if (stat(target.c_str(), &status) != 0) {
        mode = mode_of_new_file();
        return true;
    }
    mode = status.st_mode & 07777;
    return S_ISREG(status.st_mode) && access(target.c_str(), W_OK) == 0;
}

// Brings the names in a folder to the disk, as far as its file system offers that.
void folder_sync(const fs::path& folder) {
    int descriptor = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor >= 0) {
        fsync(descriptor);
        close(descriptor);
    }
}

// Locks a new temporary file; false when a sweep came in between and took it for a leftover.
bool temporary_claim(int descriptor) {
    if (!lock_try(descriptor) && errno == EWOULDBLOCK) {
        return false;
    }
    struct stat status;
    return fstat(descriptor, &status) == 0 && status.st_nlink > 0;
}

// Makes a file of a new name in the folder and tells the name; -1 on failure.
int temporary_create(const fs::path& folder, std::string& name) {
    for (int attempt = 0; attempt < 8; ++attempt) {
        name = (folder / temporary_name).string();
        int descriptor = mkstemp(name.data());
        if (descriptor < 0 || temporary_claim(descriptor)) {
            return descriptor;
        }
        close(descriptor);
    }
    return -1;
}

bool is_before(const timespec& a, const timespec& b) {
    return a.tv_sec != b.tv_sec ? a.tv_sec < b.tv_sec : a.tv_nsec < b.tv_nsec;
}

// The time for a new dated file: now, but after all that are in its folder, also where the clock
// went wrong when they came or goes wrong now.
timespec time_after_all(const fs::path& folder) {
    timespec time = {};
    clock_gettime(CLOCK_REALTIME, &time);
    std::error_code error;
    auto entry = fs::directory_iterator(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        struct stat status;
        if (is_dated(entry->path().filename()) && stat(entry->path().c_str(), &status) == 0 &&
            !is_before(status.st_mtim, time)) {
            time = {status.st_mtim.tv_sec + 1, 0};
        }
    }
    return time;
}

// As a name's end in local time, such as ".2026-11-23_18-30-05".
std::string date_text(const timespec& time) {
    std::tm local = {};
    localtime_r(&time.tv_sec, &local);
    char text[64];
    return {text, std::strftime(text, sizeof text, date_format, &local)};
}

// The name and the time, as no file is called now.
std::string name_unused(const std::string& name, const timespec& time) {
    const std::string dated = name + date_text(time);
    std::string unused = dated;
    struct stat status;
    for (int number = 2; lstat(unused.c_str(), &status) == 0; ++number) {
        unused = dated + "-" + std::to_string(number);
    }
    return unused;
}

// Makes the file as new as the time, its name's end.
void time_set(const std::string& file, const timespec& time) {
    const timespec times[] = {time, time};  // last read, last written
    utimensat(AT_FDCWD, file.c_str(), times, 0);
}

// Links the file to an unused name, also when another process looks for one now.
bool link_anew(const std::string& file, const std::string& name, const timespec& time) {
    int linked;
    do {
        linked = linkat(AT_FDCWD, file.c_str(), AT_FDCWD, name_unused(name, time).c_str(),
                        AT_SYMLINK_FOLLOW);
    } while (linked != 0 && errno == EEXIST);
    return linked == 0;
}

// Gives the temporary file a dated name, also on a file system without links.
bool name_anew(const replacement& file) {
    const timespec time = time_after_all(fs::path(file.target).parent_path());
    time_set(file.temporary, time);
    if (link_anew(file.temporary, file.target, time)) {
        unlink(file.temporary.c_str());
        return true;
    }
    return std::rename(file.temporary.c_str(), name_unused(file.target, time).c_str()) == 0;
}

bool all_digits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c); });
}

}  // namespace

replacement replacement_open(const std::string& path, bool dated) {
    replacement file;
    file.dated = dated;
    file.target = dated ? path : link_end(path);
    mode_t mode = mode_of_new_file();
    if (path.empty() || path.back() == '/' || (!dated && !target_mode(file.target, mode))) {
        return file;
    }
    fs::path folder = fs::path(file.target).parent_path();
    folders_create(folder);
    int descriptor = temporary_create(folder, file.temporary);
    if (descriptor < 0) {
        return file;
    }
    file.stream = fchmod(descriptor, mode) == 0 ? fdopen(descriptor, "wb") : nullptr;
    if (file.stream == nullptr) {
        close(descriptor);
        unlink(file.temporary.c_str());
    }
    return file;
}

bool replacement_sync(const replacement& file) {
    return std::fflush(file.stream) == 0 && fsync(fileno(file.stream)) == 0;
}

bool replacement_commit(replacement& file) {
    bool written = file.quick ? std::fflush(file.stream) == 0 : replacement_sync(file);
    bool placed =
        written && (file.dated ? name_anew(file)
                               : std::rename(file.temporary.c_str(), file.target.c_str()) == 0);
    if (!placed) {
        replacement_discard(file);
        return false;
    }
    if (!file.quick) {
        folder_sync(fs::path(file.target).parent_path());
    }
    std::fclose(file.stream);
    file.stream = nullptr;
    return true;
}

void replacement_discard(replacement& file) {
    unlink(file.temporary.c_str());
    std::fclose(file.stream);
    file.stream = nullptr;
}

bool is_temporary(const std::string& name) {
    std::string_view start = temporary_name.substr(0, temporary_name.find('X'));
    return name.size() == temporary_name.size() && name.compare(0, start.size(), start) == 0;
}

bool is_dated(const std::string& name) {
    std::string_view end = name;
    end.remove_prefix(std::min(end.size(), end.rfind('.') + 1));
    for (char shape : date_shape) {
        bool fits = !end.empty() && (shape == 'd' ? all_digits(end.substr(0, 1)) : end[0] == shape);
        if (!fits) {
            return false;
        }
        end.remove_prefix(1);
    }
    return end.empty() || (end[0] == '-' && all_digits(end.substr(1)));
}

bool dated_link(const std::string& file, const std::string& name) {
    const fs::path folder = fs::path(name).parent_path();
    folders_create(folder);
    const timespec time = time_after_all(folder);
    time_set(file, time);
    if (!link_anew(file, name, time)) {
        return false;
    }
    folder_sync(folder);
    return true;
}

void folders_create(const std::string& path) {
    const fs::path folder = path;
    const fs::path above = folder.parent_path();
    std::error_code error;
    // Only "" and "/" are above themselves.
    if (folder == above || fs::exists(folder, error)) {
        return;
    }
    folders_create(above);
    if (fs::create_directory(folder, error)) {
        folder_sync(above);
    }
}

bool lock_try(int descriptor) {
    return flock(descriptor, LOCK_EX | LOCK_NB) == 0;
}
