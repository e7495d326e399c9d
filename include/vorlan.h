/*
 * vorlan.h - calls of the library's own, beside the Win32 interface.
 */
#ifndef VORLAN_VORLAN_H
#define VORLAN_VORLAN_H

#include "windows.h"

#ifndef RC_INVOKED

#define VORLANAPI VORLAN_EXTERN_C VORLAN_EXPORT

/* The host program calls this once its environment manager is up: the
 * library then reads API_TIMECOST_LOG and VORL_LOG_FILE. */
VORLANAPI void QRTInitedCallback(void);

/* The window whose X window has the given XID, or 0 when that X window is
 * not one of the library's windows. */
VORLANAPI HWND GetWindowHandleFromXID(unsigned long xid);

/* One built-in window class as the library registers it at start-up:
 * the name, the CS_ style,
 * the two forms of its procedure, the extra bytes of each window, the
 * cursor resource id for LoadCursorA with a null instance, and the
 * background brush.  The menu class is named "#32768". */
typedef struct tagVORLBUILTINCLASS {
    LPCWSTR lpszClassName;
    UINT style;
    WNDPROC lpfnWndProcA;
    WNDPROC lpfnWndProcW;
    int cbWndExtra;
    UINT uCursorId;
    HBRUSH hbrBackground;
} VORLBUILTINCLASS;

VORLAN_CHECK_SIZE(VORLBUILTINCLASS, 28, 48);

VORLAN_EXTERN_C VORLAN_EXPORT const VORLBUILTINCLASS g_staticClass;
VORLAN_EXTERN_C VORLAN_EXPORT const VORLBUILTINCLASS g_buttonClass;
VORLAN_EXTERN_C VORLAN_EXPORT const VORLBUILTINCLASS g_editClass;
VORLAN_EXTERN_C VORLAN_EXPORT const VORLBUILTINCLASS g_listboxClass;
VORLAN_EXTERN_C VORLAN_EXPORT const VORLBUILTINCLASS g_comboClass;
VORLAN_EXTERN_C VORLAN_EXPORT const VORLBUILTINCLASS g_scrollBarClass;
VORLAN_EXTERN_C VORLAN_EXPORT const VORLBUILTINCLASS g_menuClass;

/* The names of the control classes, for the dialog manager. */
VORLAN_EXTERN_C VORLAN_EXPORT const WCHAR wszButtonClass[];
VORLAN_EXTERN_C VORLAN_EXPORT const WCHAR wszComboboxClass[];
VORLAN_EXTERN_C VORLAN_EXPORT const WCHAR wszDialogClass[];
VORLAN_EXTERN_C VORLAN_EXPORT const WCHAR wszEditClass[];
VORLAN_EXTERN_C VORLAN_EXPORT const WCHAR wszListboxClass[];
VORLAN_EXTERN_C VORLAN_EXPORT const WCHAR wszScrollbarClass[];
VORLAN_EXTERN_C VORLAN_EXPORT const WCHAR wszStaticClass[];

/* Registers the built-in classes; start-up calls it once. */
VORLANAPI void WindowClass_RegisterBuiltins(void);

/* The record of the class with the given atom, or null.  The caller holds
 * the toolkit lock. */
struct WindowClass;
VORLANAPI struct WindowClass *WindowClass_FindClass(ATOM atom);

/* What a FindWindowFromPointEx filter answers for one candidate window. */
#define FILTER_DESCEND_OR_TAKE 0 /* search its children; if none fits, take it */
#define FILTER_TAKE 1            /* take it without looking further */
#define FILTER_DESCEND_ONLY 2    /* search its children; if none fits, go on with its siblings */
#define FILTER_SKIP 3            /* skip it and its children */
typedef int FILTER_CODE;

/* Asked for each candidate window `hWnd` under the point, found below
 * `hWndParent`; `pt` is in screen coordinates and lParam is 0. */
typedef FILTER_CODE (*FINDWINDOWFILTER)(HWND hWnd, HWND hWndParent, POINT pt, LPARAM lParam);

/* The window under the screen point `pt` inside the client area of hWnd,
 * as the filter chooses; 0 when none is taken.  Below the desktop and
 * foreign windows the X server tells which window lies under the point,
 * so windows of other X clients hide the library's windows. */
VORLANAPI HWND FindWindowFromPointEx(HWND hWnd, POINT pt, FINDWINDOWFILTER filter);

/* Window device contexts.  The window layer makes the DCs of its windows
 * through these calls and limits them to the window's part of the drawable;
 * the controls' painter reaches the GDK side of a DC through them.  Each
 * takes an OBJ_DC or OBJ_MEMDC handle of a screen context (anything else
 * fails), and the caller holds the toolkit lock. */
struct _GdkDrawable;
struct _GdkGC;

/* Asked by DeleteDC whether a window's DC may really go. */
typedef BOOL (*DeleteDCProc)(HDC hdc, HWND hWnd);

/* A window DC of `hwnd` on its GdkWindow; `rect` is the DC's place in the
 * drawable. */
VORLANAPI HDC GdiCreateWindowDC(HWND hwnd, DWORD flags, struct _GdkDrawable *drawable, const RECT *rect);
/* The DC's place in its drawable. */
VORLANAPI BOOL GdiGetDCOutputBounds(HDC hdc, RECT *rect);
/* Moves the DC within its drawable and limits its output to that place. */
VORLANAPI BOOL GdiSetDCOutputBounds(HDC hdc, const RECT *rect);
/* Stores the callback that DeleteDC asks, with its window. */
VORLANAPI BOOL GdiSetDeleteDCProc(HDC hdc, DeleteDCProc proc, HWND hWnd);
/* Installs `hrgn` (DC coordinates, copied; 0 removes it) as the painting
 * clip of a window DC. */
VORLANAPI int _SetWindowDCUpdateRegion(HDC hdc, HRGN hrgn);
/* Non-zero: drawing on the DC leaves child windows out; 0: it covers them. */
VORLANAPI void _SetDCSubWindowMode(HDC hdc, BOOL mode);
/* The GC and the drawable of the DC, or null. */
VORLANAPI struct _GdkGC *GetGdkGC(HDC hdc);
VORLANAPI struct _GdkDrawable *GetGdkDrawable(HDC hdc);
/* Depth of the system visual. */
VORLANAPI int GetSystemDisplayDepth(void);

#endif /* RC_INVOKED */
#endif /* VORLAN_VORLAN_H */
