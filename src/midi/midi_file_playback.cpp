// SPDX-License-Identifier: MIT
#include "midi/midi_file_playback.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "midi/midi_file_opening.h"
#include "shell/numbers.h"
#include "shell/scoped.h"

namespace quavix {

MidiFilePlayback::MidiFilePlayback(const MidiFileParts& parts)
    : UsingForm(parts.Handlers),
      p_(parts),
      cTmr_({p_.Song, p_.State, p_.Ticks, p_.Handlers, [this] { tmrPlayback_Timer(); },
             [this] { EndPlaying(); }}) {
    AutoTimeCheck = true;
    p_.Mods.UseMIDIFile.Ticked.Watch(
        p_.Handlers.Wrap("UseMIDIFileCheck_Click", [this](bool ticked) { UseMIDIFileCheck_Click(ticked); }));
}

void MidiFilePlayback::UseMIDIFileCheck_Click(bool ticked) {
    const LogBlock block(p_.Log, "UseMIDIFileCheck has been clicked");
    if (ticked)
        SwitchOn();
    else
        SwitchOff();
}

void MidiFilePlayback::SwitchOn() {
    p_.Log.LogText("Value is 1");
    constexpr const char* Control = ControlInstaller::MidiFilesControl;
    p_.Log.Text("Checking '{}' exists in system32", Control);
    if (!p_.Controls.MakeReady(Control, p_.Mods.UseMIDIFile.Ticked, [this] { return p_.Reader.Prepare(); }))
        return;
    if (p_.State.ShuttingDown)
        return;
    // MIDI input, which excludes this mod, may have been ticked meanwhile.
    if (!p_.Mods.UseMIDIFile.Enabled) {
        p_.Mods.UseMIDIFile.Ticked = false;
        return;
    }
    p_.Log.LogText("Showing MIDIFileForm");
    Form_Load();
    MIDIFileFormVisible = true;
    p_.Mods.UseMIDIFile.InUse = true;
    p_.Log.LogText("Disabling UseMIDIInCheck");
    p_.Mods.UseMIDIIn.Enabled = false;
}

void MidiFilePlayback::SwitchOff() {
    p_.Log.LogText("Value is 0");
    ++commands_;
    stopOpening_ = true;
    p_.Generator.FMODBeepStop();
    if (playing_)
        cmdStop_Click();
    MIDIFileFormVisible = false;
    p_.Mods.UseMIDIFile.InUse = false;
    p_.Mods.UseMIDIIn.Enabled = true;
}

void MidiFilePlayback::Form_Load() {
    if (std::exchange(isLoaded_, true))
        return;
    const LogBlock block(p_.Log, "MIDIFileForm.Form_Load()");
}

void MidiFilePlayback::UseFile(const std::string& fileName) {
    p_.Mods.UseMIDIIn.Ticked = false;
    p_.Mods.UseMIDIFile.Ticked = true;
    if (p_.Mods.UseMIDIFile.InUse)
        Open(fileName);
}

void MidiFilePlayback::cmdBrowse_Click() {
    if (isOpening_)
        return;
    p_.Log.LogText("MIDI File Playback - Browse clicked");
    const std::string fileName = p_.Picker.AskForOpenName(
        {.Title = "Please choose MIDI file to play", .Filter = "MIDI files (*.mid)|*.mid"});
    if (!fileName.empty() && !p_.State.ShuttingDown)
        Open(fileName);
}

bool MidiFilePlayback::Open(const std::string& fileName) {
    if (isOpening_)
        return false;
    isOpening_ = true;
    stopOpening_ = false;
    nextEventsRunMs_ = 0;
    cmdBrowseEnabled = false;
    std::string nameAfterwards = txtFile;
    const AtScopeEnd end([&] {
        isOpening_ = false;
        frmInfoTextVisible = false;
        cmdBrowseEnabled = true;
        txtFile = nameAfterwards;
    });
    txtFile = fileName;
    OpenedMidiFile opened = OpenMidiFile(fileName, p_.Disk, p_.Reader,
                                         [this](const std::string& text) { return ShowInfoText(text); });
    for (const std::string& remark : opened.Remarks)
        p_.Log.LogText(remark);
    if (!opened.Problem.empty()) {
        p_.Log.LogText(opened.Problem);
        p_.Boxes.Show({.Title = "Failed to open MIDI file!",
                       .Text = "Either couldn't open or couldn't recognize file format of this MIDI "
                               "file...\r\n\r\n" +
                               opened.Problem,
                       .Icon = BoxIcon::Warning});
    }
    if (!opened.Events)
        return false;
    if (playing_)
        cmdStop_Click();
    // Cancels commands that still wait for the last tone: they were for the old file.
    ++commands_;
    EndPlaying();
    events_ = std::move(*opened.Events);
    frmPlaybackEnabled = !events_.empty();
    nameAfterwards = fileName;
    MoveTo(0);
    return true;
}

/// Shows a text, and runs window events every 20 ms: doing so for each text would take longer than the work.
bool MidiFilePlayback::ShowInfoText(const std::string& text) {
    constexpr double EventsRunEveryMs = 20;
    if (!text.empty()) {
        lblInfoText = text;
        frmInfoTextVisible = true;
    }
    if (ClockMs() >= nextEventsRunMs_) {
        p_.Wait.DoEvents();
        nextEventsRunMs_ = ClockMs() + EventsRunEveryMs;
    }
    return !stopOpening_ && !p_.State.ShuttingDown;
}

void MidiFilePlayback::cmdPlay_Click() {
    ++commands_;
    if (events_.empty())
        return;
    if (playPosition_ >= events_.size())
        playPosition_ = 0;
    startTime_ = ToInt64(ClockMs()) - ToInt64(events_[playPosition_].AbsoluteMs);
    playing_ = true;
    cTmr_.SetEnabled(true);
}

void MidiFilePlayback::EndPlaying() {
    playing_ = false;
    cTmr_.SetEnabled(false);
}

bool MidiFilePlayback::FadeOut() {
    const std::int64_t command = ++commands_;
    EndPlaying();
    p_.Cycler.PlayLiveMIDIInput(*this);
    p_.Generator.FMODBeepStop();
    return command == commands_;
}

void MidiFilePlayback::cmdStop_Click() {
    stopOpening_ = true;
    FadeOut();
}

void MidiFilePlayback::cmdRewind_Click() {
    const bool wasPlaying = playing_;
    stopOpening_ = true;
    if (!FadeOut())
        return;
    MoveTo(0);
    if (wasPlaying)
        cmdPlay_Click();
}

void MidiFilePlayback::sldPosition_Change(std::int32_t position) {
    if (events_.empty())
        return;
    stopOpening_ = true;
    if (!FadeOut())
        return;
    ReleaseAllNotes();
    const double share = std::clamp(position, 0, SliderHighest) / static_cast<double>(SliderHighest);
    playPosition_ = static_cast<std::size_t>(RoundHalfEven(share * static_cast<double>(events_.size())));
    // The slider stays at the user's place, even if the file has fewer events than places.
    sldPosition = position;
    ShowPositionTexts();
}

/// Moves to another place and releases all notes, because their note-offs would be skipped.
void MidiFilePlayback::MoveTo(std::size_t position) {
    ReleaseAllNotes();
    playPosition_ = position;
    ShowPosition();
}

void MidiFilePlayback::tmrPlayback_Timer() {
    if (p_.State.ShuttingDown) {
        EndPlaying();
        return;
    }
    const double elapsed = ClockMs() - static_cast<double>(startTime_);
    if (EndCheck())
        return;
    while (events_[playPosition_].AbsoluteMs <= elapsed) {
        const TimedMidiEvent& event = events_[playPosition_];
        SimulateMIDIMessage(event.Status, event.Data1, event.Data2);
        ++playPosition_;
        if (EndCheck())
            return;
    }
    ShowPosition();
    p_.Cycler.PlayLiveMIDIInput(*this);
}

bool MidiFilePlayback::EndCheck() {
    if (playPosition_ < events_.size())
        return false;
    if (!FadeOut())
        return true;
    ShowPosition();
    if (OnEnd)
        OnEnd();
    if (chkLoop) {
        MoveTo(0);
        cmdPlay_Click();
    }
    return true;
}

/// Returns the share of the events that have been played, 0..1; 1 without events.
double MidiFilePlayback::PlayedShare() const {
    return events_.empty() ? 1 : static_cast<double>(playPosition_) / static_cast<double>(events_.size());
}

void MidiFilePlayback::ShowPosition() {
    sldPosition = ToInt32(PlayedShare() * SliderHighest);
    ShowPositionTexts();
}

void MidiFilePlayback::ShowPositionTexts() {
    constexpr double Percent = 100;
    constexpr double SecondsPerMinute = 60;
    constexpr double MsPerSecond = 1000;
    lblPosPercent = FormatNumber(PlayedShare() * Percent, 1, 2) + "%";
    const double ms = playPosition_ < events_.size() ? events_[playPosition_].AbsoluteMs : Length();
    const double seconds = ms / MsPerSecond;
    const double minutes = std::floor(std::trunc(seconds) / SecondsPerMinute);
    lblPosSecs = FormatNumber(minutes, 2) + ":" + FormatNumber(seconds - minutes * SecondsPerMinute, 2, 2);
}

double MidiFilePlayback::ClockMs() const {
    constexpr double MsPerSecond = 1000;
    return Currency::FromUnits(p_.Time.PerformanceCounter()) / p_.State.TickFreq * MsPerSecond;
}

}  // namespace quavix
