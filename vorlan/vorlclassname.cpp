// GetClassNameA/W: the name of the window's class atom, cut to the
// caller's buffer and always ended with a zero.  An integer atom's name is
// its "#" form.
#include "vorlwindowclass.h"

#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"

namespace {

constexpr int kNameUnits = 256;
// Room for every byte that kNameUnits units can give in any code page.
constexpr int kNameBytes = 4 * kNameUnits;

int Fail(DWORD error)
{
    SetLastError(error);
    return 0;
}

// The whole name of the class of a window, or 0 with the error set.
int FullClassName(HWND hWnd, WCHAR (&name)[kNameUnits])
{
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return Fail(ERROR_INVALID_WINDOW_HANDLE);
    return static_cast<int>(GetAtomNameW(pWnd->pClass->atom, name, kNameUnits));
}

template <typename Char> int CopyCut(const Char *source, int length, Char *buffer, int size)
{
    const int count = length < size - 1 ? length : size - 1;
    for (int i = 0; i < count; ++i)
        buffer[i] = source[i];
    buffer[count] = 0;
    return count;
}

} // namespace

int WINAPI GetClassNameW(HWND hWnd, LPWSTR lpClassName, int nMaxCount)
{
    vorlan::GtkCriticalSection lock;
    if (lpClassName == nullptr || nMaxCount <= 0)
        return Fail(ERROR_INVALID_PARAMETER);
    WCHAR name[kNameUnits];
    const int length = FullClassName(hWnd, name);
    return length > 0 ? CopyCut(name, length, lpClassName, nMaxCount) : 0;
}

int WINAPI GetClassNameA(HWND hWnd, LPSTR lpClassName, int nMaxCount)
{
    vorlan::GtkCriticalSection lock;
    if (lpClassName == nullptr || nMaxCount <= 0)
        return Fail(ERROR_INVALID_PARAMETER);
    WCHAR name[kNameUnits];
    const int length = FullClassName(hWnd, name);
    if (length <= 0)
        return 0;
    char bytes[kNameBytes];
    const int converted = WideCharToMultiByte(CP_ACP, 0, name, length + 1, bytes, kNameBytes, nullptr, nullptr);
    if (converted <= 0)
        return Fail(ERROR_INTERNAL_ERROR);
    return CopyCut(bytes, converted - 1, lpClassName, nMaxCount);
}
