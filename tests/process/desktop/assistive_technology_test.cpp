// SPDX-License-Identifier: MIT
// The main window as assistive technology sees and works it, from a process of its own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "quavix_window.h"

namespace quavix::test {
namespace {

/// The properties that distinguish a control from the others.
struct Control {
    QString Role;
    QString Name;
};

class AssistiveTechnology : public testing::Test {
  protected:
    void Open(const QString& song) { Program.Start({song}); }
    void OpenExample() { Open(QUAVIX_SOURCE_DIR "/examples/Ode-to-Joy.QVX"); }

    /// Opens a song of these lines.
    void OpenLines(const QByteArray& lines) {
        Program.Put("song.QVX", "Quavix by Dastrel-204 file format\r\nBPM 240\r\nMUSICLISTSTART\r\n" + lines);
        Open(Program.File("song.QVX"));
    }

    DesktopSession Session;
    QuavixProcess Program{Session.Environment()};
    QuavixWindow Window{Session, Program};
};

/// Returns the name that the user hears. A combo box's own name is its entry; its label names its purpose.
QString NameOf(const Accessible& object) {
    if (object.Role() != "combo box")
        return object.Name();
    for (const Accessible& label : object.Labels()) {
        if (label.Role() == "label")
            return label.Name();
    }
    return {};
}

std::vector<Control> ControlsOfTheMainWindow() {
    std::vector<Control> controls{
        {"check box", "When key is clicked, play note"},
        {"check box", "When key is clicked, add note to list of music"},
        {"radio button", "Add as Note 1"},
        {"radio button", "Add as Note 2"},
        {"check box", "Replace instead of insert"},
        {"check box", "Replace Length too"},
        {"combo box", "Note length:"},
        {"check box", "Dotted"},
        {"check box", "Triplet"},
        {"text", "BPM"},
        {"push button", "BPM up"},
        {"push button", "BPM down"},
        {"check box", "Metronome"},
        {"slider", "Time signature, in quarter-notes per bar"},
        {"slider", "Note/silence ratio in percent"},
        {"text", "Time between alternating notes in milliseconds"},
        {"push button", "Play all"},
        {"push button", "Play from selected line"},
        {"push button", "Stop playing"},
        {"table", "List of music"},
        {"push button", "Clear Note 1"},
        {"push button", "Clear Note 2"},
        {"push button", "Erase whole line"},
        {"push button", "Blank line"},
        {"push button", "Un-select line"},
        {"push button", "Save / Load"},
        {"check box", "When a line is clicked, play Note 1"},
        {"check box", "When a line is clicked, play Note 2"},
        {"check box", "When the music is being played, play Note 1"},
        {"check box", "When the music is being played, play Note 2"},
        {"slider", "Motor Octave"},
        {"combo box", "Serial port"},
        {"panel", "Piano keyboard"},
        {"text", "Octave of the blue keys"},
        {"push button", "Octave up"},
        {"push button", "Octave down"},
        {"push button", "Details of the speaker"},
        {"check box", "Mute PC speaker"},
        {"check box", "Do not update the position indicators"},
        {"push button", "Help about 'Do not update'"},
    };
    for (const char* mod : {"Use FMOD", "Use voice", "Use MIDI output", "Use MIDI input", "Play a MIDI file",
                            "Tweeble portamento", "Use motor-speed mod (via SSC-32 and SyRen10)",
                            "Play a beat sound", "Act as if circuit-bent", "Synchronized play"}) {
        controls.push_back({"check box", mod});
        controls.push_back({"push button", QString("Help about '%1'").arg(mod)});
    }
    return controls;
}

/// A mod's check box, the window that it opens, and what is in there.
struct ModWindow {
    QString Mod;
    QString Title;
    std::vector<Control> Controls;
};

std::vector<ModWindow> WindowsOfTheMods() {
    std::vector<ModWindow> windows{
        {"Play a beat sound",
         "Beat Sound Settings",
         {{"radio button", "Every beat"}, {"radio button", "Every other beat"}}},
        {"Tweeble portamento",
         "Tweeble Portamento Settings",
         {{"slider", "Speed of pitch change in percent"},
          {"radio button", "Tweeble always produces sound"},
          {"radio button", "Tweeble produces sound for roughly this many milliseconds:"},
          {"slider", "Length of sound in milliseconds"}}},
        {"Synchronized play",
         "Synchronized Play Settings",
         {{"text", "Hour"},
          {"text", "Minute"},
          {"text", "Second"},
          {"radio button", "Start of music list"},
          {"radio button", "Currently-selected line in music list"},
          {"check box", "FMOD is being used elsewhere (start playing in delay)"},
          {"push button", "Start waiting"}}},
        {"Use FMOD",
         "FMOD Options",
         {{"radio button", "Sine wave"},
          {"radio button", "Square wave"},
          {"radio button", "Triangle wave"},
          {"radio button", "Noise"},
          {"check box", "Never silent between notes"}}},
        {"Use voice",
         "Voice",
         {{"slider", "Volume of the voice in ten-thousandths"},
          {"slider", "Volume of the saw in ten-thousandths"},
          {"slider", "Volume of the noise in ten-thousandths"},
          {"slider", "Cutoff frequency in hertz"},
          {"slider", "Shift of all formants in thousandths"},
          {"slider", "Random movement of the formants in hertz"}}},
    };
    for (const char* vowel : {"A", "E", "I", "O", "U"})
        windows.back().Controls.push_back({"push button", QString("Vowel %1").arg(vowel)});
    for (const int formant : {1, 2, 3, 4}) {
        windows.back().Controls.push_back(
            {"slider", QString("Frequency of formant %1 in hertz").arg(formant)});
        windows.back().Controls.push_back({"slider", QString("Volume of formant %1, 0 to 100").arg(formant)});
    }
    return windows;
}

/// Expects each of these once in a window, which is there already.
void ExpectControls(const std::vector<Accessible>& window, const std::vector<Control>& controls) {
    QStringList there;
    for (const Accessible& object : window)
        there += object.Role() + ": " + NameOf(object);
    for (const Control& control : controls)
        EXPECT_EQ(there.count(control.Role + ": " + control.Name), 1) << control.Name.toStdString();
}

TEST_F(AssistiveTechnology, FindsEachControlOfTheMainWindowByItsName) {
    OpenExample();
    Window.Find("push button", "Play all");
    ExpectControls(Window.Everything(), ControlsOfTheMainWindow());
}

TEST_F(AssistiveTechnology, FindsEachControlOfTheModsWindowsByItsName) {
    Program.PutSoundEngine();
    OpenExample();
    for (const ModWindow& mod : WindowsOfTheMods()) {
        Window.Find("check box", mod.Mod).Do("Toggle");
        Window.Find(mod.Controls.back().Role, mod.Controls.back().Name, mod.Title);
        ExpectControls(Window.Everything(mod.Title), mod.Controls);
    }
}

TEST_F(AssistiveTechnology, EveryControlHasANameAndARole) {
    Program.PutSoundEngine();
    OpenExample();
    const auto expectNames = [this](const QString& window, std::size_t fewest) {
        std::size_t focusable = 0;
        for (const Accessible& object : Window.Everything(window)) {
            if (!object.Has(AccessibleState::Focusable))
                continue;
            ++focusable;
            EXPECT_FALSE(NameOf(object).isEmpty()) << "a " << object.Role().toStdString();
            EXPECT_THAT(object.Role().toStdString(),
                        testing::Not(testing::AnyOf("", "invalid", "unknown", "filler")));
        }
        EXPECT_GE(focusable, fewest) << window.toStdString();
    };
    Window.Find("push button", "Play all");
    expectNames(QuavixWindow::MainTitle, 60);
    Window.Press("Details of the speaker");
    Window.Find("push button", "Close", "Speaker");
    expectNames("Speaker", 2);
    Window.Press("Close", "Speaker");
    Window.Press("Save / Load");
    Window.Find("push button", "Cancel", "Save / Load");
    expectNames("Save / Load", 3);
    Window.Press("Cancel", "Save / Load");
    for (const ModWindow& mod : WindowsOfTheMods()) {
        Window.Find("check box", mod.Mod).Do("Toggle");
        Window.Window(mod.Title);
        expectNames(mod.Title, 2);
    }
}

TEST_F(AssistiveTechnology, SwitchesTheMetronome) {
    constexpr int EmptyWavSize = 44;
    Program.Environment.insert("QUAVIX_SPEAKER", "wav:" + Program.File("heard.wav"));
    Program.Start({});
    const Accessible metronome = Window.Find("check box", "Metronome");
    EXPECT_EQ(Program.Content("heard.wav").size(), EmptyWavSize);
    metronome.Do("Toggle");
    EXPECT_TRUE(Window.WaitUntil([&] { return Program.Content("heard.wav").size() > EmptyWavSize; }));
    EXPECT_TRUE(metronome.Has(AccessibleState::Checked));
    metronome.Do("Toggle");
    EXPECT_TRUE(Window.WaitUntil([&] { return !metronome.Has(AccessibleState::Checked); }));
}

TEST_F(AssistiveTechnology, ReadsTheLinesOfTheList) {
    OpenLines("Quarter C4 E4 Dot\r\n1/8 F#5 - Tri\r\nWhole - - -\r\n");
    EXPECT_EQ(Window.Row(1), "Quarter, C4 and E4, dotted");
    EXPECT_EQ(Window.Row(2), "1/8, F sharp 5, triplet");
    EXPECT_EQ(Window.Row(3), "Whole, silent");
    EXPECT_EQ(Window.Row(4), "");
}

TEST_F(AssistiveTechnology, FindsTheKeysOfThePiano) {
    OpenExample();
    const std::vector<Accessible> keys = Window.Find("panel", "Piano keyboard").Children();
    ASSERT_EQ(keys.size(), 36u);
    QStringList expected;
    for (const int octave : {3, 4, 5}) {
        for (const char* note :
             {"C", "C sharp", "D", "D sharp", "E", "F", "F sharp", "G", "G sharp", "A", "A sharp", "B"})
            expected += QString("%1 %2").arg(note).arg(octave);
    }
    for (std::size_t i = 0; i < keys.size(); ++i) {
        EXPECT_EQ(keys[i].Name(), expected[static_cast<qsizetype>(i)]);
        EXPECT_EQ(keys[i].Role(), "push button");
    }
}

TEST_F(AssistiveTechnology, PlaysTheSongReadsThePositionAndStops) {
    OpenLines("Quarter C4 - -\r\nQuarter E4 G4 -\r\nQuarter D4 - -\r\nQuarter C4 - -\r\nWhole C4 - -\r\n");
    // Found beforehand, as a tone holds up the answers.
    const Accessible playAll = Window.Find("push button", "Play all");
    const Accessible stop = Window.Find("push button", "Stop playing");
    const std::vector<Accessible> readings{Window.FindReading("Bar"),
                                           Window.FindReading("Position in the bar, in whole notes"),
                                           Window.FindReading("Beat in the bar")};
    EXPECT_FALSE(stop.Has(AccessibleState::Enabled));
    playAll.Do("Press");
    EXPECT_TRUE(Window.WaitUntil([&] { return stop.Has(AccessibleState::Enabled); }));
    EXPECT_FALSE(playAll.Has(AccessibleState::Enabled));
    for (const Accessible& reading : readings) {
        const QString now = reading.Name();
        EXPECT_TRUE(Window.WaitUntil([&] { return reading.Name() != now; })) << now.toStdString();
    }
    stop.Do("Press");
    EXPECT_TRUE(Window.WaitUntil([&] { return playAll.Has(AccessibleState::Enabled); }));
    EXPECT_FALSE(stop.Has(AccessibleState::Enabled));
}

TEST_F(AssistiveTechnology, OperatesTheControlsThatItFinds) {
    Program.Start({});
    const Accessible dotted = Window.Find("check box", "Dotted");
    const Accessible triplet = Window.Find("check box", "Triplet");
    const QString toggle = "Toggle";
    dotted.Do(toggle);
    EXPECT_TRUE(Window.WaitUntil([&] { return dotted.Has(AccessibleState::Checked); }));
    Window.PressKey("C 4");
    EXPECT_EQ(Window.Row(1), "1/8, C4, dotted");
    triplet.Do(toggle);
    EXPECT_TRUE(Window.WaitUntil([&] { return triplet.Has(AccessibleState::Checked); }));
    EXPECT_FALSE(dotted.Has(AccessibleState::Checked));
    Window.PressKey("D 4");
    EXPECT_EQ(Window.Row(2), "1/8, D4, triplet");
    const Accessible replace = Window.Find("check box", "Replace instead of insert");
    replace.Do(toggle);
    EXPECT_TRUE(Window.WaitUntil([&] { return replace.Has(AccessibleState::Checked); }));
    const Accessible second = Window.Find("radio button", "Add as Note 2");
    second.Do(toggle);
    EXPECT_TRUE(Window.WaitUntil([&] { return second.Has(AccessibleState::Checked); }));
    const Accessible bpm = Window.Find("text", "BPM");
    bpm.SetText("99999999");
    EXPECT_EQ(bpm.Text(), "99999999");
    bpm.SetText("97");
    EXPECT_EQ(bpm.Text(), "97");
    bpm.SetText("none");
    EXPECT_TRUE(Window.WaitUntil([&] { return bpm.Text() == "97"; })) << bpm.Text().toStdString();
    const Accessible ratio = Window.Find("slider", "Note/silence ratio in percent");
    const Accessible reading = Window.FindReading("Note/silence ratio");
    ratio.SetValue(75);
    EXPECT_TRUE(Window.WaitUntil([&] { return reading.Name() == "Note/silence ratio: 75%"; }))
        << reading.Name().toStdString();
    Window.Press("Octave up");
    EXPECT_EQ(Window.Find("text", "Octave of the blue keys").Text(), "5");
    const Accessible row = Window.Find("table", "List of music").CellAt(0, 0);
    row.Do(toggle);
    EXPECT_TRUE(Window.WaitUntil([&] { return row.Has(AccessibleState::Selected); }));
    Window.Press("Clear Note 1");
    EXPECT_TRUE(Window.WaitUntil([&] { return Window.Row(1) == "1/8, silent, dotted"; }))
        << Window.Row(1).toStdString();
}

TEST_F(AssistiveTechnology, AddsNotesWithTheKeysOfThePiano) {
    Program.Start({});
    Window.PressKey("C sharp 4");
    EXPECT_EQ(Window.Row(1), "1/8, C sharp 4");
}

}  // namespace
}  // namespace quavix::test
