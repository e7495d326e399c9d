/*
 * The header check as C++17: the same translation unit as header_check.c,
 * plus the C++-only expectations (C linkage of the declarations).
 */
#include "header_check.c"

#include <type_traits>

/* The exports keep their unmangled C names when declared from C++. */
extern "C" HWND WINAPI CreateWindowExA(DWORD, LPCSTR, LPCSTR, DWORD, int, int, int, int, HWND, HMENU, HINSTANCE,
                                       LPVOID);
extern "C" int WINAPI StartDocW(HDC, const DOCINFOW *);

/* Distinct handle types under STRICT. */
static_assert(!std::is_same<HWND, HDC>::value, "handles are distinct types");
static_assert(std::is_same<HCURSOR, HICON>::value, "a cursor is an icon handle");
static_assert(std::is_same<WPARAM, UINT_PTR>::value && std::is_same<LPARAM, LONG_PTR>::value,
              "message parameters are pointer-sized");
