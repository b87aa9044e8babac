// SPDX-License-Identifier: MIT
// The words of the main window and its save/load window that are settled, as a user sees them, in one table.
#include "ui/ui_program.h"

namespace quavix {
namespace {

/// An "&" in a caption here is the control's accelerator; a caption without one leaves the choice of it to
/// the control. A text that isn't settled is null.
struct WindowText {
    const char* Control;
    const char* Caption;
    const char* ToolTip = nullptr;
};

const char* const KeyboardOctaveTip =
    "Changes the numbers above each coloured section of the keyboard which represent what octave (multiple of "
    "pitch) of the note those keys make";
const char* const OctLabelTip =
    "Says what octave (multiple of pitch) the notes will be made in when you click a key in the coloured group "
    "below";
const char* const NoteLengthTip =
    "The length of note to insert into the list of music when you click a key on the keyboard";

const WindowText Texts[] = {
    {"NoteClickFrame", "When key is clicked,"},
    {"NoteClickPlayCheck", "Play note"},
    {"AddingNoteFrame", "Adding note"},
    {"NoteClickAddCheck", "Add note to list of music"},
    {"AddNote1Option", "Add as Note 1"},
    {"AddNote2Option", "Add as Note 2"},
    {"NoteReplaceCheck", "Replace instead of insert"},
    {"NoteLengthReplaceCheck", "Replace Length too"},
    {"lblNoteLength", "Note length:", NoteLengthTip},
    {"NoteLengthCombo", nullptr, NoteLengthTip},
    {"ModDottedCheck", "Dotted", "Make length 1.5x longer than normal"},
    {"ModTripletCheck", "Triplet", "Make note length one third of what it normally is"},
    {"ClearNote1Button", "Clear Note &1", "Make the selected line's 'Note 1' be blank"},
    {"ClearNote2Button", "Clear Note &2", "Make the selected line's 'Note 2' be blank"},
    {"Command1", "Erase whole line", "Completely remove the selected line"},
    {"SilentLineButton", "&Blank line",
     "For inserting a silent line, or if you're replacing notes, for only replacing the Length (if that is "
     "ticked)"},
    {"UnselectButton", "&Un-select line",
     "For if you end up inserting lines just before the last one because you can't un-select the last line by "
     "clicking in blank parts of the list..."},
    {"SaveLoadButton", "&SAVE / LOAD"},
    {"PianoKey", nullptr,
     "Click any of these keys on this keyboard to hear the note / add it to the list of music (depending on "
     "the options on the left of this window)"},
    {"lblKeyboardOctave", "Octave", KeyboardOctaveTip},
    {"KeyboardOctaveText", nullptr, KeyboardOctaveTip},
    {"KeyboardOctaveUpDownUp", nullptr, KeyboardOctaveTip},
    {"KeyboardOctaveUpDownDown", nullptr, KeyboardOctaveTip},
    {"OctLabel0", nullptr, OctLabelTip},
    {"OctLabel1", nullptr, OctLabelTip},
    {"OctLabel2", nullptr, OctLabelTip},
    {"BPMText", nullptr,
     "Number of beats, i.e. quarter-notes, per minute (tempo or speed which the music will be played at)"},
    {"lblAlternateTime", "Switch between alternating notes every:"},
    {"AlternateTimeText", nullptr,
     "When a line in the music has a Note 1 and Note 2, the program switches between them quickly when it "
     "comes to the line. This is how quickly (i.e. shorter time = faster)"},
    {"NoteSilenceRatioSlider", nullptr,
     "Lets notes not be 'packed tightly together' by keeping the note on for only some of the time of the "
     "'Length' in the line of music"},
    {"TimeSigSlider", nullptr, "Affects the position displays down in the bottom-right of this window"},
    {"MetronomeButton", "Metronome",
     "Turn the metronome on or off, so you can hear the tempo (BPM) of the song"},
    {"NotesToPlayFrame", "Which notes in list to play"},
    {"LineClickFrame", "When a line is clicked,"},
    {"ClickPlayNote1Check", "Play Note 1"},
    {"ClickPlayNote2Check", "Play Note 2"},
    {"MusicPlayFrame", "When the music is being played,"},
    {"PlayNote1Check", "Play Note 1"},
    {"PlayNote2Check", "Play Note 2"},
    {"PlayAllButton", "Play all"},
    {"PlayFromLineButton", "Play from selected line"},
    {"StopPlayButton", "Stop playing"},
    {"BeepTextLabel", "BEEP", "Represents when there is sound coming out of the tweeble"},
    {"NoUpdateCheck", "Do not update"},
    {"MuteTweebleCheck", "Mute PC speaker", "You might want to tick this when using MIDI output"},
    {"UseFMODCheck", "Use FMOD"},
    {"UsePortaCheck", "Tweeble portamento",
     "Make the PC speaker gradually fade from one note to the next (clicked keys only)"},
    {"UseMotorCheck", "Use motor-speed mod (via SSC-32 and SyRen10)",
     "Just in case you happen to have a spare microcontroller and motor speed controller lying around ;P"},
    {"lblMotorOct", "Motor Octave"},
    {"UseBeatCheck", "Play a beat sound", "Make a beat-like sound on quarter-notes or half-notes"},
    {"UseCircuitBentCheck", "Act as if circuit-bent",
     "Plays fast random notes all the time. Yeah, it's a waste."},
    {"lblDebugLogging", "DEBUG LOGGING ENABLED"},
};

const WindowText SaveLoadTexts[] = {
    {"SaveButton", "Save"},
    {"LoadButton", "Load"},
    {"CancelButton", "Cancel"},
};

QString CaptionOf(const QWidget& control) {
    const QVariant text = control.property("text");
    return text.isValid() ? text.toString() : control.property("title").toString();
}

void ExpectTexts(const QWidget& window, std::span<const WindowText> texts) {
    for (const WindowText& text : texts) {
        const auto* control = window.findChild<QWidget*>(text.Control);
        ASSERT_NE(control, nullptr) << text.Control;
        if (text.Caption != nullptr) {
            const QString settled = text.Caption;
            QString caption = CaptionOf(*control);
            if (!settled.contains('&'))
                caption.remove('&');
            EXPECT_EQ(caption, settled) << text.Control;
        }
        // Below it may stand why the control can't be used.
        if (text.ToolTip != nullptr) {
            EXPECT_EQ(control->toolTip().section('\n', 0, 0), QString(text.ToolTip)) << text.Control;
        }
    }
}

TEST(WindowTexts, MatchExactly) {
    test::UiProgram p;
    ExpectTexts(p.Form, Texts);
    ExpectTexts(p.SaveLoadWindow, SaveLoadTexts);
    EXPECT_EQ(p.SaveLoadWindow.windowTitle(), "Save / Load");
}

TEST(WindowTexts, TheLengthsStandInTheirOrder) {
    test::UiProgram p;
    const auto& combo = p.Find<QComboBox>("NoteLengthCombo");
    QStringList lengths;
    for (int i = 0; i < combo.count(); ++i)
        lengths += combo.itemText(i);
    EXPECT_EQ(lengths, (QStringList{"1 (Whole)", "1/2 (Half)", "1/4 (Quarter)", "1/8", "1/16"}));
    EXPECT_EQ(combo.currentText(), "1/8");
}

}  // namespace
}  // namespace quavix
