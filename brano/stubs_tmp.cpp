// temporary until the module code lands
#include <windows.h>
HMODULE WINAPI GetModuleHandleA(LPCSTR) { return nullptr; }
BOOL OSInit(DWORD) { return TRUE; }
