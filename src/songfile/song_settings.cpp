// SPDX-License-Identifier: MIT
#include "songfile/song_settings.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "shell/lower_case.h"
#include "shell/numbers.h"
#include "shell/runtime_error.h"
#include "songfile/song_format.h"

namespace quavix {
namespace {

template <typename Fields, typename Control>
struct Key {
    std::string_view Name;
    Control Fields::*Field;
};

constexpr std::array<Key<SongFields, Setting>, 4> SongNumbers{{
    {"bpm", &SongFields::BPM},
    {"timesig", &SongFields::BeatsPerBar},
    {"notesilenceratio", &SongFields::NoteSilenceRatio},
    {"alternatetime", &SongFields::AlternateTime},
}};

constexpr std::array<Key<SongFields, Watched<bool>>, 4> SongBoxes{{
    {"clickplaynote1", &SongFields::ClickPlayNote1Check},
    {"clickplaynote2", &SongFields::ClickPlayNote2Check},
    {"playnote1", &SongFields::PlayNote1Check},
    {"playnote2", &SongFields::PlayNote2Check},
}};

// NoteReplaceCheck is missing on purpose: it is saved, but not loaded from a song.
constexpr std::array<Key<EntryOptions, Watched<bool>>, 3> EntryBoxes{{
    {"noteclickplay", &EntryOptions::NoteClickPlayCheck},
    {"noteclickadd", &EntryOptions::NoteClickAddCheck},
    {"notelengthreplace", &EntryOptions::NoteLengthReplaceCheck},
}};

constexpr std::array<std::string_view, 4> OtherKeys{"keyboardoctave", "notelength", "addnote1", "addnote2"};
constexpr std::size_t LongestKey = std::string_view("notelengthreplace").size();

/// Returns the key with that name, or null.
template <typename Keys>
auto FindByName(const Keys& keys, std::string_view name) -> const typename Keys::value_type* {
    const auto found =
        std::find_if(keys.begin(), keys.end(), [name](const auto& key) { return key.Name == name; });
    return found == keys.end() ? nullptr : &*found;
}

bool IsKey(std::string_view name) {
    return std::find(OtherKeys.begin(), OtherKeys.end(), name) != OtherKeys.end() ||
           FindByName(SongNumbers, name) != nullptr || FindByName(SongBoxes, name) != nullptr ||
           FindByName(EntryBoxes, name) != nullptr;
}

/// Converts "True" or "False" in any letter case, or a number: 0 is false. Other texts raise TypeMismatch.
bool ToBoolean(const std::string& text) {
    if (IsNumeric(text))
        return Val(text) != 0;
    const std::string lower = LowerCase(text);
    if (lower != "true" && lower != "false")
        throw RuntimeError(RuntimeError::TypeMismatch);
    return lower == "true";
}

/// Sets an option button; selecting one of a group clears the other.
void SetOption(Watched<bool>& option, Watched<bool>& other, bool selected) {
    if (selected)
        other = false;
    option = selected;
}

}  // namespace

void SongSettings::ResetTimeSig() {
    song_.BeatsPerBar.Reset();
}

void SongSettings::Apply(std::string_view line) {
    // Skips lines whose first word is longer than every key, so that their names are not copied.
    if (line.substr(0, LongestKey + 1).find(' ') == std::string_view::npos && line.size() > LongestKey + 1)
        return;
    const std::string name = GetSettingName(line);
    if (IsKey(name))
        ApplyValue(name, GetSettingValue(line, log_));
}

void SongSettings::ApplyValue(std::string_view name, const std::string& value) {
    if (const auto* number = FindByName(SongNumbers, name)) {
        (song_.*number->Field).Load(value);
    } else if (name == "keyboardoctave") {
        entry_.KeyboardOctave.Load(value);
    } else if (name == "notelength") {
        const std::int32_t index = ToInt32(Val(value));
        if (parameter::NoteLength.Contains(index))
            entry_.NoteLengthCombo = index;
    } else if (name == "addnote1") {
        SetOption(entry_.AddNote1Option, entry_.AddNote2Option, ToBoolean(value));
    } else if (name == "addnote2") {
        SetOption(entry_.AddNote2Option, entry_.AddNote1Option, ToBoolean(value));
    } else {
        const bool ticked = ToInt16(Val(value)) != 0;
        if (const auto* box = FindByName(SongBoxes, name))
            song_.*box->Field = ticked;
        else
            entry_.*FindByName(EntryBoxes, name)->Field = ticked;
    }
}

}  // namespace quavix
