// Per-thread last error: the only error channel of the Win32 calls.
#include <windows.h>

namespace {
thread_local DWORD t_lastError = ERROR_SUCCESS;
}

DWORD WINAPI GetLastError(void)
{
    return t_lastError;
}

void WINAPI SetLastError(DWORD dwErrCode)
{
    t_lastError = dwErrCode;
}
