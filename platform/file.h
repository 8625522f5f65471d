#pragma once

// Whole files, read or replaced. A failure shows only in `file_failed`; every other call on a
// failed file does nothing.

#include "base/str.h"
#include "base/types.h"

enum file_mode : u32 {
    file_mode_write = 1,
    file_mode_read = 2,
    file_mode_dated = 4,
    file_mode_quick = 8,
};

using file_id = u64;

// Opens a file. Reading takes regular files only. Writing creates missing parent directories and
// collects into a temporary file beside the target, which stays whole until `file_close`. A dated
// file is written too, but replaces none: the local time is added to its name, "a" becomes
// "a.2026-11-23_18-30-05", and "-2" and so on when that second has one already. It is newer than
// the dated files that are there, whatever the clock says. A quick file is written without waiting
// for the disk: a loss of power may take it, nothing else can.
file_id file_open(str path, u32 mode);
// Whether opening, reading, writing or, once the file is closed, replacing the target has failed.
// The answer for a closed file holds until the next `file_open`.
bool file_failed(file_id file);
// Bytes in a file opened for reading; 0 for a failed one.
i64 file_size(file_id file);
void file_read(file_id file, i64 size, void* destination);
void file_write(file_id file, i64 size, const void* data);
void file_write_byte(file_id file, char byte);
// Brings what was written to the disk, so that only putting it in its place can still fail.
void file_sync(file_id file);
// Ends the use of the handle. A written file replaces its target now, all of it or not at all, and
// what stands there then survives a loss of power.
void file_close(file_id file);
// Ends the use of a file that was opened for writing and leaves its target alone; it has failed.
void file_discard(file_id file);

// Whether there is a regular file to read.
bool file_exists(str path);
// Whether there is one that `file_delete` would delete; false for what only the fallback has.
bool file_is_own(str path);
// Does nothing when there is no such file.
void file_delete(str path);
// Gives an own file a second, dated name, under which it stays when the first one is deleted or
// replaced: a link, which takes no room on the disk, else a copy. False when there can be neither.
bool file_keep(str path, str name);

// From now on a relative path that the working directory lacks is read below this directory, by
// `file_open`, `file_exists` and `image_load`; an empty one ends that. Writing, deleting and
// keeping know the working directory alone.
void file_set_fallback(str directory);
