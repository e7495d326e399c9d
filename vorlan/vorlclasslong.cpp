// Reading and writing the fields of a window's class by GCL_ index.  A
// procedure goes out as the side the caller asked for (or as an id when
// that side is missing) and comes in as an id on the caller's side;
// windows that exist keep the procedure they have.
#include "vorlclasslong.h"

#include "gtk/vorlwindow.h"
#include "vorlwindowclass.h"
#include "vorlwindowproc.h"

namespace {

bool IsClassPointerIndex(int index)
{
    switch (index) {
    case GCLP_MENUNAME:
    case GCLP_HBRBACKGROUND:
    case GCLP_HCURSOR:
    case GCLP_HICON:
    case GCLP_HMODULE:
    case GCLP_WNDPROC:
    case GCLP_HICONSM:
        return true;
    default:
        return false;
    }
}

ULONG_PTR Fail(DWORD error)
{
    SetLastError(error);
    return 0;
}

// The class of the window, or null with the error set.
WindowClass *ClassOfWindow(HWND hWnd, int index, vorlan::LongWidth width)
{
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr) {
        vorlan::FailBadHandle();
        return nullptr;
    }
    if (vorlan::ByteWidth(width) < static_cast<int>(sizeof(LONG_PTR)) && IsClassPointerIndex(index)) {
        SetLastError(ERROR_INVALID_INDEX);
        return nullptr;
    }
    return pWnd->pClass;
}

template <typename T> ULONG_PTR AsValue(T handle)
{
    return reinterpret_cast<ULONG_PTR>(handle);
}

ULONG_PTR FieldValue(const WindowClass *wc, int index, BOOL wide)
{
    switch (index) {
    case GCLP_HICONSM:
        return AsValue(wc->hIconSm);
    case GCW_ATOM:
        return wc->atom;
    case GCL_STYLE:
        return wc->style;
    case GCLP_WNDPROC:
        return static_cast<ULONG_PTR>(GetWndProc(wc->nIdWndProc, wide));
    case GCLP_HMODULE:
        return AsValue(wc->hInstance);
    case GCLP_HICON:
        return AsValue(wc->hIcon);
    case GCLP_HCURSOR:
        return AsValue(wc->hCursor);
    case GCLP_HBRBACKGROUND:
        return AsValue(wc->hbrBackground);
    default:
        return 0;
    }
}

template <typename T> ULONG_PTR Swap(T &field, LONG_PTR value)
{
    const ULONG_PTR old = AsValue(field);
    field = reinterpret_cast<T>(value);
    return old;
}

ULONG_PTR SwapProcedure(WindowClass *wc, LONG_PTR value, BOOL wide)
{
    if (value == 0)
        return Fail(ERROR_INVALID_PARAMETER);
    UINT id = static_cast<UINT>(value);
    if (!IsWndProcId(value)) {
        const auto procedure = reinterpret_cast<WNDPROC>(value);
        id = wide ? AllocWndProcId(nullptr, procedure) : AllocWndProcId(procedure, nullptr);
    }
    if (id == 0)
        return Fail(ERROR_OUTOFMEMORY);
    const auto old = static_cast<ULONG_PTR>(GetWndProc(wc->nIdWndProc, wide));
    wc->nIdWndProc = id;
    return old;
}

ULONG_PTR SwapField(WindowClass *wc, int index, LONG_PTR value, BOOL wide)
{
    switch (index) {
    case GCLP_HICONSM:
        return Swap(wc->hIconSm, value);
    case GCL_STYLE: {
        const DWORD old = wc->style;
        wc->style = static_cast<DWORD>(value);
        return old;
    }
    case GCLP_WNDPROC:
        return SwapProcedure(wc, value, wide);
    case GCLP_HMODULE:
        return Swap(wc->hInstance, value);
    case GCLP_HICON:
        return Swap(wc->hIcon, value);
    case GCLP_HCURSOR:
        return Swap(wc->hCursor, value);
    case GCLP_HBRBACKGROUND:
        return Swap(wc->hbrBackground, value);
    default:
        return 0;
    }
}

} // namespace

namespace vorlan {

ULONG_PTR GetClassLongCore(HWND hWnd, int index, BOOL wide, LongWidth width)
{
    WindowClass *wc = ClassOfWindow(hWnd, index, width);
    return wc != nullptr ? FieldValue(wc, index, wide) : 0;
}

ULONG_PTR SetClassLongCore(HWND hWnd, int index, LONG_PTR value, BOOL wide, LongWidth width)
{
    WindowClass *wc = ClassOfWindow(hWnd, index, width);
    return wc != nullptr ? SwapField(wc, index, value, wide) : 0;
}

} // namespace vorlan
