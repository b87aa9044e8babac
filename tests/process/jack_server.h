// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <semaphore.h>
#include <string>
#include <sys/types.h>
#include <vector>

#include <jack/jack.h>

#include "platform/posix/file_descriptor.h"

namespace quavix {

/// A JACK server of the test's own, on its dummy driver; JACK clients of this process find it and no other.
class JackServer {
  public:
    JackServer();
    ~JackServer();
    JackServer(const JackServer&) = delete;
    JackServer& operator=(const JackServer&) = delete;

    /// Whether clients can connect, after waiting for that as long as it takes within reason.
    bool Start(int sampleRate = 48000);

    /// Ends it without a chance to say goodbye.
    void Kill();

    /// Stops it in its tracks, to the kill.
    void Stop();

  private:
    bool Answers() const;
    void End(int signal);

    std::string name_;
    FileDescriptor lock_;
    pid_t process_ = -1;
};

/// Records what arrives at the server's first loudspeaker.
class JackRecorder {
  public:
    JackRecorder();
    ~JackRecorder();
    JackRecorder(const JackRecorder&) = delete;
    JackRecorder& operator=(const JackRecorder&) = delete;

    /// Listens to what is connected to the loudspeaker now. False: nothing is.
    bool Listen();

    /// The same, after waiting for something to be connected for as long as it takes within reason.
    bool ListenWhenThereIsSomething();

    /// Samples recorded so far.
    std::size_t Size() const { return size_.load(std::memory_order_acquire); }

    /// How often the server has gone on without this client, or lost its own time.
    int Gaps() const { return gaps_.load(std::memory_order_acquire); }

    /// Frames from the loudspeaker's port to the loudspeaker.
    std::int64_t FramesToLoudspeaker() const;

    /// Waits until `enough` says so about what was recorded so far. False: it never did.
    bool RecordUntil(const std::function<bool(const std::vector<float>&)>& enough);

  private:
    static int Process(jack_nframes_t frames, void* recorder);
    bool WaitForPeriod();

    jack_client_t* client_;
    jack_port_t* port_;
    std::vector<float> recorded_;
    std::atomic<std::size_t> size_{0};
    jack_nframes_t next_ = 0;
    std::atomic<int> gaps_{0};
    sem_t arrived_{};
};

}  // namespace quavix
