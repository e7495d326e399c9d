// Locale facts Windows has and ICU does not.
#ifndef BRANO_LOCALE_TABLES_H
#define BRANO_LOCALE_TABLES_H

#include <windows.h>

#include <string>

namespace brano {

// The international dialling code Windows uses as the country code
// (LOCALE_ICOUNTRY): 1 for the United States, 49 for Germany.
DWORD CountryDiallingCode(const std::string &region);

// The three-letter Windows language abbreviation (LOCALE_SABBREVLANGNAME):
// "ENU" for en_US, "DEU" for de_DE; empty when the table has none.
std::string WindowsLanguageAbbreviation(const std::string &language, const std::string &region);

} // namespace brano

#endif
