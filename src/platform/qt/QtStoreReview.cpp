// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/QtPorts.h"

namespace uke {

// A desktop has neither the platform's review request nor an in-app store sheet.
std::unique_ptr<StoreReview> makeQtStoreReview() { return std::make_unique<NoStoreReview>(); }

} // namespace uke
