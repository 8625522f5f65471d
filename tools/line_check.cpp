#include "tools/line_check.h"

#include "maps/records.h"
#include "maps/scan.h"

namespace {

bool skip(text_cursor& cursor, str word) {
    bool found = text_has_prefix(cursor, word);
    cursor.position += found ? word.length : 0;
    return found;
}

bool quoted_text_skip(text_cursor& cursor) {
    if (!skip(cursor, "\"")) {
        return false;
    }
    text_scan_until(cursor, '"');
    return skip(cursor, "\"");
}

// Whether a field of the kind stands at the cursor, which moves past it.
bool field_skip(text_cursor& cursor, char kind) {
    if (kind == field_quoted) {
        return quoted_text_skip(cursor);
    }
    i64 start = cursor.position;
    if (kind == field_real || kind == field_offset) {
        text_scan_real(cursor);
    } else {
        text_scan_int(cursor);
    }
    return cursor.position > start && cursor.data[cursor.position - 1] != '-';
}

bool fields_skip(text_cursor& cursor, str kinds, bool first) {
    for (char kind : kinds) {
        if ((!first && !skip(cursor, " ")) || !field_skip(cursor, kind)) {
            return false;
        }
        first = false;
    }
    return true;
}

bool at_end(const text_cursor& cursor) {
    str rest = {cursor.data + cursor.position, cursor.size - cursor.position};
    return rest.length == 0 || rest == str("\r");
}

// What is wrong after the keyword; empty when nothing is.
std::string fields_check(text_cursor cursor, const record_form& form) {
    if (!fields_skip(cursor, form.fields, true)) {
        return "lacks fields";
    }
    for (i64 group = 0; group < form.groups && text_has_prefix(cursor, " "); ++group) {
        if (!fields_skip(cursor, form.group, false)) {
            return "lacks fields";
        }
    }
    return at_end(cursor) ? "" : "goes on after its last field";
}

const record_form* form_find(const text_cursor& line) {
    for (const record_form& form : record_forms) {
        if (text_has_prefix(line, form.keyword)) {
            return &form;
        }
    }
    return nullptr;
}

bool is_meant_to_be_ignored(const text_cursor& line) {
    return at_end(line) || text_has_prefix(line, "#");
}

std::string line_check(text_cursor line, u8 family) {
    const record_form* form = form_find(line);
    if (form == nullptr) {
        return is_meant_to_be_ignored(line) ? "" : "is ignored";
    }
    if ((form->families & family) == 0) {
        return "means nothing to this family";
    }
    line.position += form->keyword.length;
    return fields_check(line, *form);
}

bool has_line(str text, str keyword) {
    text_cursor cursor = {text.data, text.length, 0};
    for (; cursor.position < cursor.size; cursor.position += 1) {
        if (text_has_prefix(cursor, keyword)) {
            return true;
        }
        text_scan_until(cursor, '\n');
    }
    return false;
}

}  // namespace

void lines_check(str text, machine_kind_value family, remarks& found) {
    u8 family_bit = static_cast<u8>(1 << family);
    text_cursor cursor = {text.data, text.length, 0};
    for (i64 number = 1; cursor.position < cursor.size; ++number, cursor.position += 1) {
        str line = text_scan_until(cursor, '\n');
        std::string wrong = line_check({line.data, line.length, 0}, family_bit);
        if (!wrong.empty()) {
            found.doubtful.push_back("line " + std::to_string(number) + " " + wrong);
        }
    }
    for (const record_form& form : record_forms) {
        if ((form.needed_by & family_bit) != 0 && !has_line(text, form.keyword)) {
            std::string keyword(form.keyword.begin(), form.keyword.end() - 1);
            found.doubtful.push_back("no \"" + keyword + "\" line: that of the map before holds");
        }
    }
}
