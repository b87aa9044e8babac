// SPDX-License-Identifier: MIT
#include "ui/dialogs/speaker_form.h"

#include <QPlainTextEdit>

#include "ui/ui_program.h"

namespace quavix {
namespace {

SpeakerForm& OpenDetails(test::UiProgram& p) {
    p.Click("SpeakerDetailsButton");
    return p.Find<SpeakerForm>("SpeakerForm");
}

TEST(SpeakerPanel, SaysWhichSpeakerIsInUseAndWhyItIsNotTheRealOne) {
    test::UiProgram p;
    EXPECT_EQ(p.TextOf("SpeakerLabel"), "Speaker: PC speaker");
    p.Speaker.Now = {.InUse = "silent", .Reason = "no access", .Remedy = {}, .Silent = true};
    p.SetSong({"Quarter C4 - -"});
    p.ClickAt(100, "StopPlayButton");
    p.Click("PlayAllButton");
    EXPECT_EQ(p.TextOf("SpeakerLabel"), QString::fromUtf8("Speaker: silent – no access"));
}

TEST(SpeakerForm, ShowsTheRemedyAndCopiesIt) {
    test::UiProgram p;
    p.Speaker.Now = {.InUse = "sound card", .Reason = "no access", .Remedy = "a rule\nto copy"};
    SpeakerForm& form = OpenDetails(p);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(p.TextOf("lblInUse"), "sound card");
    EXPECT_EQ(p.TextOf("lblReason"), "no access");
    EXPECT_EQ(p.Find<QPlainTextEdit>("RemedyText").toPlainText(), "a rule\nto copy");
    p.Click("RemedyCopyButton");
    EXPECT_EQ(QApplication::clipboard()->text(), "a rule\nto copy");
    p.Click("SpeakerCloseButton");
    EXPECT_FALSE(form.isVisible());
}

TEST(SpeakerForm, HidesEmptyTexts) {
    test::UiProgram p;
    OpenDetails(p);
    EXPECT_FALSE(p.Find<QWidget>("lblReason").isVisible());
    EXPECT_FALSE(p.Find<QWidget>("RemedyText").isVisible());
    EXPECT_FALSE(p.Find<QWidget>("RemedyCopyButton").isVisible());
}

TEST(SpeakerForm, TestSoundsATone) {
    test::UiProgram p;
    OpenDetails(p);
    p.Click("SpeakerTestButton");
    EXPECT_EQ(p.Timeline.Text("speaker"), "0.0000 speaker 440 Hz 300 ms\n");
}

}  // namespace
}  // namespace quavix
