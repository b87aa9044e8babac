// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "ports/event_pump.h"

namespace quavix {

/// The last words: a text written to a device when this process dies, even if it is killed. Each system
/// implements this class.
class LastWords {
  public:
    LastWords();
    ~LastWords();
    LastWords(const LastWords&) = delete;
    LastWords& operator=(const LastWords&) = delete;

    /// Takes effect until Withdraw() or the end of the object. Returns false, with the reason in Problem(),
    /// on failure.
    bool Leave(WaitHandle device, const std::string& words);

    void Withdraw();

    const std::string& Problem() const;

  private:
    struct Guard;
    std::unique_ptr<Guard> guard_;
};

}  // namespace quavix
