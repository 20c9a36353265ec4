// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
.pragma library
// Colours of the app, in one place.
var background = "#17151c";
var backgroundTop = "#2b2433";
var panel = "#25212c";
var panelBorder = "#3a3443";
var text = "#f3ede4";
var muted = "#a79fb2";
var accent = "#f2b33d";
var good = "#5fd37a";
var danger = "#e0675a";
