#include "tests/support/screen.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "base/colour.h"
#include "maps/map_work.h"
#include "program/frame.h"
#include "render/font.h"
#include "render/pictures.h"
#include "render/renderer.h"

void (*frame_watch)();

namespace {

std::string font_text() {
    std::ostringstream text;
    text << "i font.png\n";
    for (i64 i = 0; i < glyph_count; ++i) {
        text << "g " << i << " 0 0 0.05078125 " << static_cast<f64>(i % 16) / 16 << ' '
             << static_cast<f64>(i / 16) / 16 << " 0.05078125 0.125\n";
    }
    return text.str();
}

// The draws of one sprite, arrow, card or text; each of them selects the texture unit once.
struct draw_group {
    u32 first_texture = 0;
    i64 texture_binds = 0;
    std::vector<gpu_draw> draws;
};

std::vector<draw_group> groups_drawn() {
    std::vector<draw_group> groups(1);
    std::vector<gpu_draw> draws = headless_draws();
    std::size_t next = 0;
    for (const gpu_call& call : headless_calls()) {
        draw_group& group = groups.back();
        if (call.op == gpu_op::texture_unit) {
            groups.emplace_back();
        } else if (call.op == gpu_op::texture_bind && group.texture_binds++ == 0) {
            group.first_texture = static_cast<u32>(call.numbers[1]);
        } else if (call.op == gpu_op::draw_elements) {
            group.draws.push_back(draws.at(next++));
        }
    }
    std::erase_if(groups, [](const draw_group& group) {
        return group.draws.empty() || group.draws.front().frame_buffer == 0;
    });
    return groups;
}

std::string number(f64 value) {
    return (std::ostringstream() << std::round(value * 100) / 100 + 0.0).str() + " ";
}

// Between the unit quad's corners.
struct corners {
    explicit corners(const gpu_draw& draw)
        : low(place_of(draw, 0, 0)), high(place_of(draw, 1, 1)) {}
    f64 width() const { return high.x - low.x; }
    f64 height() const { return high.y - low.y; }
    point low, high;
};

std::string tint_text(const gpu_draw& draw) {
    const auto& c = draw.colour;
    std::string text = number(c[0]) + number(c[1]) + number(c[2]) + number(c[3]);
    text.pop_back();
    return text == "1 1 1 1" ? "" : "(" + text + ")";
}

// `texture_slot_count` for a texture that is no picture's.
i64 slot_of(const gpu_draw& draw) {
    const u32* begin = texture_set.textures;
    return std::find(begin, begin + texture_slot_count, draw.texture) - begin;
}

std::string picture_line(const gpu_draw& draw) {
    corners place(draw);
    return picture_name(slot_of(draw)) + " " + number(place.low.x) + number(place.low.y) +
           number(place.width()) + number(place.height()) +
           (draw.uv_rect == std::array{0.0f, 0.0f, 1.0f, 1.0f} ? "" : "in part ") + tint_text(draw);
}

std::string arrow_line(const gpu_draw& shaft, const gpu_draw& head) {
    point foot = place_of(shaft, 0, 0.5);
    point tip = place_of(head, 0.5, 1);
    return "arrow " + number(foot.x) + number(foot.y) + "to " + number(tip.x) + number(tip.y) +
           tint_text(shaft);
}

// The place of the colour among those of cards, 6 for none.
i64 colour_index_of(const std::array<f32, 4>& tint) {
    for (i64 index = 0; index < 6; ++index) {
        const colour& c = colour_rgba(index);
        if (tint == std::array{c.r, c.g, c.b, c.a}) {
            return index;
        }
    }
    return 6;
}

std::string card_line(const draw_group& group) {
    const gpu_draw& pip = group.draws.back();
    corners place(group.draws.front());
    return std::string("card ") + static_cast<char>('A' + colour_index_of(pip.colour)) +
           static_cast<char>('a' + slot_of(pip)) + std::to_string(group.draws.size() - 1) + " " +
           number(place.low.x) + number(place.low.y) + number(place.width());
}

// What stands in a text for one draw: an icon's letter, a letter, or with icons an escaped letter.
std::string spelling_of(const gpu_draw& draw, bool icons) {
    if (draw.texture == font.texture) {
        // The font's cells stand in 16 rows of 16.
        char letter =
            static_cast<char>(static_cast<u8>(draw.uv_rect[0] * 16 + draw.uv_rect[1] * 256));
        bool escaped =
            icons && std::string_view("ABCDEFabcdefT~").find(letter) != std::string::npos;
        return escaped ? std::string{'%', letter} : std::string{letter};
    }
    i64 slot = slot_of(draw);
    i64 dot = colour_index_of(draw.colour);
    bool is_dot = slot == texture_circle && dot < 6;
    char letter = static_cast<char>(is_dot ? 'A' + dot : 'a' + slot);
    return {slot == texture_eye ? 'T' : slot == texture_similarity ? '~' : letter};
}

struct drawn_text {
    std::string text;
    point centre;  // of the first line
    f64 size;
};

// Puts the blanks back where the pen made a gap, and "\n" where it began a line.
drawn_text text_read(const draw_group& group) {
    bool icons = group.texture_binds > 1;
    const gpu_draw& first = group.draws.front();
    point start = corners(first).low;
    f64 cell = font.glyphs[u8{'0'}].advance;
    f64 size = corners(first).width() / (first.texture == font.texture ? cell : 0.125);
    f64 line_height = size * font.line_height;
    drawn_text read = {"", {start.x, start.y + line_height / 2}, size};
    point pen = start;
    for (const gpu_draw& draw : group.draws) {
        corners place(draw);
        for (; pen.y - place.low.y > line_height / 2; pen = {start.x, pen.y - line_height}) {
            read.text += "\\n";
        }
        i64 blanks = std::lround((place.low.x - pen.x) / (size * cell));
        read.text.append(static_cast<std::size_t>(std::max(blanks, i64{0})), ' ');
        read.text += spelling_of(draw, icons);
        pen.x = place.high.x;
        if (pen.y > start.y - line_height / 2) {
            read.centre.x = (start.x + pen.x) / 2;
        }
    }
    return read;
}

std::string text_line(const drawn_text& read, const gpu_draw& first) {
    std::string size = number(read.size) == "256 " ? "" : "size " + number(read.size);
    return "\"" + read.text + "\" " + number(read.centre.x) + number(read.centre.y) + size +
           tint_text(first);
}

std::string line_of(const draw_group& group) {
    const gpu_draw& first = group.draws.front();
    if (group.first_texture == font.texture) {
        return text_line(text_read(group), first);
    }
    if (group.draws.size() == 1) {
        return picture_line(first);
    }
    bool arrow = first.colour == group.draws.back().colour;
    return arrow ? arrow_line(first, group.draws[1]) : card_line(group);
}

// Whether the group is a text in the middle of the button's face.
bool is_label(const gpu_draw& face, const draw_group& group) {
    if (slot_of(face) != texture_gradient3 || group.first_texture != font.texture) {
        return false;
    }
    point middle = place_of(face, 0.5, 0.5);
    point centre = text_read(group).centre;
    return std::abs(centre.x - middle.x) + std::abs(centre.y - middle.y) < 0.01;
}

std::string button_line(const gpu_draw& face, const draw_group& label) {
    point middle = place_of(face, 0.5, 0.5);
    return "[" + text_read(label).text + "] " + number(middle.x) + number(middle.y) +
           number(corners(face).width()) + number(corners(face).height());
}

}  // namespace

std::string picture_name(i64 slot) {
    // clang-format off
    constexpr const char* names[] = {
        "circle", "triangle", "square", "pentagon", "hexagon", "star", "white", "eye", "stack",
        "similarity", "gradient1", "gradient2", "gradient3", "player", "next_turn2", "self_arrow",
        "state_machine", "pushdown_machine", "turing_machine", "unknown"};
    // clang-format on
    return names[slot];
}

screen_test::screen_test() {
    std::string white = file_get(QUORREL_SOURCE_DIR "/resources/white.png");
    for (i64 slot = 0; slot < texture_slot_count; ++slot) {
        file_put("resources/" + picture_name(slot) + ".png", white);
    }
    file_put("resources/font.png", white);
    file_put("resources/font_info.txt", font_text());
    for (str family : family_names) {
        file_put("resources/" + string_of(family) + "_maps.txt", "");
    }
}

screen_test::~screen_test() {
    if (running) {
        end();
    }
}

void screen_test::begin() {
    std::copy(arenas, arenas + arena_count, outside_arenas);
    running = true;
    headless_record(true);
    program_start();
    if (frame_watch != nullptr) {
        frame_watch();
    }
}

void screen_test::end() {
    program_end();
    map_work_finish();  // as at the exit of the program
    std::copy(outside_arenas, outside_arenas + arena_count, arenas);
    running = false;
}

bool frame() {
    headless_forget_calls();
    bool runs = program_frame();
    if (frame_watch != nullptr) {
        frame_watch();
    }
    return runs;
}

void point_at(f64 x, f64 y) {
    headless_mouse_move(render_target.width / 2.0 + x, render_target.height / 2.0 - y);
}

bool click(f64 x, f64 y, u32 button) {
    point_at(x, y);
    headless_mouse_press(button);
    headless_mouse_release(button);
    return frame();
}

point place_of(const gpu_draw& draw, f64 u, f64 v) {
    const auto& m = draw.mvp;
    f64 clip_x = m[0] * u + m[4] * v + m[12];
    f64 clip_y = m[1] * u + m[5] * v + m[13];
    return {clip_x * render_target.width / 2, clip_y * render_target.height / 2};
}

std::vector<std::string> drawn_lines() {
    std::vector<draw_group> groups = groups_drawn();
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        const gpu_draw& face = groups[i].draws.front();
        bool button = i + 1 < groups.size() && is_label(face, groups[i + 1]);
        lines.push_back(button ? button_line(face, groups[i + 1]) : line_of(groups[i]));
        i += button ? 1 : 0;
        while (lines.back().ends_with(' ')) {
            lines.back().pop_back();
        }
    }
    return lines;
}

std::string drawn(std::string_view part) {
    std::string chosen;
    for (const std::string& line : drawn_lines()) {
        chosen += line.find(part) != line.npos ? line + "\n" : "";
    }
    return chosen;
}
