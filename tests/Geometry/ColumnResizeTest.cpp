#include "WZSources/ColumnModel/WZResizeColumns.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>
#include <vector>

namespace {

// A column that counts how often it is written.
template <typename Base>
struct Counted : Base {
    using Base::Base;
    void SetWidth(float width) override
    {
        ++writes;
        Base::SetWidth(width);
    }
    int writes = 0;
};

// 'f' a fixed column, 'p' a proportional one, each with minimum and width.
struct ColumnSetup {
    char kind;
    float minWidth, width;
};

using Columns = std::vector<std::unique_ptr<WZ::IColumn>>;

Columns Make(const std::vector<ColumnSetup>& setups)
{
    Columns columns;
    for (const ColumnSetup& c : setups) {
        if (c.kind == 'f')
            columns.push_back(std::make_unique<Counted<WZ::FixedColumn>>(c.minWidth, c.width));
        else
            columns.push_back(std::make_unique<Counted<WZ::ProportionalColumn>>(c.minWidth, c.width));
    }
    return columns;
}

std::vector<float> Resized(const Columns& columns, float width, bool round)
{
    WZ::ResizeColumns([&](size_t i) { return columns[i].get(); }, columns.size(), width, round);
    std::vector<float> out;
    for (auto& column : columns)
        out.push_back(column->GetWidth());
    return out;
}

TEST(ColumnResizeTest, WorkedDistributions)
{
    struct Case {
        const char* what;
        std::vector<ColumnSetup> columns;
        float available;
        bool round;
        std::vector<float> expected;
    };
    const std::vector<Case> cases {
        {"minimums filling the width", {{'f', 60, 100}, {'p', 50, 300}}, 110, true, {60, 50}},
        // The minimum case holds at equality: capping the fixed ones would give 20 and 20.
        {"minimums exactly filling the width", {{'f', 10, 50}, {'f', 30, 50}}, 40, false, {10, 30}},
        {"proportional shares", {{'p', 1, 100}, {'p', 1, 300}}, 200, false, {50, 150}},
        {"fixed keep their width while there is room", {{'f', 10, 40}, {'p', 1, 10}, {'p', 1, 30}}, 240, true, {40, 50, 150}},
        {"largest fraction gets the pixel", {{'p', 1, 1}, {'p', 3, 3}}, 101, true, {25, 76}},
        {"equal fractions, last", {{'p', 1, 333}, {'p', 1, 333}, {'p', 1, 334}}, 100, true, {33, 33, 34}},
        {"equal fractions in index order", {{'p', 1, 1}, {'p', 1, 1}, {'p', 1, 1}}, 101, true, {34, 34, 33}},
        {"tight: widest fixed lowered to a cap", {{'f', 10, 100}, {'f', 10, 40}, {'p', 20, 80}}, 150, true, {90, 40, 20}},
        // Room 272 for the fixed ones: cap 90, two pixels left for the capped columns in order.
        {"tight: remaining pixels", {{'f', 10, 100}, {'p', 20, 50}, {'f', 10, 100}, {'f', 10, 100}}, 292, false, {91, 20, 91, 90}},
        // Cap 90 leaves one pixel; the column already at the cap keeps its width, the next takes it.
        {"tight: a column at the cap keeps its width", {{'f', 0, 90}, {'f', 0, 100}, {'f', 0, 100}}, 271, false, {90, 91, 90}},
        // Minimums 95 fit, so the fixed ones share 90 by a cap of 45, one below its minimum.
        {"tight: below a minimum", {{'f', 80, 100}, {'f', 5, 100}, {'p', 10, 10}}, 100, false, {45, 45, 10}},
        // First pass (factor 0.5) clamps only the first column; with it held at 40 the factor drops
        // to 160/390 and the second falls below 45 as well; the third takes what is left.
        {"clamped over repeated passes", {{'p', 40, 10}, {'p', 45, 100}, {'p', 1, 290}}, 200, false, {40, 45, 115}},
        {"zero widths share equally", {{'f', 10, 20}, {'p', 0, 0}, {'p', 0, 0}}, 120, true, {20, 50, 50}},
        {"a lone fixed column keeps its whole width", {{'f', 10, 100}}, 300, true, {100}},
        // Widths are 16-bit lengths: damaged ones are taken as the nearest length, never loop or wrap.
        {"fixed width past 2^53", {{'f', 0, 2e16f}, {'p', 10, 100}}, 300, true, {290, 10}},
        {"non-finite fixed width", {{'f', 0, INFINITY}, {'f', 0, NAN}, {'p', 10, 100}}, 300, true, {290, 0, 10}},
        {"negative widths", {{'f', -5, -50}, {'p', -1, -10}, {'p', 0, 30}}, 90, true, {0, 0, 90}},
        {"non-finite room", {{'f', 0, 100}, {'p', 10, 100}}, NAN, true, {0, 10}},
        {"room past 16 bits", {{'f', 0, 100}, {'p', 10, 100}}, 1e9f, true, {100, 32667}},
        // Two long fixed columns overflow a 16-bit sum; none of them may gain the wrapped remainder.
        {"long fixed columns and a filler", {{'f', 30000, 30000}, {'f', 30000, 30000}, {'p', 1, 1}}, 300, true, {30000, 30000, 1}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Resized(Make(c.columns), c.available, c.round), c.expected) << c.what;
}

TEST(ColumnResizeTest, AColumnWhoseWidthDoesNotChangeIsNotWritten)
{
    Columns columns = Make({{'p', 1, 50}, {'p', 1, 150}});
    std::vector<WZ::IColumn*> all {columns[0].get(), columns[1].get()};  // the vector form
    WZ::ResizeColumns(all, 200, true);
    WZ::ResizeColumns(all, 201, true);  // 50.25 and 150.75: only the second changes
    EXPECT_EQ(columns[1]->GetWidth(), 151);
    EXPECT_EQ(static_cast<Counted<WZ::ProportionalColumn>&>(*columns[0]).writes, 0);
    EXPECT_EQ(static_cast<Counted<WZ::ProportionalColumn>&>(*columns[1]).writes, 1);
}

// Over many generated column sets of whole-pixel widths: whole pixels add up to the width when the
// minimums fit and some column is proportional, and while there is room no column falls below its
// minimum and fixed columns alone keep their widths.
TEST(ColumnResizeTest, GeneratedColumnSetsKeepTheDistributionInvariants)
{
    std::mt19937 random(20240611u);
    auto pick = [&](int low, int high) { return static_cast<float>(std::uniform_int_distribution<int>(low, high)(random)); };
    for (int round = 0; round < 1000; ++round) {
        std::vector<ColumnSetup> setups;
        float minSum = 0, fixedSum = 0, proportionalMin = 0;
        bool anyProportional = false;
        for (int i = static_cast<int>(pick(1, 12)); i > 0; --i) {
            const float minWidth = pick(0, 60), width = minWidth + pick(0, 200);
            const bool fixed = pick(0, 2) == 0;
            setups.push_back({fixed ? 'f' : 'p', minWidth, width});
            (fixed ? fixedSum : proportionalMin) += fixed ? width : minWidth;
            anyProportional = anyProportional || !fixed;
            minSum += minWidth;
        }
        float available = pick(0, 1500);
        const bool roomCase = fixedSum + proportionalMin < available;
        if (roomCase && pick(0, 2) == 0)
            available += 0.5f;  // in the room case a half pixel more must not matter
        Columns columns = Make(setups);
        const std::vector<float> widths = Resized(columns, available, true);
        SCOPED_TRACE("round " + std::to_string(round));

        float sum = 0;
        for (size_t i = 0; i < widths.size(); ++i) {
            EXPECT_EQ(widths[i], std::trunc(widths[i]));
            EXPECT_TRUE(!roomCase || widths[i] >= setups[i].minWidth) << i;
            sum += widths[i];
        }
        if (minSum < available && anyProportional) {
            EXPECT_EQ(sum, std::trunc(available));
        } else if (roomCase) {
            EXPECT_EQ(sum, fixedSum);
        }
    }
}

}  // namespace
