// The loaded ELF objects seen as Win32 modules: a module handle is the
// address at which the object's first loadable segment is mapped, the same
// value dladdr reports as dli_fbase.
#ifndef BRANO_MODULE_H
#define BRANO_MODULE_H

#include <windows.h>

namespace brano {

// The main executable's handle.
HMODULE MainModule();

// Whether the handle is the base of an object loaded in the process.
bool IsLoadedModule(HMODULE module);

} // namespace brano

#endif
