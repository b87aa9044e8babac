// SPDX-License-Identifier: MIT
#include "modules/midi_io/midi_io_module.h"

#include <algorithm>
#include <cstring>
#include <exception>

#include "modules/midi_io/midi_io.h"

/// The object behind the callers' opaque pointer.
struct QuavixMidiIo : quavix::midi_io::MidiIo {
    using MidiIo::MidiIo;
};

namespace {

/// Runs a call of the interface and turns exceptions into a result.
template <typename Call>
std::int32_t Run(QuavixMidiIo* io, bool argumentsAreGood, Call call) noexcept {
    if (io == nullptr || !argumentsAreGood)
        return QUAVIX_MIDI_IO_BAD_ARGUMENT;
    try {
        return call();
    } catch (const std::exception& error) {
        try {
            io->SetProblem(error.what());
        } catch (...) {
            // Without memory for the text, the result alone has to do.
        }
    } catch (...) {
    }
    return QUAVIX_MIDI_IO_FAILED;
}

std::int32_t Copy(const std::string& text, char* to, std::size_t size) {
    const std::size_t count = std::min(text.size(), size - 1);
    std::memcpy(to, text.data(), count);
    to[count] = '\0';
    return QUAVIX_MIDI_IO_OK;
}

std::int32_t CopyName(const std::vector<std::string>& names, std::int32_t device, char* to,
                      std::size_t size) {
    if (device < 0 || static_cast<std::size_t>(device) >= names.size())
        return QUAVIX_MIDI_IO_BAD_ARGUMENT;
    return Copy(names[static_cast<std::size_t>(device)], to, size);
}

}  // namespace

std::uint32_t QuavixMidiIoVersion() {
    return QUAVIX_MIDI_IO_VERSION;
}

std::int32_t QuavixMidiIoInit(std::uint32_t version) {
    return version == QUAVIX_MIDI_IO_VERSION ? QUAVIX_MIDI_IO_OK : QUAVIX_MIDI_IO_WRONG_VERSION;
}

std::int32_t QuavixMidiIoCreate(const char* system, void (*wake)(void* user), void* user, QuavixMidiIo** io) {
    const std::string wanted = system == nullptr ? "" : system;
    if (io == nullptr || (!wanted.empty() && wanted != "alsa" && wanted != "jack"))
        return QUAVIX_MIDI_IO_BAD_ARGUMENT;
    try {
        *io = new QuavixMidiIo(
            wanted, wake == nullptr ? std::function<void()>() : [wake, user] { wake(user); });
        return QUAVIX_MIDI_IO_OK;
    } catch (...) {
        return QUAVIX_MIDI_IO_FAILED;
    }
}

void QuavixMidiIoDestroy(QuavixMidiIo* io) {
    delete io;
}

std::int32_t QuavixMidiIoSystemName(QuavixMidiIo* io, char* name, std::size_t size) {
    return Run(io, name != nullptr && size > 0, [&] { return Copy(io->SystemName(), name, size); });
}

std::int32_t QuavixMidiIoProblem(QuavixMidiIo* io, char* text, std::size_t size) {
    return Run(io, text != nullptr && size > 0, [&] { return Copy(io->Problem(), text, size); });
}

std::int32_t QuavixMidiIoOutputCount(QuavixMidiIo* io, std::int32_t* count) {
    return Run(io, count != nullptr, [&] { return io->CountOutputs(*count); });
}

std::int32_t QuavixMidiIoInputCount(QuavixMidiIo* io, std::int32_t* count) {
    return Run(io, count != nullptr, [&] { return io->CountInputs(*count); });
}

std::int32_t QuavixMidiIoOutputName(QuavixMidiIo* io, std::int32_t device, char* name, std::size_t size) {
    return Run(io, name != nullptr && size > 0, [&] {
        return device == QUAVIX_MIDI_IO_VIRTUAL_PORT ? Copy("Quavix", name, size)
                                                     : CopyName(io->OutputNames(), device, name, size);
    });
}

std::int32_t QuavixMidiIoInputName(QuavixMidiIo* io, std::int32_t device, char* name, std::size_t size) {
    return Run(io, name != nullptr && size > 0,
               [&] { return CopyName(io->InputNames(), device, name, size); });
}

std::int32_t QuavixMidiIoOpenOutput(QuavixMidiIo* io, std::int32_t device) {
    return Run(io, true, [&] { return io->OpenOutput(device); });
}

std::int32_t QuavixMidiIoOpenInput(QuavixMidiIo* io, std::int32_t device) {
    return Run(io, true, [&] { return io->OpenInput(device); });
}

std::int32_t QuavixMidiIoCloseOutput(QuavixMidiIo* io) {
    return Run(io, true, [&] { return io->CloseOutput(); });
}

std::int32_t QuavixMidiIoCloseInput(QuavixMidiIo* io) {
    return Run(io, true, [&] { return io->CloseInput(); });
}

std::int32_t QuavixMidiIoOutputState(QuavixMidiIo* io) {
    return Run(io, true, [&] { return io->OutputState(); });
}

std::int32_t QuavixMidiIoInputState(QuavixMidiIo* io) {
    return Run(io, true, [&] { return io->InputState(); });
}

std::int32_t QuavixMidiIoSend(QuavixMidiIo* io, std::uint8_t status, std::uint8_t data1, std::uint8_t data2) {
    return Run(io, true, [&] { return io->Send({status, data1, data2}); });
}

std::int32_t QuavixMidiIoReceive(QuavixMidiIo* io, QuavixMidiIoMessage* message) {
    return Run(io, message != nullptr, [&] { return io->Receive(*message); });
}
