// Reading a window long: the fields behind the negative indexes, and the
// extra bytes behind the others.
#include "gtk/vorlwindowlong.h"

#include "gtk/vorlglobals.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowextra.h"
#include "vorlscrollbarinfo.h"

#include <cstdlib>

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
