// SPDX-License-Identifier: MIT
#include "ui/mods/mod_forms.h"
#include "ui/ui_program.h"

namespace quavix {
namespace {

TEST(BeatForm, IsShownWhileTheBeatIsTickedAndUnticksItWhenClosed) {
    test::UiProgram p;
    EXPECT_EQ(p.Form.findChild<ModWindow*>("BeatForm"), nullptr) << "not made before it is wanted";
    auto& check = p.Find<QCheckBox>("UseBeatCheck");
    check.click();
    auto& form = p.Find<ModWindow>("BeatForm");
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(p.App.Fields.Mods.UseBeat.InUse);
    check.click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(p.App.Fields.Mods.UseBeat.InUse);
    check.click();
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(p.Form.findChildren<ModWindow*>("BeatForm").size(), 1);
    form.close();
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(check.isChecked());
    EXPECT_FALSE(p.App.Fields.Mods.UseBeat.InUse);
}

TEST(BeatForm, LeavesTheCheckBoxesFree) {
    test::UiProgram p;
    p.Find<QCheckBox>("UseBeatCheck").click();
    const auto& panel = p.Find<QWidget>("ModsPanel");
    EXPECT_LE(p.Find<ModWindow>("BeatForm").frameGeometry().right(), panel.mapToGlobal(QPoint(0, 0)).x());
}

TEST(BeatForm, ChoosesTheBeats) {
    test::UiProgram p;
    p.Find<QCheckBox>("UseBeatCheck").click();
    EXPECT_TRUE(p.Find<QRadioButton>("optBeatAll").isChecked());
    p.Find<QRadioButton>("optBeatEven").click();
    EXPECT_FALSE(p.App.Playing.Beat.optBeatAll);
    p.Find<QRadioButton>("optBeatAll").click();
    EXPECT_TRUE(p.App.Playing.Beat.optBeatAll);
}

TEST(BeatForm, TickedUnderDoNotUpdateTheCheckBoxAsksFirst) {
    test::UiProgram p;
    p.Click("NoUpdateCheck");
    p.Boxes.AnswerNext(BoxAnswer::Yes);
    p.Find<QCheckBox>("UseBeatCheck").click();
    EXPECT_EQ(p.Boxes.Shown().back().Title, "Info about playing a beat sound");
    EXPECT_FALSE(p.Find<QCheckBox>("NoUpdateCheck").isChecked());
    EXPECT_TRUE(p.Find<ModWindow>("BeatForm").isVisible());
}

}  // namespace
}  // namespace quavix
