// NK::Search: the application's text search over keyed entries. A search holds entries (a key
// Guid and a text); running it with a search text yields the keys of the entries that match.
//
// Matching rule (what a user typing into a search field expects):
// - the search text is split into words at white space (Unicode White_Space); empty pieces are
//   dropped, so "  soup   lentil " is the two words "soup" and "lentil";
// - an entry matches when every word occurs somewhere in its text, in any order, each word as
//   a plain substring ("soup" finds "Lentil Soups");
// - case is ignored: both sides are compared in full Unicode lower case (final sigma folded to
//   sigma), with no accent or width folding;
// - a search text without words (empty or only white space) matches every entry.
// Several entries may share a key; the key matches when any of them does.
//
// Entries are lower-cased once, when added; a run only scans them, so a search over 100k
// entries costs a few milliseconds and can be repeated with other texts.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKGuid.hpp"
#include "NK/NKHashTable.hpp"
#include "NK/NKTypes.hpp"
#include "NK/NKUniString.hpp"

#include <string>
#include <vector>

namespace NK {

// The keys that a run found, in the order their entries were added, each once.
class SearchResult {
public:
    const HashSet<Guid>& GetMatchingKeys() const noexcept { return keys; }
    UIndex GetMatchCount() const noexcept { return keys.GetSize(); }
    bool IsEmpty() const noexcept { return keys.IsEmpty(); }
    bool Contains(const Guid& key) const { return keys.Contains(key); }

private:
    friend class Search;
    HashSet<Guid> keys;
};

class Search {
public:
    Search() = default;

    // Room for `entryCount` entries, so that adding them does not reallocate.
    void Reserve(UIndex entryCount);
    void AddEntry(const Guid& key, const UniString& text);
    // One entry whose text is the texts joined by single spaces.
    void AddEntry(const Guid& key, const Array<UniString>& texts);
    UIndex GetEntryCount() const noexcept { return entries.size(); }
    void Clear() noexcept;

    SearchResult Run(const UniString& searchText) const;
    // The number of distinct keys that Run would find.
    UIndex CountMatches(const UniString& searchText) const;

    // The words that a search text stands for, lower-cased as entries are: the matching rule's
    // own split, for callers that show or highlight what is searched.
    static Array<UniString> SplitIntoWords(const UniString& searchText);

private:
    struct Entry {
        Guid key;
        UInt32 offset;  // into folded
        UInt32 length;
    };

    template <typename OnMatch>
    void ForEachMatch(const UniString& searchText, OnMatch&& onMatch) const;

    std::vector<Entry> entries;
    std::u16string folded;  // every entry's lower-cased text, one after another
};

}  // namespace NK
