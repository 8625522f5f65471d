#include "program/check.h"

#include "base/message.h"
#include "editor/editor.h"
#include "maps/catalogue.h"
#include "maps/waiting_maps.h"
#include "program/rest.h"
#include "render/camera.h"
#include "render/renderer.h"
#include "rules/check.h"
#include "shown/check.h"

namespace {

str frame_fault() {
    if (render_target.width < 1 || render_target.height < 1) {
        return "the picture has no size";
    }
    if (!(camera.zoom > 0)) {
        return "the camera sees nothing";
    }
    return rest.repeats < 0 ? str("fewer than no frames repeat") : str();
}

// What holds only while a game goes on, its record for one, is seen to in game/turn_update; what
// holds between two changes of the map under work, in the editor.
constexpr fault_finder rooms[] = {catalogue_fault, waiting_maps_fault, shown_fault,
                                  state_fault,     editor_fault,       frame_fault};

}  // namespace

str program_fault() {
    for (fault_finder room : rooms) {
        if (str fault = room(); fault.length > 0) {
            return fault;
        }
    }
    return {};
}
