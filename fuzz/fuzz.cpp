#include "fuzz/fuzz.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "base/arena.h"
#include "fuzz/files.h"
#include "platform/common/input_state.h"
#include "platform/file.h"
#include "platform/headless/headless.h"
#include "program/frame.h"
#include "program/globals.h"
#include "render/font.h"
#include "render/pictures.h"
#include "render/renderer.h"
#include "rules/random.h"

namespace {

// What start-up makes once and for all: the arenas' memory and the GPU objects.
struct start {
    arena memory[arena_count];
    texture_set_record textures;
    quad_mesh_record mesh;
    simple_shader_record simple;
    gamma_shader_record gamma;
    font_record font;
};

start start_up() {
    fuzz_ship_file("resources/font_info.txt");
    fuzz_ship_file("resources/font.png");
    file_set_fallback(QUORREL_SOURCE_DIR);  // there the pictures lie
    program_start();
    file_set_fallback({});
    start made = {{}, texture_set, quad_mesh, simple_shader, gamma_shader, font};
    std::copy(arenas, arenas + arena_count, made.memory);
    for (arena& a : made.memory) {
        a.offset = 0;
    }
    return made;
}

}  // namespace

void fuzz_begin() {
    static const start made = start_up();
    const render_target_record target = render_target;
    files_reset();
    globals_reset();
    std::copy(std::begin(made.memory), std::end(made.memory), arenas);
    texture_set = made.textures;
    quad_mesh = made.mesh;
    simple_shader = made.simple;
    gamma_shader = made.gamma;
    render_target.frame_buffer = target.frame_buffer;  // made anew at times
    render_target.texture = target.texture;
    font = made.font;
    headless_mouse_move(0, 0);
    input_reset();
    random_seed(1);
}

void fuzz_ship_file(const std::string& path) {
    std::ifstream file(QUORREL_SOURCE_DIR "/" + path, std::ios::binary);
    files_put(path, std::string(std::istreambuf_iterator<char>(file), {}));
    files_keep();
}

void fuzz_fail(const char* what) {
    std::fprintf(stderr, "not so: %s\n", what);
    std::abort();
}

fuzz_input::fuzz_input(const u8* data, std::size_t size)
    : rest(reinterpret_cast<const char*>(data), size) {}

u8 fuzz_input::byte() {
    u8 first = 0;
    if (!rest.empty()) {
        first = static_cast<u8>(rest.front());
        rest.remove_prefix(1);
    }
    return first;
}

std::string_view fuzz_input::until(char stop) {
    std::string_view piece = rest.substr(0, rest.find(stop));
    rest.remove_prefix(std::min(rest.size(), piece.size() + 1));
    return piece;
}
