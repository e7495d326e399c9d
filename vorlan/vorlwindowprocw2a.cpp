// The thunk from a wide caller to an ANSI window procedure.
#include "vorlwindowprocthunks.h"

#include "vorlstringtranslator.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

using vorlan::StringTranslator;

namespace {

LPARAM AsLParam(const void *pointer)
{
    return reinterpret_cast<LPARAM>(pointer);
}

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
