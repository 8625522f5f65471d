#include "fuzz/files.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <vector>

#include "platform/file.h"
#include "platform/folder.h"

namespace {

struct stored_file {
    std::string text;
    i64 age;  // grows with every write
};

constexpr std::size_t name_limit = 255;  // bytes of a path's last name

using file_table = std::map<std::string, stored_file>;

struct open_file {
    std::string path;  // empty for one that cannot be
    u32 mode;
    std::string text;  // of a file to write: what was written
    std::size_t position;
    bool failed;
    bool open;
};

file_table kept_files;
file_table files;
std::vector<open_file> opened;  // an id is the place behind it
bool disk_full;
i64 last_age;

std::string path_of(str path) {
    std::string text(path.data, static_cast<std::size_t>(path.length));
    const bool can_be = !text.ends_with('/') && text.find('\0') == text.npos;
    const std::size_t name_size = text.size() - (text.rfind('/') + 1);
    return can_be && name_size <= name_limit ? text : std::string();
}

open_file* open_file_of(file_id file) {
    return 0 < file && file <= opened.size() ? &opened[file - 1] : nullptr;
}

open_file* file_in_use(file_id file) {
    open_file* found = open_file_of(file);
    return found != nullptr && found->open && !found->failed ? found : nullptr;
}

bool is_folder(const std::string& path) {
    auto next = files.lower_bound(path + "/");
    return next != files.end() && next->first.starts_with(path + "/");
}

// Whether each folder above the path is none or a folder, and the path itself none or a file.
bool can_be_written(const std::string& path) {
    if (disk_full || path.empty() || is_folder(path)) {
        return false;
    }
    for (std::size_t end = path.find('/'); end != path.npos; end = path.find('/', end + 1)) {
        if (files.contains(path.substr(0, end))) {
            return false;
        }
    }
    return true;
}

std::string dated(const std::string& path) {
    return path + ".2026-11-23_18-30-" + std::to_string(last_age + 1);
}

}  // namespace

void files_reset() {
    files = kept_files;
    opened.clear();
    disk_full = false;
}

void files_keep() {
    kept_files = files;
}

void files_put(const std::string& path, std::string_view text) {
    files[path] = {std::string(text), ++last_age};
}

std::string files_get(const std::string& path) {
    auto found = files.find(path);
    return found != files.end() ? found->second.text : std::string();
}

void files_fill_disk(bool full) {
    disk_full = full;
}

int files_open_count() {
    return static_cast<int>(std::count_if(opened.begin(), opened.end(),
                                          [](const open_file& file) { return file.open; }));
}

file_id file_open(str path, u32 mode) {
    open_file file = {path_of(path), mode, {}, 0, false, true};
    if (mode == file_mode_read) {
        auto found = files.find(file.path);
        file.failed = found == files.end();
        file.text = file.failed ? std::string() : found->second.text;
    } else {
        file.failed = !can_be_written(file.path);
    }
    file.open = !file.failed;
    opened.push_back(file);
    return opened.size();
}

bool file_failed(file_id file) {
    const open_file* found = open_file_of(file);
    return found == nullptr || found->failed;
}

i64 file_size(file_id file) {
    const open_file* found = file_in_use(file);
    return found != nullptr ? static_cast<i64>(found->text.size()) : 0;
}

void file_read(file_id file, i64 size, void* destination) {
    open_file* found = file_in_use(file);
    if (found == nullptr || size <= 0) {
        return;
    }
    const std::size_t wanted = static_cast<std::size_t>(size);
    const std::size_t count = std::min(wanted, found->text.size() - found->position);
    std::memset(destination, 0, wanted);
    std::memcpy(destination, found->text.data() + found->position, count);
    found->position += count;
    found->failed = count < wanted;
}

void file_write(file_id file, i64 size, const void* data) {
    open_file* found = file_in_use(file);
    if (found != nullptr && size > 0) {
        found->text.append(static_cast<const char*>(data), static_cast<std::size_t>(size));
        found->failed = disk_full;
    }
}

void file_write_byte(file_id file, char byte) {
    file_write(file, 1, &byte);
}

void file_sync(file_id) {}

void file_close(file_id file) {
    open_file* found = open_file_of(file);
    if (found == nullptr || !found->open) {
        return;
    }
    found->open = false;
    if (found->mode != file_mode_read && !found->failed) {
        files_put(found->mode == file_mode_dated ? dated(found->path) : found->path, found->text);
    }
}

void file_discard(file_id file) {
    if (open_file* found = file_in_use(file)) {
        found->failed = true;
    }
    file_close(file);
}

bool file_exists(str path) {
    return files.contains(path_of(path));
}

bool file_is_own(str path) {
    return file_exists(path);
}

void file_delete(str path) {
    files.erase(path_of(path));
}

bool file_keep(str path, str name) {
    const std::string target = dated(path_of(name));
    const bool possible = file_exists(path) && can_be_written(target);
    if (possible) {
        files_put(target, files_get(path_of(path)));
    }
    return possible;
}

void folder_sweep(str) {}

void folder_trim(str folder, i64 count) {
    const std::string start = path_of(folder) + "/";
    while (true) {
        i64 found = 0;
        auto oldest = files.end();
        for (auto file = files.lower_bound(start);
             file != files.end() && file->first.starts_with(start); ++file) {
            found += 1;
            oldest = oldest == files.end() || file->second.age < oldest->second.age ? file : oldest;
        }
        if (found <= count) {
            return;
        }
        files.erase(oldest);
    }
}

void folder_lock(str) {}

void folder_unlock() {}
