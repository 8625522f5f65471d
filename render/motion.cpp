#include "render/motion.h"

#include "platform/display.h"

motion_record motion;

bool motion_is_reduced() {
    return motion.still || display_wants_stillness();
}
