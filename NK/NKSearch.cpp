#include "NK/NKSearch.hpp"

#include <unicode/uchar.h>

#include <string_view>

namespace NK {

namespace {

constexpr char16_t FinalSigma = u'\u03C2';
constexpr char16_t Sigma = u'\u03C3';

// Appends the lower-case form of `text` to `out`. ASCII is mapped here directly, in one pass;
// anything else goes through the base library's full Unicode lower-casing, and the final sigma
// (which lower-casing produces only at the end of a word) is folded to sigma, so that a word
// typed in the middle of a search matches the same letters at the end of a name.
void AppendFolded(const UniString& text, std::u16string& out)
{
    const std::u16string& units = text.GetUtf16();
    const std::size_t start = out.size();
    out.resize(start + units.size());
    char16_t* target = out.data() + start;
    for (std::size_t i = 0; i < units.size(); ++i) {
        const char16_t c = units[i];
        if (c >= 0x80) {
            out.resize(start);
            const UniString lower = text.ToLowerCase();
            for (char16_t l : lower.GetUtf16())
                out += l == FinalSigma ? Sigma : l;
            return;
        }
        target[i] = static_cast<char16_t>(c - u'A') < 26u ? static_cast<char16_t>(c + (u'a' - u'A')) : c;
    }
}

bool IsWhiteSpace(char16_t c)
{
    if (c < 0x80)
        return c == u' ' || (c >= u'\t' && c <= u'\r');
    // White space lies in the basic plane, so a surrogate half is never white space.
    return u_isUWhiteSpace(static_cast<UChar32>(c));
}

std::vector<std::u16string> FoldedWords(const UniString& searchText)
{
    std::vector<std::u16string> words;
    const std::u16string& units = searchText.GetUtf16();
    std::size_t i = 0;
    while (i < units.size()) {
        while (i < units.size() && IsWhiteSpace(units[i]))
            ++i;
        std::size_t start = i;
        while (i < units.size() && !IsWhiteSpace(units[i]))
            ++i;
        if (i > start) {
            std::u16string word;
            AppendFolded(UniString(units.substr(start, i - start)), word);
            words.push_back(std::move(word));
        }
    }
    return words;
}

}  // namespace

void Search::Reserve(UIndex entryCount)
{
    entries.reserve(entryCount);
    // Room for names of a typical length, so that the text store rarely moves.
    folded.reserve(entryCount * 24);
}

void Search::AddEntry(const Guid& key, const UniString& text)
{
    const std::size_t offset = folded.size();
    AppendFolded(text, folded);
    entries.push_back({key, static_cast<UInt32>(offset), static_cast<UInt32>(folded.size() - offset)});
}

void Search::AddEntry(const Guid& key, const Array<UniString>& texts)
{
    const std::size_t offset = folded.size();
    for (UIndex i = 0; i < texts.GetSize(); ++i) {
        if (i > 0)
            folded += u' ';
        AppendFolded(texts[i], folded);
    }
    entries.push_back({key, static_cast<UInt32>(offset), static_cast<UInt32>(folded.size() - offset)});
}

void Search::Clear() noexcept
{
    entries.clear();
    folded.clear();
}

template <typename OnMatch>
void Search::ForEachMatch(const UniString& searchText, OnMatch&& onMatch) const
{
    const std::vector<std::u16string> words = FoldedWords(searchText);
    const std::u16string_view all(folded);
    for (const Entry& entry : entries) {
        const std::u16string_view text = all.substr(entry.offset, entry.length);
        bool matches = true;
        for (const std::u16string& word : words) {
            if (text.find(word) == std::u16string_view::npos) {
                matches = false;
                break;
            }
        }
        if (matches)
            onMatch(entry);
    }
}

SearchResult Search::Run(const UniString& searchText) const
{
    SearchResult result;
    ForEachMatch(searchText, [&result](const Entry& entry) { result.keys.Add(entry.key); });
    return result;
}

UIndex Search::CountMatches(const UniString& searchText) const
{
    HashSet<Guid> keys;
    UIndex count = 0;
    ForEachMatch(searchText, [&](const Entry& entry) {
        if (keys.Add(entry.key))
            ++count;
    });
    return count;
}

Array<UniString> Search::SplitIntoWords(const UniString& searchText)
{
    Array<UniString> result;
    for (std::u16string& word : FoldedWords(searchText))
        result.Push(UniString(std::move(word)));
    return result;
}

}  // namespace NK
