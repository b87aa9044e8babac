// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quavix {

/// The information mode of the save/load window: while a song is read, the window shows a text in the place
/// of its buttons.
///
/// Thread: the user-interface thread. Other handlers of the program may run inside Progress().
class LoadingView {
  public:
    virtual ~LoadingView() = default;

    /// Shows the information text and hides the buttons, or the other way round.
    virtual void ShowHideInfoText(bool show) = 0;

    /// Sets the information text (UTF-8, lines end in CR LF) and repaints it at once.
    virtual void SetInfoText(const std::string& text) = 0;

    /// How much of the work is done, as a ratio 0..1; only called while a long file is read. Returns false
    /// when the user wants to stop.
    virtual bool Progress(double ratio) = 0;
};

}  // namespace quavix
