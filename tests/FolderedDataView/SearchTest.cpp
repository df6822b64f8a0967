#include "NK/NKSearch.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

NK::Guid Key(NK::UInt64 n)
{
    return NK::Guid::FromNumber(0x5EA, n);
}

class SearchTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        search.AddEntry(Key(1), "Bread Recipe Page 1");
        search.AddEntry(Key(2), "Batch A-A");
        search.AddEntry(Key(3), "Note: Oven Temperature");
        search.AddEntry(Key(4), "");
        search.AddEntry(Key(5), "ÜBERSICHT Straße");
        search.AddEntry(Key(6), "ΟΔΟΣ recipe");
    }

    // The keys found, as their numbers in the order found.
    std::string Found(const char* text) const
    {
        std::string numbers;
        const NK::SearchResult result = search.Run(text);
        for (const NK::Guid& key : result.GetMatchingKeys())
            numbers += (numbers.empty() ? "" : " ") + std::to_string(key.GetLow());
        EXPECT_EQ(search.CountMatches(text), search.Run(text).GetMatchCount()) << text;
        return numbers;
    }

    NK::Search search;
};

TEST_F(SearchTest, EveryWordMustOccurSomewhereIgnoringCase)
{
    EXPECT_EQ(Found("recipe"), "1 6");
    EXPECT_EQ(Found("RECIPE page"), "1");
    EXPECT_EQ(Found("ecipe age"), "1") << "words are found inside words";
    EXPECT_EQ(Found("recipe batch"), "");
    EXPECT_EQ(Found("a-a"), "2");
    EXPECT_EQ(Found("oven:"), "") << "punctuation is part of the text";
    EXPECT_EQ(Found("note:"), "3");
}

TEST_F(SearchTest, WhiteSpaceOnlySeparatesWords)
{
    EXPECT_EQ(Found("  bread\t\trecipe \n"), "1");
    EXPECT_EQ(Found("bread\u3000recipe"), "1") << "ideographic space separates words too";
    EXPECT_EQ(Found("breadrecipe"), "") << "without the space it is one word";
    EXPECT_EQ(Found(""), "1 2 3 4 5 6") << "no words: every entry";
    EXPECT_EQ(Found(" \t "), "1 2 3 4 5 6");
}

TEST_F(SearchTest, FoldsCaseBeyondAscii)
{
    EXPECT_EQ(Found("übersicht"), "5");
    EXPECT_EQ(Found("STRASSE"), "") << "lower-casing only; no case folding of ß";
    EXPECT_EQ(Found("STRAẞE"), "5") << "capital sharp s lower-cases to ß";
    EXPECT_EQ(Found("οδοσ"), "6") << "a final sigma matches a sigma";
    EXPECT_EQ(Found("Οδος recipe"), "6");
}

TEST_F(SearchTest, KeysAreFoundOnceEachWhateverTheirEntries)
{
    search.AddEntry(Key(1), "Another recipe text of entry one");
    search.AddEntry(Key(7), "no recipe");
    EXPECT_EQ(Found("recipe"), "1 6 7");
    EXPECT_EQ(search.GetEntryCount(), 8u);

    search.Clear();
    EXPECT_EQ(search.GetEntryCount(), 0u);
    EXPECT_TRUE(search.Run("").IsEmpty());
}

TEST_F(SearchTest, AnEntryOfSeveralTextsIsTheirSpaceJoinedText)
{
    NK::Search joined;
    joined.AddEntry(Key(1), NK::Array<NK::UniString> {"Teapot", "LARGE blue"});
    joined.AddEntry(Key(2), NK::Array<NK::UniString> {"Ε", "ΟΔΟΣ"});
    EXPECT_TRUE(joined.Run("t l").Contains(Key(1))) << "the joining space separates like any other";
    EXPECT_FALSE(joined.Run("teapotlarge").Contains(Key(1)));
    EXPECT_TRUE(joined.Run("ε οδοσ").Contains(Key(2)));
    EXPECT_EQ(joined.CountMatches("teapot large"), 1u);
}

}  // namespace
