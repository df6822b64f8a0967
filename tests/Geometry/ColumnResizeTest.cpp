#include "WZSources/ColumnModel/WZResizeColumns.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>
#include <vector>

namespace {

// A column that counts how often it is written.
template <typename Base>
class Counted : public Base {
public:
    using Base::Base;
    void SetWidth(float width) override
    {
        ++writes;
        Base::SetWidth(width);
    }
    int writes = 0;
};

using Fixed = Counted<WZ::FixedColumn>;
using Proportional = Counted<WZ::ProportionalColumn>;

class ColumnResizeTest : public ::testing::Test {
protected:
    Fixed& AddFixed(float minWidth, float width) { return Add(std::make_unique<Fixed>(minWidth, width)); }
    Proportional& AddProportional(float minWidth, float width)
    {
        return Add(std::make_unique<Proportional>(minWidth, width));
    }

    void Resize(float width, bool round)
    {
        std::vector<WZ::IColumn*> raw;
        for (auto& column : columns)
            raw.push_back(column.get());
        WZ::ResizeColumns(raw, width, round);
    }

    std::vector<float> Widths() const
    {
        std::vector<float> out;
        for (auto& column : columns)
            out.push_back(column->GetWidth());
        return out;
    }

    std::vector<std::unique_ptr<WZ::IColumn>> columns;

private:
    template <typename T>
    T& Add(std::unique_ptr<T> column)
    {
        T& ref = *column;
        columns.push_back(std::move(column));
        return ref;
    }
};

TEST_F(ColumnResizeTest, ConstructorsAndKinds)
{
    WZ::FixedColumn fixed(40.0f);
    WZ::ProportionalColumn proportional(10.0f, 70.0f);
    EXPECT_TRUE(fixed.IsFixed());
    EXPECT_FALSE(proportional.IsFixed());
    EXPECT_EQ(fixed.GetMinWidth(), 40.0f);
    EXPECT_EQ(fixed.GetWidth(), 40.0f);
    EXPECT_EQ(proportional.GetMinWidth(), 10.0f);
    EXPECT_EQ(proportional.GetInitialWidth(), 70.0f);
    proportional.SetWidth(33.0f);
    EXPECT_EQ(proportional.GetInitialWidth(), 33.0f);
}

TEST_F(ColumnResizeTest, MinimumsFillingTheWidthSetEveryColumnToItsMinimum)
{
    AddFixed(60, 100);
    AddProportional(50, 300);
    Resize(110, true);
    EXPECT_EQ(Widths(), (std::vector<float> {60, 50}));
}

TEST_F(ColumnResizeTest, ProportionalColumnsShareInProportionToTheirWidths)
{
    AddProportional(1, 100);
    AddProportional(1, 300);
    Resize(200, false);
    EXPECT_EQ(Widths(), (std::vector<float> {50, 150}));
}

TEST_F(ColumnResizeTest, FixedColumnsKeepTheirWidthWhileThereIsRoom)
{
    AddFixed(10, 40);
    AddProportional(1, 10);
    AddProportional(1, 30);
    Resize(240, true);
    EXPECT_EQ(Widths(), (std::vector<float> {40, 50, 150}));
}

TEST_F(ColumnResizeTest, WholePixelsGoToTheLargestFraction)
{
    AddProportional(1, 1);
    AddProportional(3, 3);
    Resize(100, true);
    EXPECT_EQ(Widths(), (std::vector<float> {25, 75}));
    Resize(101, true);
    EXPECT_EQ(Widths(), (std::vector<float> {25, 76}));
}

TEST_F(ColumnResizeTest, EqualFractionsLoseTheirPixelInIndexOrder)
{
    AddProportional(1, 334);
    AddProportional(1, 333);
    AddProportional(1, 333);
    Resize(100, true);
    EXPECT_EQ(Widths(), (std::vector<float> {34, 33, 33}));

    columns.clear();
    AddProportional(1, 333);
    AddProportional(1, 333);
    AddProportional(1, 334);
    Resize(100, true);
    EXPECT_EQ(Widths(), (std::vector<float> {33, 33, 34}));

    columns.clear();
    AddProportional(1, 1);
    AddProportional(1, 1);
    AddProportional(1, 1);
    Resize(101, true);  // 33.67 each: two columns get a pixel, the first two
    EXPECT_EQ(Widths(), (std::vector<float> {34, 34, 33}));
}

TEST_F(ColumnResizeTest, TightWidthLowersTheWidestFixedColumnsToACap)
{
    AddFixed(10, 100);
    AddFixed(10, 40);
    AddProportional(20, 80);
    Resize(150, true);
    EXPECT_EQ(Widths(), (std::vector<float> {90, 40, 20}));
}

TEST_F(ColumnResizeTest, TightWidthGivesTheRemainingPixelsToCappedColumnsInOrder)
{
    AddFixed(10, 100);
    AddProportional(20, 50);
    AddFixed(10, 100);
    AddFixed(10, 100);
    Resize(292, false);  // room 272 for the fixed ones: cap 90, two pixels left
    EXPECT_EQ(Widths(), (std::vector<float> {91, 20, 91, 90}));
}

TEST_F(ColumnResizeTest, TightWidthMayPushAFixedColumnBelowItsMinimum)
{
    AddFixed(80, 100);
    AddFixed(5, 100);
    AddProportional(10, 10);
    Resize(100, false);  // minimums 95 fit, so the fixed ones share 90 by a cap of 45
    EXPECT_EQ(Widths(), (std::vector<float> {45, 45, 10}));
}

TEST_F(ColumnResizeTest, ClampedColumnsAreHeldAtTheirMinimumOverRepeatedPasses)
{
    AddProportional(40, 10);
    AddProportional(45, 100);
    AddProportional(1, 290);
    // First pass (factor 0.5) clamps only the first column; with it held at 40 the factor drops
    // to 160/390 and the second column falls below 45 as well; the third takes what is left.
    Resize(200, false);
    EXPECT_EQ(Widths(), (std::vector<float> {40, 45, 115}));
}

TEST_F(ColumnResizeTest, ProportionalColumnsOfZeroWidthShareEqually)
{
    AddFixed(10, 20);
    AddProportional(0, 0);
    AddProportional(0, 0);
    Resize(120, true);
    EXPECT_EQ(Widths(), (std::vector<float> {20, 50, 50}));
}

TEST_F(ColumnResizeTest, AColumnWhoseWidthDoesNotChangeIsNotWritten)
{
    Proportional& left = AddProportional(1, 50);
    Proportional& right = AddProportional(1, 150);
    Fixed& fixed = AddFixed(10, 30);
    Resize(230, true);
    EXPECT_EQ(Widths(), (std::vector<float> {50, 150, 30}));
    EXPECT_EQ(left.writes + right.writes + fixed.writes, 0);

    Resize(231, true);  // 50.25 and 150.75: only the right one changes
    EXPECT_EQ(Widths(), (std::vector<float> {50, 151, 30}));
    EXPECT_EQ(left.writes, 0);
    EXPECT_EQ(right.writes, 1);
    EXPECT_EQ(fixed.writes, 0);
}

TEST_F(ColumnResizeTest, FunctionFormReachesColumnsThroughTheAccessor)
{
    WZ::FixedColumn a(30);
    WZ::ProportionalColumn b(1, 10);
    WZ::IColumn* all[] = {&a, &b};
    std::vector<size_t> asked;
    WZ::ResizeColumns([&](size_t i) { asked.push_back(i); return all[i]; }, 2, 100.0f, true);
    EXPECT_EQ(a.GetWidth(), 30);
    EXPECT_EQ(b.GetWidth(), 70);
    EXPECT_EQ(asked, (std::vector<size_t> {0, 1}));
}

// Properties over many generated column sets: whole pixels add up to the width when the minimums
// fit and some column is proportional, and while there is room no column falls below its minimum.
TEST_F(ColumnResizeTest, GeneratedColumnSetsKeepTheDistributionInvariants)
{
    std::mt19937 random(20240611u);
    std::uniform_int_distribution<int> countOf(1, 12);
    std::uniform_int_distribution<int> widthOf(0, 200);
    std::uniform_int_distribution<int> minOf(0, 60);
    std::uniform_int_distribution<int> coin(0, 2);
    for (int round = 0; round < 2000; ++round) {
        columns.clear();
        int count = countOf(random);
        float minSum = 0, fixedSum = 0, proportionalMin = 0;
        int proportionalCount = 0;
        for (int i = 0; i < count; ++i) {
            float minWidth = static_cast<float>(minOf(random));
            float width = minWidth + static_cast<float>(widthOf(random));
            if (coin(random) == 0) {
                AddFixed(minWidth, width);
                fixedSum += width;
            } else {
                AddProportional(minWidth, width);
                proportionalMin += minWidth;
                ++proportionalCount;
            }
            minSum += minWidth;
        }
        // Widths of whole pixels, as list boxes and dialogs give them; in the room case a half pixel
        // more must not matter either.
        float available = static_cast<float>(std::uniform_int_distribution<int>(0, 1500)(random));
        bool roomCase = fixedSum + proportionalMin < available;
        if (roomCase && coin(random) == 0)
            available += 0.5f;
        Resize(available, true);
        SCOPED_TRACE("round " + std::to_string(round));

        float sum = 0;
        for (auto& column : columns) {
            EXPECT_EQ(column->GetWidth(), std::trunc(column->GetWidth()));
            sum += column->GetWidth();
        }
        // Only proportional columns absorb the room; fixed columns alone leave it unfilled.
        if (minSum < available && proportionalCount > 0) {
            EXPECT_EQ(sum, std::trunc(available));
        }
        if (roomCase) {
            for (auto& column : columns)
                EXPECT_GE(column->GetWidth(), column->GetMinWidth());
        }
    }
}

}  // namespace
