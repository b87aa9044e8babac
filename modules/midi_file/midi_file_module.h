// SPDX-License-Identifier: MIT
#pragma once

#include <stddef.h>
#include <stdint.h>

/*
 * midifl32.ocx: reads standard MIDI files of formats 0, 1 and 2, alone or in a RIFF file.
 *
 * The module keeps nothing between calls and allocates nothing: what it reads it hands to the caller's
 * functions piece by piece, and every text and pointer that it passes is good for the length of that call
 * only. Any thread may call, several at a time too. Nothing is thrown; the caller's functions must not throw
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

/** The interface that this header describes. It changes with every change that a caller could notice. */
#define QUAVIX_MIDI_FILE_VERSION 1u

/** The most events that one track, and that all tracks together may hold, the ends of the tracks included. */
#define QUAVIX_MIDI_FILE_TRACK_EVENTS 99999u
#define QUAVIX_MIDI_FILE_EVENTS 1048575u

/** The most tracks, as the header of a file counts them in 16 bits. */
#define QUAVIX_MIDI_FILE_TRACKS 65535u

/** A detail text, its final zero included, never needs more bytes than this. */
#define QUAVIX_MIDI_FILE_DETAIL_SIZE 256u

enum {
    QUAVIX_MIDI_FILE_OK = 0,
    /** A null pointer where there must be none. */
    QUAVIX_MIDI_FILE_BAD_ARGUMENT = 1,
    /** The caller was built for another version of this interface. */
    QUAVIX_MIDI_FILE_WRONG_VERSION = 2,
    /** Nothing in the bytes can be played; the detail says why. */
    QUAVIX_MIDI_FILE_UNREADABLE = 3,
    /** More events than the two limits above; the detail says which and where. */
    QUAVIX_MIDI_FILE_TOO_MANY_EVENTS = 4,
    /** A function of the caller's has asked to stop. */
    QUAVIX_MIDI_FILE_STOPPED = 5
};

/**
 * One event of a track.
 *
 * Status is 0x80 to 0xFF with running status resolved. For channel messages (below 0xF0) Data1 and Data2 are
 * the data bytes as they stand in the file, which may be above 127 in a faulty one; Data2 is 0 where the
 * message has one byte only, and Value is 0. For 0xFF (meta) Data1 is the type. For 0xF0 and 0xF7 (system
 * exclusive) both are 0.
 */
typedef struct QuavixMidiFileEvent {
    /** Time since the start of the track. Never falls, and may exceed 32 bits. */
    uint64_t Tick;
    /**
     * For a tempo (status 0xFF, type 0x51): microseconds per quarter note, 1 to 16777215, or 0 where the file
     * has no usable number there, and the tempo stays what it was. For other meta and exclusive events: bytes
     * of content.
     */
    uint32_t Value;
    uint8_t Status;
    uint8_t Data1;
    uint8_t Data2;
    uint8_t Reserved;
} QuavixMidiFileEvent;

/** What the file's header says. */
typedef struct QuavixMidiFileHeader {
    /** 0: one track; 1: tracks that sound together; 2: tracks of their own. Higher numbers stand for no known
     * format. */
    uint32_t Format;
    /** How many tracks the file says it has; how many come is another matter. */
    uint32_t DeclaredTracks;
    /** 1 to 32767; 0 where the file counts time in SMPTE frames, and tempo events have no effect. */
    uint32_t TicksPerQuarter;
    /** Ticks per second as a fraction, e.g. 30000 * 80 / 1001 at 29.97 frames; 0 / 1 with ticks per quarter
     * note. */
    uint32_t TicksPerSecondNumerator;
    uint32_t TicksPerSecondDenominator;
} QuavixMidiFileHeader;

/**
 * Where what is read goes. Every function but Events may be null. Header comes first and once, then for each
 * track, in the file's order and counted from 0, Track and any number of calls of Events with the events in
 * order. Functions with a result stop the reading with any but 0.
 */
typedef struct QuavixMidiFileSink {
    /** Handed to every function. */
    void* User;
    int32_t (*Header)(void* user, const QuavixMidiFileHeader* header);
    /** A track begins, whose content lies at byte `offset`. */
    int32_t (*Track)(void* user, uint32_t track, uint64_t offset);
    int32_t (*Events)(void* user, uint32_t track, const QuavixMidiFileEvent* events, size_t count);
    /** From time to time: so many bytes of all bytes are done. */
    int32_t (*Progress)(void* user, uint64_t done, uint64_t total);
    /** A fault that did not keep the file from being read, as a sentence with its byte offset. At most 100 of
     * them. */
    void (*Remark)(void* user, const char* text);
} QuavixMidiFileSink;

/** QUAVIX_MIDI_FILE_VERSION as the module was built with. */
QUAVIX_MIDI_FILE_EXPORT uint32_t QuavixMidiFileVersion(void);

/** To be called before the first reading, with the caller's QUAVIX_MIDI_FILE_VERSION. */
QUAVIX_MIDI_FILE_EXPORT int32_t QuavixMidiFileInit(uint32_t version);

/**
 * Reads a whole file of `size` bytes, which must not change meanwhile, into `sink`. Whatever can be played is
 * read: a fault within a track ends that track, wrong counts and sizes are put right where the bytes show
 * how. With any result but QUAVIX_MIDI_FILE_OK, what the sink has got is no file and `detail`, a caller's
 * buffer of `detailSize` bytes, holds a sentence with the byte offset of the fault (cut where the buffer is
 * shorter; null with 0 is none).
 */
QUAVIX_MIDI_FILE_EXPORT int32_t QuavixMidiFileRead(const uint8_t* bytes, size_t size,
                                                   const QuavixMidiFileSink* sink, char* detail,
                                                   size_t detailSize);

/** What an installer calls once after it has put the module in place. 0: the module can be used. */
QUAVIX_MIDI_FILE_EXPORT int32_t DllRegisterServer(void);

#ifdef __cplusplus
}
#endif

// NOLINTEND(modernize-use-using)
