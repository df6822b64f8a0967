#include "NK/NKClock.hpp"

#include "NK/NKAssert.hpp"

#include <atomic>
#include <chrono>
#include <thread>

namespace NK {

namespace {

class SystemClock : public ClockSource {
public:
    Int64 GetTicks() const override
    {
        return std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::steady_clock::now().time_since_epoch()).count();
    }
    Int64 GetTicksPerSecond() const override { return 1'000'000'000; }
    void Sleep(UInt32 milliseconds) override { std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds)); }
};

SystemClock& GetSystemClock()
{
    static SystemClock clock;
    return clock;
}

std::atomic<ClockSource*> installed {nullptr};

}  // namespace

Int64 Clock::GetTicks()
{
    return GetSource().GetTicks();
}

Int64 Clock::GetTicksPerSecond()
{
    return GetSource().GetTicksPerSecond();
}

Int64 Clock::MillisecondsToTicks(Int64 milliseconds)
{
    return milliseconds * GetTicksPerSecond() / 1000;
}

ClockSource* Clock::Install(ClockSource* source)
{
    return installed.exchange(source);
}

ClockSource& Clock::GetSource()
{
    ClockSource* source = installed.load();
    return source != nullptr ? *source : GetSystemClock();
}

void Sleep(UInt32 milliseconds)
{
    Clock::GetSource().Sleep(milliseconds);
}

ManualClock::ManualClock(Int64 ticksPerSecond, Int64 startTicks) : ticksPerSecond(ticksPerSecond), ticks(startTicks)
{
    if (!NK_PRECOND(ticksPerSecond > 0))
        this->ticksPerSecond = 1000;
}

void ManualClock::Sleep(UInt32 milliseconds)
{
    ++sleepCount;
    sleptMilliseconds += milliseconds;
    AdvanceMilliseconds(milliseconds);
}

void ManualClock::AdvanceMilliseconds(Int64 milliseconds)
{
    ticks += milliseconds * ticksPerSecond / 1000;
}

ManualClockScope::ManualClockScope(Int64 ticksPerSecond, Int64 startTicks)
    : clock(ticksPerSecond, startTicks), previous(Clock::Install(&clock))
{
}

ManualClockScope::~ManualClockScope()
{
    Clock::Install(previous);
}

}  // namespace NK
