// SPDX-License-Identifier: MIT
#include "modules/midi_io/midi_io.h"

#include <array>
#include <mutex>
#include <utility>

#include "modules/midi_io/uncancelled.h"

namespace quavix::midi_io {
namespace {

constexpr const char* OutputPortName = "Quavix";
constexpr const char* InputPortName = "Quavix input";

/// `arrivals` must outlive `input`.
void DeliverTo(const std::shared_ptr<Arrivals>& arrivals, RtMidiIn& input) {
    constexpr bool Ignore = true;
    input.ignoreTypes(Ignore, Ignore, Ignore);
    arrivals->StartOver();
    input.setCallback([](double, std::vector<unsigned char>* bytes,
                         void* user) { Uncancelled([=] { static_cast<Arrivals*>(user)->Arrive(*bytes); }); },
                      arrivals.get());
}

/// Keeps an object alive until the process ends.
void Keep(std::shared_ptr<void> object) {
    static std::mutex mutex;
    static auto* const kept = new std::vector<std::shared_ptr<void>>;
    const std::lock_guard lock(mutex);
    kept->push_back(std::move(object));
}

}  // namespace

MidiIo::MidiIo(std::string systemName, std::function<void()> wake)
    : wanted_(std::move(systemName)), arrivals_(std::make_shared<Arrivals>(std::move(wake))) {}

MidiIo::~MidiIo() {
    Disconnect();
    arrivals_->CutOff();
}

bool MidiIo::Connect() {
    if (system_ && system_->IsAlive())
        return true;
    Disconnect();
    std::string alsaProblem;
    std::string jackProblem;
    if (wanted_.empty() || wanted_ == "alsa")
        system_ = ConnectToAlsa(alsaProblem);
    if (!system_ && (wanted_.empty() || wanted_ == "jack"))
        system_ = ConnectToJack([arrivals = arrivals_] { arrivals->Wake(); }, jackProblem);
    if (!system_) {
        problem_ = alsaProblem + (alsaProblem.empty() || jackProblem.empty() ? "" : " ") + jackProblem;
        return false;
    }
    output_.Device = std::make_unique<RtDevice<RtMidiOut>>(*system_, OutputPortName);
    input_.Device = std::make_unique<RtDevice<RtMidiIn>>(
        *system_, InputPortName, [arrivals = arrivals_](RtMidiIn& input) { DeliverTo(arrivals, input); });
    return true;
}

void MidiIo::Disconnect() {
    output_.Gone |= output_.IsOpen();
    input_.Gone |= input_.IsOpen();
    // Closing takes time in which the system may die.
    if (output_.Device)
        output_.Device->Close();
    if (input_.Device)
        input_.Device->Close();
    if (system_ && !system_->IsAlive()) {
        Keep(std::move(output_.Device));
        Keep(std::move(input_.Device));
        Keep(std::move(system_));
    }
    output_.Device.reset();
    input_.Device.reset();
    system_.reset();
}

template <typename Rt, typename Other>
std::int32_t MidiIo::Count(Direction<Rt>& direction, const Direction<Other>& other, std::int32_t& count) {
    count = 0;
    direction.Names.clear();
    if (!Connect())
        return QUAVIX_MIDI_IO_NO_SYSTEM;
    direction.Names = direction.Device->Search(other.Device->Own());
    count = static_cast<std::int32_t>(direction.Names.size());
    return QUAVIX_MIDI_IO_OK;
}

template <typename Rt>
void MidiIo::Close(Direction<Rt>& direction) {
    if (direction.Device)
        direction.Device->Close();
    direction.Gone = false;
}

template <typename Rt>
std::int32_t MidiIo::Open(Direction<Rt>& direction, const std::string& name) {
    Close(direction);
    if (!Connect())
        return QUAVIX_MIDI_IO_NO_SYSTEM;
    RtDevice<Rt>& opened = *direction.Device;
    const std::int32_t result = opened.Open(name);
    if (result == QUAVIX_MIDI_IO_NO_DEVICE)
        problem_ = "The device " + name + " is not there any more.";
    if (result == QUAVIX_MIDI_IO_REFUSED)
        problem_ =
            opened.TakeFailure() ? opened.FailureText() : "The device " + name + " can't be connected to.";
    return result;
}

template <typename Rt>
std::int32_t MidiIo::State(Direction<Rt>& direction) {
    if (direction.Gone)
        return QUAVIX_MIDI_IO_GONE;
    if (!direction.IsOpen())
        return QUAVIX_MIDI_IO_CLOSED;
    if (system_->IsAlive() && direction.Device->IsThere())
        return QUAVIX_MIDI_IO_OK;
    direction.Gone = true;
    problem_ = system_->IsAlive() ? "The device has gone."
                                  : std::string("The MIDI system has gone: ") + system_->Name();
    return QUAVIX_MIDI_IO_GONE;
}

std::int32_t MidiIo::CountOutputs(std::int32_t& count) {
    return Count(output_, input_, count);
}

std::int32_t MidiIo::CountInputs(std::int32_t& count) {
    return Count(input_, output_, count);
}

std::int32_t MidiIo::OutputState() {
    return State(output_);
}

std::int32_t MidiIo::InputState() {
    return State(input_);
}

bool MidiIo::HasNumber(const std::vector<std::string>& names, std::int32_t device) {
    if (device >= 0 && static_cast<std::size_t>(device) < names.size())
        return true;
    problem_ = "There is no device with that number.";
    return false;
}

std::int32_t MidiIo::OpenOutput(std::int32_t device) {
    if (device == QUAVIX_MIDI_IO_VIRTUAL_PORT)
        return Open(output_, "");
    if (!HasNumber(output_.Names, device))
        return QUAVIX_MIDI_IO_BAD_ARGUMENT;
    return Open(output_, output_.Names[static_cast<std::size_t>(device)]);
}

std::int32_t MidiIo::OpenInput(std::int32_t device) {
    if (!HasNumber(input_.Names, device))
        return QUAVIX_MIDI_IO_BAD_ARGUMENT;
    Close(input_);
    arrivals_->Drop();
    return Open(input_, input_.Names[static_cast<std::size_t>(device)]);
}

std::int32_t MidiIo::CloseOutput() {
    Close(output_);
    LeaveIfUnused();
    return QUAVIX_MIDI_IO_OK;
}

std::int32_t MidiIo::CloseInput() {
    Close(input_);
    arrivals_->Drop();
    LeaveIfUnused();
    return QUAVIX_MIDI_IO_OK;
}

void MidiIo::LeaveIfUnused() {
    if (!output_.IsOpen() && !input_.IsOpen())
        Disconnect();
}

std::int32_t MidiIo::Send(const QuavixMidiIoMessage& message) {
    constexpr std::uint8_t FirstStatus = 0x80;
    constexpr std::uint8_t FirstSystemStatus = 0xF0;
    if (message.Status < FirstStatus || message.Status >= FirstSystemStatus || message.Data1 >= FirstStatus ||
        message.Data2 >= FirstStatus)
        return QUAVIX_MIDI_IO_BAD_ARGUMENT;
    if (const std::int32_t state = OutputState(); state != QUAVIX_MIDI_IO_OK)
        return state;
    const std::array<std::uint8_t, 3> bytes = {message.Status, message.Data1, message.Data2};
    const std::size_t size = MidiStream::HasOneDataByte(message.Status) ? 2 : 3;
    if (!system_->TakesMessage(size))
        return QUAVIX_MIDI_IO_BUSY;
    output_.Device->TakeFailure();
    output_.Device->Object().sendMessage(bytes.data(), size);
    return output_.Device->TakeFailure() ? QUAVIX_MIDI_IO_BUSY : QUAVIX_MIDI_IO_OK;
}

}  // namespace quavix::midi_io
