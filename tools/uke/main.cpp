// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include <iostream>

#include "Commands.h"

int main(int argc, char** argv) {
    std::vector<std::string> words(argv + 1, argv + argc);
    return uke::tool::run(words, std::cout, std::cerr);
}
