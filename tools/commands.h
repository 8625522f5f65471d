#pragma once

// The commands of quorrel_maps. Each takes what stands behind its name and returns the program's
// exit status. The game is prepared: everything at its start value, the shipped data found.

#include "tools/arguments.h"

int check_command(words arguments);
int play_command(words arguments);
int trace_command(words arguments);
int explain_command(words arguments);
int draw_command(words arguments);
int list_command(words arguments);
int add_command(words arguments);
int remove_command(words arguments);
int export_command(words arguments);
int import_command(words arguments);
