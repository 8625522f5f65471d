#pragma once

// The map list: choosing a map of the family's catalogue, with a preview of it, to play it or,
// from the editor, to open or delete it.
void map_list_frame();
