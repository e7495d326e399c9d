// The 16-bit string functions: the C library's wide functions on WCHAR
// text, the narrowing copy wcs2str, number parsing and ltoa.
#include "vorlwidestring.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

const WCHAR kEmpty[1] = {0};

const WCHAR *OrEmpty(const WCHAR *str)
{
    return str != nullptr ? str : kEmpty;
}

int Sign(int difference)
{
    return (difference > 0) - (difference < 0);
}

WCHAR FoldAsciiUpper(WCHAR unit)
{
    return (unit >= 'A' && unit <= 'Z') ? WCHAR(unit + 32) : unit;
}

// The text a number parser sees: the low bytes of the first units.
struct NarrowNumberText {
    char bytes[vorlan::kNumberTextUnits + 1];

    explicit NarrowNumberText(const WCHAR *str) { wcs2str(str, bytes, sizeof bytes); }

    // Sets *end to the wide position matching the parser's narrow one.
    void SetEnd(const WCHAR *str, const char *narrowEnd, unsigned short **end) const
    {
        if (end != nullptr)
            *end = const_cast<WCHAR *>(OrEmpty(str)) + (narrowEnd - bytes);
    }
};

void FormatBinary33(uint32_t bits, char *buffer)
{
    const int digits = 33;
    for (int i = 0; i < digits; ++i) {
        const int bit = digits - 1 - i;
        buffer[i] = (bit < 32 && ((bits >> bit) & 1u)) ? '1' : '0';
    }
    buffer[digits] = '\0';
}

} // namespace

size_t wcslen(const unsigned short *str)
{
    size_t length = 0;
    if (str != nullptr)
        while (str[length] != 0)
            ++length;
    return length;
}

int wcscmp(const unsigned short *a, const unsigned short *b)
{
    a = OrEmpty(a);
    b = OrEmpty(b);
    while (*a != 0 && *a == *b) {
        ++a;
        ++b;
    }
    return Sign(int(*a) - int(*b));
}

int wcsncmp(const unsigned short *a, const unsigned short *b, size_t count)
{
    a = OrEmpty(a);
    b = OrEmpty(b);
    for (size_t i = 0; i < count; ++i) {
        if (a[i] != b[i])
            return Sign(int(a[i]) - int(b[i]));
        if (a[i] == 0)
            break;
    }
    return 0;
}

unsigned short *wcschr(const unsigned short *str, unsigned short ch)
{
    if (str == nullptr || ch == 0)
        return nullptr;
    for (; *str != 0; ++str)
        if (*str == ch)
            return const_cast<unsigned short *>(str);
    return nullptr;
}

void wcscpy(unsigned short *dst, const unsigned short *src)
{
    if (dst == nullptr)
        return;
    src = OrEmpty(src);
    while ((*dst++ = *src++) != 0) {
    }
}

long wcstol(const unsigned short *str, unsigned short **end, int base)
{
    const NarrowNumberText text(str);
    char *narrowEnd = nullptr;
    const long value = std::strtol(text.bytes, &narrowEnd, base);
    text.SetEnd(str, narrowEnd, end);
    return value;
}

double wcstod(const unsigned short *str, unsigned short **end)
{
    const NarrowNumberText text(str);
    char *narrowEnd = nullptr;
    const double value = std::strtod(text.bytes, &narrowEnd);
    text.SetEnd(str, narrowEnd, end);
    return value;
}

char *wcs2str(const WCHAR *src, char *dst, int size)
{
    if (dst == nullptr || size <= 0)
        return dst;
    src = OrEmpty(src);
    int i = 0;
    for (; i < size - 1 && src[i] != 0; ++i)
        dst[i] = char(src[i] & 0xFF);
    dst[i] = '\0';
    return dst;
}

int _wtoi(const WCHAR *str)
{
    const NarrowNumberText text(str);
    return int(std::strtol(text.bytes, nullptr, 10));
}

char *ltoa(long value, char *buffer, int radix)
{
    if (buffer == nullptr)
        return nullptr;
    // A Win32 LONG is 32 bits wide whatever the platform's long is.
    const uint32_t bits = uint32_t(value);
    const int32_t signedValue = int32_t(bits);
    switch (radix) {
    case 2:
        FormatBinary33(bits, buffer);
        break;
    case 8:
        std::sprintf(buffer, "%o", unsigned(bits));
        break;
    case 16:
        std::sprintf(buffer, "%x", unsigned(bits));
        break;
    default:
        std::sprintf(buffer, "%d", int(signedValue));
        break;
    }
    return buffer;
}

int ascii_lstrcmpiW(const WCHAR *a, const WCHAR *b)
{
    a = OrEmpty(a);
    b = OrEmpty(b);
    for (;; ++a, ++b) {
        const WCHAR foldedA = FoldAsciiUpper(*a);
        const WCHAR foldedB = FoldAsciiUpper(*b);
        if (foldedA != foldedB || *a == 0)
            return int(foldedA) - int(foldedB);
    }
}
