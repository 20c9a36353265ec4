// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <string>

namespace uke {

// The platform's own review request and in-app store sheet, where they exist.
class StoreReview {
public:
    virtual ~StoreReview() = default;
    virtual bool reviewRequestAvailable() const = 0;
    virtual void requestReview() = 0;
    virtual bool storeSheetAvailable() const = 0;
    virtual void presentStoreSheet(const std::string& appId) = 0;
};

// Platforms with neither (a desktop, a browser).
class NoStoreReview : public StoreReview {
public:
    bool reviewRequestAvailable() const override { return false; }
    void requestReview() override {}
    bool storeSheetAvailable() const override { return false; }
    void presentStoreSheet(const std::string&) override {}
};

} // namespace uke
