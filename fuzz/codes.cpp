// The code of a map, as it comes with chat, mail and links, is read and taken into the player's
// maps.
//
// After an even first byte the rest is a code. After an odd one it is what a code holds: the number
// of the family, the name, a line feed and the text.

#include "tools/map_code.h"

#include "fuzz/files.h"
#include "fuzz/fuzz.h"
#include "maps/catalogue.h"
#include "maps/family.h"
#include "maps/loading.h"
#include "program/map_import.h"
#include "tools/words.h"

namespace {

void map_take(const named_map& map) {
    fuzz_expect(text_is_map(str_from(map.text)), "what is taken is a map");
    const str name = str_copy(str_from(map.name));
    const str text = str_copy(str_from(map.text));
    for (int times = 0; times < 2; ++times) {
        fuzz_expect(map_text_import(name, text, map.family), "a map is taken");
        fuzz_expect(catalogue_count() == 1, "and listed once");
    }
    fuzz_expect(files_get(std::string(view_of(catalogue_selected()->path))) == map.text,
                "its file is the text");
    map_load(catalogue_selected()->path);
}

}  // namespace

int LLVMFuzzerTestOneInput(const u8* data, std::size_t size) {
    fuzz_begin();
    fuzz_input input(data, size);
    named_map read;
    if (input.byte() % 2 == 0) {
        if (map_code_read(input.rest, read)) {
            map_take(read);
        }
        return 0;
    }
    named_map made;
    made.family = input.byte() % machine_kind_count;
    made.name = input.until('\n');
    made.text = input.rest;
    const bool is_map = text_is_map(str_from(made.text));
    fuzz_expect(map_code_read(map_code(made), read) == is_map, "a map's code holds a map");
    if (is_map) {
        fuzz_expect(read.family == made.family && read.name == made.name && read.text == made.text,
                    "and that very map");
        map_take(read);
    }
    return 0;
}
