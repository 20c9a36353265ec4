// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/ChordShape.h"

namespace uke {

int ChordShape::fretOfRow(int row) const {
    if (!label)
        return row;
    if (label->position == FretLabelPosition::R1)
        return label->number + row - 1;
    return label->number + row - 2;
}

std::string_view fretLabelPositionName(FretLabelPosition position) {
    switch (position) {
    case FretLabelPosition::R1: return "R1";
    case FretLabelPosition::R2: return "R2";
    case FretLabelPosition::L2: return "L2";
    }
    return "R1";
}

namespace {

bool fail(std::string* error, std::string reason) {
    if (error)
        *error = std::move(reason);
    return false;
}

// Adds one mark character to a string's marks; a repeated mark is an error.
bool addMark(char c, StringMarks& marks, std::string* error) {
    if (c == 'o') {
        if (marks.open)
            return fail(error, "open mark given twice on one string");
        marks.open = true;
    } else if (c == 'x') {
        if (marks.muted)
            return fail(error, "muted mark given twice on one string");
        marks.muted = true;
    } else if (c >= '1' && c <= '4') {
        const auto bit = static_cast<uint8_t>(1u << (c - '1'));
        if (marks.rows & bit)
            return fail(error, std::string("row ") + c + " given twice on one string");
        marks.rows |= bit;
    } else {
        return fail(error, std::string("unexpected '") + c + "' in a shape");
    }
    return true;
}

bool parseLabel(std::string_view text, FretLabel& label, std::string* error) {
    // "R1=5"
    if (text.size() != 4 || text[2] != '=')
        return fail(error, "fret label must look like R1=5, R2=3 or L2=3");
    const std::string_view where = text.substr(0, 2);
    if (where == "R1")
        label.position = FretLabelPosition::R1;
    else if (where == "R2")
        label.position = FretLabelPosition::R2;
    else if (where == "L2")
        label.position = FretLabelPosition::L2;
    else
        return fail(error, "fret label position must be R1, R2 or L2");
    if (text[3] < '2' || text[3] > '9')
        return fail(error, "fret label number must be 2 to 9");
    label.number = text[3] - '0';
    return true;
}

} // namespace

std::optional<ChordShape> parseShapeNotation(std::string_view text, std::string* error) {
    ChordShape shape;
    std::string_view marks = text;
    if (const size_t slash = text.find('/'); slash != std::string_view::npos) {
        FretLabel label;
        if (!parseLabel(text.substr(slash + 1), label, error))
            return std::nullopt;
        shape.label = label;
        marks = text.substr(0, slash);
    }
    int position = 0; // 0 is string 4, the first written
    size_t i = 0;
    while (i < marks.size()) {
        if (position == 4) {
            fail(error, "more than four strings in '" + std::string(text) + "'");
            return std::nullopt;
        }
        StringMarks& onString = shape.onString(4 - position);
        const char c = marks[i];
        if (c == '-') {
            ++i;
        } else if (c == '(') {
            const size_t close = marks.find(')', i);
            if (close == std::string_view::npos || close == i + 1) {
                fail(error, "unclosed or empty group in '" + std::string(text) + "'");
                return std::nullopt;
            }
            for (size_t k = i + 1; k < close; ++k)
                if (!addMark(marks[k], onString, error))
                    return std::nullopt;
            i = close + 1;
        } else {
            if (!addMark(c, onString, error))
                return std::nullopt;
            ++i;
        }
        ++position;
    }
    if (position != 4) {
        fail(error, "a shape gives four strings, '" + std::string(text) + "' gives " + std::to_string(position));
        return std::nullopt;
    }
    return shape;
}

std::string shapeNotation(const ChordShape& shape) {
    std::string out;
    for (int s = 4; s >= 1; --s) {
        const StringMarks& m = shape.onString(s);
        std::string group;
        if (m.open)
            group += 'o';
        if (m.muted)
            group += 'x';
        for (int r = 1; r <= 4; ++r)
            if (m.hasDot(r))
                group += static_cast<char>('0' + r);
        if (group.empty())
            out += '-';
        else if (group.size() == 1)
            out += group;
        else
            out += '(' + group + ')';
    }
    if (shape.label)
        out +=
            "/" + std::string(fretLabelPositionName(shape.label->position)) + "=" + std::to_string(shape.label->number);
    return out;
}

} // namespace uke
