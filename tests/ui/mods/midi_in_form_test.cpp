// SPDX-License-Identifier: MIT
#include "ui/mods/mod_forms.h"
#include "ui/ui_program.h"

namespace quavix {
namespace {

struct MidiInProgram : test::UiProgram {
    MidiInProgram() {
        AttachMidiInputs();
        Find<QCheckBox>("UseMIDIInCheck").click();
    }

    ModWindow& Window() { return Find<ModWindow>("MIDIInForm"); }
    QCheckBox& Channel(int index) {
        return Find<QCheckBox>(("ListenChannelCheck" + std::to_string(index)).c_str());
    }
    QLabel& NoteLabel(int index) { return Find<QLabel>(("lblOnNotes" + std::to_string(index)).c_str()); }

    /// So many notes arrive, and a step of the cycle shows them.
    void Hold(int count) {
        std::vector<MidiMessage> messages;
        for (int note = 36; note < 36 + count; ++note)
            messages.push_back({0x90, static_cast<std::uint8_t>(note), 64});
        const double now = static_cast<double>(Time.Now()) / SimulatedTime::CountsPerMs;
        MidiIn.ArriveAt(now, messages);
        Time.RunUntil(now + 16);
    }

    /// Returns the notes in the grid, with a star before the note that is being pulsed.
    std::string Grid() {
        std::string grid;
        for (int index = 0; index < 32; ++index) {
            const QLabel& label = NoteLabel(index);
            const QColor colour = label.palette().color(QPalette::Window);
            if (label.isVisible())
                grid += (colour == QColor(255, 0, 0)   ? "*"
                         : colour == QColor(128, 0, 0) ? ""
                                                       : "?") +
                        label.text().toStdString() + " ";
        }
        return grid;
    }
};

TEST(MIDIInForm, IsShownWhileItsModIsTicked) {
    MidiInProgram p;
    EXPECT_TRUE(p.Window().isVisible());
    EXPECT_FALSE(p.Window().isModal());
    EXPECT_EQ(p.Window().windowTitle(), "Live MIDI Input Settings");
    EXPECT_FALSE(p.Find<QCheckBox>("UseMIDIFileCheck").isEnabled());
    p.Find<QCheckBox>("UseMIDIInCheck").click();
    EXPECT_FALSE(p.Window().isVisible());
}

TEST(MIDIInForm, ItsTextsMatchExactly) {
    MidiInProgram p;
    EXPECT_EQ(p.TextOf("lblDeviceInstruction"),
              "Please choose the MIDI input device to listen to the MIDI data from.");
    EXPECT_EQ(p.TextOf("lblChannelInstruction"),
              "Please choose the specific channel(s) which should be listened to. Unselected channels will "
              "be ignored.");
    EXPECT_EQ(p.TextOf("lblClosing"), "Closing this window will disable MIDI input.");
    EXPECT_EQ(p.TextOf("lblOnNotesCaption"), "Notes which are currently being held on:");
    EXPECT_EQ(p.TextOf("lblHeldCount"), " (0)");
    EXPECT_EQ(p.TextOf("lblMoreOnNotes"), "(More)");
    EXPECT_EQ(p.Find<QCheckBox>("SaveCPUCheck").text(), "Don't update grid above (saves CPU time)");
    EXPECT_EQ(p.Find<QCheckBox>("AutoTimeCheck").text(),
              "Try to make each cycle last 60 mS (with max alternating time capped to 30mS per note)");
    EXPECT_EQ(p.Find<QCheckBox>("OnlyOnceCheck").text(), "Only play each note once (don't keep alternating)");
    for (int index = 0; index < 16; ++index)
        EXPECT_EQ(p.Channel(index).text(), QString::number(index + 1));
}

TEST(MIDIInForm, StartsWithAllChannelsAndTheAutomaticTime) {
    MidiInProgram p;
    for (int index = 0; index < 16; ++index)
        EXPECT_TRUE(p.Channel(index).isChecked()) << index;
    EXPECT_TRUE(p.Find<QCheckBox>("AutoTimeCheck").isChecked());
    EXPECT_FALSE(p.Find<QCheckBox>("SaveCPUCheck").isChecked());
    EXPECT_FALSE(p.Find<QCheckBox>("OnlyOnceCheck").isChecked());
    EXPECT_FALSE(p.Find<QLabel>("lblMoreOnNotes").isVisible());
    EXPECT_EQ(p.Grid(), "");
}

TEST(MIDIInForm, HeldNotesAreLitAndThePulsedOneIsBrighter) {
    MidiInProgram p;
    p.Hold(3);
    EXPECT_EQ(p.Grid(), "C3 *C#3 D3 ");
    EXPECT_EQ(p.TextOf("lblHeldCount"), " (3)");
    p.App.Playing.MidiInput.ReleaseAllNotes();
    p.Time.RunUntil(60);
    EXPECT_EQ(p.Grid(), "");
    EXPECT_EQ(p.TextOf("lblHeldCount"), " (0)");
}

TEST(MIDIInForm, NotesBeyondTheGridAreCounted) {
    MidiInProgram p;
    p.Hold(33);
    EXPECT_TRUE(p.Find<QLabel>("lblMoreOnNotes").isVisible());
    EXPECT_EQ(p.TextOf("lblMoreOnNotes"), "(1 more)");
    EXPECT_EQ(p.NoteLabel(31).text(), "G5");
    EXPECT_EQ(p.TextOf("lblHeldCount"), " (33)");
}

TEST(MIDIInForm, TheGridKeepsItsSizeHoweverManyNotesAreHeld) {
    MidiInProgram p;
    const QSize before = p.Window().sizeHint();
    p.Hold(40);
    QApplication::processEvents();
    EXPECT_EQ(p.Window().sizeHint().height(), before.height());
}

TEST(MIDIInForm, WithTheSaveTimeBoxTheGridStaysEmpty) {
    MidiInProgram p;
    p.Find<QCheckBox>("SaveCPUCheck").click();
    p.Hold(3);
    EXPECT_EQ(p.Grid(), "");
    EXPECT_EQ(p.TextOf("lblHeldCount"), " (3)");
}

TEST(MIDIInForm, UntickingAChannelReleasesEveryHeldNote) {
    MidiInProgram p;
    p.Hold(3);
    p.Channel(7).click();
    p.Time.RunUntil(60);
    EXPECT_EQ(p.TextOf("lblHeldCount"), " (0)");
    EXPECT_FALSE(p.App.Playing.MidiInput.ListenChannelCheck[7]);
    EXPECT_TRUE(p.App.Playing.MidiInput.ListenChannelCheck[6]);
}

TEST(MIDIInForm, TheBoxesSetTheirSwitches) {
    MidiInProgram p;
    p.Find<QCheckBox>("OnlyOnceCheck").click();
    EXPECT_TRUE(p.App.Playing.MidiInput.OnlyPlayNoteOnce);
    p.Find<QCheckBox>("AutoTimeCheck").click();
    p.App.Fields.Song.AlternateTime.Type("77");
    p.Hold(3);
    EXPECT_EQ(p.App.Fields.Song.AlternateTime.Text(), "77");
}

TEST(MIDIInForm, DevicesAreSearchedForWhenTheListIsOpenedAndChosenThere) {
    MidiInProgram p;
    auto& devices = p.Find<QComboBox>("cmbMIDIInDevice");
    EXPECT_EQ(devices.count(), 2);
    EXPECT_EQ(devices.currentText(), "Keyboard");
    p.MidiIn.Devices = {"Organ", "Keyboard"};
    p.Timeline.Clear();
    devices.showPopup();
    EXPECT_EQ(devices.itemText(0), "Organ");
    EXPECT_EQ(devices.currentText(), "Keyboard") << "still the open one";
    EXPECT_EQ(p.Timeline.Text("midi in"), "");
    devices.hidePopup();
    QTest::keyClick(&devices, Qt::Key_Up);
    EXPECT_EQ(p.Timeline.Text("midi in"), "0.0000 midi in closes\n0.0000 midi in opens 0 \"Organ\"\n");
}

TEST(MIDIInForm, AReturnedDeviceCanBeChosenAgain) {
    MidiInProgram p;
    p.MidiIn.VanishAt(1);
    p.Time.RunUntil(2);
    EXPECT_TRUE(p.Window().isVisible());
    auto& devices = p.Find<QComboBox>("cmbMIDIInDevice");
    devices.showPopup();
    p.Timeline.Clear();
    QTest::keyClick(devices.view(), Qt::Key_Return);
    EXPECT_EQ(p.Timeline.Text("midi in opens"), "0.0020 midi in opens 0 \"Keyboard\"\n");
}

TEST(MIDIInForm, ClosingItSwitchesMidiInputOff) {
    MidiInProgram p;
    p.Timeline.Clear();
    p.Window().close();
    EXPECT_FALSE(p.Find<QCheckBox>("UseMIDIInCheck").isChecked());
    EXPECT_FALSE(p.Window().isVisible());
    EXPECT_FALSE(p.App.Playing.MidiInput.MIDIInIsOpen);
    EXPECT_EQ(p.Timeline.Text("midi in"), "0.0000 midi in closes\n");
    EXPECT_TRUE(p.App.Fields.Mods.UseMIDIFile.Enabled);
    p.Find<QCheckBox>("UseMIDIInCheck").click();
    EXPECT_TRUE(p.Window().isVisible()) << "it is still the same window";
}

TEST(MIDIInForm, WithoutADeviceTheWindowIsHiddenAndTheBoxGrey) {
    test::UiProgram p;
    p.Disk.Put("/windows/system32/midiio32.ocx", "module");
    p.Find<QCheckBox>("UseMIDIInCheck").click();
    EXPECT_FALSE(p.Find<ModWindow>("MIDIInForm").isVisible());
    EXPECT_FALSE(p.Find<QCheckBox>("UseMIDIInCheck").isEnabled());
    EXPECT_FALSE(p.Find<QCheckBox>("UseMIDIInCheck").isChecked());
}

}  // namespace
}  // namespace quavix
