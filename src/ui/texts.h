// SPDX-License-Identifier: MIT
#pragma once

#include "music/main_fields.h"

// The texts of the mods, in the order of their check boxes. Lines of messages end in CR LF or LF.
namespace quavix::text {

/// One mod: the values of its check box, and the text of its help button.
struct Mod {
    quavix::Mod ModFields::*Switch;
    /// The check box's name; the help button's name has "HButton" in place of "Check".
    const char* CheckName;
    const char* Caption;
    const char* ToolTip;
    const char* HelpTitle;
    const char* HelpText;
};

inline constexpr Mod UseFMOD{
    &ModFields::UseFMOD,
    "UseFMODCheck",
    "Use FMOD",
    "Make the notes with the sound card instead of the internal PC speaker",
    "Using FMOD",
    "Makes the program use the FMOD sound engine, which means that the sound comes out of your sound card "
    "instead of the internal PC speaker.\r\n\r\n"
    "Old computers or cheap sound cards may struggle with this.\r\n\r\n"
    "To be able to do this, the FMOD DLL (fmodex.dll) needs to be in the same folder as this program. "
    "The check box will be greyed out and unavailable otherwise.\r\n\r\n"
    "If it doesn't work for you, please see 'CONTACT' in info.txt (included with this program)."};

inline constexpr Mod UseVoice{&ModFields::UseVoice,
                              "UseVoiceCheck",
                              "Use voice",
                              "Make a voice sing the 'Note 2' column",
                              "Using voice",
                              "Makes the program use a voice system for 'singing' one of the note columns.\n"
                              "This uses FMOD (See the question-mark button above this one)."};

inline constexpr Mod UseMIDIOut{
    &ModFields::UseMIDIOut,
    "UseMIDIOutCheck",
    "Use MIDI output",
    "Send every note to a MIDI device too",
    "Using MIDI Output",
    "This mod sends every note or 'beep' to a MIDI device of your choosing. \r\n"
    "It doesn't have to be an external MIDI device (e.g. it could be the default \r\n"
    "Microsoft synth which Windows XP and Vista come with), but it can be if you want.\r\n\r\n"
    "Please see 'MIDI OUTPUT MOD' in info.txt (included with this program) for more information."};

inline constexpr Mod UseMIDIIn{
    &ModFields::UseMIDIIn,
    "UseMIDIInCheck",
    "Use MIDI input",
    "Play the notes that come from a MIDI device",
    "Using MIDI Input",
    "This mod makes the program play (on the PC speaker, FMOD, or via MIDI \r\n"
    "output, depending on which other mods you have activated) any notes which it receives "
    "from an external MIDI device. \r\n\r\n"
    "There is NO LIMIT to the number of simultaneous notes!\r\n"
    "Similar to the way it alternates between 'Note 1' and 'Note 2' in the music \r\n"
    "list, the program will cycle through all notes which you are holding down, playing a "
    "brief pulse of each note in turn. Because of this, though, it can start to sound silly when trying to "
    "play a lot of notes at once.\r\n\r\n"
    "Please see the 'MIDI INPUT MOD' in info.txt (included with this program) for more information."};

inline constexpr Mod UseMIDIFile{
    &ModFields::UseMIDIFile,
    "UseMIDIFileCheck",
    "Play a MIDI file",
    "Play a MIDI file of your choosing",
    "Playing a MIDI file",
    "Lets you choose a MIDI file on your computer which this program will then "
    "play through the PC speaker.\r\n\r\n"
    "There is NO LIMIT to the number of simultaneous notes!\r\n"
    "Similar to the way it alternates between 'Note 1' and 'Note 2' in the music \r\n"
    "list, the program will cycle through all notes which the MIDI file is currently playing, playing a "
    "brief pulse of each note in turn. Because of this, though, it can start to sound silly when trying to "
    "play a lot of notes at once.\r\n"
    "To avoid this, you can tell the program to only bother to play notes on specific channels.\r\n\r\n"
    "This mod is identical to the MIDI input mod, except with this mod you choose a file "
    "rather than play the notes yourself on an external keyboard, for example."};

inline constexpr Mod UsePorta{
    &ModFields::UsePorta,
    "UsePortaCheck",
    "Tweeble portamento",
    "Make the PC speaker gradually fade from one note to the next (clicked keys only)",
    "Tweeble portamento",
    "In order for tweeble portamento it to work with things other than you just clicking notes on the "
    "keyboard, you MUST tick \"Mute PC speaker\" on the main window. Otherwise, the ordinary "
    "\"non-modified\" notes will be played over the top, blocking the portamento."};

inline constexpr Mod UseMotor{
    &ModFields::UseMotor,
    "UseMotorCheck",
    "Use motor-speed mod (via SSC-32 and SyRen10)",
    "Just in case you happen to have a spare microcontroller and motor speed controller lying around ;P",
    "Using the motor-speed mod",
    "Makes an electric motor whine the notes: each note is sent through the serial port as a speed of the "
    "motor.\r\n\r\n"
    "The motor can make the notes from C1 to F3. 'Motor Octave' says how many octaves lower than written the "
    "music is played, so that it fits."};

inline constexpr Mod UseBeat{
    &ModFields::UseBeat,
    "UseBeatCheck",
    "Play a beat sound",
    "Make a beat-like sound on quarter-notes or half-notes",
    "Playing a beat sound",
    "This makes the tweeble play a kind of 'beat' sound on every beat (or on every other beat, if you don't "
    "want it to sound so crazy at fast tempos). It sounds like a kind of techno beat, which I suppose is "
    "what you'd expect from something as electronic as the system speaker. ;P"};

inline constexpr Mod UseCircuitBent{
    &ModFields::UseCircuitBent,
    "UseCircuitBentCheck",
    "Act as if circuit-bent",
    "Plays fast random notes all the time. Yeah, it's a waste.",
    "Acting as if circuit-bent",
    "All this does is make the program create random 'beep' sounds by quickly playing random notes.\r\n\r\n"
    "Remember that if you're using MIDI output, a very large number of notes will be sent out through here "
    "too!\r\n"
    "So please make sure the volume of your external MIDI device is not set too high."};

inline constexpr Mod UseSynchro{
    &ModFields::UseSynchro,
    "UseSynchroCheck",
    "Synchronized play",
    "Start playing at a certain time, together with other computers",
    "Synchronized play",
    "Lets several copies of this program start playing at the same moment, be it on one computer or on "
    "several: tell each of them to wait for the same time."};

inline constexpr const Mod* Mods[] = {&UseFMOD,  &UseVoice, &UseMIDIOut, &UseMIDIIn,      &UseMIDIFile,
                                      &UsePorta, &UseMotor, &UseBeat,    &UseCircuitBent, &UseSynchro};

}  // namespace quavix::text
