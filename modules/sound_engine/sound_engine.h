/* SPDX-License-Identifier: MIT */
/**
 * The interface between a program and its sound engine.
 *
 * A sound engine is a shared library named FMODex.dll, on every system, in the program's own folder. The
 * program loads it at run time and finds each function of this header by name. Anybody may write one;
 * README.md beside this header lists the further requirements.
 *
 * Objects are opaque pointers that only the engine can read. A system owns everything made on it: units,
 * channels, groups. Their pointers become invalid with FMOD_System_Close() at the latest.
 *
 * Every function returns a SoundResult and changes nothing unless that is SOUND_OK. Checks come in this
 * order: the object (SOUND_INVALID_HANDLE), the state of its system (SOUND_UNINITIALIZED, SOUND_INITIALIZED),
 * the other handles, the values. No exception leaves a function. Strings are UTF-8, end with a zero, and
 * belong to the caller: the engine copies what it keeps.
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
/** A maker or changer of sound: an oscillator, a filter. */
typedef struct SoundUnit SoundUnit;
/** A player of one unit, with a frequency, a volume, and a pause. */
typedef struct SoundChannel SoundChannel;
/** A sum of channels and other groups, followed by units and a volume. */
typedef struct SoundGroup SoundGroup;

/** Result of a call: one of the numbers below from this engine; 0 to 81 have a meaning in the interface. */
typedef int32_t SoundResult;

enum {
    SOUND_OK = 0,
    /** No channel is free. */
    SOUND_NO_CHANNEL = 10,
    /** The connection would close a loop. */
    SOUND_LOOP = 14,
    /** The call is allowed only before FMOD_System_Init(). */
    SOUND_INITIALIZED = 32,
    /** A fault of the engine itself. */
    SOUND_INTERNAL = 33,
    /** A number is infinite or not a number. */
    SOUND_INVALID_FLOAT = 35,
    /** A pointer is null, or belongs to a released object, another kind of object or another system, or is
     * arbitrary. */
    SOUND_INVALID_HANDLE = 36,
    /** An index or size is out of range, or a pointer for a result is null. */
    SOUND_INVALID_PARAMETER = 37,
    /** Out of memory. */
    SOUND_NO_MEMORY = 43,
    /** The sound device, or the file in its place, cannot be opened. */
    SOUND_NO_OUTPUT = 61,
    /** Unknown kind of unit or output. */
    SOUND_UNKNOWN_TYPE = 67,
    /** The call is allowed only after FMOD_System_Init(). */
    SOUND_UNINITIALIZED = 78,
    /** Mixed sound could not be written. */
    SOUND_UPDATE_FAILED = 80
};

/** Version of the interface, as returned by FMOD_System_GetVersion(): four bits per decimal digit. */
enum { SOUND_VERSION = 0x00040621 };

/** Destination of the sound. */
enum SoundOutput {
    /** The best available device. */
    SOUND_OUTPUT_DEVICE = 0,
    /** No destination; mixed at the speed of a device. */
    SOUND_OUTPUT_NONE = 2,
    /** A WAV file; mixed at the speed of a device. */
    SOUND_OUTPUT_WAV = 3,
    /** No destination; one block for each FMOD_System_Update(). */
    SOUND_OUTPUT_NONE_BY_UPDATE = 4,
    /** A WAV file; one block for each FMOD_System_Update(). */
    SOUND_OUTPUT_WAV_BY_UPDATE = 5
};

/** Kinds of units, and their parameters with their ranges and defaults. */
enum SoundUnitType { SOUND_OSCILLATOR = 2, SOUND_LOW_PASS = 3, SOUND_EQUALISER = 10 };

enum SoundOscillatorParameter {
    /** SoundWaveform; 0 to 5, default 0. Rounded to the nearest whole number. */
    SOUND_OSCILLATOR_TYPE = 0,
    /** Hz; 1 to 22000, default 220. */
    SOUND_OSCILLATOR_RATE = 1
};

enum SoundWaveform {
    SOUND_SINE = 0,
    /** Sounds at half the set rate. */
    SOUND_SQUARE = 1,
    SOUND_RISING_SAW = 2,
    SOUND_FALLING_SAW = 3,
    SOUND_TRIANGLE = 4,
    /** A new random value at the channel's frequency; the rate has no effect. */
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

/** Choice of a channel to play on, instead of a channel number. */
enum SoundChannelChoice { SOUND_CHANNEL_FREE = -1, SOUND_CHANNEL_REUSE = -2 };

/** Sample formats, as returned by FMOD_System_GetSoftwareFormat(). */
enum SoundFormat { SOUND_FORMAT_INT16 = 2, SOUND_FORMAT_FLOAT32 = 5 };

/**
 * Makes a system and puts it into `*system`. It is idle and cheap until FMOD_System_Init(). The caller has to
 * release it.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_Create(SoundSystem** system);

/** Puts SOUND_VERSION into `*version`. Allowed at any time. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_GetVersion(SoundSystem* system, unsigned int* version);

/**
 * Sets the block size to `length` frames, 1 to 65536. A change is heard from the next block on, and takes
 * about `length` * `count` frames from there to the loudspeaker. `count` is 1 or more; the product is at most
 * 1048576 frames. The defaults are 1024 and 4. Before FMOD_System_Init() only.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_SetDSPBufferSize(SoundSystem* system, unsigned int length,
                                                                 int count);

/** Returns the buffer settings; at any time. Either pointer may be null. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_GetDSPBufferSize(SoundSystem* system, unsigned int* length,
                                                                 int* count);

/**
 * Limits the number of channels, 0 to 4096, whatever FMOD_System_Init() asks for. The default is 4096. Before
 * FMOD_System_Init() only.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_SetSoftwareChannels(SoundSystem* system, int channels);

/** Sets the SoundOutput; the default is SOUND_OUTPUT_DEVICE. Unknown values: SOUND_UNKNOWN_TYPE. Before
 * FMOD_System_Init() only. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_SetOutput(SoundSystem* system, int output);

/**
 * Opens the output and starts mixing. `maxChannels` is 0 to 4096. `flags` are not used; pass 0. For the WAV
 * outputs `extra` is the name of the file, which is replaced; otherwise it is ignored. If the device or file
 * can't be opened: SOUND_NO_OUTPUT, and the call can be repeated. A device that is lost later is searched for
 * until it is back.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_Init(SoundSystem* system, int maxChannels, unsigned int flags,
                                                     void* extra);

/**
 * Returns frames per second; the SoundFormat; channels of the output; channels of a source (1); interpolation
 * between samples (1, linear); bits per sample. Any pointer may be null. After FMOD_System_Init() only: the
 * rate is the device's, and can change when a lost device comes back.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_GetSoftwareFormat(SoundSystem* system, int* rate, int* format,
                                                                  int* outputs, int* maxInputs,
                                                                  int* resampler, int* bits);

/** Makes a SoundUnitType with default parameters, active, not bypassed. Unknown type: SOUND_UNKNOWN_TYPE. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_CreateDSPByType(SoundSystem* system, int type,
                                                                SoundUnit** unit);

/**
 * Plays `unit` on a channel in the master group, with frequency 44100 Hz and volume 1, and puts the channel
 * into `*channel`. `channelIndex` is a channel number from 0, whose unit stops, or a SoundChannelChoice.
 * SOUND_CHANNEL_REUSE takes the channel in `*channel`, whose handle stays valid; if it is null, a free one.
 * Without a free channel: SOUND_NO_CHANNEL. A unit plays on one channel at a time: its previous channel
 * stops.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_PlayDSP(SoundSystem* system, int channelIndex,
                                                        SoundUnit* unit, int paused, SoundChannel** channel);

/** Returns the group that holds all others; always the same. It cannot be released. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_GetMasterChannelGroup(SoundSystem* system,
                                                                      SoundGroup** group);

/** Makes a group in the master group, with a volume of 1. `name` is not used and may be null. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_CreateChannelGroup(SoundSystem* system, const char* name,
                                                                   SoundGroup** group);

/**
 * Mixes one block in the calling thread if the output is a BY_UPDATE one; other outputs need no call. If the
 * block can't be written: SOUND_UPDATE_FAILED.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_Update(SoundSystem* system);

/** Closes the output, and releases all units, channels and groups. The system can be initialised again. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_Close(SoundSystem* system);

/** Closes the system if it is open, and destroys it. Allowed at any time. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_System_Release(SoundSystem* system);

/**
 * Sets a parameter. A value out of range is set to the nearest limit. Wrong index: SOUND_INVALID_PARAMETER;
 * not a finite number: SOUND_INVALID_FLOAT.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_DSP_SetParameter(SoundUnit* unit, int index, float value);

/**
 * Returns the value of a parameter, and as a text with its unit, cut to `textLength` bytes including the
 * final zero. Either pointer may be null; with a text, a `textLength` below 1 is SOUND_INVALID_PARAMETER.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_DSP_GetParameter(SoundUnit* unit, int index, float* value,
                                                          char* text, int textLength);

/**
 * Connects `input` to `unit`. A unit hears the sum of its inputs, and an input can have several users;
 * README.md describes their order. Connecting again changes nothing. If the connection would close a loop:
 * SOUND_LOOP.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_DSP_AddInput(SoundUnit* unit, SoundUnit* input);

/** A bypassed unit passes its input on; a bypassed oscillator makes no sound. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_DSP_SetBypass(SoundUnit* unit, int bypass);

/** An inactive unit gives silence. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_DSP_SetActive(SoundUnit* unit, int active);

/** Removes the unit and destroys it. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_DSP_Release(SoundUnit* unit);

/** Takes the unit out of its group, connects its inputs to its users, and stops a channel that plays it. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_DSP_Remove(SoundUnit* unit);

/** Frequency of 0 to 1000000 Hz, limited to that range. The pitch is the unit's rate * `frequency` / 48000.
 * */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_Channel_SetFrequency(SoundChannel* channel, float frequency);
SOUND_EXPORT SoundResult SOUND_CALL FMOD_Channel_GetFrequency(SoundChannel* channel, float* frequency);

/** Volume factor of 0 to 10, limited to that range. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_Channel_SetVolume(SoundChannel* channel, float volume);
SOUND_EXPORT SoundResult SOUND_CALL FMOD_Channel_GetVolume(SoundChannel* channel, float* volume);

/** Time stands still on a paused channel. FMOD_Channel_GetPaused() puts 0 or 1 into `*paused`. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_Channel_SetPaused(SoundChannel* channel, int paused);
SOUND_EXPORT SoundResult SOUND_CALL FMOD_Channel_GetPaused(SoundChannel* channel, int* paused);

/** Moves the channel into another group. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_Channel_SetChannelGroup(SoundChannel* channel, SoundGroup* group);

/** Frees the channel. Its handle becomes invalid; its unit stays. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_Channel_Stop(SoundChannel* channel);

/** Volume factor of 0 to 10 for everything in the group, limited to that range. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_ChannelGroup_SetVolume(SoundGroup* group, float volume);

/** Moves `child` into the group. If `child` contains the group: SOUND_LOOP. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_ChannelGroup_AddGroup(SoundGroup* group, SoundGroup* child);

/** Moves the unit into the group, after its other units. */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_ChannelGroup_AddDSP(SoundGroup* group, SoundUnit* unit);

/**
 * Destroys the group. Its channels and groups move into its parent group; its units are left without a group.
 * For the master group: SOUND_INVALID_PARAMETER.
 */
SOUND_EXPORT SoundResult SOUND_CALL FMOD_ChannelGroup_Release(SoundGroup* group);

#ifdef __cplusplus
}
#endif

/* NOLINTEND(readability-identifier-naming, modernize-use-using) */

#endif
