// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "music/main_fields.h"
#include "music/music_list.h"
#include "playback/play_position.h"
#include "ports/message_boxes.h"
#include "shell/debug_log.h"

namespace quavix {

/// The three labels of the current position, and the option that stops their update during playback.
/// Positions are in whole notes from the start of line 1.
class PositionDisplay {
  public:
    PositionDisplay(const SongFields& song, const ModFields& mods, MusicList& list, MessageBoxes& boxes,
                    DebugLog& log);

    Watched<std::string> lblPlayBar{"001"};
    Watched<std::string> lblPlayPos{"001"};
    Watched<std::int32_t> lblPlayPosBackColor{colour::DarkGreen};
    Watched<std::string> lblPlaySig{"01.00"};
    Watched<bool> NoUpdateCheck{false};
    Watched<bool> NoUpdateCheckEnabled{true};

    /// Puts the start of line `currentLine` into `position`. Below 1, puts the end of the last line, or for
    /// an empty list -1, with the labels at "001".
    void WorkOutPlayPos(std::int32_t currentLine, double& position);

    /// Sets the labels from a position.
    void ShowPosition(double position);

    /// Does both for the really selected line, or without one for the end of the song.
    void ShowSelectedLine();

    /// Handles the click on "Do not update": asks first if that switches the beat sound off.
    void NoUpdateCheck_Click();
    void NoUpdateHButton_Click();

  private:
    void ShowEmpty();

    const SongFields& song_;
    const ModFields& mods_;
    MusicList& list_;
    MessageBoxes& boxes_;
    DebugLog& log_;
    PlayPosition position_;
};

}  // namespace quavix
