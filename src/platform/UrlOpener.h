// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <string>

namespace uke {

class UrlOpener {
public:
    virtual ~UrlOpener() = default;
    virtual void openUrl(const std::string& url) = 0;
};

} // namespace uke
