#include "tools/map_svg.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/colour.h"
#include "game/map_drawing.h"
#include "render/font.h"
#include "render/goal_text.h"
#include "render/pictures.h"
#include "render/renderer.h"
#include "shown/flight.h"
#include "shown/selection.h"
#include "tools/board_frame.h"
#include "tools/progress.h"
#include "tools/words.h"
#include "words/card_words.h"

namespace {

constexpr f64 margin = 16;     // pixels around everything
constexpr f64 goal_step = 40;  // pixels between the goals' lines
constexpr f64 line_step = 24;  // pixels between the lines below
constexpr f64 line_size = 16;  // a letter is 0.6 of that wide

// The pictures that boards are drawn with, in a square of 256 by 256, y downwards.
struct symbol {
    texture_slot slot;
    const char* name;
    const char* body;
};

constexpr symbol symbols[] = {
    {texture_circle, "circle", "<circle cx='128' cy='128' r='104'/>"},
    {texture_triangle, "triangle", "<path d='M128 20 244 222H12Z'/>"},
    {texture_square, "square", "<path d='M35 35H221V221H35Z'/>"},
    {texture_pentagon, "pentagon", "<path d='M128 18 239 99 197 230H59L17 99Z'/>"},
    {texture_hexagon, "hexagon", "<path d='M186 28 244 128 186 228H70L12 128 70 28Z'/>"},
    {texture_star, "star",
     "<path d='M128 12 165 87 248 99 189 158 202 240 128 202 54 240 67 158 8 99 91 87Z'/>"},
    {texture_white, "shaft", "<path d='M0 0H256V256H0Z'/>"},
    {texture_eye, "eye",
     "<path d='M18 128Q128 22 238 128 128 234 18 128Z' fill='none' stroke='currentColor' "
     "stroke-width='19'/><circle cx='128' cy='128' r='33'/>"},
    {texture_similarity, "similarity",
     "<path d='M34 146C56 92 96 92 128 128S200 164 222 110' fill='none' stroke='currentColor' "
     "stroke-width='24' stroke-linecap='round'/>"},
    {texture_self_arrow, "loop",
     "<g transform='scale(2.56 2.844)'><path d='M37.1 73.7 23.8 55.4A32.4 32.4 0 1 1 76.2 "
     "55.4L68.8 65.6' fill='none' stroke='currentColor' stroke-width='4'/><path "
     "transform='translate(50 91.5)rotate(36)' d='M0-21.9-10.9-40.8H10.9Z'/></g>"},
};

constexpr const char* state_symbols =
    "<g id='state' fill='#fff' stroke='#000' stroke-width='2'><circle r='26'/></g>\n"
    "<g id='accepting' fill='#fff' stroke='#000' stroke-width='2'><circle r='26'/>"
    "<circle r='21.5'/></g>\n"
    "<g id='stone' fill='#555' stroke='#fff' stroke-width='8' transform='scale(.16)'><path "
    "transform='translate(-128 -128)' d='M98 124C100 166 84 188 62 208H42V242H214V208H194C172 188 "
    "156 166 158 124ZM76 104H180V130H76Z'/><circle cy='-64' r='48'/></g>\n";

// A number as SVG takes it, to a hundredth.
std::string number(f64 value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", value);
    return text;
}

struct svg_drawing {
    std::string body;
    std::vector<shape> drawn;  // in window pixels, y upwards
};

// Pixels from the window's top.
f64 flipped(f64 y) {
    return render_target.height - y;
}

// The tint for paper: white becomes black.
std::string ink_of(const std::array<f32, 4>& colour) {
    std::string ink = "#";
    bool is_white = colour[0] == 1 && colour[1] == 1 && colour[2] == 1;
    for (std::size_t channel = 0; channel < 3; ++channel) {
        f64 light = is_white ? 0 : std::pow(f64{colour[channel]}, 1 / 2.2);
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned>(255 * light));
        ink += digits;
    }
    return ink;
}

// The unit square's picture, drawn from its upper left in 256 steps to the right and down.
void symbol_put(svg_drawing& svg, const symbol& picture, const gpu_draw& draw) {
    point corner = placed(draw, {0, 1});
    point right = placed(draw, {1, 1});
    point down = placed(draw, {0, 0});
    svg.body += "<use href='#" + std::string(picture.name) + "' color='" + ink_of(draw.colour) +
                "' transform='matrix(";
    for (f64 step :
         {right.x - corner.x, corner.y - right.y, down.x - corner.x, corner.y - down.y}) {
        char text[32];
        std::snprintf(text, sizeof text, "%.6f ", step / 256);
        svg.body += text;
    }
    svg.body += number(corner.x) + " " + number(flipped(corner.y)) + ")'/>\n";
}

// The byte whose glyph the draw shows.
char glyph_byte(const gpu_draw& draw) {
    const glyph* found =
        std::find_if(std::begin(font.glyphs), std::end(font.glyphs), [&](const glyph& g) {
            return static_cast<f32>(g.u) == draw.uv_rect[0] &&
                   static_cast<f32>(g.v) == draw.uv_rect[1];
        });
    i64 byte = found - font.glyphs;
    return ' ' < byte && byte < 127 ? static_cast<char>(byte) : '?';
}

std::string escaped(char c) {
    return c == '<' ? "&lt;" : c == '&' ? "&amp;" : std::string(1, c);
}

void text_put(svg_drawing& svg, f64 x, f64 y, f64 size, const std::string& text) {
    svg.body += "<text x='" + number(x) + "' y='" + number(y) + "' font-size='" + number(size) +
                "'>" + text + "</text>\n";
}

// A cell is 26 wide and 64 high, its base line 16 above its foot; a letter is 0.6 of the size wide.
void glyph_put(svg_drawing& svg, const gpu_draw& draw) {
    point foot = placed(draw, {0.5, 0.25});
    f64 width = placed(draw, {1, 0}).x - placed(draw, {0, 0}).x;
    text_put(svg, foot.x, flipped(foot.y), width / 0.6, escaped(glyph_byte(draw)));
}

void draw_put(svg_drawing& svg, const gpu_draw& draw) {
    svg.drawn.push_back(placed(draw, rectangle_shape(0, 0, 1, 1)));
    if (draw.texture == font.texture) {
        glyph_put(svg, draw);
        return;
    }
    for (const symbol& picture : symbols) {
        if (draw.texture == texture_set.textures[picture.slot]) {
            symbol_put(svg, picture, draw);
        }
    }
}

void draws_put(svg_drawing& svg, const std::vector<gpu_draw>& draws) {
    for (const gpu_draw& draw : draws) {
        draw_put(svg, draw);
    }
}

void place_put(svg_drawing& svg, const char* name, point centre) {
    svg.body += "<use href='#" + std::string(name) + "' x='" + number(centre.x) + "' y='" +
                number(flipped(centre.y)) + "'/>\n";
}

point state_place(i64 state) {
    gpu_draw draw = draws_of([&] { state_draw(on_board, state); }).front();
    return placed(draw, {0.5, 0.5});
}

void states_put(svg_drawing& svg, bool numbers) {
    for (i64 s = 0; s < game_map.states.count; ++s) {
        point centre = state_place(s);
        svg.drawn.push_back(disc_shape(centre, state_size / 2));
        place_put(svg, game_map.states[s].accepting ? "accepting" : "state", centre);
        if (numbers) {
            text_put(svg, centre.x + 26, flipped(centre.y) + 38, 20, std::to_string(s));
        }
    }
}

// Stones on one state stand above each other.
void stones_put(svg_drawing& svg) {
    std::vector<i64> standing(static_cast<std::size_t>(game_map.states.count));
    for (u16 state : stones) {
        if (state_exists(state)) {
            point centre = state_place(state);
            centre.y += stone_rise * static_cast<f64>(standing[state]++);
            place_put(svg, "stone", centre);
        }
    }
}

void transitions_put(svg_drawing& svg, i64 marked) {
    for (i64 t = 0; t < game_map.transitions.count; ++t) {
        const transition& arc = game_map.transitions[t];
        const colour tint = t == marked ? card_colours[0] : colour_white;
        if (transition_exists(arc)) {
            draws_put(svg, draws_of([&] { transition_draw(on_board, arc, tint); }));
        }
        progress_show("transitions", t, game_map.transitions.count);
    }
}

void goals_put(svg_drawing& svg) {
    shape board = bounds_of(svg.drawn);
    f64 x = (board[0].x + board[2].x) / 2;
    for (i64 i = 0; i < goals.count && machine_kind == turing_machine; ++i) {
        f64 y = board[0].y - goal_step * static_cast<f64>(i + 1);
        draws_put(svg, draws_of([&] { goal_draw(goals[i], x, y); }));
    }
}

void lines_put(svg_drawing& svg, const std::vector<std::string>& lines) {
    shape drawn = bounds_of(svg.drawn);
    f64 x = (drawn[0].x + drawn[2].x) / 2;
    f64 y = drawn[0].y;
    for (const std::string& line : lines) {
        y -= line_step;
        f64 reach = static_cast<f64>(line.size()) * line_size * 0.3;
        svg.drawn.push_back(rectangle_shape(x - reach, y, 2 * reach, line_size));
        text_put(svg, x, flipped(y), line_size, line);
    }
}

std::string head_text(const shape& bounds) {
    std::string head = "<svg xmlns='http://www.w3.org/2000/svg' viewBox='";
    for (f64 value :
         {bounds[0].x - margin, flipped(bounds[2].y) - margin,
          bounds[2].x - bounds[0].x + 2 * margin, bounds[2].y - bounds[0].y + 2 * margin}) {
        head += number(value) + " ";
    }
    head.back() = '\'';
    return head +
           " font-family='JetBrains Mono, DejaVu Sans Mono, monospace' text-anchor='middle'>\n";
}

std::string symbols_text() {
    std::string text = "<defs>\n";
    for (const symbol& picture : symbols) {
        text += "<g id='" + std::string(picture.name) + "' fill='currentColor'>" + picture.body +
                "</g>\n";
    }
    return text + state_symbols + "</defs>\n";
}

}  // namespace

std::string map_svg(bool numbers, const std::vector<std::string>& lines, i64 marked,
                    svg_place place) {
    svg_drawing svg;
    transitions_put(svg, marked);
    states_put(svg, numbers);
    stones_put(svg);
    progress_end();
    if (svg.drawn.empty()) {
        svg.drawn.push_back(rectangle_shape(0, 0, 0, 0));
    }
    if (place == svg_alone) {
        goals_put(svg);
    }
    lines_put(svg, lines);
    return head_text(bounds_of(svg.drawn)) + (place == svg_alone ? symbols_text() : "") + svg.body +
           "</svg>\n";
}

std::string card_svg(card c, bool marked) {
    const colour& tint = colour_rgba(c.colour);
    const std::string name(view_of(card_name(c)));
    return "<svg class='card' viewBox='0 0 60 84' text-anchor='middle'><title>" + name +
           "</title><rect x='3' y='3' width='54' height='78' rx='6' fill='#fff' stroke='#000' "
           "stroke-width='" +
           (marked ? "5" : "1") + "'/><use href='#" + symbols[c.shape].name + "' color='" +
           ink_of({tint.r, tint.g, tint.b, 1}) +
           "' transform='translate(12 6)scale(.14)'/><text x='30' y='60' font-size='18'>" +
           std::to_string(c.number) + "</text><text x='30' y='74' font-size='12'>" +
           name.substr(0, name.find(' ')) + "</text></svg>";
}

std::string symbols_svg() {
    return "<svg width='0' height='0'>" + symbols_text() + "</svg>\n";
}
