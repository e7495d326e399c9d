// The C-linkage names of the 16-bit string functions.
//
// They carry the C library's names (wcslen, wcscmp, ...), so they are
// exported only under the symbol version VORLAN_WCHAR16 (see vorlan.map),
// never as the default version.  The static linker therefore never binds
// a plain reference to them: the C library, GLib, GTK and every module
// built with a 4-byte wchar_t keep the C library's functions, while a
// module built with -fshort-wchar asks for this version through
// <vorlwchar.h> and gets the 16-bit ones.  The local names below are
// hidden from the dynamic symbol table by the version script.
#include "vorlwidestring.h"

#define VORLAN_WCHAR16_NAME(name) \
    extern "C" __attribute__((visibility("default"), symver(name "@VORLAN_WCHAR16")))

VORLAN_WCHAR16_NAME("wcslen") size_t vorlan_wchar16_wcslen(const WCHAR *str)
{
    return wcslen(str);
}

VORLAN_WCHAR16_NAME("wcscmp") int vorlan_wchar16_wcscmp(const WCHAR *a, const WCHAR *b)
{
    return wcscmp(a, b);
}

VORLAN_WCHAR16_NAME("wcsncmp") int vorlan_wchar16_wcsncmp(const WCHAR *a, const WCHAR *b, size_t count)
{
    return wcsncmp(a, b, count);
}

VORLAN_WCHAR16_NAME("wcschr") WCHAR *vorlan_wchar16_wcschr(const WCHAR *str, WCHAR ch)
{
    return wcschr(str, ch);
}

// Returns the destination, as the C function does.
VORLAN_WCHAR16_NAME("wcscpy") WCHAR *vorlan_wchar16_wcscpy(WCHAR *dst, const WCHAR *src)
{
    wcscpy(dst, src);
    return dst;
}

VORLAN_WCHAR16_NAME("wcstol") long vorlan_wchar16_wcstol(const WCHAR *str, WCHAR **end, int base)
{
    return wcstol(str, end, base);
}

VORLAN_WCHAR16_NAME("wcstod") double vorlan_wchar16_wcstod(const WCHAR *str, WCHAR **end)
{
    return wcstod(str, end);
}
