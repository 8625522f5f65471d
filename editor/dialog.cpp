#include "editor/dialog.h"

#include "render/button.h"
#include "render/renderer.h"
#include "render/sprites.h"

namespace {

constexpr colour box_tint = {0, 0, 0, 0.8f};

}  // namespace

void dialog_box_draw() {
    box_fill(box_around(render_target.width / 2.0, render_target.height / 2.0, 640, 480), box_tint);
}

dialog_answer dialog_buttons_draw() {
    f64 x = render_target.width / 2.0;
    f64 y = render_target.height / 2.0 - 144;
    bool ok = button_draw("OK", x, y, 128, 64);
    bool cancel = button_draw("Cancel", x - 224, y, 128, 64);
    return {ok, cancel};
}
