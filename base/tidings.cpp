#include "base/tidings.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <iterator>

#include "base/message.h"
#include "base/text_builder.h"
#include "base/time_step.h"

tidings_record tidings;
standing_record standing;

namespace {

constexpr i64 part_limit = 120;           // bytes
constexpr i64 standing_part_limit = 240;  // bytes
constexpr str ellipsis = "…";
constexpr str unshown = "?";

struct code_range {
    u32 first, last;
};

// Controls, surrogates, and marks that turn or break a line.
constexpr code_range unshown_codes[] = {{0, 0x1f},        {0x7f, 0x9f},     {0x2028, 0x202e},
                                        {0x2066, 0x2069}, {0xd800, 0xdfff}, {0x110000, ~u32{0}}};

bool is_shown(u32 code) {
    return std::none_of(
        std::begin(unshown_codes), std::end(unshown_codes),
        [code](code_range range) { return range.first <= code && code <= range.last; });
}

// The bytes of the character that the text begins with; 0 when it is none to be shown.
i64 character_length(str text) {
    constexpr u32 least_codes[] = {0, 0, 0x80, 0x800,
                                   0x10000};  // by length; lower ones are shorter
    u8 lead = static_cast<u8>(text[0]);
    if (lead < 0x80) {
        return is_shown(lead) ? 1 : 0;
    }
    i64 length = std::countl_one(lead);
    if (length < 2 || length > 4 || length > text.length) {
        return 0;
    }
    u32 code = lead & (0x7fu >> length);
    for (i64 i = 1; i < length; ++i) {
        u8 byte = static_cast<u8>(text[i]);
        if ((byte & 0xc0) != 0x80) {
            return 0;
        }
        code = code << 6 | (byte & 0x3f);
    }
    return code >= least_codes[length] && is_shown(code) ? length : 0;
}

// Puts the part, or as much of it as there is room for and an ellipsis.
void part_put(text_buffer& line, str part, i64 limit) {
    i64 room = std::min(limit, line.capacity - line.length) - ellipsis.length;
    for (i64 length; part.length > 0 && room >= 0;
         part = {part.data + length, part.length - length}) {
        i64 shown = character_length(part);
        length = std::max(shown, i64{1});
        room -= length;
        bool is_cut = room < 0;
        text_buffer_put_str(line, is_cut ? ellipsis : shown > 0 ? str(part.data, length) : unshown);
    }
}

// Writes the parts, each up to the limit, into the memory of a line; returns the bytes that it
// takes.
i64 line_write(char (&memory)[tiding_limit], std::initializer_list<str> parts, i64 limit) {
    text_buffer line = {memory, tiding_limit, 0, 0};
    for (str part : parts) {
        part_put(line, part, limit);
    }
    return line.length;
}

// For how many frames the tiding that is shown keeps its place.
i64 frames_protected() {
    bool may_change = tidings.kind <= tidings.shown_kind;
    return may_change ? 0 : tidings.frames_left - (tiding_frames - tiding_least_frames);
}

}  // namespace

void tiding_tell(tiding_kind kind, std::initializer_list<str> parts) {
    if (tidings.is_new && tidings.kind < kind) {
        return;
    }
    tidings.kind = kind;
    tidings.is_new = true;
    tidings.length = line_write(tidings.text, parts, part_limit);
}

void failure_tell(std::initializer_list<str> parts) {
    message_write(parts);
    message_write({"\n"});
    tiding_tell(tiding_failure, parts);
}

void standing_tell(std::initializer_list<str> parts) {
    char text[tiding_limit];
    i64 length = line_write(text, parts, standing_part_limit);
    if (str(text, length) == str(standing.text, standing.length)) {
        return;
    }
    std::copy_n(text, length, standing.text);
    standing.length = length;
    standing.is_new = true;
    if (tidings.shown_kind != tiding_failure) {
        tidings.frames_left = std::min(tidings.frames_left, 1);
    }
}

bool standing_step(str& shown) {
    bool is_new = standing.is_new;
    standing.is_new = false;
    shown = {standing.text, standing.length};
    return is_new;
}

bool tidings_step(str& shown) {
    if (tidings.is_new && frames_protected() <= 0) {
        tidings.is_new = false;
        tidings.shown_kind = tidings.kind;
        tidings.frames_left = tiding_frames;
        shown = {tidings.text, tidings.length};
        return true;
    }
    if (tidings.frames_left == 0) {
        return false;
    }
    tidings.frames_left -= 1;
    shown = {};
    return tidings.frames_left == 0;
}

i64 tidings_frames_quiet() {
    if (tidings.is_new) {
        return std::max(frames_protected(), i64{0});
    }
    return tidings.frames_left > 0 ? tidings.frames_left - 1 : frames_endless;
}

void tidings_pass(i64 frames) {
    assert(frames <= tidings_frames_quiet());
    if (tidings.frames_left > 0) {
        tidings.frames_left -= static_cast<i32>(frames);
    }
}
