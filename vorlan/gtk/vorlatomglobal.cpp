// The global atom calls.  There is no table shared between processes: the
// global names live in the same table as the local ones.
#include <windows.h>

ATOM WINAPI GlobalAddAtomA(LPCSTR lpString)
{
    return AddAtomA(lpString);
}

ATOM WINAPI GlobalAddAtomW(LPCWSTR lpString)
{
    return AddAtomW(lpString);
}

ATOM WINAPI GlobalFindAtomA(LPCSTR lpString)
{
    return FindAtomA(lpString);
}

ATOM WINAPI GlobalFindAtomW(LPCWSTR lpString)
{
    return FindAtomW(lpString);
}

ATOM WINAPI GlobalDeleteAtom(ATOM nAtom)
{
    return DeleteAtom(nAtom);
}

UINT WINAPI GlobalGetAtomNameA(ATOM nAtom, LPSTR lpBuffer, int nSize)
{
    return GetAtomNameA(nAtom, lpBuffer, nSize);
}

UINT WINAPI GlobalGetAtomNameW(ATOM nAtom, LPWSTR lpBuffer, int nSize)
{
    return GetAtomNameW(nAtom, lpBuffer, nSize);
}
