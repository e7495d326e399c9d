// Windows code page numbers and the ICU character sets that implement them.
#ifndef BRANO_CODEPAGE_NAMES_H
#define BRANO_CODEPAGE_NAMES_H

#include <windows.h>

#include <string>
#include <vector>

namespace brano {

// ICU names to try for a code page, best first.
std::vector<std::string> IcuNameCandidates(UINT codePage);

} // namespace brano

#endif
