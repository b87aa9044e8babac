// SPDX-License-Identifier: MIT
#include "playback/beat.h"

#include <string>

#include "shell/numbers.h"

namespace quavix {

Beat::Beat(ModFields& mods, PositionDisplay& position, ToneDispatcher& tones, MessageBoxes& boxes,
           EventBoundary& handlers, DebugLog& log)
    : mods_(mods), position_(position), tones_(tones), boxes_(boxes), log_(log) {
    mods_.UseBeat.Ticked.Watch(handlers.Wrap("UseBeatCheck_Click", [this] { UseBeatCheck_Click(); }));
}

void Beat::LineStarts() {
    constexpr double StartFreq = 250;
    constexpr double EndFreq = 100;
    constexpr double ReduceRate = 0.65;
    constexpr std::size_t BeatDigits = 2;  // "03.50" is half a beat after the third one
    if (!mods_.UseBeat.InUse)
        return;
    const std::string& caption = position_.lblPlaySig;
    if (caption.size() <= BeatDigits || caption.substr(BeatDigits + 1, 2) != "00")
        return;
    const std::int32_t beat = ToInt32(Val(caption.substr(0, BeatDigits)));
    if (optBeatAll || beat % 2 == 0)
        BeatSound(StartFreq, EndFreq, ReduceRate);
}

void Beat::BeatSound(double startFreq, double endFreq, double reduceRate) {
    constexpr double HighestFreq = 16000;
    constexpr double ToneMs = 15;
    for (double frequency = startFreq; frequency > endFreq && frequency < HighestFreq;
         frequency *= reduceRate)
        tones_.Sound(Tone::OfFrequency(frequency, ToneMs));
}

void Beat::UseBeatCheck_Click() {
    mods_.UseBeat.InUse = mods_.UseBeat.Ticked;
    log_.Text("UseBeatCheck clicked - UseBeat -> {}", LogFlag(mods_.UseBeat.InUse));
    if (!mods_.UseBeat.InUse || !position_.NoUpdateCheck)
        return;
    const BoxAnswer answer = boxes_.Show({
        .Title = "Info about playing a beat sound",
        .Text = "This requires the green position indicators to be updated during playback. However, this "
                "can use a LOT of CPU power and cause music to skip or stutter. Currently, 'Do not update' "
                "(in the bottom-right corner) is ticked to prevent the position from being updated during "
                "playback.\r\n\r\nUn-tick it?",
        .Icon = BoxIcon::Question,
        .Buttons = BoxButtons::YesNo,
    });
    if (answer == BoxAnswer::Yes) {
        position_.NoUpdateCheck = false;
        position_.NoUpdateCheck_Click();
    }
}

}  // namespace quavix
