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

/// A JACK server on its dummy driver. JACK clients of this process find no other server.
class JackServer {
  public:
    JackServer();
    ~JackServer();

    /// Starts the server and waits until clients can connect. Returns false, with a failure of the test, if
    /// they never can.
    bool Start(int sampleRate = 48000);

    /// Kills the server, and waits until the other threads of this process sleep. Throws std::runtime_error
    /// if they never do.
    void Kill();

    /// Suspends the server until it is killed.
    void Stop();

  private:
    bool TryToStart(int sampleRate, std::string& said);
    bool Answers() const;
    void End(int signal);

    std::string name_;
    FileDescriptor lock_;
    pid_t process_ = -1;
};

/// Enters the test's server as a JACK client. A busy server may refuse clients at first, so it tries for 20
/// s, and throws std::runtime_error then.
jack_client_t* EnterJack(const std::string& name);

/// Recorder of the sound that arrives at the server's first loudspeaker.
class JackRecorder {
  public:
    JackRecorder();
    ~JackRecorder();

    /// Listens to the ports that are connected to the loudspeaker now. False: none is.
    bool Listen();

    /// Does the same, but waits first until some port is connected. False: none ever was.
    bool ListenWhenThereIsSomething();

    /// Samples recorded so far.
    std::size_t Size() const { return size_.load(std::memory_order_acquire); }

    /// Number of times that the server has gone on without this client, reported an xrun, or lost its own
    /// time. Sound that is recorded meanwhile may have lost periods.
    int Gaps() const { return gaps_.load(std::memory_order_acquire); }

    /// Frames from the loudspeaker's port to the loudspeaker.
    std::int64_t FramesToLoudspeaker() const;

    /// Records until `enough` is true of the samples so far. False: it never was.
    bool RecordUntil(const std::function<bool(const std::vector<float>&)>& enough);

  private:
    static int Process(jack_nframes_t frames, void* recorder);
    static int Xrun(void* recorder);
    void Record(jack_nframes_t frames);
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
