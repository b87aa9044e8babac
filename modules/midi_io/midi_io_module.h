// SPDX-License-Identifier: MIT
#pragma once

#include <stddef.h>
#include <stdint.h>

// NOLINTBEGIN(modernize-use-using): this is C

/*
 * midiio32.ocx: the machine's MIDI devices, through the ALSA sequencer or, if there is none, the JACK server.
 *
 * All calls for one QuavixMidiIo come from one thread. No call waits for a device, but opening and closing
 * take some cycles of a JACK server, usually 0.1 to 0.2 s, and up to five seconds if it is overloaded. Texts
 * are UTF-8, copied into the caller's buffers and cut to fit. The module throws nothing.
 */
#ifdef __cplusplus
extern "C" {
#endif

#if defined(_WIN32)
#define QUAVIX_MIDI_IO_EXPORT __declspec(dllexport)
#else
#define QUAVIX_MIDI_IO_EXPORT __attribute__((visibility("default")))
#endif

/** Version of this interface. It changes with every change that a caller could notice. */
#define QUAVIX_MIDI_IO_VERSION 1u

/** Number of the output device that is a port named Quavix, to which other programs can connect. */
#define QUAVIX_MIDI_IO_VIRTUAL_PORT (-1)

enum {
    QUAVIX_MIDI_IO_OK = 0,
    /** A null pointer that must not be null, or an impossible device number or message. */
    QUAVIX_MIDI_IO_BAD_ARGUMENT = 1,
    /** The caller was built for another version of this interface. */
    QUAVIX_MIDI_IO_WRONG_VERSION = 2,
    /** No MIDI system is running; QuavixMidiIoProblem has the reason. */
    QUAVIX_MIDI_IO_NO_SYSTEM = 3,
    /** The device no longer exists. */
    QUAVIX_MIDI_IO_NO_DEVICE = 4,
    /** The device exists, but can't be opened; QuavixMidiIoProblem has the reason. */
    QUAVIX_MIDI_IO_REFUSED = 5,
    /** No device is open. */
    QUAVIX_MIDI_IO_CLOSED = 6,
    /** The open device has vanished. This state lasts until it is closed or another device is opened. */
    QUAVIX_MIDI_IO_GONE = 7,
    /** The output is full, so the message was not sent. It can be sent again later. */
    QUAVIX_MIDI_IO_BUSY = 8,
    /** No message has arrived. */
    QUAVIX_MIDI_IO_EMPTY = 9,
    /** Messages were lost because they were not taken in time, so held notes may never end. Reported once. */
    QUAVIX_MIDI_IO_LOST = 10,
    /** The system failed in another way; QuavixMidiIoProblem has the reason. */
    QUAVIX_MIDI_IO_FAILED = 11
};

/** One user of the machine's MIDI devices, with at most one output and one input open. */
typedef struct QuavixMidiIo QuavixMidiIo;

/** A channel message: Status 0x80 to 0xEF, data bytes 0 to 127. Data2 is 0 if the message has only one data
 * byte. */
typedef struct QuavixMidiIoMessage {
    uint8_t Status;
    uint8_t Data1;
    uint8_t Data2;
} QuavixMidiIoMessage;

/** Returns the QUAVIX_MIDI_IO_VERSION that the module was built with. */
QUAVIX_MIDI_IO_EXPORT uint32_t QuavixMidiIoVersion(void);

/** Checks the caller's QUAVIX_MIDI_IO_VERSION. To be called before anything else. */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoInit(uint32_t version);

/**
 * Makes a user of the MIDI system named "alsa" or "jack"; with null or "", of the first one that is running.
 * If the system is not running, every search for devices tries again.
 *
 * `wake` (may be null) is called from any thread when a message arrives after QuavixMidiIoReceive found none,
 * and when the state of a device may have changed. It must return at once and must not call this module.
 */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoCreate(const char* system, void (*wake)(void* user), void* user,
                                                 QuavixMidiIo** io);

/** Closes both devices and frees `io` (null is allowed). `wake` is not called afterwards. */
QUAVIX_MIDI_IO_EXPORT void QuavixMidiIoDestroy(QuavixMidiIo* io);

/** Returns "ALSA sequencer" or "JACK"; empty if none was found or none is in use. */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoSystemName(QuavixMidiIo* io, char* name, size_t size);

/** Returns the reason of the last failure as a sentence; empty if there is none. */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoProblem(QuavixMidiIo* io, char* text, size_t size);

/** Searches for devices again and numbers them from 0, without the virtual port and the ports of this `io`.
 * */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoOutputCount(QuavixMidiIo* io, int32_t* count);
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoInputCount(QuavixMidiIo* io, int32_t* count);

/** Returns the name of a device of the last search; outputs begin at QUAVIX_MIDI_IO_VIRTUAL_PORT. */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoOutputName(QuavixMidiIo* io, int32_t device, char* name,
                                                     size_t size);
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoInputName(QuavixMidiIo* io, int32_t device, char* name,
                                                    size_t size);

/** Closes the open device and opens the one with this number in the last search. */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoOpenOutput(QuavixMidiIo* io, int32_t device);
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoOpenInput(QuavixMidiIo* io, int32_t device);

/**
 * Closes the device after sent messages have gone out, and drops arrived ones. Does nothing if it is closed.
 * When both directions are closed, the module leaves the MIDI system until the next search or opening. A
 * program should close both before it ends: a JACK server may wait for a client that vanishes, and block all
 * others.
 */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoCloseOutput(QuavixMidiIo* io);
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoCloseInput(QuavixMidiIo* io);

/** Returns QUAVIX_MIDI_IO_OK for an open, existing device, else QUAVIX_MIDI_IO_CLOSED or ..._GONE. */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoOutputState(QuavixMidiIo* io);
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoInputState(QuavixMidiIo* io);

/**
 * Sends a channel message to the open output at once. If the message has only one data byte, `data2` is not
 * sent. A message outside the ranges of QuavixMidiIoMessage is a bad argument.
 */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoSend(QuavixMidiIo* io, uint8_t status, uint8_t data1,
                                               uint8_t data2);

/**
 * Takes the oldest arrived message. Channel messages arrive whole, with running status resolved; all others
 * (exclusive, clock, active sensing) are left out. Messages that came before a device vanished can still be
 * taken.
 */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoReceive(QuavixMidiIo* io, QuavixMidiIoMessage* message);

/** Called once by an installer after it has put the module in place. Returns 0 if the module can be used. */
QUAVIX_MIDI_IO_EXPORT int32_t DllRegisterServer(void);

#ifdef __cplusplus
}
#endif

// NOLINTEND(modernize-use-using)
