// SPDX-License-Identifier: MIT
// From the first key to what the next start of the program sounds like, in programs that really run.
#include <algorithm>
#include <set>
#include <string>

#include <QDir>
#include <gtest/gtest.h>

#include "heard_sound.h"
#include "quavix_window.h"
#include "support/measure.h"
#include "support/wav_sound.h"

namespace quavix::test {
namespace {

/// Sound of a line: the notes of its tones, and the length of each tone.
struct HeardLine {
    std::set<std::string> Notes;
    double ToneMs = 0;

    bool IsAlternating() const { return ToneMs < 30; }
    /// A busy machine begins a line late, and still ends it in time.
    bool SoundsLike(const HeardLine& other) const {
        return Notes == other.Notes && ToneMs > 0.9 * other.ToneMs && ToneMs < 1.01 * other.ToneMs;
    }
};

/// The program with a sound file for a speaker, so that what it plays can be heard afterwards.
struct HeardProgram {
    explicit HeardProgram(const DesktopSession& session) : Process(session.Environment()) {
        Process.Environment.insert("QUAVIX_SPEAKER", "wav:" + Process.File("heard.wav"));
    }

    std::vector<HeardLine> HeardSince(std::size_t frame) const {
        std::vector<HeardLine> lines;
        const auto sound = ReadWavFile(Process.File("heard.wav").toStdString());
        if (!sound || sound->Frames() <= frame)
            return lines;
        constexpr double MsPerSecond = 1000;
        for (const Tone& tone : FindTones(std::span(sound->Samples).subspan(frame), sound->SampleRate)) {
            const HeardLine line{
                {NoteName(tone.FrequencyHz)},
                static_cast<double>(tone.End - tone.Start) * MsPerSecond / sound->SampleRate};
            if (line.IsAlternating() && !lines.empty() && lines.back().IsAlternating())
                lines.back().Notes.insert(line.Notes.begin(), line.Notes.end());
            else
                lines.push_back(line);
        }
        return lines;
    }

    /// Plays the whole song until these lines were heard one after the other, and stops it.
    bool PlaysUntilHeard(QuavixWindow& window, const std::vector<HeardLine>& song) {
        const auto before = ReadWavFile(Process.File("heard.wav").toStdString());
        const std::size_t start = before ? before->Frames() : 0;
        const Accessible playAll = window.Find("push button", "Play all");
        const Accessible stop = window.Find("push button", "Stop playing");
        playAll.Do("Press");
        const bool heard = window.WaitUntil([&] {
            const std::vector<HeardLine> lines = HeardSince(start);
            return std::search(lines.begin(), lines.end(), song.begin(), song.end(),
                               [](const HeardLine& line, const HeardLine& wanted) {
                                   return line.SoundsLike(wanted);
                               }) != lines.end();
        });
        stop.Do("Press");
        return window.WaitUntil([&] { return playAll.Has(AccessibleState::Enabled); }) && heard;
    }

    QuavixProcess Process;
};

/// A line with two notes, a dotted one and one more.
void Compose(QuavixWindow& window) {
    window.Find("text", "BPM").SetText("60");
    window.PressKey("C 4");
    window.Find("check box", "Dotted").Do("Toggle");
    window.PressKey("D 4");
    window.Find("check box", "Dotted").Do("Toggle");
    window.PressKey("G 4");
    window.Find("table", "List of music").CellAt(0, 0).Do("Toggle");
    window.Find("check box", "Replace instead of insert").Do("Toggle");
    window.Find("radio button", "Add as Note 2").Do("Toggle");
    window.Find("push button", "E 4").Do("Press");
    EXPECT_TRUE(window.WaitUntil([&] { return window.Row(1) == "1/8, C4 and E4"; }))
        << window.Row(1).toStdString();
}

QStringList Rows(QuavixWindow& window) {
    QStringList rows;
    for (QString row = window.Row(1); !row.isEmpty(); row = window.Row(static_cast<int>(rows.size()) + 1))
        rows += row;
    return rows;
}

TEST(WindowJourney, ASongComposedSavedAndClosedSoundsTheSameInTheNextStartOfTheProgram) {
    constexpr double EighthMs = 500;  // at 60 beats per minute
    constexpr double SoundingRatio = 0.9;
    const std::vector<HeardLine> song{
        {{"C4", "E4"}, 20}, {{"D4"}, 1.5 * EighthMs * SoundingRatio}, {{"G4"}, EighthMs * SoundingRatio}};
    const DesktopSession session;
    const QTemporaryDir songs;
    const QString file = songs.filePath("mine.QVX");

    HeardProgram first(session);
    first.Process.Start({});
    QuavixWindow composing(session, first.Process);
    Compose(composing);
    const QStringList rows = Rows(composing);
    EXPECT_EQ(rows, QStringList({"1/8, C4 and E4", "1/8, D4, dotted", "1/8, G4"}))
        << rows.join('\n').toStdString();
    EXPECT_TRUE(first.PlaysUntilHeard(composing, song));
    composing.Press("Save / Load");
    composing.Press("Save", "Save / Load");
    composing.GiveFileName("Saving music and config", songs.filePath("mine"), "Save");
    EXPECT_TRUE(composing.WaitUntil([&] { return composing.Title().endsWith(" - mine.QVX"); }));
    composing.Choose("Quit");
    EXPECT_EQ(first.Process.ExitCode(), 0);
    EXPECT_TRUE(QDir(first.Process.File("state/quavix")).isEmpty());

    HeardProgram second(session);
    second.Process.Start({file});
    QuavixWindow opened(session, second.Process);
    EXPECT_TRUE(opened.Title().endsWith(" - mine.QVX")) << opened.Title().toStdString();
    EXPECT_EQ(Rows(opened), rows);
    EXPECT_TRUE(second.PlaysUntilHeard(opened, song));
    opened.Choose("Quit");
    EXPECT_EQ(second.Process.ExitCode(), 0);
}

}  // namespace
}  // namespace quavix::test
