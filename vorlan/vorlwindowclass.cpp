// The class list: a singly linked list in order of registration, searched
// by atom.  A record carries its class extra bytes behind it, zeroed.
#include "vorlwindowclass.h"

#include <cstdlib>

namespace {

WindowClass *s_pFirstClass = nullptr;

bool IsMenuNumber(LPCWSTR name)
{
    return IS_INTRESOURCE(name);
}

// A private copy of a menu name string, or the resource number itself.
bool CopyMenuName(LPCWSTR name, LPWSTR *result)
{
    if (IsMenuNumber(name)) {
        *result = const_cast<LPWSTR>(name);
        return true;
    }
    size_t length = 0;
    while (name[length] != 0)
        ++length;
    auto *copy = static_cast<WCHAR *>(std::malloc((length + 1) * sizeof(WCHAR)));
    if (copy == nullptr)
        return false;
    for (size_t i = 0; i <= length; ++i)
        copy[i] = name[i];
    *result = copy;
    return true;
}

void FreeMenuName(LPWSTR name)
{
    if (!IsMenuNumber(name))
        std::free(name);
}

void LinkAtTail(WindowClass *wc)
{
    WindowClass **link = &s_pFirstClass;
    while (*link != nullptr)
        link = &(*link)->pNext;
    *link = wc;
}

WindowClass *Fail(DWORD error)
{
    SetLastError(error);
    return nullptr;
}

void FillRecord(WindowClass *wc, ATOM atom, const WindowClassFields &fields)
{
    wc->pNext = nullptr;
    wc->atom = atom;
    wc->style = fields.style;
    wc->nIdWndProc = fields.nIdWndProc;
    wc->cbClsExtra = fields.cbClsExtra;
    wc->cbWndExtra = fields.cbWndExtra;
    wc->hInstance = fields.hInstance;
    wc->hIcon = fields.hIcon;
    wc->hIconSm = fields.hIconSm;
    wc->hCursor = fields.hCursor;
    wc->hbrBackground = fields.hbrBackground;
}

} // namespace

WindowClass *WindowClass_FindClass(ATOM atom)
{
    for (WindowClass *wc = s_pFirstClass; wc != nullptr; wc = wc->pNext) {
        if (wc->atom == atom)
            return wc;
    }
    return nullptr;
}

WindowClass *RegisterClassCore(ATOM atom, const WindowClassFields &fields)
{
    if (WindowClass_FindClass(atom) != nullptr)
        return Fail(ERROR_CLASS_ALREADY_EXISTS);
    if (fields.cbClsExtra < 0 || fields.cbWndExtra < 0)
        return Fail(ERROR_INVALID_PARAMETER);
    auto *wc = static_cast<WindowClass *>(std::calloc(1, sizeof(WindowClass) + size_t(fields.cbClsExtra)));
    if (wc == nullptr)
        return Fail(ERROR_OUTOFMEMORY);
    if (!CopyMenuName(fields.pszMenuName, &wc->pszMenuName)) {
        std::free(wc);
        return Fail(ERROR_OUTOFMEMORY);
    }
    FillRecord(wc, atom, fields);
    LinkAtTail(wc);
    return wc;
}

bool WindowClass_Remove(ATOM atom)
{
    for (WindowClass **link = &s_pFirstClass; *link != nullptr; link = &(*link)->pNext) {
        WindowClass *wc = *link;
        if (wc->atom != atom)
            continue;
        *link = wc->pNext;
        FreeMenuName(wc->pszMenuName);
        std::free(wc);
        return true;
    }
    return false;
}
