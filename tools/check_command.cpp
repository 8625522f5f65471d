#include <algorithm>

#include "rules/game_state.h"
#include "tools/board_frame.h"
#include "tools/commands.h"
#include "tools/layout_check.h"
#include "tools/line_check.h"
#include "tools/map_check.h"
#include "tools/play_check.h"
#include "tools/terminal.h"

namespace {

void append(remarks& to, const remarks& more) {
    to.insert(to.end(), more.begin(), more.end());
}

int file_check(std::string_view path, machine_kind_value family, bool cyclic, i64 seats) {
    str text;
    if (!file_read(path, text)) {
        return not_understood;
    }
    remarks found = lines_check(text, family);
    map_open(text, family, !cyclic);
    append(found, map_check(cyclic));
    append(found, layout_check());
    map_open(text, family, !cyclic);
    append(found, play_check(text, seats));
    for (const std::string& remark : found) {
        put(path, ink_name);
        put(": " + remark + "\n");
    }
    return found.empty() ? all_well : doubtful;
}

}  // namespace

int check_command(words arguments) {
    bool cyclic = false;
    i64 seats = player_limit;
    option_form seats_form = {"--seats", true, [&](std::string_view value) {
                                  return number_read(value, seats) && 1 <= seats &&
                                         seats <= player_limit;
                              }};
    if (!options_take(arguments, {flag_form("--cyclic", cyclic), seats_form})) {
        return not_understood;
    }
    i64 family = arguments.empty() ? no_family : family_named(str_from(arguments[0]));
    if (family == no_family || arguments.size() < 2) {
        return complain("check", "wants a family and files");
    }
    if (!board_frame_begin()) {
        return not_understood;
    }
    int worst = all_well;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        worst = std::max(worst, file_check(arguments[i], static_cast<machine_kind_value>(family),
                                           cyclic && family == state_machine, seats));
    }
    return worst;
}
