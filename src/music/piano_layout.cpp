// SPDX-License-Identifier: MIT
#include "music/piano_layout.h"

#include "music/notes.h"
#include "shell/runtime_error.h"

namespace quavix {
namespace {

constexpr std::int32_t KeysInGroup = 12;

}  // namespace

PianoKeyPlace PlaceOfKey(std::int32_t index) {
    if (index < 0 || index >= PianoKeyCount)
        throw RuntimeError(RuntimeError::SubscriptOutOfRange);
    const std::int32_t group = index / KeysInGroup;
    return {.Group = static_cast<KeyGroup>(group),
            .NoteNum = index % KeysInGroup,
            .OctaveOffset = group - static_cast<std::int32_t>(KeyGroup::Blue)};
}

std::int32_t KeyOfNote(std::string_view noteString, std::int32_t keyboardOctave) {
    const std::int32_t noteNum = FindNoteNum(noteString);
    if (noteNum < 0)
        return -1;
    const std::int32_t index = (OctaveOf(noteString) - keyboardOctave + 1) * KeysInGroup + noteNum;
    return index >= 0 && index < PianoKeyCount ? index : -1;
}

std::string SpokenKeyName(std::int32_t index, std::int32_t keyboardOctave) {
    const PianoKeyPlace place = PlaceOfKey(index);
    std::string name = NoteNumToLetter(place.NoteNum);
    if (name.back() == '#')
        name.replace(name.size() - 1, 1, " sharp");
    return name + " " + std::to_string(keyboardOctave + place.OctaveOffset);
}

}  // namespace quavix
