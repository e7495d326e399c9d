// The X side of window objects: the GDK and X windows behind a handle, the
// X window tree, window manager protocols and functions, the X focus,
// properties for outside tools, and the scope that catches X errors.
#include "gtk/vorlxwindow.h"

#include "gtk/vorlstartup.h"
#include "gtk/vorleventpump.h"
#include "gtk/vorlpending.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowpos.h"
#include "vorlassert.h"

#include <gdk/gdkx.h>
#include <gtk/gtk.h>
#include <cstring>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

// ----------------------------------------------------------------------------
// The X window of a window object.
//
// Every window that is not the desktop, not foreign and not a GTK dialog
// wrapper has an X window of its own, controls included, so that X clips
// and stacks siblings.  It starts as a 1 by 1 window at the origin; the
// geometry code gives it its place.  X paints no background: the library
// paints every pixel itself.

namespace {

// Exposure, pointer motion and buttons, keys, focus changes, visibility.
constexpr gint kWindowEventMask = GDK_EXPOSURE_MASK | GDK_POINTER_MOTION_MASK | GDK_BUTTON_MOTION_MASK |
                                  GDK_BUTTON1_MOTION_MASK | GDK_BUTTON2_MOTION_MASK | GDK_BUTTON3_MOTION_MASK |
                                  GDK_BUTTON_PRESS_MASK | GDK_BUTTON_RELEASE_MASK | GDK_KEY_PRESS_MASK |
                                  GDK_KEY_RELEASE_MASK | GDK_FOCUS_CHANGE_MASK | GDK_VISIBILITY_NOTIFY_MASK;
static_assert(kWindowEventMask == 0x24FF6, "event mask of window objects");

bool IsDesktop(const vorlan::Window *pWnd)
{
    return pWnd->hWnd == g_hWndDesktop;
}

void AttachHandle(GdkWindow *window, HWND hWnd)
{
    g_object_set_data(G_OBJECT(window), "HWND", hWnd);
}

} // namespace

namespace vorlan {

void Window::CreateOSWindow()
{
    VORLAN_ASSERT(this->pWndParent);
    const bool topLevel = IsDesktop(pWndParent);
    GdkWindowAttr attributes = {};
    attributes.window_type = topLevel ? GDK_WINDOW_TOPLEVEL : GDK_WINDOW_CHILD;
    attributes.wclass = GDK_INPUT_OUTPUT;
    attributes.x = 0;
    attributes.y = 0;
    attributes.width = 1;
    attributes.height = 1;
    attributes.event_mask = kWindowEventMask;
    GdkWindow *parentWindow = topLevel ? nullptr : GetGdkWindow(pWndParent->hWnd);
    window = gdk_window_new(parentWindow, &attributes, GDK_WA_X | GDK_WA_Y);
    VORLAN_ASSERT(this->window);
    // A real X window even below another GDK window: X, not GDK, clips and
    // stacks siblings, and the X geometry is the one the library computes.
    gdk_window_ensure_native(window);
    gdk_window_set_back_pixmap(window, nullptr, FALSE);
    AttachHandle(window, hWnd);
}

void Window::CreateForeignWindow(XID xid, DWORD style)
{
    TemporaryXErrorHandler trap;
    foreignWindow = gdk_window_foreign_new(xid);
    dwStyle = style | WS_VISIBLE;
    if (foreignWindow != nullptr)
        AttachHandle(foreignWindow, hWnd);
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// From a handle to the GDK and X windows behind it.

namespace {

GdkWindow *GdkWindowOf(const vorlan::Window *pWnd)
{
    if (pWnd->foreignWindow != nullptr)
        return pWnd->foreignWindow;
    if (pWnd->widget != nullptr)
        return gtk_widget_get_window(pWnd->widget);
    return pWnd->window;
}

} // namespace

GdkWindow *GetGdkWindow(HWND hWnd)
{
    VORLAN_ASSERT(IsWindow(hWnd));
    return GdkWindowOf(vorlan::getWindow(hWnd));
}

XID GetXWindow(HWND hWnd)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return 0;
    GdkWindow *window = GdkWindowOf(pWnd);
    return window != nullptr ? GDK_WINDOW_XID(window) : 0;
}

Display *GetXDisplay(HWND hWnd)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    GdkWindow *window = pWnd != nullptr ? GdkWindowOf(pWnd) : nullptr;
    if (window == nullptr)
        return gdk_x11_get_default_xdisplay();
    return GDK_WINDOW_XDISPLAY(window);
}

void SetModalHint(HWND hWnd)
{
    if (GdkWindow *window = GetGdkWindow(hWnd))
        gdk_window_set_modal_hint(window, TRUE);
}

BOOL IsForeignWindow(HWND hWnd)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    return pWnd != nullptr && pWnd->foreignWindow != nullptr;
}

namespace vorlan {

bool IsForeignChildWindow(HWND hWnd)
{
    const Window *pWnd = getWindow(hWnd);
    return pWnd != nullptr && pWnd->foreignWindow != nullptr && (pWnd->dwStyle & WS_CHILD) != 0;
}

bool HasGtkWidget(HWND hWnd)
{
    const Window *pWnd = getWindow(hWnd);
    return pWnd != nullptr && pWnd->widget != nullptr;
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// Finding one's way in the X window tree: parents, foreign windows, and the
// window below the root that holds a top-level window, which is the window
// manager's frame when there is one.

namespace {

GdkWindow *KnownGdkWindow(Display *display, XID xid)
{
    GdkDisplay *gdkDisplay = gdk_x11_lookup_xdisplay(display);
    if (gdkDisplay == nullptr)
        return nullptr;
    return gdk_x11_window_lookup_for_display(gdkDisplay, xid);
}

XID RootOf(Display *display, XID xid)
{
    XWindowAttributes attributes;
    if (!XGetWindowAttributes(display, xid, &attributes))
        return 0;
    return attributes.root;
}

} // namespace

BOOL IsForeignXWindow(Display *display, XID xid)
{
    if (xid == 0)
        return FALSE;
    GdkWindow *window = KnownGdkWindow(display, xid);
    return window == nullptr || gdk_window_get_window_type(window) == GDK_WINDOW_FOREIGN;
}

XID GetParentXWindow(Display *display, XID xid)
{
    vorlan::TemporaryXErrorHandler trap;
    ::Window root = None, parent = None;
    ::Window *children = nullptr;
    unsigned count = 0;
    const Status status = XQueryTree(display, xid, &root, &parent, &children, &count);
    if (children != nullptr)
        XFree(children);
    XSync(display, False);
    if (status == 0 || vorlan::TemporaryXErrorHandler::error_code != 0)
        return 0;
    return parent;
}

XID GetTopLevelXWindow(HWND hWnd)
{
    HWND top = GetAncestor(hWnd, GA_ROOT);
    XID current = GetXWindow(top);
    if (current == 0)
        return 0;
    Display *display = GetXDisplay(top);
    XID root = 0;
    {
        vorlan::TemporaryXErrorHandler trap;
        root = RootOf(display, current);
        XSync(display, False);
        if (vorlan::TemporaryXErrorHandler::error_code != 0 || root == 0)
            return 0;
    }
    while (current != 0) {
        const XID parent = GetParentXWindow(display, current);
        if (parent == root)
            return current;
        current = parent;
    }
    return 0;
}

// ----------------------------------------------------------------------------
// Window manager protocols of windows that are not children.
//
// The library follows the Globally Active input model of the ICCCM: the
// window manager does not give the focus itself but asks through
// WM_TAKE_FOCUS, and the library decides (topwindow_x_filter).  A close
// request arrives as WM_DELETE_WINDOW, which GDK turns into GDK_DELETE.

void SetWMInputMode(HWND hWnd)
{
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr || pWnd->window == nullptr)
        return;
    gdk_window_set_accept_focus(pWnd->window, FALSE);
    Atom protocols[] = {vorlan::g_wm_take_focus, vorlan::g_wm_delete_window};
    XSetWMProtocols(GDK_WINDOW_XDISPLAY(pWnd->window), GDK_WINDOW_XID(pWnd->window), protocols,
                    G_N_ELEMENTS(protocols));
    gdk_window_add_filter(nullptr, topwindow_x_filter, hWnd);
}

// ----------------------------------------------------------------------------
// What the window manager offers the user for a window: move, resize,
// minimize and maximize follow the style; close is withdrawn while the
// window holds the mouse capture.

namespace {

int FunctionsOfStyle(DWORD style)
{
    int functions = 0;
    const bool caption = (style & WS_CAPTION) == WS_CAPTION;
    if (caption)
        functions |= GDK_FUNC_MOVE;
    if (style & WS_THICKFRAME)
        functions |= GDK_FUNC_RESIZE;
    if (caption && (style & WS_SYSMENU) && (style & WS_MINIMIZEBOX))
        functions |= GDK_FUNC_MINIMIZE;
    if (caption && (style & WS_SYSMENU) && (style & WS_MAXIMIZEBOX))
        functions |= GDK_FUNC_MAXIMIZE;
    return functions;
}

} // namespace

void EnableWindowFuncs(HWND hWnd, BOOL enable)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr || pWnd->window == nullptr)
        return;
    int functions = FunctionsOfStyle(pWnd->dwStyle);
    if (enable)
        functions |= GDK_FUNC_CLOSE;
    gdk_window_set_functions(pWnd->window, static_cast<GdkWMFunction>(functions));
}

// ----------------------------------------------------------------------------
// Giving the X input focus to a window without a detour through the window
// manager.

namespace {

XID CurrentInputFocus(Display *display)
{
    ::Window focus = None;
    int revertTo = 0;
    XGetInputFocus(display, &focus, &revertTo);
    return focus;
}

// A foreign client keeps the focus in a window of its own below the one
// that is known here.
bool HasFocusAlready(Display *display, XID window, BOOL foreign, XID focus)
{
    if (!foreign)
        return focus == window;
    if (focus == None || focus == PointerRoot)
        return false;
    return GetParentXWindow(display, focus) == window;
}

} // namespace

BOOL SetXInputFocusWithoutEvents(Display *display, XID window, Time time, BOOL foreign)
{
    if (HasFocusAlready(display, window, foreign, CurrentInputFocus(display)))
        return TRUE;
    vorlan::TemporaryXErrorHandler trap;
    if (foreign)
        ActivateForeignWindow(display, window);
    else
        XSetInputFocus(display, window, RevertToParent, time);
    XSync(display, False);
    return vorlan::TemporaryXErrorHandler::error_code == 0;
}

// ----------------------------------------------------------------------------
// Publishing data on a window's X window as a property, for outside tools.

namespace vorlan {

BOOL putXPropertyToGdkWindow(GdkDrawable *drawable, const char *name, const void *data, int length)
{
    TemporaryXErrorHandler trap;
    Display *display = GDK_DRAWABLE_XDISPLAY(drawable);
    const Atom type = XInternAtom(display, "QTSSupportType", False);
    const Atom property = XInternAtom(display, name, False);
    XChangeProperty(display, GDK_DRAWABLE_XID(drawable), property, type, 8, PropModeReplace,
                    static_cast<const unsigned char *>(data), length);
    XSync(display, False);
    return TemporaryXErrorHandler::error_code == 0;
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// Under QTS_SUPPORT each window tells outside tools its class name and
// control id through properties of its X window.

namespace {

bool Enabled()
{
    return OSGetEnvironmentLong("QTS_SUPPORT") != 0;
}

} // namespace

BOOL SetXWindowInfo(HWND hWnd)
{
    if (!Enabled() || !IsWindow(hWnd))
        return TRUE;
    GdkWindow *window = GetGdkWindow(hWnd);
    if (window == nullptr)
        return TRUE;
    char className[256] = "";
    GetClassNameA(hWnd, className, sizeof className);
    vorlan::putXPropertyToGdkWindow(window, "classname", className, static_cast<int>(std::strlen(className)));
    const LONG controlId = GetWindowLongW(hWnd, GWL_ID);
    vorlan::putXPropertyToGdkWindow(window, "controlid", &controlId, sizeof controlId);
    return TRUE;
}

// ----------------------------------------------------------------------------
// X error handling: the scoped handler that records errors, and the handler
// that stops a synchronised process at its first X error.

namespace vorlan {

BYTE TemporaryXErrorHandler::error_code = 0;

TemporaryXErrorHandler::TemporaryXErrorHandler()
{
    GtkCriticalSection lock;
    error_code = 0;
    m_previousHandler = XSetErrorHandler(&TemporaryXErrorHandler::RecordError);
}

TemporaryXErrorHandler::~TemporaryXErrorHandler()
{
    GtkCriticalSection lock;
    XSync(gdk_x11_get_default_xdisplay(), False);
    XSetErrorHandler(m_previousHandler);
}

int TemporaryXErrorHandler::RecordError(Display *, XErrorEvent *error)
{
    error_code = error->error_code;
    return error->error_code;
}

} // namespace vorlan

// Installed under XSynchronize, where each X call waits for its reply, so the
// stack printed here is the one of the failing call.  The process waits for
// a debugger or a kill.
int VorlXErrorHandler(Display *display, XErrorEvent *error)
{
    OSWalkStack(0, nullptr, nullptr);
    char text[255];
    XGetErrorText(display, error->error_code, text, sizeof text);
    printf("(pid %d ) X lib error (%d:%s) occurs, waiting for debug or kill...\n",
           static_cast<int>(getpid()), error->error_code, text);
    fflush(stdout);
    if (error->error_code != 0) {
        if (getenv("XSynchronize") != nullptr)
            pause();
        exit(-1);
    }
    return 0;
}
