// Text encodings inside the library: tables between font charsets, code
// pages and language tags; ICU comparison and conversion; UTF-8 text in
// GStrings for GTK and Pango; and StringTranslator, a scope object that
// converts one string and owns the result for the span of one call.
#ifndef VORLAN_VORLTEXTENCODING_H
#define VORLAN_VORLTEXTENCODING_H

#include <windows.h>
#include <vorlwchar.h>

#include <glib.h>

// ----------------------------------------------------------------------------
// Tables between Win32 font charsets, code pages and language tags, and
// the helpers that read them.

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
extern const VorlCharsetInfo gs_VorlCharsetInfo[];
// Charset, language tag, locale name (the LANG value) and code page.
extern const CharsetMapping charset_mapping[];
constexpr int kCharsetMappingRows = 12;

// 1252 gives 0; otherwise the charset of the first row with that code
// page; none gives 0.
UINT getCharsetByCodepage(UINT codepage);

// 0 and 1 (default charsets) give GetACP(); 255 reports that it cannot be
// mapped and gives 1252; otherwise the table; none gives 1252.
UINT getCodepageByCharset(UINT charset);

// Appends the language tag for the charset to `string` (nothing for a null
// string).  The default charsets 0 and 1 take the language of the row
// whose locale name equals LANG, ignoring case.  No match gives "en-us".
void getLangByCharset(UINT charset, GString *string);

} // namespace vorlan

// ----------------------------------------------------------------------------
// Text operations that go straight to ICU: comparison of UTF-16 strings
// and the wide-to-ANSI entry point (WCSToMBS and MBSToWCS are declared
// in <vorlwchar.h>).

// Bit 0 of the flags of CompareUnicodeString: compare without case.
constexpr DWORD kCompareUnicodeIgnoreCase = 1;

// Compares the first min(aLen, bLen) units of a and b (a negative length
// means the string's own length), so a string and a longer one that begins
// with it compare equal.  The result is ICU's u_strncasecmp (flag bit 0)
// or u_strncmp.  A null string counts as empty.
int CompareUnicodeString(DWORD flags, const WCHAR *a, int aLen, const WCHAR *b, int bLen);

// ----------------------------------------------------------------------------
// UTF-8 text in GStrings for GTK and Pango: from 16-bit units, from ANSI
// bytes, and back to units.

namespace vorlan {

// A new GString with the UTF-8 of n units, each unit encoded by itself
// (no surrogate pairing); units of value 0 are skipped.  A null source or
// n below 1 gives an empty string.
GString *WideCharToUTF8(const WCHAR *src, int n);

// A new GString with len bytes of src (a negative len: up to the
// terminator).  Valid UTF-8 stays as it is; other text is converted from
// the locale's encoding, and text that cannot be converted gives an empty
// string.
GString *ANSItoUTF8(const char *src, int len);

// Copies len bytes of the string's text to dst as units, each byte
// sign-extended to 16 bits, and terminates (dst holds len + 1 units).  No
// UTF-8 decoding takes place.  Bytes beyond the string's own length are
// not read.  0 for a null string, null text or null dst, else 1.
int WideCharFromUTF8(const GString *string, int len, WCHAR *dst);

} // namespace vorlan

// ----------------------------------------------------------------------------
// A scope object that converts one string between UTF-16, UTF-8 and ANSI
// code pages and owns the result for the span of one call.
//
// Short results live in inline buffers inside the object (64 bytes narrow,
// 32 units wide, terminator included), so converting the names and titles
// of an ordinary A export costs no allocation; longer ones go to a block
// from g_malloc.  A result stays valid until the next conversion on the
// same object, Clear or the destructor; each conversion starts with Clear.
//
// Lengths of -1 mean a terminated source; the code page 0 stands for the
// process page.  The result is the text inside the translator, or null
// when the conversion fails (empty counted sources fail too, terminated
// empty sources give an empty string).  A failed allocation sets the last
// error to 0x80000002.

namespace vorlan {

class StringTranslator {
public:
    static constexpr int kInlineNarrowBytes = 64;
    static constexpr int kInlineWideUnits = 32;

    StringTranslator() : m_pNarrow(nullptr), m_pWide(nullptr) {}
    ~StringTranslator() { Clear(); }
    StringTranslator(const StringTranslator &) = delete;
    StringTranslator &operator=(const StringTranslator &) = delete;

    char *Utf16ToAnsi(const WCHAR *src, int len = -1, UINT codepage = 0);
    char *Utf16ToUtf8(const WCHAR *src, int len = -1);
    WCHAR *AnsiToUtf16(const char *src, int len = -1, UINT codepage = 0);
    WCHAR *Utf8ToUtf16(const char *src, int len = -1);
    // Through the wide slot, which keeps the intermediate until Clear.
    char *Utf8ToAnsi(const char *src, int len = -1, UINT codepage = 0);
    char *AnsiToUtf8(const char *src, int len = -1, UINT codepage = 0);

    // Frees the results that are on the heap and forgets both.
    void Clear();

    char *narrow() const { return m_pNarrow; }
    WCHAR *wide() const { return m_pWide; }

private:
    // The wide-to-narrow and narrow-to-wide steps without the leading
    // Clear.  `len` goes to the host as it is; `terminated` tells whether
    // the converted text brings its own terminator (the caller's source
    // was terminated), otherwise one is written behind it.  The count the
    // host converted comes back through `converted`.
    char *ConvertToNarrow(const WCHAR *src, int len, bool terminated, UINT codepage, int *converted);
    WCHAR *ConvertToWide(const char *src, int len, bool terminated, UINT codepage, int *converted);
    char *NarrowBuffer(int textLength);
    WCHAR *WideBuffer(int textLength);
    char *FailNarrow();
    WCHAR *FailWide();

    char *m_pNarrow;
    char m_narrowInline[kInlineNarrowBytes];
    WCHAR *m_pWide;
    WCHAR m_wideInline[kInlineWideUnits];
};

} // namespace vorlan

#endif // VORLAN_VORLTEXTENCODING_H
