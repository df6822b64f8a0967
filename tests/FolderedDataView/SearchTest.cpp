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
        search.AddEntry(Key(1), "Floor Plan Level 1");
        search.AddEntry(Key(2), "Section A-A");
        search.AddEntry(Key(3), "Detail: Wall Connection");
        search.AddEntry(Key(4), "");
        search.AddEntry(Key(5), "ÜBERSICHT Straße");
        search.AddEntry(Key(6), "ΟΔΟΣ plan");
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
    EXPECT_EQ(Found("plan"), "1 6");
    EXPECT_EQ(Found("PLAN level"), "1");
    EXPECT_EQ(Found("lan evel"), "1") << "words are found inside words";
    EXPECT_EQ(Found("plan section"), "");
    EXPECT_EQ(Found("a-a"), "2");
    EXPECT_EQ(Found("wall:"), "") << "punctuation is part of the text";
    EXPECT_EQ(Found("detail:"), "3");
}

TEST_F(SearchTest, WhiteSpaceOnlySeparatesWords)
{
    EXPECT_EQ(Found("  floor\t\tplan \n"), "1");
    EXPECT_EQ(Found("floor\u3000plan"), "1") << "ideographic space separates words too";
    EXPECT_EQ(Found("floorplan"), "") << "without the space it is one word";
    EXPECT_EQ(Found(""), "1 2 3 4 5 6") << "no words: every entry";
    EXPECT_EQ(Found(" \t "), "1 2 3 4 5 6");
}

TEST_F(SearchTest, FoldsCaseBeyondAscii)
{
    EXPECT_EQ(Found("übersicht"), "5");
    EXPECT_EQ(Found("STRASSE"), "") << "lower-casing only; no case folding of ß";
    EXPECT_EQ(Found("STRAẞE"), "5") << "capital sharp s lower-cases to ß";
    EXPECT_EQ(Found("οδοσ"), "6") << "a final sigma matches a sigma";
    EXPECT_EQ(Found("Οδος plan"), "6");
}

TEST_F(SearchTest, KeysAreFoundOnceEachWhateverTheirEntries)
{
    search.AddEntry(Key(1), "Another plan text of entry one");
    search.AddEntry(Key(7), "no plan");
    EXPECT_EQ(Found("plan"), "1 6 7");
    EXPECT_EQ(search.GetEntryCount(), 8u);

    search.Clear();
    EXPECT_EQ(search.GetEntryCount(), 0u);
    EXPECT_TRUE(search.Run("").IsEmpty());
}

TEST_F(SearchTest, AnEntryOfSeveralTextsIsTheirSpaceJoinedText)
{
    NK::Search joined;
    joined.AddEntry(Key(1), NK::Array<NK::UniString> {"Window", "DOUBLE hung"});
    joined.AddEntry(Key(2), NK::Array<NK::UniString> {"Ε", "ΟΔΟΣ"});
    EXPECT_TRUE(joined.Run("w d").Contains(Key(1))) << "the joining space separates like any other";
    EXPECT_FALSE(joined.Run("windowdouble").Contains(Key(1)));
    EXPECT_TRUE(joined.Run("ε οδοσ").Contains(Key(2)));
    EXPECT_EQ(joined.CountMatches("window double"), 1u);
}

TEST_F(SearchTest, SplitsASearchTextIntoLowerCaseWords)
{
    auto words = NK::Search::SplitIntoWords("  Wall \u00A0ΟΔΟΣ  ");
    ASSERT_EQ(words.GetSize(), 2u);
    EXPECT_EQ(words[0], NK::UniString("wall"));
    EXPECT_EQ(words[1], NK::UniString("οδοσ"));
    EXPECT_TRUE(NK::Search::SplitIntoWords(" ").IsEmpty());
}

}  // namespace
