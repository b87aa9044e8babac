// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "ports/clock.h"
#include "ports/event_pump.h"
#include "ports/timers.h"

namespace quavix {

/// A log of events as text: one line per event, "12.5000 speaker 440 Hz 250 ms", with the simulated time in
/// seconds and four decimals. Every simulated port writes to it.
class Timeline {
  public:
    /// `time` in counts of 100 ns.
    void Record(std::int64_t time, std::string_view event) {
        constexpr std::int64_t PerTenThousandth = 1000;
        constexpr std::int64_t PerSecond = 10'000'000;
        lines_.push_back(
            fmt::format("{}.{:04} {}", time / PerSecond, time % PerSecond / PerTenThousandth, event));
    }

    const std::vector<std::string>& Lines() const { return lines_; }

    /// Returns all lines, each with a line feed; with `about`, only events that begin with it ("speaker").
    std::string Text(std::string_view about = {}) const {
        std::string text;
        for (const std::string& line : lines_) {
            if (std::string_view(line).substr(line.find(' ') + 1).starts_with(about))
                text += line + "\n";
        }
        return text;
    }

    void Clear() { lines_.clear(); }

  private:
    std::vector<std::string> lines_;
};

/// Simulated time: a wait advances the clock at once, and runs the events scheduled in between. Only waits
/// and blocking tones take time. Reading the clock repeatedly without waiting also advances it slowly, so
/// that every loop on the clock ends.
class SimulatedTime : public Clock, public EventPump, public Timers {
  public:
    static constexpr std::int64_t CountsPerMs = 10'000;
    static constexpr std::int64_t CountsPerSecond = 1000 * CountsPerMs;

    struct Origin {
        std::int64_t Counter = 0;
        std::uint32_t TickCount = 0;
        TimeOfDay Time = {12, 0, 0};
    };

    SimulatedTime() : SimulatedTime(Origin{}) {}
    explicit SimulatedTime(const Origin& start) : start_(start) {}

    // Clock
    std::int64_t PerformanceCounter() override;
    std::int64_t PerformanceFrequency() override { return CountsPerSecond; }
    std::uint32_t TickCount() override;
    TimeOfDay LocalTime() override;
    Date LocalDate() override { return {2001, 2, 3}; }

    // EventPump. An endless wait without any scheduled event raises std::logic_error.
    std::uint32_t WaitForInput(std::span<const WaitHandle> handles, std::uint32_t timeoutMs) override;
    void DoEvents() override;

    // Timers
    Id Start(std::int32_t intervalMs, std::function<void()> tick) override;
    void SetInterval(Id timer, std::int32_t intervalMs) override;
    void Stop(Id timer) override;

    /// Runs `event` as input that arrives `ms` milliseconds after the start (at the next wait if that is
    /// past). Simultaneous events run in the order in which they were scheduled.
    void At(double ms, std::function<void()> event);

    /// Signals a handle `ms` milliseconds after the start; it stays signalled.
    void SignalAt(double ms, WaitHandle handle);

    /// Lets `ms` milliseconds pass without running anything, as a blocking call does.
    void Block(std::int64_t ms) { Advance(now_ + ms * CountsPerMs); }

    /// Returns the time since the start, in counts of 100 ns.
    std::int64_t Now() const { return now_; }

    /// Runs all events up to `ms` milliseconds after the start, as an idle main loop does.
    void RunUntil(double ms);

  private:
    struct Event {
        std::function<void()> Run;
        Id Timer = 0;
    };

    void Advance(std::int64_t to);
    bool IsDue() const { return !events_.empty() && events_.begin()->first <= now_; }
    void ScheduleTick(Id timer);
    void TakeFromSchedule(Id timer);
    void RunTick(Id timer);

    Origin start_;
    std::int64_t now_ = 0;
    std::int64_t readingsWithoutWait_ = 0;
    std::multimap<std::int64_t, Event> events_;
    std::set<WaitHandle> signalled_;
    struct Timer {
        std::int64_t Interval = 0;
        std::function<void()> Tick;
        /// Due time of the last tick, or the start of the timer.
        std::int64_t LastDue = 0;
        bool IsTicking = false;
    };
    std::map<Id, Timer> timers_;
    Id lastTimer_ = 0;
};

/// The common part of the ports that write to the timeline.
class Recorder {
  public:
    Recorder(SimulatedTime& time, Timeline& timeline) : time_(time), timeline_(timeline) {}

  protected:
    /// Writes an event at the current time.
    void Record(std::string_view event) { timeline_.Record(time_.Now(), event); }

    SimulatedTime& time_;

  private:
    Timeline& timeline_;
};

}  // namespace quavix
