// Window text as the default procedure keeps it, and the exports that ask
// the window procedure for it.
#include "gtk/vorlwindowtext.h"

#include "gtk/vorlgtklock.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlxwindow.h"
#include "vorlstringtranslator.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

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
