// UnregisterClassA/W.  A class with a top-level window stays.  The name may
// be the class atom itself in the low word; a string goes through the atom
// table.  Removing the class drops the one atom count its registration
// added.
#include "vorlwindowclass.h"

#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"

namespace {

BOOL Fail(DWORD error)
{
    SetLastError(error);
    return FALSE;
}

bool HasTopLevelWindow(ATOM atom)
{
    vorlan::Window *desktop = vorlan::getWindow(g_hWndDesktop);
    if (desktop == nullptr)
        return false;
    for (vorlan::Window *pWnd = desktop->pWndChild; pWnd != nullptr; pWnd = pWnd->pWndNext) {
        if (pWnd->pClass != nullptr && pWnd->pClass->atom == atom)
            return true;
    }
    return false;
}

BOOL UnregisterAtom(ATOM atom)
{
    if (atom == 0)
        return Fail(ERROR_CLASS_DOES_NOT_EXIST);
    if (HasTopLevelWindow(atom))
        return Fail(ERROR_CLASS_HAS_WINDOWS);
    if (!WindowClass_Remove(atom))
        return Fail(ERROR_CLASS_DOES_NOT_EXIST);
    DeleteAtom(atom);
    return TRUE;
}

template <typename Char> ATOM AtomOfName(const Char *name, ATOM (*findAtom)(const Char *))
{
    if (IS_INTRESOURCE(name))
        return static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(name));
    return findAtom(name);
}

} // namespace

BOOL WINAPI UnregisterClassA(LPCSTR lpClassName, HINSTANCE)
{
    vorlan::GtkCriticalSection lock;
    if (lpClassName == nullptr)
        return Fail(ERROR_INVALID_PARAMETER);
    return UnregisterAtom(AtomOfName<char>(lpClassName, FindAtomA));
}

BOOL WINAPI UnregisterClassW(LPCWSTR lpClassName, HINSTANCE)
{
    vorlan::GtkCriticalSection lock;
    if (lpClassName == nullptr)
        return Fail(ERROR_INVALID_PARAMETER);
    return UnregisterAtom(AtomOfName<WCHAR>(lpClassName, FindAtomW));
}
