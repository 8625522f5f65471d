#include "render/font.h"

#include <sstream>

#include "tests/support/screen.h"

namespace {

class font_test : public game_test {
  protected:
    font_test() {
        file_put("resources/picture.png", "no picture, but a file");
        file_put("here.png", "");
    }

    std::string load(std::string_view content) {
        file_put("resources/font_info.txt", content);
        return output_of(font_load);
    }
};

// A case is a character's code and a font file with ';' for line feeds: the character's advance,
// its part of the picture, and the font's line height.
TEST_F(font_test, glyph_lines) {
    golden_check("render/fonts", [&](const std::string& given) {
        std::string content = replaced(given.substr(given.find(' ') + 1), ';', '\n');
        std::ostringstream read(load(content), std::ios::ate);
        const glyph& g = font.glyphs[std::stoul(given)];
        read << g.advance << ' ' << g.u << ' ' << g.v << ' ' << g.width << ' ' << g.height << " of "
             << font.line_height;
        return read.str();
    });
}

TEST_F(font_test, files_not_understood_leave_the_font_as_it_was) {
    EXPECT_EQ(output_of(font_load), "failed to open resources/font_info.txt\n");
    const std::pair<const char*, const char*> rows[] = {
        {"g 65 0 0 1 1 1 1 1\n\ng 66 0 0 1 1 1 1 1\n", ""},
        {"g65 0 0 1 1 1 1 1\n", ""},
        {"g 65 0 0 1 1 1 1 1\nG 1", "unknown G\n"},
        {"i none.png\n", "failed to load font image: resources/none.png\n"},
        {"i picture.png\ni here.png\n\n", ""}};
    for (auto [content, said] : rows) {
        font.line_height = 77;
        EXPECT_EQ(load(content), said) << content;
        EXPECT_EQ(font.line_height, 77) << content;
        EXPECT_EQ(headless_live_objects(gpu_op::texture_create), 0) << content;
    }
}

// However many lines name a picture, decoding stays the work of one.
TEST_F(font_test, decodes_the_last_picture_only) {
    EXPECT_EQ(load("i picture.png\ni here.png\ni here.png\n"),
              "failed to load picture: here.png\n");
    EXPECT_EQ(headless_live_objects(gpu_op::texture_create), 1);
}

}  // namespace
