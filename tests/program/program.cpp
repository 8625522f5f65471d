#include "tests/program/program.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "program/frame.h"
#include "render/font.h"
#include "rules/screens.h"

namespace {

// clang-format off
constexpr const char* picture_names[] = {
    "circle", "triangle", "square", "pentagon", "hexagon", "star", "white", "eye", "stack",
    "similarity", "gradient1", "gradient2", "gradient3", "player", "next_turn2", "self_arrow",
    "state_machine", "pushdown_machine", "turing_machine", "window"};
// clang-format on

std::string font_text() {
    std::ostringstream text;
    text << "i font.png\n";
    for (i64 i = 0; i < glyph_count; ++i) {
        text << "g " << i << " 0 0 0.05078125 " << static_cast<f64>(i % 16) / 16 << ' '
             << static_cast<f64>(i / 16) / 16 << " 0.05078125 0.125\n";
    }
    return text.str();
}

void resources_put() {
    std::string white = file_get(QUORREL_SOURCE_DIR "/resources/white.png");
    for (i64 slot = 0; slot < texture_slot_count; ++slot) {
        file_put(std::string("resources/") + picture_names[slot] + ".png", white);
    }
    file_put("resources/font.png", white);
    file_put("resources/font_info.txt", font_text());
    for (const char* family : {"state", "pushdown", "turing"}) {
        file_put(std::string("resources/") + family + "_maps.txt", "");
    }
}

point centre() {
    return {render_target.width / 2.0, render_target.height / 2.0};
}

std::string number(f64 value) {
    return (std::ostringstream() << std::round(value * 100) / 100 + 0.0).str();
}

std::string tint_text(const colour& tint) {
    if (tint == colour_white) {
        return "";
    }
    return " (" + number(tint.r) + " " + number(tint.g) + " " + number(tint.b) + " " +
           number(tint.a) + ")";
}

std::string picture_line(const drawn_picture& picture) {
    const box& place = picture.place;
    return std::string(picture_names[picture.slot]) + " " + number(place.x - centre().x) + " " +
           number(place.y - centre().y) + " " + number(place.width) + " " + number(place.height) +
           tint_text(picture.tint) + "\n";
}

std::string text_line(const drawn_text& text) {
    std::string size = number(text.size) == "256" ? "" : " size " + number(text.size);
    return "\"" + text.text + "\" " + number(text.centre.x - centre().x) + " " +
           number(text.centre.y - centre().y) + size + tint_text(text.tint) + "\n";
}

// Takes the button's label out of the texts.
std::string button_line(const drawn_picture& button, std::vector<drawn_text>& texts) {
    const box& place = button.place;
    auto label = std::find_if(texts.begin(), texts.end(), [&](const drawn_text& text) {
        return std::abs(text.centre.x - place.x - place.width / 2) < 0.01 &&
               std::abs(text.centre.y - place.y - place.height / 2) < 0.01;
    });
    if (label == texts.end()) {
        return picture_line(button);
    }
    std::string line = "[" + label->text + "] " + number(label->centre.x - centre().x) + " " +
                       number(label->centre.y - centre().y) + " " + number(place.width) + " " +
                       number(place.height) + "\n";
    texts.erase(label);
    return line;
}

}  // namespace

program_test::program_test() {
    resources_put();
}

program_test::~program_test() {
    if (running) {
        end();
    }
}

std::string program_test::begin() {
    std::copy(arenas, arenas + arena_count, outside_arenas);
    running = true;
    headless_record(true);
    return output_of(program_start);
}

void program_test::end() {
    program_end();
    std::copy(outside_arenas, outside_arenas + arena_count, arenas);
    running = false;
}

void program_test::begin_game(std::string_view kinds) {
    begin();
    map_clear();
    seats_make(kinds);
    turn.turn_revealed = true;
    screens.title_menu_open = false;
}

void frames(i64 count) {
    for (i64 i = 0; i < count; ++i) {
        frame();
    }
}

bool key(u32 code) {
    headless_key_press(code);
    return frame();
}

void press_button(std::string_view label) {
    frame();
    for (const drawn_text& text : texts_drawn()) {
        if (text.text == label) {
            click(text.centre.x - centre().x, text.centre.y - centre().y);
            return;
        }
    }
    ADD_FAILURE() << "no button \"" << label << "\" in\n" << screen_text();
}

void screens_show(std::string_view letters) {
    auto open = [letters](char letter) { return letters.find(letter) != letters.npos; };
    screens = {open('t'), open('s'), open('l'), open('e'), false};
}

std::string screens_shown() {
    return std::string(screens.title_menu_open ? "t" : "") +
           (screens.player_setup_open ? "s" : "") + (screens.map_list_open ? "l" : "") +
           (screens.editor_open ? "e" : "");
}

std::string screen_lines(const std::function<bool(std::string_view)>& wanted) {
    std::istringstream lines(screen_text());
    std::string chosen;
    for (std::string line; std::getline(lines, line);) {
        chosen += wanted(line) ? line + "\n" : "";
    }
    return chosen;
}

std::string screen_text() {
    std::string pictures, buttons, lines;
    std::vector<drawn_text> texts = texts_drawn();
    for (const drawn_picture& picture : pictures_drawn()) {
        if (picture.slot == texture_gradient3) {
            buttons += button_line(picture, texts);
        } else if (picture.draw.frame_buffer != 0) {
            pictures += picture_line(picture);
        }
    }
    for (const drawn_text& text : texts) {
        lines += text_line(text);
    }
    return pictures + buttons + lines;
}

std::string lines_with(std::string_view part) {
    return screen_lines([part](std::string_view line) { return line.find(part) != line.npos; });
}

bool is_drawn(std::string_view line) {
    return !screen_lines([line](std::string_view other) { return other == line; }).empty();
}
