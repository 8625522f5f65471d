#pragma once

// Builds the title map, a small demonstration that is the current map until another is loaded.
void title_map_build();
