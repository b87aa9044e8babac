// SPDX-License-Identifier: MIT
#include "songfile/song_reader.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "shell/file_access.h"
#include "shell/lower_case.h"
#include "shell/numbers.h"
#include "shell/program_info.h"
#include "shell/runtime_error.h"
#include "shell/scoped.h"
#include "songfile/song_format.h"
#include "songfile/song_settings.h"
#include "songfile/utf8_file.h"

namespace quavix {
namespace {

/// Shorter than the usual line "Quarter C4 - -": used to estimate the number of lines in a text.
constexpr std::size_t ShortUsualLine = 10;
constexpr std::int64_t LinesPerProgress = 20'000;

}  // namespace

LoadResult SongReader::LoadMusic() {
    const std::string fileName = picker_.AskForOpenName({.Title = "Loading music / config",
                                                         .Filter = std::string(SongFilter),
                                                         .FileMustExist = true,
                                                         .HideReadOnly = true});
    if (fileName.empty())
        return {};
    if (FileExists(fileName, files_, log_))
        return ActuallyLoadMusic(fileName);
    boxes_.Show({.Title = "Can't open file!",
                 .Text = "The file you want to open...\n" + fileName + "\n...can't be seen.",
                 .Icon = BoxIcon::Warning});
    return {};
}

LoadResult SongReader::ActuallyLoadMusic(const std::string& fileToLoad) {
    LogBlock block(log_, "ActuallyLoadMusic()", "ActuallyLoadMusic(\"{}\") - START", fileToLoad);
    block.CloseOnError();
    std::error_code error;
    auto file = files_.OpenForInput(fileToLoad, error);
    RaiseFileError(error, fileToLoad);
    view_.ShowHideInfoText(true);
    const AtScopeEnd hide([this] { view_.ShowHideInfoText(false); });
    view_.SetInfoText("Loading...");
    Utf8File reading(files_, view_, log_);
    std::optional<std::string> text = reading.Read(std::move(file), fileToLoad);
    if (!text) {
        log_.LogText("Loading was stopped");
        return {};
    }
    const bool hasHeader = AtStartOfString(*text, SongHeader);
    if (!hasHeader && !AskWhetherToLoadAnyway())
        return {};
    OnReplace();
    song_.BeatsPerBar.Reset();
    TextLines lines(*text);
    // The carriage returns are removed when each line is taken.
    log_.LogText("Removing new-line chars from value of each index in SplitFile()");
    const bool allSettings = LoadSettings(lines);
    log_.LogText("Loading music list");
    const bool allLines = LoadLines(lines, text->size());
    log_.LogText("EndOfLoadMusic");
    return {.Loaded = true,
            .Whole = hasHeader && allSettings && allLines && !reading.Repaired(),
            .FileName = fileToLoad};
}

bool SongReader::AskWhetherToLoadAnyway() {
    log_.LogText("File doesn't contain 'format text' at the start");
    return boxes_.Show(
               {.Title = "Probably weird file format",
                .Text = "This file doesn't contain this text at the start of it which says that it is in "
                        "this program's format: \n" +
                        std::string(SongHeader) +
                        "\n\nOf course, apart from that it could still be in this program's format.\n"
                        "Try to load it?",
                .Icon = BoxIcon::Warning,
                .Buttons = BoxButtons::YesNo}) == BoxAnswer::Yes;
}

bool SongReader::LoadSettings(TextLines& lines) {
    bool known = true;
    while (lines.Next()) {
        const std::string_view line = lines.Text();
        if (IsOfNewerRevision(line))
            known = false;
        if (IsMusicListStart(line))
            break;
        ApplySetting(line, song_, entry_, log_);
    }
    return known;
}

bool SongReader::IsOfNewerRevision(std::string_view line) {
    static constexpr std::string_view Key = "revision";
    if (LowerCase(line.substr(0, Key.size())) != Key)
        return false;
    const std::string_view revision = line.substr(Key.size());
    if (!IsNumeric(revision) || ToInt32(Val(revision)) <= program::Revision)
        return false;
    constexpr const char* Title = "File was made with newer program version";
    log_.LogText(Title);
    boxes_.Show(
        {.Title = Title,
         .Text = std::string("This file was made with a newer version of Quavix than you're using. As "
                             "long as it doesn't contain info about features only in a newer version, "
                             "there should be no problem opening it with this version.\r\n\r\n"
                             "However, I'll have made the newer version for a reason, so I recommend "
                             "that you download and use it instead.\r\n\r\nYou can get it from ") +
                 program::UpdateAddress});
    return true;
}

bool SongReader::LoadLines(TextLines& lines, std::size_t textSize) {
    bool whole = true;
    std::optional<MusicListReset> reset(list_);
    list_.Clear();
    const std::size_t rest = textSize - std::min(textSize, lines.NextStart());
    list_.Reserve(rest / ShortUsualLine);
    for (std::int64_t count = 1; lines.Next(); ++count) {
        if (count % LinesPerProgress == 0) {
            // The list's views must find it complete while handlers may run.
            reset.reset();
            const double ratio = static_cast<double>(lines.NextStart()) / static_cast<double>(textSize + 1);
            if (!view_.Progress(Utf8File::ProgressShare + (1 - Utf8File::ProgressShare) * ratio))
                return false;
            reset.emplace(list_);
        }
        const std::string_view line = lines.Text();
        if (line.empty() || line.starts_with("//"))
            continue;
        const MusicLineText cells = SplitMusicLine(lines.Line());
        list_.Append(cells.Length, cells.Note1, cells.Note2, cells.Mod);
        if (!cells.Complete) {
            whole = false;
            reset.reset();
            if (LoadMusicListLineError(line) == BoxAnswer::Cancel)
                return false;
            reset.emplace(list_);
        }
    }
    return whole;
}

BoxAnswer SongReader::LoadMusicListLineError(std::string_view line) {
    log_.Text("LoadMusicListLineError(ERRORLINE:{})", line);
    std::string text =
        "After 'MUSICLISTSTART' in the save file, there should be only lines of \n"
        "Length Note1 Note2\r\nOR:Length Note1 Note2 Mod\n"
        "However, there are less than 3 things on this line separated by a space. \nThe line is: \n";
    text += line;
    text += "\nThis line will be skipped.\n\nCarry on trying to load the file?";
    return boxes_.Show({.Title = "Music list line error in save file",
                        .Text = std::move(text),
                        .Icon = BoxIcon::Warning,
                        .Buttons = BoxButtons::OkCancel});
}

}  // namespace quavix
