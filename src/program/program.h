// SPDX-License-Identifier: MIT
#pragma once

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

/// The program behind its window: the one place where its parts are put together, whatever stands behind the
/// ports. Each group of parts is a header of its own.
class Program {
    struct Parts;

  public:
    /// The ports must outlive the program.
    explicit Program(const ProgramPorts& ports);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// A tone sounds, or held notes do in turn, so that nothing may hold the program up.
    bool IsSounding() const;

    /// Closes the MIDI devices that are open, for the program's end.
    void ReleaseMidi();

  private:
    /// Owned. A smart pointer's header would be most of what users of this one compile.
    Parts* const parts_;

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
