// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace quavix {

class DebugLog;
class EventBoundary;
class MusicList;
class Waiting;
struct MainFields;
struct Outputs;
struct Playing;
struct ProgramPorts;
struct SongEditing;
struct SongStorage;

/// The program behind its window: assembles its parts, on any implementation of the ports. The groups of
/// parts are in program_parts.h.
class Program {
    struct Parts;

  public:
    /// The ports must outlive the program.
    explicit Program(const ProgramPorts& ports);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Returns true while a tone or held notes sound, which a pause of the program would disturb.
    bool IsSounding() const;

    /// Closes the open MIDI devices at the program's end.
    void ReleaseMidi();

  private:
    const std::unique_ptr<Parts> parts_;

  public:
    const ProgramPorts& Ports;
    MainFields& Fields;
    MusicList& List;
    DebugLog& Log;
    EventBoundary& Handlers;
    Waiting& Wait;
    SongEditing& Editing;
    quavix::Outputs& Outputs;
    quavix::Playing& Playing;
    SongStorage& Storage;
};

}  // namespace quavix
