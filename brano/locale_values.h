// The value of each locale information type (LCTYPE) for a locale.
#ifndef BRANO_LOCALE_VALUES_H
#define BRANO_LOCALE_VALUES_H

#include <windows.h>

#include <string>

#include "lcid_mapping.h"

namespace brano {

struct LocaleValue {
    bool numeric = false; // an I* type: has a number, text is its digits
    DWORD number = 0;
    std::u16string text;
};

// False when `type` (without modifier flags) is not a type this system
// supplies.
bool QueryLocaleValue(const LocaleIdentity &locale, LCTYPE type, LocaleValue &value);

} // namespace brano

#endif
