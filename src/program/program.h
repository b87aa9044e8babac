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
struct ProgramParts;
struct ProgramPorts;
struct SongEditing;
struct SongStorage;

/// The program without its window: refers to the groups of its parts, for code that uses several of them.
/// Such code includes program_parts.h for the members of the groups.
struct Program {
    /// The parts must outlive the program.
    explicit Program(ProgramParts& parts);

    /// Returns true while a tone or held notes sound, which a pause of the program would disturb.
    bool IsSounding() const;

    /// Closes the open MIDI devices at the program's end.
    void ReleaseMidi();

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
