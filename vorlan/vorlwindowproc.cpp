// Window procedures: the procedure table and its ids, CallWindowProc, and
// the thunks between a caller of one character form and a procedure of
// the other.
#include "vorlwindowproc.h"

#include <vorlwchar.h>

#include "gtk/vorlgtklock.h"
#include "vorlassert.h"
#include "vorltextencoding.h"

#include <glib.h>
#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

// ----------------------------------------------------------------------------
// The window procedure table: allocation and sharing of ids, lookups.

WndProcEntry g_arrWndProcs[kMaxWndProcs];
std::atomic<UINT> g_nWndProcCount{0};
std::mutex g_wndProcMutex;

namespace {

// The default procedure always comes as a pair.
void CompleteDefaultPair(WNDPROC *pWndProcA, WNDPROC *pWndProcW)
{
    if (*pWndProcA == DefWindowProcA && *pWndProcW == nullptr)
        *pWndProcW = DefWindowProcW;
    else if (*pWndProcW == DefWindowProcW && *pWndProcA == nullptr)
        *pWndProcA = DefWindowProcA;
}

// An entry serves the request when the given side agrees and the other
// side was not asked for or agrees too.
bool EntryMatches(const WndProcEntry &entry, WNDPROC pWndProcA, WNDPROC pWndProcW)
{
    if (entry.pWndProcA == pWndProcA)
        return entry.pWndProcW == pWndProcW || pWndProcW == nullptr;
    return entry.pWndProcW == pWndProcW && pWndProcA == nullptr;
}

// The caller holds g_wndProcMutex.
UINT FindEntry(WNDPROC pWndProcA, WNDPROC pWndProcW, UINT count)
{
    for (UINT i = 0; i < count; ++i) {
        if (EntryMatches(g_arrWndProcs[i], pWndProcA, pWndProcW))
            return i + 1;
    }
    return 0;
}

// The caller holds g_wndProcMutex.
UINT AppendEntry(WNDPROC pWndProcA, WNDPROC pWndProcW, UINT count)
{
    if (count >= kMaxWndProcs)
        return 0;
    g_arrWndProcs[count] = {pWndProcA, pWndProcW};
    g_nWndProcCount.store(count + 1, std::memory_order_release);
    return count + 1;
}

} // namespace

UINT AllocWndProcId(WNDPROC pWndProcA, WNDPROC pWndProcW)
{
    if (pWndProcA == nullptr && pWndProcW == nullptr)
        VORLAN_FAIL("pWndProcA != __null || pWndProcW != __null");
    CompleteDefaultPair(&pWndProcA, &pWndProcW);
    std::lock_guard<std::mutex> guard(g_wndProcMutex);
    const UINT count = g_nWndProcCount.load(std::memory_order_relaxed);
    const UINT id = FindEntry(pWndProcA, pWndProcW, count);
    return id != 0 ? id : AppendEntry(pWndProcA, pWndProcW, count);
}

BOOL IsWndProcId(LONG_PTR value)
{
    return static_cast<ULONG_PTR>(value) - 1 < g_nWndProcCount.load(std::memory_order_acquire);
}

BOOL GetRealWndProc(UINT id, WNDPROC *pWndProcA, WNDPROC *pWndProcW)
{
    if (!IsWndProcId(id))
        return FALSE;
    const WndProcEntry &entry = g_arrWndProcs[id - 1];
    if (pWndProcA != nullptr)
        *pWndProcA = entry.pWndProcA;
    if (pWndProcW != nullptr)
        *pWndProcW = entry.pWndProcW;
    return TRUE;
}

LONG_PTR GetWndProc(UINT nIdWndProc, BOOL wide)
{
    VORLAN_ASSERT((nIdWndProc - 1) < g_nWndProcCount);
    const WndProcEntry &entry = g_arrWndProcs[nIdWndProc - 1];
    WNDPROC side = wide ? entry.pWndProcW : entry.pWndProcA;
    return side != nullptr ? reinterpret_cast<LONG_PTR>(side) : static_cast<LONG_PTR>(nIdWndProc);
}

// ----------------------------------------------------------------------------
// CallWindowProcA and CallWindowProcW: a procedure given as an address or
// as a procedure id, called in the caller's character form or through the
// conversion thunk when only the other form exists.  The application's
// code runs without the toolkit lock.

namespace {

LRESULT CallWindowProcAW(WNDPROC proc, HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, bool wide)
{
    vorlan::GtkCriticalSection lock;
    if (proc == nullptr)
        return 0;
    // A plain address is a procedure of the caller's own form.
    WNDPROC pA = wide ? nullptr : proc;
    WNDPROC pW = wide ? proc : nullptr;
    const auto value = reinterpret_cast<LONG_PTR>(proc);
    if (IsWndProcId(value))
        GetRealWndProc(static_cast<UINT>(value), &pA, &pW);
    vorlan::GtkLockReleaser unlocked;
    if (wide)
        return pW != nullptr ? pW(hWnd, message, wParam, lParam) : CallWindowProcW2A(pA, hWnd, message, wParam, lParam);
    return pA != nullptr ? pA(hWnd, message, wParam, lParam) : CallWindowProcA2W(pW, hWnd, message, wParam, lParam);
}

} // namespace

LRESULT WINAPI CallWindowProcA(WNDPROC lpPrevWndFunc, HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    return CallWindowProcAW(lpPrevWndFunc, hWnd, Msg, wParam, lParam, false);
}

LRESULT WINAPI CallWindowProcW(WNDPROC lpPrevWndFunc, HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    return CallWindowProcAW(lpPrevWndFunc, hWnd, Msg, wParam, lParam, true);
}

// ----------------------------------------------------------------------------
// The thunk from an ANSI caller to a wide window procedure.

using vorlan::StringTranslator;

namespace {

LPARAM AsLParam(const void *pointer)
{
    return reinterpret_cast<LPARAM>(pointer);
}

// WM_CREATE and WM_NCCREATE: a copy of the structure with UTF-16 names.
LRESULT CreateA2W(WNDPROC pW, HWND hWnd, UINT message, LPARAM lParam)
{
    if (lParam == 0)
        return 0;
    CREATESTRUCTW copy;
    const auto *original = reinterpret_cast<const CREATESTRUCTA *>(lParam);
    static_assert(sizeof copy == sizeof *original, "the two forms share one layout");
    std::memcpy(&copy, original, sizeof copy);
    StringTranslator name;
    StringTranslator className;
    if (original->lpszName != nullptr)
        copy.lpszName = name.AnsiToUtf16(original->lpszName);
    if (vorlan::IsClassNameString(original->lpszClass))
        copy.lpszClass = className.AnsiToUtf16(original->lpszClass);
    return pW(hWnd, message, 0, AsLParam(&copy));
}

// WM_SETTEXT (wParam dropped) and the plain string messages (wParam kept).
LRESULT StringA2W(WNDPROC pW, HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (lParam == 0)
        return 0;
    StringTranslator text;
    const WCHAR *wide = text.AnsiToUtf16(reinterpret_cast<const char *>(lParam));
    return pW(hWnd, message, wParam, AsLParam(wide));
}

// WM_GETTEXT: asks the procedure for no more units than the caller's bytes
// can take, and gives back the bytes written.
LRESULT GetTextA2W(WNDPROC pW, HWND hWnd, WPARAM wParam, LPARAM lParam)
{
    if (lParam == 0 || wParam == 0)
        return 0;
    auto *out = reinterpret_cast<char *>(lParam);
    const auto length = static_cast<size_t>(pW(hWnd, WM_GETTEXTLENGTH, 0, 0));
    if (length == 0) {
        out[0] = '\0';
        return 0;
    }
    const size_t units = std::min(static_cast<size_t>(wParam) - 1, length);
    std::unique_ptr<WCHAR[]> buffer(new (std::nothrow) WCHAR[units + 1]());
    if (!buffer) {
        SetLastError(ERROR_INTERNAL_ERROR);
        return 0;
    }
    const LRESULT got = pW(hWnd, WM_GETTEXT, units + 1, AsLParam(buffer.get()));
    return WCSToMBS(buffer.get(), int(got), out, int(wParam));
}

// LB_GETTEXT: the caller's buffer is trusted to hold the item.
LRESULT ListBoxGetTextA2W(WNDPROC pW, HWND hWnd, WPARAM wParam, LPARAM lParam)
{
    if (lParam == 0)
        return 0;
    const LRESULT length = pW(hWnd, LB_GETTEXTLEN, wParam, 0);
    if (length < 0)
        return length;
    std::unique_ptr<WCHAR[]> buffer(new (std::nothrow) WCHAR[static_cast<size_t>(length) + 1]());
    if (!buffer)
        return 0;
    const LRESULT units = pW(hWnd, LB_GETTEXT, wParam, AsLParam(buffer.get()));
    if (units < 0)
        return units;
    auto *out = reinterpret_cast<char *>(lParam);
    int bytes = 0;
    if (units > 0) {
        const int needed = WideCharToMultiByte(CP_ACP, 0, buffer.get(), int(units), nullptr, 0, nullptr, nullptr);
        bytes = WideCharToMultiByte(CP_ACP, 0, buffer.get(), int(units), out, needed, nullptr, nullptr);
    }
    out[bytes] = '\0';
    return bytes;
}

// WM_CHAR: the UTF-16 unit in the low word becomes one ANSI byte; a unit
// that is not one byte in the ANSI page is not delivered.
LRESULT CharA2W(WNDPROC pW, HWND hWnd, WPARAM wParam, LPARAM lParam)
{
    const auto unit = static_cast<WCHAR>(wParam & 0xFFFF);
    char bytes[2] = {};
    if (WideCharToMultiByte(CP_ACP, 0, &unit, 1, bytes, sizeof bytes, nullptr, nullptr) != 1)
        return 0;
    return pW(hWnd, WM_CHAR, static_cast<unsigned char>(bytes[0]), lParam);
}

} // namespace

LRESULT CallWindowProcA2W(WNDPROC pWndProcW, HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_CREATE:
    case WM_NCCREATE:
        return CreateA2W(pWndProcW, hWnd, message, lParam);
    case WM_SETTEXT:
        return StringA2W(pWndProcW, hWnd, message, 0, lParam);
    case WM_GETTEXT:
        return GetTextA2W(pWndProcW, hWnd, wParam, lParam);
    case WM_GETTEXTLENGTH:
        return pWndProcW(hWnd, WM_GETTEXTLENGTH, 0, 0) * 2;
    case LB_GETTEXT:
        return ListBoxGetTextA2W(pWndProcW, hWnd, wParam, lParam);
    case WM_CHAR:
        return CharA2W(pWndProcW, hWnd, wParam, lParam);
    default:
        if (vorlan::IsPlainStringMessage(message))
            return StringA2W(pWndProcW, hWnd, message, wParam, lParam);
        return pWndProcW(hWnd, message, wParam, lParam);
    }
}

// ----------------------------------------------------------------------------
// The thunk from a wide caller to an ANSI window procedure.

using vorlan::StringTranslator;

namespace {

// WM_CREATE and WM_NCCREATE: a copy of the structure with ANSI names.
LRESULT CreateW2A(WNDPROC pA, HWND hWnd, UINT message, LPARAM lParam)
{
    if (lParam == 0)
        return 0;
    CREATESTRUCTA copy;
    const auto *original = reinterpret_cast<const CREATESTRUCTW *>(lParam);
    static_assert(sizeof copy == sizeof *original, "the two forms share one layout");
    std::memcpy(&copy, original, sizeof copy);
    StringTranslator name;
    StringTranslator className;
    if (original->lpszName != nullptr)
        copy.lpszName = name.Utf16ToAnsi(original->lpszName);
    if (vorlan::IsClassNameString(original->lpszClass))
        copy.lpszClass = className.Utf16ToAnsi(original->lpszClass);
    return pA(hWnd, message, 0, AsLParam(&copy));
}

// WM_SETTEXT (wParam dropped) and the plain string messages (wParam kept).
LRESULT StringW2A(WNDPROC pA, HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (lParam == 0)
        return 0;
    StringTranslator text;
    const char *ansi = text.Utf16ToAnsi(reinterpret_cast<const WCHAR *>(lParam));
    return pA(hWnd, message, wParam, AsLParam(ansi));
}

// WM_GETTEXT: the procedure fills a buffer of its own size; the caller
// gets as many units as fit and the count copied.
LRESULT GetTextW2A(WNDPROC pA, HWND hWnd, WPARAM wParam, LPARAM lParam)
{
    if (lParam == 0 || wParam == 0)
        return 0;
    const auto count = static_cast<size_t>(pA(hWnd, WM_GETTEXTLENGTH, 0, 0)) + 1;
    std::unique_ptr<char[]> buffer(new (std::nothrow) char[count]());
    if (!buffer)
        return 0;
    pA(hWnd, WM_GETTEXT, count, AsLParam(buffer.get()));
    auto *out = reinterpret_cast<WCHAR *>(lParam);
    StringTranslator text;
    const WCHAR *wide = text.AnsiToUtf16(buffer.get());
    const size_t length = wide == nullptr ? 0 : static_cast<size_t>(lstrlenW(wide));
    const size_t copied = std::min(static_cast<size_t>(wParam) - 1, length);
    std::copy(wide, wide + copied, out);
    out[copied] = 0;
    return static_cast<LRESULT>(copied);
}

// LB_GETTEXT: the caller's buffer is trusted to hold the item.
LRESULT ListBoxGetTextW2A(WNDPROC pA, HWND hWnd, WPARAM wParam, LPARAM lParam)
{
    if (lParam == 0)
        return 0;
    const LRESULT length = pA(hWnd, LB_GETTEXTLEN, wParam, 0);
    if (length < 0)
        return length;
    std::unique_ptr<char[]> buffer(new (std::nothrow) char[static_cast<size_t>(length) + 1]());
    if (!buffer)
        return 0;
    const LRESULT bytes = pA(hWnd, LB_GETTEXT, wParam, AsLParam(buffer.get()));
    if (bytes < 0)
        return bytes;
    auto *out = reinterpret_cast<WCHAR *>(lParam);
    const int units =
        bytes == 0 ? 0 : MultiByteToWideChar(CP_ACP, 0, buffer.get(), int(bytes), out, int(bytes) + 1);
    out[units] = 0;
    return units;
}

} // namespace

LRESULT CallWindowProcW2A(WNDPROC pWndProcA, HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_CREATE:
    case WM_NCCREATE:
        return CreateW2A(pWndProcA, hWnd, message, lParam);
    case WM_SETTEXT:
        return StringW2A(pWndProcA, hWnd, message, 0, lParam);
    case WM_GETTEXT:
        return GetTextW2A(pWndProcA, hWnd, wParam, lParam);
    case WM_GETTEXTLENGTH:
        return pWndProcA(hWnd, WM_GETTEXTLENGTH, 0, 0);
    case LB_GETTEXT:
        return ListBoxGetTextW2A(pWndProcA, hWnd, wParam, lParam);
    default:
        if (vorlan::IsPlainStringMessage(message))
            return StringW2A(pWndProcA, hWnd, message, wParam, lParam);
        return pWndProcA(hWnd, message, wParam, lParam);
    }
}
