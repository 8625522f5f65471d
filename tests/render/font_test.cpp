#include "render/font.h"

#include <random>

#include "tests/support/draws.h"

namespace {

class font_test : public game_test {
  protected:
    font_test() { file_put("resources/picture.png", "no picture, but a file"); }

    std::string load(std::string_view content) {
        file_put("resources/font_info.txt", content);
        return output_of(font_load);
    }
};

TEST_F(font_test, a_line_sets_one_glyph_or_all_or_none) {
    EXPECT_EQ(load("g -1 9 9 0.5 .25 .125 1 2\ng 65 0 0 -1 0 0 0 0\n"
                   "g 0 0 0 4 0 0 0 0\ng 256 0 0 0 0 0 0 3\ng 999999 0 0 0 0 0 0 1"),
              "");
    EXPECT_DOUBLE_EQ(font.line_height, 3);
    const glyph& other = font.glyphs[255];
    EXPECT_DOUBLE_EQ(other.advance, 0.5);
    EXPECT_DOUBLE_EQ(other.u, 0.25);
    EXPECT_DOUBLE_EQ(other.v, 0.125);
    EXPECT_DOUBLE_EQ(other.width, 1);
    EXPECT_DOUBLE_EQ(other.height, 2);
    EXPECT_DOUBLE_EQ(font.glyphs[u8{'A'}].advance, -1);
    EXPECT_DOUBLE_EQ(font.glyphs[0].advance, 4);
    EXPECT_DOUBLE_EQ(font.glyphs[u8{'A'}].height, 0);
}

TEST_F(font_test, only_one_byte_is_skipped_between_numbers_and_the_rest_ignored) {
    EXPECT_EQ(load("g 65,1\t2 3 4 5 6 7 8 rest\ng 66  1 2 3 4 5 6 7\n"), "");
    EXPECT_DOUBLE_EQ(font.glyphs[u8{'A'}].height, 7);
    // The second blank stands where the first number is expected: all are one place late.
    EXPECT_DOUBLE_EQ(font.glyphs[u8{'B'}].height, 6);
}

TEST_F(font_test, a_short_line_goes_on_in_the_next_one) {
    EXPECT_EQ(load("g 65 1 2\n3 4 5 6 7\ng 66 1 2 3"), "");
    EXPECT_DOUBLE_EQ(font.glyphs[u8{'A'}].height, 7);
    EXPECT_DOUBLE_EQ(font.glyphs[u8{'B'}].advance, 3);
    EXPECT_DOUBLE_EQ(font.line_height, 7);
}

TEST_F(font_test, files_not_understood_leave_the_font_as_it_was) {
    const struct {
        const char* content;
        const char* said;
    } rows[] = {{"g 65 0 0 1 1 1 1 1\n\ng 66 0 0 1 1 1 1 1\n", ""},
                {"\n", ""},
                {"g", ""},
                {"g 65 0 0 1 1 1 1 1\ng", ""},
                {"g65 0 0 1 1 1 1 1\n", ""},
                {"x 1\n", "unknown x\n"},
                {"g 65 0 0 1 1 1 1 1\nG 1", "unknown G\n"},
                {"i none.png\n", "failed to load font image: resources/none.png\n"},
                {"i picture.png\n\n", "failed to load picture: resources/picture.png\n"}};
    for (const auto& row : rows) {
        font.line_height = 77;
        EXPECT_EQ(load(row.content), row.said) << row.content;
        EXPECT_EQ(font.line_height, 77) << row.content;
        EXPECT_EQ(headless_live_objects(gpu_op::texture_create), 0) << row.content;
    }
    EXPECT_EQ(load(""), "");
    EXPECT_DOUBLE_EQ(font.line_height, 0);
}

TEST_F(font_test, a_missing_file_is_said) {
    EXPECT_EQ(output_of(font_load), "failed to open resources/font_info.txt\n");
}

TEST_F(font_test, a_picture_is_found_here_or_beside_the_font_file) {
    EXPECT_EQ(load("i picture.png"), "failed to load picture: resources/picture.png\n");
    EXPECT_NE(font.texture, 0U);
    file_put("picture.png", "here");
    EXPECT_EQ(load("i picture.png\ni picture.png\n"),
              "failed to load picture: picture.png\nfailed to load picture: picture.png\n");
    // One by each successful load: the first picture of two is given back.
    EXPECT_EQ(headless_live_objects(gpu_op::texture_create), 2);
}

// Cut, joined and changed font files are read or refused, never past their end.
TEST_F(font_test, survives_any_bytes) {
    const std::string whole = "i picture.png\ng -1 0 0 0.05 0 0 .05 .1\ng 65 1 2 3 4 5 6 7\n";
    std::minstd_rand random(7);
    for (int round = 0; round < 100; ++round) {
        std::string text = whole.substr(0, random() % (whole.size() + 1));
        text += whole.substr(random() % whole.size());
        for (unsigned i = random() % 4; i > 0; --i) {
            text[random() % text.size()] = static_cast<char>(random());
        }
        load(text);
    }
    EXPECT_LE(headless_live_objects(gpu_op::texture_create), 100);
}

}  // namespace
