#pragma once

// Where the texts of the ways stand.

#include "making/plan.h"

inline constexpr i64 no_way = -1;

// Puts each text beside its way, off all places, ways and other texts and on the board. The first
// way whose text has no room, `no_way` when all have.
i64 labels_place(board_plan& plan);
