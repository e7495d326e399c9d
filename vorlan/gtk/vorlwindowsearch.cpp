// Window search: enumeration, FindWindow and FindWindowEx, and the search
// by screen point with its filters.
#include "gtk/vorlwindowsearch.h"

#include <vorlan.h>

#include "gtk/vorlstartup.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlxwindow.h"
#include "vorlwidestring.h"

#include <cstdlib>
#include <gdk/gdkx.h>

// ----------------------------------------------------------------------------
// EnumThreadWindows, EnumWindows, EnumChildWindows.
//
// Each level works on a snapshot of the child list, and the callback runs
// without the toolkit lock, so a callback may create and destroy windows:
// a window of the snapshot that has died by the time its turn comes is
// passed over silently.

namespace {

bool IsAlive(HWND hWnd)
{
    return vorlan::getWindow(hWnd) != nullptr;
}

BOOL CallWithoutLock(WNDENUMPROC proc, HWND hWnd, LPARAM lParam)
{
    vorlan::GtkLockReleaser unlocked;
    return proc(hWnd, lParam);
}

BOOL RefuseNullProc()
{
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

// The top-level windows of thread tid (0: of all threads).  The result is
// the last answer of the callback, TRUE when it was never called.
BOOL EnumTopLevelWindows(DWORD tid, WNDENUMPROC proc, LPARAM lParam)
{
    vorlan::WindowListSnapshot list(GetWindowChildListEx(nullptr, tid));
    if (!list)
        return FALSE;
    BOOL answer = TRUE;
    for (HWND *entry = list.get(); *entry != nullptr && answer; ++entry) {
        if (IsAlive(*entry))
            answer = CallWithoutLock(proc, *entry, lParam);
    }
    return answer;
}

// One level of EnumChildWindows: each child, then its own children.
// Returns false once an answer was 0 (or a snapshot failed), which ends
// the walk at every level; *answer holds the last answer.
bool EnumChildLevel(HWND hWnd, WNDENUMPROC proc, LPARAM lParam, BOOL *answer)
{
    vorlan::WindowListSnapshot list(GetWindowChildList(hWnd));
    if (!list) {
        *answer = FALSE;
        return false;
    }
    for (HWND *entry = list.get(); *entry != nullptr; ++entry) {
        if (!IsAlive(*entry))
            continue;
        *answer = CallWithoutLock(proc, *entry, lParam);
        if (!*answer)
            return false;
        if (IsAlive(*entry) && !EnumChildLevel(*entry, proc, lParam, answer))
            return false;
    }
    return true;
}

} // namespace

BOOL WINAPI EnumThreadWindows(DWORD dwThreadId, WNDENUMPROC lpfn, LPARAM lParam)
{
    if (lpfn == nullptr)
        return RefuseNullProc();
    vorlan::GtkCriticalSection lock;
    return EnumTopLevelWindows(dwThreadId, lpfn, lParam);
}

BOOL WINAPI EnumWindows(WNDENUMPROC lpEnumFunc, LPARAM lParam)
{
    return EnumThreadWindows(0, lpEnumFunc, lParam);
}

BOOL WINAPI EnumChildWindows(HWND hWndParent, WNDENUMPROC lpEnumFunc, LPARAM lParam)
{
    if (hWndParent == nullptr || hWndParent == g_hWndDesktop)
        return EnumWindows(lpEnumFunc, lParam);
    if (lpEnumFunc == nullptr)
        return RefuseNullProc();
    vorlan::GtkCriticalSection lock;
    BOOL answer = TRUE;
    EnumChildLevel(hWndParent, lpEnumFunc, lParam, &answer);
    return answer;
}

// ----------------------------------------------------------------------------
// FindWindowExW and FindWindowW: the first window of a parent's child list,
// after a given sibling, with a given class and title.
//
// The title is asked of each candidate with WM_GETTEXT, as GetWindowTextW
// does, so a window procedure that keeps its own text answers for itself.
// Titles compare case-insensitively in the ASCII range only.

namespace {

using TextBuffer = std::unique_ptr<WCHAR, decltype(&std::free)>;

// What a candidate must have: a class atom (0: any class) and a title
// (null: any title), with a buffer of title length + 1 units for its text.
struct SearchKey {
    ATOM atom;
    LPCWSTR title;
    int titleLength;
    WCHAR *buffer;
};

int WideLength(LPCWSTR text)
{
    int length = 0;
    while (text[length] != 0)
        ++length;
    return length;
}

// The window's text through WM_GETTEXT into the key's buffer; it must fill
// exactly the title's length and equal the title.
bool TitleMatches(HWND hWnd, const SearchKey &key)
{
    const int units = key.titleLength + 1;
    key.buffer[0] = 0;
    const LRESULT copied = SendMessageW(hWnd, WM_GETTEXT, units, reinterpret_cast<LPARAM>(key.buffer));
    key.buffer[key.titleLength] = 0;
    return copied == key.titleLength && ascii_lstrcmpiW(key.buffer, key.title) == 0;
}

bool Matches(HWND hWnd, const SearchKey &key)
{
    if (key.atom != 0 && GetClassLongA(hWnd, GCW_ATOM) != key.atom)
        return false;
    return key.title == nullptr || TitleMatches(hWnd, key);
}

// A class given by a pointer with a high word of 0 is its atom as it is:
// registered classes have atoms above the integer atoms that FindAtomW
// would accept in that form.  A name is looked up.
ATOM ClassAtom(LPCWSTR lpszClass)
{
    if (IS_INTRESOURCE(lpszClass))
        return static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(lpszClass));
    return FindAtomW(lpszClass);
}

// Where the walk starts: behind hWndAfter, or at the front for 0.  Null
// (with error 1400) when hWndAfter is not in the list.
HWND *WalkStart(HWND *list, HWND hWndAfter)
{
    if (hWndAfter == nullptr)
        return list;
    for (HWND *entry = list; *entry != nullptr; ++entry) {
        if (*entry == hWndAfter)
            return entry + 1;
    }
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return nullptr;
}

HWND FindInChildList(HWND hWndParent, HWND hWndAfter, const SearchKey &key)
{
    vorlan::WindowListSnapshot list(GetWindowChildList(hWndParent));
    if (!list)
        return nullptr;
    HWND *entry = WalkStart(list.get(), hWndAfter);
    if (entry == nullptr)
        return nullptr;
    for (; *entry != nullptr; ++entry) {
        if (vorlan::getWindow(*entry) != nullptr && Matches(*entry, key))
            return *entry;
    }
    return nullptr;
}

} // namespace

// The core of FindWindowExW and FindWindowExA; the caller holds the lock.
HWND FindWindowExCore(HWND hWndParent, HWND hWndAfter, LPCWSTR lpszClass, LPCWSTR lpszWindow)
{
    SearchKey key = {0, lpszWindow, 0, nullptr};
    if (lpszClass != nullptr) {
        key.atom = ClassAtom(lpszClass);
        if (key.atom == 0)
            return nullptr;
    }
    TextBuffer buffer(nullptr, &std::free);
    if (lpszWindow != nullptr) {
        key.titleLength = WideLength(lpszWindow);
        buffer.reset(static_cast<WCHAR *>(std::malloc((key.titleLength + 1) * sizeof(WCHAR))));
        if (!buffer) {
            SetLastError(ERROR_OUTOFMEMORY);
            return nullptr;
        }
        key.buffer = buffer.get();
    }
    return FindInChildList(hWndParent, hWndAfter, key);
}

HWND WINAPI FindWindowExW(HWND hWndParent, HWND hWndChildAfter, LPCWSTR lpszClass, LPCWSTR lpszWindow)
{
    vorlan::GtkCriticalSection lock;
    return FindWindowExCore(hWndParent, hWndChildAfter, lpszClass, lpszWindow);
}

HWND WINAPI FindWindowW(LPCWSTR lpClassName, LPCWSTR lpWindowName)
{
    return FindWindowExW(nullptr, nullptr, lpClassName, lpWindowName);
}

// ----------------------------------------------------------------------------
// FindWindowExA and FindWindowA: class and title are converted from the
// process code page and searched for as FindWindowExW does.  A class whose
// pointer has a high word of 0 is an atom and passes unconverted.

namespace {

// A wide copy of a narrow string, owned for one call.
class WideCopy {
public:
    WideCopy() : m_text(nullptr) {}
    ~WideCopy() { std::free(m_text); }
    WideCopy(const WideCopy &) = delete;
    WideCopy &operator=(const WideCopy &) = delete;

    // Converts through CP_ACP.  Failure: error 14 when memory is short, 87
    // when the text does not convert, and false.
    bool Convert(LPCSTR text)
    {
        const int units = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
        if (units <= 0)
            return Fail(ERROR_INVALID_PARAMETER);
        m_text = static_cast<WCHAR *>(std::malloc(units * sizeof(WCHAR)));
        if (m_text == nullptr)
            return Fail(ERROR_OUTOFMEMORY);
        if (MultiByteToWideChar(CP_ACP, 0, text, -1, m_text, units) == 0)
            return Fail(ERROR_INVALID_PARAMETER);
        return true;
    }

    LPCWSTR text() const { return m_text; }

private:
    static bool Fail(DWORD error)
    {
        SetLastError(error);
        return false;
    }

    WCHAR *m_text;
};

} // namespace

HWND WINAPI FindWindowExA(HWND hWndParent, HWND hWndChildAfter, LPCSTR lpszClass, LPCSTR lpszWindow)
{
    vorlan::GtkCriticalSection lock;
    WideCopy className, title;
    LPCWSTR wideClass = reinterpret_cast<LPCWSTR>(lpszClass);
    if (!IS_INTRESOURCE(lpszClass)) {
        if (!className.Convert(lpszClass))
            return nullptr;
        wideClass = className.text();
    }
    if (lpszWindow != nullptr && !title.Convert(lpszWindow))
        return nullptr;
    return FindWindowExCore(hWndParent, hWndChildAfter, wideClass, title.text());
}

HWND WINAPI FindWindowA(LPCSTR lpClassName, LPCSTR lpWindowName)
{
    return FindWindowExA(nullptr, nullptr, lpClassName, lpWindowName);
}

// ----------------------------------------------------------------------------
// FindWindowFromPointEx: the window under a screen point, as a filter
// chooses among the candidates.
//
// Below a window of the library the search walks its child list, first in
// the list first.  Below the desktop and foreign windows the X server
// answers instead: it knows the stacking of every client, so a window of
// another program that lies over one of ours hides it.

namespace {

// The handle of a live window whose GDK window is the X window, or 0.
HWND LiveHandleOfXWindow(Display *display, XID xid)
{
    gpointer object = gdk_xid_table_lookup_for_display(gdk_x11_lookup_xdisplay(display), xid);
    if (object == nullptr || !GDK_IS_WINDOW(object))
        return nullptr;
    const HWND hWnd = getAssociatedWindow(GDK_DRAWABLE(object));
    return vorlan::getWindow(hWnd) != nullptr ? hWnd : nullptr;
}

// Asks X for the window under the point inside the X window of pWnd and
// steps down through X windows without a handle (window manager frames,
// other clients) until one has a handle.  0 when the point leads to no
// such window, or on an X error.
HWND WindowUnderXPoint(const vorlan::Window *pWnd, POINT pt)
{
    GdkWindow *gdkWindow = pWnd->foreignWindow;
    Display *display = GDK_WINDOW_XDISPLAY(gdkWindow);
    const ::Window origin = GDK_WINDOW_XID(gdkWindow);
    const int x = pt.x - pWnd->rcClient.left;
    const int y = pt.y - pWnd->rcClient.top;
    vorlan::TemporaryXErrorHandler trap;
    ::Window below = origin;
    for (;;) {
        ::Window child = None;
        int childX = 0, childY = 0;
        if (!XTranslateCoordinates(display, origin, below, x, y, &childX, &childY, &child) ||
            vorlan::TemporaryXErrorHandler::error_code != 0 || child == None)
            return nullptr;
        if (HWND hWnd = LiveHandleOfXWindow(display, child))
            return hWnd;
        below = child;
    }
}

// Carries out the filter's answer for a candidate.  0 means: nothing here,
// go on.  A candidate that a message of the filter destroyed is passed over.
HWND FollowFilterCode(HWND candidate, FILTER_CODE code, POINT pt, FINDWINDOWFILTER filter)
{
    if (vorlan::getWindow(candidate) == nullptr)
        return nullptr;
    switch (code) {
    case FILTER_TAKE:
        return candidate;
    case FILTER_DESCEND_OR_TAKE:
        if (HWND found = FindWindowFromPointCore(candidate, pt, filter))
            return found;
        return vorlan::getWindow(candidate) != nullptr ? candidate : nullptr;
    case FILTER_DESCEND_ONLY:
        return FindWindowFromPointCore(candidate, pt, filter);
    default:
        return nullptr;
    }
}

HWND SearchChildList(HWND hWnd, POINT pt, FINDWINDOWFILTER filter)
{
    vorlan::WindowListSnapshot list(GetWindowChildList(hWnd));
    if (!list)
        return nullptr;
    for (HWND *entry = list.get(); *entry != nullptr; ++entry) {
        const vorlan::Window *child = vorlan::getWindow(*entry);
        if (child == nullptr || !vorlan::RectHoldsPoint(child->rcWindow, pt))
            continue;
        if (HWND found = FollowFilterCode(*entry, filter(*entry, hWnd, pt, 0), pt, filter))
            return found;
    }
    return nullptr;
}

HWND SearchXWindows(const vorlan::Window *pWnd, POINT pt, FINDWINDOWFILTER filter)
{
    const HWND hWnd = pWnd->hWnd;
    const HWND found = WindowUnderXPoint(pWnd, pt);
    if (found == nullptr)
        return nullptr;
    return FollowFilterCode(found, filter(found, hWnd, pt, 0), pt, filter);
}

} // namespace

HWND FindWindowFromPointCore(HWND hWnd, POINT pt, FINDWINDOWFILTER filter)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr || !vorlan::RectHoldsPoint(pWnd->rcClient, pt))
        return nullptr;
    if (pWnd->foreignWindow == nullptr)
        return SearchChildList(hWnd, pt, filter);
    return SearchXWindows(pWnd, pt, filter);
}

HWND FindWindowFromPointEx(HWND hWnd, POINT pt, FINDWINDOWFILTER filter)
{
    if (filter == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    vorlan::GtkCriticalSection lock;
    if (vorlan::getWindow(hWnd) == nullptr) {
        vorlan::FailBadHandle();
        return nullptr;
    }
    return FindWindowFromPointCore(hWnd, pt, filter);
}

// ----------------------------------------------------------------------------
// WindowFromPoint, ChildWindowFromPoint and the search among direct
// children, all built on FindWindowFromPointEx with one of the filters.

namespace {

FINDWINDOWFILTER DirectFilterFor(BOOL bDisabled, BOOL bInvisible)
{
    if (bDisabled && bInvisible)
        return DirectChildFilter;
    if (bDisabled)
        return DirectVisibleChildFilter;
    if (bInvisible)
        return DirectEnabledChildFilter;
    return DirectVisibleAndEnabledChildFilter;
}

// The client point as a screen point, as ClientToScreen gives it.
POINT ClientToScreenPoint(const vorlan::Window *pWnd, POINT pt)
{
    return {pt.x + pWnd->rcClient.left, pt.y + pWnd->rcClient.top};
}

} // namespace

HWND DirectChildFromPoint(HWND hWnd, POINT pt, BOOL bDisabled, BOOL bInvisible)
{
    return FindWindowFromPointCore(hWnd, pt, DirectFilterFor(bDisabled, bInvisible));
}

// Where nothing of the library lies under the point, the desktop answers.
HWND WINAPI WindowFromPoint(POINT Point)
{
    vorlan::GtkCriticalSection lock;
    const HWND found = FindWindowFromPointCore(g_hWndDesktop, Point, WindowFromPointFilter);
    return found != nullptr ? found : g_hWndDesktop;
}

// Point in the parent's client coordinates.  Outside the parent's window
// rectangle: 0; inside but over no child (also in the frame): the parent.
// Hidden and disabled children count.
HWND WINAPI ChildWindowFromPoint(HWND hWndParent, POINT Point)
{
    vorlan::GtkCriticalSection lock;
    const vorlan::Window *pWnd = vorlan::getWindow(hWndParent);
    if (pWnd == nullptr) {
        vorlan::FailBadHandle();
        return nullptr;
    }
    const POINT screen = ClientToScreenPoint(pWnd, Point);
    if (!vorlan::RectHoldsPoint(pWnd->rcWindow, screen))
        return nullptr;
    const HWND found = DirectChildFromPoint(hWndParent, screen, TRUE, TRUE);
    return found != nullptr ? found : hWndParent;
}

// ----------------------------------------------------------------------------
// The filters of the search by point.  Each answers from the window objects
// alone and sends no message: visibility is WS_VISIBLE on the window and on
// every ancestor, a window is enabled while it lacks WS_DISABLED.

namespace {

bool IsShown(const vorlan::Window *pWnd)
{
    for (; pWnd != nullptr; pWnd = pWnd->pWndParent) {
        if ((pWnd->dwStyle & WS_VISIBLE) == 0)
            return false;
    }
    return true;
}

bool IsEnabled(const vorlan::Window *pWnd)
{
    return (pWnd->dwStyle & WS_DISABLED) == 0;
}

// A disabled window right below the desktop still counts: the desktop's
// children are what a click on the screen can reach.
bool CountsAsEnabled(const vorlan::Window *pWnd, HWND hWndParent)
{
    return hWndParent == g_hWndDesktop || IsEnabled(pWnd);
}

} // namespace

FILTER_CODE DirectChildFilter(HWND hWnd, HWND, POINT, LPARAM)
{
    return vorlan::getWindow(hWnd) != nullptr ? FILTER_TAKE : FILTER_SKIP;
}

FILTER_CODE DirectVisibleChildFilter(HWND hWnd, HWND, POINT, LPARAM)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    return pWnd != nullptr && IsShown(pWnd) ? FILTER_TAKE : FILTER_SKIP;
}

FILTER_CODE DirectEnabledChildFilter(HWND hWnd, HWND hWndParent, POINT, LPARAM)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    return pWnd != nullptr && CountsAsEnabled(pWnd, hWndParent) ? FILTER_TAKE : FILTER_SKIP;
}

FILTER_CODE DirectVisibleAndEnabledChildFilter(HWND hWnd, HWND hWndParent, POINT, LPARAM)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr || !IsShown(pWnd))
        return FILTER_SKIP;
    return CountsAsEnabled(pWnd, hWndParent) ? FILTER_TAKE : FILTER_SKIP;
}

FILTER_CODE WindowFromPointFilter(HWND hWnd, HWND hWndParent, POINT, LPARAM)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr || !IsShown(pWnd))
        return FILTER_SKIP;
    if (IsEnabled(pWnd))
        return FILTER_DESCEND_OR_TAKE;
    return hWndParent == g_hWndDesktop ? FILTER_TAKE : FILTER_SKIP;
}
