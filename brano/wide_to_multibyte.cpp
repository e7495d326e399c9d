// WideCharToMultiByte: UTF-16 to code page text.
#include <windows.h>

#include <unicode/uchar.h>
#include <unicode/unorm2.h>

#include <vector>

#include "codepage.h"
#include "conversion_arguments.h"
#include "text_conversion.h"

namespace {

using brano::ByteSink;
using brano::CodePageInfo;
using brano::CodePageKind;
using brano::ConversionStatus;

constexpr DWORD kEncodeFlags =
    WC_COMPOSITECHECK | WC_DISCARDNS | WC_SEPCHARS | WC_DEFAULTCHAR | WC_NO_BEST_FIT_CHARS;

// A character no code page can encode: it makes the encoder write the
// default char in place of a composite that has no precomposed form.
constexpr WCHAR kUnencodable = 0xFFFF;

bool AreValidEncodeFlags(const CodePageInfo &page, DWORD flags)
{
    if (page.flagsMustBeZero)
        return flags == 0;
    if (page.onlyInvalidCharsFlag)
        return (flags & ~(DWORD)WC_ERR_INVALID_CHARS) == 0;
    return (flags & ~kEncodeFlags) == 0;
}

size_t WideLength(const WCHAR *text)
{
    size_t length = 0;
    while (text[length])
        ++length;
    return length;
}

// The bytes written for unencodable characters: the caller's character
// (two bytes when it starts with a lead byte), or the page's '?'.
std::string DefaultCharBytes(const CodePageInfo &page, LPCSTR defaultChar)
{
    if (!defaultChar)
        return page.defaultChar;
    unsigned char first = (unsigned char)defaultChar[0];
    if (page.IsLeadByte(first) && defaultChar[1] != 0)
        return std::string(defaultChar, 2);
    return std::string(defaultChar, 1);
}

bool IsNonspacingMark(UChar32 codePoint)
{
    return u_charType(codePoint) == U_NON_SPACING_MARK;
}

// WC_COMPOSITECHECK: base + combining mark pairs become precomposed
// characters where one exists.  The marks left over are dropped
// (WC_DISCARDNS), turn the pair into the default char (WC_DEFAULTCHAR), or
// stay separate characters (WC_SEPCHARS, the default).
bool ComposeForEncoding(const WCHAR *source, size_t length, DWORD flags, std::vector<WCHAR> &composed)
{
    UErrorCode status = U_ZERO_ERROR;
    const UNormalizer2 *nfc = unorm2_getNFCInstance(&status);
    const UChar *text = reinterpret_cast<const UChar *>(source);
    int32_t needed = unorm2_normalize(nfc, text, (int32_t)length, nullptr, 0, &status);
    if (status != U_BUFFER_OVERFLOW_ERROR && U_FAILURE(status))
        return false;
    std::vector<WCHAR> normalized((size_t)needed);
    status = U_ZERO_ERROR;
    unorm2_normalize(nfc, text, (int32_t)length, reinterpret_cast<UChar *>(normalized.data()), needed, &status);
    if (U_FAILURE(status))
        return false;
    composed.clear();
    for (WCHAR unit : normalized) {
        bool leftoverMark = !composed.empty() && IsNonspacingMark(unit);
        if (leftoverMark && (flags & WC_DISCARDNS))
            continue;
        if (leftoverMark && (flags & WC_DEFAULTCHAR)) {
            composed.back() = kUnencodable;
            continue;
        }
        composed.push_back(unit);
    }
    return true;
}

ConversionStatus EncodeWithPage(const CodePageInfo &page, DWORD flags, const WCHAR *source, size_t length,
                                LPCSTR defaultChar, ByteSink &out, bool *usedDefaultChar)
{
    bool strict = (flags & WC_ERR_INVALID_CHARS) != 0;
    switch (page.kind) {
    case CodePageKind::Utf8:
        return brano::EncodeUtf8(source, length, strict, out);
    case CodePageKind::Symbol:
        return brano::EncodeSymbol(source, length, out);
    default:
        break;
    }
    brano::EncodeOptions options;
    options.defaultChar = DefaultCharBytes(page, defaultChar);
    options.bestFit = (flags & WC_NO_BEST_FIT_CHARS) == 0;
    options.failOnInvalid = strict;
    return brano::EncodeWithIcu(page, source, length, options, out, usedDefaultChar);
}

} // namespace

int WINAPI WideCharToMultiByte(UINT CodePage, DWORD dwFlags, LPCWSTR lpWideCharStr, int cchWideChar,
                               LPSTR lpMultiByteStr, int cbMultiByte, LPCSTR lpDefaultChar,
                               LPBOOL lpUsedDefaultChar)
{
    if (!brano::AreValidConversionBuffers(lpWideCharStr, cchWideChar, lpMultiByteStr, cbMultiByte))
        return brano::FailConversion(ERROR_INVALID_PARAMETER);
    const CodePageInfo *page = brano::FindCodePage(CodePage);
    if (!page)
        return brano::FailConversion(ERROR_INVALID_PARAMETER);
    if (!AreValidEncodeFlags(*page, dwFlags))
        return brano::FailConversion(ERROR_INVALID_FLAGS);
    if (page->refusesDefaultChar && (lpDefaultChar || lpUsedDefaultChar))
        return brano::FailConversion(ERROR_INVALID_PARAMETER);
    size_t length = cchWideChar == -1 ? WideLength(lpWideCharStr) + 1 : (size_t)cchWideChar;
    char *destination = cbMultiByte > 0 ? lpMultiByteStr : nullptr;
    if (destination && brano::RangesOverlap(lpWideCharStr, length * sizeof(WCHAR), destination, (size_t)cbMultiByte))
        return brano::FailConversion(ERROR_INVALID_PARAMETER);

    const WCHAR *source = lpWideCharStr;
    std::vector<WCHAR> composed;
    if (dwFlags & WC_COMPOSITECHECK) {
        if (!ComposeForEncoding(lpWideCharStr, length, dwFlags, composed))
            return brano::FailConversion(ERROR_NOT_ENOUGH_MEMORY);
        source = composed.data();
        length = composed.size();
    }
    bool usedDefault = false;
    ByteSink out(destination, (size_t)cbMultiByte);
    ConversionStatus status = EncodeWithPage(*page, dwFlags, source, length, lpDefaultChar, out, &usedDefault);
    if (lpUsedDefaultChar)
        *lpUsedDefaultChar = usedDefault ? TRUE : FALSE;
    return brano::ConversionResult(status, out);
}
