// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <functional>
#include <string>
#include <vector>

namespace uke {

// A modal alert of the app's own, shown on the main thread.
class AlertPresenter {
public:
    // Called with the index of the chosen button.
    using Handler = std::function<void(int buttonIndex)>;
    virtual ~AlertPresenter() = default;
    virtual void present(const std::string& title, const std::string& message,
                         const std::vector<std::string>& buttons, Handler handler) = 0;
    virtual void dismiss() = 0;
};

} // namespace uke
