// SPDX-License-Identifier: MIT
#include "songfile/song_format.h"

#include <cstddef>
#include <string>
#include <string_view>

#include "music/line_text.h"
#include "music/music_line_text.h"
#include "shell/program_info.h"
#include "songfile/song_captions.h"
#include "songfile/song_text.h"

namespace quavix {
namespace {

constexpr std::size_t WriteSize = std::size_t{64} * 1024;

/// Gathers lines into large pieces. After an error everything is dropped.
class LineWriter {
  public:
    explicit LineWriter(FileWriter& file) : file_(file) { buffer_.reserve(2 * WriteSize); }

    LineWriter& Add(std::string_view text) {
        buffer_ += text;
        return *this;
    }

    void EndLine() {
        buffer_ += "\r\n";
        if (buffer_.size() >= WriteSize)
            Flush();
    }

    void Line(std::string_view key, std::string_view value) { Add(key).Add(value).EndLine(); }
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

void WriteSettings(const MainFields& fields, LineWriter& lines) {
    lines.Line(SongHeader, "");
    lines.NumberLine("Revision ", program::Revision);
    lines.Line("//", "Pitch and timing settings");
    lines.NumberLine("KeyboardOctave ", fields.KeyboardOctave);
    lines.NumberLine("BPM ", fields.BPM);
    lines.NumberLine("TimeSig ", fields.BeatsPerBar);
    lines.NumberLine("NoteSilenceRatio ", fields.NoteSilenceRatio);
    lines.NumberLine("NoteLength ", fields.NoteLengthCombo.Get());
    lines.Line("AlternateTime ", fields.AlternateTime.Text());
    lines.Line("//", "Editing settings");
    lines.Line("//", caption::NoteClickFrame);
    lines.CheckLine("NoteClickPlay ", fields.NoteClickPlayCheck.Get());
    lines.Line("//", caption::AddingNoteFrame);
    lines.CheckLine("NoteClickAdd ", fields.NoteClickAddCheck.Get());
    lines.CheckLine("AddNote1 ", fields.AddNote1Option.Get());
    lines.CheckLine("AddNote2 ", fields.AddNote2Option.Get());
    lines.CheckLine("NoteReplace ", fields.NoteReplaceCheck.Get());
    lines.CheckLine("NoteLengthReplace ", fields.NoteLengthReplaceCheck.Get());
    lines.Line("//", caption::NotesToPlayFrame);
    lines.Line("//", caption::LineClickFrame);
    lines.CheckLine("ClickPlayNote1 ", fields.ClickPlayNote1Check.Get());
    lines.CheckLine("ClickPlayNote2 ", fields.ClickPlayNote2Check.Get());
    lines.Line("//", caption::MusicPlayFrame);
    lines.CheckLine("PlayNote1 ", fields.PlayNote1Check.Get());
    lines.CheckLine("PlayNote2 ", fields.PlayNote2Check.Get());
}

void WriteMusic(const MusicList& list, LineWriter& lines) {
    lines.Line(MusicListStart, "");
    lines.Line("//", "Length Note1 Note2");
    const std::int32_t count = list.Count();
    std::string line;
    for (std::int32_t row = 1; row <= count && !lines.Failed(); ++row) {
        line.clear();
        AppendLineText(line, list, row);
        lines.Line(line, "");
    }
}

}  // namespace

std::error_code WriteSong(const MainFields& fields, const MusicList& list, FileWriter& file) {
    LineWriter lines(file);
    WriteSettings(fields, lines);
    WriteMusic(list, lines);
    return lines.Finish();
}

}  // namespace quavix
