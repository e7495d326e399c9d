// ICU collators for CompareString, one per locale and comparison options.
#ifndef BRANO_COLLATOR_CACHE_H
#define BRANO_COLLATOR_CACHE_H

#include <unicode/ucol.h>

#include <string>

namespace brano {

struct CollationOptions {
    bool ignoreCase = false;
    bool ignoreDiacritics = false;
    bool digitsAsNumbers = false;

    int Bits() const { return (ignoreCase ? 1 : 0) | (ignoreDiacritics ? 2 : 0) | (digitsAsNumbers ? 4 : 0); }
};

// A shared collator for the ICU locale ("" is the root order), or null when
// ICU cannot make one.  Collators are only compared with (ucol_strcoll is
// safe on a shared collator) and live as long as the process.
const UCollator *CollatorFor(const std::string &icuLocale, const CollationOptions &options);

} // namespace brano

#endif
