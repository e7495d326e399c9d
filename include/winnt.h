/*
 * winnt.h - fundamental Win32 scalar types.
 *
 * LONG and DWORD are 32 bits on every ABI; handles, pointers and the
 * message parameters are pointer-sized, as on 64-bit Windows.
 * WCHAR is a 16-bit unit whatever the compiler's wchar_t is.
 */
#ifndef VORLAN_WINNT_H
#define VORLAN_WINNT_H

#include "vorlan_abi.h"

#ifndef RC_INVOKED
#include <stddef.h>
#include <stdint.h>

typedef void *PVOID, *LPVOID;
typedef const void *LPCVOID;
typedef char CHAR, CCHAR;
typedef unsigned char UCHAR, BYTE, BOOLEAN;
typedef short SHORT;
typedef unsigned short USHORT, WORD;
typedef int INT, BOOL;
typedef unsigned int UINT;
typedef int LONG;
typedef unsigned int ULONG, DWORD;
typedef long long LONGLONG;
typedef unsigned long long ULONGLONG, DWORDLONG, DWORD64, ULONG64;
typedef long long LONG64, INT64;
typedef unsigned long long UINT64;
typedef int INT32, LONG32;
typedef unsigned int UINT32, ULONG32, DWORD32;
typedef float FLOAT;
typedef double DOUBLE;
typedef unsigned short WCHAR;
typedef WCHAR *PWCHAR, *LPWCH, *PWCH, *LPWSTR, *PWSTR, *NWPSTR;
typedef const WCHAR *LPCWCH, *PCWCH, *LPCWSTR, *PCWSTR;
typedef CHAR *PCHAR, *LPCH, *PCH, *LPSTR, *PSTR, *NPSTR;
typedef const CHAR *LPCCH, *PCCH, *LPCSTR, *PCSTR;

/* Pointer-precision integers. */
typedef intptr_t INT_PTR, LONG_PTR, SSIZE_T;
typedef uintptr_t UINT_PTR, ULONG_PTR, DWORD_PTR, SIZE_T;
typedef INT_PTR *PINT_PTR;
typedef UINT_PTR *PUINT_PTR;
typedef LONG_PTR *PLONG_PTR;
typedef ULONG_PTR *PULONG_PTR;
typedef SIZE_T *PSIZE_T;

typedef BOOL *PBOOL, *LPBOOL;
typedef BYTE *PBYTE, *LPBYTE;
typedef const BYTE *LPCBYTE;
typedef INT *PINT, *LPINT;
typedef UINT *PUINT, *LPUINT;
typedef WORD *PWORD, *LPWORD;
typedef LONG *PLONG, *LPLONG;
typedef DWORD *PDWORD, *LPDWORD;
typedef SHORT *PSHORT;
typedef USHORT *PUSHORT;
typedef ULONG *PULONG;
typedef FLOAT *PFLOAT;

typedef DWORD LCID, *PLCID;
typedef WORD LANGID;
typedef DWORD LCTYPE;
typedef DWORD CALTYPE;
typedef DWORD CALID;
typedef LONG HRESULT;
typedef BYTE FCHAR;
typedef WORD FSHORT;
typedef DWORD FLONG;
typedef DWORD ACCESS_MASK;

#ifdef UNICODE
typedef WCHAR TCHAR, TBYTE;
typedef LPWSTR LPTSTR, PTSTR;
typedef LPCWSTR LPCTSTR, PCTSTR;
#define __TEXT(s) u##s
#else
typedef char TCHAR, TBYTE;
typedef LPSTR LPTSTR, PTSTR;
typedef LPCSTR LPCTSTR, PCTSTR;
#define __TEXT(s) s
#endif
typedef TCHAR *PTCHAR;
#define TEXT(s) __TEXT(s)

typedef void *HANDLE;
typedef HANDLE *PHANDLE, *LPHANDLE;

/* STRICT handles are distinct pointer types; define NO_STRICT to get void*. */
#if !defined(NO_STRICT) && !defined(STRICT)
#define STRICT 1
#endif
#ifdef STRICT
#define DECLARE_HANDLE(name) \
    struct name##__ { int unused; }; \
    typedef struct name##__ *name
#else
#define DECLARE_HANDLE(name) typedef HANDLE name
#endif

typedef union _LARGE_INTEGER {
    struct {
        DWORD LowPart;
        LONG HighPart;
    } u;
    LONGLONG QuadPart;
} LARGE_INTEGER, *PLARGE_INTEGER;

typedef union _ULARGE_INTEGER {
    struct {
        DWORD LowPart;
        DWORD HighPart;
    } u;
    ULONGLONG QuadPart;
} ULARGE_INTEGER, *PULARGE_INTEGER;

#define MAKELANGID(p, s) ((((WORD)(s)) << 10) | (WORD)(p))
#define PRIMARYLANGID(lgid) ((WORD)(lgid) & 0x3ff)
#define SUBLANGID(lgid) ((WORD)(lgid) >> 10)
#define MAKELCID(lgid, srtid) ((DWORD)((((DWORD)((WORD)(srtid))) << 16) | ((DWORD)((WORD)(lgid)))))
#define LANGIDFROMLCID(lcid) ((WORD)(lcid))
#define SORT_DEFAULT 0x0
#define LANG_NEUTRAL 0x00
#define LANG_INVARIANT 0x7f
#define LANG_ENGLISH 0x09
#define LANG_CHINESE 0x04
#define LANG_JAPANESE 0x11
#define LANG_KOREAN 0x12
#define LANG_GERMAN 0x07
#define LANG_FRENCH 0x0c
#define SUBLANG_NEUTRAL 0x00
#define SUBLANG_DEFAULT 0x01
#define SUBLANG_SYS_DEFAULT 0x02
#define SUBLANG_ENGLISH_US 0x01
#define SUBLANG_CHINESE_SIMPLIFIED 0x02
#define SUBLANG_CHINESE_TRADITIONAL 0x01
#define LANG_SYSTEM_DEFAULT MAKELANGID(LANG_NEUTRAL, SUBLANG_SYS_DEFAULT)
#define LANG_USER_DEFAULT MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT)
#define LOCALE_SYSTEM_DEFAULT MAKELCID(LANG_SYSTEM_DEFAULT, SORT_DEFAULT)
#define LOCALE_USER_DEFAULT MAKELCID(LANG_USER_DEFAULT, SORT_DEFAULT)
#define LOCALE_NEUTRAL MAKELCID(MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL), SORT_DEFAULT)
#define LOCALE_INVARIANT MAKELCID(MAKELANGID(LANG_INVARIANT, SUBLANG_NEUTRAL), SORT_DEFAULT)

/* ---- Standard access rights ------------------------------------------ */
#define DELETE 0x00010000
#define READ_CONTROL 0x00020000
#define WRITE_DAC 0x00040000
#define WRITE_OWNER 0x00080000
#define SYNCHRONIZE 0x00100000
#define STANDARD_RIGHTS_REQUIRED 0x000F0000
#define STANDARD_RIGHTS_READ READ_CONTROL
#define STANDARD_RIGHTS_WRITE READ_CONTROL
#define STANDARD_RIGHTS_EXECUTE READ_CONTROL
#define STANDARD_RIGHTS_ALL 0x001F0000
#define SPECIFIC_RIGHTS_ALL 0x0000FFFF
#define MAXIMUM_ALLOWED 0x02000000
#define GENERIC_READ 0x80000000
#define GENERIC_WRITE 0x40000000
#define GENERIC_EXECUTE 0x20000000
#define GENERIC_ALL 0x10000000

#define MAXCHAR 0x7f
#define MAXBYTE 0xff
#define MAXWORD 0xffff
#define MAXDWORD 0xffffffff
#define MAXLONG 0x7fffffff

#define UNREFERENCED_PARAMETER(p) ((void)(p))

VORLAN_CHECK_SIZE(WCHAR, 2, 2);
VORLAN_CHECK_SIZE(LONG, 4, 4);
VORLAN_CHECK_SIZE(DWORD, 4, 4);
VORLAN_CHECK_SIZE(LONG_PTR, 4, 8);
VORLAN_CHECK_SIZE(HANDLE, 4, 8);
VORLAN_CHECK_SIZE(LARGE_INTEGER, 8, 8);

#endif /* RC_INVOKED */
#endif /* VORLAN_WINNT_H */
