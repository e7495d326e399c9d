// The language used to choose among translations of one resource.
#ifndef BRANO_RESOURCE_LANGUAGE_H
#define BRANO_RESOURCE_LANGUAGE_H

#include <windows.h>

namespace brano {

// The primary language of the process's message locale (LC_ALL,
// LC_MESSAGES, then LANG), or LANG_NEUTRAL when it is unset, "C"/"POSIX"
// or not one the table knows.
WORD ProcessPrimaryLanguage();

} // namespace brano

#endif
