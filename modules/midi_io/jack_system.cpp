// SPDX-License-Identifier: MIT
#include <atomic>
#include <chrono>
#include <cstdint>
#include <deque>
#include <thread>

#include <jack/jack.h>

#include "modules/midi_io/midi_system.h"
#include "modules/midi_io/uncancelled.h"

namespace quavix::midi_io {
namespace {

/// A separate JACK client that only watches: RtMidi's clients don't report that the server or a port has
/// gone, and wait for ever if the server takes no more data.
class JackSystem : public MidiSystem {
  public:
    explicit JackSystem(Changed changed) : changed_(std::move(changed)) {}
    ~JackSystem() override {
        if (client_ != nullptr)
            jack_client_close(client_);
    }
    JackSystem(const JackSystem&) = delete;
    JackSystem& operator=(const JackSystem&) = delete;

    /// Tries several times, because a busy server may refuse clients at first.
    bool Connect() {
        constexpr int MostTries = 3;
        constexpr auto Pause = std::chrono::milliseconds(10);
        jack_set_error_function([](const char*) {});
        jack_set_info_function([](const char*) {});
        for (int tries = 1; !Enter(); ++tries) {
            if (tries == MostTries)
                return false;
            std::this_thread::sleep_for(Pause);
        }
        return true;
    }

    RtMidi::Api Api() const override { return RtMidi::UNIX_JACK; }
    const char* Name() const override { return "JACK"; }
    bool IsAlive() override { return alive_; }

    std::vector<std::string> Ports() override {
        return Texts(jack_get_ports(client_, nullptr, JACK_DEFAULT_MIDI_TYPE, 0));
    }

    bool AreConnected(const std::string& own, const std::string& device) override {
        const jack_port_t* port = jack_port_by_name(client_, own.c_str());
        if (port == nullptr)
            return false;
        if (device.empty())
            return true;
        if (jack_port_by_name(client_, device.c_str()) == nullptr)
            return false;
        for (const std::string& other : Texts(jack_port_get_all_connections(client_, port))) {
            if (other == device)
                return true;
        }
        return false;
    }

    /// Waits 250 ms and 16 cycles, which may be long on a busy machine, but at most 5 s.
    bool BecomeConnected(const std::string& own, const std::string& device) override {
        constexpr auto Step = std::chrono::milliseconds(1);
        constexpr int FewSteps = 250;
        constexpr int MostSteps = 5000;
        constexpr std::uint64_t EnoughCycles = 16;
        const std::uint64_t start = cycles_;
        for (int step = 0; step < MostSteps && alive_; ++step) {
            if (AreConnected(own, device))
                return true;
            if (step >= FewSteps && cycles_ - start >= EnoughCycles)
                return false;
            std::this_thread::sleep_for(Step);
        }
        return false;
    }

    unsigned Removals() override {
        // Until connections have settled, and once afterwards, every call counts as a removal.
        const bool settled = cycles_ >= settlesAt_;
        if (!settled || !wasSettled_)
            ++looks_;
        wasSettled_ = settled;
        return removals_ + looks_;
    }

    /// The server empties RtMidi's ring once per cycle. When a message is put into the ring, two cycles may
    /// already be in progress, one for each client; after two more the message has left.
    bool TakesMessage(std::size_t size) override {
        constexpr std::size_t RingSize = 16383;
        constexpr std::size_t HeadSize = sizeof(int);
        const std::uint64_t now = ForgetWhatHasLeft();
        if (bytesUnderWay_ + HeadSize + size > RingSize)
            return false;
        if (underWay_.empty() || underWay_.back().Cycle != now)
            underWay_.push_back({now, 0});
        underWay_.back().Bytes += HeadSize + size;
        bytesUnderWay_ += HeadSize + size;
        return true;
    }

    /// Waits 4 cycles and 50 ms, because other clients of an asynchronous server may still be in an earlier
    /// cycle; at most 2 s, and not for a dead server.
    void Settle() override {
        constexpr auto Step = std::chrono::milliseconds(1);
        constexpr int FewSteps = 50;
        constexpr int MostSteps = 2000;
        const std::uint64_t end = cycles_ + CyclesToLeave;
        for (int step = 0; step < MostSteps && alive_; ++step) {
            if (step >= FewSteps && cycles_ >= end && cycles_ >= settlesAt_)
                return;
            std::this_thread::sleep_for(Step);
        }
    }

  private:
    bool Enter() {
        client_ = jack_client_open("Quavix watch", JackNoStartServer, nullptr);
        if (client_ == nullptr)
            return false;
        jack_on_shutdown(client_, &ServerEnds, this);
        jack_set_process_callback(client_, &Cycle, this);
        jack_set_port_registration_callback(client_, &PortComesOrGoes, this);
        if (jack_activate(client_) == 0)
            return true;
        jack_client_close(client_);
        client_ = nullptr;
        return false;
    }

    struct Sent {
        std::uint64_t Cycle;
        std::size_t Bytes;
    };

    /// Forgets messages that have left. Returns the current cycle.
    std::uint64_t ForgetWhatHasLeft() {
        const std::uint64_t now = cycles_;
        while (!underWay_.empty() && now - underWay_.front().Cycle >= CyclesToLeave) {
            bytesUnderWay_ -= underWay_.front().Bytes;
            underWay_.pop_front();
        }
        return now;
    }

    static std::vector<std::string> Texts(const char** texts) {
        std::vector<std::string> result;
        for (const char** text = texts; text != nullptr && *text != nullptr; ++text)
            result.emplace_back(*text);
        jack_free(texts);
        return result;
    }

    static void ServerEnds(void* system) {
        auto& self = *static_cast<JackSystem*>(system);
        Uncancelled([&self] {
            self.alive_ = false;
            self.changed_();
        });
    }

    static void PortComesOrGoes(jack_port_id_t, int comes, void* system) {
        auto& self = *static_cast<JackSystem*>(system);
        if (comes != 0)
            return;
        Uncancelled([&self] {
            self.settlesAt_ = self.cycles_ + CyclesToSettle;
            ++self.removals_;
            self.changed_();
        });
    }

    static int Cycle(jack_nframes_t, void* system) {
        auto& self = *static_cast<JackSystem*>(system);
        Uncancelled([&self] {
            if (++self.cycles_ == self.settlesAt_)
                self.changed_();
        });
        return 0;
    }

    // After so many cycles a sent message has left, and no client of a synchronous server is in an older
    // cycle.
    static constexpr std::uint64_t CyclesToLeave = 4;
    // For one or two cycles after a change, the server still shows the old connections.
    static constexpr std::uint64_t CyclesToSettle = 4;

    Changed changed_;
    jack_client_t* client_ = nullptr;
    std::atomic<bool> alive_{true};
    std::atomic<unsigned> removals_{0};
    std::atomic<std::uint64_t> cycles_{0};
    std::atomic<std::uint64_t> settlesAt_{0};
    unsigned looks_ = 0;
    bool wasSettled_ = true;
    std::deque<Sent> underWay_;
    std::size_t bytesUnderWay_ = 0;
};

}  // namespace

std::unique_ptr<MidiSystem> ConnectToJack(const Changed& changed, std::string& problem) {
    auto system = std::make_unique<JackSystem>(changed);
    if (system->Connect())
        return system;
    problem = "The JACK server does not run.";
    return nullptr;
}

}  // namespace quavix::midi_io
