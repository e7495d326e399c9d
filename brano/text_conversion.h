// Internals shared by MultiByteToWideChar and WideCharToMultiByte: where
// converted text goes, how a conversion ends, and the converters for each
// kind of code page.
#ifndef BRANO_TEXT_CONVERSION_H
#define BRANO_TEXT_CONVERSION_H

#include <windows.h>

#include <cstddef>
#include <string>

#include "codepage.h"

namespace brano {

enum class ConversionStatus {
    Ok,
    BufferTooSmall, // the caller's buffer cannot take the whole result
    InvalidChars,   // strict conversion met text it cannot convert
    Failed,         // no converter could be had
};

// The destination of a conversion: the caller's buffer, or nothing when
// the caller only asks how long the result is.  Never writes past the
// buffer; the length keeps counting so a size query gets the total.
template <typename Unit>
class OutputSink {
public:
    OutputSink(Unit *buffer, size_t capacity) : buffer_(buffer), capacity_(buffer ? capacity : 0) {}

    bool Counting() const { return buffer_ == nullptr; }
    bool Overflowed() const { return overflowed_; }
    size_t Length() const { return length_; }
    Unit *Begin() const { return buffer_; }
    Unit *Cursor() const { return buffer_ ? buffer_ + length_ : nullptr; }
    size_t Room() const { return capacity_ - length_; }

    bool Put(Unit unit)
    {
        if (buffer_) {
            if (length_ == capacity_) {
                overflowed_ = true;
                return false;
            }
            buffer_[length_] = unit;
        }
        ++length_;
        return true;
    }

    // Accounts for `count` units written at Cursor() by someone else.
    void Advance(size_t count) { length_ += count; }
    void MarkOverflow() { overflowed_ = true; }

private:
    Unit *buffer_;
    size_t capacity_;
    size_t length_ = 0;
    bool overflowed_ = false;
};

using WideSink = OutputSink<WCHAR>;
using ByteSink = OutputSink<char>;

// How characters a code page cannot represent are handled on the way out.
struct EncodeOptions {
    std::string defaultChar;  // the bytes written instead
    bool bestFit = true;      // use near equivalents (Windows' best fit)
    bool failOnInvalid = false;
};

// UTF-8: ill-formed sequences become U+FFFD, or fail when strict; lone
// surrogates are encoded as U+FFFD, or fail when strict.
ConversionStatus DecodeUtf8(const char *source, size_t length, bool failOnInvalid, WideSink &out);
ConversionStatus EncodeUtf8(const WCHAR *source, size_t length, bool failOnInvalid, ByteSink &out);

// Code page 42: bytes from 0x20 map to U+F020..U+F0FF, lower ones to
// themselves; other characters cannot be encoded.
ConversionStatus DecodeSymbol(const char *source, size_t length, WideSink &out);
ConversionStatus EncodeSymbol(const WCHAR *source, size_t length, ByteSink &out);

// Single-byte pages, through the table in their description.
ConversionStatus DecodeSingleByte(const CodePageInfo &page, const char *source, size_t length, bool failOnInvalid,
                                  WideSink &out);

// Every other page, through its ICU converter.
ConversionStatus DecodeWithIcu(const CodePageInfo &page, const char *source, size_t length,
                               bool failOnInvalid, WideSink &out);
ConversionStatus EncodeWithIcu(const CodePageInfo &page, const WCHAR *source, size_t length,
                               const EncodeOptions &options, ByteSink &out, bool *usedDefaultChar);

} // namespace brano

#endif
