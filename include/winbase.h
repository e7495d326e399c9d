/*
 * winbase.h - the kernel-level subset supplied by libbrano: last error,
 * memory blocks, modules and resources, threads and time, hooks, and the
 * host's own OS helpers.
 */
#ifndef VORLAN_WINBASE_H
#define VORLAN_WINBASE_H

#include "windef.h"

#ifndef RC_INVOKED

/* ---- Security attributes of created objects ------------------------ */
typedef PVOID PSECURITY_DESCRIPTOR;
typedef struct _SECURITY_ATTRIBUTES {
    DWORD nLength;
    LPVOID lpSecurityDescriptor;
    BOOL bInheritHandle;
} SECURITY_ATTRIBUTES, *PSECURITY_ATTRIBUTES, *LPSECURITY_ATTRIBUTES;
VORLAN_CHECK_SIZE(SECURITY_ATTRIBUTES, 12, 24);

/* ---- Last error ------------------------------------------------------ */
BRANOAPI DWORD WINAPI GetLastError(void);
BRANOAPI void WINAPI SetLastError(DWORD dwErrCode);

/* ---- Global memory --------------------------------------------------- */
#define GMEM_FIXED 0x0000
#define GMEM_MOVEABLE 0x0002
#define GMEM_NOCOMPACT 0x0010
#define GMEM_NODISCARD 0x0020
#define GMEM_ZEROINIT 0x0040
#define GMEM_MODIFY 0x0080
#define GMEM_DISCARDABLE 0x0100
#define GMEM_NOT_BANKED 0x1000
#define GMEM_SHARE 0x2000
#define GMEM_DDESHARE 0x2000
#define GMEM_LOCKCOUNT 0x00ff
#define GMEM_DISCARDED 0x4000
#define GMEM_INVALID_HANDLE 0x8000
#define GMEM_VALID_FLAGS 0x7F72
#define GHND (GMEM_MOVEABLE | GMEM_ZEROINIT)
#define GPTR (GMEM_FIXED | GMEM_ZEROINIT)
#define LMEM_FIXED 0x0000
#define LMEM_MOVEABLE 0x0002
#define LMEM_ZEROINIT 0x0040
#define LHND (LMEM_MOVEABLE | LMEM_ZEROINIT)
#define LPTR (LMEM_FIXED | LMEM_ZEROINIT)

BRANOAPI HGLOBAL WINAPI GlobalAlloc(UINT uFlags, SIZE_T dwBytes);
BRANOAPI HGLOBAL WINAPI GlobalReAlloc(HGLOBAL hMem, SIZE_T dwBytes, UINT uFlags);
BRANOAPI LPVOID WINAPI GlobalLock(HGLOBAL hMem);
BRANOAPI BOOL WINAPI GlobalUnlock(HGLOBAL hMem);
BRANOAPI SIZE_T WINAPI GlobalSize(HGLOBAL hMem);
BRANOAPI UINT WINAPI GlobalFlags(HGLOBAL hMem);
BRANOAPI HGLOBAL WINAPI GlobalHandle(LPCVOID pMem);
BRANOAPI HGLOBAL WINAPI GlobalFree(HGLOBAL hMem);

/* Host plain blocks. OSLocalAlloc returns a status whose low 14 bits are
 * zero on success; OS_STATUS_NO_MEMORY and OS_STATUS_BAD_ARGUMENT are its
 * failure values. */
typedef DWORD OSSTATUS;
#define OS_STATUS_OK 0u
#define OS_STATUS_NO_MEMORY 0x0008u
#define OS_STATUS_BAD_ARGUMENT 0x0057u
#define OS_STATUS_FAILED(s) (((s) & 0x3fffu) != 0)
BRANOAPI OSSTATUS OSLocalAlloc(SIZE_T size, void **block);
BRANOAPI void *OSLocalAllocNoStatus(SIZE_T size);
BRANOAPI void OSLocalFree(void *block);

/* ---- Modules and resources ------------------------------------------- */
#define IS_INTRESOURCE(r) ((((ULONG_PTR)(r)) >> 16) == 0)
#define MAKEINTRESOURCEA(i) ((LPSTR)((ULONG_PTR)((WORD)(i))))
#define MAKEINTRESOURCEW(i) ((LPWSTR)((ULONG_PTR)((WORD)(i))))
#ifdef UNICODE
#define MAKEINTRESOURCE MAKEINTRESOURCEW
#else
#define MAKEINTRESOURCE MAKEINTRESOURCEA
#endif

BRANOAPI HMODULE WINAPI GetModuleHandleA(LPCSTR lpModuleName);
BRANOAPI DWORD WINAPI GetModuleFileNameA(HMODULE hModule, LPSTR lpFilename, DWORD nSize);
BRANOAPI HRSRC WINAPI FindResourceA(HMODULE hModule, LPCSTR lpName, LPCSTR lpType);
BRANOAPI HGLOBAL WINAPI LoadResource(HMODULE hModule, HRSRC hResInfo);
BRANOAPI LPVOID WINAPI LockResource(HGLOBAL hResData);
BRANOAPI BOOL WINAPI FreeResource(HGLOBAL hResData);
BRANOAPI DWORD WINAPI SizeofResource(HMODULE hModule, HRSRC hResInfo);
BRANOAPI int WINAPI LoadStringA(HINSTANCE hInstance, UINT uID, LPSTR lpBuffer, int cchBufferMax);
BRANOAPI int WINAPI LoadStringW(HINSTANCE hInstance, UINT uID, LPWSTR lpBuffer, int cchBufferMax);
#define FindResource FindResourceA

/* Registers a block of compiled resource data (the bytes of a .res file)
 * as the resources of a module.  Executables built with the resource
 * helper call this from a constructor; it is public so that plug-ins can
 * do the same.  Returns FALSE for data that is not a resource file. */
BRANOAPI BOOL BranoRegisterModuleResources(HMODULE hModule, const void *data, SIZE_T size);
/* Withdraws a block registered with the same module and data pointer (a
 * module being unloaded); the HRSRC and HGLOBAL values of its resources
 * become invalid.  FALSE when no such block is registered. */
BRANOAPI BOOL BranoUnregisterModuleResources(HMODULE hModule, const void *data);

/* ---- Threads and time ------------------------------------------------ */
BRANOAPI DWORD WINAPI GetCurrentThreadId(void);
BRANOAPI DWORD WINAPI GetCurrentProcessId(void);
BRANOAPI DWORD WINAPI GetTickCount(void);
BRANOAPI void WINAPI Sleep(DWORD dwMilliseconds);
#define INFINITE 0xFFFFFFFF

/* ---- Arithmetic ------------------------------------------------------ */
BRANOAPI int WINAPI MulDiv(int nNumber, int nNumerator, int nDenominator);

/* ---- Host start-up and settings ------------------------------------- */
BRANOAPI BOOL OSInit(DWORD flags);
BRANOAPI LONG OSGetEnvironmentLong(LPCSTR name);
BRANOAPI DWORD OSGetEnvironmentString(LPCSTR name, LPSTR buffer, DWORD size);

/* ---- Stack walking for diagnostics ---------------------------------- */
typedef struct _OSSTACKFRAME {
    void *pc;          /* return address of the frame */
    void *frame;       /* frame pointer, or 0 when unknown */
    DWORD index;       /* 0 for the innermost reported frame */
} OSSTACKFRAME;
/* Called for each frame; a non-zero result stops the walk. */
typedef int (*OSSTACKWALKPROC)(void *context, const OSSTACKFRAME *frame);
/* Walks the caller's stack, skipping `skip` frames above the caller.  With
 * a null callback each frame is formatted and printed to standard output.
 * Returns the number of frames visited. */
BRANOAPI int OSWalkStack(int skip, OSSTACKWALKPROC callback, void *context);
/* Writes a text for one frame: address, and with flags bit 0 the module and
 * symbol.  Returns the bytes written without the terminator. */
BRANOAPI int OSFormatStackFrame(LPSTR buffer, DWORD flags, const OSSTACKFRAME *frame, DWORD size);

#endif /* RC_INVOKED */
#endif /* VORLAN_WINBASE_H */
