#include "maps/waiting_maps.h"

#include <algorithm>
#include <cassert>

#include "base/numbers.h"
#include "base/tidings.h"

waiting_maps_record waiting_maps;

// The block has name and text of each, the oldest first and without gaps: a map's bytes begin where
// those of the ones before it end, and what follows moves up when one goes.

namespace {

char waiting_bytes[waiting_capacity];

// Of a map whose bytes begin at `offset`.
str waiting_name(i64 index, i64 offset) {
    return {waiting_bytes + offset, waiting_maps.maps[index].name_length};
}

str waiting_text(i64 index, i64 offset) {
    const waiting_map& map = waiting_maps.maps[index];
    return {waiting_bytes + offset + map.name_length, map.text_length};
}

i64 waiting_size(i64 index) {
    return waiting_maps.maps[index].name_length + waiting_maps.maps[index].text_length;
}

void waiting_remove(i64 index, i64 offset) {
    i64 size = waiting_size(index);
    std::copy(waiting_bytes + offset + size, waiting_bytes + waiting_maps.used,
              waiting_bytes + offset);
    waiting_maps.used -= size;
    std::copy(waiting_maps.maps + index + 1, waiting_maps.maps + waiting_maps.count,
              waiting_maps.maps + index);
    waiting_maps.count -= 1;
}

void oldest_lose() {
    waiting_map_lose(waiting_name(0, 0));
    waiting_remove(0, 0);
}

}  // namespace

void waiting_map_lose(str name) {
    failure_tell({"lost map: ", name});
}

char* waiting_map_add(str name, i64 family, i64 text_length) {
    assert(name.length > 0 && text_length >= 0);
    i64 size = name.length + text_length;
    if (size > waiting_capacity) {
        waiting_map_lose(name);
        return nullptr;
    }
    while (waiting_maps.count == waiting_limit || waiting_maps.used + size > waiting_capacity) {
        oldest_lose();
    }
    waiting_maps.maps[waiting_maps.count] = {family, name.length, text_length};
    waiting_maps.count += 1;
    char* place = std::copy(name.begin(), name.end(), waiting_bytes + waiting_maps.used);
    waiting_maps.used += size;
    return place;
}

void waiting_maps_offer(bool (*put)(str name, i64 family, str text)) {
    i64 offset = 0;
    for (i64 i = 0; i < waiting_maps.count;) {
        str name = waiting_name(i, offset);
        if (put(name, waiting_maps.maps[i].family, waiting_text(i, offset))) {
            tiding_tell(tiding_news, {"kept: ", name});
            waiting_remove(i, offset);
        } else {
            offset += waiting_size(i);
            i += 1;
        }
    }
}

void waiting_maps_tell() {
    if (waiting_maps.count == 1) {
        tiding_tell(tiding_failure, {"not on the disk yet: ", waiting_name(0, 0)});
    } else if (waiting_maps.count > 1) {
        tiding_tell(tiding_failure,
                    {"not on the disk yet: ", number_text(waiting_maps.count), " maps"});
    }
}

void waiting_maps_lose() {
    while (waiting_maps.count > 0) {
        oldest_lose();
    }
}

str waiting_maps_fault() {
    if (waiting_maps.count < 0 || waiting_maps.count > waiting_limit) {
        return "more maps wait than can";
    }
    i64 size = 0;
    for (i64 i = 0; i < waiting_maps.count; ++i) {
        size += waiting_maps.maps[i].name_length + waiting_maps.maps[i].text_length;
    }
    return size != waiting_maps.used ? str("waiting maps do not fill their memory") : str();
}
