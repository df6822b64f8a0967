#include "NK/NKClock.hpp"

#include <gtest/gtest.h>

namespace {

TEST(ClockTest, AManualClockStandsStillUntilAdvancedAndSleepAdvancesItByTheTickRate)
{
    NK::ManualClockScope clock(1000, 500);
    EXPECT_EQ(NK::Clock::GetTicks(), 500);
    NK::Sleep(1);
    NK::Sleep(250);
    EXPECT_EQ(NK::Clock::GetTicks(), 751);
    EXPECT_EQ(clock->GetSleepCount(), 2u);
    EXPECT_EQ(clock->GetSleptMilliseconds(), 251u);
    clock->Advance(9);
    EXPECT_EQ(NK::Clock::GetTicks(), 760);

    NK::ManualClockScope fine(3'000'000);
    NK::Sleep(2);
    EXPECT_EQ(NK::Clock::GetTicks(), 6000);
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
    }
    EXPECT_EQ(&NK::Clock::GetSource(), systemSource);
    EXPECT_EQ(NK::Clock::GetTicksPerSecond(), 1'000'000'000);
}

}  // namespace
