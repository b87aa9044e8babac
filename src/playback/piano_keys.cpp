// SPDX-License-Identifier: MIT
#include "playback/piano_keys.h"

#include <array>
#include <exception>
#include <string>

#include "music/piano_layout.h"
#include "shell/numbers.h"

namespace quavix {
namespace {

constexpr std::array<const char*, 3> GroupLogNames = {" (orange region)", " (blue region)",
                                                      " (green region)"};

}  // namespace

void PianoKeys::PianoKey_Click(std::int32_t index) {
    clicks_.push_back({index, options_.KeyboardOctave});
    if (clicks_.size() > 1)
        return;
    std::exception_ptr error;
    for (; !clicks_.empty(); clicks_.pop_front()) {
        const KeyClick click = clicks_.front();
        try {
            Handle(click);
        } catch (...) {
            if (!error)
                error = std::current_exception();
        }
    }
    if (error)
        std::rethrow_exception(error);
}

void PianoKeys::Handle(const KeyClick& click) {
    constexpr double DurationMs = 50;
    LogBlock block(log_, "PianoKey clicked");
    block.CloseOnError();
    const PianoKeyPlace place = PlaceOfKey(click.Index);
    log_.Text("Index is {}{}", click.Index, GroupLogNames[static_cast<std::size_t>(place.Group)]);
    const std::int32_t octave = ToByte(click.KeyboardOctave + place.OctaveOffset);
    log_.Text("Index:{}, CurrentOctave:{}", place.NoteNum, octave);
    if (options_.NoteClickPlayCheck)
        tones_.Sound(Tone::OfNote(place.NoteNum, octave, DurationMs, {.SpecificStop = true}));
    if (options_.NoteClickAddCheck)
        entry_.AddNote(place.NoteNum, octave, options_.NoteLengthCombo);
    position_.ShowSelectedLine();
}

void PianoKeys::PianoKey_KeyDown(std::int32_t /*index*/, std::int32_t keyCode, std::int32_t shift) {
    if (shift != CtrlOnly || (keyCode != UpArrow && keyCode != DownArrow))
        return;
    std::int32_t octave = options_.KeyboardOctave;
    if (keyCode == UpArrow && octave < parameter::KeyboardOctave.Highest)
        ++octave;
    if (keyCode == DownArrow && octave > parameter::KeyboardOctave.Lowest)
        --octave;
    options_.KeyboardOctave.Type(std::to_string(octave));
}

std::string PianoKeys::OctLabel(std::int32_t group) const {
    return std::to_string(options_.KeyboardOctave + group - 1);
}

bool PianoKeys::IsSounding(std::int32_t index) const {
    const SoundingNotes& notes = view_.NotesSounding;
    const std::int32_t octave = options_.KeyboardOctave;
    return KeyOfNote(notes.Note1, octave) == index || KeyOfNote(notes.Note2, octave) == index;
}

}  // namespace quavix
