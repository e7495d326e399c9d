// DefWindowProcA/W: the Win32 behaviour applications rely on when they
// pass a message on, and the end point of the library's private messages.
// Every message not named here gives 0.
#include "vorldefwindowproc.h"

#include "gtk/vorlgtklock.h"
#include "gtk/vorlxwindow.h"
#include "gtk/vorlmessage.h"
#include "vorlnonclient.h"
#include "gtk/vorlpending.h"
#include "gtk/vorlthread.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowpos.h"
#include "vorlprivatemessages.h"

#include <algorithm>

namespace {

bool IsPrivateMessage(UINT message)
{
    return message >= WM_PRIVATE_EMBED_FOCUS_SYNC && message <= WM_PRIVATE_SET_FOREGROUND;
}

POINT PointOf(LPARAM lParam)
{
    POINT pt = {static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam))};
    return pt;
}

LRESULT OnNcCreate(HWND hWnd, LPARAM lParam, BOOL wide)
{
    const auto *cs = reinterpret_cast<const CREATESTRUCTW *>(lParam);
    const void *name = cs != nullptr ? cs->lpszName : nullptr;
    if (wide)
        return DefSetTextW(hWnd, static_cast<LPCWSTR>(name));
    return DefSetTextA(hWnd, static_cast<LPCSTR>(name));
}

LRESULT OnGetText(HWND hWnd, WPARAM wParam, LPARAM lParam, BOOL wide)
{
    if (wParam == 0)
        return 0;
    const int size = static_cast<int>(wParam);
    if (wide)
        return DefGetTextW(hWnd, reinterpret_cast<LPWSTR>(lParam), size);
    return DefGetTextA(hWnd, reinterpret_cast<LPSTR>(lParam), size);
}

LRESULT OnGetTextLength(HWND hWnd, BOOL wide)
{
    return wide ? DefGetTextW(hWnd, nullptr, 0) : DefGetTextA(hWnd, nullptr, 0);
}

// Activated: the window takes the focus.  Deactivated in favour of a
// window of another thread or of no window: the thread's focus goes.
void OnActivate(HWND hWnd, WPARAM wParam, LPARAM lParam)
{
    if (LOWORD(wParam) != WA_INACTIVE) {
        if ((GetWindowLongW(hWnd, GWL_VORLFLAGS) & WF_NOFOCUSONACTIVATE) == 0 && !IsForeignWindow(hWnd))
            SetFocus(hWnd);
        return;
    }
    const HWND other = reinterpret_cast<HWND>(lParam);
    if (other != nullptr) {
        if (!vorlan::WindowExists(other))
            return;
        if (vorlan::WindowThreadId(other) == GetCurrentThreadId())
            return;
    }
    if (GetFocus() != nullptr)
        SetFocus(nullptr);
}

LRESULT OnEraseBackground(HWND hWnd, WPARAM wParam)
{
    const auto brush = reinterpret_cast<HBRUSH>(GetClassLongPtrW(hWnd, GCLP_HBRBACKGROUND));
    if (brush == nullptr)
        return 0;
    RECT rect;
    GetClientRect(hWnd, &rect);
    FillRect(reinterpret_cast<HDC>(wParam), &rect, brush);
    return 1;
}

void OnCancelMode(HWND hWnd)
{
    if (GetCapture() == hWnd)
        ReleaseCapture();
    if (GetMenuOwner() == hWnd)
        ExitMenu();
}

LPCSTR CursorOfHitCode(int hit)
{
    switch (hit) {
    case HTLEFT:
    case HTRIGHT:
        return IDC_SIZEWE;
    case HTTOP:
    case HTBOTTOM:
        return IDC_SIZENS;
    case HTTOPLEFT:
    case HTBOTTOMRIGHT:
        return IDC_SIZENWSE;
    case HTTOPRIGHT:
    case HTBOTTOMLEFT:
        return IDC_SIZENESW;
    default:
        return IDC_ARROW;
    }
}

// The parent may set the cursor first; otherwise the class cursor over
// the client area and the sizing cursors over the edges.
LRESULT OnSetCursor(HWND hWnd, WPARAM wParam, LPARAM lParam)
{
    const HWND parent = GetAncestor(hWnd, GA_PARENT);
    if (parent != nullptr && parent != GetDesktopWindow() &&
        SendMessageW(parent, WM_SETCURSOR, wParam, lParam) != 0)
        return 1;
    const int hit = static_cast<SHORT>(LOWORD(lParam));
    HCURSOR cursor;
    if (hit == HTCLIENT)
        cursor = reinterpret_cast<HCURSOR>(GetClassLongPtrW(reinterpret_cast<HWND>(wParam), GCLP_HCURSOR));
    else
        cursor = LoadCursorA(nullptr, CursorOfHitCode(hit));
    if (cursor == nullptr)
        return 0;
    SetCursor(cursor);
    return 1;
}

LRESULT OnMouseActivate(HWND hWnd, WPARAM wParam, LPARAM lParam)
{
    const HWND parent = GetAncestor(hWnd, GA_PARENT);
    if (parent == nullptr)
        return MA_ACTIVATE;
    return SendMessageW(parent, WM_MOUSEACTIVATE, wParam, lParam);
}

void OnDrawItem(LPARAM lParam)
{
    const auto *item = reinterpret_cast<const DRAWITEMSTRUCT *>(lParam);
    if (item != nullptr && item->CtlType == ODT_LISTBOX && item->itemAction == ODA_FOCUS)
        DrawFocusRect(item->hDC, &item->rcItem);
}

// Windows that the user can size keep within their tracking limits.
void OnWindowPosChanging(HWND hWnd, LPARAM lParam)
{
    auto *wp = reinterpret_cast<WINDOWPOS *>(lParam);
    if (wp == nullptr || (wp->flags & SWP_NOSIZE) != 0)
        return;
    const DWORD style = static_cast<DWORD>(GetWindowLongW(hWnd, GWL_STYLE));
    if ((style & (WS_POPUP | WS_CHILD)) != 0 && (style & WS_THICKFRAME) == 0)
        return;
    MINMAXINFO mmi;
    if (!GetWindowMinMaxInfo(hWnd, &mmi))
        return;
    wp->cx = std::min<int>(std::max<int>(wp->cx, mmi.ptMinTrackSize.x), mmi.ptMaxTrackSize.x);
    wp->cy = std::min<int>(std::max<int>(wp->cy, mmi.ptMinTrackSize.y), mmi.ptMaxTrackSize.y);
}

// WM_MOVE and WM_SIZE for what the change did to the client area.
void OnWindowPosChanged(HWND hWnd, LPARAM lParam)
{
    const auto *wp = reinterpret_cast<const WINDOWPOS *>(lParam);
    if (wp == nullptr)
        return;
    RECT client;
    GetClientRect(hWnd, &client);
    if ((wp->flags & SWP_PRIVATE_CLIENTSTAYS) == 0) {
        POINT origin = {0, 0};
        MapWindowPoints(hWnd, GetAncestor(hWnd, GA_PARENT), &origin, 1);
        SendMessageW(hWnd, WM_MOVE, 0, MAKELPARAM(origin.x, origin.y));
    }
    if ((wp->flags & SWP_PRIVATE_CLIENTSIZESTAYS) == 0 && IsWindow(hWnd))
        SendMessageW(hWnd, WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.right, client.bottom));
}

void OnKeyF1(HWND hWnd)
{
    HELPINFO info = {};
    info.cbSize = sizeof(HELPINFO);
    info.iContextType = HELPINFO_WINDOW;
    info.iCtrlId = static_cast<int>(GetWindowLongW(hWnd, GWL_ID));
    info.hItemHandle = hWnd;
    info.dwContextId = 0;
    GetCursorPos(&info.MousePos);
    SendMessageW(hWnd, WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
}

void OnKeyDown(HWND hWnd, WPARAM wParam)
{
    if (wParam == VK_APPS || (wParam == VK_F10 && GetKeyState(VK_SHIFT) < 0))
        SendMessageA(hWnd, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(hWnd), -1);
}

void OnSysKeyUp(HWND hWnd, WPARAM wParam)
{
    if (wParam == VK_MENU || wParam == VK_F10)
        SendMessageA(GetAncestor(hWnd, GA_ROOT), WM_SYSCOMMAND, SC_KEYMENU, 0);
}

// The menu of the first window up the tree that is no child, and its item
// with the accelerator character.
void TrackMenuByKey(HWND hWnd, LPARAM ch)
{
    HWND top = hWnd;
    while (top != nullptr && (GetWindowLongW(top, GWL_STYLE) & WS_CHILD) != 0)
        top = GetParent(top);
    const HMENU menu = top != nullptr ? GetMenu(top) : nullptr;
    if (menu == nullptr)
        return;
    const int item = Menu_FindAccelItem(menu, static_cast<WCHAR>(ch));
    if (item != -1)
        MenuBar_Track(top, item, TRUE);
}

void OnSysCommand(HWND hWnd, WPARAM wParam, LPARAM lParam)
{
    switch (wParam & 0xFFF0) {
    case SC_SIZE:
        DefSizeCommand(hWnd, static_cast<int>(wParam & 15), PointOf(lParam));
        break;
    case SC_MINIMIZE:
        ShowWindow(hWnd, SW_MINIMIZE);
        break;
    case SC_MAXIMIZE:
        ShowWindow(hWnd, SW_MAXIMIZE);
        break;
    case SC_CLOSE:
        SendMessageW(hWnd, WM_CLOSE, 0, 0);
        break;
    case SC_MOUSEMENU: {
        const int item = MenuBar_HitTest(hWnd, PointOf(lParam));
        if (item != -1)
            MenuBar_Track(hWnd, item, FALSE);
        break;
    }
    case SC_KEYMENU:
        TrackMenuByKey(hWnd, lParam);
        break;
    default:
        break;
    }
}

LRESULT OnControlColor(WPARAM wParam, int background)
{
    const auto hdc = reinterpret_cast<HDC>(wParam);
    SetBkColor(hdc, GetSysColor(background));
    SetTextColor(hdc, GetSysColor(COLOR_WINDOWTEXT));
    return background + 1;
}

void OnRightButtonUp(HWND hWnd, LPARAM lParam)
{
    POINT pt = PointOf(lParam);
    ClientToScreen(hWnd, &pt);
    SendMessageW(hWnd, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(hWnd), MAKELPARAM(pt.x, pt.y));
}

bool IsButtonDown(UINT message)
{
    return message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN;
}

// The notice climbs the whole parent chain; a click's point is converted
// into each parent's client coordinates on the way.
void OnParentNotify(HWND hWnd, WPARAM wParam, LPARAM lParam)
{
    const HWND parent = GetAncestor(hWnd, GA_PARENT);
    if (parent == nullptr || (GetWindowLongW(hWnd, GWL_EXSTYLE) & WS_EX_NOPARENTNOTIFY) != 0)
        return;
    if (IsButtonDown(LOWORD(wParam))) {
        POINT pt = PointOf(lParam);
        MapWindowPoints(hWnd, parent, &pt, 1);
        lParam = MAKELPARAM(pt.x, pt.y);
    }
    SendMessageW(parent, WM_PARENTNOTIFY, wParam, lParam);
}

void ToImeWindow(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND ime = ImmGetDefaultIMEWnd(hWnd);
    if (ime != nullptr)
        SendMessageW(ime, message, wParam, lParam);
}

LRESULT SendToParent(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return SendMessageW(GetParent(hWnd), message, wParam, lParam);
}

// Messages about the frame, painting and text.
bool DefWindowMessage(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, BOOL wide, LRESULT *result)
{
    switch (message) {
    case WM_NCCREATE:
        *result = OnNcCreate(hWnd, lParam, wide);
        return true;
    case WM_SETTEXT:
        if (wide)
            DefSetTextW(hWnd, reinterpret_cast<LPCWSTR>(lParam));
        else
            DefSetTextA(hWnd, reinterpret_cast<LPCSTR>(lParam));
        *result = 1;
        return true;
    case WM_GETTEXT:
        *result = OnGetText(hWnd, wParam, lParam, wide);
        return true;
    case WM_GETTEXTLENGTH:
        *result = OnGetTextLength(hWnd, wide);
        return true;
    case WM_PAINT: {
        PAINTSTRUCT ps;
        if (BeginPaint(hWnd, &ps) != nullptr)
            EndPaint(hWnd, &ps);
        return true;
    }
    case WM_CLOSE:
        DestroyWindow(hWnd);
        return true;
    case WM_ERASEBKGND:
        *result = OnEraseBackground(hWnd, wParam);
        return true;
    case WM_NCCALCSIZE:
        if (lParam != 0)
            DefNCCalcSize(hWnd, reinterpret_cast<RECT *>(lParam));
        return true;
    case WM_NCHITTEST:
        *result = DefNCHitTest(hWnd, PointOf(lParam));
        return true;
    case WM_NCPAINT:
        DefNCPaint(hWnd, reinterpret_cast<HRGN>(wParam));
        return true;
    case WM_NCACTIVATE:
        *result = 1;
        return true;
    case WM_NCMOUSEMOVE:
    case WM_NCLBUTTONDOWN:
    case WM_NCLBUTTONUP:
    case WM_NCLBUTTONDBLCLK:
    case WM_NCRBUTTONUP:
        DefNCMouse(hWnd, message, wParam, lParam);
        return true;
    case WM_WINDOWPOSCHANGING:
        OnWindowPosChanging(hWnd, lParam);
        return true;
    case WM_WINDOWPOSCHANGED:
        OnWindowPosChanged(hWnd, lParam);
        return true;
    case WM_DRAWITEM:
        OnDrawItem(lParam);
        return true;
    case WM_CTLCOLOREDIT:
        *result = OnControlColor(wParam, COLOR_WINDOW);
        return true;
    case WM_CTLCOLORSTATIC:
        *result = OnControlColor(wParam, COLOR_BTNFACE);
        return true;
    default:
        return false;
    }
}

// Messages about input, activation and help.
bool DefInputMessage(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, LRESULT *result)
{
    switch (message) {
    case WM_ACTIVATE:
        OnActivate(hWnd, wParam, lParam);
        return true;
    case WM_CANCELMODE:
        OnCancelMode(hWnd);
        return true;
    case WM_SETCURSOR:
        *result = OnSetCursor(hWnd, wParam, lParam);
        return true;
    case WM_MOUSEACTIVATE:
        *result = OnMouseActivate(hWnd, wParam, lParam);
        return true;
    case WM_VKEYTOITEM:
        *result = -1;
        return true;
    case WM_KEYF1:
        OnKeyF1(hWnd);
        return true;
    case WM_HELP:
        SendToParent(hWnd, WM_HELP, wParam, lParam);
        *result = 1;
        return true;
    case WM_CONTEXTMENU:
    case WM_MOUSEWHEEL:
        SendToParent(hWnd, message, wParam, lParam);
        return true;
    case WM_KEYDOWN:
        OnKeyDown(hWnd, wParam);
        return true;
    case WM_SYSKEYUP:
        OnSysKeyUp(hWnd, wParam);
        return true;
    case WM_SYSCHAR:
        if (wParam != 0)
            SendMessageW(hWnd, WM_SYSCOMMAND, SC_KEYMENU, static_cast<LPARAM>(wParam));
        return true;
    case WM_SYSCOMMAND:
        OnSysCommand(hWnd, wParam, lParam);
        return true;
    case WM_RBUTTONUP:
        OnRightButtonUp(hWnd, lParam);
        return true;
    case WM_PARENTNOTIFY:
        OnParentNotify(hWnd, wParam, lParam);
        return true;
    case WM_IME_CHAR:
        PostMessageW(hWnd, WM_CHAR, wParam, lParam);
        return true;
    case WM_IME_STARTCOMPOSITION:
    case WM_IME_ENDCOMPOSITION:
    case WM_IME_COMPOSITION:
    case WM_PRIVATE_IME_RESULT:
        ToImeWindow(hWnd, message, wParam, lParam);
        return true;
    default:
        return false;
    }
}

} // namespace

LRESULT DefWindowProcAW(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, BOOL wide)
{
    if (!IsWindow(hWnd))
        return 0;
    LRESULT result = 0;
    if (DefWindowMessage(hWnd, message, wParam, lParam, wide, &result))
        return result;
    if (DefInputMessage(hWnd, message, wParam, lParam, &result))
        return result;
    if (IsPrivateMessage(message))
        return DefPrivateMessage(hWnd, message, wParam, lParam);
    return 0;
}

LRESULT WINAPI DefWindowProcA(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    vorlan::GtkCriticalSection lock;
    return DefWindowProcAW(hWnd, Msg, wParam, lParam, FALSE);
}

LRESULT WINAPI DefWindowProcW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    vorlan::GtkCriticalSection lock;
    return DefWindowProcAW(hWnd, Msg, wParam, lParam, TRUE);
}

// ----------------------------------------------------------------------------
// The default procedure's answers to the library's private messages of
// focus, foreground and XEmbed.  They reach the window on its own thread,
// so that activation changes run where the window's queue lives.

namespace {

// The focus is the window itself or lies below it.
bool HoldsFocus(HWND hWnd)
{
    const HWND focus = GetFocus();
    return focus != nullptr && (focus == hWnd || IsChild(hWnd, focus));
}

bool IsTopLevel(HWND hWnd)
{
    return GetAncestor(hWnd, GA_PARENT) == GetDesktopWindow();
}

// The foreground moved away: the window loses its activation, and when
// the foreground left this thread altogether every top-level window hears
// that the application is inactive.
void OnLostForeground(HWND hWnd, LPARAM lParam)
{
    IMFocusOut(hWnd);
    SetCurrentThreadActiveWindow(nullptr);
    if (IsTopLevel(hWnd) && SendMessageW(hWnd, WM_NCACTIVATE, FALSE, 0) != 0)
        SendMessageW(hWnd, WM_ACTIVATE, MAKEWPARAM(WA_INACTIVE, IsIconic(hWnd)), lParam);
    const HWND next = reinterpret_cast<HWND>(lParam);
    if (next != nullptr && vorlan::WindowExists(next) && vorlan::WindowThreadId(next) == GetCurrentThreadId())
        return;
    EnumWindows(NotifyAppActivation, FALSE);
}

void OnEmbedDeactivate(HWND hWnd, LPARAM lParam)
{
    if (!HoldsFocus(hWnd))
        return;
    SendMessageW(hWnd, WM_ACTIVATE, WA_INACTIVE, lParam);
    SetFocus(reinterpret_cast<HWND>(lParam));
}

void OnEmbedTakeFocus(HWND hWnd)
{
    if (HoldsFocus(hWnd))
        return;
    const HWND active = GetActiveWindow();
    if (active != nullptr && !IsChild(active, hWnd))
        return;
    SetFocus(hWnd);
}

} // namespace

BOOL CALLBACK NotifyAppActivation(HWND hWnd, LPARAM lParam)
{
    SendMessageA(hWnd, WM_ACTIVATEAPP, static_cast<WPARAM>(lParam), 0);
    return TRUE;
}

LRESULT DefPrivateMessage(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PRIVATE_EMBED_FOCUS_SYNC:
        if (HoldsFocus(hWnd))
            RequestXEmbedFocus(hWnd);
        EnsureFocusAndForegroundConsistent();
        return 0;
    case WM_PRIVATE_EMBED_DEACTIVATE:
        OnEmbedDeactivate(hWnd, lParam);
        return 0;
    case WM_PRIVATE_EMBED_TAKE_FOCUS:
        OnEmbedTakeFocus(hWnd);
        return 0;
    case WM_PRIVATE_FOCUS_SYNC:
        EnsureFocusAndForegroundConsistent();
        return 0;
    case WM_PRIVATE_LOST_FOREGROUND:
        OnLostForeground(hWnd, lParam);
        return 0;
    case WM_PRIVATE_SET_FOREGROUND:
        SetActiveWindowCore(hWnd, static_cast<BOOL>(wParam));
        return GetActiveWindow() == hWnd;
    default:
        return 0;
    }
}

// ----------------------------------------------------------------------------
// Sizing by the mouse: a modal loop of the window's own, with the pointer
// captured, in which the edges named by the WMSZ_ code follow the pointer.
// The window manager has no part in it.  The pointer is followed in the
// client coordinates of the window as it stood when sizing began: the
// start point is converted once, and each message's point is taken as it
// comes, so an edge keeps its distance to the pointer's press.

namespace {

struct FollowedEdges {
    bool left, right, top, bottom;
};

FollowedEdges EdgesOf(int code)
{
    return {code == WMSZ_LEFT || code == WMSZ_TOPLEFT || code == WMSZ_BOTTOMLEFT,
            code == WMSZ_RIGHT || code == WMSZ_TOPRIGHT || code == WMSZ_BOTTOMRIGHT,
            code == WMSZ_TOP || code == WMSZ_TOPLEFT || code == WMSZ_TOPRIGHT,
            code == WMSZ_BOTTOM || code == WMSZ_BOTTOMLEFT || code == WMSZ_BOTTOMRIGHT};
}

// Brings the rectangle within the tracking sizes: minimum before maximum,
// width before height.  The edge that follows the pointer gives way.
void AdjustTrackRect(int code, const MINMAXINFO &mmi, RECT *rc)
{
    const FollowedEdges edges = EdgesOf(code);
    auto setWidth = [&](LONG width) {
        if (edges.left)
            rc->left = rc->right - width;
        else
            rc->right = rc->left + width;
    };
    auto setHeight = [&](LONG height) {
        if (edges.top)
            rc->top = rc->bottom - height;
        else
            rc->bottom = rc->top + height;
    };
    if (rc->right - rc->left < mmi.ptMinTrackSize.x)
        setWidth(mmi.ptMinTrackSize.x);
    if (rc->bottom - rc->top < mmi.ptMinTrackSize.y)
        setHeight(mmi.ptMinTrackSize.y);
    if (rc->right - rc->left > mmi.ptMaxTrackSize.x)
        setWidth(mmi.ptMaxTrackSize.x);
    if (rc->bottom - rc->top > mmi.ptMaxTrackSize.y)
        setHeight(mmi.ptMaxTrackSize.y);
}

// Places the window at a screen rectangle, in its parent's coordinates.
void PlaceWindow(HWND hWnd, RECT rc)
{
    if (GetWindowLongW(hWnd, GWL_STYLE) & WS_CHILD)
        MapWindowPoints(nullptr, GetParent(hWnd), reinterpret_cast<POINT *>(&rc), 2);
    SetWindowPos(hWnd, nullptr, rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

class SizeTracker {
public:
    // `start` is the press in screen coordinates.
    SizeTracker(HWND hWnd, int code, POINT start) : m_hWnd(hWnd), m_code(code), m_edges(EdgesOf(code))
    {
        GetWindowRect(hWnd, &m_old);
        ScreenToClient(hWnd, &start);
        m_offset = {m_edges.left ? start.x - m_old.left : start.x - m_old.right,
                    m_edges.top ? start.y - m_old.top : start.y - m_old.bottom};
        Follow(start, m_old);
    }

    // The edges follow the pointer at client point `pt`.
    void Follow(POINT pt) { Follow(pt, Current()); }

    void Restore() const { PlaceWindow(m_hWnd, m_old); }

private:
    RECT Current() const
    {
        RECT rc = {};
        GetWindowRect(m_hWnd, &rc);
        return rc;
    }

    void Follow(POINT pt, RECT rc) const
    {
        const LONG x = pt.x - m_offset.x, y = pt.y - m_offset.y;
        if (m_edges.left)
            rc.left = x;
        if (m_edges.right)
            rc.right = x;
        if (m_edges.top)
            rc.top = y;
        if (m_edges.bottom)
            rc.bottom = y;
        MINMAXINFO mmi = {};
        if (GetWindowMinMaxInfo(m_hWnd, &mmi))
            AdjustTrackRect(m_code, mmi, &rc);
        PlaceWindow(m_hWnd, rc);
    }

    HWND m_hWnd;
    int m_code;
    FollowedEdges m_edges;
    RECT m_old = {};
    POINT m_offset = {};
};

// Runs the loop until the button goes up (true) or the sizing is cancelled
// (false): capture lost, WM_QUIT, or Escape.
bool TrackSize(HWND hWnd, SizeTracker &tracker)
{
    for (;;) {
        if (GetCapture() != hWnd)
            return false;
        MSG msg;
        if (!GetMessageW(&msg, nullptr, 0, 0)) {
            PostQuitMessage(static_cast<int>(msg.wParam));
            return false;
        }
        if (msg.message == WM_MOUSEMOVE || msg.message == WM_LBUTTONUP) {
            tracker.Follow(PointOf(msg.lParam));
            if (msg.message == WM_LBUTTONUP)
                return true;
        } else if (msg.message == WM_KEYDOWN) {
            if (msg.wParam == VK_ESCAPE)
                return false;
        } else {
            DispatchMessageW(&msg);
        }
    }
}

} // namespace

void DefSizeCommand(HWND hWnd, int code, POINT pt)
{
    if (code < WMSZ_LEFT || code > WMSZ_BOTTOMRIGHT || GetCapture() != nullptr)
        return;
    SetCapture(hWnd);
    SizeTracker tracker(hWnd, code, pt);
    SendMessageW(hWnd, WM_ENTERSIZEMOVE, 0, 0);
    const bool finished = IsWindow(hWnd) && TrackSize(hWnd, tracker);
    ReleaseCapture();
    if (!IsWindow(hWnd))
        return;
    if (!finished)
        tracker.Restore();
    SendMessageW(hWnd, WM_EXITSIZEMOVE, 0, 0);
}
