// SPDX-License-Identifier: MIT
#include "ui/mods/mod_forms.h"
#include "ui/ui_program.h"
#include "ui/widgets/device_combo.h"

namespace quavix {
namespace {

struct MidiOutProgram : test::UiProgram {
    MidiOutProgram() { AttachMidiOutputs(); }
    ModWindow& Open() {
        Click("UseMIDIOutCheck");
        return Find<ModWindow>("MIDIOutForm");
    }
    DeviceCombo& Devices() { return Find<DeviceCombo>("cmbMIDIOutDevice"); }
};

TEST(MIDIOutForm, IsShownWhileItsModIsTickedAndUnticksItWhenClosed) {
    MidiOutProgram p;
    EXPECT_TRUE(p.Find<QCheckBox>("UseMIDIOutCheck").isEnabled());
    ModWindow& form = p.Open();
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.windowTitle(), "MIDI Output Settings");
    EXPECT_TRUE(p.App.Fields.Mods.UseMIDIOut.InUse);
    form.close();
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(p.Find<QCheckBox>("UseMIDIOutCheck").isChecked());
    EXPECT_EQ(p.MidiOut.State(), MidiDeviceState::Closed);
    p.Click("UseMIDIOutCheck");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(p.MidiOut.State(), MidiDeviceState::Open);
}

TEST(MIDIOutForm, ListsTheDevicesTheChannelsFromOneAndTheInstruments) {
    MidiOutProgram p;
    p.Open();
    DeviceCombo& devices = p.Devices();
    ASSERT_EQ(devices.count(), 3);
    EXPECT_EQ(devices.itemText(0), "Quavix");
    EXPECT_EQ(devices.itemText(2), "Synthesizer");
    EXPECT_EQ(devices.currentIndex(), 0);
    auto& channels = p.Find<QComboBox>("cmbChannel");
    ASSERT_EQ(channels.count(), 16);
    EXPECT_EQ(channels.itemText(0), "1");
    EXPECT_EQ(channels.itemText(15), "16");
    auto& instruments = p.Find<QComboBox>("cmbInstrument");
    ASSERT_EQ(instruments.count(), 128);
    EXPECT_EQ(instruments.itemText(0), "1 - Grand Piano");
    EXPECT_EQ(instruments.itemText(127), "128 - Gunshot");
    EXPECT_EQ(instruments.currentIndex(), 0);
}

TEST(MIDIOutForm, TheChosenInstrumentIsSent) {
    MidiOutProgram p;
    p.Open();
    p.Timeline.Clear();
    QTest::keyClick(&p.Devices(), Qt::Key_End);
    QTest::keyClick(&p.Find<QComboBox>("cmbInstrument"), Qt::Key_Down);
    EXPECT_EQ(p.Timeline.Text(),
              "0.0000 midi out closes\n0.0000 midi out opens 1 \"Synthesizer\"\n0.0000 midi out C0 00 00\n"
              "0.0000 midi out C0 01 00\n");
    p.Timeline.Clear();
    QTest::keyClick(&p.Find<QComboBox>("cmbChannel"), Qt::Key_Down);
    EXPECT_EQ(p.Timeline.Lines().size(), 2049u);
    EXPECT_EQ(p.Timeline.Lines().front(), "0.0000 midi out C1 01 00");
}

TEST(MIDIOutForm, ShowsItsStatusWhileItSilencesNotes) {
    MidiOutProgram p;
    p.Open();
    auto& label = p.Find<QLabel>("lblInfoText");
    EXPECT_EQ(label.text(), "The device is open (simulated).");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&label)->text(QAccessible::Name),
              "State: The device is open (simulated).");
    p.MidiOut.BeSlow(1, 1);
    QString seen;
    p.Time.At(1000, [&] { seen = label.text(); });
    QTest::keyClick(&p.Find<QComboBox>("cmbChannel"), Qt::Key_Down);
    EXPECT_EQ(seen, "Silencing channel 8/16, just a sec...");
    EXPECT_EQ(label.text(), "The device is open (simulated).");
}

TEST(MIDIOutForm, OpeningTheListFindsDevicesThatHaveCome) {
    MidiOutProgram p;
    p.Open();
    QTest::keyClick(&p.Devices(), Qt::Key_End);
    p.MidiOut.Devices = {"Drums", "Keyboard", "Synthesizer"};
    p.Devices().showPopup();
    EXPECT_EQ(p.Devices().count(), 4);
    EXPECT_EQ(p.Devices().currentText(), "Synthesizer");
    EXPECT_EQ(p.MidiOut.State(), MidiDeviceState::Open);
    p.Devices().hidePopup();
}

TEST(MIDIOutForm, WithoutADeviceTheBoxIsGreyAndTheWindowHidden) {
    MidiOutProgram p;
    p.MidiOut.Devices.clear();
    const ModWindow& form = p.Open();
    EXPECT_FALSE(form.isVisible());
    const auto& check = p.Find<QCheckBox>("UseMIDIOutCheck");
    EXPECT_FALSE(check.isChecked());
    EXPECT_FALSE(check.isEnabled());
    EXPECT_EQ(p.Boxes.Shown().size(), 1u);
}

TEST(MIDIOutForm, TheProgramCanBeClosedInTheMiddleOfSilencing) {
    MidiOutProgram p;
    p.Open();
    p.MidiOut.BeSlow(1, 100);
    p.Time.At(500, [&] { p.Form.close(); });
    QTest::keyClick(&p.Find<QComboBox>("cmbChannel"), Qt::Key_Down);
    EXPECT_EQ(p.Timeline.Text("process ends"), "0.5000 process ends\n");
    EXPECT_EQ(p.MidiOut.State(), MidiDeviceState::Closed);
}

}  // namespace
}  // namespace quavix
