// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/ChordCatalogue.h"

#include "platform/StringTable.h"

namespace uke {

namespace {

using RootNames = std::array<std::string_view, 12>;

// Naming systems 1..5; system 0 comes from the string tables.
constexpr std::array<RootNames, 5> kFixedRootNames = {{
    {"A", "A#/B♭", "B", "C", "C#/D♭", "D", "D#/E♭", "E", "F", "F#/G♭", "G", "G#/A♭"},
    {"La", "La#/Si♭", "Si", "Do", "Do#/Re♭", "Re", "Re#/Mi♭", "Mi", "Fa", "Fa#/Sol♭", "Sol", "Sol#/La♭"},
    {"La", "La#/Si♭", "Si", "Do", "Do#/Ré♭", "Ré", "Ré#/Mi♭", "Mi", "Fa", "Fa#/Sol♭", "Sol", "Sol#/La♭"},
    {"A", "A#/H♭", "H", "C", "C#/D♭", "D", "D#/E♭", "E", "F", "F#/G♭", "G", "G#/A♭"},
    {"Ля", "Ля#/Си♭", "Си", "До", "До#/Ре♭", "Ре", "Ре#/Ми♭", "Ми", "Фа", "Фа#/Соль♭", "Соль", "Соль#/Ля♭"},
}};

constexpr std::array<std::string_view, 4> kStandardStrings = {"G", "C", "E", "A"};
constexpr std::array<std::string_view, 4> kBaritoneStrings = {"D", "G", "B", "E"};
constexpr std::array<std::string_view, 4> kOpenCStrings = {"G", "C", "E", "G"};
constexpr std::array<std::string_view, 4> kOpenGStrings = {"D", "G", "B", "D"};

} // namespace

std::span<const std::string_view> ChordCatalogue::variantKeys(int64_t chart) {
    if (chart == 1 || chart == 2)
        return fullVariantKeys;
    if (chart == 3 || chart == 4)
        return shortVariantKeys;
    return {};
}

int ChordCatalogue::rootIndex(std::string_view key) {
    for (size_t i = 0; i < rootKeys.size(); ++i)
        if (rootKeys[i] == key)
            return static_cast<int>(i);
    return -1;
}

std::vector<std::string> ChordCatalogue::rootNames(int64_t language, const StringTable& strings) {
    std::vector<std::string> names;
    if (language == 0) {
        for (std::string_view key : rootKeys)
            names.push_back(strings.localized(std::string(key)));
    } else if (language >= 1 && language <= 5) {
        for (std::string_view name : kFixedRootNames[static_cast<size_t>(language - 1)])
            names.emplace_back(name);
    }
    return names;
}

std::string_view ChordCatalogue::titleKey(int64_t chart) {
    switch (chart) {
    case 1: return "ChordsTitleSCT";
    case 2: return "ChordsTitleB";
    case 3: return "ChordsTitleSl";
    case 4: return "ChordsTitleSlB";
    default: return {};
    }
}

std::span<const std::string_view> ChordCatalogue::openStrings(int64_t chart) {
    switch (chart) {
    case 1: return kStandardStrings;
    case 2: return kBaritoneStrings;
    case 3: return kOpenCStrings;
    case 4: return kOpenGStrings;
    default: return {};
    }
}

std::string_view ChordCatalogue::fretboardFamily(int64_t chart) {
    switch (chart) {
    case 2: return "bchords";
    case 3: return "slchords";
    case 4: return "slbchords";
    default: return {};
    }
}

std::string ChordCatalogue::spelledRoot(std::string_view rootKey, Spelling spelling) {
    // A black-key root key reads "<sharp>/<flat>".
    const size_t slash = rootKey.find('/');
    if (slash == std::string_view::npos)
        return std::string(rootKey);
    return std::string(spelling == Spelling::Sharps ? rootKey.substr(0, slash) : rootKey.substr(slash + 1));
}

std::string ChordCatalogue::chordName(std::string_view rootKey, std::string_view variantKey, Spelling spelling) {
    std::string name = spelledRoot(rootKey, spelling);
    if (variantKey != "-")
        name += variantKey;
    return name;
}

} // namespace uke
