// SPDX-License-Identifier: MIT
#include "fmod/fmod_errors.h"

#include <array>

#include "shell/program_info.h"

namespace quavix {
namespace {

// Texts by result. Trailing blanks are part of them.
constexpr std::array<const char*, 82> Texts{
    "No errors.",
    "Tried to call lock a second time before unlock was called. ",
    "Tried to call a function on a data type that does not allow this type of functionality (ie calling Sound::lock on a streaming sound). ",
    "Neither NTSCSI nor ASPI could be initialised. ",
    "An error occurred while initialising the CDDA subsystem. ",
    "Couldn't find the specified device. ",
    "No audio tracks on the specified disc. ",
    "No CD/DVD devices were found. ",
    "No disc present in the specified drive. ",
    "A CDDA read error occurred. ",
    "Error trying to allocate a channel. ",
    "The specified channel has been reused to play another sound. ",
    "A Win32 COM related error occured. COM failed to initialize or a QueryInterface failed meaning a Windows codec or driver was not installed properly. ",
    "DMA Failure.  See debug output for more information. ",
    "DSP connection error.  Connection possibly caused a cyclic dependancy. ",
    "DSP Format error.  A DSP unit may have attempted to connect to this network with the wrong format. ",
    "DSP connection error.  Couldn't find the DSP unit specified. ",
    "DSP error.  Cannot perform this operation while the network is in the middle of running.  This will most likely happen if a connection or disconnection is attempted in a DSP callback. ",
    "DSP connection error.  The unit being connected to or disconnected should only have 1 input or output. ",
    "Error loading file. ",
    "Couldn't perform seek operation.  This is a limitation of the medium (ie netstreams) or the file format. ",
    "Media was ejected while reading. ",
    "End of file unexpectedly reached while trying to read essential data (truncated data?). ",
    "File not found. ",
    "Unwanted file access occured. ",
    "Unsupported file or audio format. ",
    "A HTTP error occurred. This is a catch-all for HTTP errors not listed elsewhere. ",
    "The specified resource requires authentication or is forbidden. ",
    "Proxy authentication is required to access the specified resource. ",
    "A HTTP server error occurred. ",
    "The HTTP request timed out. ",
    "FMOD was not initialized correctly to support this function. ",
    "Cannot call this command after System::init. ",
    "An error occured that wasn't supposed to.  Contact support. ",
    "On Xbox 360, this memory address passed to FMOD must be physical, (ie allocated with XPhysicalAlloc.) ",
    "Value passed in was a NaN, Inf or denormalized float. ",
    "An invalid object handle was used. ",
    "An invalid parameter was passed to this function. ",
    "An invalid speaker was passed to this function based on the current speaker mode. ",
    "The syncpoint did not come from this sound handle. ",
    "The vectors passed in are not unit length, or perpendicular. ",
    "PS2 only.  fmodex.irx failed to initialize.  This is most likely because you forgot to load it. ",
    "Reached maximum audible playback count for this sound's soundgroup. ",
    "Not enough memory or resources. ",
    "Can't use FMOD_OPENMEMORY_POINT on non PCM source data, or non mp3/xma/adpcm data if FMOD_CREATECOMPRESSEDSAMPLE was used. ",
    "PS2 only.  Not enough memory or resources on PlayStation 2 IOP ram. ",
    "Not enough memory or resources on console sound ram. ",
    "Tried to call a command on a 3d sound when the command was meant for 2d sound. ",
    "Tried to call a command on a 2d sound when the command was meant for 3d sound. ",
    "Tried to use a feature that requires hardware support.  (ie trying to play a VAG compressed sound in software on PS2). ",
    "Tried to use a feature that requires the software engine.  Software engine has either been turned off, or command was executed on a hardware channel which does not support this feature. ",
    "Couldn't connect to the specified host. ",
    "A socket error occurred.  This is a catch-all for socket-related errors not listed elsewhere. ",
    "The specified URL couldn't be resolved. ",
    "Operation on a non-blocking socket could not complete immediately. ",
    "Operation could not be performed because specified sound is not ready. ",
    "Error initializing output device, but more specifically, the output device is already in use and cannot be reused. ",
    "Error creating hardware sound buffer. ",
    "A call to a standard soundcard driver failed, which could possibly mean a bug in the driver or resources were missing or exhausted. ",
    "Error enumerating the available driver list. List may be inconsistent due to a recent device addition or removal. ",
    "Soundcard does not support the minimum features needed for this soundsystem (16bit stereo output). ",
    "Error initializing output device. ",
    "FMOD_HARDWARE was specified but the sound card does not have the resources nescessary to play it. ",
    "Attempted to create a software sound but no software channels were specified in System::init. ",
    "Panning only works with mono or stereo sound sources. ",
    "An unspecified error has been returned from a 3rd party plugin. ",
    "The number of allowed instances of a plugin has been exceeded ",
    "A requested output, dsp unit type or codec was not available. ",
    "A resource that the plugin requires cannot be found. (ie the DLS file for MIDI playback) ",
    "An error occured trying to initialize the recording device. ",
    "Specified Instance in FMOD_REVERB_PROPERTIES couldn't be set. Most likely because another application has locked the EAX4 FX slot. ",
    "This subsound is already being used by another sound, you cannot have more than one parent to a sound.  Null out the other parent's entry first. ",
    "Shared subsounds cannot be replaced or moved from their parent stream, such as when the parent stream is an FSB file. ",
    "The subsound's mode bits do not match with the parent sound's mode bits.  See documentation for function that it was called with. ",
    "The error occured because the sound referenced contains subsounds.  (ie you cannot play the parent sound as a static sample, only its subsounds.) ",
    "The specified tag could not be found or there are no tags. ",
    "The sound created exceeds the allowable input channel count.  This can be increased using the maxinputchannels parameter in System::setSoftwareFormat. ",
    "Something in FMOD hasn't been implemented when it should be! contact support! ",
    "This command failed because System::init or System::setDriver was not called. ",
    "A command issued was not supported by this object.  Possibly a plugin without certain callbacks specified. ",
    "An error caused by System::update occured. ",
    "The Version number of this file format is not supported. ",
};

}  // namespace

const char* FmodErrorText(SoundLibrary::Result result) {
    const auto number = static_cast<std::uint32_t>(result);
    return number < Texts.size() ? Texts[number] : "Unknown error.";
}

bool FmodErrors::ERRCHECK(SoundLibrary::Result result) {
    if (result == 0)
        return true;
    const char* text = FmodErrorText(result);
    log_.Text("ERRCHECK() found FMOD error {} ({})", result, text);
    const std::string message = fmt::format("FMOD error! ({}) {}", result, text);
    if (!isGathering_)
        boxes_.Tell({.Title = program::Title, .Text = message});
    else if (together_.find(message) == std::string::npos)
        together_ += (together_.empty() ? "" : "\n") + message;
    return false;
}

void FmodErrors::ShowTogether(const std::function<void()>& body) {
    together_.clear();
    isGathering_ = true;
    try {
        body();
    } catch (...) {
        TellTogether();
        throw;
    }
    TellTogether();
}

void FmodErrors::TellTogether() {
    isGathering_ = false;
    if (!together_.empty())
        boxes_.Tell({.Title = program::Title, .Text = together_});
}

void FmodErrors::RequireVersion(std::uint32_t version, const char* word) {
    if (version == RequiredVersion)
        return;
    boxes_.Show({
        .Title = program::Title,
        .Text = fmt::format("Error!  You are using an old {} of FMOD {:X}. This program requires {:X}", word,
                            version, RequiredVersion),
    });
}

}  // namespace quavix
