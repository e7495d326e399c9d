// Conversions through ICU converters, with the Windows conventions layered
// on top: undecodable bytes become the page's default Unicode character,
// unencodable characters become the default char (and are reported), ASCII
// runs skip ICU, and IBM PC control layouts are put back in Windows order.
#include <unicode/ucnv.h>
#include <unicode/uchar.h>
#include <unicode/ucnv_cb.h>
#include <unicode/unorm2.h>
#include <unicode/utf16.h>

#include "text_conversion.h"

namespace brano {

namespace {

constexpr size_t kScratchUnits = 512;

struct DecodeErrorState {
    UChar substitute;
    bool failOnInvalid;
    bool sawInvalid;
};

struct EncodeErrorState {
    const std::string *defaultChar;
    bool bestFit;
    bool failOnInvalid;
    bool sawUnencodable;
};

bool IsConversionError(UConverterCallbackReason reason)
{
    return reason == UCNV_UNASSIGNED || reason == UCNV_ILLEGAL || reason == UCNV_IRREGULAR;
}

void SubstituteUndecodable(const void *context, UConverterToUnicodeArgs *args, const char *,
                           int32_t, UConverterCallbackReason reason, UErrorCode *status)
{
    if (!IsConversionError(reason))
        return;
    auto *state = static_cast<DecodeErrorState *>(const_cast<void *>(context));
    state->sawInvalid = true;
    if (state->failOnInvalid)
        return; // leave the error set: the conversion stops here
    *status = U_ZERO_ERROR;
    ucnv_cbToUWriteUChars(args, &state->substitute, 1, 0, status);
}

// The base letter of a character with diacritics (U+0100 -> 'A'), or -1.
// Windows' best fit writes an accented letter the page lacks as its base.
UChar32 BaseLetter(UChar32 codePoint)
{
    UErrorCode status = U_ZERO_ERROR;
    const UNormalizer2 *nfd = unorm2_getNFDInstance(&status);
    UChar decomposition[8];
    int32_t length = U_SUCCESS(status) ? unorm2_getDecomposition(nfd, codePoint, decomposition, 8, &status) : 0;
    if (U_FAILURE(status) || length < 2)
        return -1;
    int32_t index = 0;
    UChar32 base;
    U16_NEXT(decomposition, index, length, base);
    while (index < length) {
        UChar32 mark;
        U16_NEXT(decomposition, index, length, mark);
        if (!(U_GET_GC_MASK(mark) & U_GC_M_MASK))
            return -1; // not letter + diacritics (a Hangul syllable, say)
    }
    return base;
}

bool WriteBaseLetter(UConverterFromUnicodeArgs *args, UChar32 codePoint, UErrorCode *status)
{
    UChar32 base = BaseLetter(codePoint);
    if (base < 0 || base > 0xFFFF)
        return false;
    UChar unit = (UChar)base;
    const UChar *source = &unit;
    *status = U_ZERO_ERROR;
    ucnv_cbFromUWriteUChars(args, &source, source + 1, 0, status);
    return true;
}

void SubstituteUnencodable(const void *context, UConverterFromUnicodeArgs *args, const UChar *,
                           int32_t, UChar32 codePoint, UConverterCallbackReason reason, UErrorCode *status)
{
    if (!IsConversionError(reason))
        return;
    auto *state = static_cast<EncodeErrorState *>(const_cast<void *>(context));
    if (reason == UCNV_UNASSIGNED && state->bestFit && WriteBaseLetter(args, codePoint, status))
        return;
    state->sawUnencodable = true;
    if (state->failOnInvalid)
        return;
    *status = U_ZERO_ERROR;
    const std::string &bytes = *state->defaultChar;
    ucnv_cbFromUWriteBytes(args, bytes.data(), (int32_t)bytes.size(), 0, status);
}

// ICU decodes the IBM PC layout's 0x1A, 0x1C and 0x7F to U+001C, U+007F and
// U+001A; Windows keeps them as U+001A, U+001C and U+007F.
void RestoreWindowsControls(WCHAR *units, size_t count)
{
    for (size_t i = 0; i < count; ++i) {
        switch (units[i]) {
        case 0x1C: units[i] = 0x1A; break;
        case 0x7F: units[i] = 0x1C; break;
        case 0x1A: units[i] = 0x7F; break;
        default: break;
        }
    }
}

// The encoding direction of the same exchange.
unsigned char WindowsControlByte(unsigned char icuByte)
{
    switch (icuByte) {
    case 0x7F: return 0x1A;
    case 0x1A: return 0x1C;
    case 0x1C: return 0x7F;
    default: return icuByte;
    }
}

unsigned char IcuControlByte(unsigned char windowsByte)
{
    switch (windowsByte) {
    case 0x1A: return 0x7F;
    case 0x1C: return 0x1A;
    case 0x7F: return 0x1C;
    default: return windowsByte;
    }
}

void RestoreWindowsControlBytes(char *bytes, size_t count)
{
    for (size_t i = 0; i < count; ++i)
        bytes[i] = (char)WindowsControlByte((unsigned char)bytes[i]);
}

// Copies the leading run of ASCII; returns how much of the source it took.
size_t CopyAsciiPrefix(const char *source, size_t length, WideSink &out)
{
    size_t i = 0;
    while (i < length && (unsigned char)source[i] < 0x80 && out.Put((unsigned char)source[i]))
        ++i;
    return i;
}

size_t CopyAsciiPrefix(const WCHAR *source, size_t length, ByteSink &out)
{
    size_t i = 0;
    while (i < length && source[i] < 0x80 && out.Put((char)source[i]))
        ++i;
    return i;
}

ConversionStatus DecodeStatus(UErrorCode status, const DecodeErrorState &state)
{
    if (status == U_BUFFER_OVERFLOW_ERROR)
        return ConversionStatus::BufferTooSmall;
    if (U_FAILURE(status))
        return state.sawInvalid ? ConversionStatus::InvalidChars : ConversionStatus::Failed;
    return ConversionStatus::Ok;
}

ConversionStatus EncodeStatus(UErrorCode status, const EncodeErrorState &state)
{
    if (status == U_BUFFER_OVERFLOW_ERROR)
        return ConversionStatus::BufferTooSmall;
    if (U_FAILURE(status))
        return state.sawUnencodable ? ConversionStatus::InvalidChars : ConversionStatus::Failed;
    return ConversionStatus::Ok;
}

UErrorCode DecodeIntoBuffer(UConverter *converter, const CodePageInfo &page, const char *source,
                            const char *end, WideSink &out)
{
    UErrorCode status = U_ZERO_ERROR;
    UChar *start = reinterpret_cast<UChar *>(out.Cursor());
    UChar *target = start;
    ucnv_toUnicode(converter, &target, start + out.Room(), &source, end, nullptr, TRUE, &status);
    size_t written = (size_t)(target - start);
    if (page.swapsPcControls)
        RestoreWindowsControls(out.Cursor(), written);
    out.Advance(written);
    return status;
}

UErrorCode DecodeCountingOnly(UConverter *converter, const char *source, const char *end, WideSink &out)
{
    UChar scratch[kScratchUnits];
    UErrorCode status;
    do {
        status = U_ZERO_ERROR;
        UChar *target = scratch;
        ucnv_toUnicode(converter, &target, scratch + kScratchUnits, &source, end, nullptr, TRUE, &status);
        out.Advance((size_t)(target - scratch));
    } while (status == U_BUFFER_OVERFLOW_ERROR);
    return status;
}

UErrorCode EncodeIntoBuffer(UConverter *converter, const CodePageInfo &page, const UChar *source,
                            const UChar *end, ByteSink &out)
{
    UErrorCode status = U_ZERO_ERROR;
    char *start = out.Cursor();
    char *target = start;
    ucnv_fromUnicode(converter, &target, start + out.Room(), &source, end, nullptr, TRUE, &status);
    size_t written = (size_t)(target - start);
    if (page.swapsPcControls)
        RestoreWindowsControlBytes(start, written);
    out.Advance(written);
    return status;
}

UErrorCode EncodeCountingOnly(UConverter *converter, const UChar *source, const UChar *end, ByteSink &out)
{
    char scratch[kScratchUnits * 2];
    UErrorCode status;
    do {
        status = U_ZERO_ERROR;
        char *target = scratch;
        ucnv_fromUnicode(converter, &target, scratch + sizeof scratch, &source, end, nullptr, TRUE, &status);
        out.Advance((size_t)(target - scratch));
    } while (status == U_BUFFER_OVERFLOW_ERROR);
    return status;
}

// The default char as ICU must write it so that the control-layout fix-up
// afterwards turns it back into what the caller asked for.
std::string DefaultCharForIcu(const CodePageInfo &page, const std::string &defaultChar)
{
    if (!page.swapsPcControls)
        return defaultChar;
    std::string adjusted = defaultChar;
    for (char &byte : adjusted)
        byte = (char)IcuControlByte((unsigned char)byte);
    return adjusted;
}

} // namespace

ConversionStatus DecodeWithIcu(const CodePageInfo &page, const char *source, size_t length,
                               bool failOnInvalid, WideSink &out)
{
    if (page.hasSingleByteTable)
        return DecodeSingleByte(page, source, length, failOnInvalid, out);
    size_t done = page.asciiTransparent ? CopyAsciiPrefix(source, length, out) : 0;
    if (out.Overflowed())
        return ConversionStatus::BufferTooSmall;
    if (done == length)
        return ConversionStatus::Ok;
    ConverterLease lease(page.pool);
    UConverter *converter = lease.Get();
    if (!converter)
        return ConversionStatus::Failed;
    DecodeErrorState state{page.unicodeDefaultChar, failOnInvalid, false};
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setToUCallBack(converter, SubstituteUndecodable, &state, nullptr, nullptr, &status);
    const char *rest = source + done;
    const char *end = source + length;
    status = out.Counting() ? DecodeCountingOnly(converter, rest, end, out)
                            : DecodeIntoBuffer(converter, page, rest, end, out);
    return DecodeStatus(status, state);
}

ConversionStatus EncodeWithIcu(const CodePageInfo &page, const WCHAR *source, size_t length,
                               const EncodeOptions &options, ByteSink &out, bool *usedDefaultChar)
{
    size_t done = page.asciiTransparent ? CopyAsciiPrefix(source, length, out) : 0;
    if (out.Overflowed())
        return ConversionStatus::BufferTooSmall;
    if (done == length)
        return ConversionStatus::Ok;
    ConverterLease lease(page.pool);
    UConverter *converter = lease.Get();
    if (!converter)
        return ConversionStatus::Failed;
    std::string defaultChar = DefaultCharForIcu(page, options.defaultChar);
    EncodeErrorState state{&defaultChar, options.bestFit, options.failOnInvalid, false};
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setFromUCallBack(converter, SubstituteUnencodable, &state, nullptr, nullptr, &status);
    ucnv_setFallback(converter, options.bestFit);
    const UChar *rest = reinterpret_cast<const UChar *>(source + done);
    const UChar *end = reinterpret_cast<const UChar *>(source + length);
    status = out.Counting() ? EncodeCountingOnly(converter, rest, end, out)
                            : EncodeIntoBuffer(converter, page, rest, end, out);
    if (usedDefaultChar && state.sawUnencodable)
        *usedDefaultChar = true;
    return EncodeStatus(status, state);
}

} // namespace brano
