// SPDX-License-Identifier: MIT
#include "songfile/song_settings.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "music/text.h"
#include "shell/numbers.h"
#include "shell/runtime_error.h"
#include "songfile/song_text.h"

namespace quavix {
namespace {

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

constexpr std::array<std::string_view, 8> OtherKeys{"keyboardoctave",   "bpm",        "timesig",
                                                    "notesilenceratio", "notelength", "alternatetime",
                                                    "addnote1",         "addnote2"};
constexpr std::size_t LongestKey = std::string_view("notelengthreplace").size();

const CheckBoxKey* FindCheckBox(std::string_view name) {
    const auto found = std::find_if(CheckBoxKeys.begin(), CheckBoxKeys.end(),
                                    [name](const CheckBoxKey& key) { return key.Name == name; });
    return found == CheckBoxKeys.end() ? nullptr : &*found;
}

bool IsKey(std::string_view name) {
    return std::find(OtherKeys.begin(), OtherKeys.end(), name) != OtherKeys.end() ||
           FindCheckBox(name) != nullptr;
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
    SetTimeSig(parameter::TimeSig.Default);
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
    if (name == "keyboardoctave") {
        SetKeyboardOctave(value);
    } else if (name == "bpm") {
        fields_.BPM = ToInt32(Val(value));
        fields_.BPMText = value;
    } else if (name == "timesig") {
        SetTimeSig(ToInt32(Val(value)));
    } else if (name == "notesilenceratio") {
        fields_.NoteSilenceRatioSlider =
            static_cast<std::int32_t>(parameter::NoteSilenceRatio.Nearest(ToInt32(Val(value))));
    } else if (name == "notelength") {
        const std::int32_t index = ToInt32(Val(value));
        if (parameter::NoteLength.Contains(index))
            fields_.NoteLengthCombo = index;
    } else if (name == "alternatetime") {
        fields_.AlternateTime = ToInt16(Val(value));
        fields_.AlternateTimeText = value;
    } else if (name == "addnote1") {
        SetOption(fields_.AddNote1Option, fields_.AddNote2Option, ToBoolean(value));
    } else if (name == "addnote2") {
        SetOption(fields_.AddNote2Option, fields_.AddNote1Option, ToBoolean(value));
    } else {
        fields_.*FindCheckBox(name)->Box = ToInt16(Val(value)) != 0;
    }
}

void SongSettings::SetTimeSig(std::int32_t beatsPerBar) {
    const auto taken = static_cast<std::int32_t>(parameter::TimeSig.Nearest(beatsPerBar));
    fields_.BeatsPerBar = taken;
    fields_.lblTimeSig = std::to_string(taken);
    fields_.TimeSigSlider = taken;
}

void SongSettings::SetKeyboardOctave(const std::string& value) {
    const std::uint8_t octave = ToByte(Val(value));
    fields_.KeyboardOctave = octave;
    // The field rewrites a text below its range, and the octave with it; the song's octave counts.
    fields_.KeyboardOctaveText = value;
    fields_.KeyboardOctave = octave;
}

}  // namespace quavix
