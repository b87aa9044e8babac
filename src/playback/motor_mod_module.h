// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "music/main_fields.h"
#include "music/tone.h"
#include "ports/message_boxes.h"
#include "ports/serial_port.h"
#include "shell/debug_log.h"
#include "shell/event_boundary.h"
#include "shell/waiting.h"

namespace quavix {

/// Dependencies of MotorModModule. All must outlive it.
struct MotorParts {
    const SongFields& Song;
    ModFields& Mods;
    OutputOptions& Output;
    SerialPort& Comm;
    Waiting& Wait;
    MessageBoxes& Boxes;
    EventBoundary& Handlers;
    DebugLog& Log;
};

/// Returns the pulse width of a motor note ("C1" to "F3", and "-") in microseconds, as measured for one motor
/// and therefore uneven. Names are case-sensitive; any other name gives 0.
std::int32_t PulseOfNote(std::string_view noteName);

/// The motor: plays notes by the speed of an electric motor. An SSC-32 servo controller on a serial port
/// drives a SyRen10 motor speed controller on its channel 0. The check box opens and closes the port. The
/// motor is always stopped before the port is closed; if the process dies, the port's last words stop it.
class MotorModModule final : public ToneOutput {
  public:
    explicit MotorModModule(const MotorParts& parts);

    /// Moves the note into the motor's octaves and plays it. Shows a warning if the text names no note.
    void Sound(const Tone& tone) override;

    /// Runs the motor at the speed of `noteName` ("C1" to "F3", or "-") for `durationMs` ms; handlers run
    /// meanwhile. Other names send the speed 0.
    void PlayNote(const std::string& noteName, double durationMs);

    /// Sets the pulse width, waits `waitTimeMs` + 15 ms while handlers run, and stops the motor if the
    /// note/silence ratio is below 100 %. A time outside 32 bits raises Overflow before anything is sent.
    void SetSpeed(std::int32_t pulse, double waitTimeMs);

    /// Sends a command and a carriage return if the motor is in use. If the port is lost, shows one message
    /// and switches the motor off.
    void SendString(const std::string& text);

    /// Chooses the first port that can be opened; called at start-up. If there is none, disables the check
    /// box.
    void CheckForPort();

    /// Searches for ports again; a new port enables the check box.
    void FindPorts();

    /// Stops the motor and closes the port, if they are in use.
    void Stop();

    // The port and the choices. Setting the name while the motor is in use switches to that port.
    const Watched<std::vector<std::string>>& PortNames() const { return portNames_; }
    Watched<std::string> PortName;

  private:
    void UseMotorCheck_Click(bool ticked);
    void ChangePort();
    void OpenPort();
    void Refuse(const std::string& why);
    void PortLost(const std::string& reason);

    MotorParts p_;
    Watched<std::vector<std::string>> portNames_;
    /// True if the last command was not the stop command.
    bool mayRun_ = false;
};

}  // namespace quavix
