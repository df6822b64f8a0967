#include "NK/NKClock.hpp"

#include <gtest/gtest.h>

namespace {

TEST(ClockTest, AManualClockStandsStillUntilAdvancedAndSleepAdvancesIt)
{
    NK::ManualClockScope clock(1000, 500);
    EXPECT_EQ(NK::Clock::GetTicksPerSecond(), 1000);
    EXPECT_EQ(NK::Clock::GetTicks(), 500);
    EXPECT_EQ(NK::Clock::GetTicks(), 500);

    NK::Sleep(1);
    NK::Sleep(250);
    EXPECT_EQ(NK::Clock::GetTicks(), 751);
    EXPECT_EQ(clock->GetSleepCount(), 2u);
    EXPECT_EQ(clock->GetSleptMilliseconds(), 251u);

    clock->Advance(9);
    EXPECT_EQ(NK::Clock::GetTicks(), 760);
}

TEST(ClockTest, MillisecondsScaleWithTheTickRate)
{
    NK::ManualClockScope clock(3'000'000);
    NK::Sleep(2);
    EXPECT_EQ(NK::Clock::GetTicks(), 6000);
    EXPECT_EQ(NK::Clock::MillisecondsToTicks(250), 750'000);

    NK::ManualClockScope coarse(64);  // 1 ms is less than a tick: rounded toward zero
    EXPECT_EQ(NK::Clock::MillisecondsToTicks(20), 1);
}

TEST(ClockTest, ScopesRestoreTheClockTheyFound)
{
    NK::ClockSource* systemSource = &NK::Clock::GetSource();
    {
        NK::ManualClockScope outer(1000, 10);
        {
            NK::ManualClockScope inner(1000, 20);
            EXPECT_EQ(NK::Clock::GetTicks(), 20);
        }
        EXPECT_EQ(NK::Clock::GetTicks(), 10);
        EXPECT_EQ(&NK::Clock::GetSource(), &outer.GetClock());
    }
    EXPECT_EQ(&NK::Clock::GetSource(), systemSource);
    EXPECT_EQ(NK::Clock::GetTicksPerSecond(), 1'000'000'000);
    const NK::Int64 before = NK::Clock::GetTicks();
    EXPECT_GE(NK::Clock::GetTicks(), before);  // the system clock is monotonic
}

}  // namespace
