// NK::UniString: UTF-16 text. Built from UTF-8 or UTF-16; compares by code units; lower-cases
// through ICU's full Unicode mapping (no accent or width folding). GenerateHashValue is stable
// across runs and machines, since it is written into data files.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKTypes.hpp"

#include <compare>
#include <iosfwd>
#include <string>
#include <string_view>

namespace NK {

class UniString {
public:
    UniString() = default;
    UniString(const char* utf8);
    UniString(const std::string& utf8);
    UniString(const char16_t* utf16);
    UniString(std::u16string utf16) : text(std::move(utf16)) {}
    static UniString FromUtf8(std::string_view utf8);

    std::string ToUtf8() const;
    const std::u16string& GetUtf16() const noexcept { return text; }
    UIndex GetLength() const noexcept { return text.size(); }
    bool IsEmpty() const noexcept { return text.empty(); }
    char16_t operator[](UIndex index) const { return text.at(index); }

    UniString operator+(const UniString& other) const { return UniString(text + other.text); }
    UniString& operator+=(const UniString& other) { text += other.text; return *this; }
    UniString& Append(const UniString& other) { text += other.text; return *this; }

    bool operator==(const UniString& other) const noexcept = default;
    // Code-unit order: the base library's string less-than.
    bool operator<(const UniString& other) const noexcept { return text < other.text; }

    UniString ToLowerCase() const;
    UniString ToUpperCase() const;
    // Pieces between separators; empty pieces are kept ("a,,b" gives "a", "", "b").
    Array<UniString> Split(const UniString& separator) const;
    bool Contains(const UniString& sub) const { return text.find(sub.text) != std::u16string::npos; }
    bool BeginsWith(const UniString& prefix) const { return text.starts_with(prefix.text); }
    bool EndsWith(const UniString& suffix) const { return text.ends_with(suffix.text); }
    UIndex FindFirst(const UniString& sub, UIndex from = 0) const;
    UniString GetSubstring(UIndex from, UIndex count = MaxUIndex) const;
    UniString Trimmed() const;
    // Removes every occurrence of the character.
    UniString Without(char16_t c) const;
    // Every occurrence of `what` replaced by `with`.
    UniString ReplaceAll(const UniString& what, const UniString& with) const;

    UInt32 GenerateHashValue() const noexcept;

    static UniString FromInt(Int64 value);
    // The number the whole text spells (optional sign, decimal digits, surrounding blanks allowed).
    bool ToInt(Int64& value) const;

private:
    std::u16string text;
};

enum class CaseComparison { CaseSensitive = 0, CaseInsensitive = 1 };

// Natural order: digit runs compare by value ("file2" < "file10"). Through ICU collation with
// numeric ordering; caseComparison 1 ignores case differences.
bool NaturalIsLess(const UniString& a, const UniString& b, int caseComparison = 1);
int NaturalCompare(const UniString& a, const UniString& b, int caseComparison = 1);
// The collation key of NaturalCompare: comparing two keys byte by byte gives the order of
// NaturalCompare of their texts. Sorting many texts by keys made once costs less than
// collating every pair.
std::string NaturalSortKey(const UniString& text, int caseComparison = 1);

// Prints the text as UTF-8 (diagnostics and test output).
std::ostream& operator<<(std::ostream& out, const UniString& text);

}  // namespace NK

template <>
struct std::hash<NK::UniString> {
    std::size_t operator()(const NK::UniString& s) const noexcept { return s.GenerateHashValue(); }
};
