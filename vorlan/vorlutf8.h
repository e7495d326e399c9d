// UTF-8 text in GStrings for GTK and Pango: from 16-bit units, from ANSI
// bytes, and back to units.
#ifndef VORLAN_VORLUTF8_H
#define VORLAN_VORLUTF8_H

#include <windows.h>

#include "vorlinternal.h"

#include <glib.h>

namespace vorlan {

// A new GString with the UTF-8 of n units, each unit encoded by itself
// (no surrogate pairing); units of value 0 are skipped.  A null source or
// n below 1 gives an empty string.
VORLAN_INTERNAL GString *WideCharToUTF8(const WCHAR *src, int n);

// A new GString with len bytes of src (a negative len: up to the
// terminator).  Valid UTF-8 stays as it is; other text is converted from
// the locale's encoding, and text that cannot be converted gives an empty
// string.
VORLAN_INTERNAL GString *ANSItoUTF8(const char *src, int len);

// Copies len bytes of the string's text to dst as units, each byte
// sign-extended to 16 bits, and terminates (dst holds len + 1 units).  No
// UTF-8 decoding takes place.  Bytes beyond the string's own length are
// not read.  0 for a null string, null text or null dst, else 1.
VORLAN_INTERNAL int WideCharFromUTF8(const GString *string, int len, WCHAR *dst);

} // namespace vorlan

#endif // VORLAN_VORLUTF8_H
