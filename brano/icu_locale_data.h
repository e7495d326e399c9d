// Locale data read from ICU, as UTF-16 strings and plain numbers.
#ifndef BRANO_ICU_LOCALE_DATA_H
#define BRANO_ICU_LOCALE_DATA_H

#include <unicode/udat.h>
#include <unicode/unum.h>

#include <string>

namespace brano {

std::u16string DisplayLanguage(const std::string &locale, const std::string &inLocale);
std::u16string DisplayCountry(const std::string &locale, const std::string &inLocale);
std::u16string DisplayName(const std::string &locale, const std::string &inLocale);

std::string LanguageCode(const std::string &locale);    // "en"
std::string RegionCode(const std::string &locale);      // "US"
std::string Iso3LanguageCode(const std::string &locale); // "eng"
std::string Iso3RegionCode(const std::string &locale);   // "USA"

// A symbol of the locale's decimal (or, for the currency symbols, currency)
// number format.
std::u16string NumberSymbol(const std::string &locale, UNumberFormatSymbol symbol);
// The ten digits the locale writes numbers with.
std::u16string NativeDigits(const std::string &locale);

struct GroupingSizes {
    int primary = 3;
    int secondary = 0; // 0: every group has the primary size
};
GroupingSizes NumberGrouping(const std::string &locale, bool currency);
int CurrencyFractionDigits(const std::string &locale);
std::u16string CurrencyPattern(const std::string &locale);

std::u16string DateTimePattern(const std::string &locale, UDateFormatStyle timeStyle, UDateFormatStyle dateStyle);
std::u16string DateSymbol(const std::string &locale, UDateFormatSymbolType type, int index);

int FirstDayOfWeek(const std::string &locale);          // ICU numbering: 1 is Sunday
int MinimalDaysInFirstWeek(const std::string &locale);
bool UsesUsMeasurement(const std::string &locale);

} // namespace brano

#endif
