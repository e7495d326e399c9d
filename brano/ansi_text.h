// Conversions between the process ANSI page and UTF-16 for the "A"
// entry points, into buffers that stay on the stack for short text.
#ifndef BRANO_ANSI_TEXT_H
#define BRANO_ANSI_TEXT_H

#include <windows.h>

#include <string>
#include <vector>

namespace brano {

// UTF-16 text of any length; up to kInline units without touching the heap.
class WideText {
public:
    static constexpr size_t kInline = 256;

    WCHAR *Data() { return heap_.empty() ? inline_ : heap_.data(); }
    const WCHAR *Data() const { return heap_.empty() ? inline_ : heap_.data(); }
    size_t Length() const { return length_; }

    // Makes room for `length` units plus a terminator; contents undefined.
    void Resize(size_t length);

private:
    WCHAR inline_[kInline + 1];
    std::vector<WCHAR> heap_;
    size_t length_ = 0;
};

// `length` bytes of ANSI text (-1: up to the terminator, which is not
// included) as terminated UTF-16.  Invalid bytes become the page's default
// character, as MultiByteToWideChar does without MB_ERR_INVALID_CHARS.
void AnsiToWide(const char *text, int length, WideText &wide);

// UTF-16 text as ANSI bytes (no terminator), unencodable characters as '?'.
std::string WideToAnsi(const WCHAR *text, size_t length);
std::string WideToAnsi(const std::u16string &text);

} // namespace brano

#endif
