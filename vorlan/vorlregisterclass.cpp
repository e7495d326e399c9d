// RegisterClassA/W and their Ex forms.  The class name becomes an atom,
// the procedure an id on the side of the call, and the class list gets
// the record; a failure after AddAtom gives the atom's count back.
#include "vorlwindowclass.h"

#include "gtk/vorlgtklock.h"
#include "vorlwindowproc.h"

namespace {

constexpr int kMenuNameUnits = 256;

ATOM Refuse()
{
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
}

// The common part once the name is an atom: the procedure id, then the
// record.
ATOM RegisterAtom(ATOM atom, UINT nIdWndProc, WindowClassFields fields)
{
    if (nIdWndProc == 0) {
        DeleteAtom(atom);
        return 0;
    }
    fields.nIdWndProc = nIdWndProc;
    if (RegisterClassCore(atom, fields) == nullptr) {
        DeleteAtom(atom);
        return 0;
    }
    return atom;
}

template <typename WndClassEx> WindowClassFields FieldsOf(const WndClassEx &wc)
{
    WindowClassFields fields = {};
    fields.style = wc.style;
    fields.cbClsExtra = wc.cbClsExtra;
    fields.cbWndExtra = wc.cbWndExtra;
    fields.hInstance = wc.hInstance;
    fields.hIcon = wc.hIcon;
    fields.hCursor = wc.hCursor;
    fields.hbrBackground = wc.hbrBackground;
    fields.hIconSm = wc.hIconSm;
    return fields;
}

template <typename WndClass, typename WndClassEx> WndClassEx Extended(const WndClass &wc)
{
    WndClassEx wcx = {};
    wcx.cbSize = sizeof wcx;
    wcx.style = wc.style;
    wcx.lpfnWndProc = wc.lpfnWndProc;
    wcx.cbClsExtra = wc.cbClsExtra;
    wcx.cbWndExtra = wc.cbWndExtra;
    wcx.hInstance = wc.hInstance;
    wcx.hIcon = wc.hIcon;
    wcx.hCursor = wc.hCursor;
    wcx.hbrBackground = wc.hbrBackground;
    wcx.lpszMenuName = wc.lpszMenuName;
    wcx.lpszClassName = wc.lpszClassName;
    return wcx;
}

ATOM RegisterWide(const WNDCLASSEXW &wcx)
{
    if (wcx.lpszClassName == nullptr || wcx.lpfnWndProc == nullptr)
        return Refuse();
    const ATOM atom = AddAtomW(wcx.lpszClassName);
    if (atom == 0)
        return 0;
    WindowClassFields fields = FieldsOf(wcx);
    fields.pszMenuName = wcx.lpszMenuName;
    return RegisterAtom(atom, AllocWndProcId(nullptr, wcx.lpfnWndProc), fields);
}

ATOM RegisterNarrow(const WNDCLASSEXA &wcx)
{
    if (wcx.lpszClassName == nullptr || wcx.lpfnWndProc == nullptr)
        return Refuse();
    WCHAR menuName[kMenuNameUnits];
    WindowClassFields fields = FieldsOf(wcx);
    fields.pszMenuName = reinterpret_cast<LPCWSTR>(wcx.lpszMenuName);
    if (!IS_INTRESOURCE(wcx.lpszMenuName)) {
        if (MultiByteToWideChar(CP_ACP, 0, wcx.lpszMenuName, -1, menuName, kMenuNameUnits) == 0) {
            SetLastError(ERROR_INTERNAL_ERROR);
            return 0;
        }
        fields.pszMenuName = menuName;
    }
    const ATOM atom = AddAtomA(wcx.lpszClassName);
    if (atom == 0)
        return 0;
    return RegisterAtom(atom, AllocWndProcId(wcx.lpfnWndProc, nullptr), fields);
}

} // namespace

ATOM WINAPI RegisterClassW(const WNDCLASSW *lpWndClass)
{
    vorlan::GtkCriticalSection lock;
    if (lpWndClass == nullptr)
        return Refuse();
    return RegisterWide(Extended<WNDCLASSW, WNDCLASSEXW>(*lpWndClass));
}

ATOM WINAPI RegisterClassA(const WNDCLASSA *lpWndClass)
{
    vorlan::GtkCriticalSection lock;
    if (lpWndClass == nullptr)
        return Refuse();
    return RegisterNarrow(Extended<WNDCLASSA, WNDCLASSEXA>(*lpWndClass));
}

ATOM WINAPI RegisterClassExW(const WNDCLASSEXW *lpwcx)
{
    vorlan::GtkCriticalSection lock;
    if (lpwcx == nullptr || lpwcx->cbSize != sizeof(WNDCLASSEXW))
        return Refuse();
    return RegisterWide(*lpwcx);
}

ATOM WINAPI RegisterClassExA(const WNDCLASSEXA *lpwcx)
{
    vorlan::GtkCriticalSection lock;
    if (lpwcx == nullptr || lpwcx->cbSize != sizeof(WNDCLASSEXA))
        return Refuse();
    return RegisterNarrow(*lpwcx);
}
