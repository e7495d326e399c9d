// CompareStringW/A and lstrcmp/lstrcmpi: locale-aware ("linguistic")
// comparison through ICU collation.  By default Windows uses word sort,
// where hyphens and apostrophes only break ties so that "coop" and "co-op"
// sort together; SORT_STRINGSORT treats them as the symbols they are.
#include <windows.h>

#include <cstring>
#include <vector>

#include "ansi_text.h"
#include "collator_cache.h"
#include "compare_folding.h"
#include "lcid_mapping.h"

namespace {

using brano::LocaleIdentity;

constexpr DWORD kCompareFlags = NORM_IGNORECASE | NORM_IGNORENONSPACE | NORM_IGNORESYMBOLS |
                                NORM_IGNOREKANATYPE | NORM_IGNOREWIDTH | SORT_STRINGSORT |
                                SORT_DIGITSASNUMBERS | LINGUISTIC_IGNORECASE |
                                LINGUISTIC_IGNOREDIACRITIC | NORM_LINGUISTIC_CASING;

// One side of a comparison: the caller's text, or a folded copy of it.
struct CompareText {
    const WCHAR *text;
    size_t length;
    std::vector<UChar> folded;

    const UChar *Data() const { return folded.empty() ? reinterpret_cast<const UChar *>(text) : folded.data(); }
    int32_t Length() const { return folded.empty() ? (int32_t)length : (int32_t)folded.size(); }
};

size_t WideLength(const WCHAR *text)
{
    size_t length = 0;
    while (text[length])
        ++length;
    return length;
}

brano::CollationOptions CollationOptionsFor(DWORD flags)
{
    brano::CollationOptions options;
    options.ignoreCase = (flags & (NORM_IGNORECASE | LINGUISTIC_IGNORECASE)) != 0;
    options.ignoreDiacritics = (flags & (NORM_IGNORENONSPACE | LINGUISTIC_IGNOREDIACRITIC)) != 0;
    options.digitsAsNumbers = (flags & SORT_DIGITSASNUMBERS) != 0;
    return options;
}

brano::FoldingOptions FoldingOptionsFor(DWORD flags)
{
    brano::FoldingOptions options;
    options.ignoreSymbols = (flags & NORM_IGNORESYMBOLS) != 0;
    options.ignoreKanaType = (flags & NORM_IGNOREKANATYPE) != 0;
    options.ignoreWidth = (flags & NORM_IGNOREWIDTH) != 0;
    return options;
}

void Prepare(CompareText &side, const brano::FoldingOptions &options)
{
    side.folded.clear();
    if (options.Any())
        brano::FoldForComparison(side.text, side.length, options, side.folded);
    // An empty fold result must still read as empty, not as the original.
    if (options.Any() && side.folded.empty())
        side.length = 0;
}

int Collate(const UCollator *collator, const CompareText &first, const CompareText &second)
{
    UCollationResult result = ucol_strcoll(collator, first.Data(), first.Length(), second.Data(), second.Length());
    return result == UCOL_LESS ? CSTR_LESS_THAN : result == UCOL_EQUAL ? CSTR_EQUAL : CSTR_GREATER_THAN;
}

// Without a collator (ICU data missing) code unit order is the best left.
int CompareCodeUnits(const CompareText &first, const CompareText &second)
{
    int32_t common = first.Length() < second.Length() ? first.Length() : second.Length();
    for (int32_t i = 0; i < common; ++i) {
        if (first.Data()[i] != second.Data()[i])
            return first.Data()[i] < second.Data()[i] ? CSTR_LESS_THAN : CSTR_GREATER_THAN;
    }
    if (first.Length() == second.Length())
        return CSTR_EQUAL;
    return first.Length() < second.Length() ? CSTR_LESS_THAN : CSTR_GREATER_THAN;
}

int CompareFolded(const UCollator *collator, CompareText &first, CompareText &second, brano::FoldingOptions folding)
{
    Prepare(first, folding);
    Prepare(second, folding);
    return collator ? Collate(collator, first, second) : CompareCodeUnits(first, second);
}

int CompareWide(const LocaleIdentity &locale, DWORD flags, const WCHAR *text1, size_t length1,
                const WCHAR *text2, size_t length2)
{
    if (length1 == length2 && std::memcmp(text1, text2, length1 * sizeof(WCHAR)) == 0)
        return CSTR_EQUAL;
    const UCollator *collator =
        brano::CollatorFor(locale.invariant ? std::string() : locale.icuName, CollationOptionsFor(flags));
    CompareText first{text1, length1, {}};
    CompareText second{text2, length2, {}};
    brano::FoldingOptions folding = FoldingOptionsFor(flags);
    bool wordSort = !(flags & SORT_STRINGSORT) && !folding.ignoreSymbols;
    if (wordSort && (brano::HasWordPunctuation(text1, length1) || brano::HasWordPunctuation(text2, length2))) {
        brano::FoldingOptions withoutPunctuation = folding;
        withoutPunctuation.dropWordPunctuation = true;
        int result = CompareFolded(collator, first, second, withoutPunctuation);
        if (result != CSTR_EQUAL)
            return result;
        first.length = length1;
        second.length = length2;
    }
    return CompareFolded(collator, first, second, folding);
}

int FailCompare(DWORD error)
{
    SetLastError(error);
    return 0;
}

// The checks both CompareString forms make, in Windows' order.
DWORD CheckCompareArguments(LCID locale, DWORD flags, const void *text1, const void *text2, LocaleIdentity &identity)
{
    if (!text1 || !text2)
        return ERROR_INVALID_PARAMETER;
    if (flags & ~kCompareFlags)
        return ERROR_INVALID_FLAGS;
    if (!brano::ResolveLcid(locale, identity))
        return ERROR_INVALID_PARAMETER;
    return ERROR_SUCCESS;
}

// lstrcmp accepts null pointers: null sorts first, two nulls are equal.
bool CompareNulls(const void *first, const void *second, int &result)
{
    if (first && second)
        return false;
    result = first == second ? 0 : first ? 1 : -1;
    return true;
}

int CompareAnsi(const LocaleIdentity &locale, DWORD flags, LPCSTR text1, int length1, LPCSTR text2, int length2)
{
    brano::WideText wide1;
    brano::WideText wide2;
    brano::AnsiToWide(text1, length1, wide1);
    brano::AnsiToWide(text2, length2, wide2);
    return CompareWide(locale, flags, wide1.Data(), wide1.Length(), wide2.Data(), wide2.Length());
}

} // namespace

int WINAPI CompareStringW(LCID Locale, DWORD dwCmpFlags, LPCWSTR lpString1, int cchCount1, LPCWSTR lpString2,
                          int cchCount2)
{
    LocaleIdentity identity;
    DWORD error = CheckCompareArguments(Locale, dwCmpFlags, lpString1, lpString2, identity);
    if (error != ERROR_SUCCESS)
        return FailCompare(error);
    size_t length1 = cchCount1 < 0 ? WideLength(lpString1) : (size_t)cchCount1;
    size_t length2 = cchCount2 < 0 ? WideLength(lpString2) : (size_t)cchCount2;
    return CompareWide(identity, dwCmpFlags, lpString1, length1, lpString2, length2);
}

int WINAPI CompareStringA(LCID Locale, DWORD dwCmpFlags, LPCSTR lpString1, int cchCount1, LPCSTR lpString2,
                          int cchCount2)
{
    LocaleIdentity identity;
    DWORD error = CheckCompareArguments(Locale, dwCmpFlags, lpString1, lpString2, identity);
    if (error != ERROR_SUCCESS)
        return FailCompare(error);
    return CompareAnsi(identity, dwCmpFlags, lpString1, cchCount1, lpString2, cchCount2);
}

int WINAPI lstrcmpA(LPCSTR lpString1, LPCSTR lpString2)
{
    int result;
    if (CompareNulls(lpString1, lpString2, result))
        return result;
    return CompareAnsi(brano::ProcessLocaleIdentity(), 0, lpString1, -1, lpString2, -1) - CSTR_EQUAL;
}

int WINAPI lstrcmpiA(LPCSTR lpString1, LPCSTR lpString2)
{
    int result;
    if (CompareNulls(lpString1, lpString2, result))
        return result;
    return CompareAnsi(brano::ProcessLocaleIdentity(), NORM_IGNORECASE, lpString1, -1, lpString2, -1) - CSTR_EQUAL;
}

int WINAPI lstrcmpW(LPCWSTR lpString1, LPCWSTR lpString2)
{
    int result;
    if (CompareNulls(lpString1, lpString2, result))
        return result;
    return CompareWide(brano::ProcessLocaleIdentity(), 0, lpString1, WideLength(lpString1), lpString2,
                       WideLength(lpString2)) -
           CSTR_EQUAL;
}

int WINAPI lstrcmpiW(LPCWSTR lpString1, LPCWSTR lpString2)
{
    int result;
    if (CompareNulls(lpString1, lpString2, result))
        return result;
    return CompareWide(brano::ProcessLocaleIdentity(), NORM_IGNORECASE, lpString1, WideLength(lpString1),
                       lpString2, WideLength(lpString2)) -
           CSTR_EQUAL;
}
