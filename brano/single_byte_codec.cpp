// Decoding of single-byte pages by table lookup: the ANSI page of most
// Western locales, converted on nearly every "A" call, never needs ICU.
#include "text_conversion.h"

namespace brano {

ConversionStatus DecodeSingleByte(const CodePageInfo &page, const char *source, size_t length, bool failOnInvalid,
                                  WideSink &out)
{
    for (size_t i = 0; i < length; ++i) {
        unsigned char byte = (unsigned char)source[i];
        WCHAR unit = page.singleByteTable[byte];
        if (!page.singleByteMapped.test(byte)) {
            if (failOnInvalid)
                return ConversionStatus::InvalidChars;
            unit = page.unicodeDefaultChar;
        }
        if (!out.Put(unit))
            return ConversionStatus::BufferTooSmall;
    }
    return ConversionStatus::Ok;
}

} // namespace brano
