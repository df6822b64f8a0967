// The process clock: NK::Clock::GetTicks / GetTicksPerSecond and NK::Sleep. By default they are
// the monotonic system clock and a real sleep. Installing a ManualClock (best through
// ManualClockScope) redirects them for the whole process: time then stands still until the
// test advances it, and NK::Sleep advances it by the requested time instead of waiting.
#pragma once

#include "NK/NKTypes.hpp"

namespace NK {

// A source of time. The process has one current source.
class ClockSource {
public:
    virtual ~ClockSource() = default;
    virtual Int64 GetTicks() const = 0;
    virtual Int64 GetTicksPerSecond() const = 0;
    virtual void Sleep(UInt32 milliseconds) = 0;
};

class Clock {
public:
    static Int64 GetTicks();
    static Int64 GetTicksPerSecond();
    // Ticks in the given number of milliseconds at the current rate (rounded toward zero).
    static Int64 MillisecondsToTicks(Int64 milliseconds);
    // Makes `source` the process clock (null restores the system clock); returns the previous
    // one, or null when that was the system clock. The caller keeps `source` alive while
    // installed.
    static ClockSource* Install(ClockSource* source);
    static ClockSource& GetSource();
};

// Waits, or with a manual clock installed, advances it.
void Sleep(UInt32 milliseconds);

class ManualClock : public ClockSource {
public:
    explicit ManualClock(Int64 ticksPerSecond = 1000, Int64 startTicks = 0);

    Int64 GetTicks() const override { return ticks; }
    Int64 GetTicksPerSecond() const override { return ticksPerSecond; }
    // Advances by the time asked and counts the call.
    void Sleep(UInt32 milliseconds) override;

    void Advance(Int64 deltaTicks) { ticks += deltaTicks; }
    void AdvanceMilliseconds(Int64 milliseconds);
    void SetTicks(Int64 newTicks) { ticks = newTicks; }

    // How often Sleep ran and how many milliseconds it was asked for in all.
    UInt64 GetSleepCount() const noexcept { return sleepCount; }
    UInt64 GetSleptMilliseconds() const noexcept { return sleptMilliseconds; }

private:
    Int64 ticksPerSecond;
    Int64 ticks;
    UInt64 sleepCount = 0;
    UInt64 sleptMilliseconds = 0;
};

// Installs a manual clock for its lifetime and puts back the clock it found.
class ManualClockScope {
public:
    explicit ManualClockScope(Int64 ticksPerSecond = 1000, Int64 startTicks = 0);
    ~ManualClockScope();
    ManualClockScope(const ManualClockScope&) = delete;
    ManualClockScope& operator=(const ManualClockScope&) = delete;

    ManualClock& GetClock() noexcept { return clock; }
    ManualClock* operator->() noexcept { return &clock; }

private:
    ManualClock clock;
    ClockSource* previous;
};

}  // namespace NK
