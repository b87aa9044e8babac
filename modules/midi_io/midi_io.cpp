// SPDX-License-Identifier: MIT
#include "modules/midi_io/midi_io.h"

#include <array>
#include <mutex>
#include <utility>

namespace quavix::midi_io {
namespace {

constexpr const char* OutputPortName = "Quavix";
constexpr const char* InputPortName = "Quavix input";

bool IsOneByteMessage(std::uint8_t status) {
    return (status & 0xE0U) == 0xC0;
}

/// `arrivals` must outlive `input`.
void DeliverTo(const std::shared_ptr<Arrivals>& arrivals, RtMidiIn& input) {
    constexpr bool Ignore = true;
    input.ignoreTypes(Ignore, Ignore, Ignore);
    arrivals->StartOver();
    input.setCallback([](double, std::vector<unsigned char>* bytes,
                         void* user) { static_cast<Arrivals*>(user)->Arrive(*bytes); },
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
    devices_.reset(new Devices{
        {*system_, OutputPortName, {}},
        {*system_, InputPortName, [arrivals = arrivals_](RtMidiIn& input) { DeliverTo(arrivals, input); }}});
    return true;
}

void MidiIo::Disconnect() {
    if (devices_) {
        output_.Gone |= devices_->Output.IsOpen();
        input_.Gone |= devices_->Input.IsOpen();
    }
    if (system_ && !system_->IsAlive()) {
        Keep(std::move(devices_));
        Keep(std::move(system_));
    }
    devices_.reset();
    system_.reset();
}

template <typename Device, typename Other>
std::int32_t MidiIo::Search(Device Devices::*device, Other Devices::*other, Direction& direction) {
    direction.Names.clear();
    if (!Connect())
        return QUAVIX_MIDI_IO_NO_SYSTEM;
    direction.Names = ((*devices_).*device).Search(((*devices_).*other).Own());
    return QUAVIX_MIDI_IO_OK;
}

template <typename Device>
std::int32_t MidiIo::Open(Device Devices::*device, Direction& direction, const std::string& name) {
    if (devices_)
        ((*devices_).*device).Close();
    direction.Gone = false;
    if (!Connect())
        return QUAVIX_MIDI_IO_NO_SYSTEM;
    auto& opened = (*devices_).*device;
    const std::int32_t result = opened.Open(name);
    if (result == QUAVIX_MIDI_IO_NO_DEVICE)
        problem_ = "The device " + name + " is not there any more.";
    if (result == QUAVIX_MIDI_IO_REFUSED)
        problem_ =
            opened.TakeFailure() ? opened.FailureText() : "The device " + name + " can't be connected to.";
    return result;
}

template <typename Device>
std::int32_t MidiIo::State(Device Devices::*device, Direction& direction) {
    if (direction.Gone)
        return QUAVIX_MIDI_IO_GONE;
    if (!devices_ || !((*devices_).*device).IsOpen())
        return QUAVIX_MIDI_IO_CLOSED;
    if (system_->IsAlive() && ((*devices_).*device).IsThere())
        return QUAVIX_MIDI_IO_OK;
    direction.Gone = true;
    problem_ = system_->IsAlive() ? "The device has gone."
                                  : std::string("The MIDI system has gone: ") + system_->Name();
    return QUAVIX_MIDI_IO_GONE;
}

std::int32_t MidiIo::SearchOutputs() {
    return Search(&Devices::Output, &Devices::Input, output_);
}

std::int32_t MidiIo::SearchInputs() {
    return Search(&Devices::Input, &Devices::Output, input_);
}

std::int32_t MidiIo::OutputState() {
    return State(&Devices::Output, output_);
}

std::int32_t MidiIo::InputState() {
    return State(&Devices::Input, input_);
}

bool MidiIo::HasNumber(const Direction& direction, std::int32_t device) {
    if (device >= 0 && static_cast<std::size_t>(device) < direction.Names.size())
        return true;
    problem_ = "There is no device with that number.";
    return false;
}

std::int32_t MidiIo::OpenOutput(std::int32_t device) {
    if (device == QUAVIX_MIDI_IO_VIRTUAL_PORT)
        return Open(&Devices::Output, output_, "");
    if (!HasNumber(output_, device))
        return QUAVIX_MIDI_IO_BAD_ARGUMENT;
    return Open(&Devices::Output, output_, output_.Names[static_cast<std::size_t>(device)]);
}

std::int32_t MidiIo::OpenInput(std::int32_t device) {
    if (!HasNumber(input_, device))
        return QUAVIX_MIDI_IO_BAD_ARGUMENT;
    const std::string name = input_.Names[static_cast<std::size_t>(device)];
    CloseInputDevice();
    return Open(&Devices::Input, input_, name);
}

void MidiIo::CloseOutput() {
    if (devices_)
        devices_->Output.Close();
    output_.Gone = false;
    LeaveIfUnused();
}

void MidiIo::CloseInput() {
    CloseInputDevice();
    LeaveIfUnused();
}

void MidiIo::CloseInputDevice() {
    if (devices_)
        devices_->Input.Close();
    input_.Gone = false;
    arrivals_->Drop();
}

void MidiIo::LeaveIfUnused() {
    if (devices_ && !devices_->Output.IsOpen() && !devices_->Input.IsOpen())
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
    const std::size_t size = IsOneByteMessage(message.Status) ? 2 : 3;
    if (!system_->TakesMessage(size))
        return QUAVIX_MIDI_IO_BUSY;
    devices_->Output.TakeFailure();
    devices_->Output.Object().sendMessage(bytes.data(), size);
    return devices_->Output.TakeFailure() ? QUAVIX_MIDI_IO_BUSY : QUAVIX_MIDI_IO_OK;
}

std::int32_t MidiIo::Receive(QuavixMidiIoMessage& message) {
    return arrivals_->Receive(message);
}

}  // namespace quavix::midi_io
