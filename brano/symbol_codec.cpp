// Code page 42 (CP_SYMBOL): symbol fonts place their glyphs at U+F020 to
// U+F0FF, one for each byte from 0x20; control bytes stay as they are.
#include "text_conversion.h"

namespace brano {

namespace {

constexpr WCHAR kSymbolBase = 0xF000;
constexpr unsigned char kFirstGlyphByte = 0x20;

} // namespace

ConversionStatus DecodeSymbol(const char *source, size_t length, WideSink &out)
{
    for (size_t i = 0; i < length; ++i) {
        unsigned char byte = (unsigned char)source[i];
        WCHAR unit = byte < kFirstGlyphByte ? byte : (WCHAR)(kSymbolBase + byte);
        if (!out.Put(unit))
            return ConversionStatus::BufferTooSmall;
    }
    return ConversionStatus::Ok;
}

ConversionStatus EncodeSymbol(const WCHAR *source, size_t length, ByteSink &out)
{
    for (size_t i = 0; i < length; ++i) {
        WCHAR unit = source[i];
        char byte;
        if (unit < kFirstGlyphByte)
            byte = (char)unit;
        else if (unit >= kSymbolBase + kFirstGlyphByte && unit <= kSymbolBase + 0xFF)
            byte = (char)(unit - kSymbolBase);
        else
            return ConversionStatus::InvalidChars;
        if (!out.Put(byte))
            return ConversionStatus::BufferTooSmall;
    }
    return ConversionStatus::Ok;
}

} // namespace brano
