// StringTranslator: two-step conversions through the host's
// WideCharToMultiByte and MultiByteToWideChar into inline or heap buffers.
#include "vorlstringtranslator.h"

#include <glib.h>

namespace vorlan {

namespace {

constexpr UINT kUtf8Codepage = 65001;
constexpr DWORD kAllocationFailure = 0x80000002;

// The text length behind a host count: the count of a terminated text
// includes the terminator.
int TextLength(int count, bool terminated)
{
    return terminated ? count - 1 : count;
}

// The inline buffer when the text and its terminator fit, else a block of
// (length + 1) units.
template <typename Unit>
Unit *ChooseBuffer(int textLength, Unit *inlineBuffer, int inlineUnits)
{
    const gsize units = gsize(textLength) + 1;
    if (units <= gsize(inlineUnits))
        return inlineBuffer;
    Unit *block = static_cast<Unit *>(g_try_malloc(units * sizeof(Unit)));
    if (block == nullptr)
        SetLastError(kAllocationFailure);
    return block;
}

} // namespace

void StringTranslator::Clear()
{
    if (m_pNarrow != m_narrowInline)
        g_free(m_pNarrow);
    if (m_pWide != m_wideInline)
        g_free(m_pWide);
    m_pNarrow = nullptr;
    m_pWide = nullptr;
}

char *StringTranslator::FailNarrow()
{
    Clear();
    return nullptr;
}

WCHAR *StringTranslator::FailWide()
{
    Clear();
    return nullptr;
}

char *StringTranslator::NarrowBuffer(int textLength)
{
    return ChooseBuffer(textLength, m_narrowInline, kInlineNarrowBytes);
}

WCHAR *StringTranslator::WideBuffer(int textLength)
{
    return ChooseBuffer(textLength, m_wideInline, kInlineWideUnits);
}

char *StringTranslator::ConvertToNarrow(const WCHAR *src, int len, bool terminated, UINT codepage,
                                        int *converted)
{
    const int needed = WideCharToMultiByte(codepage, 0, src, len, nullptr, 0, nullptr, nullptr);
    if (needed <= 0)
        return FailNarrow();
    m_pNarrow = NarrowBuffer(TextLength(needed, terminated));
    if (m_pNarrow == nullptr)
        return FailNarrow();
    const int written = WideCharToMultiByte(codepage, 0, src, len, m_pNarrow, needed, nullptr, nullptr);
    if (written <= 0)
        return FailNarrow();
    if (!terminated)
        m_pNarrow[written] = '\0';
    *converted = written;
    return m_pNarrow;
}

WCHAR *StringTranslator::ConvertToWide(const char *src, int len, bool terminated, UINT codepage,
                                       int *converted)
{
    const int needed = MultiByteToWideChar(codepage, 0, src, len, nullptr, 0);
    if (needed <= 0)
        return FailWide();
    m_pWide = WideBuffer(TextLength(needed, terminated));
    if (m_pWide == nullptr)
        return FailWide();
    const int written = MultiByteToWideChar(codepage, 0, src, len, m_pWide, needed);
    if (written <= 0)
        return FailWide();
    if (!terminated)
        m_pWide[written] = 0;
    *converted = written;
    return m_pWide;
}

char *StringTranslator::Utf16ToAnsi(const WCHAR *src, int len, UINT codepage)
{
    Clear();
    int converted = 0;
    return ConvertToNarrow(src, len, len == -1, codepage, &converted);
}

char *StringTranslator::Utf16ToUtf8(const WCHAR *src, int len)
{
    return Utf16ToAnsi(src, len, kUtf8Codepage);
}

WCHAR *StringTranslator::AnsiToUtf16(const char *src, int len, UINT codepage)
{
    Clear();
    int converted = 0;
    return ConvertToWide(src, len, len == -1, codepage, &converted);
}

WCHAR *StringTranslator::Utf8ToUtf16(const char *src, int len)
{
    return AnsiToUtf16(src, len, kUtf8Codepage);
}

// The intermediate text keeps the terminator of a terminated source inside
// its unit count, so the second step passes that count and terminates
// only behind a counted source's text.
char *StringTranslator::Utf8ToAnsi(const char *src, int len, UINT codepage)
{
    Clear();
    const bool terminated = len == -1;
    int units = 0;
    if (ConvertToWide(src, len, terminated, kUtf8Codepage, &units) == nullptr)
        return nullptr;
    int converted = 0;
    return ConvertToNarrow(m_pWide, units, terminated, codepage, &converted);
}

char *StringTranslator::AnsiToUtf8(const char *src, int len, UINT codepage)
{
    Clear();
    const bool terminated = len == -1;
    int units = 0;
    if (ConvertToWide(src, len, terminated, codepage, &units) == nullptr)
        return nullptr;
    int converted = 0;
    return ConvertToNarrow(m_pWide, units, terminated, kUtf8Codepage, &converted);
}

} // namespace vorlan
