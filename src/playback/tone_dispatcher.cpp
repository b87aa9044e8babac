// SPDX-License-Identifier: MIT
#include "playback/tone_dispatcher.h"

#include <algorithm>
#include <exception>

#include "music/notes.h"
#include "shell/numbers.h"

namespace quavix {
namespace {

/// Any channel number that is none stands for the selected one.
constexpr std::int32_t SelectedChannel = -1;

/// The note sent over MIDI for a bare frequency: the metronome's two clicks, and one for all others.
std::string MidiNoteStringOfFrequency(const std::string& frequency) {
    if (frequency == "1000")
        return "B5";
    if (frequency == "500")
        return "B4";
    return "C3";
}

/// Counts up for as long as it lives.
class Counted {
  public:
    explicit Counted(int& count) : count_(count) { ++count_; }
    ~Counted() { --count_; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

  private:
    int& count_;
};

}  // namespace

ToneDispatcher::ToneDispatcher(MainFields& fields, ToneOutputs outputs, ToneCode& toneCode, Waiting& waiting,
                               MessageBoxes& boxes, DebugLog& log)
    : fields_(fields), outputs_(outputs), toneCode_(toneCode), waiting_(waiting), boxes_(boxes), log_(log) {}

void ToneDispatcher::UniBeep(std::string& noteString, double duration, const ToneOptions& options) {
    const Counted sounding(sounding_);
    log_.IndentInc(
        "UniBeep(NOTESTRING:\"{}\", DURATION:{}, NOTEISFREQUENCY:{}, SPECIFICCONTINUOUS:{}, SPECIFICSTOP:{}, "
        "FMODNOWAIT:{}) - START",
        noteString, NumberText(duration), LogFlag(options.NoteIsFrequency),
        LogFlag(options.SpecificContinuous), LogFlag(options.SpecificStop), LogFlag(options.FMODNoWait));
    if (noteString.empty()) {
        log_.LogText("NoteString not set - setting to C4");
        noteString = "C4";
    }

    bool noteOnSent = false;
    std::string midiNoteString;
    if (fields_.UseMIDIOut) {
        log_.LogIndentInc("UseMIDIOut section 1 START");
        noteOnSent = true;
        midiNoteString = options.NoteIsFrequency ? MidiNoteStringOfFrequency(noteString) : noteString;
        outputs_.Midi.MIDINoteOn(MidiNote(midiNoteString));
        log_.LogIndentDec("UseMIDIOut section 1 END");
    }

    const auto endMidiNote = [&] {
        if (fields_.UseMIDIOut && noteOnSent)
            outputs_.Midi.MIDINoteOff(MidiNote(midiNoteString), SelectedChannel);
    };
    try {
        Sound(noteString, duration, options);
    } catch (const std::exception&) {
        endMidiNote();  // an error must not leave a note hanging
        throw;
    }
    endMidiNote();
    log_.LogIndentDec("UniBeep() - END");
}

std::int32_t ToneDispatcher::MidiNote(const std::string& noteString) {
    return outputs_.Midi.NoteToMIDI(LetterToNoteNum(noteString, boxes_), OctaveOf(noteString));
}

void ToneDispatcher::MuteTweebleCheck_Click() {
    fields_.MutePCSpeaker = fields_.MuteTweebleCheck;
    log_.Text("MuteTweeble clicked - MutePCSpeaker -> {}", LogFlag(fields_.MutePCSpeaker));
}

double ToneDispatcher::FrequencyOfNote(const std::string& noteString) {
    return NoteFrequency(LetterToNoteNum(noteString, boxes_), OctaveOf(noteString));
}

void ToneDispatcher::Sound(const std::string& noteString, double duration, const ToneOptions& options) {
    const std::int32_t frequency =
        ToInt32(options.NoteIsFrequency ? Val(noteString) : FrequencyOfNote(noteString));
    toneCode_.WriteTone(frequency, duration,
                        options.NoteIsFrequency ? noteString + " Hz [no note]" : noteString);
    if (fields_.UseMotor) {
        // A bare frequency has no name to warn of; to the motor it is as unknown as any other.
        const std::int16_t noteNum =
            options.NoteIsFrequency ? FindNoteNum(noteString) : LetterToNoteNum(noteString, boxes_);
        const std::string name = NoteNumToNoteString(noteNum, OctaveOf(noteString), false, fields_.MotorOct);
        outputs_.Motor.PlayNote(name, duration);
    } else if (fields_.UseFMOD) {
        const bool mustStop = options.NoteIsFrequency || options.SpecificStop;
        const bool keepSounding = !mustStop && (options.SpecificContinuous || fields_.DoNotShutUpFMOD);
        outputs_.Generator.FMODBeep(frequency, duration, keepSounding, options.FMODNoWait);
    } else if (fields_.MutePCSpeaker) {
        const std::int32_t milliseconds = ToInt32(duration);
        log_.Text("MsgWaitObj {}", milliseconds);
        waiting_.MsgWaitObj(std::max(milliseconds, 0));  // below 0 it would never end
        toneCode_.WriteWait(milliseconds);
    } else if (fields_.UsePortamento) {
        log_.Text("PC Speaker - Tweeble Portamento - WantedPitch -> {}", frequency);
        outputs_.Glide.SetWantedPitch(frequency);
        outputs_.Glide.StartSound();
    } else {
        const std::int32_t milliseconds = ToInt32(duration);
        log_.Text("PC Speaker Beep {}, {} - BEFORE", frequency, NumberText(duration));
        outputs_.PcSpeaker.Beep(frequency, milliseconds);
        log_.LogText("PC Speaker Beep - AFTER");
    }
}

}  // namespace quavix
