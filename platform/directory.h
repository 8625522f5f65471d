#pragma once

// The directories around the program. What is returned lives in the persistent arena.

#include "base/str.h"

// Where the program's own file lies; empty when the system does not tell.
str directory_of_program();
// Where this user's files of a program of that name belong: "$XDG_DATA_HOME/name", else
// "~/.local/share/name"; empty when neither variable is of use.
str directory_of_user(str name);
bool directory_exists(str path);
// Makes the directory the working one, after making it and the ones above it if they are missing.
// False, with the working directory unchanged, when that cannot be done.
bool directory_enter(str path);
// Whether it is the working one, by whatever path.
bool directory_is_entered(str path);
// The same place, wherever the working directory moves.
str path_absolute(str path);
