#pragma once

// A map in one line, as chat, mail and links can carry it: its family, name and text, one after the
// other on lines of their own, deflated (RFC 1951) and written in URL-safe base64 (RFC 4648)
// without padding. It is what stands behind "#map=" in a link to the game's page.

#include <string>
#include <string_view>

#include "base/types.h"

struct named_map {
    i64 family;
    std::string name;
    std::string text;
};

// The code of a map; empty when it would be beyond the limits (maps/code_limits.h), so that nobody
// could read it.
std::string map_code(const named_map& map);

// The map of a code or of a link that ends in one, between whose letters white space does not
// count: mails break lines. False when it holds none or is beyond the limits.
bool map_code_read(std::string_view code, named_map& map);
