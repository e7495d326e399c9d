// The process locale as the environment names it (LC_ALL, LC_CTYPE, LANG).
#ifndef BRANO_LOCALE_ENVIRONMENT_H
#define BRANO_LOCALE_ENVIRONMENT_H

#include <string>

namespace brano {

// A POSIX locale name split into language[_territory][.codeset][@modifier].
struct PosixLocaleName {
    std::string language;  // "en"; "C" or "POSIX" for the portable locale
    std::string territory; // "US"
    std::string codeset;   // "UTF-8" as written in the name
    std::string modifier;  // "euro", "latin"
};

PosixLocaleName ParsePosixLocaleName(const char *name);

// True for "C", "POSIX" and an empty name: the portable locale.
bool IsPortableLocale(const PosixLocaleName &name);

// The first non-empty of LC_ALL, LC_CTYPE and LANG, parsed once at first
// use; later changes to the environment are not seen.
const PosixLocaleName &ProcessLocaleName();

} // namespace brano

#endif
