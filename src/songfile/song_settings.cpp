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

struct SettingKey {
    std::string_view Name;
    Setting MainFields::*Field;
};

constexpr std::array<SettingKey, 5> SettingKeys{{
    {"keyboardoctave", &MainFields::KeyboardOctave},
    {"bpm", &MainFields::BPM},
    {"timesig", &MainFields::BeatsPerBar},
    {"notesilenceratio", &MainFields::NoteSilenceRatio},
    {"alternatetime", &MainFields::AlternateTime},
}};

struct CheckBoxKey {
    std::string_view Name;
    Watched<bool> MainFields::*Box;
};

// NoteReplaceCheck is left out on purpose: it is saved, but a song does not switch it.
constexpr std::array<CheckBoxKey, 7> CheckBoxKeys{{
    {"noteclickplay", &MainFields::NoteClickPlayCheck},
    {"noteclickadd", &MainFields::NoteClickAddCheck},
    {"notelengthreplace", &MainFields::NoteLengthReplaceCheck},
    {"clickplaynote1", &MainFields::ClickPlayNote1Check},
    {"clickplaynote2", &MainFields::ClickPlayNote2Check},
    {"playnote1", &MainFields::PlayNote1Check},
    {"playnote2", &MainFields::PlayNote2Check},
}};

constexpr std::array<std::string_view, 3> OtherKeys{"notelength", "addnote1", "addnote2"};
constexpr std::size_t LongestKey = std::string_view("notelengthreplace").size();

/// The key of that name, or null.
template <typename Keys>
auto FindByName(const Keys& keys, std::string_view name) -> const typename Keys::value_type* {
    const auto found =
        std::find_if(keys.begin(), keys.end(), [name](const auto& key) { return key.Name == name; });
    return found == keys.end() ? nullptr : &*found;
}

bool IsKey(std::string_view name) {
    return std::find(OtherKeys.begin(), OtherKeys.end(), name) != OtherKeys.end() ||
           FindByName(SettingKeys, name) != nullptr || FindByName(CheckBoxKeys, name) != nullptr;
}

/// "True" or "False" in any letter case, or a number, where everything but 0 is true.
bool ToBoolean(const std::string& text) {
    if (IsNumeric(text))
        return Val(text) != 0;
    const std::string lower = LowerCase(text);
    if (lower != "true" && lower != "false")
        throw RuntimeError(RuntimeError::TypeMismatch);
    return lower == "true";
}

/// Option buttons of one group: selecting one clears the other.
void SetOption(Watched<bool>& option, Watched<bool>& other, bool selected) {
    if (selected)
        other = false;
    option = selected;
}

}  // namespace

void SongSettings::ResetTimeSig() {
    fields_.BeatsPerBar.Reset();
}

void SongSettings::Apply(std::string_view line) {
    // Most lines of a long file without music are no settings; their names aren't worth copying.
    if (line.substr(0, LongestKey + 1).find(' ') == std::string_view::npos && line.size() > LongestKey + 1)
        return;
    const std::string name = GetSettingName(line);
    if (IsKey(name))
        ApplyValue(name, GetSettingValue(line, log_));
}

void SongSettings::ApplyValue(std::string_view name, const std::string& value) {
    if (const SettingKey* key = FindByName(SettingKeys, name)) {
        (fields_.*key->Field).Load(value);
    } else if (name == "notelength") {
        const std::int32_t index = ToInt32(Val(value));
        if (parameter::NoteLength.Contains(index))
            fields_.NoteLengthCombo = index;
    } else if (name == "addnote1") {
        SetOption(fields_.AddNote1Option, fields_.AddNote2Option, ToBoolean(value));
    } else if (name == "addnote2") {
        SetOption(fields_.AddNote2Option, fields_.AddNote1Option, ToBoolean(value));
    } else {
        fields_.*FindByName(CheckBoxKeys, name)->Box = ToInt16(Val(value)) != 0;
    }
}

}  // namespace quavix
