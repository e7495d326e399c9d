// CharLower/CharUpper, CharNext/CharPrev and IsCharAlpha*.  The "A" forms
// work in the process ANSI page; case mapping is ICU's simple (one to one)
// mapping, which keeps every string its length as Windows does.
#include <windows.h>

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <cstring>

#include "ansi_chars.h"

namespace {

using CaseMapping = UChar32 (*)(UChar32);

// Win32 passes a single character instead of a string when the high word
// of the pointer is zero.
bool IsCharacterValue(const void *pointer)
{
    return ((uintptr_t)pointer >> 16) == 0;
}

WCHAR MapWideChar(WCHAR unit, CaseMapping mapping)
{
    if (U16_IS_SURROGATE(unit))
        return unit;
    UChar32 mapped = mapping(unit);
    return mapped <= 0xFFFF ? (WCHAR)mapped : unit;
}

void MapWideString(LPWSTR text, CaseMapping mapping)
{
    size_t i = 0;
    while (text[i]) {
        if (U16_IS_LEAD(text[i]) && U16_IS_TRAIL(text[i + 1])) {
            UChar32 mapped = mapping(U16_GET_SUPPLEMENTARY(text[i], text[i + 1]));
            if (mapped > 0xFFFF) {
                text[i] = (WCHAR)U16_LEAD(mapped);
                text[i + 1] = (WCHAR)U16_TRAIL(mapped);
            }
            i += 2;
            continue;
        }
        text[i] = MapWideChar(text[i], mapping);
        ++i;
    }
}

LPWSTR CaseMapWide(LPWSTR text, CaseMapping mapping)
{
    if (IsCharacterValue(text))
        return (LPWSTR)(uintptr_t)MapWideChar((WCHAR)(uintptr_t)text, mapping);
    MapWideString(text, mapping);
    return text;
}

// A character of several bytes (double-byte or UTF-8 page): mapped through
// UTF-16 and written back only when its new form has the same length.
void MapMultiByteChar(char *text, size_t length, CaseMapping mapping)
{
    WCHAR units[8];
    int count = MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, text, (int)length, units, 7);
    if (count <= 0)
        return;
    units[count] = 0;
    MapWideString(units, mapping);
    char mapped[8];
    int bytes = WideCharToMultiByte(CP_ACP, 0, units, count, mapped, sizeof mapped, nullptr, nullptr);
    if (bytes == (int)length)
        std::memcpy(text, mapped, length);
}

void MapAnsiString(LPSTR text, const unsigned char *table, CaseMapping mapping)
{
    const brano::AnsiByteTables &tables = brano::AnsiTables();
    size_t remaining = std::strlen(text);
    while (remaining) {
        unsigned char byte = (unsigned char)*text;
        size_t length = (byte < 0x80 || tables.singleByte) ? 1 : brano::AnsiCharLength(text, remaining);
        if (length == 1)
            *text = (char)table[byte];
        else
            MapMultiByteChar(text, length, mapping);
        text += length;
        remaining -= length;
    }
}

LPSTR CaseMapAnsi(LPSTR text, bool toLower)
{
    const brano::AnsiByteTables &tables = brano::AnsiTables();
    const unsigned char *table = toLower ? tables.lower : tables.upper;
    CaseMapping mapping = toLower ? u_tolower : u_toupper;
    if (IsCharacterValue(text))
        return (LPSTR)(uintptr_t)table[(unsigned char)(uintptr_t)text];
    MapAnsiString(text, table, mapping);
    return text;
}

bool IsCombiningMark(UChar32 codePoint)
{
    int8_t type = u_charType(codePoint);
    return type == U_NON_SPACING_MARK || type == U_ENCLOSING_MARK;
}

// Steps over one code point (a surrogate pair counts as one).
const WCHAR *StepOverCodePoint(const WCHAR *text)
{
    if (U16_IS_LEAD(text[0]) && U16_IS_TRAIL(text[1]))
        return text + 2;
    return text + 1;
}

UChar32 CodePointAt(const WCHAR *text)
{
    if (U16_IS_LEAD(text[0]) && U16_IS_TRAIL(text[1]))
        return U16_GET_SUPPLEMENTARY(text[0], text[1]);
    return text[0];
}

// The start of the code point that ends just before `position`.
const WCHAR *CodePointBefore(const WCHAR *start, const WCHAR *position)
{
    const WCHAR *previous = position - 1;
    if (previous > start && U16_IS_TRAIL(previous[0]) && U16_IS_LEAD(previous[-1]))
        --previous;
    return previous;
}

bool IsAnsiCharAlpha(CHAR ch, UBool (*test)(UChar32))
{
    WCHAR unit = brano::AnsiTables().unicode[(unsigned char)ch];
    return unit && test(unit);
}

} // namespace

LPSTR WINAPI CharLowerA(LPSTR lpsz)
{
    return CaseMapAnsi(lpsz, true);
}

LPSTR WINAPI CharUpperA(LPSTR lpsz)
{
    return CaseMapAnsi(lpsz, false);
}

LPWSTR WINAPI CharLowerW(LPWSTR lpsz)
{
    return CaseMapWide(lpsz, u_tolower);
}

LPWSTR WINAPI CharUpperW(LPWSTR lpsz)
{
    return CaseMapWide(lpsz, u_toupper);
}

LPSTR WINAPI CharNextA(LPCSTR lpsz)
{
    if (!lpsz || !*lpsz)
        return (LPSTR)lpsz;
    return (LPSTR)(lpsz + brano::AnsiCharLength(lpsz, 4));
}

// A base character and the combining marks after it move as one character.
LPWSTR WINAPI CharNextW(LPCWSTR lpsz)
{
    if (!lpsz || !*lpsz)
        return (LPWSTR)lpsz;
    const WCHAR *next = StepOverCodePoint(lpsz);
    while (*next && IsCombiningMark(CodePointAt(next)))
        next = StepOverCodePoint(next);
    return (LPWSTR)next;
}

LPSTR WINAPI CharPrevA(LPCSTR lpszStart, LPCSTR lpszCurrent)
{
    if (!lpszStart || !lpszCurrent || lpszCurrent <= lpszStart)
        return (LPSTR)lpszStart;
    // Character boundaries in a double-byte page are only known from the
    // start of the string.
    const char *character = lpszStart;
    for (;;) {
        size_t available = (size_t)(lpszCurrent - character);
        const char *next = character + brano::AnsiCharLength(character, available);
        if (next >= lpszCurrent)
            return (LPSTR)character;
        character = next;
    }
}

LPWSTR WINAPI CharPrevW(LPCWSTR lpszStart, LPCWSTR lpszCurrent)
{
    if (!lpszStart || !lpszCurrent || lpszCurrent <= lpszStart)
        return (LPWSTR)lpszStart;
    const WCHAR *previous = CodePointBefore(lpszStart, lpszCurrent);
    while (previous > lpszStart && IsCombiningMark(CodePointAt(previous)))
        previous = CodePointBefore(lpszStart, previous);
    return (LPWSTR)previous;
}

BOOL WINAPI IsCharAlphaA(CHAR ch)
{
    return IsAnsiCharAlpha(ch, u_isalpha) ? TRUE : FALSE;
}

BOOL WINAPI IsCharAlphaNumericA(CHAR ch)
{
    return IsAnsiCharAlpha(ch, u_isalnum) ? TRUE : FALSE;
}

BOOL WINAPI IsCharAlphaW(WCHAR ch)
{
    return u_isalpha(ch) ? TRUE : FALSE;
}

BOOL WINAPI IsCharAlphaNumericW(WCHAR ch)
{
    return u_isalnum(ch) ? TRUE : FALSE;
}
