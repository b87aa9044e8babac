// SPDX-License-Identifier: MIT
#include "playback/tone_dispatcher.h"

#include <algorithm>
#include <exception>

#include "shell/numbers.h"
#include "shell/scoped.h"

namespace quavix {
namespace {

constexpr const char* DefaultNote = "C4";

}  // namespace

ToneDispatcher::ToneDispatcher(const ModFields& mods, OutputOptions& output, ToneOutputs outputs,
                               ToneCode& toneCode, Waiting& waiting, MessageBoxes& boxes, DebugLog& log)
    : mods_(mods),
      output_(output),
      outputs_(outputs),
      toneCode_(toneCode),
      waiting_(waiting),
      boxes_(boxes),
      log_(log) {}

void ToneDispatcher::UniBeep(std::string& noteString, double durationMs, const ToneOptions& options) {
    const Tone tone = Tone::OfText(noteString, durationMs, options);
    if (noteString.empty())
        noteString = DefaultNote;
    Sound(tone);
}

void ToneDispatcher::Sound(const Tone& asked) {
    const ScopedFlag sounding(sounding_);  // a click on a key may sound another tone during this one
    const ToneOptions& options = asked.Options;
    const LogBlock block(
        log_, "UniBeep()",
        "UniBeep(NOTESTRING:\"{}\", DURATION:{}, NOTEISFREQUENCY:{}, SPECIFICCONTINUOUS:{}, SPECIFICSTOP:{}, "
        "FMODNOWAIT:{}) - START",
        asked.Text, NumberText(asked.DurationMs), LogFlag(options.NoteIsFrequency),
        LogFlag(options.SpecificContinuous), LogFlag(options.SpecificStop), LogFlag(options.FMODNoWait));
    if (asked.Text.empty())
        log_.Text("NoteString not set - setting to {}", DefaultNote);
    const Tone tone = asked.Text.empty() ? Tone::OfText(DefaultNote, asked.DurationMs, options) : asked;

    const bool noteOnSent = mods_.UseMIDIOut.InUse;
    if (noteOnSent) {
        LogBlock section(log_, "", "UseMIDIOut section 1 START");
        outputs_.Midi.ToneStarts(tone);
        section.Close("UseMIDIOut section 1 END");
    }
    const auto endMidiNote = [&] {
        if (mods_.UseMIDIOut.InUse && noteOnSent)
            outputs_.Midi.ToneEnds(tone);
    };
    try {
        SoundOnOneOutput(tone);
    } catch (const std::exception&) {
        endMidiNote();  // an error must not leave a note sounding
        throw;
    }
    endMidiNote();
}

void ToneDispatcher::SoundOnOneOutput(const Tone& tone) {
    tone.WarnIfUnknown(boxes_);
    toneCode_.WriteTone(tone.WholeFrequency(), tone.DurationMs,
                        tone.Options.NoteIsFrequency ? tone.Text + " Hz [no note]" : tone.Text);
    if (mods_.UseMotor.InUse)
        outputs_.Motor.Sound(tone);
    else if (mods_.UseFMOD.InUse)
        outputs_.Generator.Sound(tone);
    else if (output_.MutePCSpeaker)
        WaitInstead(tone);
    else if (mods_.UsePorta.InUse)
        outputs_.Glide.Sound(tone);
    else
        SoundOnSpeaker(tone);
}

void ToneDispatcher::WaitInstead(const Tone& tone) {
    const std::int32_t milliseconds = ToInt32(tone.DurationMs);
    log_.Text("MsgWaitObj {}", milliseconds);
    waiting_.MsgWaitObj(std::max(milliseconds, 0));  // below 0 it would never end
    toneCode_.WriteWait(milliseconds);
}

void ToneDispatcher::SoundOnSpeaker(const Tone& tone) {
    const std::int32_t milliseconds = ToInt32(tone.DurationMs);
    log_.Text("PC Speaker Beep {}, {} - BEFORE", tone.WholeFrequency(), NumberText(tone.DurationMs));
    outputs_.PcSpeaker.Beep(tone.WholeFrequency(), milliseconds);
    log_.LogText("PC Speaker Beep - AFTER");
}

void ToneDispatcher::MuteTweebleCheck_Click() {
    output_.MutePCSpeaker = output_.MuteTweebleCheck;
    log_.Text("MuteTweeble clicked - MutePCSpeaker -> {}", LogFlag(output_.MutePCSpeaker));
}

}  // namespace quavix
