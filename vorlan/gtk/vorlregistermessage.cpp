// RegisterWindowMessage: a message number shared by every window that
// registers the same name, taken from the atom table (0xC000 to 0xFFFF).
#include "gtk/vorlgtklock.h"

UINT WINAPI RegisterWindowMessageA(LPCSTR lpString)
{
    vorlan::GtkCriticalSection lock;
    ATOM atom = FindAtomA(lpString);
    if (atom == 0)
        atom = AddAtomA(lpString);
    return atom;
}

UINT WINAPI RegisterWindowMessageW(LPCWSTR lpString)
{
    vorlan::GtkCriticalSection lock;
    ATOM atom = FindAtomW(lpString);
    if (atom == 0)
        atom = AddAtomW(lpString);
    return atom;
}
