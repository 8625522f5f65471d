#include "tools/remarks.h"

#include "maps/model.h"

std::string transition_name(i64 index) {
    const transition& arc = game_map.transitions[index];
    return "transition " + std::to_string(index) + " (" + std::to_string(arc.from) + " to " +
           std::to_string(arc.to) + ")";
}
