// SPDX-License-Identifier: MIT
#include <algorithm>
#include <chrono>
#include <filesystem>

#include "modules/midi_io/midi_system.h"

namespace quavix::midi_io {
namespace {

using Clock = std::chrono::steady_clock;

/// The sequencer doesn't tell RtMidi about ports that vanish, so the ports are checked every 500 ms.
class AlsaSystem : public MidiSystem {
  public:
    AlsaSystem() {
        const auto ignore = [](RtMidiError::Type, const std::string&, void*) {};
        outputs_.setErrorCallback(ignore);
        inputs_.setErrorCallback(ignore);
    }

    RtMidi::Api Api() const override { return RtMidi::LINUX_ALSA; }
    const char* Name() const override { return "ALSA sequencer"; }
    bool IsAlive() override { return true; }

    std::vector<std::string> Ports() override {
        std::vector<std::string> ports;
        for (RtMidi* direction : {static_cast<RtMidi*>(&outputs_), static_cast<RtMidi*>(&inputs_)}) {
            const unsigned count = direction->getPortCount();
            for (unsigned i = 0; i < count; ++i)
                ports.push_back(direction->getPortName(i));
        }
        return ports;
    }

    bool AreConnected(const std::string& own, const std::string& device) override {
        const std::vector<std::string> ports = Ports();
        const auto there = [&ports](const std::string& port) {
            return port.empty() || std::find(ports.begin(), ports.end(), port) != ports.end();
        };
        return there(own) && there(device);
    }

    bool BecomeConnected(const std::string& own, const std::string& device) override {
        return AreConnected(own, device);
    }

    unsigned Removals() override {
        constexpr auto LookAgainAfter = std::chrono::milliseconds(500);
        const Clock::time_point now = Clock::now();
        if (now - lastLook_ >= LookAgainAfter) {
            lastLook_ = now;
            ++looks_;
        }
        return looks_;
    }

    // RtMidi reports an error itself if the sequencer takes no more messages.
    bool TakesMessage(std::size_t) override { return true; }
    void Settle() override {}

  private:
    // Used for searching only; they never have a port.
    RtMidiOut outputs_{RtMidi::LINUX_ALSA, "Quavix search"};
    RtMidiIn inputs_{RtMidi::LINUX_ALSA, "Quavix search"};
    Clock::time_point lastLook_ = Clock::now();
    unsigned looks_ = 0;
};

}  // namespace

std::unique_ptr<MidiSystem> ConnectToAlsa(std::string& problem) {
    std::error_code ignored;
    if (!std::filesystem::exists("/dev/snd/seq", ignored)) {
        problem = "There is no ALSA sequencer (/dev/snd/seq).";
        return nullptr;
    }
    try {
        return std::make_unique<AlsaSystem>();
    } catch (const RtMidiError& error) {
        problem = "The ALSA sequencer can't be used: " + error.getMessage();
        return nullptr;
    }
}

}  // namespace quavix::midi_io
