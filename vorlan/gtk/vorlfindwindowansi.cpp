// FindWindowExA and FindWindowA: class and title are converted from the
// process code page and searched for as FindWindowExW does.  A class whose
// pointer has a high word of 0 is an atom and passes unconverted.
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindowsearch.h"

#include <cstdlib>

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
