// Character-level knowledge of the process ANSI page: what each byte
// means alone, its case partners, and how long each character is.
#ifndef BRANO_ANSI_CHARS_H
#define BRANO_ANSI_CHARS_H

#include <windows.h>

#include <cstddef>

namespace brano {

struct AnsiByteTables {
    // The character a byte stands for on its own; 0 for lead bytes and
    // bytes that are not characters alone (and for the byte 0).
    WCHAR unicode[256];
    // The byte's lower and upper case partners within the page; the byte
    // itself when it has none there.
    unsigned char lower[256];
    unsigned char upper[256];
    // Every character is one byte, so the tables cover all text.
    bool singleByte;
};

// Built at first use for GetACP().
const AnsiByteTables &AnsiTables();

// The length in bytes of the ANSI character at `text` (1 to 4), never
// counting a terminator as part of a character and never more than
// `available`.
size_t AnsiCharLength(const char *text, size_t available);

} // namespace brano

#endif
