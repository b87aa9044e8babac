/* SPDX-License-Identifier: MIT */
/* A sound library that notes how it is called. Objects are numbers: what a call makes is 100 more than its
 * number of calls so far. With LACKING, two functions are missing. */
#include <stdarg.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>

static char calls[4096];
static intptr_t made = 100;

const char* FakeCalls(void) {
    return calls;
}

static int32_t Note(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const size_t used = strlen(calls);
    vsnprintf(calls + used, sizeof calls - used, format, arguments);
    va_end(arguments);
    return 7;
}

#define NUMBER(object) ((int)(intptr_t)(object))
#define MAKE(object) (*(object) = (void*)++made)

int32_t FMOD_System_Create(void** system) {
    MAKE(system);
    return Note("Create\n");
}
int32_t FMOD_System_GetVersion(void* system, unsigned* version) {
    *version = 0x40621;
    return Note("GetVersion %d\n", NUMBER(system));
}
int32_t FMOD_System_SetDSPBufferSize(void* system, unsigned length, int count) {
    return Note("SetDSPBufferSize %d %u %d\n", NUMBER(system), length, count);
}
int32_t FMOD_System_GetDSPBufferSize(void* system, unsigned* length, int* count) {
    *length = 16;
    *count = 256;
    return Note("GetDSPBufferSize %d\n", NUMBER(system));
}
int32_t FMOD_System_SetSoftwareChannels(void* system, int channels) {
    return Note("SetSoftwareChannels %d %d\n", NUMBER(system), channels);
}
int32_t FMOD_System_SetOutput(void* system, int output) {
    return Note("SetOutput %d %d\n", NUMBER(system), output);
}
int32_t FMOD_System_GetSoftwareFormat(void* system, int* rate, int* format, int* outputs, int* inputs,
                                      int* resampler, int* bits) {
    *rate = 44100;
    return Note("GetSoftwareFormat %d %d\n", NUMBER(system),
                !format && !outputs && !inputs && !resampler && !bits);
}
int32_t FMOD_System_CreateDSPByType(void* system, int type, void** unit) {
    MAKE(unit);
    return Note("CreateDSPByType %d %d\n", NUMBER(system), type);
}
int32_t FMOD_System_PlayDSP(void* system, int index, void* unit, int paused, void** channel) {
    Note("PlayDSP %d %d %d %d %d\n", NUMBER(system), index, NUMBER(unit), paused, NUMBER(*channel));
    MAKE(channel);
    return 7;
}
int32_t FMOD_System_GetMasterChannelGroup(void* system, void** group) {
    MAKE(group);
    return Note("GetMasterChannelGroup %d\n", NUMBER(system));
}
int32_t FMOD_System_CreateChannelGroup(void* system, const char* name, void** group) {
    MAKE(group);
    return Note("CreateChannelGroup %d %s\n", NUMBER(system), name);
}
#ifndef LACKING
int32_t FMOD_System_Init(void* system, int channels, unsigned flags, void* extra) {
    return Note("Init %d %d %u %s\n", NUMBER(system), channels, flags, extra ? (const char*)extra : "null");
}
int32_t FMOD_System_Update(void* system) {
    return Note("Update %d\n", NUMBER(system));
}
#endif
int32_t FMOD_System_Close(void* system) {
    return Note("Close %d\n", NUMBER(system));
}
int32_t FMOD_System_Release(void* system) {
    return Note("Release %d\n", NUMBER(system));
}
int32_t FMOD_DSP_SetParameter(void* unit, int index, float value) {
    return Note("SetParameter %d %d %g\n", NUMBER(unit), index, value);
}
int32_t FMOD_DSP_AddInput(void* unit, void* input) {
    return Note("AddInput %d %d\n", NUMBER(unit), NUMBER(input));
}
int32_t FMOD_DSP_SetBypass(void* unit, int bypass) {
    return Note("SetBypass %d %d\n", NUMBER(unit), bypass);
}
int32_t FMOD_Channel_SetFrequency(void* channel, float frequency) {
    return Note("SetFrequency %d %g\n", NUMBER(channel), frequency);
}
int32_t FMOD_Channel_SetVolume(void* channel, float volume) {
    return Note("SetVolume %d %g\n", NUMBER(channel), volume);
}
int32_t FMOD_Channel_SetPaused(void* channel, int paused) {
    return Note("SetPaused %d %d\n", NUMBER(channel), paused);
}
int32_t FMOD_Channel_SetChannelGroup(void* channel, void* group) {
    return Note("SetChannelGroup %d %d\n", NUMBER(channel), NUMBER(group));
}
int32_t FMOD_ChannelGroup_SetVolume(void* group, float volume) {
    return Note("Group SetVolume %d %g\n", NUMBER(group), volume);
}
int32_t FMOD_ChannelGroup_AddGroup(void* group, void* child) {
    return Note("AddGroup %d %d\n", NUMBER(group), NUMBER(child));
}
int32_t FMOD_ChannelGroup_AddDSP(void* group, void* unit) {
    return Note("AddDSP %d %d\n", NUMBER(group), NUMBER(unit));
}
