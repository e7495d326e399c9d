// Writing a window long.  Each call returns the old value; the fields with
// side effects (styles, menu, owner, procedure) pass them on to the layers
// that own them.
#include "gtk/vorlwindowlong.h"

#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowextra.h"

using vorlan::LongWidth;
using WindowObject = vorlan::Window;

namespace {

LONG_PTR RefuseArgument()
{
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
}

// A procedure given as a value: an id stays an id, an address gets the id
// of its entry, on the side that `wide` names.
UINT ProcedureIdOf(LONG_PTR value, BOOL wide)
{
    if (IsWndProcId(value))
        return static_cast<UINT>(value);
    WNDPROC procedure = reinterpret_cast<WNDPROC>(value);
    return wide ? AllocWndProcId(nullptr, procedure) : AllocWndProcId(procedure, nullptr);
}

LONG_PTR SetExStyle(WindowObject *pWnd, DWORD exStyle)
{
    const DWORD old = pWnd->dwExStyle;
    pWnd->dwExStyle = exStyle;
    // The vertical scroll bar changes sides: the frame must be laid out again.
    if (((old ^ exStyle) & WS_EX_LEFTSCROLLBAR) != 0 && (pWnd->dwStyle & WS_VSCROLL) != 0)
        SetWindowPos(pWnd->hWnd, nullptr, 0, 0, 0, 0,
                     SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    return old;
}

LONG_PTR SetStyle(WindowObject *pWnd, DWORD style)
{
    const DWORD old = pWnd->dwStyle;
    pWnd->dwStyle = style;
    if (((old ^ style) & WS_CLIPCHILDREN) != 0 && pWnd->hDC != nullptr)
        _SetDCSubWindowMode(pWnd->hDC, (style & WS_CLIPCHILDREN) != 0);
    return old;
}

// A child's slot holds its control id; any other window's holds its menu,
// which must be a menu or 0 and whose reference moves with the slot.
LONG_PTR SetIdOrMenu(WindowObject *pWnd, LONG_PTR value)
{
    const UINT_PTR old = pWnd->hMenuOrId;
    const auto newValue = static_cast<UINT_PTR>(value);
    if (newValue == old)
        return old;
    if (vorlan::IsChildStyle(pWnd->dwStyle)) {
        pWnd->hMenuOrId = newValue;
        return old;
    }
    HMENU newMenu = reinterpret_cast<HMENU>(newValue);
    if (newMenu != nullptr && !IsMenu(newMenu))
        return 0;
    if (old != 0)
        Menu_Release(reinterpret_cast<HMENU>(old), FALSE);
    pWnd->hMenuOrId = newValue;
    if (newMenu != nullptr)
        Menu_AddRef(newMenu);
    MenuBar_UpdateLayout(pWnd->hWnd);
    return old;
}

LONG_PTR SetParentOrOwner(WindowObject *pWnd, LONG_PTR value)
{
    if (vorlan::IsChildStyle(pWnd->dwStyle))
        return 0;
    return reinterpret_cast<LONG_PTR>(SetOwner(pWnd->hWnd, reinterpret_cast<HWND>(value)));
}

LONG_PTR SetProcedure(WindowObject *pWnd, LONG_PTR value, BOOL wide)
{
    if (value == 0)
        return RefuseArgument();
    const LONG_PTR old = GetWndProc(pWnd->nIdWndProc, wide);
    pWnd->nIdWndProc = ProcedureIdOf(value, wide);
    return old;
}

LONG_PTR SetField(WindowObject *pWnd, int index, LONG_PTR value, BOOL wide)
{
    switch (index) {
    case GWLP_USERDATA: {
        const LONG_PTR old = pWnd->lUserData;
        pWnd->lUserData = value;
        return old;
    }
    case GWL_EXSTYLE:
        return SetExStyle(pWnd, static_cast<DWORD>(value));
    case GWL_VORLFLAGS: {
        const DWORD old = pWnd->dwFlags;
        pWnd->dwFlags = static_cast<DWORD>(value);
        return old;
    }
    case GWL_STYLE:
        return SetStyle(pWnd, static_cast<DWORD>(value));
    case GWLP_ID:
        return SetIdOrMenu(pWnd, value);
    case GWLP_HWNDPARENT:
        return SetParentOrOwner(pWnd, value);
    case GWLP_WNDPROC:
        return SetProcedure(pWnd, value, wide);
    default:
        return RefuseArgument();
    }
}

// A dialog's procedure is stored as an id; the first one set through the
// wide form makes the dialog a wide one.
LONG_PTR SetDialogProcedure(WindowObject *pWnd, LONG_PTR value, BOOL wide)
{
    if (value == 0)
        return RefuseArgument();
    const int size = sizeof(LONG_PTR);
    const auto oldId = static_cast<UINT>(vorlan::ReadExtra(pWnd, vorlan::kDialogProcOffset, size));
    const LONG_PTR old = oldId == 0 ? 0 : GetWndProc(oldId, wide);
    vorlan::WriteExtra(pWnd, vorlan::kDialogProcOffset, size, ProcedureIdOf(value, wide));
    if (oldId == 0 && wide)
        pWnd->dwFlags |= WF_DIALOGUNICODE;
    return old;
}

LONG_PTR SetExtra(WindowObject *pWnd, int index, LONG_PTR value, BOOL wide, LongWidth width)
{
    int size = vorlan::ByteWidth(width);
    if (vorlan::IsDialogFlagsAccess(pWnd, index))
        size = sizeof(WORD);
    if (!vorlan::ExtraRangeFits(pWnd, index, size))
        return RefuseArgument();
    if (vorlan::IsDialogProcedureAccess(pWnd, index, size))
        return SetDialogProcedure(pWnd, value, wide);
    const LONG_PTR old = vorlan::ReadExtra(pWnd, index, size);
    vorlan::WriteExtra(pWnd, index, size, value);
    return old;
}

} // namespace

namespace vorlan {

LONG_PTR SetWindowLongCore(HWND hWnd, int index, LONG_PTR value, BOOL wide, LongWidth width)
{
    WindowObject *pWnd = getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return 0;
    if (RefusedForWidth(index, width)) {
        SetLastError(ERROR_INVALID_INDEX);
        return 0;
    }
    if (index >= 0)
        return SetExtra(pWnd, index, value, wide, width);
    return Narrowed(SetField(pWnd, index, Narrowed(value, width), wide), width);
}

} // namespace vorlan

LONG SetWindowLongAW(HWND hWnd, int index, LONG value, BOOL wide)
{
    return static_cast<LONG>(vorlan::SetWindowLongCore(hWnd, index, value, wide, LongWidth::Long));
}

LONG_PTR SetWindowLongPtrAW(HWND hWnd, int index, LONG_PTR value, BOOL wide)
{
    return vorlan::SetWindowLongCore(hWnd, index, value, wide, LongWidth::Pointer);
}
