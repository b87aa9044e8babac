// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
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

    /// Waits for `count` events, and returns all that have come in; fewer if the others never came.
    std::vector<Event> Received(std::size_t count);

    /// Waits until all events sent before have come in, and returns them.
    std::vector<Event> ReceivedSoFar();

    /// How often the server has reported an xrun, lost its own time or come too late. It may lose events
    /// then.
    int Disturbances();

    /// When each of what has come in so far did, in microseconds. A starved server's frames take longer than
    /// they should, so that its own time is none.
    std::vector<jack_time_t> Times();

    /// Sends events, all in one cycle where they have room.
    void Send(std::vector<Event> events);

  private:
    static int Process(jack_nframes_t frames, void* peer);
    static int Xrun(void* peer);
    void NoteTime(jack_nframes_t frames);
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
    std::uint64_t cycles_ = 0;
    jack_nframes_t nextFrame_ = 0;
    jack_time_t lastCycle_ = 0;
    int disturbances_ = 0;
};

/// Keeps a peer until the process ends, instead of leaving a server that was killed: JACK's thread ends the
/// client by itself, and a call that closes it at the same time can end the process.
void KeepUntilExit(std::unique_ptr<JackMidiPeer> peer);

}  // namespace quavix
