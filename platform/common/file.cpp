#include "platform/file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "platform/common/regular_file.h"
#include "platform/common/replacement.h"

namespace {

// One opened file. Once closed it still answers `file_failed`, until its place is used again.
struct file_slot {
    file_id handle;     // never used twice; 0 while the slot was never used
    std::FILE* stream;  // null while closed
    bool failed;
    i64 size;             // bytes; of a file opened for reading
    replacement written;  // of a file opened for writing; its stream is `stream`
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

bool is_regular_file(const std::string& path) {
    struct stat status;
    if (stat(path.c_str(), &status) == 0) {
        return S_ISREG(status.st_mode);
    }
    // Where the system cannot tell, a file has to be taken for there.
    return errno != ENOENT && errno != ENOTDIR && errno != ENAMETOOLONG && errno != ELOOP;
}

// Copies a file to a dated one.
bool file_copy(str path, str name) {
    file_id from = file_open(path, file_mode_read);
    file_id to = file_open(name, file_mode_dated);
    char bytes[4096];
    for (i64 left = file_size(from); left > 0 && !file_failed(from);) {
        i64 size = std::min(left, i64{sizeof bytes});
        file_read(from, size, bytes);
        file_write(to, size, bytes);
        left -= size;
    }
    if (file_failed(from)) {
        file_discard(to);
    }
    file_close(from);
    file_close(to);
    return !file_failed(to);
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
        slot->written = replacement_open(path_text(path), mode == file_mode_dated);
        slot->written.quick = mode == file_mode_quick;
        slot->stream = slot->written.stream;
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

void file_sync(file_id file) {
    file_slot* slot = slot_in_use(file);
    if (slot != nullptr && slot->written.stream != nullptr) {
        slot->failed = !replacement_sync(slot->written);
    }
}

void file_close(file_id file) {
    file_slot* slot = slot_of(file);
    if (slot == nullptr || slot->stream == nullptr) {
        return;
    }
    if (slot->written.stream == nullptr) {
        std::fclose(slot->stream);
    } else if (slot->failed) {
        replacement_discard(slot->written);
    } else {
        slot->failed = !replacement_commit(slot->written);
    }
    slot->stream = nullptr;
}

void file_discard(file_id file) {
    if (file_slot* slot = slot_in_use(file)) {
        slot->failed = true;
    }
    file_close(file);
}

bool file_exists(str path) {
    return is_regular_file(path_for_reading(path));
}

bool file_is_own(str path) {
    return is_regular_file(path_text(path));
}

void file_delete(str path) {
    unlink(path_text(path).c_str());
}

bool file_keep(str path, str name) {
    return dated_link(path_text(path), path_text(name)) || file_copy(path, name);
}
