// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Base for test suites that need the private PulseAudio server: one server for the
// whole program, started before the first such test and stopped when the program
// ends. A test is skipped when PulseAudio is not installed and fails when the
// server will not start.
#include <gtest/gtest.h>

#include "support/PulseServer.h"

namespace uke::test {

class PulseServerTest : public ::testing::Test {
public:
    static PulseServer& pulse() {
        static PulseServer server;
        return server;
    }

protected:
    void SetUp() override {
        if (!PulseServer::toolsAvailable())
            GTEST_SKIP() << "PulseAudio is not installed (pulseaudio, pactl, pacat and parec are needed)";
        if (!pulse().running()) {
            ASSERT_TRUE(pulse().start()) << "cannot start a private PulseAudio server: " << pulse().error();
        }
    }
};

} // namespace uke::test
