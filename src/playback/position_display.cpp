// SPDX-License-Identifier: MIT
#include "playback/position_display.h"

#include <cmath>

#include "music/lengths.h"
#include "music/selection.h"
#include "shell/numbers.h"

namespace quavix {

PositionDisplay::PositionDisplay(const SongFields& song, const ModFields& mods, MusicList& list,
                                 MessageBoxes& boxes, DebugLog& log)
    : song_(song), mods_(mods), list_(list), boxes_(boxes), log_(log), position_(list, log) {}

void PositionDisplay::ShowEmpty() {
    lblPlayBar = "001";
    lblPlayPos = "001";
    lblPlayPosBackColor = colour::DarkGreen;
}

void PositionDisplay::WorkOutPlayPos(std::int32_t currentLine, double& position) {
    const LogBlock block(log_, "WorkOutPlayPos()", "WorkOutPlayPos({}) - START", currentLine);
    if (currentLine < 1) {
        log_.LogText("'CurrentLine < 1' section");
        if (list_.Count() == 0) {
            log_.LogText("'Item count = 0' section");
            position = -1;
            ShowEmpty();
            return;
        }
        log_.LogText("'Item count NOT = 0' section");
        currentLine = list_.Count() + 1;
    }
    log_.LogText("Calculating play position by summing all line lengths");
    position = position_.SumBefore(currentLine);
}

void PositionDisplay::ShowPosition(double position) {
    const double whole = Currency::FromDouble(position).ToDouble();
    if (whole <= 0 && list_.Count() == 0) {
        ShowEmpty();
        return;
    }
    const double beatsPerBar = song_.BeatsPerBar;
    const double beats =
        Currency::FromDouble(whole * Quotient(BeatsPerWholeNote, beatsPerBar) * beatsPerBar).ToDouble();
    const double bar = std::trunc(Quotient(beats, beatsPerBar));
    const double inBar = whole - bar * (beatsPerBar / BeatsPerWholeNote) + 1;
    const double beatInBar = beats - bar * beatsPerBar + 1;
    const double wholeInBar = std::trunc(inBar);

    lblPlayBar = FormatNumber(bar + 1, 3);
    const std::string caption =
        FormatNumber(wholeInBar, 2) + " " + ConvertToFraction(static_cast<float>(inBar - wholeInBar), log_);
    lblPlayPos = caption;
    const bool failed = caption.find("(ERR)") != std::string::npos;
    lblPlayPosBackColor = failed ? colour::Red : colour::DarkGreen;
    lblPlaySig = FormatNumber(beatInBar, 2, 2);
}

void PositionDisplay::ShowSelectedLine() {
    double position = 0;
    WorkOutPlayPos(HasRealSelection(list_) ? GetSelectedIndex(list_) : 0, position);
    ShowPosition(position);
}

void PositionDisplay::NoUpdateCheck_Click() {
    if (NoUpdateCheck && mods_.UseBeat.Ticked) {
        const BoxAnswer answer = boxes_.Show({
            .Title = "Disable 'Play a beat sound'?",
            .Text = "Currently, 'Play a beat sound' is ticked, which requires the green position indicators "
                    "to be updated during playback. If you tick 'Do not update', then the beat sound "
                    "won't be able to be played.\r\n\r\nDo you still want to stop them from being updated?",
            .Icon = BoxIcon::Question,
            .Buttons = BoxButtons::YesNo,
        });
        if (answer != BoxAnswer::Yes)
            NoUpdateCheck = false;
    }
    log_.Text("NoUpdateCheck clicked - UseNoUpdate -> {}", LogFlag(NoUpdateCheck));
}

void PositionDisplay::NoUpdateHButton_Click() {
    boxes_.Show({
        .Title = "Info about not updating position indicators",
        .Text = "This stops the green position indicators (in the bottom-right corner) from updating while "
                "the music is playing. They will still update while you're editing.\r\n\r\n"
                "Every time a triplet note is encountered, a lot of CPU power is needed to update the "
                "indicators. As more notes are entered, even more CPU power is needed. If the music is "
                "skipping or stuttering, or the amount of CPU time the program is using while playing is "
                "higher than you'd like it to be, please tick this.",
        .Icon = BoxIcon::Information,
    });
}

}  // namespace quavix
