#include "render/font.h"

#include <algorithm>

#include "base/message.h"
#include "maps/file_text.h"
#include "maps/scan.h"
#include "platform/file.h"
#include "platform/gpu.h"
#include "render/pictures.h"

// The font file is lines of text, each one a letter, a blank and what belongs to it:
//
//   i path                                            the font picture, here or beside this file
//   g index unread unread advance u v width height    a glyph; a negative index sets all 256
//
// Exactly one byte stands after each of the first seven numbers; the rest of the line is ignored.

font_record font;

namespace {

constexpr str font_folder = "resources/";

// What the lines read so far give. Of several pictures the last one counts; only that is decoded.
struct font_text {
    font_record record;
    str picture_named;  // as its line names it; empty before the first such line
    str picture_path;   // where it was found
};

// Finds the picture under its own name or else beside the font file; reports a missing one.
bool picture_line_read(text_cursor& cursor, font_text& into) {
    str path = text_scan_until(cursor, '\n');
    if (path == into.picture_named && path.length > 0) {
        return true;
    }
    into.picture_named = path;
    if (!file_exists(path)) {
        path = str_concat(font_folder, path, arena_persistent);
    }
    into.picture_path = path;
    bool found = file_exists(path);
    if (!found) {
        message_write({"failed to load font image: ", path, "\n"});
    }
    return found;
}

u32 font_texture_make(str path) {
    image picture = {};
    image_load(picture, path, image_channels_rgba);
    return texture_make(picture, filter_linear, filter_nearest);
}

void glyph_line_read(text_cursor& cursor, font_record& into) {
    i64 index = text_scan_int(cursor);
    f64 values[7];
    for (f64& value : values) {
        cursor.position += 1;
        value = text_scan_real(cursor);
    }
    const glyph read = {
        {values[0], values[1]}, values[2], values[3], values[4], values[5], values[6]};
    if (index < 0) {
        std::fill(into.glyphs, into.glyphs + glyph_count, read);
    } else if (index < glyph_count) {
        into.glyphs[index] = read;
    }
    into.line_height = std::max(into.line_height, read.height);
}

bool line_read(text_cursor& cursor, font_text& into) {
    if (cursor.position + 1 >= cursor.size || cursor.data[cursor.position + 1] != ' ') {
        return false;
    }
    const char* kind = cursor.data + cursor.position;
    cursor.position += 2;
    if (*kind == 'i') {
        return picture_line_read(cursor, into);
    }
    if (*kind == 'g') {
        glyph_line_read(cursor, into.record);
        return true;
    }
    message_write({"unknown ", {kind, 1}, "\n"});
    return false;
}

// Whether every line was understood.
bool lines_read(text_cursor& cursor, font_text& into) {
    while (cursor.position < cursor.size) {
        if (!line_read(cursor, into)) {
            return false;
        }
        text_scan_until(cursor, '\n');
        cursor.position += 1;
    }
    return true;
}

}  // namespace

void font_load() {
    str content;
    if (!file_read_all(font_path, content)) {
        message_write({"failed to open ", font_path, "\n"});
        return;
    }
    text_cursor cursor = {content.data, content.length, 0};
    font_text fresh = {};
    if (!lines_read(cursor, fresh)) {
        return;
    }
    if (fresh.picture_path.length > 0) {
        fresh.record.texture = font_texture_make(fresh.picture_path);
    }
    font = fresh.record;
}
