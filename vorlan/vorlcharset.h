// Tables between Win32 font charsets, code pages and language tags, and
// the helpers that read them.
#ifndef VORLAN_VORLCHARSET_H
#define VORLAN_VORLCHARSET_H

#include <windows.h>

#include "vorlinternal.h"

#include <glib.h>

namespace vorlan {

struct VorlCharsetInfo {
    UINT nCharset;
    UINT nCodepage;
};

struct CharsetMapping {
    unsigned int nCharset;
    char szLang[32];
    char szLocale[32];
    unsigned int nCodepage;
};

// Charset to code page, ended by a pair of zeros.
VORLAN_INTERNAL extern const VorlCharsetInfo gs_VorlCharsetInfo[];
// Charset, language tag, locale name (the LANG value) and code page.
VORLAN_INTERNAL extern const CharsetMapping charset_mapping[];
constexpr int kCharsetMappingRows = 12;

// 1252 gives 0; otherwise the charset of the first row with that code
// page; none gives 0.
VORLAN_INTERNAL UINT getCharsetByCodepage(UINT codepage);

// 0 and 1 (default charsets) give GetACP(); 255 reports that it cannot be
// mapped and gives 1252; otherwise the table; none gives 1252.
VORLAN_INTERNAL UINT getCodepageByCharset(UINT charset);

// Appends the language tag for the charset to `string` (nothing for a null
// string).  The default charsets 0 and 1 take the language of the row
// whose locale name equals LANG, ignoring case.  No match gives "en-us".
VORLAN_INTERNAL void getLangByCharset(UINT charset, GString *string);

} // namespace vorlan

#endif // VORLAN_VORLCHARSET_H
