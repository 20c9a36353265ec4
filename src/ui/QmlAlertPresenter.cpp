// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "QmlAlertPresenter.h"

namespace uke {

void QmlAlertPresenter::present(const std::string& title, const std::string& message,
                                const std::vector<std::string>& buttons, Handler handler) {
    title_ = QString::fromStdString(title);
    message_ = QString::fromStdString(message);
    buttons_.clear();
    for (const auto& b : buttons)
        buttons_ << QString::fromStdString(b);
    handler_ = std::move(handler);
    visible_ = true;
    emit changed();
}

void QmlAlertPresenter::dismiss() {
    if (!visible_)
        return;
    visible_ = false;
    handler_ = nullptr;
    emit changed();
}

void QmlAlertPresenter::press(int index) {
    if (!visible_)
        return;
    auto handler = std::move(handler_);
    handler_ = nullptr;
    visible_ = false;
    emit changed();
    if (handler)
        handler(index);
}

} // namespace uke
