// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "support/simulated_program.h"

namespace quavix::test {

inline const std::string Song = "/songs/song.QVX";
inline const std::string SavedSong = "/songs/saved.QVX";
inline const std::string Header = "Quavix by Dastrel-204 file format\r\n";

/// A program that loads songs from texts.
struct SongProgram : SimulatedProgram {
    /// Loads a file with this content.
    void LoadFile(std::string content) {
        Disk.Put(Song, std::move(content));
        App.Storage.SongReader.ActuallyLoadMusic(Song);
    }
    /// Loads a song with a header before this text.
    void Load(const std::string& afterHeader) { LoadFile(Header + afterHeader); }
    /// Loads a song of these music lines alone.
    void LoadMusic(const std::string& musicLines) { Load("MUSICLISTSTART\r\n" + musicLines); }

    /// Saves the song under a new name and gives the file's content.
    std::string Saved() {
        Disk.Delete(SavedSong);
        Picker.AnswerNext(SavedSong);
        App.Storage.SongWriter.SaveMusic();
        return Disk.Content(SavedSong);
    }

    /// The list, a line per row, its cells between bars.
    std::string Rows() const {
        std::string text;
        for (std::int32_t row = 1; row <= App.List.Count(); ++row) {
            const MusicLine line = App.List.Line(row);
            text += line.Length + "|" + line.Note1 + "|" + line.Note2 + "|" + line.Mod + "\n";
        }
        return text;
    }
};

}  // namespace quavix::test
