// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>

#include "ports/clipboard.h"
#include "simulation/simulated_time.h"
#include "simulation/timeline.h"

namespace quavix {

/// A clipboard of the program's own. What the program sets is written to the timeline, with "|" for the ends
/// of lines.
class SimulatedClipboard : public Clipboard {
  public:
    SimulatedClipboard(SimulatedTime& time, Timeline& timeline) : time_(time), timeline_(timeline) {}

    void SetText(const std::string& text) override {
        std::string line = text;
        for (char& c : line)
            c = c == '\n' ? '|' : c;
        timeline_.Record(time_.Now(), "clipboard " + line);
        text_ = text;
    }
    std::string Text() override { return text_; }

    /// What another program puts there.
    void Put(std::string text) { text_ = std::move(text); }

  private:
    SimulatedTime& time_;
    Timeline& timeline_;
    std::string text_;
};

}  // namespace quavix
