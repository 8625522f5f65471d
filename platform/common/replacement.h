#pragma once

// A file written beside its target, whose place it takes when it is whole.
//
// The new content is collected in a temporary file in the target's folder. Its writer holds a lock
// on it, so a temporary file that can be locked was left by a process that was killed.

#include <cstdio>
#include <string>

struct replacement {
    std::FILE* stream = nullptr;  // takes the new content; null when there is none
    bool dated = false;           // takes a new name, the target and the time, instead of its place
    bool quick = false;           // a loss of power may take it: the disk is not waited for
    std::string target = {};
    std::string temporary = {};
};

// Starts one, after making the folders that are missing; without a stream on failure, or when what
// stands at the target must not be replaced: no regular file, or one the player may not write to. A
// path that ends with "/" is none for a file.
replacement replacement_open(const std::string& path, bool dated);
// Brings the content to the disk. False when not all of it got there.
bool replacement_sync(const replacement& file);
// Puts the content in its place, to stay there through a loss of power. False, with nothing
// changed, when that fails.
bool replacement_commit(replacement& file);
// Takes the temporary file away.
void replacement_discard(replacement& file);

// Whether a file is a temporary one, by its name without the folder.
bool is_temporary(const std::string& name);
// Whether a file has the time in its name, as after `replacement_commit` or `dated_link`.
bool is_dated(const std::string& name);
// Gives the file another name as well, `name` and the time, to stay there through a loss of power,
// and makes it as new as that; false when it cannot have it.
bool dated_link(const std::string& file, const std::string& name);
// Makes the folder and those above it, as far as they are missing and can be made.
void folders_create(const std::string& folder);
// Locks an open file unless another process has it locked.
bool lock_try(int descriptor);
