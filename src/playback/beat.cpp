// SPDX-License-Identifier: MIT
#include "playback/beat.h"

#include <string>

#include "shell/numbers.h"

namespace quavix {

Beat::Beat(MainFields& fields, PositionDisplay& position, ToneDispatcher& tones, MessageBoxes& boxes,
           EventBoundary& handlers, DebugLog& log)
    : fields_(fields), position_(position), tones_(tones), boxes_(boxes), log_(log) {
    fields_.UseBeatCheck.Watch(handlers.Wrap("UseBeatCheck_Click", [this] { UseBeatCheck_Click(); }));
    fields_.optBeatAll.Watch([this](bool all) { fields_.BeatEvenOnly = !all; });
}

void Beat::LineStarts() {
    constexpr double StartFreq = 250;
    constexpr double EndFreq = 100;
    constexpr double ReduceRate = 0.65;
    constexpr std::size_t BeatDigits = 2;  // "03.50" is half a beat after the third one
    if (!fields_.UseBeat)
        return;
    const std::string& caption = fields_.lblPlaySig;
    if (caption.size() <= BeatDigits || caption.substr(BeatDigits + 1, 2) != "00")
        return;
    const std::int32_t beat = ToInt32(Val(caption.substr(0, BeatDigits)));
    if (!fields_.BeatEvenOnly || beat % 2 == 0)
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
    fields_.UseBeat = fields_.UseBeatCheck;
    log_.Text("UseBeatCheck clicked - UseBeat -> {}", LogFlag(fields_.UseBeat));
    if (!fields_.UseBeat || !fields_.NoUpdateCheck)
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
        fields_.NoUpdateCheck = false;
        position_.NoUpdateCheck_Click();
    }
}

}  // namespace quavix
