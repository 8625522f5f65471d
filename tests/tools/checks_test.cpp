#include <gmock/gmock.h>

#include "maps/reader.h"
#include "tests/support/screen.h"
#include "tools/layout_check.h"
#include "tools/line_check.h"
#include "tools/map_check.h"

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

class checks_test : public screen_test {
  protected:
    checks_test() {
        begin();
        frame();  // builds the camera's matrices
    }

    void load(machine_kind_value family, const std::string& text) {
        file_put("map", text);
        settings = {};
        machine_kind = family;
        map_load("map");
    }
};

constexpr const char* state_head = "map 0 0 128\nwin 1\n";
constexpr const char* pushdown_head = "map 0 0 128\nwin 0\ndeck 2 2 2 2\nhand 4\n";
constexpr const char* turing_head = "map 0 0 128\nwin 0\ndeck 1 2 2 2\ntape 3\n";

TEST_F(checks_test, LinesThatTheReaderPassesOverAreNamed) {
    struct {
        machine_kind_value family;
        std::string text;
        std::vector<std::string> remarks;
    } const rows[] = {
        {state_machine, "map 0 -1.5 128\r\nwin 1\n# a remark\n\n* 0 .5\n=> 0 0 -45\n", {}},
        {state_machine, std::string(state_head) + "=> 0 1 2 3.5 -4 \"\"\n=> 0 1 2 3 4 \"a&b\"", {}},
        {turing_machine, std::string(turing_head) + "goal 0 1 2\ngoal 7 0 3 0 0 1 1 0 1\n", {}},
        {state_machine,
         std::string(state_head) + "stones 1\n* 0\n. 1 x\n. 1  2\nstone -\n=> 0 1\n",
         {"line 3 is ignored", "line 4 lacks fields", "line 5 lacks fields", "line 6 lacks fields",
          "line 7 lacks fields", "line 8 lacks fields"}},
        {state_machine,
         std::string(state_head) + "=> 0 1 0 0 0\n=> 0 1 0 0 0 \"A\n=> 0 1 0 0 0 A\"\n",
         {"line 3 lacks fields", "line 4 lacks fields", "line 5 lacks fields"}},
        {state_machine,
         std::string(state_head) + "stone 1 2\n* 0 0 \nhand 3\n",
         {"line 3 goes on after its last field", "line 4 goes on after its last field",
          "line 5 means nothing to this family"}},
        {turing_machine,
         "map 0 0 1\nwin 0\ndeck 1 1 1 1\ngoal 0 0 0 1 1\n",
         {"line 4 lacks fields", "no \"tape\" line: that of the map before holds"}},
    };
    for (const auto& row : rows) {
        EXPECT_THAT(lines_check(str_of(row.text), row.family), ElementsAreArray(row.remarks))
            << row.text;
    }
}

TEST_F(checks_test, WhatTheRulesMakeDoubtfulIsNamed) {
    struct {
        machine_kind_value family;
        std::string text;
        std::vector<std::string> remarks;
    } const rows[] = {
        {state_machine, "stone 0\n. 0 0\n* 1 0\n=> 0 1 0\n", {}},
        {state_machine,
         "stone 0\nstone 7\n. 0 0\n* 1 0\n* 2 0\n=> 0 1 0\n=> 0 1 0\n=> 1 9 0\n",
         {"stone 1 stands on missing state 7", "transition 2 (1 to 9) names a missing state",
          "transition 1 (0 to 1) stands behind another one: humans cannot use it",
          "no stone can reach state 2", "state 1 accepts but has a way out"}},
        {state_machine,
         "win 0\nstone 0\n. 0 0\n. 1 0\n=> 0 1 0\n",
         {"state 1 has no way out but does not accept",
          "win mode: another than the last mover may win"}},
        {state_machine,
         "stone 0\n. 0 0\n. 1 0\n=> 0 1 0\n=> 1 0 0\n",
         {"win mode: no state accepts, so nobody can win", "unknown nimbers: the map has a cycle"}},
        {pushdown_machine, "stone 0\n. 0 0\n=> 0 0 0 0 0 \"~(A,B)|!(TC)&1\"\n", {}},
        {pushdown_machine,
         "stone 0\n. 0 0\n=> 0 0 9 0 0 \"A\"\n=> 0 0 9 0 0 \"hi %a\"\n=> 0 0 8 0 0 \"hi %a\"\n"
         "=> 0 0 9 0 0 \"hi\"\n",
         {"transition 2 (0 to 0) stands behind another one: humans cannot use it",
          "transition 3 (0 to 0) stands behind another one: humans cannot use it",
          "transition 2 (0 to 0) has a rule that does not parse",
          "transition 3 (0 to 0) has a rule that does not parse"}},
        {pushdown_machine,
         "stone 0\n. 0 0\n. 1 0\n. 2 0\n=> 0 1 0 0 0 \"~(A,B)\"\n=> 1 0 0 0 0 \"C\"\n"
         "=> 0 2 0 0 0 \"A&\"\n",
         {"no stone can reach state 2",
          "transition 1 (1 to 0) has a rule that no card in play ever meets",
          "transition 2 (0 to 2) has a rule that does not parse",
          "no card can be played on the empty pile: the game cannot begin"}},
        {pushdown_machine,
         "hand 9\nwin 7\n. 0 0\n=> 0 0 0 0 0 \"*\"\n",
         {"win mode 7 does not exist", "the deck holds too few cards for two hands"}},
        {turing_machine,
         "stone 0\n. 0 0\n. 1 0\n=> 0 1 0 0 0 \"AR\"\n=> 1 0 0 0 0 \"R\"\n=> 0 0 0 0 0 \"\"\n"
         "=> 1 1 0 0 0 \".L\"\n",
         {"transition 1 (1 to 0) has an action that does nothing",
          "transition 2 (0 to 0) has an action that does nothing", "no goal: nobody can win"}},
        {turing_machine,
         "goal 0 2 7\ngoal 0 0 9\ngoal 4 2 1 5 0 1\ngoal 4 2 3 2 0 1\ngoal 1 1 3\ngoal 3 0 2\n"
         "goal 8 0 4 0 0 1 1 1 1\nstone 0\n. 0 0\n=> 0 0 0 0 0 \"3R\"\n=> 0 0 0 0 0 \"C\"\n",
         {"transition 1 (0 to 0) stands behind another one: humans cannot use it",
          "goal 2 is met by no tape", "goal 4 is met by every tape", "goal 6 is met by no tape"}},
    };
    const char* heads[] = {state_head, pushdown_head, turing_head};
    for (const auto& row : rows) {
        remarks found;
        output_of([&] {
            load(row.family, heads[row.family] + row.text);
            found = map_check(false);
        });
        EXPECT_THAT(found, ElementsAreArray(row.remarks)) << row.text;
    }
}

TEST_F(checks_test, ACycleThatIsMeantIsNotNamed) {
    output_of([&] { load(state_machine, "win 2\nstone 0\n. 0 0\n* 1 0\n=> 0 1 0\n=> 1 0 0\n"); });
    EXPECT_THAT(map_check(true), ElementsAre());
    EXPECT_THAT(map_check(false), ElementsAre("unknown nimbers: the map has a cycle",
                                              "state 1 accepts but has a way out"));
}

TEST_F(checks_test, WhatIsHardToReadOnTheBoardIsNamed) {
    // Pixels from the middle of the window; the free part is 1024 wide and from -240 to 256 high.
    struct {
        std::string text;
        std::vector<std::string> remarks;
    } const rows[] = {
        {". -200 0\n. 200 0\n=> 0 1 2 0 40 \"AR\"\n=> 1 0 2 0 -40 \"~(1,2)\"\n"
         "=> 0 0 90 -57 0 \"A\"\n=> 1 1 -90 132 0 \"A|B\"\n",
         {}},
        {". 480 -208\n. -480 224\n", {}},
        {". 481 0\n. 0 225\n. 0 -209\n",
         {"state 0 leaves the window or lies under a band",
          "state 1 leaves the window or lies under a band",
          "state 2 leaves the window or lies under a band"}},
        {". 0 0\n. 60 0\n", {"state 1 overlaps state 0"}},
        {". -200 0\n. 0 20\n. 200 0\n=> 0 2 0\n", {"transition 0 (0 to 2) runs through state 1"}},
        {". -200 0\n. 200 0\n=> 0 1 0\n=> 1 0 0\n",
         {"transition 1 (1 to 0) overlaps transition 0 (0 to 1)"}},
        {". -200 -200\n. 200 200\n. -200 200\n. 200 -200\n=> 0 1 0\n=> 2 3 0\n", {}},
        {". 0 180\n. -200 180\n=> 0 0 0\n=> 0 1 0\n=> 0 0 90\n",
         {"transition 0 (0 to 0) leaves the window or lies under a band",
          "transition 2 (0 to 0) overlaps transition 1 (0 to 1)"}},
        {". -200 0\n. 200 0\n. -200 100\n. 200 100\n=> 0 1 0 0 80 \"1\"\n=> 2 3 0 0 -24 \"2\"\n",
         {"label of transition 1 (2 to 3) lies over the label of transition 0 (0 to 1)"}},
        {". -200 0\n. 200 0\n. -200 100\n. 200 100\n=> 0 1 0 0 10 \"1\"\n=> 2 3 0 -200 -80 \"A\"\n",
         {"label of transition 0 (0 to 1) lies over transition 0 (0 to 1)",
          "label of transition 1 (2 to 3) lies over state 0"}},
        {". -200 0\n. 200 0\n=> 0 1 0 0 248 \"1\"\n=> 0 0 90 -70 0 \"A\"\n",
         {"label of transition 0 (0 to 1) leaves the window or lies under a band",
          "label of transition 1 (0 to 0) lies over transition 1 (0 to 0)"}},
    };
    for (const auto& row : rows) {
        load(pushdown_machine, "map 0 0 1\n" + row.text);
        std::vector<std::string> found = layout_check();
        EXPECT_THAT(found, testing::UnorderedElementsAreArray(row.remarks)) << row.text;
    }
}

}  // namespace
