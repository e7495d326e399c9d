// Window longs: GetWindowLong and SetWindowLong with their pointer-sized
// forms, over the window's fields and its extra bytes.
#include "gtk/vorlwindowlong.h"

#include <vorlan.h>
#include "vorlwindowproc.h"

#include "gtk/vorlstartup.h"
#include "gtk/vorlpending.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"
#include "vorlscrollbarinfo.h"

#include <cstdlib>

// ----------------------------------------------------------------------------
// GetWindowLong and SetWindowLong in their A, W and pointer-sized forms:
// each takes the toolkit lock and runs the shared core.

LONG WINAPI GetWindowLongA(HWND hWnd, int nIndex)
{
    vorlan::GtkCriticalSection lock;
    return GetWindowLongAW(hWnd, nIndex, FALSE);
}

LONG WINAPI GetWindowLongW(HWND hWnd, int nIndex)
{
    vorlan::GtkCriticalSection lock;
    return GetWindowLongAW(hWnd, nIndex, TRUE);
}

LONG WINAPI SetWindowLongA(HWND hWnd, int nIndex, LONG dwNewLong)
{
    vorlan::GtkCriticalSection lock;
    return SetWindowLongAW(hWnd, nIndex, dwNewLong, FALSE);
}

LONG WINAPI SetWindowLongW(HWND hWnd, int nIndex, LONG dwNewLong)
{
    vorlan::GtkCriticalSection lock;
    return SetWindowLongAW(hWnd, nIndex, dwNewLong, TRUE);
}

#if VORLAN_LP64
LONG_PTR WINAPI GetWindowLongPtrA(HWND hWnd, int nIndex)
{
    vorlan::GtkCriticalSection lock;
    return GetWindowLongPtrAW(hWnd, nIndex, FALSE);
}

LONG_PTR WINAPI GetWindowLongPtrW(HWND hWnd, int nIndex)
{
    vorlan::GtkCriticalSection lock;
    return GetWindowLongPtrAW(hWnd, nIndex, TRUE);
}

LONG_PTR WINAPI SetWindowLongPtrA(HWND hWnd, int nIndex, LONG_PTR dwNewLong)
{
    vorlan::GtkCriticalSection lock;
    return SetWindowLongPtrAW(hWnd, nIndex, dwNewLong, FALSE);
}

LONG_PTR WINAPI SetWindowLongPtrW(HWND hWnd, int nIndex, LONG_PTR dwNewLong)
{
    vorlan::GtkCriticalSection lock;
    return SetWindowLongPtrAW(hWnd, nIndex, dwNewLong, TRUE);
}
#endif

// ----------------------------------------------------------------------------
// Reading a window long: the fields behind the negative indexes, and the
// extra bytes behind the others.

using vorlan::LongWidth;
using WindowObject = vorlan::Window;

namespace {

constexpr int kScrollRange = 100;
constexpr UINT kHorizontalRecordFlags = 4;
constexpr UINT kVerticalRecordFlags = kHorizontalRecordFlags | kScrollBarVertical;

// The two frame scroll bar records, made zeroed with range 0 to 100 on
// first demand.  Null when out of memory.
ScrollBarInfo *FrameScrollBars(WindowObject *pWnd)
{
    if (pWnd->pScrollInfo == nullptr) {
        auto *records = static_cast<ScrollBarInfo *>(std::calloc(2, sizeof(ScrollBarInfo)));
        if (records == nullptr)
            return nullptr;
        records[0].nMax = kScrollRange;
        records[0].uFlags = kHorizontalRecordFlags;
        records[1].nMax = kScrollRange;
        records[1].uFlags = kVerticalRecordFlags;
        pWnd->pScrollInfo = records;
    }
    return static_cast<ScrollBarInfo *>(pWnd->pScrollInfo);
}

LONG_PTR ScrollRecord(WindowObject *pWnd, int which)
{
    ScrollBarInfo *records = FrameScrollBars(pWnd);
    if (records == nullptr) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return 0;
    }
    return reinterpret_cast<LONG_PTR>(&records[which]);
}

// Top-level windows answer their owner, others their parent.
LONG_PTR ParentOrOwner(const WindowObject *pWnd)
{
    const bool topLevel = pWnd->pWndParent == nullptr || pWnd->pWndParent->hWnd == g_hWndDesktop;
    return reinterpret_cast<LONG_PTR>(vorlan::HandleOf(topLevel ? pWnd->pWndOwner : pWnd->pWndParent));
}

LONG_PTR FieldValue(WindowObject *pWnd, int index, BOOL wide)
{
    switch (index) {
    case GWLP_USERDATA:
        return pWnd->lUserData;
    case GWL_EXSTYLE:
        return pWnd->dwExStyle;
    case GWL_VORLFLAGS:
        return pWnd->dwFlags;
    case GWL_VSCROLLINFO:
        return ScrollRecord(pWnd, 1);
    case GWL_HSCROLLINFO:
        return ScrollRecord(pWnd, 0);
    case GWL_STYLE:
        return pWnd->dwStyle;
    case GWLP_ID:
        return pWnd->hMenuOrId;
    case GWLP_HWNDPARENT:
        return ParentOrOwner(pWnd);
    case GWLP_HINSTANCE:
        return static_cast<LONG_PTR>(GetClassLongPtrA(pWnd->hWnd, GCLP_HMODULE));
    case GWLP_WNDPROC:
        return GetWndProc(pWnd->nIdWndProc, wide);
    default:
        return 0; // unknown negative indexes read 0 without an error
    }
}

LONG_PTR DialogProcedure(const WindowObject *pWnd, BOOL wide)
{
    const auto id = static_cast<UINT>(vorlan::ReadExtra(pWnd, vorlan::kDialogProcOffset, sizeof(LONG_PTR)));
    return id == 0 ? 0 : GetWndProc(id, wide);
}

// The extra bytes at `index`, with the dialog meanings of WF_DIALOG.
LONG_PTR ExtraValue(const WindowObject *pWnd, int index, BOOL wide, LongWidth width)
{
    int size = vorlan::ByteWidth(width);
    if (vorlan::IsDialogFlagsAccess(pWnd, index))
        size = sizeof(WORD);
    if (!vorlan::ExtraRangeFits(pWnd, index, size)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if (vorlan::IsDialogProcedureAccess(pWnd, index, vorlan::ByteWidth(width)))
        return DialogProcedure(pWnd, wide);
    return vorlan::ReadExtra(pWnd, index, size);
}

} // namespace

namespace vorlan {

bool IsPointerIndex(int index)
{
    return index == GWLP_WNDPROC || index == GWLP_HINSTANCE || index == GWLP_HWNDPARENT ||
           index == GWL_VSCROLLINFO || index == GWL_HSCROLLINFO;
}

LONG_PTR GetWindowLongCore(HWND hWnd, int index, BOOL wide, LongWidth width)
{
    WindowObject *pWnd = getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return 0;
    if (RefusedForWidth(index, width)) {
        SetLastError(ERROR_INVALID_INDEX);
        return 0;
    }
    if (index >= 0)
        return ExtraValue(pWnd, index, wide, width);
    return Narrowed(FieldValue(pWnd, index, wide), width);
}

} // namespace vorlan

LONG GetWindowLongAW(HWND hWnd, int index, BOOL wide)
{
    return static_cast<LONG>(vorlan::GetWindowLongCore(hWnd, index, wide, LongWidth::Long));
}

LONG_PTR GetWindowLongPtrAW(HWND hWnd, int index, BOOL wide)
{
    return vorlan::GetWindowLongCore(hWnd, index, wide, LongWidth::Pointer);
}

// ----------------------------------------------------------------------------
// Writing a window long.  Each call returns the old value; the fields with
// side effects (styles, menu, owner, procedure) pass them on to the layers
// that own them.

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
