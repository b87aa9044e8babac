// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>

#include <gtest/gtest.h>

#include "jack_server.h"
#include "support/held_errors.h"

namespace quavix::test {

/// A test with a private JACK server, which it has to start. The machine's own sound servers are out of
/// reach.
class SoundServerTest : public testing::Test {
  protected:
    SoundServerTest() { setenv("PULSE_SERVER", "unix:/nowhere/at/all", 1); }

    HeldErrors errors_;
    JackServer server_;
};

}  // namespace quavix::test
