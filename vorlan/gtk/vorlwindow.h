// The window object: the library's own record of an HWND, the table of all
// window objects, the handle form, the window tree, and the lifecycle calls
// of winuser.cpp that other areas use.
//
// A handle is the object's slot in window_objs plus kHandleBase, so it is
// never 0 and never looks like a pointer.  getWindow is the only way from a
// handle to its object.  The table and every field are guarded by the
// toolkit lock; getWindow itself takes no lock and sets no error.
#ifndef VORLAN_GTK_VORLWINDOW_H
#define VORLAN_GTK_VORLWINDOW_H

#include <windows.h>

#include <X11/Xlib.h>
#include <gdk/gdk.h>
#include <gtk/gtk.h>

struct WindowClass;

// Private window longs: the private flag word and the two frame scroll bar
// records.
#define GWL_VORLFLAGS (-19)
#define GWL_VSCROLLINFO (-18)
#define GWL_HSCROLLINFO (-17)

// Bits of Window::dwFlags.
#define WF_SIZEPENDING 0x1          // first WM_SIZE and WM_MOVE still owed
#define WF_ERASEPENDING 0x2         // WM_ERASEBKGND owed
#define WF_NCPAINTPENDING 0x4       // WM_NCPAINT owed
#define WF_UPDATELOCKED 0x8         // target of LockWindowUpdate
#define WF_DIALOGUNICODE 0x10       // the dialog procedure was set through the wide form
#define WF_DIALOG 0x20              // made by the dialog manager
#define WF_DIALOGENDED 0x40         // EndDialog was called
#define WF_MOVEPENDING 0x100        // position of a hidden top-level window not yet given to X
#define WF_OBSCURED 0x200           // fully obscured according to X
#define WF_CLICKACTIVATE 0x400      // being activated by a mouse click
#define WF_NOFOCUSONACTIVATE 0x800  // activation must not move the focus
#define WF_SKIPTAKEFOCUS 0x1000     // the next WM_TAKE_FOCUS is ignored once
#define WF_EMBEDFOCUS 0x2000        // the XEmbed embedder has given focus
#define WF_DRAGDEST 0x8000          // registered as a drag destination
#define WF_HASPLUGID 0x20000        // has a plug id
#define WF_PLUGHOST 0x40000         // an XEmbed client lives in this window

namespace vorlan {

// Number of slots of window_objs.
constexpr unsigned kWindowSlots = 65535;
// Handle of slot 0.
constexpr ULONG_PTR kHandleBase = 0x4D726577;

// Extra-byte offsets with a meaning of their own in a dialog (WF_DIALOG):
// the dialog procedure, stored as a procedure id, and a 16-bit flag word.
constexpr int kDialogProcOffset = DWLP_DLGPROC;
constexpr int kDialogFlagsOffset = 28;

struct Window {
    // Makes the object for a window of the class and gives it the first free
    // slot from currentIndex on.  A full table stops the process.
    explicit Window(WindowClass *wc);
    // Frees what the object owns and clears its slot.  Destroys no GDK
    // window and sends no message.
    ~Window();
    Window(const Window &) = delete;
    Window &operator=(const Window &) = delete;

    // Gives the window its own GDK window, a child of the parent's.
    void CreateOSWindow();
    // Adopts an X window made elsewhere.
    void CreateForeignWindow(XID xid, DWORD style);
    // Carries the Win32 rectangles over into the X geometry of the window
    // and its direct children.  The old rectangles (parent client
    // coordinates) may be null; `flags` are SetWindowPos flags.
    void SyncWindowPos(const RECT *oldWindow, const RECT *oldClient, UINT flags);

    HWND hWnd;                // own handle
    WindowClass *pClass;      // its class
    Window *pWndParent;       // the desktop for top-level windows; null for the desktop only
    Window *pWndOwner;        // owner of a top-level window
    Window *pWndChild;        // first child: the bottom of the X stacking
    Window *pWndNext;         // next sibling
    UINT_PTR hMenuOrId;       // control id of a child, HMENU otherwise
    HDC hDC;                  // kept DC of a CS_OWNDC class
    RECT rcWindow;            // window rectangle, screen coordinates
    RECT rcClient;            // client rectangle, screen coordinates
    UINT nIdWndProc;          // window procedure id
    DWORD dwStyle;            // WS_ bits
    DWORD dwExStyle;          // WS_EX_ bits
    DWORD dwFlags;            // WF_ bits
    LONG_PTR lUserData;       // GWLP_USERDATA
    int cbExtra;              // size of the extra bytes
    BYTE *pExtra;             // extra bytes, zeroed
    HRGN hUpdateRegion;       // update region, client coordinates
    WCHAR *pszText;           // window text, malloc'd; g_wszEmptyText when empty
    void *pMenuBar;           // menu bar layout data
    void *pScrollInfo;        // two ScrollBarInfo records, made on first demand
    DWORD dwThreadId;         // the creating thread, which owns the window
    void *pIMContext;         // input method context
    GtkWidget *widget;        // the GTK dialog behind a GtkStandardDialog
    GdkWindow *window;        // the GDK window made by CreateOSWindow
    GdkWindow *foreignWindow; // the root for the desktop, or a foreign window
    RECT rcXWindow;           // geometry last given to the X window, X parent's coordinates
};

// The window text of every window without one.  Never freed, never written.
extern WCHAR g_wszEmptyText[1];

// All window objects by slot; null in a free slot.
extern Window *window_objs[kWindowSlots];
// The slot at which the next search for a free slot starts.
extern unsigned currentIndex;

// The object of a handle, or null for a handle out of range or free.
Window *getWindow(HWND hWnd);

// The handle of a slot.
inline HWND HandleOfSlot(unsigned slot)
{
    return reinterpret_cast<HWND>(static_cast<ULONG_PTR>(slot) + kHandleBase);
}

// The handle of an object, or 0 for none.
inline HWND HandleOf(const Window *pWnd)
{
    return pWnd != nullptr ? pWnd->hWnd : nullptr;
}

// Its top two style bits are exactly WS_CHILD.
inline bool IsChildStyle(DWORD style)
{
    return (style & (WS_CHILD | WS_POPUP)) == WS_CHILD;
}

// Sets the error for a handle that names no window and returns false.
inline bool FailBadHandle()
{
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return false;
}

// The object of a handle; for a handle that names no window, null with the
// bad-handle error set.
inline Window *getWindowOrFail(HWND hWnd)
{
    Window *pWnd = getWindow(hWnd);
    if (pWnd == nullptr)
        FailBadHandle();
    return pWnd;
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// The window tree: each window sits in its parent's child list, which runs
// from the bottom to the top of the X stacking.

// Positions for LinkWindowEx besides a sibling's handle.
#define LINK_FIRST_CHILD ((HWND)0)
#define LINK_LAST_CHILD ((HWND)1)

// Puts the window at the end of the parent's child list.
BOOL LinkWindow(HWND hWnd, HWND hWndParent);
// Puts the window first (LINK_FIRST_CHILD), last (LINK_LAST_CHILD) or
// directly behind the sibling hWndAfter in the parent's child list and makes
// hWndParent its parent.  A window still linked elsewhere is unlinked first;
// a sibling that is not in the list places the window last.  Bad handles:
// error 1400, FALSE.
BOOL LinkWindowEx(HWND hWnd, HWND hWndParent, HWND hWndAfter);
// Takes the window out of its parent's child list; it is left with no
// parent and no next sibling.
BOOL UnlinkWindow(HWND hWnd);

// A malloc'd array of the child handles in list order, ended by 0.  hWnd 0
// means the desktop.  The Ex form takes only windows of thread tid unless
// tid is 0.  Errors: 1400 for a bad handle, 8 when out of memory.
HWND *GetWindowChildList(HWND hWnd);
HWND *GetWindowChildListEx(HWND hWnd, DWORD tid);
// Frees a child list; null gives error 87 and FALSE.
BOOL FreeWindowList(HWND *list);

// ----------------------------------------------------------------------------
// Window text: the cores that the default window procedure runs for
// WM_SETTEXT, WM_GETTEXT and WM_GETTEXTLENGTH.  The caller holds the
// toolkit lock.  The text is kept as UTF-16 and given to the GDK window
// as its title.

// Stores the text (null counts as empty).  TRUE, or 0 with 1400 for a bad
// handle and 8 when out of memory.
BOOL DefSetTextAW(HWND hWnd, const void *text, BOOL wide);
BOOL DefSetTextW(HWND hWnd, LPCWSTR text);
BOOL DefSetTextA(HWND hWnd, LPCSTR text);

// Copies at most size - 1 units (bytes for ANSI) and a terminator, and
// returns the count; size 0 asks for the length.  An empty text gives 0
// and leaves the buffer alone.
int DefGetTextAW(HWND hWnd, void *buffer, int size, BOOL wide);
int DefGetTextW(HWND hWnd, LPWSTR buffer, int size);
int DefGetTextA(HWND hWnd, LPSTR buffer, int size);

// The handle attached to a GDK window as its "HWND" data, or 0.
HWND getAssociatedWindow(GdkDrawable *drawable);

// Makes hWndOwner the owner of a top-level window and returns the old
// owner's handle.
HWND SetOwner(HWND hWnd, HWND hWndOwner);

// Frees the window objects of a thread that ends, with every window below
// them.  Sends no message and destroys no GDK window.
void DestroyThreadWindows(DWORD tid);

#endif // VORLAN_GTK_VORLWINDOW_H
