// SPDX-License-Identifier: MIT
#include <map>
#include <memory>
#include <set>

#include "ui/dialogs/manual_form.h"
#include "ui/dialogs/save_load_form.h"
#include "ui/dialogs/speaker_form.h"
#include "ui/texts.h"
#include "ui/ui_program.h"
#include "ui/widgets/piano_keyboard.h"

namespace quavix {
namespace {

/// The controls that a user works or reads, without the parts they are made of.
std::vector<QWidget*> ControlsOf(QWidget& window) {
    std::vector<QWidget*> controls;
    for (auto* widget : window.findChildren<QWidget*>()) {
        const bool isControl = qobject_cast<QAbstractButton*>(widget) || qobject_cast<QLineEdit*>(widget) ||
                               qobject_cast<QAbstractSlider*>(widget) || qobject_cast<QTableView*>(widget) ||
                               qobject_cast<QComboBox*>(widget) || qobject_cast<PianoKeyboard*>(widget);
        const bool isPart = widget->objectName().isEmpty() || widget->objectName().startsWith("qt_");
        if (isControl && !isPart && widget->window() == &window)
            controls.push_back(widget);
    }
    return controls;
}

TEST(Accessibility, EveryControlHasANameAndATooltip) {
    test::UiProgram p;
    SpeakerForm speaker(p.App.Fields.View, p.Speaker, p.App.Handlers);
    const std::unique_ptr<QDialog> manual(MakeManualForm("text", nullptr));
    p.Disk.Put("/windows/system32/midiio32.ocx", "module");
    p.MidiIn.Devices = {"Keyboard"};
    for (Mod ModFields::*mod : {&ModFields::UseFMOD, &ModFields::UseVoice, &ModFields::UseBeat,
                                &ModFields::UsePorta, &ModFields::UseSynchro, &ModFields::UseMIDIIn})
        (p.App.Fields.Mods.*mod).Ticked = true;
    p.App.Outputs.MidiOutput.Fields.MIDIOutFormVisible = true;
    p.App.Playing.MidiFilePlayback.MIDIFileFormVisible = true;
    for (QWidget* window : {static_cast<QWidget*>(&p.Form), static_cast<QWidget*>(&speaker),
                            static_cast<QWidget*>(&p.SaveLoadWindow), static_cast<QWidget*>(manual.get()),
                            &p.Find<QWidget>("FMODOptionsForm"), &p.Find<QWidget>("VoiceInternalForm"),
                            &p.Find<QWidget>("BeatForm"), &p.Find<QWidget>("PortamentoForm"),
                            &p.Find<QWidget>("SynchroForm"), &p.Find<QWidget>("MIDIOutForm"),
                            &p.Find<QWidget>("MIDIInForm"), &p.Find<QWidget>("MIDIFileForm")}) {
        EXPECT_FALSE(ControlsOf(*window).empty());
        for (const QWidget* control : ControlsOf(*window)) {
            EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
            EXPECT_FALSE(control->toolTip().isEmpty()) << control->objectName().toStdString();
        }
    }
}

QString SpokenNameOf(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

TEST(Accessibility, LabelsAreNamedByTheirText) {
    test::UiProgram p;
    const auto spoken = [&](const char* label) { return SpokenNameOf(&p.Find<QLabel>(label)); };
    p.App.Editing.PositionDisplay.lblPlayBar = "0002";
    p.App.Editing.PositionDisplay.lblPlayPos = "02 01/16";
    p.App.Editing.PositionDisplay.lblPlaySig = "03.50";
    p.App.Fields.Song.BeatsPerBar.Set(3);
    p.App.Fields.Song.NoteSilenceRatio.Set(75);
    EXPECT_EQ(spoken("lblPlayBar"), "Bar: 0002");
    EXPECT_EQ(spoken("lblPlayPos"), "Position in the bar, in whole notes: 02 01/16");
    EXPECT_EQ(spoken("lblPlaySig"), "Beat in the bar: 03.50");
    EXPECT_EQ(spoken("lblTimeSig"), "Quarter-notes per bar: " + p.TextOf("lblTimeSig"));
    EXPECT_EQ(spoken("NoteSilenceRatioLabel"), "Note/silence ratio: " + p.TextOf("NoteSilenceRatioLabel"));
    EXPECT_EQ(spoken("SpeakerLabel"), "Speaker: PC speaker");
    p.SaveLoadWindow.SetInfoText("Loading...");
    EXPECT_EQ(SpokenNameOf(p.SaveLoadWindow.findChild<QLabel*>("lblInfoText")), "Loading...");
}

TEST(Accessibility, AFrameInAFrameHasItsOwnName) {
    test::UiProgram p;
    for (const auto* frame : p.Form.findChildren<QGroupBox*>())
        EXPECT_EQ(SpokenNameOf(const_cast<QGroupBox*>(frame)), frame->title());
}

TEST(Accessibility, TheListOfAComboBoxHasItsName) {
    test::UiProgram p;
    EXPECT_EQ(SpokenNameOf(p.Find<QComboBox>("NoteLengthCombo").view()), "Note length");
}

// It works the controls without the clicks and the keys that a user would.
TEST(Accessibility, AssistiveTechnologyCanWorkTheControls) {
    test::UiProgram p;
    const auto toggle = [&](const char* name) {
        QAccessible::queryAccessibleInterface(&p.Find<QWidget>(name))
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::toggleAction());
    };
    MainFields& fields = p.App.Fields;
    toggle("ModDottedCheck");
    EXPECT_TRUE(fields.Entry.ModDottedCheck);
    toggle("ModTripletCheck");
    EXPECT_TRUE(fields.Entry.ModTripletCheck);
    EXPECT_FALSE(fields.Entry.ModDottedCheck);
    toggle("AddNote2Option");
    EXPECT_TRUE(fields.Entry.AddNote2Option);
    EXPECT_FALSE(fields.Entry.AddNote1Option);
    fields.Mods.UseFMOD.Ticked = true;
    toggle("optTriangle");
    EXPECT_EQ(p.App.Outputs.SoundMods.Generator.DSPType, std::int32_t{SOUND_FALLING_SAW});
    fields.Mods.UseFMOD.Ticked = false;
    p.Time.At(500, [&] {
        toggle("MetronomeButton");
        QApplication::processEvents();
    });
    toggle("MetronomeButton");
    QApplication::processEvents();
    EXPECT_EQ(p.Timeline.Text("speaker"), "0.0000 speaker 1000 Hz 20 ms\n0.4400 speaker 500 Hz 20 ms\n");
    const auto write = [&](const QString& text) {
        QAccessible::queryAccessibleInterface(&p.Find<QWidget>("BPMText"))->setText(QAccessible::Value, text);
    };
    write("97");
    EXPECT_EQ(fields.Song.BPM, 97);
    write("none");
    EXPECT_EQ(p.Find<QLineEdit>("BPMText").text(), "97");
}

TEST(Accessibility, NoTwoControlsShareAnAccelerator) {
    test::UiProgram p;
    std::map<QString, QString> owners;
    for (auto* widget : p.Form.findChildren<QWidget*>()) {
        QString text;
        if (const auto* button = qobject_cast<QAbstractButton*>(widget))
            text = button->text();
        else if (const auto* label = qobject_cast<QLabel*>(widget); label && label->buddy())
            text = label->text();
        const QKeySequence key = QKeySequence::mnemonic(text);
        if (key.isEmpty())
            continue;
        EXPECT_EQ(owners.count(key.toString()), 0u)
            << key.toString().toStdString() << " of " << widget->objectName().toStdString();
        owners[key.toString()] = widget->objectName();
    }
    for (const QAction* menu : p.Form.menuBar()->actions()) {
        const QString key = QKeySequence::mnemonic(menu->text()).toString();
        EXPECT_EQ(owners.count(key), 0u) << key.toStdString();
        owners[key] = menu->text();
    }
    for (const char* used : {"Alt+1", "Alt+2", "Alt+B", "Alt+U", "Alt+S", "Alt+F", "Alt+E", "Alt+H"})
        EXPECT_EQ(owners.count(used), 1u) << used;
}

TEST(Accessibility, NoTwoActionsShareAShortcutOrALetterOfTheirMenu) {
    test::UiProgram p;
    std::set<QString> shortcuts;
    for (const auto* menu : p.Form.findChildren<QMenu*>()) {
        std::set<QString> letters;
        for (const QAction* action : menu->actions()) {
            for (const QKeySequence& key : action->shortcuts())
                EXPECT_TRUE(shortcuts.insert(key.toString()).second) << key.toString().toStdString();
            const QString letter = QKeySequence::mnemonic(action->text()).toString();
            EXPECT_TRUE(action->isSeparator() || letters.insert(letter).second)
                << action->text().toStdString();
        }
    }
    EXPECT_GE(shortcuts.size(), 15u);
}

TEST(Accessibility, TheTabKeyGoesThroughEveryControlInTheOrderOfReading) {
    test::UiProgram p;
    p.App.Fields.Mods.UseFMOD.Enabled = true;
    p.App.Fields.Mods.UseVoice.Enabled = true;
    std::vector<std::string> order = {"NoteClickPlayCheck",
                                      "NoteClickAddCheck",
                                      "AddNote1Option",
                                      "NoteReplaceCheck",
                                      "NoteLengthCombo",
                                      "ModDottedCheck",
                                      "ModTripletCheck",
                                      "BPMText",
                                      "MetronomeButton",
                                      "TimeSigSlider",
                                      "NoteSilenceRatioSlider",
                                      "AlternateTimeText",
                                      "PlayAllButton",
                                      "PlayFromLineButton",
                                      "MainList",
                                      "ClearNote1Button",
                                      "ClearNote2Button",
                                      "Command1",
                                      "SilentLineButton",
                                      "UnselectButton",
                                      "SaveLoadButton",
                                      "ClickPlayNote1Check",
                                      "ClickPlayNote2Check",
                                      "PlayNote1Check",
                                      "PlayNote2Check"};
    for (const text::Mod* mod : text::Mods) {
        const std::string check = mod->CheckName;
        order.push_back(check);
        order.push_back(check.substr(0, check.size() - std::string_view("Check").size()) + "HButton");
        if (mod == &text::UseMotor)
            order.insert(order.end(), {"MotorOctSlider", "cmbMotorPort"});
    }
    for (const char* below : {"PianoKey", "KeyboardOctaveText", "SpeakerDetailsButton", "MuteTweebleCheck",
                              "NoUpdateCheck", "NoUpdateHButton"})
        order.push_back(below);
    auto& first = p.Find<QWidget>("NoteClickPlayCheck");
    first.setFocus();
    std::vector<std::string> visited;
    do {
        visited.push_back(p.Form.focusWidget()->objectName().toStdString());
        QTest::keyClick(p.Form.focusWidget(), Qt::Key_Tab);
    } while (p.Form.focusWidget() != &first && visited.size() < 100);
    EXPECT_EQ(visited, order);
}

}  // namespace
}  // namespace quavix
