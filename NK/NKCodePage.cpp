#include "NK/NKCodePage.hpp"

#include <unicode/ucnv.h>

#include <memory>
#include <new>

namespace NK {

namespace {

struct ConverterCloser {
    void operator()(UConverter* converter) const noexcept { ucnv_close(converter); }
};
using ConverterPtr = std::unique_ptr<UConverter, ConverterCloser>;

// One converter per thread: ICU converters keep state and must not be shared between threads.
UConverter& Converter()
{
    thread_local ConverterPtr converter = [] {
        UErrorCode error = U_ZERO_ERROR;
        ConverterPtr result(ucnv_open("windows-1252", &error));
        if (U_FAILURE(error) || result == nullptr)
            throw std::bad_alloc();
        error = U_ZERO_ERROR;
        ucnv_setSubstChars(result.get(), "?", 1, &error);
        return result;
    }();
    return *converter;
}

}  // namespace

UniString DecodeDefaultCodePage(std::string_view bytes)
{
    if (bytes.empty())
        return {};
    UConverter& converter = Converter();
    ucnv_resetToUnicode(&converter);
    // A single-byte code page gives at most one UTF-16 unit per byte.
    std::u16string text(bytes.size(), u'\0');
    UErrorCode error = U_ZERO_ERROR;
    const int32_t length = ucnv_toUChars(&converter, reinterpret_cast<UChar*>(text.data()), static_cast<int32_t>(text.size()),
                                         bytes.data(), static_cast<int32_t>(bytes.size()), &error);
    text.resize(U_FAILURE(error) ? 0 : static_cast<UIndex>(length));
    return UniString(std::move(text));
}

std::string EncodeDefaultCodePage(const UniString& text)
{
    const std::u16string& units = text.GetUtf16();
    if (units.empty())
        return {};
    UConverter& converter = Converter();
    ucnv_resetFromUnicode(&converter);
    // At most one byte per UTF-16 unit: a character outside the code page becomes one '?'.
    std::string bytes(units.size(), '\0');
    UErrorCode error = U_ZERO_ERROR;
    const int32_t length = ucnv_fromUChars(&converter, bytes.data(), static_cast<int32_t>(bytes.size()),
                                           reinterpret_cast<const UChar*>(units.data()), static_cast<int32_t>(units.size()), &error);
    bytes.resize(U_FAILURE(error) ? 0 : static_cast<UIndex>(length));
    return bytes;
}

UIndex CountUnmappable(const UniString& text)
{
    // A character is unmappable when it alone encodes to the substitute although it is not '?'.
    const std::u16string& units = text.GetUtf16();
    UIndex count = 0;
    for (UIndex i = 0; i < units.size();) {
        const bool pair = i + 1 < units.size() && units[i] >= 0xD800 && units[i] <= 0xDBFF && units[i + 1] >= 0xDC00 && units[i + 1] <= 0xDFFF;
        const UIndex width = pair ? 2 : 1;
        if (units[i] != u'?' && EncodeDefaultCodePage(UniString(units.substr(i, width))) == "?")
            ++count;
        i += width;
    }
    return count;
}

}  // namespace NK
