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

/// Pulse width of a motor note ("C1" to "F3", and "-") in microseconds, as measured for one motor: uneven on
/// purpose. Exact and case-sensitive; any other name gives 0.
std::int32_t PulseOfNote(std::string_view noteName);

/// Plays notes by the speed of an electric motor: an SSC-32 servo controller on a serial port, whose channel
/// 0 drives a SyRen10 motor speed controller. Its check box opens and closes the port. However the port is
/// left, the motor is stopped first; where the process dies, the port's last words stop it.
class MotorModModule final : public ToneOutput {
  public:
    explicit MotorModModule(const MotorParts& parts);
    MotorModModule(const MotorModModule&) = delete;
    MotorModModule& operator=(const MotorModModule&) = delete;

    /// Moves the note into the motor's octaves and plays it. Warns of a text that names no note.
    void Sound(const Tone& tone) override;

    /// Runs the motor at the speed of `noteName` ("C1" to "F3", or "-") and returns when `durationMs` have
    /// passed; handlers run meanwhile. A name that is no motor note sends the speed 0.
    void PlayNote(const std::string& noteName, double durationMs);

    /// Sets the pulse width, waits `waitTimeMs` and 15 ms more while handlers run, and stops the motor unless
    /// the notes are tied together. A time outside 32 bits raises Overflow, with nothing sent.
    void SetSpeed(std::int32_t pulse, double waitTimeMs);

    /// Sends a command and a carriage return, where the motor is in use. A port that is lost over it shows
    /// one message and switches the motor off.
    void SendString(const std::string& text);

    /// The check at start-up: the first port that can be opened is the one to use. Where there is none, the
    /// check box is disabled.
    void CheckForPort();

    /// Looks which ports there are now; one that has come makes the check box usable again.
    void FindPorts();

    /// Stops the motor and closes the port, where they are in use.
    void Stop();

    // The choice of the port. Setting the name, while the motor is in use, changes over to that port.
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
    /// The last command was not the one that stops the motor.
    bool mayRun_ = false;
};

}  // namespace quavix
