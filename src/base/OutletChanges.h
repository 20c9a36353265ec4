// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <map>
#include <string>
#include <string_view>
#include <variant>

#include "base/Outlets.h"

namespace uke {

// Remembers what a view was last shown of each outlet and finds what moved since,
// by the outlets' own equality: every front end (the Qt property maps, the page,
// the state file, the tool's lines) tells its view only what changed, and none
// converts an outlet that did not.
class OutletChanges {
public:
    using Value = std::variant<Label, ImageView, Button, Switch, Slider, Stepper, Picker>;

    // `walk(visit)` visits outlets as `visit(name, outlet)`, as a screen model's
    // forEachOutlet does; `changed(name, outlet)` is called for each one that
    // differs from the last seen under its name (or was never seen).
    template <class Walk, class Changed> void compare(Walk&& walk, Changed&& changed) {
        walk([&](const char* name, const auto& outlet) {
            using Kind = std::decay_t<decltype(outlet)>;
            const auto it = shown_.find(std::string_view(name));
            if (it != shown_.end()) {
                if (const Kind* last = std::get_if<Kind>(&it->second); last && *last == outlet)
                    return;
                it->second = outlet;
            } else {
                shown_.emplace(name, outlet);
            }
            changed(name, outlet);
        });
    }
    // Whether anything `walk` visits moved, remembering it.
    template <class Walk> bool moved(Walk&& walk) {
        bool any = false;
        compare(std::forward<Walk>(walk), [&](const char*, const auto&) { any = true; });
        return any;
    }

private:
    std::map<std::string, Value, std::less<>> shown_;
};

} // namespace uke
