// SPDX-License-Identifier: MIT
#include "program/program.h"

#include <string>

#include "program/program_parts.h"
#include "program/program_ports.h"

namespace quavix {

CommonParts::CommonParts(const ProgramPorts& ports)
    : Ports(ports),
      Log(ports.Disk, ports.Time, ports.LogFile),
      Handlers(ports.Boxes, Log),
      Wait(ports.Time, ports.Pump) {}

SongEditing::SongEditing(CommonParts& common)
    : EditHistory(common.Fields.Song, common.List),
      DottedTripletBoxes(common.Fields.Entry, common.List, EditHistory, common.Log),
      PositionDisplay(common.Fields.Song, common.Fields.Mods, common.List, common.Ports.Boxes, common.Log),
      NoteEntry(common.Fields.Entry, common.List, EditHistory, common.Log),
      ListEditing(common.Fields.Entry, common.Fields.State, common.List, NoteEntry, DottedTripletBoxes,
                  EditHistory, [this] { PositionDisplay.ShowSelectedLine(); }),
      LineClipboard(common.List, common.Ports.TextClipboard, EditHistory, [this] { ShowPositionOfEdit(); }),
      state_(common.Fields.State) {
    EditHistory.OnRestored = [this](bool onlyMods) {
        if (onlyMods)
            DottedTripletBoxes.UpdateModButtons();
        ShowPositionOfEdit();
    };
}

void SongEditing::ShowPositionOfEdit() {
    if (!state_.MusicIsPlaying)
        PositionDisplay.ShowSelectedLine();
}

Outputs::Outputs(CommonParts& common)
    : ToneCode(common.Ports.Disk, common.Ports.ToneCodeFile),
      PitchGlide(common.Fields.Mods, common.Ports.PcSpeaker, common.Ports.Ticks, common.Handlers, common.Log),
      MotorModModule({common.Fields.Song, common.Fields.Mods, common.Fields.Output, common.Ports.Comm,
                      common.Wait, common.Ports.Boxes, common.Handlers, common.Log}),
      SoundMods({common.Fields.Song, common.Fields.Mods, common.Fields.Output, common.Ports.Sound,
                 common.Ports.Random, common.Ports.Ticks, common.Ports.Disk, common.Ports.Boxes, common.Wait,
                 common.Handlers, common.Log,
                 [this](const std::string& text) { MotorModModule.SendString(text); }}),
      ControlInstaller({common.Fields.Mods, common.Fields.State, common.Ports.Disk, common.Ports.Batches,
                        common.Ports.TextClipboard, common.Ports.Boxes, common.Wait, common.Log,
                        common.Ports.ProgramFolder, common.Ports.WinFolder}),
      MidiOutput({common.Fields.Mods, common.Fields.State, common.Ports.MidiOutDevices, ControlInstaller,
                  common.Wait, common.Ports.Boxes, common.Handlers, common.Log}),
      ToneDispatcher(common.Fields.Mods, common.Fields.Output,
                     {common.Ports.PcSpeaker, MotorModModule, SoundMods.Generator, MidiOutput, PitchGlide},
                     ToneCode, common.Wait, common.Ports.Boxes, common.Log) {}

Playing::Playing(CommonParts& common, SongEditing& editing, Outputs& outputs)
    : HeldNoteCycler(common.Fields.Song, common.Fields.View, outputs.ToneDispatcher,
                     outputs.SoundMods.Generator),
      MidiInput({common.Fields.Song, common.Fields.Mods, common.Fields.State, common.Ports.MidiInDevices,
                 outputs.ControlInstaller, HeldNoteCycler, outputs.SoundMods.Generator, common.Ports.Ticks,
                 common.Ports.Boxes, common.Handlers, common.Log}),
      MidiFilePlayback({common.Fields.Song, common.Fields.Mods, common.Fields.State, common.Ports.Time,
                        common.Ports.Ticks, common.Wait, common.Ports.Disk, common.Ports.Picker,
                        common.Ports.Boxes, common.Ports.MidiFiles, outputs.ControlInstaller, HeldNoteCycler,
                        outputs.SoundMods.Generator, common.Handlers, common.Log}),
      Beat(common.Fields.Mods, editing.PositionDisplay, outputs.ToneDispatcher, common.Ports.Boxes,
           common.Handlers, common.Log),
      Metronome(common.Fields.Song, common.Fields.State, common.Fields.View, outputs.ToneDispatcher,
                outputs.ToneCode, common.Ports.Time, common.Wait, common.Log),
      CircuitBent(common.Fields.Mods, common.Fields.State, outputs.ToneDispatcher, common.Ports.Random,
                  common.Ports.Ticks, common.Handlers, common.Log),
      SynchroPlay({common.Fields.Mods, common.Fields.State, common.Ports.Time, common.Ports.Ticks,
                   common.Wait, common.Ports.Boxes, common.Handlers,
                   [&outputs] { return outputs.ToneDispatcher.IsSounding(); },
                   [this] { PlaybackEngine.PlayAllButton_Click(); },
                   [this] { PlaybackEngine.PlayFromLineButton_Click(); },
                   [&outputs] { return outputs.SoundMods.Engine.GetFMODBufferLength(); }}),
      PianoKeys(common.Fields.Entry, common.Fields.View, editing.NoteEntry, outputs.ToneDispatcher,
                editing.PositionDisplay, common.Log),
      PlaybackEngine({common.Fields.Song, common.Fields.Mods, common.Fields.Output, common.Fields.State,
                      common.Fields.View, common.List, editing.DottedTripletBoxes, editing.PositionDisplay,
                      outputs.ToneDispatcher, outputs.ToneCode, outputs.SoundMods.Generator,
                      outputs.SoundMods.Singer, [this] { Beat.LineStarts(); }, SynchroPlay, common.Ports.Time,
                      common.Wait, common.Ports.Boxes, common.Log}) {}

SongStorage::SongStorage(CommonParts& common, SongEditing& editing, Playing& playing)
    : SongReader(common.Fields.Song, common.Fields.Entry, common.List, common.Ports.Disk, common.Ports.Boxes,
                 common.Ports.Picker, common.Ports.Loading, common.Log),
      SongWriter(common.Fields.Song, common.Fields.Entry, common.List, common.Ports.Disk, common.Ports.Boxes,
                 common.Ports.Picker, common.Log),
      SongDocument({common.Fields.Song, common.Fields.State, common.List, SongReader, SongWriter,
                    common.Ports.Disk, common.Ports.Boxes, editing.EditHistory, [&editing, &playing] {
                        playing.PlaybackEngine.StopPlayButton_Click();
                        editing.ShowPositionOfEdit();
                    }}) {}

ProgramParts::ProgramParts(const ProgramPorts& ports)
    : Common(ports),
      Editing(Common),
      Outputs(Common),
      Playing(Common, Editing, Outputs),
      Storage(Common, Editing, Playing) {}

Program::Program(ProgramParts& parts)
    : Ports(parts.Common.Ports),
      Fields(parts.Common.Fields),
      List(parts.Common.List),
      Log(parts.Common.Log),
      Handlers(parts.Common.Handlers),
      Wait(parts.Common.Wait),
      Editing(parts.Editing),
      Outputs(parts.Outputs),
      Playing(parts.Playing),
      Storage(parts.Storage) {}

bool Program::IsSounding() const {
    return Outputs.ToneDispatcher.IsSounding() || Playing.MidiInput.HoldsNotes() ||
           Playing.MidiFilePlayback.IsPlaying();
}

void Program::ReleaseMidi() {
    if (Outputs.MidiOutput.MIDIOutIsOpen)
        Outputs.MidiOutput.CloseOutputDevice();
    if (Playing.MidiInput.MIDIInIsOpen)
        Playing.MidiInput.CloseInputDevice();
}

}  // namespace quavix
