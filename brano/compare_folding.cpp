// Folding steps run code point by code point, in the order width, kana,
// symbols, word punctuation, so a half-width katakana letter first becomes
// full width and then hiragana.
#include "compare_folding.h"

#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/utf16.h>

namespace brano {

namespace {

constexpr UChar32 kFirstFoldedKatakana = 0x30A1; // small a
constexpr UChar32 kLastFoldedKatakana = 0x30F6;  // small ke
constexpr UChar32 kKatakanaToHiragana = 0x60;

bool IsWordPunctuation(UChar32 codePoint)
{
    return codePoint == u'-' || codePoint == u'\'';
}

bool IsSymbolLike(UChar32 codePoint)
{
    return (U_GET_GC_MASK(codePoint) & (U_GC_P_MASK | U_GC_S_MASK | U_GC_Z_MASK)) != 0;
}

bool IsWidthVariant(UChar32 codePoint)
{
    int type = u_getIntPropertyValue(codePoint, UCHAR_DECOMPOSITION_TYPE);
    return type == U_DT_WIDE || type == U_DT_NARROW;
}

UChar32 FoldKana(UChar32 codePoint)
{
    if (codePoint >= kFirstFoldedKatakana && codePoint <= kLastFoldedKatakana)
        return codePoint - kKatakanaToHiragana;
    return codePoint;
}

void AppendCodePoint(UChar32 codePoint, std::vector<UChar> &folded)
{
    if (codePoint <= 0xFFFF) {
        folded.push_back((UChar)codePoint);
    } else {
        folded.push_back(U16_LEAD(codePoint));
        folded.push_back(U16_TRAIL(codePoint));
    }
}

void AppendFolded(UChar32 codePoint, const FoldingOptions &options, std::vector<UChar> &folded)
{
    if (options.ignoreKanaType)
        codePoint = FoldKana(codePoint);
    if (options.ignoreSymbols && IsSymbolLike(codePoint))
        return;
    if (options.dropWordPunctuation && IsWordPunctuation(codePoint))
        return;
    AppendCodePoint(codePoint, folded);
}

// The normal-width form of a width variant (one or two code points).
bool AppendNormalWidth(UChar32 codePoint, const FoldingOptions &options, std::vector<UChar> &folded)
{
    UErrorCode status = U_ZERO_ERROR;
    const UNormalizer2 *nfkc = unorm2_getNFKCInstance(&status);
    UChar mapping[8];
    int32_t length = U_SUCCESS(status) ? unorm2_getRawDecomposition(nfkc, codePoint, mapping, 8, &status) : -1;
    if (U_FAILURE(status) || length <= 0)
        return false;
    for (int32_t i = 0; i < length;) {
        UChar32 mapped;
        U16_NEXT(mapping, i, length, mapped);
        AppendFolded(mapped, options, folded);
    }
    return true;
}

} // namespace

void FoldForComparison(const WCHAR *text, size_t length, const FoldingOptions &options, std::vector<UChar> &folded)
{
    folded.reserve(folded.size() + length);
    int32_t total = (int32_t)length;
    for (int32_t i = 0; i < total;) {
        UChar32 codePoint;
        U16_NEXT(text, i, total, codePoint);
        if (options.ignoreWidth && IsWidthVariant(codePoint) && AppendNormalWidth(codePoint, options, folded))
            continue;
        AppendFolded(codePoint, options, folded);
    }
}

bool HasWordPunctuation(const WCHAR *text, size_t length)
{
    for (size_t i = 0; i < length; ++i) {
        if (IsWordPunctuation(text[i]))
            return true;
    }
    return false;
}

} // namespace brano
