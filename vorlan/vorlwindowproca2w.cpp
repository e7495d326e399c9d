// The thunk from an ANSI caller to a wide window procedure.
#include "vorlwindowprocthunks.h"

#include "vorlstringtranslator.h"

#include <vorlwchar.h>

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
