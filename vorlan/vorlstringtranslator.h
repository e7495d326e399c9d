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
#ifndef VORLAN_VORLSTRINGTRANSLATOR_H
#define VORLAN_VORLSTRINGTRANSLATOR_H

#include <windows.h>

#include "vorlinternal.h"

namespace vorlan {

class VORLAN_INTERNAL StringTranslator {
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

#endif // VORLAN_VORLSTRINGTRANSLATOR_H
