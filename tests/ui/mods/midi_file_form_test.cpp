// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include "ui/mods/mod_forms.h"
#include "ui/ui_program.h"

namespace quavix {
namespace {

/// The program with its window of MIDI files, and a file whose ticks are milliseconds.
struct MidiFileWindow : test::UiProgram {
    MidiFileWindow() {
        Disk.Put("/windows/system32/midifl32.ocx", "the control");
        Find<QCheckBox>("UseMIDIFileCheck").click();
        MidiFiles.Content.TicksPerQuarter = 500;
        MidiFiles.Content.Tracks = {
            {{0, 0, 0x90, 60, 96}, {0, 0, 0x90, 64, 96}, {1000, 0, 0x80, 60, 0}, {2000, 0, 0x80, 64, 0}}};
        Disk.Put("/music/song.mid", "its bytes");
    }
    void Browse() {
        Picker.AnswerNext("/music/song.mid");
        Click("cmdBrowse");
    }
    ModWindow& Window() { return Find<ModWindow>("MIDIFileForm"); }
    /// Returns the notes in the grid.
    std::string Grid() {
        std::string notes;
        for (int i = 0; i < UsingForm::Labels; ++i) {
            auto& label = Find<QLabel>(("lblOnNotes" + std::to_string(i)).c_str());
            if (label.isVisible())
                notes += label.text().toStdString() + " ";
        }
        return notes;
    }
};

TEST(MIDIFileForm, IsCreatedAndShownWhenItsModIsTicked) {
    test::UiProgram p;
    p.Disk.Put("/windows/system32/midifl32.ocx", "the control");
    EXPECT_EQ(p.Form.findChild<ModWindow*>("MIDIFileForm"), nullptr);
    p.Find<QCheckBox>("UseMIDIFileCheck").click();
    auto& window = p.Find<ModWindow>("MIDIFileForm");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.windowTitle(), "MIDI File Playback Settings");
    EXPECT_FALSE(p.Find<QCheckBox>("UseMIDIInCheck").isEnabled());
    p.Find<QCheckBox>("UseMIDIFileCheck").click();
    EXPECT_FALSE(window.isVisible());
}

TEST(MIDIFileForm, IsNotShownWithoutItsControl) {
    test::UiProgram p;
    p.Find<QCheckBox>("UseMIDIFileCheck").click();
    EXPECT_EQ(p.Form.findChild<ModWindow*>("MIDIFileForm"), nullptr);
    EXPECT_FALSE(p.Find<QCheckBox>("UseMIDIFileCheck").isChecked());
    ASSERT_EQ(p.Boxes.Shown().size(), 1U);
}

TEST(MIDIFileForm, ItsTextsMatchExactly) {
    MidiFileWindow p;
    EXPECT_EQ(p.TextOf("lblFileInstruction"), "Please choose the MIDI file to play MIDI data from.");
    EXPECT_EQ(p.TextOf("lblClosing"), "Closing this window will disable MIDI file playback.");
    EXPECT_EQ(p.Find<QPushButton>("cmdBrowse").text(), "Browse...");
    EXPECT_EQ(p.Find<QGroupBox>("frmPlayback").title(), "Playback controls");
    EXPECT_EQ(p.Find<QPushButton>("cmdPlay").toolTip(), "Start playing MIDI file from current position");
    EXPECT_EQ(p.Find<QPushButton>("cmdStop").toolTip(), "Stop playing MIDI file");
    EXPECT_EQ(p.Find<QPushButton>("cmdRewind").text(), "|<<");
    EXPECT_EQ(p.Find<QPushButton>("cmdRewind").toolTip(), "Rewind to the beginning of the MIDI file");
    EXPECT_EQ(p.Find<QCheckBox>("chkLoop").text(), "Loop");
    EXPECT_EQ(p.TextOf("lblPosition"), "Position:");
    EXPECT_EQ(p.TextOf("lblPosPercent"), "100.00%");
    EXPECT_EQ(p.TextOf("lblPosSecs"), "00:00.00");
    EXPECT_EQ(p.Find<QCheckBox>("AutoTimeCheck").text(),
              "Try to make each cycle last 30 mS (with max alternating time capped to 15mS per note)");
    EXPECT_TRUE(p.Find<QCheckBox>("AutoTimeCheck").isChecked());
}

TEST(MIDIFileForm, AFileIsChosenAndPlayed) {
    MidiFileWindow p;
    EXPECT_FALSE(p.Find<QPushButton>("cmdPlay").isEnabled());
    p.Browse();
    EXPECT_EQ(p.Find<QLineEdit>("txtFile").text(), "/music/song.mid");
    EXPECT_FALSE(p.Find<QFrame>("frmInfoText").isVisible());
    p.Click("cmdPlay");
    p.Time.RunUntil(500);
    EXPECT_EQ(p.TextOf("lblPosPercent"), "50.00%");
    EXPECT_EQ(p.TextOf("lblPosSecs"), "00:01.00");
    EXPECT_EQ(p.Find<QSlider>("sldPosition").value(), 500) << "the slider follows";
    EXPECT_TRUE(p.App.Playing.MidiFilePlayback.IsPlaying()) << "and that is no move of the user's";
    EXPECT_EQ(p.TextOf("lblHeldCount"), " (2)");
    EXPECT_EQ(p.Grid(), "C5 E5 ");
    p.Click("cmdStop");
    EXPECT_FALSE(p.App.Playing.MidiFilePlayback.IsPlaying());
    p.Click("cmdRewind");
    EXPECT_EQ(p.TextOf("lblPosSecs"), "00:00.00");
}

TEST(MIDIFileForm, MovingTheSliderStopsPlaybackThere) {
    MidiFileWindow p;
    p.Browse();
    p.Click("cmdPlay");
    p.Time.RunUntil(100);
    p.Find<QSlider>("sldPosition").setValue(750);
    EXPECT_FALSE(p.App.Playing.MidiFilePlayback.IsPlaying());
    EXPECT_EQ(p.TextOf("lblPosPercent"), "75.00%");
    EXPECT_EQ(p.TextOf("lblPosSecs"), "00:02.00");
}

TEST(MIDIFileForm, LoopsWhileItsBoxIsTicked) {
    MidiFileWindow p;
    p.Browse();
    p.Click("chkLoop");
    p.Click("cmdPlay");
    p.Time.RunUntil(10'000);
    EXPECT_TRUE(p.App.Playing.MidiFilePlayback.IsPlaying());
    p.Click("chkLoop");
    p.Time.RunUntil(13'000);
    EXPECT_FALSE(p.App.Playing.MidiFilePlayback.IsPlaying());
    EXPECT_EQ(p.TextOf("lblPosPercent"), "100.00%");
}

TEST(MIDIFileForm, AChannelThatIsUntickedIsNotPlayed) {
    MidiFileWindow p;
    p.Browse();
    p.Click("ListenChannelCheck0");
    p.Click("cmdPlay");
    p.Time.RunUntil(500);
    EXPECT_EQ(p.Timeline.Text("speaker"), "");
    EXPECT_EQ(p.TextOf("lblHeldCount"), " (0)");
}

TEST(MIDIFileForm, ShowsItsProgressWhileItOpensAFile) {
    MidiFileWindow p;
    std::string shown;
    p.App.Playing.MidiFilePlayback.lblInfoText.Watch([&](const std::string& text) {
        if (shown.empty()) {
            EXPECT_FALSE(p.Find<QPushButton>("cmdBrowse").isEnabled());
            EXPECT_EQ(p.TextOf("lblInfoText").toStdString(), text);
        }
        shown += text + "|";
    });
    p.App.Playing.MidiFilePlayback.frmInfoTextVisible.Watch(
        [&](bool visible) { EXPECT_EQ(p.Find<QFrame>("frmInfoText").isVisible(), visible); });
    p.Browse();
    EXPECT_THAT(shown, testing::StartsWith("Initialising... |Decoding tempo changes... Track 01|"));
}

TEST(MIDIFileForm, ClosingItUnticksTheModAndStopsPlayback) {
    MidiFileWindow p;
    p.Browse();
    p.Click("cmdPlay");
    p.Time.RunUntil(100);
    p.Window().close();
    EXPECT_FALSE(p.Window().isVisible());
    EXPECT_FALSE(p.Find<QCheckBox>("UseMIDIFileCheck").isChecked());
    EXPECT_TRUE(p.Find<QCheckBox>("UseMIDIInCheck").isEnabled());
    p.Timeline.Clear();
    p.Time.RunUntil(500);
    EXPECT_EQ(p.Timeline.Text("speaker"), "");
}

TEST(MIDIFileForm, TheMainWindowClosedInTheMiddleEndsTheProgram) {
    MidiFileWindow p;
    p.Browse();
    p.Click("cmdPlay");
    p.Boxes.AnswerNext(BoxAnswer::No);  // the automatic time has changed a setting of the song
    p.Time.At(100, [&] { p.Form.close(); });
    p.Time.RunUntil(1000);
    EXPECT_THAT(p.Timeline.Text("process"), testing::HasSubstr("process ends\n"));
    p.Timeline.Clear();
    p.Time.RunUntil(1500);
    EXPECT_EQ(p.Timeline.Text("speaker"), "");
}

TEST(MIDIFileForm, TheHelpTextMatchesExactly) {
    test::UiProgram p;
    p.Click("UseMIDIFileHButton");
    ASSERT_EQ(p.Boxes.Shown().size(), 1U);
    const MessageBox& box = p.Boxes.Shown()[0];
    EXPECT_EQ(box.Icon, BoxIcon::Information);
    EXPECT_EQ(box.Title, "Playing a MIDI file");
    EXPECT_EQ(
        box.Text,
        "Lets you choose a MIDI file on your computer which this program will then play through the PC "
        "speaker.\r\n\r\nThere is NO LIMIT to the number of simultaneous notes!\r\nSimilar to the way it "
        "alternates between 'Note 1' and 'Note 2' in the music \r\nlist, the program will cycle through all "
        "notes which the MIDI file is currently playing, playing a brief pulse of each note in turn. Because "
        "of this, though, it can start to sound silly when trying to play a lot of notes at once.\r\nTo avoid "
        "this, you can tell the program to only bother to play notes on specific channels.\r\n\r\nThis mod is "
        "identical to the MIDI input mod, except with this mod you choose a file rather than play the notes "
        "yourself on an external keyboard, for example.");
}

TEST(MIDIFileForm, AMidiFileDroppedOnTheMainWindowIsOpened) {
    MidiFileWindow p;
    p.Find<QCheckBox>("UseMIDIFileCheck").click();
    p.Drop("/music/song.mid");
    EXPECT_TRUE(p.Window().isVisible());
    EXPECT_EQ(p.Find<QLineEdit>("txtFile").text(), "/music/song.mid");
    EXPECT_FALSE(p.App.Playing.MidiFilePlayback.IsPlaying());
}

}  // namespace
}  // namespace quavix
