#include "tests/support/draws.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "render/camera.h"
#include "render/font.h"
#include "render/view.h"

namespace {

constexpr u32 made_up_font = 1000;  // a texture handle

void font_make() {
    font = {};
    font.line_height = 32.0 / 256;
    font.texture = made_up_font;
    for (i64 i = 0; i < glyph_count; ++i) {
        f64 u = static_cast<f64>(i % 16) / 16;
        f64 v = static_cast<f64>(i / 16) / 16;
        font.glyphs[i] = {{0, 0}, 13.0 / 256, u, v, 13.0 / 256, 32.0 / 256};
    }
}

// The draws of one sprite, arrow, card or text; each of them selects the texture unit once.
struct draw_group {
    u32 first_texture = 0;
    i64 texture_binds = 0;
    std::vector<gpu_draw> draws;
};

std::vector<draw_group> groups_drawn() {
    std::vector<draw_group> groups;
    std::vector<gpu_draw> draws = headless_draws();
    std::size_t next = 0;
    for (const gpu_call& call : headless_calls()) {
        if (call.op == gpu_op::texture_unit) {
            groups.emplace_back();
        } else if (call.op == gpu_op::texture_bind && !groups.empty()) {
            draw_group& group = groups.back();
            group.first_texture =
                group.texture_binds == 0 ? static_cast<u32>(call.numbers[1]) : group.first_texture;
            group.texture_binds += 1;
        } else if (call.op == gpu_op::draw_elements) {
            groups.at(groups.size() - 1).draws.push_back(draws.at(next++));
        }
    }
    return groups;
}

bool is_text(const draw_group& group) {
    return group.first_texture == font.texture && !group.draws.empty();
}

bool near(f64 a, f64 b) {
    return std::abs(a - b) < 0.01;
}

colour tint_of(const gpu_draw& draw) {
    return {draw.colour[0], draw.colour[1], draw.colour[2], draw.colour[3]};
}

box box_of(const gpu_draw& draw) {
    point low = window_point_of(draw, 0, 0);
    point high = window_point_of(draw, 1, 1);
    return {low.x, low.y, high.x - low.x, high.y - low.y};
}

// `texture_slot_count` for a texture that is no picture's.
texture_slot slot_of(const gpu_draw& draw) {
    const u32* begin = texture_set.textures;
    const u32* found = std::find(begin, begin + texture_slot_count, draw.texture);
    return static_cast<texture_slot>(found - begin);
}

bool is_icon(const gpu_draw& draw) {
    return draw.texture != font.texture;
}

char icon_letter_of(const gpu_draw& draw) {
    texture_slot slot = slot_of(draw);
    const colour* dot = std::ranges::find(card_colours, tint_of(draw));
    if (slot == texture_circle && dot != std::end(card_colours)) {
        return static_cast<char>('A' + (dot - card_colours));
    }
    return slot == texture_eye          ? 'T'
           : slot == texture_similarity ? '~'
                                        : static_cast<char>('a' + slot);
}

// The font's cells stand in 16 rows of 16.
char letter_of(const gpu_draw& draw) {
    return static_cast<char>(draw.uv_rect[0] * 16 + draw.uv_rect[1] * 256);
}

// What the text holds for one draw: an icon's letter, a letter, or with icons an escaped letter.
std::string spelling_of(const gpu_draw& draw, bool icons) {
    if (is_icon(draw)) {
        return {icon_letter_of(draw)};
    }
    char letter = letter_of(draw);
    bool escaped = icons && std::string_view("ABCDEFabcdefT~").find(letter) != std::string::npos;
    return escaped ? std::string{'%', letter} : std::string{letter};
}

// Puts the blanks back where the pen made a gap. The font must be monospaced.
drawn_text text_of(const draw_group& group) {
    bool icons = group.texture_binds > 1;
    const gpu_draw& first = group.draws.front();
    point start = {box_of(first).x, box_of(first).y};
    const glyph& cell = font.glyphs[u8{'0'}];
    f64 size = box_of(first).width / (is_icon(first) ? 0.125 : cell.width);
    f64 advance = size * cell.advance;
    f64 line_height = size * font.line_height;
    drawn_text text = {{}, start, {}, size, tint_of(first)};
    f64 first_line_end = start.x;
    f64 pen = start.x;
    f64 line = start.y;
    for (const gpu_draw& draw : group.draws) {
        box place = box_of(draw);
        for (; line - place.y > line_height / 2; line -= line_height) {
            text.text += '\n';
            pen = start.x;
        }
        i64 blanks = std::lround((place.x - pen) / advance);
        text.text.append(static_cast<std::size_t>(std::max(blanks, i64{0})), ' ');
        text.text += spelling_of(draw, icons);
        pen = place.x + (is_icon(draw) ? place.width : advance);
        first_line_end = near(line, start.y) ? pen : first_line_end;
    }
    text.centre = {(start.x + first_line_end) / 2, start.y + line_height / 2};
    return text;
}

// With all that was drawn, for the message.
testing::AssertionResult found_among_drawn(bool found) {
    testing::AssertionResult result(found);
    for (const auto& [slot, place, tint, draw] : pictures_drawn()) {
        result << "\n  picture " << int{slot} << " at (" << place.x << ", " << place.y << "), "
               << place.width << " by " << place.height;
    }
    for (const drawn_text& text : texts_drawn()) {
        result << "\n  \"" << text.text << "\" starts at (" << text.start.x << ", " << text.start.y
               << "), centred at (" << text.centre.x << ", " << text.centre.y << ")";
    }
    return result;
}

testing::AssertionResult text_is_at(std::string_view text, point at, point drawn_text::*place) {
    return found_among_drawn(std::ranges::any_of(texts_drawn(), [&](const drawn_text& t) {
        return t.text == text && near((t.*place).x, at.x) && near((t.*place).y, at.y);
    }));
}

}  // namespace

draw_test::draw_test() {
    output_of(renderer_init);  // speaks of every missing picture
    font_make();
    camera_matrices_build(render_target.width, render_target.height);
    render_frame_begin();
    headless_record(true);
}

bool operator==(const colour& a, const colour& b) {
    return a.r == b.r && a.g == b.g && a.b == b.b && a.a == b.a;
}

point window_point_of(const gpu_draw& draw, f64 u, f64 v) {
    const auto& m = draw.mvp;
    f64 clip_x = m[0] * u + m[4] * v + m[12];
    f64 clip_y = m[1] * u + m[5] * v + m[13];
    return {(clip_x + 1) * render_target.width / 2, (clip_y + 1) * render_target.height / 2};
}

point world_point_of(point window) {
    world_point world = view_world_point(window.x, window.y);
    return {world.x, world.y};
}

std::vector<drawn_picture> pictures_drawn() {
    std::vector<drawn_picture> pictures;
    for (const draw_group& group : groups_drawn()) {
        for (const gpu_draw& draw : group.draws) {
            if (!is_text(group)) {
                pictures.push_back({slot_of(draw), box_of(draw), tint_of(draw), draw});
            }
        }
    }
    return pictures;
}

std::vector<drawn_text> texts_drawn() {
    std::vector<drawn_text> texts;
    for (const draw_group& group : groups_drawn()) {
        if (is_text(group)) {
            texts.push_back(text_of(group));
        }
    }
    return texts;
}

testing::AssertionResult picture_is_at(texture_slot slot, box place) {
    return found_among_drawn(std::ranges::any_of(pictures_drawn(), [&](const drawn_picture& p) {
        return p.slot == slot && near(p.place.x, place.x) && near(p.place.y, place.y) &&
               near(p.place.width, place.width) && near(p.place.height, place.height);
    }));
}

testing::AssertionResult text_is_centred_at(std::string_view text, f64 x, f64 y) {
    return text_is_at(text, {x, y}, &drawn_text::centre);
}

testing::AssertionResult text_starts_at(std::string_view text, f64 x, f64 y) {
    return text_is_at(text, {x, y}, &drawn_text::start);
}
