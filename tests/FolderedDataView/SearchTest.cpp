#include "NK/NKSearch.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

NK::Guid Key(NK::UInt64 n)
{
    return NK::Guid::FromNumber(0x5EA, n);
}

TEST(SearchTest, EveryWordMustOccurSomewhereIgnoringCase)
{
    NK::Search search;
    for (const char* text : {"Bread Recipe Page 1", "Batch A-A", "Note: Oven Temperature", "", "ÜBERSICHT Straße", "ΟΔΟΣ recipe"})
        search.AddEntry(Key(search.GetEntryCount() + 1), text);
    search.AddEntry(Key(1), "another recipe text of entry one");  // a key with two entries is found once
    const std::pair<const char*, const char*> cases[] = {
        {"recipe", "1 6"},
        {"RECIPE page", "1"},
        {"ecipe age", "1"},  // words are found inside words
        {"recipe batch", ""},
        {"oven:", ""},  // punctuation is part of the text
        {"note:", "3"},
        {"  bread\t\trecipe \n", "1"},
        {"bread\u3000recipe", "1"},  // an ideographic space separates words too
        {"breadrecipe", ""},
        {" \t ", "1 2 3 4 5 6"},  // no words: every entry
        {"übersicht", "5"},
        {"STRASSE", ""},  // lower-casing only; no case folding of ß
        {"STRAẞE", "5"},
        {"οδοσ", "6"},
        {"Οδος recipe", "6"},  // a final sigma matches a sigma
    };
    for (const auto& [text, expected] : cases) {
        std::string found;
        const NK::SearchResult result = search.Run(text);
        for (const NK::Guid& key : result.GetMatchingKeys())
            found += (found.empty() ? "" : " ") + std::to_string(key.GetLow());
        EXPECT_EQ(found, expected) << text;
        EXPECT_EQ(search.CountMatches(text), result.GetMatchCount()) << text;
    }
    search.Clear();
    EXPECT_TRUE(search.Run("").IsEmpty());
}

TEST(SearchTest, AnEntryOfSeveralTextsIsTheirSpaceJoinedText)
{
    NK::Search joined;
    joined.AddEntry(Key(1), NK::Array<NK::UniString> {"Teapot", "LARGE blue"});
    EXPECT_TRUE(joined.Run("t l").Contains(Key(1)));
    EXPECT_FALSE(joined.Run("teapotlarge").Contains(Key(1)));
    EXPECT_EQ(joined.CountMatches("teapot large"), 1u);
}

}  // namespace
