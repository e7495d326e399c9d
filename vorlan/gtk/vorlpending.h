// Placeholders: calls that start-up, the event pump, the window layer and
// the GDI core make into areas that are not written yet.  Each gives the
// minimal behaviour of a process without that area (nothing is foreground
// or captured, there are no menus, events meant for windows are dropped)
// and is marked with the source that will replace it.  When an area
// arrives, its declarations move to its own header and its placeholders
// leave vorlpending.cpp.
#ifndef VORLAN_GTK_VORLPENDING_H
#define VORLAN_GTK_VORLPENDING_H

#include <windows.h>

#include <X11/Xlib.h>
#include <gdk/gdk.h>

struct _InputMSG;

// ---- Clipboard (vorlan/gtk/vorlclipboard) ----------------------------------

namespace vorlan {
// Prepares the one clipboard object once GTK runs.
void InitializeClipboard();
} // namespace vorlan

// ---- Keyboard, focus and activation (vorlan/gtk/vorlkeyboard) ---------------

// Records the thread that has the foreground (0: none in this process).
void SetForegroundThreadId(DWORD tid);
// Makes the window the active window of its thread, optionally giving it
// the X focus; the previous active window.
HWND SetActiveWindowCore(HWND hWnd, BOOL bSetXFocus);
// Brings focus, activation and the X focus back in line.
void EnsureFocusAndForegroundConsistent();
// A GDK key event becomes a queued input record.
void TranslateKeyEvent(GdkEvent *event);
// Run on a copy of a queued keyboard record: find the target window and
// the final message.  FALSE drops the record.
BOOL ProcessKeyMessage(_InputMSG *record);

// ---- Mouse and capture (vorlan/gtk/vorlmouse) --------------------------------

// A GDK pointer event becomes a queued input record.
void TranslateMouseEvent(GdkEvent *event);
// Run on a copy of a queued pointer record: find the target window and the
// final message.  FALSE drops the record.
BOOL ProcessMouseMessage(_InputMSG *record);

// ---- Menus (vorlan/vorlmenu) --------------------------------------------------

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

// Paints the menu bar of a window that has one.
void DoNCPaint(HWND hWnd, HDC hdc);

// ---- Scroll bars (vorlan/vorlscrollbar) ------------------------------------------

struct ScrollBarInfo;
// Paints one bar into the rectangle (DC coordinates); a null clip is the
// rectangle.
void ScrollBar_Draw(HDC hdc, ScrollBarInfo *info, const RECT *rect, const RECT *clip);
// The modal loop of a press on bar `nBar` (SB_HORZ, SB_VERT, SB_CTL) at a
// screen point.
void ScrollBar_MousePress(HWND hWnd, int nBar, POINT pt);

// ---- Metafiles (vorlan/gdi/vorlmetafile) -------------------------------------------

// Tells the metafile context `hdc` that an object it recorded is deleted.
BOOL DeleteObjectFromMetaFile(HDC hdc, HGDIOBJ hObject);

// ---- Foreign windows and XEmbed (vorlan/gtk/vorlplug) ------------------------------

// The X window is the host shell's main window or its focus proxy.
BOOL IsHSRWindow(Display *display, XID xid);
// Offers the focus to another client's window through WM_TAKE_FOCUS.
void ActivateForeignWindow(Display *display, XID xid);
// The window object of a window of another client; xid 0 stands for the
// host shell's main window.
HWND CreateForeignWindow(XID xid, DWORD style);
// Asks the XEmbed embedder for the focus.
void RequestXEmbedFocus(HWND hWnd);

// ---- Input method (vorlan/gtk/vorlimm) -----------------------------------------------

// Ends the input method window of a window that goes.
void DestroyIMEWindow(HWND hWnd);
// The window lost the focus as far as the input method is concerned.
void IMFocusOut(HWND hWnd);

// ---- Painting of GTK dialogs (vorlan/gtk/vorlwindowpaint) ------------------------------

// A screen rectangle uncovered by a closed GTK dialog is repainted.
void ExposeWindows(GdkRectangle *rect);

// ---- Drag and drop (vorlan/gtk/vorldrag) -------------------------------------------------

// X event filter of drag and drop; non-zero takes the event.
GdkFilterReturn vorl_drag_x_filter(GdkXEvent *xevent, GdkEvent *event, gpointer data);
// GDK event filter of drag and drop; non-zero means consumed.
int vorl_drag_event_filter(GdkEvent *event, gpointer data);

// ---- Controls (vorlan/vorlbutton, vorlan/vorlstatic, vorlan/vorledit, ...) ---------------
//
// The window procedures of the built-in classes.  Each class has an ANSI
// and a wide entry point over one core that takes a wide flag.  Until a
// control's own behaviour is written, its core hands every message to the
// default window procedure of the caller's form.

VORLAN_BEGIN_DECLS
LRESULT CALLBACK StaticWindowProcA(HWND, UINT, WPARAM, LPARAM);
LRESULT CALLBACK StaticWindowProcW(HWND, UINT, WPARAM, LPARAM);
LRESULT CALLBACK ButtonWindowProcA(HWND, UINT, WPARAM, LPARAM);
LRESULT CALLBACK ButtonWindowProcW(HWND, UINT, WPARAM, LPARAM);
LRESULT CALLBACK EditWindowProcA(HWND, UINT, WPARAM, LPARAM);
LRESULT CALLBACK EditWindowProcW(HWND, UINT, WPARAM, LPARAM);
LRESULT CALLBACK ListBoxWindowProcA(HWND, UINT, WPARAM, LPARAM);
LRESULT CALLBACK ListBoxWindowProcW(HWND, UINT, WPARAM, LPARAM);
LRESULT CALLBACK ComboBoxWindowProcA(HWND, UINT, WPARAM, LPARAM);
LRESULT CALLBACK ComboBoxWindowProcW(HWND, UINT, WPARAM, LPARAM);
LRESULT CALLBACK ScrollBarWindowProcA(HWND, UINT, WPARAM, LPARAM);
LRESULT CALLBACK ScrollBarWindowProcW(HWND, UINT, WPARAM, LPARAM);
LRESULT CALLBACK MenuWindowProcA(HWND, UINT, WPARAM, LPARAM);
LRESULT CALLBACK MenuWindowProcW(HWND, UINT, WPARAM, LPARAM);
LRESULT CALLBACK StatusBarWindowProcA(HWND, UINT, WPARAM, LPARAM);
LRESULT CALLBACK StatusBarWindowProcW(HWND, UINT, WPARAM, LPARAM);
VORLAN_END_DECLS

#endif // VORLAN_GTK_VORLPENDING_H
