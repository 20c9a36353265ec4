// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// How `uke chord` and `uke chords` read chord names and draw shapes.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "chords/ChordCatalogue.h"
#include "chords/ChordShape.h"

namespace uke::tool {

// A root as a key ("A#/B♭") or spelled ("A#", "Bb", "B♭", "c"); the root key, or
// nothing.
std::optional<std::string_view> parseRoot(std::string_view text);
// A chord-type key ("m7", "-"), or "major" for the triad; the key, or nothing when
// no chart offers such a type.
std::optional<std::string_view> parseVariant(std::string_view text);

// A box-drawing diagram: open-string names, status marks, the four rows with their
// dots and the fret label, strings 4 to 1 from left to right.
std::string textDiagram(const ChordShape& shape, int64_t chart);
// A standalone SVG picture of the same, titled with `name`.
std::string svgDiagram(const ChordShape& shape, int64_t chart, const std::string& name);
// {"chart":..,"root":..,"type":..,"name":..,"notation":..,"strings":[..],"label":..}
std::string jsonShape(const ChordShape& shape, int64_t chart, std::string_view root, std::string_view variant,
                      const std::string& name);

} // namespace uke::tool
