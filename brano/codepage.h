// What the conversion functions know about each code page.
#ifndef BRANO_CODEPAGE_H
#define BRANO_CODEPAGE_H

#include <windows.h>

#include <unicode/utypes.h>

#include <array>
#include <bitset>
#include <string>

#include "converter_pool.h"

namespace brano {

enum class CodePageKind {
    Utf8,   // converted by hand: the commonest page and the strictest rules
    Symbol, // code page 42: bytes map to U+F000 + byte
    Icu,    // everything else goes through an ICU converter
};

struct CodePageInfo {
    UINT id = 0;
    CodePageKind kind = CodePageKind::Icu;
    // Converters for the page; null for the symbol page.
    ConverterPool *pool = nullptr;
    // Bytes 0x00-0x7F are the same code points in both directions, so runs
    // of them may be copied without ICU.  Stateful encodings never are.
    bool asciiTransparent = false;
    // The ICU table uses the IBM PC control layout (0x1A, 0x1C and 0x7F
    // exchanged); Windows maps those bytes to themselves.
    bool swapsPcControls = false;
    // Conversion flags other than 0 are refused (ERROR_INVALID_FLAGS).
    bool flagsMustBeZero = false;
    // Only the invalid-characters flag is accepted (UTF-8, GB18030).
    bool onlyInvalidCharsFlag = false;
    // lpDefaultChar and lpUsedDefaultChar must be null when converting to it.
    bool refusesDefaultChar = false;
    // What undecodable bytes become.
    UChar unicodeDefaultChar = u'?';
    // What unencodable characters become: '?' in this page.
    std::string defaultChar = "?";
    int maxCharSize = 1;
    std::bitset<256> leadBytes;
    // Single-byte pages decode through a table (already in Windows control
    // order); bytes without a character are clear in singleByteMapped.
    bool hasSingleByteTable = false;
    std::array<WCHAR, 256> singleByteTable{};
    std::bitset<256> singleByteMapped;

    bool IsLeadByte(unsigned char byte) const { return leadBytes.test(byte); }
};

// CP_ACP, CP_OEMCP, CP_MACCP and CP_THREAD_ACP all mean the process ANSI
// page on this system; other numbers are themselves.
UINT ResolveCodePageAlias(UINT codePage);

// The description of a code page (aliases resolved), or null when no
// converter exists for it.  Descriptions live as long as the process.
const CodePageInfo *FindCodePage(UINT codePage);

} // namespace brano

#endif
