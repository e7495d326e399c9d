// Text encodings inside the library: font charsets and code pages, ICU
// comparison and conversion, UTF-8 for GTK and Pango, and the scope object
// that converts one string for one call.
#include "vorltextencoding.h"

#include <cstdio>
#include <cstdlib>
#include <strings.h>
#include <unicode/ucnv.h>
#include <unicode/ustring.h>
#include <algorithm>
#include <cstring>
#include <glib.h>

// ----------------------------------------------------------------------------
// Charset, code page and language tables.

namespace vorlan {

const VorlCharsetInfo gs_VorlCharsetInfo[] = {
    {0, 1252},   {2, 42},     {128, 932},  {129, 949},  {134, 936},
    {136, 950},  {161, 1253}, {162, 1254}, {177, 1255}, {178, 1256},
    {186, 1257}, {204, 1251}, {222, 874},  {238, 1250}, {0, 0},
};

// The second row carries a code page in its charset column; no font
// charset has that value, so only its locale name ever selects it.
const CharsetMapping charset_mapping[kCharsetMappingRows] = {
    {0, "en-us", "en_US.iso88591", 1252},
    {65001, "en-utf8", "en_US.UTF-8", 65001},
    {134, "zh-cn", "zh_CN", 936},
    {128, "ja", "ja_JP", 932},
    {129, "ko", "ko_KR", 949},
    {136, "zh-tw", "zh_TW.big5", 950},
    {177, "he", "he_IL", 1255},
    {178, "ar", "ar_LB", 1256},
    {161, "el", "greek", 1253},
    {162, "tr", "turkish", 1254},
    {163, "vi", "vi_VN", 1258},
    {222, "th", "th_TH", 874},
};

namespace {

constexpr UINT kWesternCodepage = 1252;
constexpr UINT kOemCharset = 255;
const char kDefaultLang[] = "en-us";

bool IsDefaultCharset(UINT charset)
{
    return charset == 0 || charset == 1;
}

bool IsTableEnd(const VorlCharsetInfo &row)
{
    return row.nCharset == 0 && row.nCodepage == 0;
}

const char *LangOfCharset(UINT charset)
{
    for (const CharsetMapping &row : charset_mapping)
        if (row.nCharset == charset)
            return row.szLang;
    return kDefaultLang;
}

const char *LangOfEnvironment()
{
    const char *lang = std::getenv("LANG");
    if (lang == nullptr)
        return kDefaultLang;
    for (const CharsetMapping &row : charset_mapping)
        if (strcasecmp(lang, row.szLocale) == 0)
            return row.szLang;
    return kDefaultLang;
}

} // namespace

UINT getCharsetByCodepage(UINT codepage)
{
    if (codepage == kWesternCodepage)
        return 0;
    for (const VorlCharsetInfo *row = gs_VorlCharsetInfo; !IsTableEnd(*row); ++row)
        if (row->nCodepage == codepage)
            return row->nCharset;
    return 0;
}

UINT getCodepageByCharset(UINT charset)
{
    if (IsDefaultCharset(charset))
        return GetACP();
    if (charset == kOemCharset) {
        std::printf("Don't know how to map charset %d\n", int(charset));
        return kWesternCodepage;
    }
    for (const VorlCharsetInfo *row = gs_VorlCharsetInfo + 1; !IsTableEnd(*row); ++row)
        if (row->nCharset == charset)
            return row->nCodepage;
    return kWesternCodepage;
}

void getLangByCharset(UINT charset, GString *string)
{
    if (string == nullptr)
        return;
    g_string_append(string, IsDefaultCharset(charset) ? LangOfEnvironment() : LangOfCharset(charset));
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// WCSToMBS, MBSToWCS and CompareUnicodeString over ICU.

namespace {

constexpr DWORD kTextConversionFailed = 1359;
constexpr DWORD kBadArgument = 87;

const UChar kEmptyUnits[1] = {0};

const UChar *AsUChars(const WCHAR *str)
{
    static_assert(sizeof(UChar) == sizeof(WCHAR), "UTF-16 units");
    return str != nullptr ? reinterpret_cast<const UChar *>(str) : kEmptyUnits;
}

int UnitCount(const UChar *str, int len)
{
    return len < 0 ? u_strlen(str) : len;
}

// The host's converter of the process code page, released with the scope.
class AnsiConverter {
public:
    AnsiConverter() : m_converter(static_cast<UConverter *>(GetIcuConverter(0))) {}
    ~AnsiConverter()
    {
        if (m_converter != nullptr)
            ReleaseIcuConverter(m_converter);
    }
    AnsiConverter(const AnsiConverter &) = delete;
    AnsiConverter &operator=(const AnsiConverter &) = delete;

    UConverter *get() const { return m_converter; }

private:
    UConverter *m_converter;
};

// The byte count of the whole text, as ucnv_fromUChars reports it for a
// null target.
int MeasureAnsi(UConverter *converter, const UChar *src, int units)
{
    UErrorCode status = U_ZERO_ERROR;
    const int32_t bytes = ucnv_fromUChars(converter, nullptr, 0, src, units, &status);
    return (U_SUCCESS(status) || status == U_BUFFER_OVERFLOW_ERROR) ? int(bytes) : 0;
}

// Converts as much as fits in dstSize - 1 bytes and terminates behind it.
int ConvertAnsi(UConverter *converter, const UChar *src, int units, char *dst, int dstSize)
{
    ucnv_resetFromUnicode(converter);
    char *target = dst;
    const UChar *source = src;
    UErrorCode status = U_ZERO_ERROR;
    ucnv_fromUnicode(converter, &target, dst + dstSize - 1, &source, src + units, nullptr, TRUE, &status);
    *target = '\0';
    return int(target - dst);
}

} // namespace

int WCSToMBS(const WCHAR *src, int srcLen, char *dst, int dstSize)
{
    if (dstSize < 0 || (dstSize > 0 && dst == nullptr)) {
        SetLastError(kBadArgument);
        return 0;
    }
    const int units = src == nullptr ? 0 : srcLen == -1 ? lstrlenW(src) : srcLen;
    if (units < 0) {
        SetLastError(kBadArgument);
        return 0;
    }
    AnsiConverter converter;
    if (converter.get() == nullptr) {
        SetLastError(kTextConversionFailed);
        return 0;
    }
    if (dstSize == 0)
        return MeasureAnsi(converter.get(), AsUChars(src), units);
    return ConvertAnsi(converter.get(), AsUChars(src), units, dst, dstSize);
}

int MBSToWCS(const char *, int, WCHAR *, int)
{
    return 0;
}

int CompareUnicodeString(DWORD flags, const WCHAR *a, int aLen, const WCHAR *b, int bLen)
{
    const UChar *first = AsUChars(a);
    const UChar *second = AsUChars(b);
    const int32_t count = std::min(UnitCount(first, aLen), UnitCount(second, bLen));
    if (flags & kCompareUnicodeIgnoreCase)
        return u_strncasecmp(first, second, count, 0);
    return u_strncmp(first, second, count);
}

// ----------------------------------------------------------------------------
// UTF-8 GStrings from and to 16-bit units and ANSI bytes.

namespace vorlan {

namespace {

// Longest UTF-8 form of one unit (six bytes covers any gunichar).
constexpr int kMaxUtf8Bytes = 6;

void AppendUnitAsUtf8(GString *string, WCHAR unit)
{
    gchar bytes[kMaxUtf8Bytes];
    const gint length = g_unichar_to_utf8(gunichar(unit), bytes);
    g_string_append_len(string, bytes, length);
}

void ReplaceByLocaleConversion(GString *string)
{
    gchar *converted = g_locale_to_utf8(string->str, gssize(string->len), nullptr, nullptr, nullptr);
    g_string_truncate(string, 0);
    if (converted != nullptr)
        g_string_append(string, converted);
    g_free(converted);
}

} // namespace

GString *WideCharToUTF8(const WCHAR *src, int n)
{
    GString *string = g_string_sized_new(n > 0 ? gsize(n) : 0);
    if (src == nullptr)
        return string;
    for (int i = 0; i < n; ++i)
        if (src[i] != 0)
            AppendUnitAsUtf8(string, src[i]);
    return string;
}

GString *ANSItoUTF8(const char *src, int len)
{
    if (src == nullptr)
        return g_string_new(nullptr);
    const gsize length = len < 0 ? std::strlen(src) : gsize(len);
    GString *string = g_string_new_len(src, gssize(length));
    if (!g_utf8_validate(string->str, gssize(string->len), nullptr))
        ReplaceByLocaleConversion(string);
    return string;
}

int WideCharFromUTF8(const GString *string, int len, WCHAR *dst)
{
    if (string == nullptr || string->str == nullptr || dst == nullptr)
        return 0;
    const gsize count = std::min(gsize(std::max(len, 0)), string->len);
    for (gsize i = 0; i < count; ++i)
        dst[i] = WCHAR(static_cast<signed char>(string->str[i]));
    dst[count] = 0;
    return 1;
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// StringTranslator: two-step conversions through the host's
// WideCharToMultiByte and MultiByteToWideChar into inline or heap buffers.

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
