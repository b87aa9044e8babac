// SPDX-License-Identifier: MIT
// Whole playbacks compared, tone by tone, with a timetable that is worked out apart from the player.
#include <algorithm>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "support/recorded_playback.h"

namespace quavix {
namespace {

struct Line {
    int Length;  // index of the length
    int Note1;   // index among the notes, -1: none
    int Note2;
    int Mod;  // 0 none, 1 dotted, 2 triplet
};

struct Settings {
    int Bpm;
    int Ratio;
    int AlternateMs;
    bool Play1;
    bool Play2;
};

constexpr const char* Lengths[] = {"Whole", "Half", "Quarter", "1/8", "1/16"};
constexpr const char* Mods[] = {"", "Dot", "Tri"};
constexpr const char* Notes[] = {"C4", "E4", "A4", "F#5"};
constexpr int Hertz[] = {262, 330, 440, 740};

/// The timetable in ten-thousandths of a second and of a beat.
class Timetable {
  public:
    Timetable(const std::vector<Line>& song, const Settings& settings) : song_(song), s_(settings) {}

    std::string Play(int passes) {
        for (int pass = 0; pass < passes; ++pass) {
            for (const Line& line : song_)
                PlayLine(line);
        }
        return tones_;
    }

    std::int64_t EndMs() const { return now_ / 10; }

  private:
    std::int64_t AtBeat(std::int64_t beat) const {
        return std::llrint(static_cast<double>(beat) / 1e4 * 60 / s_.Bpm * 1e4);
    }

    void Tone(int note, double ms) {
        const auto whole = std::llrint(ms);
        tones_ +=
            fmt::format("{}.{:04} speaker {} Hz {} ms\n", now_ / 10000, now_ % 10000, Hertz[note], whole);
        now_ += whole * 10;
    }

    void PlayLine(const Line& line) {
        const double wholeNotes[] = {1, 0.5, 0.25, 0.125, 0.0625};
        const double factors[] = {1, 1.5, 0.333333333333333};
        const std::int64_t length = std::llrint(wholeNotes[line.Length] * factors[line.Mod] * 4 * 1e4);
        const std::int64_t sounding =
            std::llrint(static_cast<double>(length) / 1e4 * (s_.Ratio / 100.0) * 1e4);
        const bool has1 = line.Note1 >= 0 && s_.Play1;
        const bool has2 = line.Note2 >= 0 && s_.Play2;
        const std::int64_t end = AtBeat(beats_ + sounding);
        if (has1 && has2) {
            // At ratio 100 the step was never set, and stays 0.
            const std::int64_t step = s_.Ratio < 100 ? s_.AlternateMs * 10 : 0;
            for (; now_ + step < end; second_ = !second_)
                Tone(second_ ? line.Note2 : line.Note1, s_.AlternateMs);
        } else if ((has1 || has2) && end > now_) {
            Tone(has1 ? line.Note1 : line.Note2, static_cast<double>(end - now_) / 10);
        }
        const std::int64_t next = AtBeat(beats_ + length);
        if (s_.Ratio < 100)
            margin_ = 0;
        else if (next - now_ > 200)
            margin_ = 200;
        while (now_ + margin_ < next)
            now_ += 150;
        beats_ += length;
    }

    std::vector<Line> song_;
    Settings s_;
    std::int64_t now_ = 0;
    std::int64_t beats_ = 0;
    std::int64_t margin_ = 0;
    bool second_ = false;
    std::string tones_;
};

void ExpectSameTones(const std::vector<Line>& song, const Settings& settings, int passes) {
    test::SimulatedProgram p;
    MainFields& fields = p.App.Fields;
    fields.Song.BPM.Set(settings.Bpm);
    fields.Song.NoteSilenceRatio.Set(settings.Ratio);
    fields.Song.AlternateTime.Set(settings.AlternateMs);
    fields.Song.PlayNote1Check = settings.Play1;
    fields.Song.PlayNote2Check = settings.Play2;
    for (const Line& line : song) {
        p.App.List.Insert(p.App.List.Count() + 1,
                          {Lengths[line.Length], line.Note1 < 0 ? "" : Notes[line.Note1],
                           line.Note2 < 0 ? "" : Notes[line.Note2], Mods[line.Mod]});
    }
    p.App.Playing.PlaybackEngine.OnRangeEnd = [&, left = passes]() mutable {
        if (--left == 0)
            p.App.Playing.PlaybackEngine.StopPlayButton_Click();
    };
    p.App.Playing.PlaybackEngine.PlayAllButton_Click();
    Timetable timetable(song, settings);
    ASSERT_EQ(p.Timeline.Text("speaker"), timetable.Play(passes));
    EXPECT_EQ(p.Time.Now(), timetable.EndMs() * SimulatedTime::CountsPerMs);
}

TEST(Timetable, RandomSongsSoundExactlyAsComputed) {
    std::mt19937 random(48000);
    const auto upTo = [&random](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    for (int songNumber = 0; songNumber < 300; ++songNumber) {
        std::vector<Line> song(static_cast<std::size_t>(1 + upTo(25)));
        for (Line& line : song)
            line = {upTo(5), upTo(5) - 1, upTo(5) - 1, upTo(3)};
        const int ratios[] = {0, 5, 50, 90, 99, 100};
        const Settings settings{40 + upTo(561), ratios[upTo(6)], 15 + upTo(100), upTo(4) > 0, upTo(4) > 0};
        SCOPED_TRACE(fmt::format("song {}: {} bpm, ratio {}, alternate {}", songNumber, settings.Bpm,
                                 settings.Ratio, settings.AlternateMs));
        ExpectSameTones(song, settings, 1 + upTo(3));
        if (HasFailure())
            return;
    }
}

TEST(Timetable, ALongSongDoesNotDrift) {
    // 10,000 eighths at 139 bpm: no line lasts a whole number of milliseconds.
    const std::vector<Line> song(10'000, {3, 0, -1, 0});
    test::SimulatedProgram p;
    test::RecordedPlayback recorded(p);
    p.App.Fields.Song.BPM.Set(139);
    for (const Line& line : song)
        p.App.List.Insert(p.App.List.Count() + 1, {Lengths[line.Length], "C4", "", ""});
    std::int32_t lines = 0;
    double worst = 0;
    recorded.OnLine = [&] {
        const double now = static_cast<double>(p.Time.Now()) / SimulatedTime::CountsPerSecond;
        worst = std::max(worst, now - lines++ * 0.5 * 60 / 139);
    };
    recorded.Playback.OnRangeEnd = [&] { recorded.Playback.StopPlayButton_Click(); };
    recorded.Playback.PlayAllButton_Click();
    EXPECT_EQ(lines, 10'000);
    EXPECT_LT(worst, 0.0151) << "never later than one waiting slice";
}

}  // namespace
}  // namespace quavix
