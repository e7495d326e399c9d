// String functions on 16-bit units (WCHAR) for the library's own code.
//
// The public ones (wcslen, wcscmp, ... as overloads on unsigned short, and
// wcs2str, _wtoi, ltoa) are declared in <vorlwchar.h>; this header adds
// the comparison helper that only the library uses.
#ifndef VORLAN_VORLWIDESTRING_H
#define VORLAN_VORLWIDESTRING_H

#include <windows.h>
#include <vorlwchar.h>

// Compares two terminated strings, folding only "A" to "Z" to lower case.
// Stops at the first difference or at the end of `a`; the result is the
// difference of the two folded units.  A null string counts as empty.
int ascii_lstrcmpiW(const WCHAR *a, const WCHAR *b);

namespace vorlan {

// Units that wcstol, wcstod and _wtoi look at: the text is narrowed into a
// buffer of this many bytes plus the terminator.
constexpr int kNumberTextUnits = 254;

} // namespace vorlan

#endif // VORLAN_VORLWIDESTRING_H
