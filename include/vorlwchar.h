/*
 * vorlwchar.h - string functions on 16-bit wide characters (WCHAR).
 *
 * Win32 text is UTF-16 in 16-bit units, while the C library's wide
 * functions work on the platform's 32-bit wchar_t.  libvorlan carries the
 * usual wide string functions for 16-bit units and reaches applications in
 * two ways:
 *
 *  - C++ overloads on `unsigned short` (WCHAR) arguments: wcslen(const
 *    WCHAR*) and so on.  They never clash with the C library, whose
 *    functions take wchar_t.
 *
 *  - The C names themselves (wcslen, wcscmp, wcsncmp, wcschr, wcscpy,
 *    wcstol, wcstod), for programs built with -fshort-wchar, where L"..."
 *    literals already are 16-bit text.  libvorlan exports these under the
 *    symbol version VORLAN_WCHAR16.  A module binds to them only when it
 *    asks for that version: this header does so for every translation unit
 *    compiled with a 2-byte wchar_t.  Everything else in the process (the
 *    C library itself, GLib, GTK, C++ runtime, application code built with
 *    a 4-byte wchar_t) keeps the C library's functions.  Define
 *    VORLAN_NO_WCHAR16_BINDING before including this header to keep the C
 *    library's functions in a -fshort-wchar unit too.  The binding is made
 *    by assembler directives, so units using it must not be built with
 *    link-time optimisation.
 *
 * wcs2str, _wtoi and ltoa have no C library counterpart and are plain
 * exports for every program.
 */
#ifndef VORLAN_VORLWCHAR_H
#define VORLAN_VORLWCHAR_H

#include "windef.h"

#ifndef RC_INVOKED

#include <stddef.h>

#define VORLWCHARAPI VORLAN_EXTERN_C VORLAN_EXPORT

/* Copies the low 8 bits of each unit of src, at most size - 1 of them, into
 * dst and terminates it (no code page work).  Returns dst. */
VORLWCHARAPI char *wcs2str(const WCHAR *src, char *dst, int size);

/* The decimal value at the start of str (its first 254 units, low bytes). */
VORLWCHARAPI int _wtoi(const WCHAR *str);

/* Formats value into buffer and returns buffer.  Radix 2 gives a fixed 33
 * digits and needs 34 bytes; radix 8 octal, 16 lower-case hexadecimal, any
 * other radix decimal.  The value is taken as a 32-bit Win32 LONG. */
VORLWCHARAPI char *ltoa(long value, char *buffer, int radix);

/* Converts srcLen units (-1: up to the terminator) to the process ANSI code
 * page.  dstSize 0 returns the byte count needed, without terminator.
 * Otherwise at most dstSize - 1 bytes are written and terminated; returns
 * the bytes written without the terminator, 0 on failure. */
VORLWCHARAPI int WCSToMBS(const WCHAR *src, int srcLen, char *dst, int dstSize);

/* Does nothing and returns 0: narrow-to-wide conversion goes through
 * MultiByteToWideChar. */
VORLWCHARAPI int MBSToWCS(const char *src, int srcLen, WCHAR *dst, int dstSize);

#if defined(__SIZEOF_WCHAR_T__) && __SIZEOF_WCHAR_T__ == 2 && !defined(VORLAN_NO_WCHAR16_BINDING)
/* A 2-byte wchar_t: the C library's declarations describe the 16-bit
 * functions exactly; calls bind to libvorlan's versioned definitions. */
#include <wchar.h>
__asm__(".symver wcslen,wcslen@VORLAN_WCHAR16");
__asm__(".symver wcscmp,wcscmp@VORLAN_WCHAR16");
__asm__(".symver wcsncmp,wcsncmp@VORLAN_WCHAR16");
__asm__(".symver wcschr,wcschr@VORLAN_WCHAR16");
__asm__(".symver wcscpy,wcscpy@VORLAN_WCHAR16");
__asm__(".symver wcstol,wcstol@VORLAN_WCHAR16");
__asm__(".symver wcstod,wcstod@VORLAN_WCHAR16");
#endif

#ifdef __cplusplus

/* Units before the terminator. */
VORLAN_EXPORT size_t wcslen(const unsigned short *str);
/* Unsigned unit comparison; exactly -1, 0 or 1. */
VORLAN_EXPORT int wcscmp(const unsigned short *a, const unsigned short *b);
/* As wcscmp over at most count units; a count of 0 gives 0. */
VORLAN_EXPORT int wcsncmp(const unsigned short *a, const unsigned short *b, size_t count);
/* The first unit equal to ch, or null; the terminator is never found. */
VORLAN_EXPORT unsigned short *wcschr(const unsigned short *str, unsigned short ch);
/* Copies src with its terminator to dst. */
VORLAN_EXPORT void wcscpy(unsigned short *dst, const unsigned short *src);
/* strtol and strtod on the low bytes of the first 254 units; *end is set
 * to str plus the units consumed. */
VORLAN_EXPORT long wcstol(const unsigned short *str, unsigned short **end, int base);
VORLAN_EXPORT double wcstod(const unsigned short *str, unsigned short **end);

#if defined(__SIZEOF_WCHAR_T__) && __SIZEOF_WCHAR_T__ == 2
/* With a 2-byte wchar_t, L"..." text reaches the WCHAR functions too. */
inline char *wcs2str(const wchar_t *src, char *dst, int size)
{
    return wcs2str(reinterpret_cast<const WCHAR *>(src), dst, size);
}
inline int _wtoi(const wchar_t *str)
{
    return _wtoi(reinterpret_cast<const WCHAR *>(str));
}
#endif

#endif /* __cplusplus */

#endif /* RC_INVOKED */
#endif /* VORLAN_VORLWCHAR_H */
