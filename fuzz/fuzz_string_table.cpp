// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
// Any text as a Linguist string table: parsed, and every entry looked up.
#include <cstdint>
#include <string_view>

#include "platform/virtual/TsStringTable.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    uke::TsStringTable table;
    if (!table.parse(std::string_view(reinterpret_cast<const char*>(data), size)))
        return 0;
    for (const auto& [context, entries] : table.tables())
        for (const auto& [key, text] : entries)
            (void)table.lookup(key, context);
    return 0;
}
