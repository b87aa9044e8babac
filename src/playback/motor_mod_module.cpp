// SPDX-License-Identifier: MIT
#include "playback/motor_mod_module.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <utility>

#include "music/notes.h"
#include "shell/numbers.h"

namespace quavix {
namespace {

struct MotorNote {
    std::string_view Name;
    std::int32_t Pulse;
};

constexpr MotorNote MotorNotes[] = {
    {"C1", 1350}, {"C#1", 1340}, {"D1", 1335}, {"D#1", 1330}, {"E1", 1327},  {"F1", 1320}, {"F#1", 1315},
    {"G1", 1310}, {"G#1", 1300}, {"A1", 1294}, {"A#1", 1283}, {"B1", 1275},  {"C2", 1260}, {"C#2", 1250},
    {"D2", 1238}, {"D#2", 1230}, {"E2", 1217}, {"F2", 1203},  {"F#2", 1191}, {"G2", 1178}, {"G#2", 1167},
    {"A2", 1151}, {"A#2", 1131}, {"B2", 1117}, {"C3", 1097},  {"C#3", 1075}, {"D3", 1058}, {"D#3", 1037},
    {"E3", 1015}, {"F3", 1000},  {"-", 1500},
};

constexpr const char* StopCommand = "#0P1470";
constexpr char EndOfCommand = '\r';

constexpr const char* BoxTitle = "Motor-speed mod";

}  // namespace

std::int32_t PulseOfNote(std::string_view noteName) {
    const auto note = std::ranges::find(MotorNotes, noteName, &MotorNote::Name);
    return note == std::end(MotorNotes) ? 0 : note->Pulse;
}

MotorModModule::MotorModModule(const MotorParts& parts) : p_(parts) {
    p_.Mods.UseMotor.Ticked.Watch(
        p_.Handlers.Wrap("UseMotorCheck_Click", [this](bool ticked) { UseMotorCheck_Click(ticked); }));
    PortName.Watch(p_.Handlers.Wrap("cmbMotorPort_Click", [this] { ChangePort(); }));
    p_.Comm.WhenLost(
        p_.Handlers.Wrap("Comm_OnComm", [this](const std::string& reason) { PortLost(reason); }));
}

void MotorModModule::Sound(const Tone& tone) {
    tone.WarnIfUnknown(p_.Boxes);
    PlayNote(NoteNumToNoteString(tone.NoteNum, tone.Octave, false, p_.Output.MotorOct), tone.DurationMs);
}

void MotorModModule::PlayNote(const std::string& noteName, double durationMs) {
    SetSpeed(PulseOfNote(noteName), durationMs);
}

void MotorModModule::SetSpeed(std::int32_t pulse, double waitTimeMs) {
    // Extra time for the motor to reach its speed, in ms.
    constexpr double MoreMs = 15;
    const std::int32_t milliseconds = ToInt32(waitTimeMs + MoreMs);
    const LogBlock block(p_.Log, "MotorModModule.SetSpeed()",
                         "MotorModModule.SetSpeed(PULSE:{}, WAITTIME:{}) - START", pulse,
                         NumberText(waitTimeMs));
    try {
        SendString("#0P" + std::to_string(pulse));
        p_.Log.Text("MsgWaitObj {}", NumberText(waitTimeMs + MoreMs));
        p_.Wait.MsgWaitObj(std::max(milliseconds, 0));  // below 0 it would never end
    } catch (const std::exception&) {
        // An error must not leave the motor running.
        if (std::exchange(mayRun_, false))
            p_.Comm.Write(std::string(StopCommand) + EndOfCommand);
        throw;
    }
    if (p_.Song.NoteSilenceRatio < parameter::NoteSilenceRatio.Highest)
        SendString(StopCommand);
}

void MotorModModule::SendString(const std::string& text) {
    p_.Log.Text("MotorModModule.SendString({})", text);
    if (!p_.Mods.UseMotor.InUse)
        return;
    mayRun_ = text != StopCommand;
    p_.Comm.Write(text + EndOfCommand);
}

void MotorModModule::CheckForPort() {
    FindPorts();
    for (const std::string& name : portNames_.Get()) {
        if (!p_.Comm.Open(name, {}).empty())
            continue;
        p_.Log.LogText("A com port exists");
        p_.Comm.Close();
        PortName = name;
        return;
    }
    p_.Log.LogText("No (available) com port can be seen");
    p_.Mods.UseMotor.Enabled = false;
}

void MotorModModule::FindPorts() {
    const std::vector<std::string> names = p_.Comm.Names();
    portNames_ = names;
    if (p_.Mods.UseMotor.InUse)
        return;  // the port in use stays chosen
    if (std::find(names.begin(), names.end(), PortName.Get()) == names.end())
        PortName = names.empty() ? std::string() : names.front();
    if (!names.empty())
        p_.Mods.UseMotor.Enabled = true;
}

void MotorModModule::UseMotorCheck_Click(bool ticked) {
    if (!ticked) {
        Stop();
        return;
    }
    FindPorts();
    OpenPort();
}

void MotorModModule::ChangePort() {
    if (!p_.Mods.UseMotor.InUse)
        return;
    Stop();
    OpenPort();
}

void MotorModModule::OpenPort() {
    const std::string name = PortName;
    if (name.empty()) {
        Refuse("No serial port can be seen.\nPlease connect the motor's controller and try again.");
        return;
    }
    const std::string problem = p_.Comm.Open(name, std::string(StopCommand) + EndOfCommand);
    if (!problem.empty()) {
        Refuse(fmt::format("The serial port {} can't be opened:\n{}", name, problem));
        return;
    }
    p_.Log.Text("Serial port {} opened", name);
    mayRun_ = false;
    p_.Mods.UseMotor.InUse = true;
}

void MotorModModule::Refuse(const std::string& why) {
    p_.Log.LogText(why);
    p_.Mods.UseMotor.Ticked = false;
    p_.Boxes.Show({.Title = BoxTitle,
                   .Text = why + "\n\n(The motor-speed mod stays switched off)",
                   .Icon = BoxIcon::Warning});
}

void MotorModModule::PortLost(const std::string& reason) {
    p_.Mods.UseMotor.InUse = false;
    mayRun_ = false;
    p_.Mods.UseMotor.Ticked = false;
    p_.Log.Text("Serial port {} lost: {}", PortName.Get(), reason);
    FindPorts();
    p_.Boxes.Tell(
        {.Title = BoxTitle,
         .Text = fmt::format("The serial port is gone:\n{}\n\n(The motor-speed mod is switched off; "
                             "the notes go on without the motor)",
                             reason),
         .Icon = BoxIcon::Warning});
}

void MotorModModule::Stop() {
    if (!p_.Mods.UseMotor.InUse)
        return;
    const bool mustStop = std::exchange(mayRun_, false);
    // First, because the log may raise an error.
    if (mustStop)
        p_.Comm.Write(std::string(StopCommand) + EndOfCommand);
    p_.Mods.UseMotor.InUse = false;
    p_.Comm.Close();
    p_.Log.Text("Serial port {} closed{}", PortName.Get(), mustStop ? ", motor stopped" : "");
}

}  // namespace quavix
