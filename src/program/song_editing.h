// SPDX-License-Identifier: MIT
#pragma once

#include "music/dotted_triplet_boxes.h"
#include "music/edit_history.h"
#include "music/list_editing.h"
#include "music/note_entry.h"
#include "playback/position_display.h"
#include "songfile/line_clipboard.h"

namespace quavix {

struct CommonParts;

/// The parts of a program that change the song, and show the position of a change.
struct SongEditing {
    explicit SongEditing(CommonParts& common);

    quavix::EditHistory EditHistory;
    quavix::DottedTripletBoxes DottedTripletBoxes;
    quavix::PositionDisplay PositionDisplay;
    quavix::NoteEntry NoteEntry;
    quavix::ListEditing ListEditing;
    quavix::LineClipboard LineClipboard;

    /// Shows the position of the selected line, unless the playing music uses the labels.
    void ShowPositionOfEdit();

  private:
    const ProgramState& state_;
};

}  // namespace quavix
