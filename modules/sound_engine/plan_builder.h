// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "sound_engine/graph.h"
#include "sound_engine/plan.h"

namespace quavix::sound_engine {

/// The steps that mix what the graph says; see "What sounds through what" in README.md. What nobody can hear
/// has no steps.
std::unique_ptr<Plan> BuildPlan(Graph& graph);

}  // namespace quavix::sound_engine
