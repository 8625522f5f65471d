#include "platform/file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

#include "platform/common/regular_file.h"

namespace {

// One opened file. Once closed it still answers `file_failed`, until its place is used again.
struct file_slot {
    file_id handle;     // never used twice; 0 while the slot was never used
    std::FILE* stream;  // null while closed
    bool failed;
    i64 size;               // bytes; of a file opened for reading
    std::string target;     // the file to replace; empty when reading
    std::string temporary;  // what collects the new content
};

file_slot slots[16];
file_id last_handle;

file_slot* slot_of(file_id file) {
    for (file_slot& slot : slots) {
        if (file != 0 && slot.handle == file) {
            return &slot;
        }
    }
    return nullptr;
}

// The slot when it can still be read or written.
file_slot* slot_in_use(file_id file) {
    file_slot* slot = slot_of(file);
    return slot != nullptr && slot->stream != nullptr && !slot->failed ? slot : nullptr;
}

file_slot* slot_free() {
    for (file_slot& slot : slots) {
        if (slot.stream == nullptr) {
            return &slot;
        }
    }
    return nullptr;
}

// Where a write to `path` ends: a link is followed, so that it stays a link.
std::string target_of(str path) {
    std::string text = path_text(path);
    std::error_code error;
    std::filesystem::path real = std::filesystem::canonical(text, error);
    return error ? text : real.string();
}

mode_t mode_of_new_file() {
    mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

// The permissions for the new content of `target`. False when it must not be replaced: what exists
// there is no regular file, or the player may not write to it.
bool target_mode(const std::string& target, mode_t& mode) {
    struct stat status;
    if (stat(target.c_str(), &status) != 0) {
        mode = mode_of_new_file();
        return true;
    }
    mode = status.st_mode & 07777;
    return S_ISREG(status.st_mode) && access(target.c_str(), W_OK) == 0;
}

// Makes a file of a new name beside `target`; null, and no file, on failure.
std::FILE* temporary_create(const std::string& target, mode_t mode, std::string& name) {
    std::filesystem::path folder = std::filesystem::path(target).parent_path();
    std::error_code error;
    if (!folder.empty()) {
        std::filesystem::create_directories(folder, error);
    }
    name = (folder / ".quorrel-XXXXXX").string();
    int descriptor = mkstemp(name.data());
    if (descriptor < 0) {
        return nullptr;
    }
    std::FILE* stream = fchmod(descriptor, mode) == 0 ? fdopen(descriptor, "wb") : nullptr;
    if (stream == nullptr) {
        close(descriptor);
        unlink(name.c_str());
    }
    return stream;
}

void slot_open_write(file_slot& slot, str path) {
    slot.target = target_of(path);
    mode_t mode;
    if (!slot.target.empty() && target_mode(slot.target, mode)) {
        slot.stream = temporary_create(slot.target, mode, slot.temporary);
    }
}

// Brings the new content to the disk and then in place of the old one.
bool target_replace(file_slot& slot) {
    bool written = !slot.failed && std::fflush(slot.stream) == 0 && fsync(fileno(slot.stream)) == 0;
    written = std::fclose(slot.stream) == 0 && written;
    if (!written || std::rename(slot.temporary.c_str(), slot.target.c_str()) != 0) {
        unlink(slot.temporary.c_str());
        return false;
    }
    return true;
}

}  // namespace

file_id file_open(str path, u32 mode) {
    file_slot* slot = slot_free();
    if (slot == nullptr) {
        return 0;
    }
    *slot = {};
    if (mode == file_mode_read) {
        slot->stream = regular_file_open(path, slot->size);
    } else {
        slot_open_write(*slot, path);
    }
    slot->failed = slot->stream == nullptr;
    slot->handle = ++last_handle;
    return slot->handle;
}

bool file_failed(file_id file) {
    file_slot* slot = slot_of(file);
    return slot == nullptr || slot->failed;
}

i64 file_size(file_id file) {
    file_slot* slot = slot_in_use(file);
    return slot != nullptr ? slot->size : 0;
}

void file_read(file_id file, i64 size, void* destination) {
    file_slot* slot = slot_in_use(file);
    if (slot == nullptr || size <= 0) {
        return;
    }
    std::size_t wanted = static_cast<std::size_t>(size);
    std::size_t count = std::fread(destination, 1, wanted, slot->stream);
    std::memset(static_cast<char*>(destination) + count, 0, wanted - count);
    slot->failed = count < wanted;
}

void file_write(file_id file, i64 size, const void* data) {
    file_slot* slot = slot_in_use(file);
    if (slot == nullptr || size <= 0) {
        return;
    }
    std::size_t count = static_cast<std::size_t>(size);
    slot->failed = std::fwrite(data, 1, count, slot->stream) < count;
}

void file_write_byte(file_id file, char byte) {
    file_write(file, 1, &byte);
}

void file_close(file_id file) {
    file_slot* slot = slot_of(file);
    if (slot == nullptr || slot->stream == nullptr) {
        return;
    }
    if (slot->target.empty()) {
        std::fclose(slot->stream);
    } else {
        slot->failed = !target_replace(*slot);
    }
    slot->stream = nullptr;
}

bool file_exists(str path) {
    struct stat status;
    return stat(path_for_reading(path).c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

void file_delete(str path) {
    unlink(path_text(path).c_str());
}
