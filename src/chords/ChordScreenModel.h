// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "base/Outlets.h"

namespace uke {

// clang-format off
#define UKE_CHORD_GRID_OUTLETS(X)                                                                    \
    X(ImageView, Str1Fr1) X(ImageView, Str1Fr2) X(ImageView, Str1Fr3) X(ImageView, Str1Fr4)           \
    X(ImageView, Str2Fr1) X(ImageView, Str2Fr2) X(ImageView, Str2Fr3) X(ImageView, Str2Fr4)           \
    X(ImageView, Str3Fr1) X(ImageView, Str3Fr2) X(ImageView, Str3Fr3) X(ImageView, Str3Fr4)           \
    X(ImageView, Str4Fr1) X(ImageView, Str4Fr2) X(ImageView, Str4Fr3) X(ImageView, Str4Fr4)

// Every outlet of the chord library screen, with the names the screen logic uses.
#define UKE_CHORD_OUTLETS(X)                                                                         \
    X(Label, chordsTitle1)                                                                           \
    X(Label, chordsTitle2)                                                                           \
    X(Button, buttonFlatOrSharp)                                                                     \
    X(Picker, selectRootChord)                                                                       \
    X(Picker, selectVariant)                                                                         \
    X(ImageView, ukuleleFretboard)                                                                   \
    X(ImageView, string1Status)                                                                      \
    X(ImageView, string2Status)                                                                      \
    X(ImageView, string3Status)                                                                      \
    X(ImageView, string4Status)                                                                      \
    UKE_CHORD_GRID_OUTLETS(X)                                                                        \
    X(ImageView, rightNumberFr1)                                                                     \
    X(ImageView, rightNumberFr2)                                                                     \
    X(ImageView, leftNumberFr2)                                                                      \
    X(Label, chordDisplay)
// clang-format on

struct ChordScreenModel {
#define UKE_DECLARE_OUTLET(kind, name) kind name;
    UKE_CHORD_OUTLETS(UKE_DECLARE_OUTLET)
#undef UKE_DECLARE_OUTLET

    // The screen as its layout first shows it: the standard neck picture, the
    // sharp/flat button offering flats, no chord yet.
    ChordScreenModel();

    // Status mark of string s (1..4) and grid cell of string s, row r (1..4).
    ImageView& stringStatus(int s);
    ImageView& cell(int s, int r);
    const ImageView& stringStatus(int s) const;
    const ImageView& cell(int s, int r) const;

    template <class Visitor> void forEachOutlet(Visitor&& visit) {
#define UKE_VISIT_OUTLET(kind, name) visit(#name, name);
        UKE_CHORD_OUTLETS(UKE_VISIT_OUTLET)
#undef UKE_VISIT_OUTLET
    }
    template <class Visitor> void forEachOutlet(Visitor&& visit) const {
#define UKE_VISIT_OUTLET(kind, name) visit(#name, name);
        UKE_CHORD_OUTLETS(UKE_VISIT_OUTLET)
#undef UKE_VISIT_OUTLET
    }
};

} // namespace uke
