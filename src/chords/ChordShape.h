// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace uke {

// Where a shape's fret number sits: beside row 1 on the right, or beside row 2 on
// the right or on the left. R2 and L2 name the same fret; the side is authored.
enum class FretLabelPosition { R1, R2, L2 };

struct FretLabel {
    FretLabelPosition position = FretLabelPosition::R1;
    int number = 0; // 2..9
    bool operator==(const FretLabel&) const = default;
};

// The marks of one string: a status mark above the grid and finger dots in any of
// the four rows. Authored shapes combine them freely (an open mark with a dot, a
// barre row with a higher finger), so none excludes another.
struct StringMarks {
    bool open = false;
    bool muted = false;
    uint8_t rows = 0; // bit r-1 set: a dot in row r

    bool hasDot(int row) const { return row >= 1 && row <= 4 && (rows >> (row - 1)) & 1u; }
    bool empty() const { return !open && !muted && rows == 0; }
    bool operator==(const StringMarks&) const = default;
};

// One authored fingering on the four-string, four-row grid.
struct ChordShape {
    std::array<StringMarks, 4> strings; // string 1 (the highest) first
    std::optional<FretLabel> label;

    // Marks of string s, 1..4.
    const StringMarks& onString(int s) const { return strings[static_cast<size_t>(s - 1)]; }
    StringMarks& onString(int s) { return strings[static_cast<size_t>(s - 1)]; }
    // The fret that row r (1..4) stands for: the grid starts at the nut unless a
    // label moves it up the neck.
    int fretOfRow(int row) const;
    bool operator==(const ChordShape&) const = default;
};

// Reads the compact cell notation of the chord charts: strings 4, 3, 2, 1 in that
// order, one position each ("o" open, "x" muted, a digit 1..4 a dot in that row,
// "-" nothing, a parenthesised group for several marks on one string), then an
// optional fret label "/R1=n", "/R2=n" or "/L2=n". Nothing, with a one-line reason
// in `error`, for text that is not a shape.
std::optional<ChordShape> parseShapeNotation(std::string_view text, std::string* error = nullptr);

// The notation of a shape; parseShapeNotation reads it back to the same shape.
std::string shapeNotation(const ChordShape& shape);

std::string_view fretLabelPositionName(FretLabelPosition position);

} // namespace uke
