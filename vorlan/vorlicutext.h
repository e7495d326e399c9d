// Text operations that go straight to ICU: comparison of UTF-16 strings
// and the wide-to-ANSI entry point (WCSToMBS and MBSToWCS are declared
// in <vorlwchar.h>).
#ifndef VORLAN_VORLICUTEXT_H
#define VORLAN_VORLICUTEXT_H

#include <windows.h>
#include <vorlwchar.h>

#include "vorlinternal.h"

// Bit 0 of the flags of CompareUnicodeString: compare without case.
constexpr DWORD kCompareUnicodeIgnoreCase = 1;

// Compares the first min(aLen, bLen) units of a and b (a negative length
// means the string's own length), so a string and a longer one that begins
// with it compare equal.  The result is ICU's u_strncasecmp (flag bit 0)
// or u_strncmp.  A null string counts as empty.
VORLAN_INTERNAL int CompareUnicodeString(DWORD flags, const WCHAR *a, int aLen, const WCHAR *b, int bLen);

#endif // VORLAN_VORLICUTEXT_H
