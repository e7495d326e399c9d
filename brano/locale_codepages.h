// Which Windows code pages go with a locale.
#ifndef BRANO_LOCALE_CODEPAGES_H
#define BRANO_LOCALE_CODEPAGES_H

#include <windows.h>

#include <string>

#include "locale_environment.h"

namespace brano {

// The ANSI code page for a POSIX codeset name ("UTF-8", "ISO-8859-2",
// "GBK"...), or 0 when the codeset says nothing about it.
UINT AnsiCodePageForCodeset(const std::string &codeset);

// The ANSI code page Windows uses for a language ("el") and territory
// ("GR", may be empty).
UINT AnsiCodePageForLanguage(const std::string &language, const std::string &territory);

// The ANSI code page for a whole locale name: the codeset decides when it
// is known, otherwise the language; the portable locale is 1252.
UINT AnsiCodePageForPosixLocale(const PosixLocaleName &name);

// The OEM (console) and Macintosh code pages that go with an ANSI page.
UINT OemCodePageForAnsi(UINT ansiCodePage);
UINT MacCodePageForAnsi(UINT ansiCodePage);

} // namespace brano

#endif
