// SPDX-License-Identifier: MIT
#include "midi/held_note_cycler.h"

#include <gtest/gtest.h>

#include "midi/cycling_form.h"
#include "shell/runtime_error.h"
#include "support/simulated_program.h"

namespace quavix {
namespace {

/// Writes down what a tone is asked for; its duration passes.
class RecordedTones : public ToneOutput {
  public:
    RecordedTones(SimulatedTime& time, Timeline& timeline) : time_(time), timeline_(timeline) {}

    void Sound(const Tone& tone) override {
        const ToneOptions& options = tone.Options;
        timeline_.Record(time_.Now(), fmt::format("tone {} {} ms {}{}{}{}", tone.Text, tone.DurationMs,
                                                  options.NoteIsFrequency, options.SpecificContinuous,
                                                  options.SpecificStop, options.FMODNoWait));
        if (OnTone)
            OnTone();
        time_.Block(static_cast<std::int64_t>(tone.DurationMs));
    }

    std::function<void()> OnTone;

  private:
    SimulatedTime& time_;
    Timeline& timeline_;
};

class HeldNoteCyclerTest : public testing::Test {
  protected:
    void Step(int times = 1) {
        while (times-- > 0)
            Cycler.PlayLiveMIDIInput(Form);
    }

    /// The notes of all tones so far, "C5 E5 ".
    std::string NotesPlayed() const {
        std::string notes;
        for (const std::string& line : P.Timeline.Lines()) {
            const std::size_t tone = line.find("tone ");
            if (tone != std::string::npos)
                notes += line.substr(tone + 5, line.find(' ', tone + 5) - tone - 4);
        }
        return notes;
    }

    test::SimulatedProgram P;
    MainFields& Fields = P.App.Fields;
    RecordedTones Sounds{P.Time, P.Timeline};
    FmodToneGenerator& Generator = P.App.Outputs.SoundMods.Generator;
    HeldNoteCycler Cycler{Fields.Song, Fields.View, Sounds, Generator};
    test::CyclingForm Form{P.App.Handlers};
};

TEST_F(HeldNoteCyclerTest, WithoutHeldNotesAStepShowsNoneAndSilencesTheGenerator) {
    Fields.Mods.UseFMOD.InUse = true;
    Form.Press({60});
    Step();
    P.Timeline.Clear();
    Form.Release({60});
    Step(2);
    EXPECT_EQ(Form.Grid(), "");
    EXPECT_EQ(Form.lblHeldCount.Get(), " (0)");
    EXPECT_FALSE(Form.lblMoreOnNotesVisible);
    EXPECT_EQ(P.Timeline.Text(),
              "0.0200 fmod FMOD_Channel_SetPaused(null, 1)\n0.0200 fmod FMOD_Channel_SetPaused(null, 1)\n");
}

TEST_F(HeldNoteCyclerTest, WithoutHeldNotesTheAutomaticTimeIsFifteen) {
    Form.AutoTimeCheck = true;
    Step();
    EXPECT_EQ(Fields.Song.AlternateTime, 15);
    EXPECT_EQ(Fields.Song.AlternateTime.Text(), "15");
}

TEST_F(HeldNoteCyclerTest, PulsesTheHeldNotesFromTheLowestToTheHighestAndAgain) {
    Form.Press({67, 60, 64});
    Step(7);
    EXPECT_EQ(NotesPlayed(), "C5 E5 G5 C5 E5 G5 C5 ");
    EXPECT_EQ(P.Timeline.Lines().at(1), "0.0200 tone E5 20 ms falsetruefalsetrue")
        << "for the alternate time, continuously and without a wait";
}

TEST_F(HeldNoteCyclerTest, APulseHandedToTheProgramsTonesLastsTheAlternateTime) {
    HeldNoteCycler cycler(Fields.Song, Fields.View, P.App.Outputs.ToneDispatcher, Generator);
    Fields.Song.AlternateTime.Set(33);
    Form.Press({57});
    cycler.PlayLiveMIDIInput(Form);
    EXPECT_EQ(P.Timeline.Text(), "0.0000 speaker 440 Hz 33 ms\n");
}

TEST_F(HeldNoteCyclerTest, ShowsTheHeldNotesAndTheOneThatIsPulsed) {
    Form.Press({60, 64, 67});
    std::vector<std::string> grids;
    Sounds.OnTone = [&] { grids.push_back(Form.Grid()); };
    Step(4);
    EXPECT_EQ(grids, (std::vector<std::string>{"*C5 E5 G5 ", "C5 *E5 G5 ", "C5 E5 *G5 ", "*C5 E5 G5 "}));
    EXPECT_EQ(Form.lblHeldCount.Get(), " (3)");
}

TEST_F(HeldNoteCyclerTest, ThePlayingLabelIsShownForTheLengthOfThePulse) {
    Form.Press({60});
    bool shownInTone = false;
    Sounds.OnTone = [&] { shownInTone = Fields.View.BeepTextLabelVisible; };
    Step();
    EXPECT_TRUE(shownInTone);
    EXPECT_FALSE(Fields.View.BeepTextLabelVisible);
}

TEST_F(HeldNoteCyclerTest, ThePlayingLabelIsHiddenAfterAFailedTone) {
    Form.Press({60});
    Sounds.OnTone = [] { throw RuntimeError(RuntimeError::Overflow); };
    EXPECT_THROW(Step(), RuntimeError);
    EXPECT_FALSE(Fields.View.BeepTextLabelVisible);
}

TEST_F(HeldNoteCyclerTest, ThirtyTwoNotesFillTheGrid) {
    Form.PressRange(36, 32);
    Step();
    EXPECT_FALSE(Form.lblMoreOnNotesVisible);
    EXPECT_EQ(Form.lblOnNotes.Get().back().Caption, "G5");
    EXPECT_TRUE(Form.lblOnNotes.Get().back().Visible);
}

TEST_F(HeldNoteCyclerTest, ThirtyTwoOfThirtyThreeNotesAreShownAndAllArePulsed) {
    Form.PressRange(36, 33);
    Step(32);
    P.Timeline.Clear();
    Step();
    EXPECT_EQ(NotesPlayed(), "G#5 ");
    EXPECT_EQ(Form.lblMoreOnNotes.Get(), "(1 more)");
    EXPECT_TRUE(Form.lblMoreOnNotesVisible);
    EXPECT_EQ(Form.lblHeldCount.Get(), " (33)");
    EXPECT_EQ(Form.Grid().find('*'), std::string::npos) << "the last one has no label to light up";
    Step();
    EXPECT_EQ(NotesPlayed(), "G#5 C3 ");
    Form.Release({36});
    Step();
    EXPECT_FALSE(Form.lblMoreOnNotesVisible);
}

TEST_F(HeldNoteCyclerTest, AllHundredAndTwentyEightNotesAreCycled) {
    Form.PressRange(0, 128);
    Step(129);
    EXPECT_EQ(P.Timeline.Lines().size(), 129U);
    EXPECT_NE(P.Timeline.Lines()[127].find("tone G10 "), std::string::npos);
    EXPECT_NE(P.Timeline.Lines()[128].find("tone C0 "), std::string::npos);
    EXPECT_EQ(Form.lblMoreOnNotes.Get(), "(96 more)");
}

TEST_F(HeldNoteCyclerTest, NotesThatComeAndGoTakeEffectAtTheNextStep) {
    Fields.Mods.UseFMOD.InUse = true;
    Form.Press({60, 64});
    Step();  // C5
    Form.Press({62});
    Step();  // the place in the list stays: D5
    Form.Release({60});
    Step();  // place 2 of two notes is past the end
    Form.Release({62, 64});
    Step();
    EXPECT_EQ(NotesPlayed(), "C5 D5 D5 ");
    EXPECT_EQ(P.Timeline.Text("fmod"), "0.0600 fmod FMOD_Channel_SetPaused(null, 1)\n");
}

TEST_F(HeldNoteCyclerTest, ThePlaceInTheCycleIsSharedByAllForms) {
    test::CyclingForm other(P.App.Handlers);
    Form.Press({60, 64, 67});
    other.Press({48, 52, 55});
    Step();
    Cycler.PlayLiveMIDIInput(other);
    Step();
    EXPECT_EQ(NotesPlayed(), "C5 E4 G5 ");
}

TEST_F(HeldNoteCyclerTest, WithPlayOnlyOnceAHeldChordFallsSilentAfterOneCycle) {
    Form.OnlyOnceCheck = true;
    Form.Press({60, 64, 67});
    Step(10);
    // Each note drops out of the list, so that the place moves past the one that follows it.
    EXPECT_EQ(NotesPlayed(), "C5 G5 E5 ");
    EXPECT_EQ(Form.lblHeldCount.Get(), " (0)");
    EXPECT_EQ(Form.Grid(), "");
    Form.Press({60});
    Step(2);
    EXPECT_EQ(NotesPlayed(), "C5 G5 E5 ") << "a second note-on of a held note plays nothing";
    Form.Release({60});
    Form.Press({60});
    Step(2);
    EXPECT_EQ(NotesPlayed(), "C5 G5 E5 C5 ");
}

TEST_F(HeldNoteCyclerTest, ANoteReleasedInItsPulsePlaysWhenStruckAgainWithPlayOnlyOnce) {
    Form.OnlyOnceCheck = true;
    Form.Press({60});
    Sounds.OnTone = [this] { Form.Release({60}); };
    Step();
    Sounds.OnTone = nullptr;
    Form.Press({60});
    Step(3);
    EXPECT_EQ(NotesPlayed(), "C5 C5 ");
}

TEST_F(HeldNoteCyclerTest, WithoutTheGridLabelsStayHiddenButTheRestIsShown) {
    Form.Press({60, 64});
    Step();
    Form.SaveCPUCheck = true;
    Form.PressRange(36, 33);
    Step();
    EXPECT_EQ(Form.Grid(), "");
    EXPECT_EQ(Form.lblOnNotes.Get().at(1).Colour, OnNoteLabel::Pulsed) << "coloured all the same";
    EXPECT_EQ(Form.lblOnNotes.Get().at(1).Caption, "E5") << "as it was";
    EXPECT_EQ(Form.lblHeldCount.Get(), " (33)");
    EXPECT_EQ(Form.lblMoreOnNotes.Get(), "(1 more)");
    EXPECT_TRUE(Form.lblMoreOnNotesVisible);
    Form.SaveCPUCheck = false;
    Form.ReleaseAllNotes();
    Form.Press({60, 64});
    Step();
    EXPECT_EQ(Form.Grid(), "*C5 E5 ");
}

TEST_F(HeldNoteCyclerTest, TheLabelsChangeInOneNotification) {
    int changes = 0;
    Form.lblOnNotes.Watch([&](const auto&) { ++changes; });
    Form.PressRange(40, 20);
    Step(3);
    EXPECT_EQ(changes, 3);
}

struct AutomaticTime {
    std::int32_t Held;
    std::int16_t Time;
};

class AutomaticTimeTest : public HeldNoteCyclerTest, public testing::WithParamInterface<AutomaticTime> {};

TEST_P(AutomaticTimeTest, DividesThirtyMillisecondsAmongTheHeldNotes) {
    Form.AutoTimeCheck = true;
    Form.PressRange(0, GetParam().Held);
    Step();
    EXPECT_EQ(Fields.Song.AlternateTime, GetParam().Time);
    EXPECT_EQ(Fields.Song.AlternateTime.Text(), std::to_string(GetParam().Time));
    EXPECT_NE(P.Timeline.Text().find(fmt::format(" {} ms ", GetParam().Time)), std::string::npos)
        << "the step's own pulse lasts as long";
}

INSTANTIATE_TEST_SUITE_P(Counts, AutomaticTimeTest,
                         testing::Values(AutomaticTime{1, 15}, AutomaticTime{2, 15}, AutomaticTime{3, 10},
                                         AutomaticTime{4, 8}, AutomaticTime{5, 6}, AutomaticTime{6, 5},
                                         AutomaticTime{7, 4}, AutomaticTime{12, 2}, AutomaticTime{20, 2},
                                         AutomaticTime{21, 1}, AutomaticTime{59, 1}, AutomaticTime{60, 0},
                                         AutomaticTime{61, 0}, AutomaticTime{128, 0}));

TEST_F(HeldNoteCyclerTest, ATimeBelowTheFieldsRangeTakesEffect) {
    Form.AutoTimeCheck = true;
    Form.Press({60, 64, 67});
    Step();
    EXPECT_EQ(Fields.Song.AlternateTime.BackColor(), colour::Orange);
    EXPECT_EQ(Fields.Song.AlternateTime, 10);
    Form.Release({60});
    Step();
    EXPECT_EQ(Fields.Song.AlternateTime.BackColor(), colour::WindowBackground);
    EXPECT_EQ(Fields.Song.AlternateTime, 15);
}

TEST_F(HeldNoteCyclerTest, TheAutomaticTimeDoesNotModifyTheSong) {
    const std::uint64_t changes = P.App.Editing.EditHistory.Changes;
    Form.AutoTimeCheck = true;
    Form.Press({60, 64});
    Step();
    EXPECT_EQ(Fields.Song.AlternateTime.Text(), "15");
    EXPECT_FALSE(P.App.Editing.EditHistory.Modified);
    EXPECT_EQ(P.App.Editing.EditHistory.Changes, changes);
    Fields.Song.AlternateTime.Type("33");
    EXPECT_TRUE(P.App.Editing.EditHistory.Modified);
    EXPECT_GT(P.App.Editing.EditHistory.Changes, changes);
    Step();
    EXPECT_TRUE(P.App.Editing.EditHistory.Modified) << "the user's change is one";
    Fields.Song.AlternateTime.Type("20");
    EXPECT_FALSE(P.App.Editing.EditHistory.Modified);
}

TEST_F(HeldNoteCyclerTest, ASongSavedWithTheAutomaticTimeContainsIt) {
    Form.AutoTimeCheck = true;
    Form.Press({60});
    Step();
    P.App.Editing.EditHistory.MarkSaved();
    Step();
    EXPECT_FALSE(P.App.Editing.EditHistory.Modified);
    Fields.Song.AlternateTime.Type("20");
    EXPECT_TRUE(P.App.Editing.EditHistory.Modified);
}

TEST_F(HeldNoteCyclerTest, WithoutTheAutomaticTimeTheAlternateTimeIsNotChanged) {
    Fields.Song.AlternateTime.Type("100");
    Form.Press({60, 64, 67});
    Step();
    EXPECT_EQ(Fields.Song.AlternateTime, 100);
    EXPECT_EQ(Fields.Song.AlternateTime.Text(), "100");
}

}  // namespace
}  // namespace quavix
