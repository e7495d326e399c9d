// Windows locale identifiers (LCIDs) and the ICU locales behind them.
#ifndef BRANO_LCID_MAPPING_H
#define BRANO_LCID_MAPPING_H

#include <windows.h>

#include <string>

namespace brano {

struct LocaleIdentity {
    LCID lcid = 0;        // a concrete identifier: never a default alias
    std::string icuName;  // "en_US", "zh_Hant_TW": always with a region
    bool invariant = false; // LOCALE_INVARIANT: English data, neutral names
};

// The locale of the process environment (see ProcessLocaleName); the
// portable "C" locale counts as en_US.
const LocaleIdentity &ProcessLocaleIdentity();

// Resolves an LCID: the default aliases (0, LOCALE_USER_DEFAULT,
// LOCALE_SYSTEM_DEFAULT) name the process locale; the sort bits are
// ignored.  False for identifiers ICU does not know.
bool ResolveLcid(LCID lcid, LocaleIdentity &identity);

} // namespace brano

#endif
