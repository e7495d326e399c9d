// Window lifecycle: creation, destruction (also of the windows of a thread
// that ends), showing and hiding, parents and owners, the plain tree
// queries and the window text.  Every message can destroy the window under
// the caller, so the sequences test IsWindow after each message.
#include "gtk/vorlstartup.h"
#include "gtk/vorlwindowpaint.h"
#include "vorlnonclient.h"
#include "gtk/vorlpending.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlsysparams.h"
#include "gtk/vorlthread.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowpos.h"
#include "gtk/vorlxwindow.h"
#include "vorlassert.h"
#include "vorlprivatemessages.h"
#include "vorltextencoding.h"
#include "vorlwindowclass.h"
#include "vorlwindowproc.h"

#include <algorithm>
#include <cstdlib>
#include <vector>
#include <gdk/gdkx.h>
#include <X11/Xutil.h>
#include <cstring>

// ----------------------------------------------------------------------------
// CreateWindowExA/W.  The window object and its X window are made first,
// then the window procedure hears WM_NCCREATE, WM_NCCALCSIZE and
// WM_CREATE; a child also gets WM_SIZE and WM_MOVE at once and tells its
// parent, a top-level window gets them when it is first shown.  Any of
// these messages may destroy the window, and creation then returns 0.

using WindowObject = vorlan::Window;

namespace {

constexpr ATOM kMenuClassAtom = 32768;
constexpr ATOM kDialogClassAtom = 32770;

// The arguments of CreateWindowEx, with the class and title in the
// caller's form.
struct CreateArguments {
    CREATESTRUCTW cs;
    BOOL wide;
};

HWND Fail(DWORD error)
{
    SetLastError(error);
    return nullptr;
}

ATOM FindClassAtom(const void *name, BOOL wide)
{
    if (IS_INTRESOURCE(name))
        return static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(name));
    return wide ? FindAtomW(static_cast<LPCWSTR>(name)) : FindAtomA(static_cast<LPCSTR>(name));
}

LRESULT SendCreateMessage(HWND hWnd, UINT message, CREATESTRUCTW *cs, BOOL wide)
{
    const LPARAM lParam = reinterpret_cast<LPARAM>(cs);
    return wide ? SendMessageW(hWnd, message, 0, lParam) : SendMessageA(hWnd, message, 0, lParam);
}

bool IsUndecorated(DWORD style, ATOM classAtom)
{
    if ((style & WS_POPUP) && (style & WS_CAPTION) != WS_CAPTION)
        return true;
    if (style & WS_CHILD)
        return true;
    return classAtom == kDialogClassAtom && _dialogUseWMD == 0;
}

// Window manager hints of the new X window: its geometry is the one the
// library gives it, and frames, taskbar entries and stacking follow the
// style and owner.
void PrepareXWindow(WindowObject *pWnd, DWORD style, DWORD exStyle, bool owned)
{
    GdkWindow *window = pWnd->window;
    GdkGeometry geometry = {};
    geometry.win_gravity = GDK_GRAVITY_STATIC;
    gdk_window_set_geometry_hints(window, &geometry, GDK_HINT_WIN_GRAVITY);
    if (IsUndecorated(style, pWnd->pClass->atom))
        gdk_window_set_decorations(window, static_cast<GdkWMDecoration>(0));
    EnableWindowFuncs(pWnd->hWnd, TRUE);
    if (pWnd->pClass->atom == kMenuClassAtom)
        gdk_window_set_override_redirect(window, TRUE);
    if (!(exStyle & WS_EX_APPWINDOW) && ((exStyle & WS_EX_TOOLWINDOW) || owned)) {
        gdk_window_set_skip_taskbar_hint(window, TRUE);
        gdk_window_set_skip_pager_hint(window, TRUE);
    }
}

// Steps up to the window object with its X window, its place in the tree
// and its rectangles.  Null on failure, with the error set.
WindowObject *MakeWindowObject(const CreateArguments &args, WindowClass *wc, HWND hWndParent, HWND hWndOwner)
{
    const CREATESTRUCTW &cs = args.cs;
    auto *pWnd = new WindowObject(wc);
    const HWND hWnd = pWnd->hWnd;
    pWnd->dwStyle = static_cast<DWORD>(cs.style) & ~WS_VISIBLE;
    pWnd->dwExStyle = cs.dwExStyle;
    LinkWindow(hWnd, hWndParent);
    SetWindowLongPtrW(hWnd, GWLP_ID, reinterpret_cast<LONG_PTR>(cs.hMenu));
    pWnd->CreateOSWindow();
    PrepareXWindow(pWnd, pWnd->dwStyle, pWnd->dwExStyle, hWndOwner != nullptr);
    if (hWndOwner != nullptr)
        SetOwner(hWnd, hWndOwner);
    SetXWindowInfo(hWnd);
    RECT rc = {cs.x, cs.y, cs.x + cs.cx, cs.y + cs.cy};
    OffsetRect(&rc, pWnd->pWndParent->rcClient.left, pWnd->pWndParent->rcClient.top);
    pWnd->rcWindow = rc;
    pWnd->rcClient = rc;
    pWnd->SyncWindowPos(nullptr, nullptr, 0);
    if (!(pWnd->dwStyle & WS_CHILD))
        SetWMInputMode(hWnd);
    return pWnd;
}

// WM_NCCALCSIZE on the window rectangle gives the client rectangle, kept
// inside the window rectangle.  False when the window died.
bool CalcClientRect(HWND hWnd)
{
    RECT rc = vorlan::getWindow(hWnd)->rcWindow;
    SendMessageW(hWnd, WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&rc));
    WindowObject *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return false;
    rc.left = std::max(rc.left, pWnd->rcWindow.left);
    rc.right = std::max(rc.right, rc.left);
    rc.top = std::max(rc.top, pWnd->rcWindow.top);
    rc.bottom = std::max(rc.bottom, rc.top);
    pWnd->rcClient = rc;
    return true;
}

// A child reports its size and place at once and tells its parent.
bool AnnounceChild(HWND hWnd)
{
    const WindowObject *pWnd = vorlan::getWindow(hWnd);
    const RECT client = pWnd->rcClient;
    const RECT parentClient = pWnd->pWndParent->rcClient;
    const HWND parent = pWnd->pWndParent->hWnd;
    const bool notifyParent = !(pWnd->dwExStyle & WS_EX_NOPARENTNOTIFY);
    const WORD id = static_cast<WORD>(pWnd->hMenuOrId);
    SendMessageW(hWnd, WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.right - client.left, client.bottom - client.top));
    if (!IsWindow(hWnd))
        return false;
    SendMessageW(hWnd, WM_MOVE, 0, MAKELPARAM(client.left - parentClient.left, client.top - parentClient.top));
    if (!IsWindow(hWnd))
        return false;
    if (notifyParent)
        SendMessageW(parent, WM_PARENTNOTIFY, MAKEWPARAM(WM_CREATE, id), reinterpret_cast<LPARAM>(hWnd));
    return IsWindow(hWnd) != FALSE;
}

int InitialShowCommand(LONG style)
{
    if (style & WS_MAXIMIZE)
        return SW_MAXIMIZE;
    if (style & WS_MINIMIZE)
        return SW_MINIMIZE;
    return SW_SHOW;
}

// From the first message to the window procedure on.
HWND RunCreationMessages(HWND hWnd, CreateArguments &args)
{
    if (SendCreateMessage(hWnd, WM_NCCREATE, &args.cs, args.wide) == 0) {
        DestroyWindow(hWnd);
        return nullptr;
    }
    if (!IsWindow(hWnd) || !CalcClientRect(hWnd))
        return nullptr;
    if (SendCreateMessage(hWnd, WM_CREATE, &args.cs, args.wide) == -1) {
        DestroyWindow(hWnd);
        return nullptr;
    }
    if (!IsWindow(hWnd))
        return nullptr;
    if (vorlan::IsChildStyle(static_cast<DWORD>(args.cs.style))) {
        if (!AnnounceChild(hWnd))
            return nullptr;
    } else {
        vorlan::getWindow(hWnd)->dwFlags |= WF_SIZEPENDING;
    }
    if (args.cs.style & WS_VISIBLE) {
        ShowWindow(hWnd, InitialShowCommand(args.cs.style));
        if (!IsWindow(hWnd))
            return nullptr;
    }
    return hWnd;
}

// The parent a window lives under and, for a window that is no child, the
// owner that the given parent stands for.
bool ResolveParent(const CREATESTRUCTW &cs, HWND *parent, HWND *owner)
{
    *parent = cs.hwndParent;
    *owner = nullptr;
    if (!vorlan::IsChildStyle(static_cast<DWORD>(cs.style))) {
        if (cs.hwndParent != nullptr && cs.hwndParent != g_hWndDesktop) {
            *owner = GetAncestor(cs.hwndParent, GA_ROOT);
            if (*owner == nullptr)
                return false;
        }
        *parent = g_hWndDesktop;
    }
    return true;
}

// CW_USEDEFAULT.  An overlapped window gets the next place of a cascade over
// the desktop's work area (y is then ignored) and, for a default width, three
// quarters of the work area (the height is then ignored).  Popup and child
// windows get 0 for each default, as on Win32.
namespace {

int s_cascadeStep = 0;

POINT NextCascadePosition(const RECT &work, SIZE size)
{
    const int offset = GetSystemMetrics(SM_CYCAPTION) + GetSystemMetrics(SM_CYFRAME);
    for (int attempt = 0; attempt < 2; ++attempt) {
        const POINT pt = {work.left + s_cascadeStep * offset, work.top + s_cascadeStep * offset};
        ++s_cascadeStep;
        if (pt.x + size.cx <= work.right && pt.y + size.cy <= work.bottom)
            return pt;
        s_cascadeStep = 0;
    }
    ++s_cascadeStep;
    return {work.left, work.top};
}

void ResolveDefaultPlacement(CREATESTRUCTW &cs)
{
    const bool overlapped = (static_cast<DWORD>(cs.style) & (WS_POPUP | WS_CHILD)) == 0;
    const bool defaultPlace = cs.x == CW_USEDEFAULT;
    const bool defaultSize = cs.cx == CW_USEDEFAULT;
    if (!overlapped) {
        if (defaultPlace)
            cs.x = cs.y = 0;
        if (defaultSize)
            cs.cx = cs.cy = 0;
        if (cs.y == CW_USEDEFAULT)
            cs.y = 0;
        if (cs.cy == CW_USEDEFAULT)
            cs.cy = 0;
        return;
    }
    const RECT work = vorlan::GetDesktopWorkArea();
    if (defaultSize) {
        cs.cx = (work.right - work.left) * 3 / 4;
        cs.cy = (work.bottom - work.top) * 3 / 4;
    } else if (cs.cy == CW_USEDEFAULT) {
        cs.cy = (work.bottom - work.top) * 3 / 4;
    }
    if (defaultPlace) {
        const POINT pt = NextCascadePosition(work, {cs.cx, cs.cy});
        cs.x = pt.x;
        cs.y = pt.y;
    } else if (cs.y == CW_USEDEFAULT) {
        cs.y = work.top;
    }
}

} // namespace

HWND CreateWindowCore(CreateArguments &args)
{
    CREATESTRUCTW &cs = args.cs;
    ResolveDefaultPlacement(cs);
    cs.cx = std::max(0, cs.cx);
    cs.cy = std::max(0, cs.cy);
    if (cs.lpszClass == nullptr)
        return Fail(ERROR_INVALID_PARAMETER);
    HWND parent, owner;
    if (!ResolveParent(cs, &parent, &owner))
        return nullptr;
    if (vorlan::getWindow(parent) == nullptr)
        return Fail(ERROR_INVALID_WINDOW_HANDLE);
    const bool child = vorlan::IsChildStyle(static_cast<DWORD>(cs.style));
    if (!child && cs.hMenu != nullptr && !IsMenu(cs.hMenu))
        return Fail(ERROR_INVALID_MENU_HANDLE);
    const ATOM atom = FindClassAtom(cs.lpszClass, args.wide);
    WindowClass *wc = atom != 0 ? WindowClass_FindClass(atom) : nullptr;
    if (wc == nullptr)
        return Fail(ERROR_CANNOT_FIND_WND_CLASS);
    if (!child && cs.hMenu == nullptr && wc->pszMenuName != nullptr) {
        cs.hMenu = LoadMenuW(cs.hInstance, wc->pszMenuName);
        if (cs.hMenu == nullptr)
            return nullptr;
    }
    // The creating thread gets its queue before the handle exists, so that
    // another thread may send to the window as soon as it learns the handle.
    ThreadData::GetCurrentThreadData();
    const WindowObject *pWnd = MakeWindowObject(args, wc, parent, owner);
    return RunCreationMessages(pWnd->hWnd, args);
}

CreateArguments Arguments(DWORD exStyle, const void *className, const void *windowName, DWORD style, int x, int y,
                          int cx, int cy, HWND parent, HMENU menu, HINSTANCE instance, LPVOID param, BOOL wide)
{
    CreateArguments args;
    args.cs.lpCreateParams = param;
    args.cs.hInstance = instance;
    args.cs.hMenu = menu;
    args.cs.hwndParent = parent;
    args.cs.cy = cy;
    args.cs.cx = cx;
    args.cs.y = y;
    args.cs.x = x;
    args.cs.style = static_cast<LONG>(style);
    args.cs.lpszName = static_cast<LPCWSTR>(windowName);
    args.cs.lpszClass = static_cast<LPCWSTR>(className);
    args.cs.dwExStyle = exStyle;
    args.wide = wide;
    return args;
}

} // namespace

HWND WINAPI CreateWindowExW(DWORD dwExStyle, LPCWSTR lpClassName, LPCWSTR lpWindowName, DWORD dwStyle, int X, int Y,
                            int nWidth, int nHeight, HWND hWndParent, HMENU hMenu, HINSTANCE hInstance,
                            LPVOID lpParam)
{
    vorlan::GtkCriticalSection lock;
    CreateArguments args = Arguments(dwExStyle, lpClassName, lpWindowName, dwStyle, X, Y, nWidth, nHeight,
                                     hWndParent, hMenu, hInstance, lpParam, TRUE);
    return CreateWindowCore(args);
}

HWND WINAPI CreateWindowExA(DWORD dwExStyle, LPCSTR lpClassName, LPCSTR lpWindowName, DWORD dwStyle, int X, int Y,
                            int nWidth, int nHeight, HWND hWndParent, HMENU hMenu, HINSTANCE hInstance,
                            LPVOID lpParam)
{
    vorlan::GtkCriticalSection lock;
    CreateArguments args = Arguments(dwExStyle, lpClassName, lpWindowName, dwStyle, X, Y, nWidth, nHeight,
                                     hWndParent, hMenu, hInstance, lpParam, FALSE);
    return CreateWindowCore(args);
}

// ----------------------------------------------------------------------------
// DestroyWindow.  Owned top-level windows go first, then the window and
// its children: WM_DESTROY reaches the parent before its children,
// WM_NCDESTROY the children before the parent.  The X windows go last, in
// one request for the whole tree.

using WindowObject = vorlan::Window;

namespace {

// The window is hWnd itself or lies below it.
bool IsSelfOrDescendant(HWND hWnd, HWND other)
{
    return other != nullptr && (other == hWnd || IsChild(hWnd, other));
}

void DestroyOwnedWindows(HWND hWnd)
{
    HWND *list = GetWindowChildListEx(nullptr, GetCurrentThreadId());
    if (list == nullptr)
        return;
    for (HWND *entry = list; *entry != nullptr; ++entry) {
        if (IsWindow(*entry) && GetWindow(*entry, GW_OWNER) == hWnd)
            DestroyWindow(*entry);
    }
    FreeWindowList(list);
}

// Caret, focus and capture do not outlive their window.
void ReleaseThreadState(HWND hWnd)
{
    if (IsSelfOrDescendant(hWnd, GetCaretWindow()))
        DestroyCaret();
    if (IsSelfOrDescendant(hWnd, GetFocus()))
        SetFocus(nullptr);
    if (IsSelfOrDescendant(hWnd, GetCapture()))
        ReleaseCapture();
}

void FreeMenu(WindowObject *pWnd)
{
    if ((pWnd->dwStyle & WS_CHILD) || pWnd->hMenuOrId == 0)
        return;
    const HMENU menu = reinterpret_cast<HMENU>(pWnd->hMenuOrId);
    if (IsMenu(menu))
        Menu_Release(menu, TRUE);
    std::free(pWnd->pMenuBar);
    pWnd->pMenuBar = nullptr;
}

void FreeWindowObject(HWND hWnd)
{
    WindowObject *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return;
    if (pWnd->pWndParent != nullptr)
        UnlinkWindow(hWnd);
    FreeMenu(pWnd);
    // Late X events of this window must find no handle.
    if (GdkWindow *window = GetGdkWindow(hWnd))
        g_object_set_data(G_OBJECT(window), "HWND", nullptr);
    delete pWnd;
}

void DestroyWindowCore(HWND hWnd)
{
    SendMessageW(hWnd, WM_DESTROY, 0, 0);
    DestroyIMEWindow(hWnd);
    if (HWND *children = GetWindowChildList(hWnd)) {
        for (HWND *child = children; *child != nullptr; ++child) {
            if (IsWindow(*child))
                DestroyWindowCore(*child);
        }
        FreeWindowList(children);
    }
    SendMessageW(hWnd, WM_NCDESTROY, 0, 0);
    FreeWindowObject(hWnd);
}

void NotifyParentOfDestroy(HWND hWnd)
{
    const WindowObject *pWnd = vorlan::getWindow(hWnd);
    if (!vorlan::IsChildStyle(pWnd->dwStyle) || (pWnd->dwExStyle & WS_EX_NOPARENTNOTIFY))
        return;
    const WPARAM wParam = MAKEWPARAM(WM_DESTROY, static_cast<WORD>(pWnd->hMenuOrId));
    SendMessageW(GetParent(hWnd), WM_PARENTNOTIFY, wParam, reinterpret_cast<LPARAM>(hWnd));
}

BOOL DestroyWindowAW(HWND hWnd)
{
    WindowObject *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return vorlan::FailBadHandle();
    if (hWnd == g_hWndDesktop || pWnd->dwThreadId != GetCurrentThreadId()) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    NotifyParentOfDestroy(hWnd);
    if (IsWindow(hWnd))
        DestroyOwnedWindows(hWnd);
    if (IsWindow(hWnd))
        ReleaseThreadState(hWnd);
    pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return TRUE;
    GtkWidget *widget = pWnd->widget;
    GdkWindow *window = pWnd->window;
    const HWND owner = vorlan::HandleOf(pWnd->pWndOwner);
    const bool visible = (pWnd->dwStyle & WS_VISIBLE) != 0;
    DestroyWindowCore(hWnd);
    if (visible && owner != nullptr && GetForegroundWindow() == hWnd)
        SetForegroundWindow(owner);
    if (widget != nullptr)
        gtk_widget_destroy(widget);
    else if (window != nullptr)
        gdk_window_destroy(window);
    gdk_flush();
    if (visible)
        ProcessExposeEvents();
    return TRUE;
}

} // namespace

BOOL WINAPI DestroyWindow(HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    return DestroyWindowAW(hWnd);
}

// ----------------------------------------------------------------------------
// The window objects of a thread that ends.
//
// A window cannot outlive its parent, so the windows below a dying window
// die with it whatever thread made them.  The survivors lose every link to
// the dying objects, and the dying GDK windows lose their handle, so that
// no X event reaches a handle whose slot is reused later.  No message is
// sent and no GDK window is destroyed.

using WindowObject = vorlan::Window;

namespace {

bool Dies(const WindowObject *pWnd, DWORD tid)
{
    for (const WindowObject *w = pWnd; w != nullptr; w = w->pWndParent) {
        if (w->hWnd == g_hWndDesktop)
            return false;
        if (w->dwThreadId == tid)
            return true;
    }
    return false;
}

std::vector<WindowObject *> GatherDyingWindows(DWORD tid)
{
    std::vector<WindowObject *> dying;
    for (WindowObject *pWnd : vorlan::window_objs) {
        if (pWnd != nullptr && Dies(pWnd, tid))
            dying.push_back(pWnd);
    }
    return dying;
}

void DetachHandle(GdkWindow *window)
{
    if (window != nullptr)
        g_object_set_data(G_OBJECT(window), "HWND", nullptr);
}

// Owners that die leave their owned windows without an owner.
void ForgetDyingOwners(DWORD tid)
{
    for (WindowObject *pWnd : vorlan::window_objs) {
        if (pWnd != nullptr && pWnd->pWndOwner != nullptr && Dies(pWnd->pWndOwner, tid))
            pWnd->pWndOwner = nullptr;
    }
}

} // namespace

void DestroyThreadWindows(DWORD tid)
{
    const std::vector<WindowObject *> dying = GatherDyingWindows(tid);
    ForgetDyingOwners(tid);
    // Taking the topmost dying windows out of surviving parents' lists
    // leaves no link from a survivor into a dying subtree.
    for (WindowObject *pWnd : dying) {
        if (pWnd->pWndParent != nullptr && !Dies(pWnd->pWndParent, tid))
            UnlinkWindow(pWnd->hWnd);
    }
    for (WindowObject *pWnd : dying) {
        DetachHandle(pWnd->window);
        DetachHandle(pWnd->foreignWindow);
        delete pWnd;
    }
}

// ----------------------------------------------------------------------------
// ShowWindow.  Minimize and maximize requests only show the window: those
// style bits follow what X reports.  A top-level window shown for the first
// time gets its owed WM_SIZE and WM_MOVE, its X position, and the
// foreground unless the caller asked for no activation.

using WindowObject = vorlan::Window;

namespace {

bool IsTopLevel(const WindowObject *pWnd)
{
    return pWnd->pWndParent != nullptr && pWnd->pWndParent->hWnd == g_hWndDesktop;
}

bool Activates(int nCmdShow)
{
    return nCmdShow != SW_SHOWNOACTIVATE && nCmdShow != SW_SHOWNA;
}

// Whether the server has the top-level window mapped; false when X
// cannot say.
bool QueryMapped(HWND hWnd, bool *mapped)
{
    vorlan::TemporaryXErrorHandler trap;
    XWindowAttributes attributes;
    if (!XGetWindowAttributes(GetXDisplay(hWnd), GetXWindow(hWnd), &attributes))
        return false;
    *mapped = attributes.map_state != IsUnmapped;
    return true;
}

// The first WM_SIZE and WM_MOVE of a top-level window.  False when the
// window died.
bool SendPendingSize(HWND hWnd)
{
    WindowObject *pWnd = vorlan::getWindow(hWnd);
    pWnd->dwFlags &= ~WF_SIZEPENDING;
    const RECT client = pWnd->rcClient;
    const RECT parentClient = pWnd->pWndParent->rcClient;
    SendMessageW(hWnd, WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.right - client.left, client.bottom - client.top));
    if (!IsWindow(hWnd))
        return false;
    SendMessageW(hWnd, WM_MOVE, 0, MAKELPARAM(client.left - parentClient.left, client.top - parentClient.top));
    return IsWindow(hWnd) != FALSE;
}

void MapWindow(WindowObject *pWnd)
{
    if (pWnd->widget != nullptr) {
        gtk_widget_show(pWnd->widget);
        return;
    }
    const bool topLevel = IsTopLevel(pWnd);
    if (pWnd->dwFlags & WF_MOVEPENDING) {
        pWnd->dwFlags &= ~WF_MOVEPENDING;
        pWnd->SyncWindowPos(nullptr, nullptr, 0);
    }
    if (topLevel)
        gdk_window_show(pWnd->window);
    else
        gdk_window_show_unraised(pWnd->window);
    if (topLevel) {
        const POINT frame = vorlan::FrameOrigin(pWnd->hWnd);
        gdk_window_move(pWnd->window, frame.x + pWnd->rcWindow.left, frame.y + pWnd->rcWindow.top);
    }
}

void Show(WindowObject *pWnd)
{
    pWnd->dwStyle |= WS_VISIBLE;
    if (pWnd->widget == nullptr)
        RedrawWindow(pWnd->hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_FRAME);
    MapWindow(pWnd);
}

void Hide(WindowObject *pWnd, bool wasVisible)
{
    const HWND hWnd = pWnd->hWnd;
    if (pWnd->widget == nullptr)
        RedrawWindow(hWnd, nullptr, nullptr, RDW_VALIDATE | RDW_NOERASE | RDW_ALLCHILDREN | RDW_NOFRAME);
    pWnd->dwStyle &= ~WS_VISIBLE;
    if (IsTopLevel(pWnd) && wasVisible && GetForegroundWindow() == hWnd && pWnd->pWndOwner != nullptr)
        SetForegroundWindow(pWnd->pWndOwner->hWnd);
    pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return;
    if (pWnd->widget != nullptr)
        gtk_widget_hide(pWnd->widget);
    else if (pWnd->window != nullptr)
        gdk_window_hide(pWnd->window);
}

// A hidden window keeps neither the foreground nor the activation.
void GiveUpActivation(HWND hWnd)
{
    if (GetForegroundWindow() == hWnd) {
        SetForegroundThreadId(0);
        SendMessageW(hWnd, WM_PRIVATE_LOST_FOREGROUND, 0, 0);
    }
    if (IsWindow(hWnd) && GetActiveWindow() == hWnd)
        SetActiveWindow(nullptr);
}

// A newly shown top-level window: the window manager's focus offer for a
// first map is declined once, and the window becomes the foreground.
void FinishFirstShow(HWND hWnd, bool wasMapped, int nCmdShow)
{
    bool error;
    {
        vorlan::TemporaryXErrorHandler trap;
        XSync(GetXDisplay(hWnd), False);
        error = vorlan::TemporaryXErrorHandler::error_code != 0;
    }
    if (error)
        return;
    if (!wasMapped)
        vorlan::getWindow(hWnd)->dwFlags |= WF_SKIPTAKEFOCUS;
    if (Activates(nCmdShow))
        SetForegroundWindow(hWnd);
}

BOOL ShowWindowCore(HWND hWnd, int nCmdShow)
{
    WindowObject *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return vorlan::FailBadHandle();
    if (hWnd == g_hWndDesktop)
        return FALSE;
    const BOOL wasVisible = (pWnd->dwStyle & WS_VISIBLE) != 0;
    const bool show = nCmdShow != SW_HIDE;
    const bool topLevel = IsTopLevel(pWnd);
    bool mapped = false;
    if (topLevel && pWnd->window != nullptr && !QueryMapped(hWnd, &mapped))
        return wasVisible;
    if (show && !vorlan::IsChildStyle(pWnd->dwStyle) && (pWnd->dwFlags & WF_SIZEPENDING) && !SendPendingSize(hWnd))
        return wasVisible;
    SendMessageW(hWnd, WM_SHOWWINDOW, show, 0);
    pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return wasVisible;
    if (show) {
        Show(pWnd);
    } else {
        Hide(pWnd, wasVisible);
        GiveUpActivation(hWnd);
    }
    if (show && topLevel && !wasVisible && IsWindow(hWnd))
        FinishFirstShow(hWnd, mapped, nCmdShow);
    gdk_flush();
    ProcessExposeEvents();
    return wasVisible;
}

} // namespace

BOOL WINAPI ShowWindow(HWND hWnd, int nCmdShow)
{
    vorlan::GtkCriticalSection lock;
    return ShowWindowCore(hWnd, nCmdShow);
}

// ----------------------------------------------------------------------------
// SetParent: a child moves to another parent and keeps its place relative
// to the client origin, in the tree, in its rectangles and in X.

using WindowObject = vorlan::Window;

namespace {

bool IsSelfOrAncestor(const WindowObject *candidate, const WindowObject *pWnd)
{
    for (const WindowObject *w = candidate; w != nullptr; w = w->pWndParent) {
        if (w == pWnd)
            return true;
    }
    return false;
}

GdkWindow *ParentGdkWindow(const WindowObject *parent)
{
    if (parent->widget != nullptr)
        return gtk_widget_get_window(parent->widget);
    return GetGdkWindow(parent->hWnd);
}

void ReparentXWindow(WindowObject *pWnd, WindowObject *parent)
{
    if (pWnd->window == nullptr)
        return;
    if (parent->hWnd == g_hWndDesktop) {
        gdk_window_reparent(pWnd->window, gdk_get_default_root_window(), pWnd->rcWindow.left, pWnd->rcWindow.top);
        gdk_window_move(pWnd->window, pWnd->rcWindow.left, pWnd->rcWindow.top);
        return;
    }
    const POINT frame = vorlan::FrameOrigin(parent->hWnd);
    gdk_window_reparent(pWnd->window, ParentGdkWindow(parent), pWnd->rcWindow.left - parent->rcWindow.left - frame.x,
                        pWnd->rcWindow.top - parent->rcWindow.top - frame.y);
}

HWND SetParentCore(HWND hWnd, HWND hWndNewParent)
{
    if (hWnd == g_hWndDesktop)
        return nullptr;
    WindowObject *pWnd = vorlan::getWindow(hWnd);
    if (hWndNewParent == nullptr)
        hWndNewParent = g_hWndDesktop;
    WindowObject *parent = vorlan::getWindow(hWndNewParent);
    if (pWnd == nullptr || parent == nullptr) {
        vorlan::FailBadHandle();
        return nullptr;
    }
    WindowObject *oldParent = pWnd->pWndParent;
    if (oldParent == parent || oldParent == nullptr)
        return nullptr;
    if (IsSelfOrAncestor(parent, pWnd)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (IsWindowVisible(hWnd) && !IsWindowVisible(hWndNewParent))
        RedrawWindow(hWnd, nullptr, nullptr, RDW_VALIDATE | RDW_NOERASE | RDW_ALLCHILDREN | RDW_NOFRAME);
    const HWND oldParentHandle = oldParent->hWnd;
    UnlinkWindow(hWnd);
    LinkWindow(hWnd, hWndNewParent);
    vorlan::OffsetAllWindowRects(pWnd, parent->rcClient.left - oldParent->rcClient.left,
                                 parent->rcClient.top - oldParent->rcClient.top);
    ReparentXWindow(pWnd, parent);
    vorlan::CalcXWindowRect(pWnd, &pWnd->rcXWindow);
    return oldParentHandle;
}

} // namespace

HWND WINAPI SetParent(HWND hWndChild, HWND hWndNewParent)
{
    vorlan::GtkCriticalSection lock;
    return SetParentCore(hWndChild, hWndNewParent);
}

// ----------------------------------------------------------------------------
// The owner of a top-level window, in the object and as WM_TRANSIENT_FOR
// in X.  A window owned by something hidden is made transient for what
// the user sees: the hidden owner's own transient parent, or the active
// window.

namespace {

XID TransientTarget(HWND hWnd, HWND root)
{
    Display *display = GetXDisplay(root);
    XID target = GetXWindow(root);
    if (IsWindowVisible(root))
        return target;
    ::Window transientFor = 0;
    if (XGetTransientForHint(display, target, &transientFor) && transientFor != 0)
        return transientFor;
    const HWND active = GetActiveWindow();
    if (!(GetWindowLongW(hWnd, GWL_STYLE) & WS_CHILD) && active != nullptr && vorlan::getWindow(active) != nullptr)
        return GetXWindow(active);
    return target;
}

// Sets WM_TRANSIENT_FOR unless it is there already; false on an X error.
bool SetTransientFor(HWND hWnd, XID target)
{
    Display *display = GetXDisplay(hWnd);
    const XID own = GetXWindow(hWnd);
    if (target == own || own == 0)
        return true;
    ::Window present = 0;
    if (XGetTransientForHint(display, own, &present) && present == target)
        return true;
    XSetTransientForHint(display, own, target);
    XSync(display, False);
    return vorlan::TemporaryXErrorHandler::error_code == 0;
}

void ClearTransientFor(HWND hWnd)
{
    const XID own = GetXWindow(hWnd);
    if (own == 0)
        return;
    Display *display = GetXDisplay(hWnd);
    XDeleteProperty(display, own, XInternAtom(display, "WM_TRANSIENT_FOR", False));
}

} // namespace

HWND SetOwner(HWND hWnd, HWND hWndOwner)
{
    vorlan::Window *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return nullptr;
    const HWND old = vorlan::HandleOf(pWnd->pWndOwner);
    vorlan::TemporaryXErrorHandler trap;
    if (hWndOwner == nullptr) {
        ClearTransientFor(hWnd);
        pWnd->pWndOwner = nullptr;
        return old;
    }
    if (vorlan::getWindow(hWndOwner) == nullptr)
        return nullptr;
    const HWND root = GetAncestor(hWndOwner, GA_ROOT);
    if (root == nullptr)
        return nullptr;
    if (!SetTransientFor(hWnd, TransientTarget(hWnd, root))) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    pWnd->pWndOwner = vorlan::getWindow(root);
    return old;
}

// ----------------------------------------------------------------------------
// The plain questions about a window and its place in the tree: validity,
// visibility, thread, parent, owner, siblings and children.

using WindowObject = vorlan::Window;

namespace {

bool IsDesktop(const WindowObject *pWnd)
{
    return pWnd->hWnd == g_hWndDesktop;
}

HWND PreviousSibling(const WindowObject *pWnd)
{
    const WindowObject *parent = pWnd->pWndParent;
    if (parent == nullptr)
        return nullptr;
    const WindowObject *previous = nullptr;
    for (const WindowObject *sibling = parent->pWndChild; sibling != nullptr; sibling = sibling->pWndNext) {
        if (sibling == pWnd)
            return vorlan::HandleOf(previous);
        previous = sibling;
    }
    return nullptr;
}

HWND FirstSibling(const WindowObject *pWnd)
{
    const WindowObject *parent = IsDesktop(pWnd) ? pWnd : pWnd->pWndParent;
    return parent != nullptr ? vorlan::HandleOf(parent->pWndChild) : nullptr;
}

// The desktop is in no sibling list, so it has no next sibling: looking
// for it among the top-level windows fails as a bad handle.
HWND NextSibling(const WindowObject *pWnd)
{
    if (IsDesktop(pWnd)) {
        vorlan::FailBadHandle();
        return nullptr;
    }
    return vorlan::HandleOf(pWnd->pWndNext);
}

} // namespace

BOOL WINAPI IsWindow(HWND hWnd)
{
    return vorlan::getWindow(hWnd) != nullptr ? TRUE : vorlan::FailBadHandle();
}

HWND WINAPI GetDesktopWindow(void)
{
    return g_hWndDesktop;
}

BOOL WINAPI IsWindowVisible(HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return FALSE;
    for (; pWnd != nullptr; pWnd = pWnd->pWndParent) {
        if ((pWnd->dwStyle & WS_VISIBLE) == 0)
            return FALSE;
    }
    return TRUE;
}

// A dialog remembers the form its procedure was set in; any other window
// is wide when its procedure has a wide side.
BOOL WINAPI IsWindowUnicode(HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return FALSE;
    if (pWnd->dwFlags & WF_DIALOG)
        return (pWnd->dwFlags & WF_DIALOGUNICODE) != 0;
    const LONG_PTR procedure = GetWindowLongPtrW(hWnd, GWLP_WNDPROC);
    return procedure != 0 && !IsWndProcId(procedure);
}

// Every window lives in the one process, whose id is 1 here.
DWORD WINAPI GetWindowThreadProcessId(HWND hWnd, LPDWORD lpdwProcessId)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return 0xFFFFFFFF;
    if (lpdwProcessId != nullptr)
        *lpdwProcessId = 1;
    return pWnd->dwThreadId;
}

// A popup's "parent" is its owner; a child's is its parent.
HWND WINAPI GetParent(HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return nullptr;
    if (pWnd->dwStyle & WS_POPUP)
        return vorlan::HandleOf(pWnd->pWndOwner);
    if (pWnd->dwStyle & WS_CHILD)
        return vorlan::HandleOf(pWnd->pWndParent);
    return nullptr;
}

HWND WINAPI GetAncestor(HWND hwnd, UINT gaFlags)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindowOrFail(hwnd);
    if (pWnd == nullptr)
        return nullptr;
    if (gaFlags != GA_PARENT && gaFlags != GA_ROOT && gaFlags != GA_ROOTOWNER) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (gaFlags == GA_PARENT || pWnd->pWndParent == nullptr)
        return vorlan::HandleOf(pWnd->pWndParent);
    while (!IsDesktop(pWnd->pWndParent))
        pWnd = pWnd->pWndParent;
    if (gaFlags == GA_ROOTOWNER) {
        if ((pWnd->dwStyle & WS_POPUP) && pWnd->pWndOwner != nullptr)
            return pWnd->pWndOwner->hWnd;
        if (vorlan::IsChildStyle(pWnd->dwStyle))
            return g_hWndDesktop;
    }
    return pWnd->hWnd;
}

HWND WINAPI GetWindow(HWND hWnd, UINT uCmd)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return nullptr;
    switch (uCmd) {
    case GW_HWNDFIRST:
        return FirstSibling(pWnd);
    case GW_HWNDLAST:
        return nullptr;
    case GW_HWNDNEXT:
        return NextSibling(pWnd);
    case GW_HWNDPREV:
        return PreviousSibling(pWnd);
    case GW_OWNER:
        return vorlan::HandleOf(pWnd->pWndOwner);
    case GW_CHILD:
        return vorlan::HandleOf(pWnd->pWndChild);
    default:
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
}

// Climbs through child windows only: an owned popup is no child.
BOOL WINAPI IsChild(HWND hWndParent, HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    if (hWndParent == hWnd)
        return FALSE;
    const WindowObject *parent = vorlan::getWindow(hWndParent);
    const WindowObject *pWnd = vorlan::getWindow(hWnd);
    if (parent == nullptr || pWnd == nullptr)
        return FALSE;
    while ((pWnd->dwStyle & WS_CHILD) != 0 && pWnd->pWndParent != nullptr) {
        pWnd = pWnd->pWndParent;
        if (pWnd == parent)
            return TRUE;
    }
    return FALSE;
}

BOOL WINAPI MessageBeep(UINT)
{
    vorlan::GtkCriticalSection lock;
    gdk_beep();
    return TRUE;
}

BOOL WINAPI AnimateWindow(HWND, DWORD, DWORD)
{
    vorlan::GtkCriticalSection lock;
    return FALSE;
}

BOOL WINAPI IsWindowEnabled(HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindowOrFail(hWnd);
    return pWnd != nullptr && (pWnd->dwStyle & WS_DISABLED) == 0;
}

// ----------------------------------------------------------------------------
// Window text as the default procedure keeps it, and the exports that ask
// the window procedure for it.

namespace {

int WideLength(const void *text, BOOL wide)
{
    if (text == nullptr)
        return 0;
    if (wide)
        return lstrlenW(static_cast<LPCWSTR>(text));
    const int units = MultiByteToWideChar(CP_ACP, 0, static_cast<LPCSTR>(text), -1, nullptr, 0);
    return units > 0 ? units - 1 : 0;
}

void CopyText(WCHAR *dest, int length, const void *text, BOOL wide)
{
    if (wide)
        std::memcpy(dest, text, length * sizeof(WCHAR));
    else
        MultiByteToWideChar(CP_ACP, 0, static_cast<LPCSTR>(text), -1, dest, length + 1);
    dest[length] = 0;
}

// A buffer of the new length, reusing the old one when the length stays.
bool ResizeText(vorlan::Window *pWnd, int length)
{
    if (length == lstrlenW(pWnd->pszText))
        return true;
    WCHAR *buffer = vorlan::g_wszEmptyText;
    if (length > 0) {
        buffer = static_cast<WCHAR *>(std::malloc((length + 1) * sizeof(WCHAR)));
        if (buffer == nullptr)
            return false;
    }
    if (pWnd->pszText != vorlan::g_wszEmptyText)
        std::free(pWnd->pszText);
    pWnd->pszText = buffer;
    return true;
}

// Every window of the library's own, children included, carries its text
// as its X title; another client's window is left alone.
void SetTitle(const vorlan::Window *pWnd, const WCHAR *text)
{
    if (pWnd->foreignWindow != nullptr)
        return;
    GdkWindow *window = GetGdkWindow(pWnd->hWnd);
    if (window == nullptr)
        return;
    vorlan::StringTranslator utf8;
    const char *title = utf8.Utf16ToUtf8(text);
    gdk_window_set_title(window, title != nullptr ? title : "");
}

} // namespace

BOOL DefSetTextAW(HWND hWnd, const void *text, BOOL wide)
{
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return vorlan::FailBadHandle();
    const int length = WideLength(text, wide);
    if (!ResizeText(pWnd, length)) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return FALSE;
    }
    if (length > 0)
        CopyText(pWnd->pszText, length, text, wide);
    SetTitle(pWnd, pWnd->pszText);
    return TRUE;
}

BOOL DefSetTextW(HWND hWnd, LPCWSTR text)
{
    return DefSetTextAW(hWnd, text, TRUE);
}

BOOL DefSetTextA(HWND hWnd, LPCSTR text)
{
    return DefSetTextAW(hWnd, text, FALSE);
}

namespace {

int GetWideText(const WCHAR *text, LPWSTR buffer, int size)
{
    const int length = lstrlenW(text);
    if (size == 0)
        return length;
    const int count = std::min(length, size - 1);
    std::memcpy(buffer, text, count * sizeof(WCHAR));
    buffer[count] = 0;
    return count;
}

int GetAnsiText(const WCHAR *text, LPSTR buffer, int size)
{
    if (size == 0) {
        const int bytes = WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr);
        return bytes > 0 ? bytes - 1 : 0;
    }
    vorlan::StringTranslator ansi;
    const char *converted = ansi.Utf16ToAnsi(text);
    if (converted == nullptr)
        return 0;
    const int count = std::min<int>(static_cast<int>(std::strlen(converted)), size - 1);
    std::memcpy(buffer, converted, count);
    buffer[count] = 0;
    return count;
}

} // namespace

int DefGetTextAW(HWND hWnd, void *buffer, int size, BOOL wide)
{
    const vorlan::Window *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return 0;
    if (pWnd->pszText[0] == 0 || size < 0 || (size > 0 && buffer == nullptr))
        return 0;
    if (wide)
        return GetWideText(pWnd->pszText, static_cast<LPWSTR>(buffer), size);
    return GetAnsiText(pWnd->pszText, static_cast<LPSTR>(buffer), size);
}

int DefGetTextW(HWND hWnd, LPWSTR buffer, int size)
{
    return DefGetTextAW(hWnd, buffer, size, TRUE);
}

int DefGetTextA(HWND hWnd, LPSTR buffer, int size)
{
    return DefGetTextAW(hWnd, buffer, size, FALSE);
}

BOOL WINAPI SetWindowTextW(HWND hWnd, LPCWSTR lpString)
{
    return SendMessageW(hWnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(lpString)) == 1;
}

BOOL WINAPI SetWindowTextA(HWND hWnd, LPCSTR lpString)
{
    return SendMessageA(hWnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(lpString)) == 1;
}

int WINAPI GetWindowTextW(HWND hWnd, LPWSTR lpString, int nMaxCount)
{
    return static_cast<int>(SendMessageW(hWnd, WM_GETTEXT, nMaxCount, reinterpret_cast<LPARAM>(lpString)));
}

int WINAPI GetWindowTextA(HWND hWnd, LPSTR lpString, int nMaxCount)
{
    return static_cast<int>(SendMessageA(hWnd, WM_GETTEXT, nMaxCount, reinterpret_cast<LPARAM>(lpString)));
}

int WINAPI GetWindowTextLengthW(HWND hWnd)
{
    return static_cast<int>(SendMessageW(hWnd, WM_GETTEXTLENGTH, 0, 0));
}

int WINAPI GetWindowTextLengthA(HWND hWnd)
{
    return static_cast<int>(SendMessageA(hWnd, WM_GETTEXTLENGTH, 0, 0));
}
