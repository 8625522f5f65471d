#include "maps/kept.h"

#include <algorithm>
#include <cstring>

#include "base/text_builder.h"
#include "base/tidings.h"
#include "maps/family.h"
#include "maps/model.h"
#include "maps/writer.h"
#include "platform/file.h"
#include "platform/folder.h"

map_work_record map_work;

namespace {

constexpr i64 kept_count = 100;
constexpr i64 name_limit = 200;  // bytes; file systems take 255 with family and date
constexpr i64 kept_path_limit = name_limit + 32;

// Mixes a value into a fingerprint.
void print_add(u64& print, u64 value) {
    print = (print ^ value) * 0x9e3779b97f4a7c15;
    print ^= print >> 32;
}

void print_add(u64& print, f64 value) {
    u64 bits;
    std::memcpy(&bits, &value, sizeof bits);
    print_add(print, bits);
}

void print_add(u64& print, u16 value) {
    print_add(print, u64{value});
}

void print_add(u64& print, card c) {
    print_add(print, u64{c.colour} << 16 | u64{c.shape} << 8 | c.number);
}

void print_add(u64& print, const goal& g) {
    print_add(print, u64{g.measure} << 8 | g.comparison);
    print_add(print, static_cast<u64>(g.target));
    print_add(print, g.card_a);
    print_add(print, g.card_b);
}

void print_add(u64& print, const map_state& s) {
    print_add(print, s.x);
    print_add(print, s.y);
    print_add(print, u64{s.accepting});
}

void print_add(u64& print, const transition& arc) {
    print_add(print, u64{arc.from} << 32 | u64{arc.to} << 16 | static_cast<u16>(arc.bend));
    print_add(print, f64{arc.label_dx});
    print_add(print, f64{arc.label_dy});
    for (char byte : arc.rule) {
        print_add(print, u64{static_cast<u8>(byte)});
    }
    print_add(print, static_cast<u64>(arc.rule.length));
}

template <typename element>
void print_add(u64& print, const dyn_array<element>& list) {
    for (const element& e : list) {
        print_add(print, e);
    }
    print_add(print, static_cast<u64>(list.count));
}

// Maps of different texts have different fingerprints.
u64 map_print() {
    u64 print = 0;
    print_add(print, game_map.origin_x);
    print_add(print, game_map.origin_y);
    print_add(print, game_map.scale);
    for (i64 value :
         {settings.deck_copies, settings.deck_colours, settings.deck_shapes, settings.deck_numbers,
          settings.hand_size, settings.tape_length, i64{settings.win_mode}}) {
        print_add(print, static_cast<u64>(value));
    }
    print_add(print, goals);
    print_add(print, stones);
    print_add(print, game_map.states);
    print_add(print, game_map.transitions);
    return print;
}

// Makes room for another kept map; returns its path but for the date, made of the path it had.
str kept_path_make(str path, char (&bytes)[kept_path_limit]) {
    folder_trim(kept_folder, kept_count - 1);
    str name = str_after_last(path, '/');
    name.length = std::min(name.length, name_limit);
    text_buffer text = {bytes, sizeof bytes, 0, 0};
    for (str part : {kept_folder, str("/"), name.length > 0 ? name : str("unnamed"), str("."),
                     family_is_known() ? family_names[machine_kind] : str("map")}) {
        text_buffer_put_str(text, part);
    }
    return text_buffer_text(text);
}

void keep_failure_tell(str path) {
    failure_tell({"failed to keep map: ", path});
}

}  // namespace

void map_file_keep(str path) {
    char bytes[kept_path_limit];
    if (file_is_own(path) && !file_keep(path, kept_path_make(path, bytes))) {
        keep_failure_tell(path);
    }
}

void map_work_begin() {
    map_work.open = true;
    map_work_is_saved({});
}

void map_work_is_saved(str path) {
    if (map_work.open) {
        map_work.path = path;
        map_work.print = map_print();
    }
}

void map_work_keep() {
    if (!map_work.open || map_work.print == map_print()) {
        return;
    }
    char bytes[kept_path_limit];
    file_id file = file_open(kept_path_make(map_work.path, bytes), file_mode_dated);
    map_write([](void* to,
                 str piece) { file_write(*static_cast<file_id*>(to), piece.length, piece.data); },
              &file);
    file_close(file);
    if (file_failed(file)) {
        keep_failure_tell(map_work.path);
    }
}

void map_work_end() {
    map_work_keep();
    map_work.open = false;
}

bool kept_path_read(str path, str& name, i64& family) {
    str file = str_after_last(path, '/');
    str date = str_after_last(file, '.');
    str rest = {file.data, std::max(i64{0}, file.length - date.length - 1)};
    str word = str_after_last(rest, '.');
    i64 named = family_named(word);
    if (named == no_family || word.length == rest.length) {
        return false;
    }
    name = {rest.data, rest.length - word.length - 1};
    family = named;
    return true;
}
