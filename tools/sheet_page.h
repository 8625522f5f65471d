#pragma once

// A work sheet as a page of HTML: an exercise on a page or more, then what solves them.

#include <string>
#include <vector>

#include "maps/card.h"

// Cards in a row, with the words before them; the marked one has a thick edge, -1 for none.
struct sheet_row {
    std::string words;
    std::vector<card> cards;
    i64 marked = -1;
};

struct sheet_exercise {
    std::string name;
    std::string picture;  // SVG
    std::vector<std::string> facts;
    std::vector<sheet_row> rows;
    std::vector<std::pair<std::string, std::string>> arrows;  // which, and what their rule says
    std::vector<std::string> tasks;                           // with lines for an answer below each
    std::vector<std::string> solutions;
};

// Prints on A4 and Letter alike and needs nothing beside itself.
std::string sheet_page(const std::vector<sheet_exercise>& exercises);
