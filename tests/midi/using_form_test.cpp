// SPDX-License-Identifier: MIT
#include "midi/using_form.h"

#include <gtest/gtest.h>

#include "midi/cycling_form.h"
#include "shell/runtime_error.h"
#include "support/simulated_program.h"

namespace quavix {
namespace {

class UsingFormTest : public testing::Test {
  protected:
    test::SimulatedProgram P;
    std::string Held() const { return test::NotesHeldIn(Form); }

    test::CyclingForm Form{P.App.Handlers};
};

TEST_F(UsingFormTest, ListensToAllChannelsAtFirst) {
    for (std::int32_t channel = 0; channel < UsingForm::Channels; ++channel)
        Form.TakeMessage(0x90 + channel, 60 + channel, 1);
    EXPECT_EQ(Held(), "60 61 62 63 64 65 66 67 68 69 70 71 72 73 74 75 ");
}

TEST_F(UsingFormTest, ANoteOffReleasesTheNoteWhateverItsVelocity) {
    EXPECT_EQ(Form.HeldAfter({{0x90, 60, 100}, {0x90, 61, 100}, {0x80, 60, 127}}), "61 ");
}

TEST_F(UsingFormTest, ANoteOnOfVelocityZeroReleasesTheNoteLikeANoteOff) {
    EXPECT_EQ(Form.HeldAfter({{0x93, 60, 100}, {0x93, 60, 0}}), "");
}

TEST_F(UsingFormTest, ANoteIsReleasedOnWhicheverChannelItWasPressed) {
    EXPECT_EQ(Form.HeldAfter({{0x90, 60, 100}, {0x8F, 60, 0}}), "");
}

TEST_F(UsingFormTest, AllOtherMessagesAreIgnored) {
    Form.TakeMessage(0x90, 60, 100);
    for (std::int32_t status = 0; status <= 0xFF; ++status) {
        if (status < 0x80 || status > 0x9F) {
            Form.TakeMessage(status, 60, 0);
            Form.TakeMessage(status, 61, 64);
            Form.TakeMessage(status, 200, 64);
        }
    }
    EXPECT_EQ(Held(), "60 ");
}

TEST_F(UsingFormTest, MessagesOnAnUntickedChannelChangeNothing) {
    Form.ListenChannelCheck[9] = false;
    EXPECT_EQ(Form.HeldAfter({{0x99, 60, 100}}), "");
    EXPECT_EQ(Form.HeldAfter({{0x90, 60, 100}, {0x89, 60, 0}, {0x99, 60, 0}}), "60 ");
}

TEST_F(UsingFormTest, UntickingAnyChannelReleasesEveryHeldNote) {
    Form.TakeMessage(0x90, 60, 100);
    Form.TakeMessage(0x95, 64, 100);
    Form.SetMIDINoteHasPlayed(64);
    Form.ListenChannelCheck[12] = false;
    EXPECT_EQ(Held(), "");
    Form.TakeMessage(0x95, 64, 100);
    EXPECT_EQ(Held(), "64 ") << "also those that have played";
}

TEST_F(UsingFormTest, TickingAChannelChangesNothing) {
    Form.ListenChannelCheck[12] = false;
    Form.TakeMessage(0x90, 60, 100);
    Form.ListenChannelCheck[12] = true;
    EXPECT_EQ(Held(), "60 ");
}

TEST_F(UsingFormTest, ANoteThatHasPlayedIsNotOnUntilItIsReleasedAndStruckAgain) {
    Form.TakeMessage(0x90, 60, 100);
    Form.SetMIDINoteHasPlayed(60);
    EXPECT_FALSE(Form.GetMIDINoteIsOn(60));
    Form.TakeMessage(0x90, 60, 100);
    EXPECT_FALSE(Form.GetMIDINoteIsOn(60)) << "a second note-on of a held note changes nothing";
    Form.TakeMessage(0x80, 60, 0);
    Form.TakeMessage(0x90, 60, 100);
    EXPECT_TRUE(Form.GetMIDINoteIsOn(60));
}

TEST_F(UsingFormTest, TheLowestAndTheHighestNoteAreAccepted) {
    Form.TakeMessage(0x90, 0, 1);
    Form.TakeMessage(0x90, 127, 1);
    EXPECT_EQ(Held(), "0 127 ");
}

TEST_F(UsingFormTest, ANoteNumberOutsideTheTableIsAnArrayBoundsError) {
    EXPECT_THROW(Form.TakeMessage(0x90, 128, 1), RuntimeError);
    EXPECT_THROW(Form.TakeMessage(0x80, -1, 0), RuntimeError);
    EXPECT_THROW(Form.GetMIDINoteIsOn(128), RuntimeError);
    EXPECT_THROW(Form.SetMIDINoteHasPlayed(-1), RuntimeError);
    try {
        Form.TakeMessage(0x90, 128, 1);
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), RuntimeError::SubscriptOutOfRange);
    }
}

TEST_F(UsingFormTest, SimulatedMessagesWithImpossibleNotesAreIgnored) {
    Form.SimulateMIDIMessage(0x90, 128, 1);
    Form.SimulateMIDIMessage(0x90, 255, 1);
    Form.SimulateMIDIMessage(0x90, -1, 1);
    EXPECT_EQ(Held(), "");
    Form.SimulateMIDIMessage(0x90, 127, 1);
    Form.SimulateMIDIMessage(0xFF, 0x51, 1);
    EXPECT_EQ(Held(), "127 ");
    Form.SimulateMIDIMessage(0x9F, 127, 0);
    EXPECT_EQ(Held(), "");
}

TEST_F(UsingFormTest, TheOnlyOnceBoxSetsItsSwitch) {
    EXPECT_FALSE(Form.OnlyPlayNoteOnce);
    Form.OnlyOnceCheck = true;
    EXPECT_TRUE(Form.OnlyPlayNoteOnce);
    Form.OnlyOnceCheck = false;
    EXPECT_FALSE(Form.OnlyPlayNoteOnce);
}

}  // namespace
}  // namespace quavix
