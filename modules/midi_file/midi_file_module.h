// SPDX-License-Identifier: MIT
#pragma once

#include <stddef.h>
#include <stdint.h>

/*
 * midifl32.ocx: reads standard MIDI files of formats 0, 1 and 2, alone or in a RIFF file.
 *
 * The module keeps no state between calls and allocates nothing. It passes the file to the caller's functions
 * piece by piece; texts and pointers that it passes are valid during that call only. Calls may come from any
 * thread, also from several at once. The module throws nothing, and the caller's functions must not throw
 * either.
 */
// NOLINTBEGIN(modernize-use-using): this is C

#ifdef __cplusplus
extern "C" {
#endif

#if defined(_WIN32)
#define QUAVIX_MIDI_FILE_EXPORT __declspec(dllexport)
#else
#define QUAVIX_MIDI_FILE_EXPORT __attribute__((visibility("default")))
#endif

/** Version of this interface. It changes with every change that a caller could notice. */
#define QUAVIX_MIDI_FILE_VERSION 1u

/** Most events in one track, and in all tracks together, including the end-of-track events. */
#define QUAVIX_MIDI_FILE_TRACK_EVENTS 99999u
#define QUAVIX_MIDI_FILE_EVENTS 1048575u

/** Most tracks: the header of a file counts them in 16 bits. */
#define QUAVIX_MIDI_FILE_TRACKS 65535u

/** Size of the longest detail text in bytes, including the final zero. */
#define QUAVIX_MIDI_FILE_DETAIL_SIZE 256u

enum {
    QUAVIX_MIDI_FILE_OK = 0,
    /** An argument is a null pointer that must not be null. */
    QUAVIX_MIDI_FILE_BAD_ARGUMENT = 1,
    /** The caller was built for another version of this interface. */
    QUAVIX_MIDI_FILE_WRONG_VERSION = 2,
    /** The bytes hold no playable music; the detail says why. */
    QUAVIX_MIDI_FILE_UNREADABLE = 3,
    /** The file has more events than one of the two limits above; the detail says which one and where. */
    QUAVIX_MIDI_FILE_TOO_MANY_EVENTS = 4,
    /** A function of the caller asked to stop. */
    QUAVIX_MIDI_FILE_STOPPED = 5
};

/**
 * One event of a track.
 *
 * Status is 0x80 to 0xFF with running status resolved. For channel messages (below 0xF0), Data1 and Data2 are
 * the data bytes of the file, which may be above 127 in a faulty file; Data2 is 0 if the message has only one
 * data byte, and Value is 0. For 0xFF (meta), Data1 is the type. For 0xF0 and 0xF7 (system exclusive), both
 * are 0.
 */
typedef struct QuavixMidiFileEvent {
    /** Ticks since the start of the track. Never decreases, and may exceed 32 bits. */
    uint64_t Tick;
    /**
     * For a tempo (status 0xFF, type 0x51): microseconds per quarter note, 1 to 16777215, or 0 if the file
     * has no usable number there, so the tempo stays. For other meta and exclusive events: bytes of content.
     */
    uint32_t Value;
    uint8_t Status;
    uint8_t Data1;
    uint8_t Data2;
    uint8_t Reserved;
} QuavixMidiFileEvent;

/** The contents of the file's header. */
typedef struct QuavixMidiFileHeader {
    /** 0: one track; 1: simultaneous tracks; 2: independent tracks. Higher numbers are no known format. */
    uint32_t Format;
    /** Number of tracks that the header declares; the file may hold fewer or more. */
    uint32_t DeclaredTracks;
    /** 1 to 32767; 0 if the file counts time in SMPTE frames, so that tempo events have no effect. */
    uint32_t TicksPerQuarter;
    /** Ticks per second as a fraction, e.g. 30000 * 80 / 1001 at 29.97 frames; 0 / 1 if TicksPerQuarter is
     * used. */
    uint32_t TicksPerSecondNumerator;
    uint32_t TicksPerSecondDenominator;
} QuavixMidiFileHeader;

/**
 * The caller's functions that receive the file. All but Events may be null. Header is called first, once;
 * then for each track, in the file's order and counted from 0, Track and any number of calls of Events with
 * the events in order. If a function with a result returns anything but 0, reading stops.
 */
typedef struct QuavixMidiFileSink {
    /** Passed to every function. */
    void* User;
    int32_t (*Header)(void* user, const QuavixMidiFileHeader* header);
    /** A track begins; its content is at byte `offset`. */
    int32_t (*Track)(void* user, uint32_t track, uint64_t offset);
    int32_t (*Events)(void* user, uint32_t track, const QuavixMidiFileEvent* events, size_t count);
    /** Called from time to time: `done` of `total` bytes are read. */
    int32_t (*Progress)(void* user, uint64_t done, uint64_t total);
    /** A fault that did not stop the reading, as a sentence with its byte offset. Called at most 100 times.
     * */
    void (*Remark)(void* user, const char* text);
} QuavixMidiFileSink;

/** Returns the QUAVIX_MIDI_FILE_VERSION that the module was built with. */
QUAVIX_MIDI_FILE_EXPORT uint32_t QuavixMidiFileVersion(void);

/** Checks the caller's QUAVIX_MIDI_FILE_VERSION. To be called before the first reading. */
QUAVIX_MIDI_FILE_EXPORT int32_t QuavixMidiFileInit(uint32_t version);

/**
 * Reads a whole file of `size` bytes, which must not change meanwhile, into `sink`. Reads all that can be
 * played: a fault within a track ends that track; wrong counts and sizes are corrected if the bytes show the
 * right ones. If the result is not QUAVIX_MIDI_FILE_OK, `sink` has no usable file, and `detail`, the caller's
 * buffer of `detailSize` bytes, holds a sentence with the byte offset of the fault (cut to fit; null with
 * size 0 is allowed).
 */
QUAVIX_MIDI_FILE_EXPORT int32_t QuavixMidiFileRead(const uint8_t* bytes, size_t size,
                                                   const QuavixMidiFileSink* sink, char* detail,
                                                   size_t detailSize);

/** Called once by an installer after it has put the module in place. Returns 0 if the module can be used. */
QUAVIX_MIDI_FILE_EXPORT int32_t DllRegisterServer(void);

#ifdef __cplusplus
}
#endif

// NOLINTEND(modernize-use-using)
