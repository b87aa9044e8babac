// SPDX-License-Identifier: MIT
#include "jack_server.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <stdexcept>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

#include <gtest/gtest.h>

#include "modules/midi_io/uncancelled.h"
#include "platform/common/monotonic.h"
#include "process/end_of_child.h"
#include "process/patience.h"

namespace quavix {
namespace {

constexpr std::int64_t PatienceNs = test::PatienceMs * NsPerMs;
constexpr std::size_t MostSamples = 48000 * 20;

/// Returns true if no thread of this process but the calling one runs, is ready to run or waits for memory.
bool OtherThreadsSleep() {
    for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) {
        std::ifstream file(thread.path() / "stat");
        std::string stat;
        std::getline(file, stat);
        const std::size_t name = stat.rfind(") ");
        const bool runs = name != std::string::npos && (stat[name + 2] == 'R' || stat[name + 2] == 'D');
        if (runs && thread.path().filename() != std::to_string(gettid()))
            return false;
    }
    return true;
}

}  // namespace

jack_client_t* EnterJack(const std::string& name) {
    constexpr int MostTries = 1000;
    constexpr std::int64_t BetweenTriesNs = 20 * NsPerMs;
    for (int tries = 0; tries < MostTries; ++tries) {
        if (jack_client_t* client = jack_client_open(name.c_str(), JackNoStartServer, nullptr))
            return client;
        SleepUntil(MonotonicNs() + BetweenTriesNs);
    }
    throw std::runtime_error("the JACK server refuses the client " + name);
}

// JACK knows of so many servers at most, and forgets one that was killed only when another of its name
// starts: so there are few names, and each has one user at a time. The locks lie where JACK keeps its
// servers, which a chroot may share while it has a /tmp of its own.
JackServer::JackServer() {
    constexpr int MostServers = 6;
    for (int number = 1; !lock_ && number <= MostServers; ++number) {
        name_ = "quavix-test-" + std::to_string(number);
        lock_ = FileDescriptor(
            open(("/dev/shm/" + name_ + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR));
        if (flock(lock_.Get(), LOCK_EX | LOCK_NB) != 0)
            lock_.Close();
    }
    setenv("JACK_DEFAULT_SERVER", name_.c_str(), 1);
    setenv("JACK_NO_START_SERVER", "1", 1);
    jack_set_error_function([](const char*) {});
    jack_set_info_function([](const char*) {});
}

JackServer::~JackServer() {
    End(SIGTERM);
}

bool JackServer::Start(int sampleRate) {
    constexpr int MostTries = 4;
    std::string said;
    for (int tries = 0; tries < MostTries; ++tries) {
        if (TryToStart(sampleRate, said))
            return true;
        Kill();
    }
    ADD_FAILURE() << "the JACK server does not start; it said:\n" << said;
    return false;
}

bool JackServer::TryToStart(int sampleRate, std::string& said) {
    constexpr std::int64_t StartNs = 20 * NsPerSecond;
    const std::string rate = std::to_string(sampleRate);
    std::array<int, 2> ends{-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return false;
    const FileDescriptor output(ends[0]);
    FileDescriptor serversOutput(ends[1]);
    process_ = fork();
    if (process_ == 0) {
        dup2(serversOutput.Get(), STDOUT_FILENO);
        dup2(serversOutput.Get(), STDERR_FILENO);
        fcntl(lock_.Get(), F_SETFD, 0);    // the name is taken until the server has ended
        signal(SIGPIPE, SIG_IGN);          // nobody listens to it for long
        prctl(PR_SET_PDEATHSIG, SIGTERM);  // a test that crashes leaves no server behind
        execlp("jackd", "jackd", "-r", "-S", "-t", "10000", "-d", "dummy", "-r", rate.c_str(), "-p", "128",
               nullptr);
        _exit(127);
    }
    serversOutput.Close();
    const std::int64_t until = MonotonicNs() + StartNs;
    while (MonotonicNs() < until) {
        if (Answers())
            return true;
        // It says something as it gets further; its end is an end of output.
        pollfd waiting{output.Get(), POLLIN, 0};
        constexpr int MostMs = 100;
        std::array<char, 4096> bytes{};
        if (poll(&waiting, 1, MostMs) != 1)
            continue;
        const ssize_t got = read(output.Get(), bytes.data(), bytes.size());
        if (got <= 0)
            return false;
        said.append(bytes.data(), static_cast<std::size_t>(got));
    }
    return false;
}

// By a process of its own: a new client in this one would free those that others here have of a server that
// is gone, while they may be just about to close them.
bool JackServer::Answers() const {
    const pid_t asking = fork();
    if (asking == 0) {
        const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
        execlp("jack_lsp", "jack_lsp", nullptr);
        _exit(127);
    }
    constexpr int MostMs = 5000;
    const int status = test::WaitForEnd(asking, MostMs);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// A killed server may leave the database of JACK's properties locked. Every later JACK process of the user
// then hangs, until the database is deleted. When this process enters a new server, JACK frees the dead one's
// clients, even if their threads are still in the last cycle. So Kill() waits until these threads sleep.
void JackServer::Kill() {
    End(SIGKILL);
    const std::int64_t until = MonotonicNs() + PatienceNs;
    while (!OtherThreadsSleep()) {
        if (MonotonicNs() > until)
            throw std::runtime_error("a thread runs on after the JACK server was killed");
        SleepUntil(MonotonicNs() + NsPerMs);
    }
    std::error_code ignored;
    std::filesystem::remove_all("/dev/shm/jack_db-" + std::to_string(getuid()), ignored);
}

void JackServer::Stop() {
    kill(process_, SIGSTOP);
    waitpid(process_, nullptr, WUNTRACED);
}

void JackServer::End(int signal) {
    if (process_ <= 0)
        return;
    kill(process_, signal);
    test::WaitForEnd(std::exchange(process_, -1));
}

JackRecorder::JackRecorder()
    : client_(EnterJack("quavix test")),
      port_(jack_port_register(client_, "in", JACK_DEFAULT_AUDIO_TYPE, JackPortIsInput, 0)),
      recorded_(MostSamples) {
    sem_init(&arrived_, 0, 0);
    jack_set_process_callback(client_, &Process, this);
    jack_set_xrun_callback(client_, &Xrun, this);
    EXPECT_EQ(jack_activate(client_), 0);
}

JackRecorder::~JackRecorder() {
    jack_client_close(client_);
    sem_destroy(&arrived_);
}

bool JackRecorder::Listen() {
    const char** sources =
        jack_port_get_all_connections(client_, jack_port_by_name(client_, "system:playback_1"));
    bool any = false;
    for (const char** source = sources; source != nullptr && *source != nullptr; ++source)
        any |= jack_connect(client_, *source, jack_port_name(port_)) == 0;
    jack_free(sources);
    return any;
}

bool JackRecorder::WaitForPeriod() {
    timespec until{};
    clock_gettime(CLOCK_REALTIME, &until);
    until.tv_sec += PatienceNs / NsPerSecond;
    return sem_timedwait(&arrived_, &until) == 0;
}

bool JackRecorder::ListenWhenThereIsSomething() {
    const std::int64_t until = MonotonicNs() + PatienceNs;
    while (!Listen()) {
        if (!WaitForPeriod() || MonotonicNs() > until)
            return false;
    }
    return true;
}

std::int64_t JackRecorder::FramesToLoudspeaker() const {
    jack_latency_range_t range{};
    jack_port_get_latency_range(jack_port_by_name(client_, "system:playback_1"), JackPlaybackLatency, &range);
    return range.max;
}

bool JackRecorder::RecordUntil(const std::function<bool(const std::vector<float>&)>& enough) {
    for (;;) {
        if (!WaitForPeriod())
            return false;
        const auto end =
            recorded_.begin() + static_cast<std::ptrdiff_t>(size_.load(std::memory_order_acquire));
        if (enough({recorded_.begin(), end}))
            return true;
        if (end == recorded_.end())
            return false;
    }
}

int JackRecorder::Xrun(void* recorder) {
    auto& self = *static_cast<JackRecorder*>(recorder);
    midi_io::Uncancelled([&self] { self.gaps_.fetch_add(1, std::memory_order_acq_rel); });
    return 0;
}

int JackRecorder::Process(jack_nframes_t frames, void* recorder) {
    auto& self = *static_cast<JackRecorder*>(recorder);
    midi_io::Uncancelled([&self, frames] { self.Record(frames); });
    return 0;
}

void JackRecorder::Record(jack_nframes_t frames) {
    const auto* in = static_cast<const float*>(jack_port_get_buffer(port_, frames));
    const jack_nframes_t now = jack_last_frame_time(client_);
    if (now != std::exchange(next_, now + frames))
        gaps_.fetch_add(1, std::memory_order_acq_rel);
    const std::size_t size = size_.load(std::memory_order_relaxed);
    const std::size_t count = std::min<std::size_t>(frames, recorded_.size() - size);
    std::copy_n(in, count, recorded_.begin() + static_cast<std::ptrdiff_t>(size));
    size_.store(size + count, std::memory_order_release);
    sem_post(&arrived_);
}

}  // namespace quavix
