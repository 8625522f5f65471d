#pragma once

// The commands of quorrel_maps. Each does what it is asked for and returns the program's exit
// status. The game is prepared: everything at its start value, the shipped data found.

#include "tools/request.h"

int check_command(const request& asked);
int play_command(const request& asked);
int trace_command(const request& asked);
int replay_command(const request& asked);
int solve_command(const request& asked);
int make_command(const request& asked);
int explain_command(const request& asked);
int draw_command(const request& asked);
int sheet_command(const request& asked);
int list_command(const request& asked);
int remove_command(const request& asked);
int export_command(const request& asked);
int import_command(const request& asked);
