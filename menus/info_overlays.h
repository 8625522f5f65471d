#pragma once

// The two overlays that the function keys show over every screen.

void help_overlay_draw();
// One line with the use of the persistent arena.
void memory_report_draw();
