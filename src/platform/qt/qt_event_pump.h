// SPDX-License-Identifier: MIT
#pragma once

#include "ports/event_pump.h"

namespace quavix {

/// The event pump on Qt's event loop. Needs the application object; handles are file descriptors.
class QtEventPump : public EventPump {
  public:
    std::uint32_t WaitForInput(std::span<const WaitHandle> handles, std::uint32_t timeoutMs) override;
    void DoEvents() override;
};

}  // namespace quavix
