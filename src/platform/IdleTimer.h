// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace uke {

// Whether the screen may dim and lock while nobody touches the device. The tuner
// keeps it lit while it listens: a player's hands are on the instrument.
class IdleTimer {
public:
    virtual ~IdleTimer() = default;
    virtual void setIdleTimerDisabled(bool disabled) = 0;
};

} // namespace uke
