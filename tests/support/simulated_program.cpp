// SPDX-License-Identifier: MIT
#include "support/simulated_program.h"

#include <sstream>

#include "songfile/song_format.h"

namespace quavix::test {

void SimulatedProgram::SetSong(std::initializer_list<const char*> lines) {
    App.List.Clear();
    for (const char* line : lines) {
        std::istringstream words(line);
        std::string cells[4];
        for (std::string& cell : cells) {
            words >> cell;
            if (cell == "-")
                cell.clear();
        }
        App.List.Insert(App.List.Count() + 1, {cells[0], cells[1], cells[2], cells[3]});
    }
    App.Editing.EditHistory.StartOver();
}

void SimulatedProgram::SetTempo(std::int32_t bpm, std::int32_t noteSilenceRatio) {
    App.Fields.Song.BPM.Set(bpm);
    App.Fields.Song.NoteSilenceRatio.Set(noteSilenceRatio);
}

void SimulatedProgram::StartSound() {
    Disk.Put("/program/FMODex.dll", "a library");
    App.Outputs.SoundMods.CheckAvailability("/program");
    App.Outputs.SoundMods.StartEngine();
    Timeline.Clear();
}

void SimulatedProgram::AttachMidiInputs() {
    Disk.Put("/windows/system32/midiio32.ocx", "module");
    MidiIn.Devices = {"Keyboard", "Drum pad"};
}

void SimulatedProgram::AttachMidiOutputs() {
    Disk.Put("/windows/system32/midiio32.ocx", "module");
    MidiOut.Devices = {"Keyboard", "Synthesizer"};
}

void SimulatedProgram::OpenMidiOut() {
    MidiOut.Devices = {"Synthesizer"};
    MidiOut.DeviceCount();
    MidiOut.Open(0);
    App.Fields.Mods.UseMIDIOut.InUse = true;
    Timeline.Clear();
}

std::string SimulatedProgram::SongText() const {
    std::string text;
    for (std::int32_t row = 1; row <= App.List.Count(); ++row) {
        if (App.List.IsSelected(row))
            text += "> ";
        else if (App.List.SelectedItem() == row)
            text += "* ";
        AppendLineText(text, App.List, row);
        text += '\n';
    }
    return text;
}

std::string SimulatedProgram::SoundCalls() {
    std::string calls;
    for (const std::string& line : Timeline.Lines())
        calls += line.substr(line.find("fmod ") + 5) + "\n";
    Timeline.Clear();
    return calls;
}

std::vector<std::string> SimulatedProgram::BoxTexts() const {
    std::vector<std::string> texts;
    for (const MessageBox& box : Boxes.Shown())
        texts.push_back(box.Text);
    return texts;
}

std::string SimulatedProgram::LogText() const {
    std::istringstream lines(Disk.Content("/program/debuglog.txt"));
    std::string text;
    for (std::string line; std::getline(lines, line);) {
        const std::size_t separator = line.find(" - ");
        const std::string entry = separator == std::string::npos ? line : line.substr(separator + 3);
        text += entry.substr(0, entry.find('\r')) + "\n";
    }
    return text;
}

}  // namespace quavix::test
