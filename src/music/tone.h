// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "ports/message_boxes.h"

namespace quavix {

/// Options of a tone; the last three are for the sound card only.
struct ToneOptions {
    /// The text is a frequency in hertz, written as a decimal number.
    bool NoteIsFrequency = false;
    /// Keep sounding after the duration.
    bool SpecificContinuous = false;
    /// Stop after the duration, even if the generator is otherwise never silent.
    bool SpecificStop = false;
    /// Return before the duration is over.
    bool FMODNoWait = false;
};

/// A note or a bare frequency with a duration. Its text is parsed once, at construction.
struct Tone {
    /// Text for the log and the tone code: "C4", or "162.5" for a frequency.
    std::string Text{};
    /// 0 (C) to 11 (B), or -1 if the text names no note.
    std::int16_t NoteNum = -1;
    /// 0 to 9: the last digit of the text, also for an octave of two digits ("G10").
    std::int32_t Octave = 0;
    /// Frequency in Hz; 0 if the text names no note.
    double Frequency = 0;
    double DurationMs = 0;
    ToneOptions Options{};

    /// Makes the tone of a note string, or of a frequency if the options say so.
    static Tone OfText(const std::string& text, double durationMs = 0, const ToneOptions& options = {});
    /// Makes the tone of a note 0..11 in an octave of 0 or more.
    static Tone OfNote(std::int32_t noteNum, std::int32_t octave, double durationMs,
                       const ToneOptions& options = {});
    /// Makes the tone of a frequency in Hz.
    static Tone OfFrequency(double frequency, double durationMs);

    /// Returns the frequency in whole hertz. Raises Overflow outside 32 bits.
    std::int32_t WholeFrequency() const;

    /// Shows the warning of LetterToNoteNum() if the text should name a note and does not.
    void WarnIfUnknown(MessageBoxes& boxes) const;
};

/// An output of tones.
///
/// Thread: the user-interface thread. A failure of a device shows its own message and is not raised.
class ToneOutput {
  public:
    virtual ~ToneOutput() = default;
    /// Sounds a tone and returns when it has ended, unless an output is told not to wait; handlers may run
    /// meanwhile. A duration or frequency outside 32 bits raises Overflow.
    virtual void Sound(const Tone& tone) = 0;
};

}  // namespace quavix
