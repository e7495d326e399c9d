// UTF-8 <-> UTF-16 by hand: it is the busiest conversion, and Windows'
// rules for bad input (one U+FFFD per maximal ill-formed subsequence, no
// encoded surrogates) are exactly those of ICU's U8/U16 macros.
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include "text_conversion.h"

namespace brano {

namespace {

constexpr UChar32 kReplacementChar = 0xFFFD;

bool PutCodePoint(UChar32 codePoint, WideSink &out)
{
    if (codePoint <= 0xFFFF)
        return out.Put((WCHAR)codePoint);
    return out.Put((WCHAR)U16_LEAD(codePoint)) && out.Put((WCHAR)U16_TRAIL(codePoint));
}

bool PutUtf8(UChar32 codePoint, ByteSink &out)
{
    uint8_t bytes[U8_MAX_LENGTH];
    int32_t count = 0;
    U8_APPEND_UNSAFE(bytes, count, codePoint);
    for (int32_t i = 0; i < count; ++i) {
        if (!out.Put((char)bytes[i]))
            return false;
    }
    return true;
}

} // namespace

ConversionStatus DecodeUtf8(const char *source, size_t length, bool failOnInvalid, WideSink &out)
{
    const uint8_t *bytes = reinterpret_cast<const uint8_t *>(source);
    int32_t total = (int32_t)length;
    int32_t index = 0;
    while (index < total) {
        if (bytes[index] < 0x80) {
            if (!out.Put(bytes[index++]))
                return ConversionStatus::BufferTooSmall;
            continue;
        }
        UChar32 codePoint;
        U8_NEXT(bytes, index, total, codePoint);
        if (codePoint < 0) {
            if (failOnInvalid)
                return ConversionStatus::InvalidChars;
            codePoint = kReplacementChar;
        }
        if (!PutCodePoint(codePoint, out))
            return ConversionStatus::BufferTooSmall;
    }
    return ConversionStatus::Ok;
}

ConversionStatus EncodeUtf8(const WCHAR *source, size_t length, bool failOnInvalid, ByteSink &out)
{
    int32_t total = (int32_t)length;
    int32_t index = 0;
    while (index < total) {
        if (source[index] < 0x80) {
            if (!out.Put((char)source[index++]))
                return ConversionStatus::BufferTooSmall;
            continue;
        }
        UChar32 codePoint;
        U16_NEXT(source, index, total, codePoint);
        if (U_IS_SURROGATE(codePoint)) {
            if (failOnInvalid)
                return ConversionStatus::InvalidChars;
            codePoint = kReplacementChar;
        }
        if (!PutUtf8(codePoint, out))
            return ConversionStatus::BufferTooSmall;
    }
    return ConversionStatus::Ok;
}

} // namespace brano
