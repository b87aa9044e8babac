// SPDX-License-Identifier: MIT
#include "songfile/song_format.h"

#include <algorithm>

#include "music/lengths.h"
#include "music/notes.h"
#include "shell/lower_case.h"
#include "shell/program_info.h"

namespace quavix {
namespace {

std::string_view EmptyForHyphen(std::string_view cell) {
    return cell == "-" ? std::string_view() : cell;
}

/// Converts carriage returns that end a line alone into line feeds.
void EndLinesInLineFeeds(std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n'))
            text[i] = '\n';
    }
}

bool IsLength(std::string_view text) {
    std::string noMod;
    return GetEquivalentLength(text, noMod) > 0;
}

/// Returns true for an empty text, or a note name and an octave of the keyboard, "C#4" to "B256".
bool IsNoteOrNone(std::string_view text) {
    constexpr std::size_t MostDigits = 3;
    if (text.empty())
        return true;
    const std::size_t name = text.substr(0, 2).ends_with('#') ? 2 : 1;
    const std::string_view octave = text.substr(name);
    const std::int16_t note = FindNoteNum(text.substr(0, name));
    return note >= 0 && NoteNumToLetter(note) == text.substr(0, name) && !octave.empty() &&
           octave.size() <= MostDigits && octave.find_first_not_of("0123456789") == std::string_view::npos;
}

bool IsMod(std::string_view text) {
    const std::string lower = LowerCase(text);
    return lower.empty() || lower == "dot" || lower == "tri";
}

/// Returns true if the program itself could have written these cells; other text is rejected.
bool IsMusic(std::string_view length, std::string_view note1, std::string_view note2, std::string_view mod) {
    return IsLength(length) && IsNoteOrNone(note1) && IsNoteOrNone(note2) && IsMod(mod);
}

std::span<char> WithoutBlanksAtEnd(std::span<char> line) {
    while (!line.empty() && (line.back() == ' ' || line.back() == '\t'))
        line = line.first(line.size() - 1);
    return line;
}

constexpr std::size_t WriteSize = std::size_t{64} * 1024;

/// Collects lines into large pieces. After an error all further lines are dropped.
class LineWriter {
  public:
    explicit LineWriter(FileWriter& file) : file_(file) { buffer_.reserve(2 * WriteSize); }

    void Line(std::string_view key, std::string_view value = {}) {
        buffer_ += key;
        buffer_ += value;
        buffer_ += "\r\n";
        if (buffer_.size() >= WriteSize)
            Flush();
    }
    void NumberLine(std::string_view key, std::int32_t value) { Line(key, std::to_string(value)); }
    void CheckLine(std::string_view key, bool value) { Line(key, value ? "1" : "0"); }

    bool Failed() const { return static_cast<bool>(error_); }

    std::error_code Finish() {
        Flush();
        return error_;
    }

  private:
    void Flush() {
        if (!error_ && !buffer_.empty())
            error_ = file_.Write(buffer_);
        buffer_.clear();
    }

    FileWriter& file_;
    std::string buffer_;
    std::error_code error_;
};

void WriteSettings(const SongFields& song, const EntryOptions& entry, LineWriter& lines) {
    lines.Line(SongHeader);
    lines.NumberLine("Revision ", program::Revision);
    // The comments are the captions in the main window.
    lines.Line("//Pitch and timing settings");
    lines.NumberLine("KeyboardOctave ", entry.KeyboardOctave);
    lines.NumberLine("BPM ", song.BPM);
    lines.NumberLine("TimeSig ", song.BeatsPerBar);
    lines.NumberLine("NoteSilenceRatio ", song.NoteSilenceRatio);
    lines.NumberLine("NoteLength ", entry.NoteLengthCombo.Get());
    lines.Line("AlternateTime ", song.AlternateTime.Text());
    lines.Line("//Editing settings");
    lines.Line("//When key is clicked,");
    lines.CheckLine("NoteClickPlay ", entry.NoteClickPlayCheck.Get());
    lines.Line("//Adding note");
    lines.CheckLine("NoteClickAdd ", entry.NoteClickAddCheck.Get());
    lines.CheckLine("AddNote1 ", entry.AddNote1Option.Get());
    lines.CheckLine("AddNote2 ", entry.AddNote2Option.Get());
    lines.CheckLine("NoteReplace ", entry.NoteReplaceCheck.Get());
    lines.CheckLine("NoteLengthReplace ", entry.NoteLengthReplaceCheck.Get());
    lines.Line("//Which notes in list to play");
    lines.Line("//When a line is clicked,");
    lines.CheckLine("ClickPlayNote1 ", song.ClickPlayNote1Check.Get());
    lines.CheckLine("ClickPlayNote2 ", song.ClickPlayNote2Check.Get());
    lines.Line("//When the music is being played,");
    lines.CheckLine("PlayNote1 ", song.PlayNote1Check.Get());
    lines.CheckLine("PlayNote2 ", song.PlayNote2Check.Get());
}

void WriteMusic(const MusicList& list, LineWriter& lines) {
    lines.Line(MusicListStart);
    lines.Line("//Length Note1 Note2");
    const std::int32_t count = list.Count();
    std::string line;
    for (std::int32_t row = 1; row <= count && !lines.Failed(); ++row) {
        line.clear();
        AppendLineText(line, list, row);
        lines.Line(line);
    }
}

}  // namespace

bool AtStartOfString(std::string_view stringToUse, std::string_view textToLookFor) {
    return stringToUse.starts_with(textToLookFor);
}

std::string GetSettingName(std::string_view saveLine) {
    if (saveLine.empty())
        return {};
    const std::size_t blank = saveLine.find(' ');
    return LowerCase(saveLine.substr(0, blank == std::string_view::npos ? saveLine.size() - 1 : blank));
}

std::string GetSettingValue(std::string_view saveLine, DebugLog& log) {
    log.Text("GetSettingValue(\"{}\")", saveLine);
    const std::size_t blank = saveLine.find(' ');
    return std::string(blank == std::string_view::npos ? saveLine : saveLine.substr(blank + 1));
}

bool IsMusicListStart(std::string_view line) {
    return LowerCase(line.substr(0, MusicListStart.size())) == LowerCase(MusicListStart);
}

MusicLineText SplitMusicLine(std::span<char> line) {
    const std::string_view text(line.data(), line.size());
    const std::size_t first = text.find(' ');
    if (first == std::string_view::npos)
        return {};
    MusicLineText cells{.Length = text.substr(0, first)};
    const std::size_t second = text.find(' ', first + 1);
    if (second == std::string_view::npos)
        return cells;
    std::size_t third = text.find(' ', second + 1);
    if (third == std::string_view::npos)
        third = text.size();
    for (char& c : line.subspan(first + 1, third - first - 1)) {
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    }
    cells.Note1 = EmptyForHyphen(text.substr(first + 1, second - first - 1));
    cells.Note2 = EmptyForHyphen(text.substr(second + 1, third - second - 1));
    if (third < text.size())
        cells.Mod = EmptyForHyphen(text.substr(third + 1));
    cells.Complete = true;
    return cells;
}

std::error_code WriteSong(const SongFields& song, const EntryOptions& entry, const MusicList& list,
                          FileWriter& file) {
    LineWriter lines(file);
    WriteSettings(song, entry, lines);
    WriteMusic(list, lines);
    return lines.Finish();
}

void AppendLineText(std::string& text, const MusicList& list, std::int32_t row) {
    text += list.Text(row, Cell::Length);
    for (const Cell cell : {Cell::Note1, Cell::Note2, Cell::Mod}) {
        const std::string_view content = list.Text(row, cell);
        text += ' ';
        text += content.empty() ? "-" : content;
    }
}

std::string TextOfLines(const MusicList& list, std::span<const std::int32_t> rows) {
    const bool allMusic = std::all_of(rows.begin(), rows.end(), [&list](std::int32_t row) {
        return IsMusic(list.Text(row, Cell::Length), list.Text(row, Cell::Note1), list.Text(row, Cell::Note2),
                       list.Text(row, Cell::Mod));
    });
    std::string text;
    if (!allMusic) {
        text += MusicListStart;
        text += '\n';
    }
    for (const std::int32_t row : rows) {
        AppendLineText(text, list, row);
        text += '\n';
    }
    return text;
}

LinesOfText ReadLines(std::string text) {
    EndLinesInLineFeeds(text);
    const bool asTheyAre = IsMusicListStart(text);
    LinesOfText read;
    bool inList = false;
    TextLines lines(text);
    while (lines.Next()) {
        const std::string_view line = lines.Text();
        if (!inList && IsMusicListStart(line)) {
            inList = true;
            read = {};
            continue;
        }
        if (line.find_first_not_of(" \t") == std::string_view::npos || line.starts_with("//"))
            continue;
        const MusicLineText cells =
            SplitMusicLine(asTheyAre ? lines.Line() : WithoutBlanksAtEnd(lines.Line()));
        if (!cells.Complete || !(asTheyAre || IsMusic(cells.Length, cells.Note1, cells.Note2, cells.Mod))) {
            ++read.Rejected;
            continue;
        }
        read.Lines.push_back({std::string(cells.Length), std::string(cells.Note1), std::string(cells.Note2),
                              std::string(cells.Mod)});
    }
    return read;
}

}  // namespace quavix
