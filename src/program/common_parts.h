// SPDX-License-Identifier: MIT
#pragma once

#include "music/main_fields.h"
#include "music/music_list.h"
#include "program/program_ports.h"
#include "shell/debug_log.h"
#include "shell/event_boundary.h"
#include "shell/waiting.h"

namespace quavix {

/// The parts of a program that all other groups use.
struct CommonParts {
    explicit CommonParts(const ProgramPorts& ports);

    ProgramPorts Ports;
    MainFields Fields;
    MusicList List;
    DebugLog Log;
    EventBoundary Handlers;
    Waiting Wait;
};

}  // namespace quavix
