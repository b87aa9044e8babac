// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <RtMidi.h>

#include "modules/midi_io/midi_io_module.h"
#include "modules/midi_io/midi_system.h"

namespace quavix::midi_io {

/// One direction of a system: its devices and the open one. Rt is RtMidiOut or RtMidiIn.
template <typename Rt>
class RtDevice {
  public:
    /// `prepare` is called with every new RtMidi object before it is used.
    RtDevice(MidiSystem& system, std::string portName, std::function<void(Rt&)> prepare = {})
        : system_(system), portName_(std::move(portName)), prepare_(std::move(prepare)) {}
    RtDevice(const RtDevice&) = delete;
    RtDevice& operator=(const RtDevice&) = delete;

    /// Returns the names of all present devices except `own`, the port of the other direction.
    std::vector<std::string> Search(const std::string& own) {
        std::vector<std::string> names = Names();
        std::erase(names, own);
        return names;
    }

    /// Opens the device with this name; with an empty name, a port for other programs to connect to.
    std::int32_t Open(const std::string& name) {
        Close();
        const std::vector<std::string> before = system_.Ports();
        if (name.empty()) {
            Insist([this] { Object().openVirtualPort(portName_); });
        } else {
            const std::vector<std::string> names = Names();
            const auto found = std::find(names.begin(), names.end(), name);
            if (found == names.end())
                return QUAVIX_MIDI_IO_NO_DEVICE;
            failed_ = false;
            Object().openPort(static_cast<unsigned>(found - names.begin()), portName_);
        }
        device_ = name;
        own_ = NewPort(before);
        removals_ = system_.Removals();
        isOpen_ = true;
        if (!failed_ && system_.BecomeConnected(own_, device_))
            return QUAVIX_MIDI_IO_OK;
        Close();
        return QUAVIX_MIDI_IO_REFUSED;
    }

    /// Closes the port and destroys the RtMidi object too, so that no state of this device reaches the next
    /// one. Both wait for MidiSystem::Settle(). If the system has died, the object is left alone. To be
    /// called before this is destroyed.
    void Close() {
        if (!isOpen_)
            return;
        system_.Settle();
        if (system_.IsAlive()) {
            rt_->closePort();
            system_.Settle();
        }
        if (system_.IsAlive())
            rt_.reset();
        isOpen_ = false;
        own_.clear();
    }

    bool IsOpen() const { return isOpen_; }

    /// Returns true if the open device still exists.
    bool IsThere() {
        const unsigned removals = system_.Removals();
        if (removals == removals_)
            return true;
        removals_ = removals;
        return system_.AreConnected(own_, device_);
    }

    /// Returns the open port's own name in the system.
    const std::string& Own() const { return own_; }

    /// Returns true if RtMidi has reported an error since the last call.
    bool TakeFailure() { return std::exchange(failed_, false); }
    const std::string& FailureText() const { return failureText_; }

    Rt& Object() {
        if (!rt_) {
            rt_ = std::make_unique<Rt>(system_.Api(), "Quavix");
            // Without this, RtMidi prints some errors and throws others.
            rt_->setErrorCallback(&ReportError, this);
            if (prepare_)
                prepare_(*rt_);
        }
        return *rt_;
    }

  private:
    static void ReportError(RtMidiError::Type, const std::string& text, void* device) {
        auto& self = *static_cast<RtDevice*>(device);
        self.failed_ = true;
        self.failureText_ = text;
    }

    /// Repeats a call until it succeeds, at most 10 times: RtMidi enters the system with its first call, and
    /// a busy system may refuse it at first.
    template <typename Call>
    void Insist(Call call) {
        constexpr int MostTries = 10;
        constexpr auto Pause = std::chrono::milliseconds(20);
        for (int tries = 1;; ++tries) {
            failed_ = false;
            call();
            if (!failed_ || tries == MostTries || !system_.IsAlive())
                return;
            std::this_thread::sleep_for(Pause);
        }
    }

    std::vector<std::string> Names() {
        std::vector<std::string> names;
        unsigned count = 0;
        Insist([&] { count = Object().getPortCount(); });
        for (unsigned i = 0; i < count; ++i)
            names.push_back(Object().getPortName(i));
        return names;
    }

    /// Returns the new port with our name: one that was not in `before`.
    std::string NewPort(const std::vector<std::string>& before) {
        for (const std::string& port : system_.Ports()) {
            const bool isNew = std::find(before.begin(), before.end(), port) == before.end();
            if (isNew && port.find(":" + portName_) != std::string::npos)
                return port;
        }
        return {};
    }

    MidiSystem& system_;
    std::string portName_;
    std::function<void(Rt&)> prepare_;
    std::unique_ptr<Rt> rt_;
    bool isOpen_ = false;
    std::string device_;
    std::string own_;
    unsigned removals_ = 0;
    bool failed_ = false;
    std::string failureText_;
};

}  // namespace quavix::midi_io
