// MultiByteToWideChar: code page text to UTF-16.
#include <windows.h>

#include <unicode/unorm2.h>

#include <cstring>
#include <vector>

#include "codepage.h"
#include "conversion_arguments.h"
#include "text_conversion.h"

namespace {

using brano::CodePageInfo;
using brano::CodePageKind;
using brano::ConversionStatus;
using brano::WideSink;

constexpr DWORD kDecodeFlags = MB_PRECOMPOSED | MB_COMPOSITE | MB_USEGLYPHCHARS | MB_ERR_INVALID_CHARS;

bool AreValidDecodeFlags(const CodePageInfo &page, DWORD flags)
{
    if (page.flagsMustBeZero)
        return flags == 0;
    if (page.onlyInvalidCharsFlag)
        return (flags & ~(DWORD)MB_ERR_INVALID_CHARS) == 0;
    if (flags & ~kDecodeFlags)
        return false;
    return (flags & (MB_PRECOMPOSED | MB_COMPOSITE)) != (MB_PRECOMPOSED | MB_COMPOSITE);
}

// The glyphs the IBM PC pages show for control bytes (MB_USEGLYPHCHARS).
WCHAR GlyphForControl(WCHAR unit)
{
    static const WCHAR kGlyphs[0x20] = {
        0x0000, 0x263A, 0x263B, 0x2665, 0x2666, 0x2663, 0x2660, 0x2022, 0x25D8, 0x25CB, 0x25D9,
        0x2642, 0x2640, 0x266A, 0x266B, 0x263C, 0x25BA, 0x25C4, 0x2195, 0x203C, 0x00B6, 0x00A7,
        0x25AC, 0x21A8, 0x2191, 0x2193, 0x2192, 0x2190, 0x221F, 0x2194, 0x25B2, 0x25BC,
    };
    if (unit == 0x7F)
        return 0x2302;
    return unit > 0 && unit < 0x20 ? kGlyphs[unit] : unit;
}

void UseGlyphChars(const CodePageInfo &page, DWORD flags, WCHAR *units, size_t count)
{
    if (!(flags & MB_USEGLYPHCHARS) || !page.swapsPcControls || !units)
        return;
    for (size_t i = 0; i < count; ++i)
        units[i] = GlyphForControl(units[i]);
}

ConversionStatus DecodeWithPage(const CodePageInfo &page, DWORD flags, const char *source, size_t length,
                                WideSink &out)
{
    bool strict = (flags & MB_ERR_INVALID_CHARS) != 0;
    ConversionStatus status;
    switch (page.kind) {
    case CodePageKind::Utf8:
        status = brano::DecodeUtf8(source, length, strict, out);
        break;
    case CodePageKind::Symbol:
        status = brano::DecodeSymbol(source, length, out);
        break;
    default:
        status = brano::DecodeWithIcu(page, source, length, strict, out);
        break;
    }
    if (status == ConversionStatus::Ok)
        UseGlyphChars(page, flags, out.Begin(), out.Length());
    return status;
}

// MB_COMPOSITE: convert, then split precomposed characters into base and
// combining marks (canonical decomposition).
ConversionStatus DecodeComposite(const CodePageInfo &page, DWORD flags, const char *source, size_t length,
                                 WideSink &out)
{
    WideSink counter(nullptr, 0);
    ConversionStatus status = DecodeWithPage(page, flags, source, length, counter);
    if (status != ConversionStatus::Ok)
        return status;
    std::vector<WCHAR> precomposed(counter.Length());
    WideSink staging(precomposed.data(), precomposed.size());
    status = DecodeWithPage(page, flags, source, length, staging);
    if (status != ConversionStatus::Ok)
        return status;
    UErrorCode icuStatus = U_ZERO_ERROR;
    const UNormalizer2 *nfd = unorm2_getNFDInstance(&icuStatus);
    if (U_FAILURE(icuStatus))
        return ConversionStatus::Failed;
    int32_t length16 = unorm2_normalize(nfd, reinterpret_cast<const UChar *>(precomposed.data()),
                                        (int32_t)precomposed.size(), reinterpret_cast<UChar *>(out.Cursor()),
                                        (int32_t)(out.Counting() ? 0 : out.Room()), &icuStatus);
    if (icuStatus == U_BUFFER_OVERFLOW_ERROR && !out.Counting())
        return ConversionStatus::BufferTooSmall;
    if (U_FAILURE(icuStatus) && icuStatus != U_BUFFER_OVERFLOW_ERROR)
        return ConversionStatus::Failed;
    out.Advance((size_t)length16);
    return ConversionStatus::Ok;
}

} // namespace

int WINAPI MultiByteToWideChar(UINT CodePage, DWORD dwFlags, LPCSTR lpMultiByteStr, int cbMultiByte,
                               LPWSTR lpWideCharStr, int cchWideChar)
{
    if (!brano::AreValidConversionBuffers(lpMultiByteStr, cbMultiByte, lpWideCharStr, cchWideChar))
        return brano::FailConversion(ERROR_INVALID_PARAMETER);
    const CodePageInfo *page = brano::FindCodePage(CodePage);
    if (!page)
        return brano::FailConversion(ERROR_INVALID_PARAMETER);
    if (!AreValidDecodeFlags(*page, dwFlags))
        return brano::FailConversion(ERROR_INVALID_FLAGS);
    size_t length = cbMultiByte == -1 ? std::strlen(lpMultiByteStr) + 1 : (size_t)cbMultiByte;
    WCHAR *destination = cchWideChar > 0 ? lpWideCharStr : nullptr;
    if (destination && brano::RangesOverlap(lpMultiByteStr, length, destination, (size_t)cchWideChar * sizeof(WCHAR)))
        return brano::FailConversion(ERROR_INVALID_PARAMETER);
    WideSink out(destination, (size_t)cchWideChar);
    ConversionStatus status = (dwFlags & MB_COMPOSITE) ? DecodeComposite(*page, dwFlags, lpMultiByteStr, length, out)
                                                       : DecodeWithPage(*page, dwFlags, lpMultiByteStr, length, out);
    return brano::ConversionResult(status, out);
}
