// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <string>
#include <vector>

#include <jack/jack.h>

namespace quavix {

/// Another program at the JACK server, with a MIDI input NAME:in and a MIDI output NAME:out.
class JackMidiPeer {
  public:
    using Event = std::vector<std::uint8_t>;

    explicit JackMidiPeer(const std::string& name);
    ~JackMidiPeer();
    JackMidiPeer(const JackMidiPeer&) = delete;
    JackMidiPeer& operator=(const JackMidiPeer&) = delete;

    /// Connects another's output to the input. What that sends from then on comes in.
    bool Listen(const std::string& source);

    /// Waits until `count` events have come in, and gives all of them. Fewer: they never did.
    std::vector<Event> Received(std::size_t count);

    /// When each of what has come in so far did, in microseconds. A starved server's frames take longer than
    /// they should, so that its own time is none.
    std::vector<jack_time_t> Times();

    /// Sends events, all in one cycle where they have room.
    void Send(std::vector<Event> events);

  private:
    static int Process(jack_nframes_t frames, void* peer);
    void Receive(jack_nframes_t frames);
    void Transmit(jack_nframes_t frames);

    jack_client_t* client_;
    jack_port_t* in_;
    jack_port_t* out_;
    std::mutex mutex_;
    std::condition_variable arrived_;
    std::vector<Event> received_;
    std::vector<jack_time_t> times_;
    std::deque<Event> toSend_;
    bool isConnected_ = false;
};

}  // namespace quavix
