// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

// Texts that both the windows and the song file show.
namespace quavix::caption {

// Frames of the main window; the song file has them as comments.
inline constexpr std::string_view NoteClickFrame = "When key is clicked,";
inline constexpr std::string_view AddingNoteFrame = "Adding note";
inline constexpr std::string_view NotesToPlayFrame = "Which notes in list to play";
inline constexpr std::string_view LineClickFrame = "When a line is clicked,";
inline constexpr std::string_view MusicPlayFrame = "When the music is being played,";

/// What the file dialogs offer.
inline constexpr std::string_view SongFilter = "This program's file type (*.QVX)|*.QVX|All files (*.*)|*.*";

}  // namespace quavix::caption
