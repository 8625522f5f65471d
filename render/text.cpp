#include "render/text.h"

#include <cassert>

#include "base/numbers.h"
#include "maps/card.h"
#include "render/font.h"
#include "render/pictures.h"
#include "render/quad.h"

// A pen walks over the text and draws one quad per visible character. A text that is centred is
// walked once before, to measure it; the first line then starts half of that to the left.

namespace {

constexpr f64 icon_scale = 0.125;  // of the text's size, the side of an icon

// What stays the same for all characters of one text.
struct text_style {
    f64 x;
    f64 y;
    f64 size;
    const colour& tint;
    draw_space space;
    bool icons;
};

// Where the next character goes, relative to the text's position.
struct text_pen {
    f32 x;
    f32 y;  // downwards
};

void pen_move(text_pen& pen, f64 dx, f64 dy) {
    pen.x = static_cast<f32>(pen.x + dx);
    pen.y = static_cast<f32>(pen.y + dy);
}

// What is drawn for one character. Lengths are of the text's size times `scale`.
struct glyph_look {
    f64 u;
    f64 v;
    f64 width;
    f64 height;
    f64 advance;
    f64 scale;
    colour tint;
};

glyph_look letter_look(char c, const colour& tint) {
    const glyph& g = font.glyphs[static_cast<u8>(c)];
    return {g.u, g.v, g.width, g.height, g.advance, 1, tint};
}

// The picture that stands for a character in a text with icons, `texture_slot_count` for none.
texture_slot icon_slot(char character) {
    card_property property = {card_field_count, 0};
    card_property_read(character, property);
    switch (property.field) {
        case field_colour:
            return texture_circle;
        case field_shape:
            return static_cast<texture_slot>(texture_circle + property.value);
        default:
            return character == 'T'   ? texture_eye
                   : character == '~' ? texture_similarity
                                      : texture_slot_count;
    }
}

// The texture that shows `character` in a text with icons. For an icon's letter it changes `look`,
// the tint only for the colour dots; for any other character it changes nothing.
u32 glyph_icon(char character, glyph_look& look) {
    texture_slot slot = icon_slot(character);
    if (slot == texture_slot_count) {
        return font.texture;
    }
    colour tint = look.tint;
    card_property property;
    if (card_property_read(character, property) && property.field == field_colour) {
        tint = colour_rgba(property.value);
    }
    look = {0, 0, 1, 1, 1, icon_scale, tint};
    return texture_set.textures[slot];
}

f64 advance_of(const glyph_look& look, f64 size) {
    return size * look.scale * look.advance;
}

// The width of all characters, over all lines together. A '%' counts nothing, drawn or not.
f64 text_width(str text, f64 size, bool icons) {
    f64 width = 0;
    bool escaped = false;
    for (char c : text) {
        if (c != '%' && c != '\n') {
            glyph_look look = letter_look(c, colour_white);
            if (icons && !escaped) {
                glyph_icon(c, look);
            }
            width += advance_of(look, size);
        }
        escaped = c == '%';
    }
    return width;
}

f64 text_height(str text, f64 size) {
    i64 lines = 1;
    for (char c : text) {
        lines += c == '\n' ? 1 : 0;
    }
    return size * font.line_height * static_cast<f64>(lines);
}

void character_draw(char c, bool escaped, const text_style& style, text_pen& pen) {
    glyph_look look = letter_look(c, style.tint);
    if (style.icons) {
        quad_texture(escaped ? font.texture : glyph_icon(c, look));
        quad_tint(look.tint);
    }
    f64 unit = style.size * look.scale;
    box place = {style.x + pen.x, style.y - pen.y, unit * look.width, unit * look.height};
    quad_place(quad_model(place), style.space);
    quad_part(look.u, look.v, look.width, look.height);
    quad_draw();
    pen_move(pen, advance_of(look, style.size), 0);
}

void characters_draw(str text, const text_style& style, text_pen pen) {
    bool escaped = false;
    for (char c : text) {
        if (style.icons && c == '%') {
            escaped = true;
            continue;
        }
        if (c == ' ' || c == '\t') {
            pen_move(pen, advance_of(letter_look(c, style.tint), style.size), 0);
        } else if (c == '\n') {
            pen.x = 0;
            pen_move(pen, 0, style.size * font.line_height);
        } else {
            character_draw(c, escaped, style, pen);
        }
        escaped = false;
    }
}

}  // namespace

void text_buffer_put_plain(text_buffer& buffer, str text) {
    for (char c : text) {
        if (icon_slot(c) != texture_slot_count) {
            text_buffer_put(buffer, '%');
        }
        text_buffer_put(buffer, c);
    }
}

void text_draw(str text, f64 x, f64 y, f64 size, const colour& tint, draw_space space,
               text_layout layout) {
    assert(layout <= text_icons && size >= 0);
    quad_unit();
    quad_texture(font.texture);
    quad_sampler();
    quad_tint(tint);
    text_pen pen = {};
    bool icons = layout == text_icons;
    if (layout != text_left) {
        pen_move(pen, -text_width(text, size, icons) / 2, text_height(text, size) / 2);
    }
    characters_draw(text, {x, y, size, tint, space, icons}, pen);
}

box text_box(str text, f64 x, f64 y, f64 size, text_layout layout) {
    assert(layout != text_left);
    return box_around(x, y, text_width(text, size, layout == text_icons), text_height(text, size));
}

void text_draw_left(str text, f64 x, f64 y, f64 size, const colour& tint) {
    text_draw(text, x, y, size, tint, screen_space, text_left);
}

void text_draw_icons(str text, f64 x, f64 y) {
    text_draw(text, x, y, text_normal, colour_white, screen_space, text_icons);
}

void label_draw(str text, f64 x, f64 y, const colour& tint) {
    text_draw(text, x, y, text_normal, tint, screen_space, text_centred);
}

void number_draw(i64 value, f64 x, f64 y) {
    label_draw(number_text(value), x, y);
}
