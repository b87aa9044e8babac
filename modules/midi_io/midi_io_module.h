// SPDX-License-Identifier: MIT
#pragma once

#include <stddef.h>
#include <stdint.h>

// NOLINTBEGIN(modernize-use-using): this is C

/*
 * midiio32.ocx: the MIDI devices of the machine, by its ALSA sequencer or, where there is none, its JACK
 * server.
 *
 * All calls for one QuavixMidiIo come from one thread; none waits for a device, but opening and closing may
 * take some milliseconds, and closing up to a second where the JACK server has died. Texts are UTF-8, copied
 * into the caller's buffers and cut where those are too short. Nothing is thrown.
 */
#ifdef __cplusplus
extern "C" {
#endif

#if defined(_WIN32)
#define QUAVIX_MIDI_IO_EXPORT __declspec(dllexport)
#else
#define QUAVIX_MIDI_IO_EXPORT __attribute__((visibility("default")))
#endif

/** The interface that this header describes. It changes with every change that a caller could notice. */
#define QUAVIX_MIDI_IO_VERSION 1u

/** The output device that is a port named Quavix, to which other programs can be connected. */
#define QUAVIX_MIDI_IO_VIRTUAL_PORT (-1)

enum {
    QUAVIX_MIDI_IO_OK = 0,
    /** A null pointer where there must be none, a device number or a message that can not be. */
    QUAVIX_MIDI_IO_BAD_ARGUMENT = 1,
    /** The caller was built for another version of this interface. */
    QUAVIX_MIDI_IO_WRONG_VERSION = 2,
    /** The machine has no MIDI system that runs; QuavixMidiIoProblem says more. */
    QUAVIX_MIDI_IO_NO_SYSTEM = 3,
    /** The device is not there any more. */
    QUAVIX_MIDI_IO_NO_DEVICE = 4,
    /** The device is there, but refuses; QuavixMidiIoProblem says more. */
    QUAVIX_MIDI_IO_REFUSED = 5,
    /** No device is open. */
    QUAVIX_MIDI_IO_CLOSED = 6,
    /** The device that was open has vanished. It stays so until it is closed or another is opened. */
    QUAVIX_MIDI_IO_GONE = 7,
    /** Nothing was sent, as much is still on its way. The same message can be sent later. */
    QUAVIX_MIDI_IO_BUSY = 8,
    /** No message has arrived. */
    QUAVIX_MIDI_IO_EMPTY = 9,
    /** Messages were lost, as they were not taken: those that are held may never end. Told once. */
    QUAVIX_MIDI_IO_LOST = 10,
    /** The system has failed in a way of its own; QuavixMidiIoProblem says more. */
    QUAVIX_MIDI_IO_FAILED = 11
};

/** One user of the machine's MIDI devices, with at most one output and one input open. */
typedef struct QuavixMidiIo QuavixMidiIo;

/** A channel message: Status 0x80 to 0xEF, data bytes 0 to 127. Data2 is 0 where the message has one byte
 * only. */
typedef struct QuavixMidiIoMessage {
    uint8_t Status;
    uint8_t Data1;
    uint8_t Data2;
} QuavixMidiIoMessage;

/** QUAVIX_MIDI_IO_VERSION as the module was built with. */
QUAVIX_MIDI_IO_EXPORT uint32_t QuavixMidiIoVersion(void);

/** To be called before anything else, with the caller's QUAVIX_MIDI_IO_VERSION. */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoInit(uint32_t version);

/**
 * Makes a user of the MIDI system named "alsa" or "jack"; with null or "", of the first of them that is
 * there. A system that is not there now is looked for again by every search for devices.
 *
 * `wake` (may be null) is called, from any thread, when a message has arrived after QuavixMidiIoReceive had
 * found none, and when the state of a device may have changed. It must return at once and call nothing of
 * this module.
 */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoCreate(const char* system, void (*wake)(void* user), void* user,
                                                 QuavixMidiIo** io);

/** Closes what is open and frees `io` (null is none). `wake` is not called afterwards. */
QUAVIX_MIDI_IO_EXPORT void QuavixMidiIoDestroy(QuavixMidiIo* io);

/** "ALSA sequencer" or "JACK"; empty where none was found or is in use. */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoSystemName(QuavixMidiIo* io, char* name, size_t size);

/** Why the last call that failed has failed, as a sentence; empty where there is no more to say. */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoProblem(QuavixMidiIo* io, char* text, size_t size);

/** Searches for devices anew and numbers them from 0. The virtual port is not counted, and neither are own
 * ports. */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoOutputCount(QuavixMidiIo* io, int32_t* count);
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoInputCount(QuavixMidiIo* io, int32_t* count);

/** The name of a device as the last search has numbered it; outputs from QUAVIX_MIDI_IO_VIRTUAL_PORT on. */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoOutputName(QuavixMidiIo* io, int32_t device, char* name,
                                                     size_t size);
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoInputName(QuavixMidiIo* io, int32_t device, char* name,
                                                    size_t size);

/** Closes what was open and opens the device that the last search has given this number. */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoOpenOutput(QuavixMidiIo* io, int32_t device);
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoOpenInput(QuavixMidiIo* io, int32_t device);

/**
 * Closes the device after what was sent has gone out; arrived messages are dropped. Closed already is fine.
 * When neither direction is open any more, the MIDI system is left until the next search or opening. A
 * program should close both before it ends: a JACK server may wait for one that vanishes, and all others with
 * it.
 */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoCloseOutput(QuavixMidiIo* io);
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoCloseInput(QuavixMidiIo* io);

/** QUAVIX_MIDI_IO_OK where a device is open and there, QUAVIX_MIDI_IO_CLOSED, or QUAVIX_MIDI_IO_GONE. */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoOutputState(QuavixMidiIo* io);
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoInputState(QuavixMidiIo* io);

/**
 * Sends a channel message to the open output, at once. Of messages with one data byte, `data2` is not sent. A
 * message that is none (see QuavixMidiIoMessage) is a bad argument.
 */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoSend(QuavixMidiIo* io, uint8_t status, uint8_t data1,
                                               uint8_t data2);

/**
 * Takes the oldest message that has arrived. Channel messages arrive whole, with running status resolved; all
 * others (exclusive, clock, active sensing) are left out. Messages that came before a device vanished can
 * still be taken.
 */
QUAVIX_MIDI_IO_EXPORT int32_t QuavixMidiIoReceive(QuavixMidiIo* io, QuavixMidiIoMessage* message);

/** What an installer calls once after it has put the module in place. 0: the module can be used. */
QUAVIX_MIDI_IO_EXPORT int32_t DllRegisterServer(void);

#ifdef __cplusplus
}
#endif

// NOLINTEND(modernize-use-using)
