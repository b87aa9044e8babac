// SPDX-License-Identifier: MIT
#include "program/program.h"

#include <string>

#include "program/common_parts.h"
#include "program/outputs.h"
#include "program/playing.h"
#include "program/program_ports.h"
#include "program/song_editing.h"
#include "program/song_storage.h"

namespace quavix {

CommonParts::CommonParts(const ProgramPorts& ports)
    : Ports(ports),
      Log(ports.Disk, ports.Time, ports.LogFile),
      Handlers(ports.Boxes, Log),
      Wait(ports.Time, ports.Pump) {}

SongEditing::SongEditing(CommonParts& common)
    : EditHistory(common.Fields, common.List),
      ModButtons(common.Fields, common.List, EditHistory, common.Log),
      PositionDisplay(common.Fields, common.List, common.Ports.Boxes, common.Log),
      NoteEntry(common.Fields, common.List, EditHistory, common.Log),
      ListEditing(common.Fields, common.List, NoteEntry, ModButtons, EditHistory,
                  [this] { PositionDisplay.ShowSelectedLine(); }),
      LineClipboard(common.Fields, common.List, common.Ports.TextClipboard, EditHistory,
                    [this] { ShowPositionOfEdit(); }),
      fields_(common.Fields) {
    EditHistory.OnRestored = [this](bool onlyMods) {
        if (onlyMods)
            ModButtons.UpdateModButtons();
        ShowPositionOfEdit();
    };
}

void SongEditing::ShowPositionOfEdit() {
    if (!fields_.MusicIsPlaying)
        PositionDisplay.ShowSelectedLine();
}

Outputs::Outputs(CommonParts& common)
    : ToneCode(common.Fields, common.Ports.Disk, common.Ports.ToneCodeFile),
      PitchGlide(common.Fields, common.Ports.PcSpeaker, common.Ports.Ticks, common.Handlers, common.Log),
      MotorModModule(
          {common.Fields, common.Ports.Comm, common.Wait, common.Ports.Boxes, common.Handlers, common.Log}),
      SoundMods({common.Fields, common.Ports.Sound, common.Ports.Random, common.Ports.Ticks,
                 common.Ports.Disk, common.Ports.Boxes, common.Wait, common.Handlers, common.Log,
                 [this](const std::string& text) { MotorModModule.SendString(text); }}),
      ControlInstaller({common.Fields, common.Ports.Disk, common.Ports.Batches, common.Ports.TextClipboard,
                        common.Ports.Boxes, common.Wait, common.Log, common.Ports.ProgramFolder,
                        common.Ports.WinFolder}),
      MidiOutput({common.Fields, common.Ports.MidiOutDevices, ControlInstaller, common.Wait,
                  common.Ports.Boxes, common.Handlers, common.Log}),
      ToneDispatcher(common.Fields,
                     {common.Ports.PcSpeaker, MotorModModule, SoundMods.Generator, MidiOutput, PitchGlide},
                     ToneCode, common.Wait, common.Ports.Boxes, common.Log) {}

Playing::Playing(CommonParts& common, SongEditing& editing, Outputs& outputs)
    : HeldNoteCycler(common.Fields, outputs.ToneDispatcher, outputs.SoundMods.Generator),
      MidiInput({common.Fields, common.Ports.MidiInDevices, outputs.ControlInstaller, HeldNoteCycler,
                 outputs.SoundMods.Generator, common.Ports.Ticks, common.Ports.Boxes, common.Handlers,
                 common.Log}),
      MidiFilePlayback({common.Fields, common.Ports.Time, common.Ports.Ticks, common.Wait, common.Ports.Disk,
                        common.Ports.Picker, common.Ports.Boxes, common.Ports.MidiFiles,
                        outputs.ControlInstaller, HeldNoteCycler, outputs.SoundMods.Generator,
                        common.Handlers, common.Log}),
      Beat(common.Fields, editing.PositionDisplay, outputs.ToneDispatcher, common.Ports.Boxes,
           common.Handlers, common.Log),
      Metronome(common.Fields, outputs.ToneDispatcher, outputs.ToneCode, common.Ports.Time, common.Wait,
                common.Log),
      CircuitBent(common.Fields, outputs.ToneDispatcher, common.Ports.Random, common.Ports.Ticks,
                  common.Handlers, common.Log),
      SynchroPlay({common.Fields, common.Ports.Time, common.Ports.Ticks, common.Wait, common.Ports.Boxes,
                   common.Handlers, [&outputs] { return outputs.ToneDispatcher.IsSounding(); },
                   [this] { PlaybackEngine.PlayAllButton_Click(); },
                   [this] { PlaybackEngine.PlayFromLineButton_Click(); },
                   [&outputs] { return outputs.SoundMods.Engine.GetFMODBufferLength(); }}),
      PianoKeys(common.Fields, editing.NoteEntry, outputs.ToneDispatcher, editing.PositionDisplay,
                common.Log),
      PlaybackEngine({common.Fields, common.List, editing.ModButtons, editing.PositionDisplay,
                      outputs.ToneDispatcher, outputs.ToneCode, outputs.SoundMods.Generator,
                      outputs.SoundMods.Singer, [this] { Beat.LineStarts(); }, SynchroPlay, common.Ports.Time,
                      common.Wait, common.Ports.Boxes, common.Log}) {}

SongStorage::SongStorage(CommonParts& common, SongEditing& editing)
    : SongReader(common.Fields, common.List, common.Ports.Disk, common.Ports.Boxes, common.Ports.Picker,
                 common.Ports.Loading, common.Log),
      SongWriter(common.Fields, common.List, common.Ports.Disk, common.Ports.Boxes, common.Ports.Picker,
                 common.Log),
      SongChanges(common.Fields, common.List),
      SongDocument({common.Fields, common.List, SongReader, SongWriter, common.Ports.Disk, common.Ports.Boxes,
                    common.Fields.Modified, [&editing] { editing.EditHistory.MarkSaved(); },
                    [&editing] { editing.EditHistory.MarkUnsaved(); }}) {
    SongWriter.OnSaved = [&editing] { editing.EditHistory.MarkSaved(); };
}

struct Program::Parts {
    explicit Parts(const ProgramPorts& ports)
        : Common(ports),
          Editing(Common),
          Output(Common),
          Players(Common, Editing, Output),
          Storage(Common, Editing) {
        Storage.SongDocument.OnSongReplaced = [this] {
            Players.PlaybackEngine.StopPlayButton_Click();
            Editing.ShowPositionOfEdit();
        };
    }

    CommonParts Common;
    SongEditing Editing;
    quavix::Outputs Output;
    quavix::Playing Players;
    SongStorage Storage;
};

Program::Program(const ProgramPorts& ports)
    : parts_(new Parts(ports)),
      Ports(parts_->Common.Ports),
      Fields(parts_->Common.Fields),
      List(parts_->Common.List),
      Log(parts_->Common.Log),
      Handlers(parts_->Common.Handlers),
      Wait(parts_->Common.Wait),
      Editing(parts_->Editing),
      Outputs(parts_->Output),
      Playing(parts_->Players),
      Storage(parts_->Storage) {}

Program::~Program() {
    delete parts_;
}

bool Program::IsSounding() const {
    return Outputs.ToneDispatcher.IsSounding() || Playing.MidiInput.HoldsNotes() ||
           Playing.MidiFilePlayback.IsPlaying();
}

void Program::ReleaseMidi() {
    if (Fields.MIDIOutIsOpen)
        Outputs.MidiOutput.CloseOutputDevice();
    if (Fields.MIDIInIsOpen)
        Playing.MidiInput.CloseInputDevice();
}

}  // namespace quavix
