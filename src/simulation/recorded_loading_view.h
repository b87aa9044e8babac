// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "simulation/simulated_time.h"
#include "simulation/timeline.h"
#include "songfile/loading_view.h"

namespace quavix {

/// Writes what the information mode shows to the timeline.
class RecordedLoadingView : public LoadingView {
  public:
    RecordedLoadingView(SimulatedTime& time, Timeline& timeline) : time_(time), timeline_(timeline) {}

    void ShowHideInfoText(bool show) override {
        InfoShown = show;
        timeline_.Record(time_.Now(), show ? "loading shown" : "loading hidden");
    }

    void SetInfoText(const std::string& text) override {
        InfoText = text;
        timeline_.Record(time_.Now(), "loading text " + text);
    }

    bool Progress(double ratio) override {
        Ratios.push_back(ratio);
        return !OnProgress || OnProgress(ratio);
    }

    bool InfoShown = false;
    std::string InfoText;
    /// Every progress told so far.
    std::vector<double> Ratios;
    /// Runs at every progress; false stops the load. Without it nothing does.
    std::function<bool(double)> OnProgress;

  private:
    SimulatedTime& time_;
    Timeline& timeline_;
};

}  // namespace quavix
