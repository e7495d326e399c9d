/* A program built with -fshort-wchar (as C, and as C++ through
 * vorlan_wchar16_probe_cxx.cpp) that calls the wide string functions under
 * their C names on L"..." literals, as a ported application does, and
 * prints what they return as key=value lines.  It also calls into GLib and
 * GTK, whose own wide calls must still reach the C library. */
#include <windows.h>
#include <vorlwchar.h>

#include <glib.h>
#include <gtk/gtk.h>

#include <stdio.h>
#include <string.h>
#include <wchar.h>

#if !defined(__SIZEOF_WCHAR_T__) || __SIZEOF_WCHAR_T__ != 2
#error "the probe must be built with -fshort-wchar"
#endif

int main(void)
{
    static const wchar_t text[] = L"h\u00e9llo w\u00f6rld";
    static const wchar_t number[] = L"  77abc";
    wchar_t copy[32];
    wchar_t *end = NULL;
    char narrow[8];
    char digits[40];
    const wchar_t *found;

    printf("wchar_size=%d\n", (int)sizeof(wchar_t));
    printf("wcslen=%d\n", (int)wcslen(text));
    printf("wcscmp_less=%d\n", wcscmp(L"abc", L"abd"));
    printf("wcscmp_high=%d\n", wcscmp(L"\u8000", L"a"));
    printf("wcsncmp2=%d\n", wcsncmp(L"abc", L"abd", 2));
    found = wcschr(text, L'w');
    printf("wcschr=%d\n", found ? (int)(found - text) : -1);
    printf("wcschr_zero=%s\n", wcschr(text, 0) ? "found" : "null");
    wcscpy(copy, text);
    printf("wcscpy_equal=%d\n", wcscmp(copy, text) == 0 && wcslen(copy) == 11);
    printf("wcstol=%ld\n", wcstol(number, &end, 10));
    printf("wcstol_end=%d\n", end ? (int)(end - number) : -1);
    printf("wcstod=%g\n", wcstod(L"2.5", NULL));
    printf("wtoi=%d\n", _wtoi(L"-31x"));
    printf("wcs2str=%s\n", wcs2str(L"abcdef", narrow, 4));
    printf("ltoa=%s\n", ltoa(255, digits, 16));
    /* GLib and GTK keep the C library's functions. */
    printf("glib_utf8=%d\n", (int)g_utf8_strlen("h\xc3\xa9llo", -1));
    printf("gtk_check=%s\n", gtk_check_version(2, 0, 0) == NULL ? "ok" : "bad");
    return 0;
}
