// SPDX-License-Identifier: MIT
#include "songfile/song_settings.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>

#include "shell/lower_case.h"
#include "shell/numbers.h"
#include "shell/runtime_error.h"
#include "songfile/song_format.h"

namespace quavix {
namespace {

/// Converts "True" or "False" in any letter case, or a number: 0 is false. Other texts raise TypeMismatch.
bool ToBoolean(const std::string& text) {
    if (IsNumeric(text))
        return Val(text) != 0;
    const std::string lower = LowerCase(text);
    if (lower != "true" && lower != "false")
        throw RuntimeError(RuntimeError::TypeMismatch);
    return lower == "true";
}

bool IsTicked(const std::string& value) {
    return ToInt16(Val(value)) != 0;
}

void ApplyNoteLength(SongFields& /*song*/, EntryOptions& entry, const std::string& value) {
    const std::int32_t index = ToInt32(Val(value));
    if (parameter::NoteLength.Contains(index))
        entry.NoteLengthCombo = index;
}

struct Key {
    std::string_view Name;
    void (*Apply)(SongFields& song, EntryOptions& entry, const std::string& value);
};

// NoteReplaceCheck is missing on purpose: it is saved, but not loaded from a song.
constexpr Key Keys[] = {
    {"keyboardoctave", [](auto&, auto& entry, auto& value) { entry.KeyboardOctave.Load(value); }},
    {"bpm", [](auto& song, auto&, auto& value) { song.BPM.Load(value); }},
    {"timesig", [](auto& song, auto&, auto& value) { song.BeatsPerBar.Load(value); }},
    {"notesilenceratio", [](auto& song, auto&, auto& value) { song.NoteSilenceRatio.Load(value); }},
    {"notelength", &ApplyNoteLength},
    {"alternatetime", [](auto& song, auto&, auto& value) { song.AlternateTime.Load(value); }},
    {"noteclickplay", [](auto&, auto& entry, auto& value) { entry.NoteClickPlayCheck = IsTicked(value); }},
    {"noteclickadd", [](auto&, auto& entry, auto& value) { entry.NoteClickAddCheck = IsTicked(value); }},
    // ListEditing clears the other option of the group.
    {"addnote1", [](auto&, auto& entry, auto& value) { entry.AddNote1Option = ToBoolean(value); }},
    {"addnote2", [](auto&, auto& entry, auto& value) { entry.AddNote2Option = ToBoolean(value); }},
    {"notelengthreplace",
     [](auto&, auto& entry, auto& value) { entry.NoteLengthReplaceCheck = IsTicked(value); }},
    {"clickplaynote1", [](auto& song, auto&, auto& value) { song.ClickPlayNote1Check = IsTicked(value); }},
    {"clickplaynote2", [](auto& song, auto&, auto& value) { song.ClickPlayNote2Check = IsTicked(value); }},
    {"playnote1", [](auto& song, auto&, auto& value) { song.PlayNote1Check = IsTicked(value); }},
    {"playnote2", [](auto& song, auto&, auto& value) { song.PlayNote2Check = IsTicked(value); }},
};
constexpr std::size_t LongestKey = std::string_view("notelengthreplace").size();

}  // namespace

void ApplySetting(std::string_view line, SongFields& song, EntryOptions& entry, DebugLog& log) {
    // Skips lines whose first word is longer than every key, so that their names are not copied.
    if (line.substr(0, LongestKey + 1).find(' ') == std::string_view::npos && line.size() > LongestKey + 1)
        return;
    const auto key = std::ranges::find(Keys, GetSettingName(line), &Key::Name);
    if (key != std::end(Keys))
        key->Apply(song, entry, GetSettingValue(line, log));
}

}  // namespace quavix
