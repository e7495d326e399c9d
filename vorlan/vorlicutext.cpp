// WCSToMBS, MBSToWCS and CompareUnicodeString over ICU.
#include "vorlicutext.h"

#include <unicode/ucnv.h>
#include <unicode/ustring.h>

#include <algorithm>

namespace {

constexpr DWORD kTextConversionFailed = 1359;
constexpr DWORD kBadArgument = 87;

const UChar kEmptyUnits[1] = {0};

const UChar *AsUChars(const WCHAR *str)
{
    static_assert(sizeof(UChar) == sizeof(WCHAR), "UTF-16 units");
    return str != nullptr ? reinterpret_cast<const UChar *>(str) : kEmptyUnits;
}

int UnitCount(const UChar *str, int len)
{
    return len < 0 ? u_strlen(str) : len;
}

// The host's converter of the process code page, released with the scope.
class AnsiConverter {
public:
    AnsiConverter() : m_converter(static_cast<UConverter *>(GetIcuConverter(0))) {}
    ~AnsiConverter()
    {
        if (m_converter != nullptr)
            ReleaseIcuConverter(m_converter);
    }
    AnsiConverter(const AnsiConverter &) = delete;
    AnsiConverter &operator=(const AnsiConverter &) = delete;

    UConverter *get() const { return m_converter; }

private:
    UConverter *m_converter;
};

// The byte count of the whole text, as ucnv_fromUChars reports it for a
// null target.
int MeasureAnsi(UConverter *converter, const UChar *src, int units)
{
    UErrorCode status = U_ZERO_ERROR;
    const int32_t bytes = ucnv_fromUChars(converter, nullptr, 0, src, units, &status);
    return (U_SUCCESS(status) || status == U_BUFFER_OVERFLOW_ERROR) ? int(bytes) : 0;
}

// Converts as much as fits in dstSize - 1 bytes and terminates behind it.
int ConvertAnsi(UConverter *converter, const UChar *src, int units, char *dst, int dstSize)
{
    ucnv_resetFromUnicode(converter);
    char *target = dst;
    const UChar *source = src;
    UErrorCode status = U_ZERO_ERROR;
    ucnv_fromUnicode(converter, &target, dst + dstSize - 1, &source, src + units, nullptr, TRUE, &status);
    *target = '\0';
    return int(target - dst);
}

} // namespace

int WCSToMBS(const WCHAR *src, int srcLen, char *dst, int dstSize)
{
    if (dstSize < 0 || (dstSize > 0 && dst == nullptr)) {
        SetLastError(kBadArgument);
        return 0;
    }
    const int units = src == nullptr ? 0 : srcLen == -1 ? lstrlenW(src) : srcLen;
    if (units < 0) {
        SetLastError(kBadArgument);
        return 0;
    }
    AnsiConverter converter;
    if (converter.get() == nullptr) {
        SetLastError(kTextConversionFailed);
        return 0;
    }
    if (dstSize == 0)
        return MeasureAnsi(converter.get(), AsUChars(src), units);
    return ConvertAnsi(converter.get(), AsUChars(src), units, dst, dstSize);
}

int MBSToWCS(const char *, int, WCHAR *, int)
{
    return 0;
}

int CompareUnicodeString(DWORD flags, const WCHAR *a, int aLen, const WCHAR *b, int bLen)
{
    const UChar *first = AsUChars(a);
    const UChar *second = AsUChars(b);
    const int32_t count = std::min(UnitCount(first, aLen), UnitCount(second, bLen));
    if (flags & kCompareUnicodeIgnoreCase)
        return u_strncasecmp(first, second, count, 0);
    return u_strncmp(first, second, count);
}
