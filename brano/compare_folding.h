// Text preparation for CompareString flags that ICU collation has no
// setting for: ignoring symbols, kana type and character width, and the
// word-sort handling of hyphens and apostrophes.
#ifndef BRANO_COMPARE_FOLDING_H
#define BRANO_COMPARE_FOLDING_H

#include <windows.h>

#include <unicode/utypes.h>

#include <vector>

namespace brano {

struct FoldingOptions {
    bool ignoreSymbols = false;   // drop punctuation, symbols and spaces
    bool ignoreKanaType = false;  // katakana compares as hiragana
    bool ignoreWidth = false;     // full- and half-width forms as normal ones
    bool dropWordPunctuation = false; // drop '-' and '\''

    bool Any() const { return ignoreSymbols || ignoreKanaType || ignoreWidth || dropWordPunctuation; }
};

// `text` with the folding applied, appended to `folded`.
void FoldForComparison(const WCHAR *text, size_t length, const FoldingOptions &options,
                       std::vector<UChar> &folded);

// Whether the text has a hyphen or apostrophe, which word sort treats apart.
bool HasWordPunctuation(const WCHAR *text, size_t length);

} // namespace brano

#endif
