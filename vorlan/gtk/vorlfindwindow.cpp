// FindWindowExW and FindWindowW: the first window of a parent's child list,
// after a given sibling, with a given class and title.
//
// The title is asked of each candidate with WM_GETTEXT, as GetWindowTextW
// does, so a window procedure that keeps its own text answers for itself.
// Titles compare case-insensitively in the ASCII range only.
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowsearch.h"
#include "vorlwidestring.h"

#include <cstdlib>

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
