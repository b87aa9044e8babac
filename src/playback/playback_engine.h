// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>

#include "fmod/fmod_tone_generator.h"
#include "fmod/voice_main_form.h"
#include "music/dotted_triplet_boxes.h"
#include "music/main_fields.h"
#include "music/music_list.h"
#include "playback/position_display.h"
#include "playback/synchro_play.h"
#include "playback/tone_dispatcher.h"
#include "shell/debug_log.h"
#include "shell/waiting.h"

namespace quavix {

/// Dependencies of PlaybackEngine. All must outlive it.
struct PlaybackParts {
    const SongFields& Song;
    const ModFields& Mods;
    const OutputOptions& Output;
    ProgramState& State;
    PlaybackView& View;
    MusicList& List;
    DottedTripletBoxes& DottedTriplet;
    PositionDisplay& Position;
    ToneDispatcher& Tones;
    ToneCode& Code;
    FmodToneGenerator& Generator;
    VoiceMainForm& Singer;
    /// Called at the start of every line, before its tones. May sound tones, which takes time.
    std::function<void()> LineStarts;
    SynchroPlay& Synchro;
    Clock& Time;
    Waiting& Wait;
    MessageBoxes& Boxes;
    DebugLog& Log;
};

/// Plays ranges of the music list on an absolute timetable: each line starts at the start of playback plus
/// all beats before it, so that delays don't add up. Waits run handlers, so the list, the settings and the
/// switches may change at any tone; they are read again for each line. Watches the tempo during the whole
/// lifetime of the fields, and must live as long.
class PlaybackEngine {
  public:
    explicit PlaybackEngine(PlaybackParts parts);
    PlaybackEngine(const PlaybackEngine&) = delete;
    PlaybackEngine& operator=(const PlaybackEngine&) = delete;

    /// Plays lines `startPoint` to `endPoint` repeatedly until MusicIsPlaying is cleared; with `onlyThisLine`
    /// (a line was clicked), once and without waiting for the line's end. Returns when playback has ended. A
    /// missing line shows a message; a missing end point becomes the last line. Errors of the time arithmetic
    /// (a tempo of 0) end playback and are passed on.
    void PlayMusic(std::int32_t& startPoint, std::int32_t& endPoint, bool onlyThisLine);

    // A click during playback plays at once, inside the wait of the current playback, which ends after its
    // sounding tone. With MostNestedRuns nested, a click only ends the innermost one and plays after it;
    // several such clicks play in order. A stop, a new song or an error drops waiting clicks; missing rows
    // are skipped.

    void PlayAllButton_Click();
    void PlayFromLineButton_Click();
    /// Requests playback to stop, which it does after the sounding tone.
    void StopPlayButton_Click();
    /// Handles a click on a row: plays that line once.
    void MainList_ItemClick(std::int32_t row);

    /// Called at the end of the range before it repeats; may clear MusicIsPlaying.
    std::function<void()> OnRangeEnd;

  private:
    /// The request of a click.
    struct Request {
        std::int32_t StartPoint;
        bool OnlyThisLine;
    };
    /// A line of music during its playback.
    struct Line {
        Currency Length;  // beats
        Tone Note1;
        Tone Note2;
        bool IsTriplet = false;
    };
    /// State of one call of PlayMusic across lines.
    struct Run {
        std::int32_t StartPoint;
        std::int32_t& EndPoint;
        bool OnlyThisLine;
        std::int32_t CurrentLine;
        Currency AlternationStep = {};
        Currency WaitingMargin = {};
        /// True while the position is not updated with every line.
        bool PositionStoodStill = false;
    };

    void EnableCommonControls(bool enable);
    void EnableStopping(bool enable);
    void BeforePlayMusic();
    void AfterPlayMusic();
    void Start(const Request& request);
    void Play(Request request);
    bool PrepareRange(std::int32_t startPoint, std::int32_t& endPoint);
    bool PlayLine(Run& run);
    void ShowEndPointMessages(std::int32_t& endPoint);
    Line ReadLine(std::int32_t row);
    void SetVoicePitch(const Line& line);
    void SoundLine(Run& run, const Line& line);
    void SoundSingleNote(const Tone& note, const Line& line);
    void SoundAlternating(Run& run, const Line& line);
    void KeepToneTime(Currency toneStart);
    void SilenceGeneratorInRest(const Line& line);
    void CatchUpPosition(Run& run);
    void UpdatePosition(const Run& run, const Line& line);
    void ShowStartOf(std::int32_t row);
    bool WaitForNextLine(Run& run, const Line& line);
    void EndOfRange(Run& run);

    /// Reads the time into currentTickTime_; returns the counter reading.
    Currency ReadClock();
    void ReadClockWithLog();
    Currency TimeAtBeat(Currency beatsAfterPlayed) const;
    Currency SoundingBeats(const Line& line) const;
    void Sound(Tone tone, double durationMs, bool continuous);
    void Message(const std::string& text);
    void TempoChanged();

    PlaybackParts p_;
    int running_ = 0;
    std::deque<Request> waiting_;
    Currency startTickTime_;
    Currency currentTickTime_;
    Currency playedBeats_;
    std::int32_t timetableBpm_;
    double position_ = 0;
    bool alternateNote2Next_ = false;
};

}  // namespace quavix
