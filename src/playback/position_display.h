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

/// The three labels that show where the music is, and the option that stops them during playback. Positions
/// are in whole notes from the start of line 1.
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

    /// Puts the start of line `currentLine` into `position`; below 1 it is the position after the last line,
    /// and without any line -1, with the labels at "001".
    void WorkOutPlayPos(std::int32_t currentLine, double& position);

    /// Sets the labels from a position.
    void ShowPosition(double position);

    /// Both of the above for the really selected line, or for the end of the song without one.
    void ShowSelectedLine();

    /// The click on "Do not update": asks before it takes the beat sound away.
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
