#include "tools/board_frame.h"

#include "render/camera.h"
#include "render/font.h"
#include "render/renderer.h"
#include "tools/request.h"

bool board_frame_begin() {
    renderer_init();
    camera_matrices_build(render_target.width, render_target.height);
    render_frame_begin();
    headless_record(true);
    if (font.line_height == 0) {
        complain("no font", "labels cannot be drawn, the game's resources are missing");
        return false;
    }
    return true;
}

std::vector<gpu_draw> draws_of(const std::function<void()>& draw) {
    headless_forget_calls();
    draw();
    return headless_draws();
}

point placed(const gpu_draw& draw, point p) {
    const auto& m = draw.mvp;
    f64 x = f64{m[0]} * p.x + f64{m[4]} * p.y + f64{m[12]};
    f64 y = f64{m[1]} * p.x + f64{m[5]} * p.y + f64{m[13]};
    return {(x + 1) / 2 * render_target.width, (y + 1) / 2 * render_target.height};
}

shape placed(const gpu_draw& draw, const shape& s) {
    shape result;
    for (point p : s) {
        result.push_back(placed(draw, p));
    }
    return result;
}
