// CreateWindowExA/W.  The window object and its X window are made first,
// then the window procedure hears WM_NCCREATE, WM_NCCALCSIZE and
// WM_CREATE; a child also gets WM_SIZE and WM_MOVE at once and tells its
// parent, a top-level window gets them when it is first shown.  Any of
// these messages may destroy the window, and creation then returns 0.
#include "gtk/vorlgtklock.h"
#include "gtk/vorlglobals.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowpos.h"
#include "gtk/vorlwindowtree.h"
#include "gtk/vorlxwindow.h"
#include "vorlassert.h"
#include "vorlwindowclass.h"

#include <algorithm>

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

HWND CreateWindowCore(CreateArguments &args)
{
    CREATESTRUCTW &cs = args.cs;
    // Default positions and sizes are not offered: callers give real ones.
    const int x = cs.x, y = cs.y, nWidth = cs.cx, nHeight = cs.cy;
    VORLAN_ASSERT("vorlan/gtk/vorlcreatewindow", x != CW_USEDEFAULT && y != CW_USEDEFAULT);
    VORLAN_ASSERT("vorlan/gtk/vorlcreatewindow", nWidth != CW_USEDEFAULT && nHeight != CW_USEDEFAULT);
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
