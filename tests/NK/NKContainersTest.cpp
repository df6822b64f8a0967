#include "NK/NKArray.hpp"
#include "NK/NKGuid.hpp"
#include "NK/NKHashTable.hpp"
#include "NK/NKPointers.hpp"
#include "NK/NKSkipMap.hpp"
#include "NK/NKUniString.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace {

template <typename Container>
std::vector<int> Keys(const Container& c)
{
    std::vector<int> out;
    for (const auto& entry : c) {
        if constexpr (requires { entry.first; })
            out.push_back(entry.first);
        else
            out.push_back(entry);
    }
    return out;
}

TEST(HashTableTest, TableAndSetKeepInsertionOrderAfterDeletes)
{
    NK::HashTable<int, int> table;
    for (int k : {50, 3, 17, 99, 4, 23})
        EXPECT_TRUE(table.Add(k, k * 10));
    EXPECT_FALSE(table.Add(17, 0));
    EXPECT_EQ(table.Get(17), 170);
    EXPECT_TRUE(table.Delete(3) && table.Delete(99));
    EXPECT_FALSE(table.Delete(99));
    table.Put(50, 1);  // replacing keeps the place
    table.Put(7, 70);  // adding goes last
    EXPECT_EQ(Keys(table), (std::vector<int> {50, 17, 4, 23, 7}));
    EXPECT_TRUE(table.Get(50) == 1 && table.GetPtr(3) == nullptr);

    NK::HashSet<int> set {9, 1, 8, 2, 7};
    set.Delete(8);
    EXPECT_EQ(Keys(set), (std::vector<int> {9, 1, 2, 7}));
    EXPECT_EQ(set, (NK::HashSet<int> {7, 2, 1, 9}));  // equality ignores the order
    EXPECT_NE(set, (NK::HashSet<int> {7, 2, 1}));
}

TEST(SkipMapTest, IteratesAscendingByKey)
{
    NK::SkipMap<int, const char*> map;
    map.Add(3, "c");
    map.Add(1, "a");
    EXPECT_FALSE(map.Add(1, "x"));
    EXPECT_EQ(Keys(map), (std::vector<int> {1, 3}));
}

TEST(ArrayTest, IndexesFromZeroAndHoldsMoveOnlyItems)
{
    NK::Array<int> a {1, 2, 3};
    a.Insert(0, 0);
    a.Delete(2);
    EXPECT_EQ(a, (NK::Array<int> {0, 1, 3}));
    EXPECT_TRUE(a.FindFirst(3) == 2u && a.FindFirst(42) == NK::MaxUIndex);
    EXPECT_THROW(a[3], std::out_of_range);

    NK::Array<NK::Owner<int>> owners;
    owners.Push(NK::NewOwned<int>(5));
    owners.Push(NK::NewOwned<int>(6));
    owners.Delete(0);
    EXPECT_EQ(*owners.GetFirst(), 6);
}

TEST(PointerTest, EmptyPointersThrowNullReferenceAndRefsCastBetweenBaseAndDerived)
{
    EXPECT_THROW((void) *NK::Ref<NK::Object>(), NK::NullReferenceException);
    EXPECT_THROW((void) *NK::Owner<int>(), NK::NullReferenceException);

    struct Record : NK::Object {
        int value = 4;
    };
    struct Other : NK::Object {};
    NK::Ref<NK::Object> base = NK::NewRef<Record>();
    EXPECT_EQ(NK::DynamicCast<Record>(base)->value, 4);
    EXPECT_TRUE(NK::DynamicCast<Other>(base).IsNull());
}

TEST(GuidTest, PrintsAndParsesRoundTripAndRejectsMalformedText)
{
    NK::Guid g("{4B10ACFE-87EE-48CD-BD50-C3B423B85882}");
    EXPECT_EQ(g.ToString(), "{4B10ACFE-87EE-48CD-BD50-C3B423B85882}");
    EXPECT_EQ(NK::Guid::Parse("4b10acfe-87ee-48cd-bd50-c3b423b85882"), g);
    const NK::Guid generated = NK::Guid::Generate();
    EXPECT_EQ(NK::Guid::Parse(generated.ToString()), generated);
    EXPECT_NE(generated, NK::Guid::Generate());
    for (const char* bad : {"", "{4B10ACFE-87EE-48CD-BD50-C3B423B8588}", "{4B10ACFE-87EE-48CD-BD50-C3B423B85882",
                            "{4B10ACFE_87EE-48CD-BD50-C3B423B85882}", "{4B10ACFE-87EE-48CD-BD50-C3B423B8588G}"})
        EXPECT_TRUE(NK::Guid(bad).IsNull() && !NK::Guid::Parse(bad)) << bad;
}

TEST(UniStringTest, LowerCaseSplitNumbersNaturalOrderAndUtf8)
{
    EXPECT_EQ(NK::UniString("ÄÖÜ ΣΑΣ Straße").ToLowerCase(), NK::UniString("äöü σας straße"));  // final sigma
    EXPECT_EQ(NK::UniString("İ").ToLowerCase().GetLength(), 2u);  // full mapping: i + combining dot
    EXPECT_EQ(NK::UniString("Ｗ").ToLowerCase(), NK::UniString("ｗ"));  // no width folding
    EXPECT_EQ(NK::UniString(",a,,b,").Split(","), (NK::Array<NK::UniString> {"", "a", "", "b", ""}));

    NK::Int64 v = 0;
    EXPECT_TRUE(NK::UniString(" -42 ").ToInt(v));
    EXPECT_EQ(v, -42);
    for (const char* notWhole : {"12px", "", "-"})
        EXPECT_FALSE(NK::UniString(notWhole).ToInt(v)) << notWhole;

    // Natural order compares digit runs by value.
    EXPECT_TRUE(NK::NaturalIsLess("a2", "a10"));
    EXPECT_FALSE(NK::NaturalIsLess("a10", "a2"));
    EXPECT_TRUE(NK::NaturalIsLess("Track 9", "track 10", 1));
    EXPECT_FALSE(NK::NaturalIsLess("abc", "ABC", 1));
    EXPECT_FALSE(NK::NaturalIsLess("ABC", "abc", 1));
    EXPECT_NE(NK::NaturalCompare("abc", "ABC", 0), 0);
    EXPECT_EQ(NK::UniString("Rezept – Linsensuppe 1 ✓").ToUtf8(), "Rezept – Linsensuppe 1 ✓");
}

}  // namespace
