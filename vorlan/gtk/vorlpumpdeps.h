// What start-up, the X event filter and the GDK event handler call in the
// subsystems built on top of them: windows, input, painting, geometry, the
// clipboard and drag and drop.
//
// Each subsystem provides these with its own sources.  Until it does,
// vorlpending.cpp gives the minimal behaviour of a process that has no
// window objects yet: no handle is valid, nothing is foreground or
// captured, and events meant for windows are taken and dropped.  A
// subsystem that arrives deletes the matching definition there.
#ifndef VORLAN_GTK_VORLPUMPDEPS_H
#define VORLAN_GTK_VORLPUMPDEPS_H

#include <windows.h>
#include <vorlan.h>

#include "vorlwindowproc.h"

#include <X11/Xlib.h>
#include <gdk/gdk.h>

// ---- Start-up --------------------------------------------------------------

// Registers the built-in window classes and makes the desktop window.
void UserInitialize();

namespace vorlan {
// Prepares the one clipboard object once GTK runs.
void InitializeClipboard();
} // namespace vorlan

// ---- Window objects ---------------------------------------------------------

// The handle attached to a GDK window as its "HWND" data, or 0.
HWND getAssociatedWindow(GdkDrawable *drawable);

// TRUE when the window was not made here (also the desktop).
BOOL IsForeignWindow(HWND hWnd);

// The XID behind the window, 0 for a bad handle.
XID GetXWindow(HWND hWnd);

namespace vorlan {
// A foreign window with WS_CHILD: an embedded client.
bool IsForeignChildWindow(HWND hWnd);
// The window is the wrapper of a real GTK dialog widget.
bool HasGtkWidget(HWND hWnd);
// Sets or clears WF_OBSCURED.
void SetWindowObscured(HWND hWnd, bool obscured);
} // namespace vorlan

VORLAN_BEGIN_DECLS
HWND WINAPI GetForegroundWindow(void);
HWND WINAPI GetCapture(void);
BOOL WINAPI IsWindowEnabled(HWND hWnd);
BOOL WINAPI PostMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam);
VORLAN_END_DECLS

// ---- Window classes and procedures -----------------------------------------

// WindowClass_RegisterBuiltins and WindowClass_FindClass are in <vorlan.h>.

// The procedure ids (GetWndProc, IsWndProcId, AllocWndProcId) are in
// vorlwindowproc.h.

// ---- Window lifecycle and activation ----------------------------------------

// Makes hWndOwner the owner of a top-level window and returns the old
// owner's handle.
HWND SetOwner(HWND hWnd, HWND hWndOwner);
// Records the thread that has the foreground (0: none in this process).
void SetForegroundThreadId(DWORD tid);
// Makes the window the active window of its thread, optionally giving it
// the X focus; the previous active window.
HWND SetActiveWindowCore(HWND hWnd, BOOL bSetXFocus);
// Brings focus, activation and the X focus back in line.
void EnsureFocusAndForegroundConsistent();

VORLAN_BEGIN_DECLS
BOOL WINAPI IsWindow(HWND hWnd);
HWND WINAPI GetAncestor(HWND hwnd, UINT gaFlags);
BOOL WINAPI SetWindowPos(HWND hWnd, HWND hWndInsertAfter, int X, int Y, int cx, int cy, UINT uFlags);
LRESULT WINAPI SendMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam);
BOOL WINAPI SetForegroundWindow(HWND hWnd);
int WINAPI GetClassNameA(HWND hWnd, LPSTR lpClassName, int nMaxCount);
VORLAN_END_DECLS

// ---- Frame and menus ----------------------------------------------------------

// The window manager draws the window's frame: the X window is only the
// client part.
BOOL IsWindowDecorated(HWND hWnd);
// Drops one reference of a menu; with `destroy` a menu at 0 is deleted.
void Menu_Release(HMENU hMenu, BOOL destroy);
// Adds one reference to a menu.
void Menu_AddRef(HMENU hMenu);
// Lays out the menu bar of the window again.
void MenuBar_UpdateLayout(HWND hWnd);
// Lays the bar out for the width and returns its height.
int MenuBar_CalcLayout(HWND hWnd, int width);
// The height of the bar from its last layout.
int MenuBar_Height(HWND hWnd);
// The item of the bar under a screen point, or -1.
int MenuBar_HitTest(HWND hWnd, POINT pt);
// Opens an item of the bar, from the mouse or the keyboard.
BOOL MenuBar_Track(HWND hWnd, int item, BOOL keyboard);
// The item whose accelerator character is ch, or -1.
int Menu_FindAccelItem(HMENU hMenu, WCHAR ch);
// The window of the menu being tracked, or 0; ending that tracking.
HWND GetMenuOwner();
void ExitMenu();
// Paints the frame, and handles mouse messages over it.
void DefNCPaint(HWND hWnd, HRGN hRgn);
void DefNCMouse(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
// The modal loop of sizing by the mouse from edge `code` (WMSZ_).
void DefSizeCommand(HWND hWnd, int code, POINT pt);
// Non-zero once dialog boxes are framed by the window manager.
extern int _dialogUseWMD;

VORLAN_BEGIN_DECLS
BOOL WINAPI IsMenu(HMENU hMenu);
VORLAN_END_DECLS

// ---- Device contexts ------------------------------------------------------------

// Asked by DeleteDC whether a window's DC may really go.
typedef BOOL (*DeleteDCProc)(HDC hdc, HWND hWnd);

VORLAN_BEGIN_DECLS
// Stores the callback that DeleteDC asks, with its window.
BOOL GdiSetDeleteDCProc(HDC hdc, DeleteDCProc proc, HWND hWnd);
BOOL WINAPI DeleteDC(HDC hdc);
VORLAN_END_DECLS

// Limits a window DC's output to the rectangle of its X window.
BOOL GdiSetDCOutputBounds(HDC hdc, const RECT *rect);

// Non-zero: drawing on the DC leaves child windows out; 0: it covers them.
void _SetDCSubWindowMode(HDC hdc, BOOL mode);

// Tells the metafile context `hdc` that an object it recorded is deleted.
BOOL DeleteObjectFromMetaFile(HDC hdc, HGDIOBJ hObject);

// ---- Foreign windows ------------------------------------------------------------

// The X window is the host shell's main window or its focus proxy.
BOOL IsHSRWindow(Display *display, XID xid);
// Offers the focus to another client's window through WM_TAKE_FOCUS.
void ActivateForeignWindow(Display *display, XID xid);

VORLAN_BEGIN_DECLS
// The window object of a window of another client; xid 0 stands for the
// host shell's main window.
HWND CreateForeignWindow(XID xid, DWORD style);
VORLAN_END_DECLS

// ---- Painting ---------------------------------------------------------------

// An exposed rectangle of a window's X window becomes an invalidation.
void ExposeWindows(HWND hWnd, const RECT *rect);
// A screen rectangle uncovered by a closed GTK dialog is repainted.
void ExposeWindows(GdkRectangle *rect);

// Marks the frame for WM_NCPAINT and queues the window for painting.
void InvalidateNC(HWND hWnd);

// ---- Input method and XEmbed --------------------------------------------------

// Ends the input method window of a window that goes.
void DestroyIMEWindow(HWND hWnd);
// The window lost the focus as far as the input method is concerned.
void IMFocusOut(HWND hWnd);
// Asks the XEmbed embedder for the focus.
void RequestXEmbedFocus(HWND hWnd);

// ---- Input and geometry -----------------------------------------------------

void TranslateMouseEvent(GdkEvent *event);
void TranslateKeyEvent(GdkEvent *event);
void HandleGdkConfigureEvent(HWND hWnd, GdkEventConfigure *event);
void HandleGdkWindowStateEvent(HWND hWnd, GdkEventWindowState *event);

// ---- Drag and drop ----------------------------------------------------------

// X event filter of drag and drop; non-zero takes the event.
GdkFilterReturn vorl_drag_x_filter(GdkXEvent *xevent, GdkEvent *event, gpointer data);
// GDK event filter of drag and drop; non-zero means consumed.
int vorl_drag_event_filter(GdkEvent *event, gpointer data);

// ---- Message queues -----------------------------------------------------------

struct _InputMSG;

// The window questions of the message queues, as narrow seams
// (vorlwindowqueries.cpp).  They answer from the window object of a handle
// that the window table knows, and pass any other handle to the stand-in
// answers below.  The caller holds the toolkit lock.
namespace vorlan {
// The thread that owns the window (GetWindowThreadProcessId), 0 for a bad handle.
DWORD WindowThreadId(HWND hWnd);
// The handle names a live window (IsWindow).
bool WindowExists(HWND hWnd);
// `hWnd` lies below `parent` along the parent links (IsChild); never the
// window itself.
bool WindowIsDescendant(HWND parent, HWND hWnd);
// Clears WF_NCPAINTPENDING of the window and tells whether it was set.
bool TakeNcPaintPending(HWND hWnd);
// The window has an hUpdateRegion; false for a dead window.
bool HasUpdateRegion(HWND hWnd);

// The same questions for handles that the window table does not know: the
// stand-in windows of vorltestwindows.h, which carry a procedure of their
// own outside the procedure table.
DWORD StandInWindowThreadId(HWND hWnd);
bool StandInWindowExists(HWND hWnd);
bool StandInWindowIsDescendant(HWND parent, HWND hWnd);
bool TakeStandInNcPaintPending(HWND hWnd);
bool StandInHasUpdateRegion(HWND hWnd);
// A send within the thread to a stand-in window: its procedure, called
// without the toolkit lock.
LRESULT SendToStandInWindow(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
} // namespace vorlan

// The core of SendMessageW and SendMessageA: a window of the calling thread
// gets its procedure called, a window of another thread gets the message
// through the queues.  The caller holds the toolkit lock.
LRESULT SendMessageAW(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, BOOL wide);
// Run on a copy of a queued input record: find the target window and the
// final message.  FALSE drops the record.
BOOL ProcessKeyMessage(_InputMSG *record);
BOOL ProcessMouseMessage(_InputMSG *record);
// Runs the hook chain for a message taken from a queue; non-zero swallows it.
BOOL DispatchHook(MSG *msg, BOOL remove, BOOL wide);
// Destroys every window of a thread that ends.
void DestroyThreadWindows(DWORD tid);
// The stand-in windows of vorltestwindows.h end with their thread too.
void DestroyStandInWindowsOfThread(DWORD tid);

VORLAN_BEGIN_DECLS
BOOL WINAPI GetCursorPos(LPPOINT lpPoint);
VORLAN_END_DECLS

#endif // VORLAN_GTK_VORLPUMPDEPS_H
