// Byte tables for the process ANSI page, built once through the public
// conversion functions, and the character-length rules of its encoding
// (single byte, double byte with lead bytes, or UTF-8).
#include "ansi_chars.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include "codepage.h"

namespace brano {

namespace {

WCHAR DecodeByteAlone(unsigned char byte)
{
    char source = (char)byte;
    WCHAR unit = 0;
    int length = MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, &source, 1, &unit, 1);
    return length == 1 ? unit : 0;
}

// The byte for `unit` when the page has it as a single byte of its own
// (no best fit, no default char); otherwise `fallback`.
unsigned char EncodeAsSingleByte(WCHAR unit, unsigned char fallback)
{
    char bytes[4];
    BOOL usedDefault = FALSE;
    bool utf8 = GetACP() == CP_UTF8; // UTF-8 takes neither flag nor default-char report
    int length = WideCharToMultiByte(CP_ACP, utf8 ? 0 : WC_NO_BEST_FIT_CHARS, &unit, 1, bytes, sizeof bytes,
                                     nullptr, utf8 ? nullptr : &usedDefault);
    return length == 1 && !usedDefault ? (unsigned char)bytes[0] : fallback;
}

unsigned char CasePartner(WCHAR unit, unsigned char byte, UChar32 (*mapping)(UChar32))
{
    if (!unit)
        return byte;
    UChar32 mapped = mapping(unit);
    if (mapped == unit || mapped > 0xFFFF)
        return byte;
    return EncodeAsSingleByte((WCHAR)mapped, byte);
}

AnsiByteTables BuildTables()
{
    AnsiByteTables tables;
    const CodePageInfo *page = FindCodePage(CP_ACP);
    tables.singleByte = page && page->kind == CodePageKind::Icu && page->maxCharSize == 1;
    for (unsigned value = 0; value < 256; ++value) {
        unsigned char byte = (unsigned char)value;
        tables.unicode[byte] = byte ? DecodeByteAlone(byte) : 0;
        tables.lower[byte] = CasePartner(tables.unicode[byte], byte, u_tolower);
        tables.upper[byte] = CasePartner(tables.unicode[byte], byte, u_toupper);
    }
    return tables;
}

size_t Utf8CharLength(const unsigned char *bytes, size_t available)
{
    int32_t index = 0;
    int32_t limit = available > 4 ? 4 : (int32_t)available;
    UChar32 codePoint;
    U8_NEXT(bytes, index, limit, codePoint);
    (void)codePoint; // an ill-formed sequence still has a length: its maximal part
    return (size_t)index;
}

} // namespace

const AnsiByteTables &AnsiTables()
{
    static const AnsiByteTables tables = BuildTables();
    return tables;
}

size_t AnsiCharLength(const char *text, size_t available)
{
    if (available == 0)
        return 0;
    const unsigned char *bytes = reinterpret_cast<const unsigned char *>(text);
    if (bytes[0] < 0x80 || available == 1)
        return 1;
    const CodePageInfo *page = FindCodePage(CP_ACP);
    if (!page)
        return 1;
    if (page->kind == CodePageKind::Utf8)
        return Utf8CharLength(bytes, available);
    return page->IsLeadByte(bytes[0]) && bytes[1] != 0 ? 2 : 1;
}

} // namespace brano
