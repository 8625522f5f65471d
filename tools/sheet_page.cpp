#include "tools/sheet_page.h"

#include "tools/map_svg.h"

namespace {

constexpr i64 answer_lines = 3;

// The paper's size is the printer's, so widths are parts of it and heights fit the lower of the
// two.
constexpr const char* head =
    "<!DOCTYPE html>\n<html lang='en'>\n<head>\n<meta charset='utf-8'>\n"
    "<meta name='viewport' content='width=device-width'>\n<title>Work sheet</title>\n<style>\n"
    "@page { margin: 15mm }\n"
    "body { max-width: 178mm; margin: auto; font: 11pt/1.4 sans-serif; color: #000; "
    "background: #fff }\n"
    "section { break-before: page; padding: 1px 0 }\n"
    "section:first-of-type { break-before: auto }\n"
    "header { display: flex; justify-content: space-between; gap: 10mm; align-items: baseline }\n"
    "h1 { font-size: 18pt; margin: 0 }\nh2 { font-size: 13pt; margin: 6mm 0 1mm }\n"
    "figure { margin: 4mm 0; text-align: center }\n"
    "figure svg { width: 100%; max-height: 85mm }\n"
    "p { margin: 2mm 0 }\n"
    ".cards { display: flex; flex-wrap: wrap; gap: 2mm; align-items: center }\n"
    ".card { width: 12mm; height: 16.8mm }\n"
    "table { border-collapse: collapse; margin: 2mm 0; font-size: 10pt }\n"
    "td, th { border: 1px solid #999; padding: .5mm 2mm; text-align: left }\n"
    "td:first-child { min-width: 24mm }\n"
    ".answer { border-bottom: 1px solid #999; height: 9mm }\n"
    ".blank { flex: 1; border-bottom: 1px solid #999 }\n"
    "tr, .cards, .answer, figure { break-inside: avoid }\n"
    "h2, p:has(+ .answer) { break-after: avoid }\n"
    "</style>\n</head>\n<body>\n";

std::string escaped(const std::string& text) {
    std::string safe;
    for (char c : text) {
        safe += c == '<' ? "&lt;" : c == '&' ? "&amp;" : std::string(1, c);
    }
    return safe;
}

std::string element(const char* name, const std::string& text) {
    const std::string tag(name);
    return "<" + tag + ">" + escaped(text) + "</" + tag + ">\n";
}

std::string paragraphs(const std::vector<std::string>& texts) {
    std::string page;
    for (const std::string& text : texts) {
        page += element("p", text);
    }
    return page;
}

std::string row_text(const sheet_row& row) {
    std::string page = "<div class='cards'><span>" + escaped(row.words) + "</span>";
    for (std::size_t i = 0; i < row.cards.size(); ++i) {
        page += card_svg(row.cards[i], static_cast<i64>(i) == row.marked);
    }
    return page + "</div>\n";
}

std::string arrows_text(const sheet_exercise& exercise) {
    std::string page = exercise.arrows.empty() ? "" : "<table>\n<tr><th>arrow<th>what it says\n";
    for (const auto& [which, says] : exercise.arrows) {
        page += "<tr><td>" + escaped(which) + "<td>" + escaped(says) + "\n";
    }
    return exercise.arrows.empty() ? page : page + "</table>\n";
}

std::string tasks_text(const sheet_exercise& exercise) {
    std::string page;
    for (const std::string& task : exercise.tasks) {
        page += element("p", task);
        for (i64 line = 0; line < answer_lines; ++line) {
            page += "<div class='answer'></div>\n";
        }
    }
    return page;
}

std::string exercise_text(const sheet_exercise& exercise) {
    std::string page = "<section>\n<header>" + element("h1", exercise.name) +
                       "<span>Name:</span><span class='blank'></span></header>\n<figure>\n" +
                       exercise.picture + "</figure>\n" + paragraphs(exercise.facts);
    for (const sheet_row& row : exercise.rows) {
        page += row_text(row);
    }
    return page + arrows_text(exercise) + tasks_text(exercise) + "</section>\n";
}

}  // namespace

std::string sheet_page(const std::vector<sheet_exercise>& exercises) {
    std::string page = head + symbols_svg();
    for (const sheet_exercise& exercise : exercises) {
        page += exercise_text(exercise);
    }
    page += "<section>\n" + element("h1", "Solutions");
    for (const sheet_exercise& exercise : exercises) {
        page += element("h2", exercise.name) + paragraphs(exercise.solutions);
    }
    return page + "</section>\n</body>\n</html>\n";
}
