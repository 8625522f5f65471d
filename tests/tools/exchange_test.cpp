#include <gmock/gmock.h>

#include "maps/reader.h"
#include "render/renderer.h"
#include "tests/support/screen.h"
#include "tools/commands.h"
#include "tools/map_code.h"
#include "tools/map_svg.h"

namespace {

class exchange_test : public screen_test {
  protected:
    exchange_test() {
        begin();
        frame();  // builds the camera's matrices
        render_frame_begin();
    }
};

using testing::HasSubstr;

constexpr std::string_view code = "KyktysxL58qtjM9NLOACYgUDIDQ0suDSArG4AA";

TEST_F(exchange_test, ACodeHoldsAMap) {
    named_map map;
    for (std::string before : {"", "https://example.org/play#map="}) {
        map = {};
        ASSERT_TRUE(map_code_read(before + std::string(code), map));
        EXPECT_EQ(map.family, turing_machine);
        EXPECT_EQ(map.name, "my_map");
        EXPECT_EQ(map.text, "map 0 0 128\n* 0 0\n");
    }
    file_put("resources/turing_maps.txt", "my_map maps/mine\n");
    file_put("maps/mine", map.text);
    EXPECT_EQ(output_of([] { list_command({"--all"}); }), "turing my_map maps/mine\n");
    EXPECT_EQ(output_of([] { export_command({"my_map"}); }), map_code(map) + "\n");
}

TEST_F(exchange_test, WhatIsNoCodeIsRefused) {
    named_map map;
    for (std::size_t length = 0; length < code.size() - 1; ++length) {
        EXPECT_FALSE(map_code_read(code.substr(0, length), map)) << length;
    }
    EXPECT_FALSE(map_code_read("Kykt ysxL", map));
    EXPECT_FALSE(map_code_read(std::string(code_length_limit + 1, 'A'), map));
    EXPECT_FALSE(map_code_read(map_code({state_machine, "words", "no map\n"}), map));
    std::string large = "* 0 0\n" + std::string(code_bytes_limit, '#');
    EXPECT_FALSE(map_code_read(map_code({state_machine, "large", large}), map));
}

TEST_F(exchange_test, ABoardIsDrawnWhereTheGameHasIt) {
    machine_kind = pushdown_machine;
    map_read("map 0 0 100\nstone 1\n. -1 0\n* 1 0\n=> 0 1 0 0 40 \"~A\"\n=> 1 1 90\n");
    std::string svg = map_svg(true);
    for (const char* piece :
         {"<use href='#state' x='412.00' y='416.00'/>",
          "<use href='#accepting' x='612.00' y='416.00'/>",
          "<use href='#stone' x='612.00' y='416.00'/>", "href='#shaft' color='#000000'",
          "href='#circle' color='#ff0000'", "href='#similarity'", "href='#loop'", ">1</text>"}) {
        EXPECT_THAT(svg, HasSubstr(piece));
    }
}

}  // namespace
