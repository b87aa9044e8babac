// SPDX-License-Identifier: MIT
#include "platform/common/module_midi_devices.h"

#include <array>
#include <utility>

#include "modules/midi_io/midi_io_module.h"
#include "platform/common/module_loader.h"
#include "platform/common/wait_handles.h"

namespace quavix {
namespace {

/// The module's functions for one direction.
struct DirectionFunctions {
    decltype(QuavixMidiIoOutputCount)* Count = nullptr;
    decltype(QuavixMidiIoOutputName)* Name = nullptr;
    decltype(QuavixMidiIoOpenOutput)* Open = nullptr;
    decltype(QuavixMidiIoCloseOutput)* Close = nullptr;
    decltype(QuavixMidiIoOutputState)* State = nullptr;
};

struct Functions {
    decltype(QuavixMidiIoCreate)* Create = nullptr;
    decltype(QuavixMidiIoDestroy)* Destroy = nullptr;
    decltype(QuavixMidiIoSystemName)* SystemName = nullptr;
    decltype(QuavixMidiIoProblem)* Problem = nullptr;
    decltype(QuavixMidiIoSend)* Send = nullptr;
    decltype(QuavixMidiIoReceive)* Receive = nullptr;
    DirectionFunctions Out;
    DirectionFunctions In;

    /// Calls `visit` with the name and the pointer of each function.
    template <typename Visit>
    void ForEach(Visit visit) {
        visit("QuavixMidiIoCreate", Create);
        visit("QuavixMidiIoDestroy", Destroy);
        visit("QuavixMidiIoSystemName", SystemName);
        visit("QuavixMidiIoProblem", Problem);
        visit("QuavixMidiIoSend", Send);
        visit("QuavixMidiIoReceive", Receive);
        visit("QuavixMidiIoOutputCount", Out.Count);
        visit("QuavixMidiIoOutputName", Out.Name);
        visit("QuavixMidiIoOpenOutput", Out.Open);
        visit("QuavixMidiIoCloseOutput", Out.Close);
        visit("QuavixMidiIoOutputState", Out.State);
        visit("QuavixMidiIoInputCount", In.Count);
        visit("QuavixMidiIoInputName", In.Name);
        visit("QuavixMidiIoOpenInput", In.Open);
        visit("QuavixMidiIoCloseInput", In.Close);
        visit("QuavixMidiIoInputState", In.State);
    }
};

/// The module, loaded on demand, and its one user of MIDI devices for both directions.
class Library {
  public:
    Library(std::string fileName, std::string system, std::function<void()> wake)
        : fileName_(std::move(fileName)), system_(std::move(system)), wake_(std::move(wake)) {}
    ~Library() {
        if (io_ != nullptr)
            Calls.Destroy(io_);
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    /// Loads the module if necessary. Returns an empty text, or the reason why that is impossible.
    const std::string& Prepare() {
        if (io_ != nullptr)
            return problem_;
        ModuleInterface interface {
            "MidiIo", QUAVIX_MIDI_IO_VERSION, {}
        };
        Calls.ForEach([&](const char* name, auto&) { interface.Functions.emplace_back(name); });
        module_ = LoadModule(fileName_, interface, problem_);
        if (!module_)
            return problem_;
        Calls.ForEach([&](const char* name, auto*& place) {
            place = module_->Function<std::remove_reference_t<decltype(*place)>>(name);
        });
        const std::int32_t result = Calls.Create(
            system_.c_str(), [](void* user) { static_cast<Library*>(user)->wake_(); }, this, &io_);
        if (result != QUAVIX_MIDI_IO_OK)
            problem_ = "The file \"" + fileName_ + "\" could not be started (result " +
                       std::to_string(result) + ").";
        return problem_;
    }

    /// Null before Prepare() has succeeded.
    QuavixMidiIo* Io() const { return io_; }

    /// Returns the text that call(io, place, size of the place) gives; empty without a module.
    template <typename Call>
    std::string Text(Call call) const {
        constexpr std::size_t TextSize = 1024;
        std::array<char, TextSize> text{};
        return io_ != nullptr && call(io_, text.data(), text.size()) == QUAVIX_MIDI_IO_OK ? text.data() : "";
    }

    std::string Problem() const { return io_ == nullptr ? problem_ : Text(Calls.Problem); }

    Functions Calls;

  private:
    std::string fileName_;
    std::string system_;
    std::function<void()> wake_;
    std::string problem_;
    std::unique_ptr<DynamicLibrary> module_;
    QuavixMidiIo* io_ = nullptr;
};

/// The common part of the two ports; Port is MidiOutPort or MidiInPort.
template <typename Port>
class ModulePort : public Port {
  public:
    ModulePort(Library& library, const DirectionFunctions& calls) : library_(library), calls_(calls) {}

    std::string Prepare() override { return library_.Prepare(); }
    std::string SystemName() override { return library_.Text(library_.Calls.SystemName); }
    std::string Problem() override { return library_.Problem(); }

    std::int32_t DeviceCount() override {
        std::int32_t count = 0;
        if (library_.Prepare().empty())
            calls_.Count(library_.Io(), &count);
        return count;
    }

    std::string DeviceName(std::int32_t device) override {
        return library_.Text([&](QuavixMidiIo* io, char* name, std::size_t size) {
            return calls_.Name(io, device, name, size);
        });
    }

    bool Open(std::int32_t device) override {
        return library_.Prepare().empty() && calls_.Open(library_.Io(), device) == QUAVIX_MIDI_IO_OK;
    }

    void Close() override {
        if (library_.Io() != nullptr)
            calls_.Close(library_.Io());
    }

    MidiDeviceState State() override {
        const std::int32_t state =
            library_.Io() == nullptr ? QUAVIX_MIDI_IO_CLOSED : calls_.State(library_.Io());
        if (state == QUAVIX_MIDI_IO_OK)
            return MidiDeviceState::Open;
        return state == QUAVIX_MIDI_IO_CLOSED ? MidiDeviceState::Closed : MidiDeviceState::Gone;
    }

  protected:
    Library& library_;

  private:
    const DirectionFunctions& calls_;
};

class ModuleOut : public ModulePort<MidiOutPort> {
  public:
    explicit ModuleOut(Library& library) : ModulePort(library, library.Calls.Out) {}

    MidiSendResult Send(const MidiMessage& message) override {
        if (library_.Io() == nullptr)
            return MidiSendResult::NotOpen;
        switch (library_.Calls.Send(library_.Io(), message.Status, message.Data1, message.Data2)) {
            case QUAVIX_MIDI_IO_OK:
                return MidiSendResult::Sent;
            case QUAVIX_MIDI_IO_BUSY:
                return MidiSendResult::Busy;
            case QUAVIX_MIDI_IO_BAD_ARGUMENT:
                return MidiSendResult::NoMessage;
            default:
                return MidiSendResult::NotOpen;
        }
    }
};

class ModuleIn : public ModulePort<MidiInPort> {
  public:
    ModuleIn(Library& library, HandleWatch& watch, WakeSignal& signal)
        : ModulePort(library, library.Calls.In), watch_(watch), signal_(signal) {}
    ~ModuleIn() override { StopWatching(); }
    ModuleIn(const ModuleIn&) = delete;
    ModuleIn& operator=(const ModuleIn&) = delete;

    Received Receive(MidiMessage& message) override {
        QuavixMidiIoMessage taken{};
        const std::int32_t result =
            library_.Io() == nullptr ? QUAVIX_MIDI_IO_EMPTY : library_.Calls.Receive(library_.Io(), &taken);
        if (result == QUAVIX_MIDI_IO_LOST)
            return Received::Lost;
        if (result != QUAVIX_MIDI_IO_OK)
            return Received::None;
        message = {taken.Status, taken.Data1, taken.Data2};
        return Received::Message;
    }

    void SetHandler(std::function<void()> handler) override {
        StopWatching();
        if (!handler)
            return;
        watched_ = watch_.Watch(signal_.Handle(), [this, run = std::move(handler)] {
            signal_.Clear();
            run();
        });
    }

  private:
    void StopWatching() {
        if (const HandleWatch::Id watched = std::exchange(watched_, 0); watched != 0)
            watch_.Unwatch(watched);
    }

    HandleWatch& watch_;
    WakeSignal& signal_;
    HandleWatch::Id watched_ = 0;
};

}  // namespace

struct ModuleMidiDevices::Parts {
    Parts(std::string fileName, HandleWatch& watch, std::string system)
        : Module(std::move(fileName), std::move(system), [this] { Signal.Raise(); }),
          Output(Module),
          Input(Module, watch, Signal) {}

    WakeSignal Signal;
    Library Module;
    ModuleOut Output;
    ModuleIn Input;
};

ModuleMidiDevices::ModuleMidiDevices(std::string fileName, HandleWatch& watch, std::string system)
    : parts_(std::make_unique<Parts>(std::move(fileName), watch, std::move(system))) {}

ModuleMidiDevices::~ModuleMidiDevices() = default;

MidiOutPort& ModuleMidiDevices::Out() {
    return parts_->Output;
}

MidiInPort& ModuleMidiDevices::In() {
    return parts_->Input;
}

}  // namespace quavix
