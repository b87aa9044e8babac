// SPDX-License-Identifier: MIT
#include "jack_midi_peer.h"

#include <chrono>
#include <utility>

#include <gtest/gtest.h>
#include <jack/midiport.h>

#include "jack_server.h"
#include "modules/midi_io/uncancelled.h"

namespace quavix {

namespace {

constexpr auto Patience = std::chrono::seconds(60);

}  // namespace

JackMidiPeer::JackMidiPeer(const std::string& name)
    : client_(EnterJack(name)),
      in_(jack_port_register(client_, "in", JACK_DEFAULT_MIDI_TYPE, JackPortIsInput, 0)),
      out_(jack_port_register(client_, "out", JACK_DEFAULT_MIDI_TYPE, JackPortIsOutput, 0)) {
    jack_set_process_callback(client_, &Process, this);
    jack_set_xrun_callback(client_, &Xrun, this);
    EXPECT_EQ(jack_activate(client_), 0);
}

JackMidiPeer::~JackMidiPeer() {
    jack_client_close(client_);
}

void KeepUntilExit(std::unique_ptr<JackMidiPeer> peer) {
    static auto* const kept = new std::vector<std::unique_ptr<JackMidiPeer>>;
    kept->push_back(std::move(peer));
}

bool JackMidiPeer::Listen(const std::string& source) {
    if (jack_connect(client_, source.c_str(), jack_port_name(in_)) != 0)
        return false;
    // In effect from one of the next cycles on; what is sent before would be lost.
    std::unique_lock lock(mutex_);
    return arrived_.wait_for(lock, Patience, [&] { return isConnected_; });
}

std::vector<JackMidiPeer::Event> JackMidiPeer::Received(std::size_t count) {
    std::unique_lock lock(mutex_);
    arrived_.wait_for(lock, Patience, [&] { return received_.size() >= count; });
    return received_;
}

std::vector<JackMidiPeer::Event> JackMidiPeer::ReceivedSoFar() {
    constexpr std::uint64_t MostCyclesUnderWay = 16;
    std::unique_lock lock(mutex_);
    const std::uint64_t end = cycles_ + MostCyclesUnderWay;
    arrived_.wait_for(lock, Patience, [&] { return cycles_ >= end; });
    return received_;
}

int JackMidiPeer::Disturbances() {
    const std::lock_guard lock(mutex_);
    return disturbances_;
}

std::vector<jack_time_t> JackMidiPeer::Times() {
    const std::lock_guard lock(mutex_);
    return times_;
}

void JackMidiPeer::Send(std::vector<Event> events) {
    const std::lock_guard lock(mutex_);
    toSend_.insert(toSend_.end(), events.begin(), events.end());
}

int JackMidiPeer::Process(jack_nframes_t frames, void* peer) {
    auto& self = *static_cast<JackMidiPeer*>(peer);
    midi_io::Uncancelled([&self, frames] {
        const std::lock_guard lock(self.mutex_);
        if (!self.isConnected_ && jack_port_connected(self.in_) > 0) {
            self.isConnected_ = true;
            self.arrived_.notify_all();
        }
        self.NoteTime(frames);
        self.Receive(frames);
        self.Transmit(frames);
    });
    return 0;
}

int JackMidiPeer::Xrun(void* peer) {
    auto& self = *static_cast<JackMidiPeer*>(peer);
    midi_io::Uncancelled([&self] {
        const std::lock_guard lock(self.mutex_);
        ++self.disturbances_;
    });
    return 0;
}

void JackMidiPeer::NoteTime(jack_nframes_t frames) {
    constexpr jack_time_t LateMicroseconds = 10'000;
    const jack_nframes_t frame = jack_last_frame_time(client_);
    const jack_time_t now = jack_get_time();
    if (cycles_ > 0 && (frame != nextFrame_ || now - lastCycle_ > LateMicroseconds))
        ++disturbances_;
    nextFrame_ = frame + frames;
    lastCycle_ = now;
    ++cycles_;
    arrived_.notify_all();
}

void JackMidiPeer::Receive(jack_nframes_t frames) {
    void* buffer = jack_port_get_buffer(in_, frames);
    const std::uint32_t count = jack_midi_get_event_count(buffer);
    for (std::uint32_t i = 0; i < count; ++i) {
        jack_midi_event_t event{};
        if (jack_midi_event_get(&event, buffer, i) != 0)
            continue;
        received_.emplace_back(event.buffer, event.buffer + event.size);
        times_.push_back(jack_get_time());
    }
    if (count > 0)
        arrived_.notify_all();
}

void JackMidiPeer::Transmit(jack_nframes_t frames) {
    void* buffer = jack_port_get_buffer(out_, frames);
    jack_midi_clear_buffer(buffer);
    while (!toSend_.empty() &&
           jack_midi_event_write(buffer, 0, toSend_.front().data(), toSend_.front().size()) == 0)
        toSend_.pop_front();
}

}  // namespace quavix
