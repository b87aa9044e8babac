// SPDX-License-Identifier: MIT
#pragma once

#include "songfile/song_document.h"

namespace quavix {

/// The windows' part in saving and loading.
///
/// Thread: the user-interface thread. No call runs handlers.
class SaveLoadView {
  public:
    virtual ~SaveLoadView() = default;

    /// Shows or hides the save/load window. Showing returns at once; the choice comes as a click.
    virtual void ShowSaveLoadForm(bool show) = 0;

    /// Enables or disables the main window's input.
    virtual void EnableMainForm(bool enable) = 0;

    virtual void BringMainFormToFront() = 0;
};

/// The clicks of the save/load window, and the click that opens it. The main window is disabled while the
/// window is open. After saving or loading, even if an error is raised, the window is closed and the main
/// window enabled again.
class SaveLoad {
  public:
    SaveLoad(SaveLoadView& view, SongDocument& document) : view_(view), document_(document) {}

    void SaveLoadButton_Click();
    void SaveButton_Click();
    void LoadButton_Click();
    void CancelButton_Click();

  private:
    void Close();

    SaveLoadView& view_;
    SongDocument& document_;
};

}  // namespace quavix
