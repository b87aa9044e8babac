/* SPDX-License-Identifier: MIT */
/**
 * The interface between a program and its sound engine.
 *
 * A sound engine is a shared library named FMODex.dll, on every system, in the program's own folder. The
 * program loads it at run time and finds each function of this header by its name. Anybody may write one;
 * README.md beside this header tells what it has to do besides.
 *
 * Objects are opaque pointers that only the engine can read. A system owns all that is made on it: units,
 * channels, groups. Their pointers end with FMOD_System_Close(), at the latest.
 *
 * Every function answers with a SoundResult and leaves everything as it was unless that is SOUND_OK. The
 * checks come in this order: the object (SOUND_INVALID_HANDLE), whether its system is in the right state
 * (SOUND_UNINITIALIZED, SOUND_INITIALIZED), the other handles, the values. No exception leaves a function.
 * Strings are UTF-8, ended by a zero, and are the caller's: the engine copies what it keeps.
 *
 * Thread: any, one call at a time. No call waits for sound to be mixed; FMOD_System_Init(),
 * FMOD_System_Close() and FMOD_System_Release() may wait for the sound device.
 */
#ifndef QUAVIX_SOUND_ENGINE_H
#define QUAVIX_SOUND_ENGINE_H

#include <stdint.h>

/* NOLINTBEGIN(readability-identifier-naming, modernize-use-using): an interface in C. */

#if defined(_WIN32) && !defined(_WIN64)
#define SOUND_CALL __stdcall
#else
#define SOUND_CALL
#endif

#if defined(_WIN32)
#define SOUND_EXPORT __declspec(dllexport)
#else
#define SOUND_EXPORT __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** One sound engine with its own stream to a device. */
typedef struct SoundSystem SoundSystem;
/** Makes or changes sound: an oscillator, a filter. */
typedef struct SoundUnit SoundUnit;
/** Where a unit is played: with a frequency, a volume, and a pause. */
typedef struct SoundChannel SoundChannel;
/** A place where channels and other groups come together, with units behind them and a volume. */
typedef struct SoundGroup SoundGroup;

/** How a call went: one of the numbers below from this engine; 0 to 81 have a meaning in the interface. */
typedef int32_t SoundResult;

enum {
    SOUND_OK = 0,
    /** No channel is free. */
    SOUND_NO_CHANNEL = 10,
    /** A connection would lead back to where it comes from. */
    SOUND_LOOP = 14,
    /** Something to be done before FMOD_System_Init() is asked for after it. */
    SOUND_INITIALIZED = 32,
    /** A fault of the engine itself. */
    SOUND_INTERNAL = 33,
    /** A number that is none, or infinite. */
    SOUND_INVALID_FLOAT = 35,
    /** A pointer that is null, of an object that is gone, of another kind of object or another system, or
       anything. */
    SOUND_INVALID_HANDLE = 36,
    /** An index or size out of range, or a null pointer where a result was to be put. */
    SOUND_INVALID_PARAMETER = 37,
    /** Out of memory. */
    SOUND_NO_MEMORY = 43,
    /** The sound device, or the file in its place, cannot be opened. */
    SOUND_NO_OUTPUT = 61,
    /** There is no such kind of unit or output. */
    SOUND_UNKNOWN_TYPE = 67,
    /** FMOD_System_Init() has to come first. */
    SOUND_UNINITIALIZED = 78,
    /** What was mixed could not be written. */
    SOUND_UPDATE_FAILED = 80
};

/** The version of the interface, as FMOD_System_GetVersion() gives it: one digit of the number in four bits.
 */
enum { SOUND_VERSION = 0x00040621 };

/** Where the sound goes. */
enum SoundOutput {
    /** The best device there is. */
    SOUND_OUTPUT_DEVICE = 0,
    /** Nowhere, as fast as a device would take it. */
    SOUND_OUTPUT_NONE = 2,
    /** Into a WAV file, as fast as a device would take it. */
    SOUND_OUTPUT_WAV = 3,
    /** Nowhere, one block for each FMOD_System_Update(). */
    SOUND_OUTPUT_NONE_BY_UPDATE = 4,
    /** Into a WAV file, one block for each FMOD_System_Update(). */
    SOUND_OUTPUT_WAV_BY_UPDATE = 5
};

/** Kinds of units, and their parameters with their ranges and defaults. */
enum SoundUnitType { SOUND_OSCILLATOR = 2, SOUND_LOW_PASS = 3, SOUND_EQUALISER = 10 };

enum SoundOscillatorParameter {
    /** SoundWaveform; 0 to 5, default 0. The nearest whole number counts. */
    SOUND_OSCILLATOR_TYPE = 0,
    /** Hz; 1 to 22000, default 220. */
    SOUND_OSCILLATOR_RATE = 1
};

enum SoundWaveform {
    SOUND_SINE = 0,
    /** Sounds at half the rate that is set. */
    SOUND_SQUARE = 1,
    SOUND_RISING_SAW = 2,
    SOUND_FALLING_SAW = 3,
    SOUND_TRIANGLE = 4,
    /** A new random value as often as the channel's frequency says, whatever the rate. */
    SOUND_NOISE = 5
};

enum SoundLowPassParameter {
    /** Hz; 1 to 22000, default 5000. */
    SOUND_LOW_PASS_CUTOFF = 0,
    /** Q; 1 to 10, default 1. */
    SOUND_LOW_PASS_RESONANCE = 1
};

enum SoundEqualiserParameter {
    /** Hz; 20 to 22000, default 8000. */
    SOUND_EQUALISER_CENTRE = 0,
    /** Octaves between the points of half the gain in dB; 0.2 to 5, default 1. */
    SOUND_EQUALISER_BANDWIDTH = 1,
    /** Factor at the centre; 0.05 to 3, default 1. */
    SOUND_EQUALISER_GAIN = 2
};

/** What to play a unit on, instead of the number of a channel. */
enum SoundChannelChoice { SOUND_CHANNEL_FREE = -1, SOUND_CHANNEL_REUSE = -2 };

/** How samples are stored, as FMOD_System_GetSoftwareFormat() tells. */
enum SoundFormat { SOUND_FORMAT_INT16 = 2, SOUND_FORMAT_FLOAT32 = 5 };

/**
 * Makes a system and puts it into `*system`. It does nothing and costs next to nothing until
 * FMOD_System_Init(); the caller releases it.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_Create(SoundSystem** system);

/** Puts SOUND_VERSION into `*version`. At any time. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_GetVersion(SoundSystem* system, unsigned int* version);

/**
 * Sound is mixed in blocks of `length` frames, 1 to 65536, and a change is heard from the next block on; from
 * there to the loudspeaker it takes about `length` * `count` frames. `count` is 1 or more; both together at
 * most 1048576 frames. The default is 1024 and 4. Before FMOD_System_Init() only.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_SetDSPBufferSize(SoundSystem* system, unsigned int length,
                                                                 int count);

/** What was set; at any time. Either pointer may be null. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_GetDSPBufferSize(SoundSystem* system, unsigned int* length,
                                                                 int* count);

/**
 * At most so many channels, 0 to 4096, however many FMOD_System_Init() asks for. The default is 4096. Before
 * FMOD_System_Init() only.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_SetSoftwareChannels(SoundSystem* system, int channels);

/** A SoundOutput; the default is SOUND_OUTPUT_DEVICE. Any other: SOUND_UNKNOWN_TYPE. Before
 * FMOD_System_Init() only. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_SetOutput(SoundSystem* system, int output);

/**
 * Opens the output; from now on sound is mixed. `maxChannels` is 0 to 4096. `flags` are not used; pass 0.
 * `extra` is the name of the file for the WAV outputs, which is replaced, and not looked at otherwise. A
 * device or file that does not open: SOUND_NO_OUTPUT, and another try is possible. A device that is lost
 * later is looked for until it is back.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_Init(SoundSystem* system, int maxChannels, unsigned int flags,
                                                     void* extra);

/**
 * Frames per second; the SoundFormat; channels of the output; channels of a source (1); how values between
 * two samples are found (1, along a line); bits of a sample. Any pointer may be null. After
 * FMOD_System_Init() only: the rate is the device's, and can change when a lost device comes back.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_GetSoftwareFormat(SoundSystem* system, int* rate, int* format,
                                                                  int* outputs, int* maxInputs,
                                                                  int* resampler, int* bits);

/** Makes a SoundUnitType with its defaults, active and not bypassed. An unknown type: SOUND_UNKNOWN_TYPE. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_CreateDSPByType(SoundSystem* system, int type,
                                                                SoundUnit** unit);

/**
 * Plays `unit` on a channel in the master group, at a frequency of 44100 and a volume of 1, and puts the
 * channel into `*channel`. `channelIndex` is its number, from 0, and what plays there stops; or a
 * SoundChannelChoice. To reuse takes the channel that `*channel` is, whose handle stays the same; null takes
 * a free one. No free one: SOUND_NO_CHANNEL. A unit plays on one channel at a time: another one that plays it
 * stops.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_PlayDSP(SoundSystem* system, int channelIndex,
                                                        SoundUnit* unit, int paused, SoundChannel** channel);

/** The group that holds all others; always the same. It cannot be released. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_GetMasterChannelGroup(SoundSystem* system,
                                                                      SoundGroup** group);

/** Makes a group, at first in the master group and with a volume of 1. `name` is not used and may be null. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_CreateChannelGroup(SoundSystem* system, const char* name,
                                                                   SoundGroup** group);

/**
 * Mixes one block where the output is driven by this, in the calling thread; elsewhere there is no need for
 * it. Where the block cannot be written: SOUND_UPDATE_FAILED.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_Update(SoundSystem* system);

/** Closes the output, and ends all units, channels and groups. The system can be initialised again. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_Close(SoundSystem* system);

/** Closes the system if it is open, and ends it. At any time. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_Release(SoundSystem* system);

/**
 * Sets a parameter. A value out of its range becomes the nearest end of the range. A wrong index:
 * SOUND_INVALID_PARAMETER; not a finite number: SOUND_INVALID_FLOAT.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_DSP_SetParameter(SoundUnit* unit, int index, float value);

/**
 * The value of a parameter, and the same as text with its unit, cut off to fit `textLength` bytes with the
 * zero at the end. Either pointer may be null; with a text, a `textLength` below 1 is
 * SOUND_INVALID_PARAMETER.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_DSP_GetParameter(SoundUnit* unit, int index, float* value,
                                                          char* text, int textLength);

/**
 * Puts `input` before `unit`. A unit hears the sum of its inputs, and an input can have several units on it;
 * README.md tells where they stand together. A second time changes nothing. A connection that would close a
 * loop: SOUND_LOOP.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_DSP_AddInput(SoundUnit* unit, SoundUnit* input);

/** A bypassed unit passes on what it hears; a bypassed oscillator makes no sound. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_DSP_SetBypass(SoundUnit* unit, int bypass);

/** A unit that is not active gives silence. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_DSP_SetActive(SoundUnit* unit, int active);

/** Removes the unit and ends it. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_DSP_Release(SoundUnit* unit);

/** Takes the unit out of its group, joins its inputs to what it was an input of, and stops a channel that
 * plays it. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_DSP_Remove(SoundUnit* unit);

/** 0 to 1000000 Hz; the nearest end for what is outside. The pitch is the unit's rate * `frequency` / 48000.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_Channel_SetFrequency(SoundChannel* channel, float frequency);
SOUND_EXPORT SoundResult SOUND_CALL FMOD_Channel_GetFrequency(SoundChannel* channel, float* frequency);

/** A factor of 0 to 10; the nearest end for what is outside. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_Channel_SetVolume(SoundChannel* channel, float volume);
SOUND_EXPORT SoundResult SOUND_CALL FMOD_Channel_GetVolume(SoundChannel* channel, float* volume);

/** Time stands still on a paused channel. `*paused` becomes 0 or 1. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_Channel_SetPaused(SoundChannel* channel, int paused);
SOUND_EXPORT SoundResult SOUND_CALL FMOD_Channel_GetPaused(SoundChannel* channel, int* paused);

/** Moves the channel into another group. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_Channel_SetChannelGroup(SoundChannel* channel, SoundGroup* group);

/** Frees the channel; its handle is gone, its unit is not. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_Channel_Stop(SoundChannel* channel);

/** A factor of 0 to 10 for all that is in the group; the nearest end for what is outside. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_ChannelGroup_SetVolume(SoundGroup* group, float volume);

/** Moves `child` into the group. Where it holds the group: SOUND_LOOP. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_ChannelGroup_AddGroup(SoundGroup* group, SoundGroup* child);

/** Moves the unit into the group, behind the units that are there. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_ChannelGroup_AddDSP(SoundGroup* group, SoundUnit* unit);

/**
 * Ends the group. Its channels and groups move into the one that held it; its units stay without a group. The
 * master group: SOUND_INVALID_PARAMETER.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_ChannelGroup_Release(SoundGroup* group);

#ifdef __cplusplus
}
#endif

/* NOLINTEND(readability-identifier-naming, modernize-use-using) */

#endif
