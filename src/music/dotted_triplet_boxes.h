// SPDX-License-Identifier: MIT
#pragma once

#include "music/edit_history.h"
#include "music/main_fields.h"
#include "music/music_list.h"
#include "shell/debug_log.h"

namespace quavix {

/// The Dotted and Triplet boxes: at most one is ticked, and they write the Mod of the selected lines. Without
/// a selection they only preset the next note's Mod. Watches the boxes during the whole lifetime of the
/// fields, and must live as long.
class DottedTripletBoxes {
  public:
    DottedTripletBoxes(EntryOptions& entry, MusicList& list, EditHistory& history, DebugLog& log);
    DottedTripletBoxes(const DottedTripletBoxes&) = delete;
    DottedTripletBoxes& operator=(const DottedTripletBoxes&) = delete;

    void ModDottedCheck_Click();
    void ModTripletCheck_Click();

    /// Sets the boxes from the selected line without writing to it, so that it keeps its spelling ("DOT").
    /// Does nothing without a selection.
    void UpdateModButtons();

  private:
    void Clicked(bool ticked, Watched<bool>& other, const char* mod);

    EntryOptions& entry_;
    MusicList& list_;
    EditHistory& history_;
    DebugLog& log_;
    bool clearingOther_ = false;
    bool following_ = false;
};

}  // namespace quavix
