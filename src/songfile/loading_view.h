// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quavix {

/// The information mode of the save/load window: while a song is read, the window shows a text instead of its
/// buttons.
///
/// Thread: the user-interface thread. Other handlers may run inside Progress().
class LoadingView {
  public:
    virtual ~LoadingView() = default;

    /// Shows the information text and hides the buttons; with false, the reverse.
    virtual void ShowHideInfoText(bool show) = 0;

    /// Sets the information text (UTF-8, lines end in CR LF) and repaints it at once.
    virtual void SetInfoText(const std::string& text) = 0;

    /// Reports the finished share of the work, 0..1; called only while a long file is read. Returns false if
    /// the user wants to stop.
    virtual bool Progress(double ratio) = 0;
};

}  // namespace quavix
