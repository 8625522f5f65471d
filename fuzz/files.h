#pragma once

// The files that the game reads and writes while it is fuzzed. They lie in memory, in place of the
// system's, so that an execution costs no system call and leaves nothing behind.

#include <string>
#include <string_view>

// Forgets all files but the ones given to `files_keep`.
void files_reset();
// The files there are now are there after every reset.
void files_keep();

void files_put(const std::string& path, std::string_view text);
// Empty for a file that is not there.
std::string files_get(const std::string& path);

// Whether nothing can be written any more, until the next reset: the disk is full.
void files_fill_disk(bool full);

// How many files are open.
int files_open_count();
