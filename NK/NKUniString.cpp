#include "NK/NKUniString.hpp"

#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>
#include <unicode/ustring.h>

#include <memory>
#include <ostream>
#include <mutex>

namespace NK {

namespace {

std::u16string Utf8ToUtf16(std::string_view utf8)
{
    icu::UnicodeString u = icu::UnicodeString::fromUTF8(icu::StringPiece(utf8.data(), static_cast<int32_t>(utf8.size())));
    return std::u16string(reinterpret_cast<const char16_t*>(u.getBuffer()), static_cast<std::size_t>(u.length()));
}

icu::UnicodeString AsIcu(const std::u16string& text)
{
    return icu::UnicodeString(text.data(), static_cast<int32_t>(text.size()));
}

std::u16string FromIcu(const icu::UnicodeString& u)
{
    return std::u16string(reinterpret_cast<const char16_t*>(u.getBuffer()), static_cast<std::size_t>(u.length()));
}

// One collator per case mode, made once; ICU collators are safe to use from one thread at a time,
// and the library runs on the user-interface thread.
icu::Collator* NaturalCollator(bool caseInsensitive)
{
    static std::once_flag once;
    static std::unique_ptr<icu::Collator> collators[2];
    std::call_once(once, [] {
        for (int i = 0; i < 2; ++i) {
            UErrorCode status = U_ZERO_ERROR;
            collators[i].reset(icu::Collator::createInstance(icu::Locale::getRoot(), status));
            if (U_FAILURE(status) || !collators[i])
                continue;
            collators[i]->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
            collators[i]->setAttribute(UCOL_STRENGTH, i == 1 ? UCOL_SECONDARY : UCOL_TERTIARY, status);
        }
    });
    return collators[caseInsensitive ? 1 : 0].get();
}

}  // namespace

UniString::UniString(const char* utf8) : text(utf8 ? Utf8ToUtf16(utf8) : std::u16string()) {}
UniString::UniString(const std::string& utf8) : text(Utf8ToUtf16(utf8)) {}
UniString::UniString(const char16_t* utf16) : text(utf16 ? utf16 : u"") {}

UniString UniString::FromUtf8(std::string_view utf8)
{
    return UniString(Utf8ToUtf16(utf8));
}

std::string UniString::ToUtf8() const
{
    std::string out;
    AsIcu(text).toUTF8String(out);
    return out;
}

UniString UniString::ToLowerCase() const
{
    icu::UnicodeString u = AsIcu(text);
    u.toLower(icu::Locale::getRoot());
    return UniString(FromIcu(u));
}

UniString UniString::ToUpperCase() const
{
    icu::UnicodeString u = AsIcu(text);
    u.toUpper(icu::Locale::getRoot());
    return UniString(FromIcu(u));
}

Array<UniString> UniString::Split(const UniString& separator) const
{
    Array<UniString> pieces;
    if (separator.IsEmpty()) {
        pieces.Push(*this);
        return pieces;
    }
    std::size_t start = 0;
    while (true) {
        std::size_t pos = text.find(separator.text, start);
        if (pos == std::u16string::npos) {
            pieces.Push(UniString(text.substr(start)));
            break;
        }
        pieces.Push(UniString(text.substr(start, pos - start)));
        start = pos + separator.text.size();
    }
    return pieces;
}

UIndex UniString::FindFirst(const UniString& sub, UIndex from) const
{
    std::size_t pos = text.find(sub.text, from);
    return pos == std::u16string::npos ? MaxUIndex : pos;
}

UniString UniString::GetSubstring(UIndex from, UIndex count) const
{
    if (from >= text.size())
        return UniString();
    return UniString(text.substr(from, count));
}

UniString UniString::Trimmed() const
{
    auto isBlank = [](char16_t c) { return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r'; };
    std::size_t b = 0, e = text.size();
    while (b < e && isBlank(text[b]))
        ++b;
    while (e > b && isBlank(text[e - 1]))
        --e;
    return UniString(text.substr(b, e - b));
}

UniString UniString::Without(char16_t c) const
{
    std::u16string out;
    out.reserve(text.size());
    for (char16_t u : text)
        if (u != c)
            out += u;
    return UniString(std::move(out));
}

UniString UniString::ReplaceAll(const UniString& what, const UniString& with) const
{
    if (what.IsEmpty())
        return *this;
    std::u16string out;
    std::size_t start = 0;
    while (true) {
        std::size_t pos = text.find(what.text, start);
        if (pos == std::u16string::npos)
            break;
        out.append(text, start, pos - start);
        out += with.text;
        start = pos + what.text.size();
    }
    out.append(text, start, std::u16string::npos);
    return UniString(std::move(out));
}

UInt32 UniString::GenerateHashValue() const noexcept
{
    // FNV-1a over the code units: fixed, independent of platform and run.
    UInt32 hash = 2166136261u;
    for (char16_t c : text) {
        hash ^= static_cast<UInt32>(c & 0xFF);
        hash *= 16777619u;
        hash ^= static_cast<UInt32>(c >> 8);
        hash *= 16777619u;
    }
    return hash;
}

UniString UniString::FromInt(Int64 value)
{
    return UniString(std::to_string(value));
}

bool UniString::ToInt(Int64& value) const
{
    UniString t = Trimmed();
    const std::u16string& s = t.text;
    if (s.empty())
        return false;
    std::size_t i = 0;
    bool negative = false;
    if (s[0] == u'-' || s[0] == u'+') {
        negative = s[0] == u'-';
        i = 1;
    }
    if (i == s.size())
        return false;
    Int64 result = 0;
    for (; i < s.size(); ++i) {
        if (s[i] < u'0' || s[i] > u'9')
            return false;
        if (result > (std::numeric_limits<Int64>::max() - 9) / 10)
            return false;
        result = result * 10 + (s[i] - u'0');
    }
    value = negative ? -result : result;
    return true;
}

int NaturalCompare(const UniString& a, const UniString& b, int caseComparison)
{
    icu::Collator* collator = NaturalCollator(caseComparison == 1);
    if (collator == nullptr)
        return a < b ? -1 : (b < a ? 1 : 0);
    UErrorCode status = U_ZERO_ERROR;
    const std::u16string& ua = a.GetUtf16();
    const std::u16string& ub = b.GetUtf16();
    UCollationResult r = collator->compare(reinterpret_cast<const UChar*>(ua.data()), static_cast<int32_t>(ua.size()),
                                           reinterpret_cast<const UChar*>(ub.data()), static_cast<int32_t>(ub.size()), status);
    if (U_FAILURE(status))
        return a < b ? -1 : (b < a ? 1 : 0);
    return r == UCOL_LESS ? -1 : (r == UCOL_GREATER ? 1 : 0);
}

std::string NaturalSortKey(const UniString& text, int caseComparison)
{
    const std::u16string& units = text.GetUtf16();
    icu::Collator* collator = NaturalCollator(caseComparison == 1);
    if (collator == nullptr) {
        // Without a collator NaturalCompare falls back to code-unit order; big-endian units
        // compare the same way byte by byte.
        std::string key;
        key.reserve(units.size() * 2);
        for (char16_t c : units) {
            key += static_cast<char>(c >> 8);
            key += static_cast<char>(c & 0xFF);
        }
        return key;
    }
    const auto* chars = reinterpret_cast<const UChar*>(units.data());
    const auto length = static_cast<int32_t>(units.size());
    std::string key(units.size() * 2 + 16, '\0');
    int32_t needed = collator->getSortKey(chars, length, reinterpret_cast<uint8_t*>(key.data()), static_cast<int32_t>(key.size()));
    if (needed > static_cast<int32_t>(key.size())) {
        key.resize(static_cast<std::size_t>(needed));
        needed = collator->getSortKey(chars, length, reinterpret_cast<uint8_t*>(key.data()), needed);
    }
    // The key ends with a zero byte, which is not part of the comparison.
    key.resize(needed > 0 ? static_cast<std::size_t>(needed - 1) : 0);
    return key;
}

bool NaturalIsLess(const UniString& a, const UniString& b, int caseComparison)
{
    return NaturalCompare(a, b, caseComparison) < 0;
}

std::ostream& operator<<(std::ostream& out, const UniString& text)
{
    return out << text.ToUtf8();
}

}  // namespace NK
