#pragma once

// Folders that several programs of one player may use at the same time.

#include "base/str.h"
#include "base/types.h"

// Removes the temporary files that killed programs left in the folder and below it.
void folder_sweep(str folder);

// Of the files in the folder that were written with `file_mode_dated` only the newest `count` stay.
void folder_trim(str folder, i64 count);

// Waits until no other program has the folder locked, and locks it; one that is missing is made
// first. Only one can be locked at a time. A program that stands still with the lock is not waited
// for longer than five seconds, and where locks cannot be had nothing is locked.
void folder_lock(str folder);
void folder_unlock();
