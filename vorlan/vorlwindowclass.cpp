// Window classes: the class records keyed by atom, registration and
// removal, class names, class longs, and the built-in classes.
#include "vorlwindowclass.h"

#include "gtk/vorlstartup.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"
#include "vorlassert.h"
#include "gtk/vorlpending.h"
#include "vorlwindowproc.h"

#include <cstdlib>

// ----------------------------------------------------------------------------
// The class list: a singly linked list in order of registration, searched
// by atom.  A record carries its class extra bytes behind it, zeroed.

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

// A failed call's result, 0 of whatever type the call returns, once the
// error is set.
struct ZeroResult {
    template <typename Result>
    operator Result() const
    {
        return Result();
    }
};

ZeroResult Fail(DWORD error)
{
    SetLastError(error);
    return ZeroResult();
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

// ----------------------------------------------------------------------------
// RegisterClassA/W and their Ex forms.  The class name becomes an atom,
// the procedure an id on the side of the call, and the class list gets
// the record; a failure after AddAtom gives the atom's count back.

namespace {

constexpr int kMenuNameUnits = 256;

ATOM Refuse()
{
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
}

// The common part once the name is an atom: the procedure id, then the
// record.
ATOM RegisterAtom(ATOM atom, UINT nIdWndProc, WindowClassFields fields)
{
    if (nIdWndProc == 0) {
        DeleteAtom(atom);
        return 0;
    }
    fields.nIdWndProc = nIdWndProc;
    if (RegisterClassCore(atom, fields) == nullptr) {
        DeleteAtom(atom);
        return 0;
    }
    return atom;
}

template <typename WndClassEx> WindowClassFields FieldsOf(const WndClassEx &wc)
{
    WindowClassFields fields = {};
    fields.style = wc.style;
    fields.cbClsExtra = wc.cbClsExtra;
    fields.cbWndExtra = wc.cbWndExtra;
    fields.hInstance = wc.hInstance;
    fields.hIcon = wc.hIcon;
    fields.hCursor = wc.hCursor;
    fields.hbrBackground = wc.hbrBackground;
    fields.hIconSm = wc.hIconSm;
    return fields;
}

template <typename WndClass, typename WndClassEx> WndClassEx Extended(const WndClass &wc)
{
    WndClassEx wcx = {};
    wcx.cbSize = sizeof wcx;
    wcx.style = wc.style;
    wcx.lpfnWndProc = wc.lpfnWndProc;
    wcx.cbClsExtra = wc.cbClsExtra;
    wcx.cbWndExtra = wc.cbWndExtra;
    wcx.hInstance = wc.hInstance;
    wcx.hIcon = wc.hIcon;
    wcx.hCursor = wc.hCursor;
    wcx.hbrBackground = wc.hbrBackground;
    wcx.lpszMenuName = wc.lpszMenuName;
    wcx.lpszClassName = wc.lpszClassName;
    return wcx;
}

ATOM RegisterWide(const WNDCLASSEXW &wcx)
{
    if (wcx.lpszClassName == nullptr || wcx.lpfnWndProc == nullptr)
        return Refuse();
    const ATOM atom = AddAtomW(wcx.lpszClassName);
    if (atom == 0)
        return 0;
    WindowClassFields fields = FieldsOf(wcx);
    fields.pszMenuName = wcx.lpszMenuName;
    return RegisterAtom(atom, AllocWndProcId(nullptr, wcx.lpfnWndProc), fields);
}

ATOM RegisterNarrow(const WNDCLASSEXA &wcx)
{
    if (wcx.lpszClassName == nullptr || wcx.lpfnWndProc == nullptr)
        return Refuse();
    WCHAR menuName[kMenuNameUnits];
    WindowClassFields fields = FieldsOf(wcx);
    fields.pszMenuName = reinterpret_cast<LPCWSTR>(wcx.lpszMenuName);
    if (!IS_INTRESOURCE(wcx.lpszMenuName)) {
        if (MultiByteToWideChar(CP_ACP, 0, wcx.lpszMenuName, -1, menuName, kMenuNameUnits) == 0) {
            SetLastError(ERROR_INTERNAL_ERROR);
            return 0;
        }
        fields.pszMenuName = menuName;
    }
    const ATOM atom = AddAtomA(wcx.lpszClassName);
    if (atom == 0)
        return 0;
    return RegisterAtom(atom, AllocWndProcId(wcx.lpfnWndProc, nullptr), fields);
}

} // namespace

ATOM WINAPI RegisterClassW(const WNDCLASSW *lpWndClass)
{
    vorlan::GtkCriticalSection lock;
    if (lpWndClass == nullptr)
        return Refuse();
    return RegisterWide(Extended<WNDCLASSW, WNDCLASSEXW>(*lpWndClass));
}

ATOM WINAPI RegisterClassA(const WNDCLASSA *lpWndClass)
{
    vorlan::GtkCriticalSection lock;
    if (lpWndClass == nullptr)
        return Refuse();
    return RegisterNarrow(Extended<WNDCLASSA, WNDCLASSEXA>(*lpWndClass));
}

ATOM WINAPI RegisterClassExW(const WNDCLASSEXW *lpwcx)
{
    vorlan::GtkCriticalSection lock;
    if (lpwcx == nullptr || lpwcx->cbSize != sizeof(WNDCLASSEXW))
        return Refuse();
    return RegisterWide(*lpwcx);
}

ATOM WINAPI RegisterClassExA(const WNDCLASSEXA *lpwcx)
{
    vorlan::GtkCriticalSection lock;
    if (lpwcx == nullptr || lpwcx->cbSize != sizeof(WNDCLASSEXA))
        return Refuse();
    return RegisterNarrow(*lpwcx);
}

// ----------------------------------------------------------------------------
// UnregisterClassA/W.  A class with a top-level window stays.  The name may
// be the class atom itself in the low word; a string goes through the atom
// table.  Removing the class drops the one atom count its registration
// added.

namespace {

bool HasTopLevelWindow(ATOM atom)
{
    vorlan::Window *desktop = vorlan::getWindow(g_hWndDesktop);
    if (desktop == nullptr)
        return false;
    for (vorlan::Window *pWnd = desktop->pWndChild; pWnd != nullptr; pWnd = pWnd->pWndNext) {
        if (pWnd->pClass != nullptr && pWnd->pClass->atom == atom)
            return true;
    }
    return false;
}

BOOL UnregisterAtom(ATOM atom)
{
    if (atom == 0)
        return Fail(ERROR_CLASS_DOES_NOT_EXIST);
    if (HasTopLevelWindow(atom))
        return Fail(ERROR_CLASS_HAS_WINDOWS);
    if (!WindowClass_Remove(atom))
        return Fail(ERROR_CLASS_DOES_NOT_EXIST);
    DeleteAtom(atom);
    return TRUE;
}

template <typename Char> ATOM AtomOfName(const Char *name, ATOM (*findAtom)(const Char *))
{
    if (IS_INTRESOURCE(name))
        return static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(name));
    return findAtom(name);
}

} // namespace

BOOL WINAPI UnregisterClassA(LPCSTR lpClassName, HINSTANCE)
{
    vorlan::GtkCriticalSection lock;
    if (lpClassName == nullptr)
        return Fail(ERROR_INVALID_PARAMETER);
    return UnregisterAtom(AtomOfName<char>(lpClassName, FindAtomA));
}

BOOL WINAPI UnregisterClassW(LPCWSTR lpClassName, HINSTANCE)
{
    vorlan::GtkCriticalSection lock;
    if (lpClassName == nullptr)
        return Fail(ERROR_INVALID_PARAMETER);
    return UnregisterAtom(AtomOfName<WCHAR>(lpClassName, FindAtomW));
}

// ----------------------------------------------------------------------------
// GetClassNameA/W: the name of the window's class atom, cut to the
// caller's buffer and always ended with a zero.  An integer atom's name is
// its "#" form.

namespace {

constexpr int kNameUnits = 256;
// Room for every byte that kNameUnits units can give in any code page.
constexpr int kNameBytes = 4 * kNameUnits;

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

// ----------------------------------------------------------------------------
// Reading and writing the fields of a window's class by GCL_ index.  A
// procedure goes out as the side the caller asked for (or as an id when
// that side is missing) and comes in as an id on the caller's side;
// windows that exist keep the procedure they have.

namespace {

bool IsClassPointerIndex(int index)
{
    switch (index) {
    case GCLP_MENUNAME:
    case GCLP_HBRBACKGROUND:
    case GCLP_HCURSOR:
    case GCLP_HICON:
    case GCLP_HMODULE:
    case GCLP_WNDPROC:
    case GCLP_HICONSM:
        return true;
    default:
        return false;
    }
}

// The class of the window, or null with the error set.
WindowClass *ClassOfWindow(HWND hWnd, int index, vorlan::LongWidth width)
{
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr) {
        vorlan::FailBadHandle();
        return nullptr;
    }
    if (vorlan::ByteWidth(width) < static_cast<int>(sizeof(LONG_PTR)) && IsClassPointerIndex(index)) {
        SetLastError(ERROR_INVALID_INDEX);
        return nullptr;
    }
    return pWnd->pClass;
}

template <typename T> ULONG_PTR AsValue(T handle)
{
    return reinterpret_cast<ULONG_PTR>(handle);
}

ULONG_PTR FieldValue(const WindowClass *wc, int index, BOOL wide)
{
    switch (index) {
    case GCLP_HICONSM:
        return AsValue(wc->hIconSm);
    case GCW_ATOM:
        return wc->atom;
    case GCL_STYLE:
        return wc->style;
    case GCLP_WNDPROC:
        return static_cast<ULONG_PTR>(GetWndProc(wc->nIdWndProc, wide));
    case GCLP_HMODULE:
        return AsValue(wc->hInstance);
    case GCLP_HICON:
        return AsValue(wc->hIcon);
    case GCLP_HCURSOR:
        return AsValue(wc->hCursor);
    case GCLP_HBRBACKGROUND:
        return AsValue(wc->hbrBackground);
    default:
        return 0;
    }
}

template <typename T> ULONG_PTR Swap(T &field, LONG_PTR value)
{
    const ULONG_PTR old = AsValue(field);
    field = reinterpret_cast<T>(value);
    return old;
}

ULONG_PTR SwapProcedure(WindowClass *wc, LONG_PTR value, BOOL wide)
{
    if (value == 0)
        return Fail(ERROR_INVALID_PARAMETER);
    UINT id = static_cast<UINT>(value);
    if (!IsWndProcId(value)) {
        const auto procedure = reinterpret_cast<WNDPROC>(value);
        id = wide ? AllocWndProcId(nullptr, procedure) : AllocWndProcId(procedure, nullptr);
    }
    if (id == 0)
        return Fail(ERROR_OUTOFMEMORY);
    const auto old = static_cast<ULONG_PTR>(GetWndProc(wc->nIdWndProc, wide));
    wc->nIdWndProc = id;
    return old;
}

ULONG_PTR SwapField(WindowClass *wc, int index, LONG_PTR value, BOOL wide)
{
    switch (index) {
    case GCLP_HICONSM:
        return Swap(wc->hIconSm, value);
    case GCL_STYLE: {
        const DWORD old = wc->style;
        wc->style = static_cast<DWORD>(value);
        return old;
    }
    case GCLP_WNDPROC:
        return SwapProcedure(wc, value, wide);
    case GCLP_HMODULE:
        return Swap(wc->hInstance, value);
    case GCLP_HICON:
        return Swap(wc->hIcon, value);
    case GCLP_HCURSOR:
        return Swap(wc->hCursor, value);
    case GCLP_HBRBACKGROUND:
        return Swap(wc->hbrBackground, value);
    default:
        return 0;
    }
}

} // namespace

namespace vorlan {

ULONG_PTR GetClassLongCore(HWND hWnd, int index, BOOL wide, LongWidth width)
{
    WindowClass *wc = ClassOfWindow(hWnd, index, width);
    return wc != nullptr ? FieldValue(wc, index, wide) : 0;
}

ULONG_PTR SetClassLongCore(HWND hWnd, int index, LONG_PTR value, BOOL wide, LongWidth width)
{
    WindowClass *wc = ClassOfWindow(hWnd, index, width);
    return wc != nullptr ? SwapField(wc, index, value, wide) : 0;
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// GetClassLong and SetClassLong in their A, W and pointer-sized forms:
// each takes the toolkit lock and runs the shared core.

using vorlan::LongWidth;

DWORD WINAPI GetClassLongA(HWND hWnd, int nIndex)
{
    vorlan::GtkCriticalSection lock;
    return static_cast<DWORD>(vorlan::GetClassLongCore(hWnd, nIndex, FALSE, LongWidth::Long));
}

DWORD WINAPI GetClassLongW(HWND hWnd, int nIndex)
{
    vorlan::GtkCriticalSection lock;
    return static_cast<DWORD>(vorlan::GetClassLongCore(hWnd, nIndex, TRUE, LongWidth::Long));
}

DWORD WINAPI SetClassLongA(HWND hWnd, int nIndex, LONG dwNewLong)
{
    vorlan::GtkCriticalSection lock;
    return static_cast<DWORD>(vorlan::SetClassLongCore(hWnd, nIndex, dwNewLong, FALSE, LongWidth::Long));
}

DWORD WINAPI SetClassLongW(HWND hWnd, int nIndex, LONG dwNewLong)
{
    vorlan::GtkCriticalSection lock;
    return static_cast<DWORD>(vorlan::SetClassLongCore(hWnd, nIndex, dwNewLong, TRUE, LongWidth::Long));
}

#if VORLAN_LP64
ULONG_PTR WINAPI GetClassLongPtrA(HWND hWnd, int nIndex)
{
    vorlan::GtkCriticalSection lock;
    return vorlan::GetClassLongCore(hWnd, nIndex, FALSE, LongWidth::Pointer);
}

ULONG_PTR WINAPI GetClassLongPtrW(HWND hWnd, int nIndex)
{
    vorlan::GtkCriticalSection lock;
    return vorlan::GetClassLongCore(hWnd, nIndex, TRUE, LongWidth::Pointer);
}

ULONG_PTR WINAPI SetClassLongPtrA(HWND hWnd, int nIndex, LONG_PTR dwNewLong)
{
    vorlan::GtkCriticalSection lock;
    return vorlan::SetClassLongCore(hWnd, nIndex, dwNewLong, FALSE, LongWidth::Pointer);
}

ULONG_PTR WINAPI SetClassLongPtrW(HWND hWnd, int nIndex, LONG_PTR dwNewLong)
{
    vorlan::GtkCriticalSection lock;
    return vorlan::SetClassLongCore(hWnd, nIndex, dwNewLong, TRUE, LongWidth::Pointer);
}
#endif

// ----------------------------------------------------------------------------
// The classes the library registers at start-up, before the desktop window
// exists: the controls, menus, dialogs, the desktop and the status bar.
// Seven of them are also published as tables for code that builds the
// same classes elsewhere, and the dialog manager finds the control classes
// by the exported names.

namespace {

constexpr UINT kControlStyle = CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS;
constexpr UINT kEditStyle = CS_DBLCLKS | CS_PARENTDC | CS_GLOBALCLASS;

constexpr ATOM kDesktopClassAtom = 32769;
constexpr ATOM kSwitchClassAtom = 32801;

constexpr UINT kArrowCursor = 32512; // IDC_ARROW
constexpr UINT kIBeamCursor = 32513; // IDC_IBEAM

const WCHAR kMenuClassName[] = {'#', '3', '2', '7', '6', '8', 0};

LPCWSTR AtomName(ATOM atom)
{
    return reinterpret_cast<LPCWSTR>(static_cast<ULONG_PTR>(atom));
}

} // namespace

const WCHAR wszStaticClass[] = {'S', 't', 'a', 't', 'i', 'c', 0};
const WCHAR wszButtonClass[] = {'B', 'u', 't', 't', 'o', 'n', 0};
const WCHAR wszEditClass[] = {'E', 'd', 'i', 't', 0};
const WCHAR wszListboxClass[] = {'L', 'i', 's', 't', 'B', 'o', 'x', 0};
const WCHAR wszComboboxClass[] = {'C', 'o', 'm', 'b', 'o', 'B', 'o', 'x', 0};
const WCHAR wszScrollbarClass[] = {'S', 'c', 'r', 'o', 'l', 'l', 'B', 'a', 'r', 0};
const WCHAR wszDialogClass[] = {'#', '3', '2', '7', '7', '0', 0};

const VORLBUILTINCLASS g_staticClass = {wszStaticClass, kControlStyle, StaticWindowProcA, StaticWindowProcW,
                                        8, kArrowCursor, nullptr};
const VORLBUILTINCLASS g_buttonClass = {wszButtonClass, kControlStyle, ButtonWindowProcA, ButtonWindowProcW,
                                        20, kArrowCursor, nullptr};
const VORLBUILTINCLASS g_editClass = {wszEditClass, kEditStyle, EditWindowProcA, EditWindowProcW,
                                      4, kIBeamCursor, nullptr};
const VORLBUILTINCLASS g_listboxClass = {wszListboxClass, kControlStyle, ListBoxWindowProcA,
                                         ListBoxWindowProcW, 4, kArrowCursor, nullptr};
const VORLBUILTINCLASS g_comboClass = {wszComboboxClass, kControlStyle, ComboBoxWindowProcA,
                                       ComboBoxWindowProcW, 4, kArrowCursor, nullptr};
const VORLBUILTINCLASS g_scrollBarClass = {wszScrollbarClass, kControlStyle, ScrollBarWindowProcA,
                                           ScrollBarWindowProcW, 4, kArrowCursor, nullptr};
const VORLBUILTINCLASS g_menuClass = {kMenuClassName, CS_DBLCLKS, MenuWindowProcA, MenuWindowProcW,
                                      4, kArrowCursor, nullptr};

namespace {

// The class atom of a name: an atom in the low word stays as it is, a
// string joins the atom table.
ATOM ClassAtom(LPCWSTR name)
{
    if (IS_INTRESOURCE(name))
        return static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(name));
    return AddAtomW(name);
}

// A class with no class extra bytes, icon, background or menu.
void RegisterBuiltin(LPCWSTR name, UINT style, WNDPROC pA, WNDPROC pW, int cbWndExtra, UINT cursor)
{
    WindowClassFields fields = {};
    fields.style = style;
    fields.nIdWndProc = AllocWndProcId(pA, pW);
    fields.cbWndExtra = cbWndExtra;
    fields.hCursor = LoadCursorA(nullptr, MAKEINTRESOURCEA(cursor));
    WindowClass *wc = RegisterClassCore(ClassAtom(name), fields);
    VORLAN_ASSERT(wc != nullptr);
}

void RegisterTable(const VORLBUILTINCLASS &table)
{
    RegisterBuiltin(table.lpszClassName, table.style, table.lpfnWndProcA, table.lpfnWndProcW, table.cbWndExtra,
                    table.uCursorId);
}

} // namespace

void WindowClass_RegisterBuiltins()
{
    const WCHAR statusBarName[] = {'m', 's', 'c', 't', 'l', 's', '_', 's', 't', 'a', 't', 'u', 's',
                                   'b', 'a', 'r', 0};
    RegisterTable(g_staticClass);
    RegisterTable(g_buttonClass);
    RegisterTable(g_editClass);
    RegisterTable(g_listboxClass);
    RegisterTable(g_comboClass);
    RegisterTable(g_scrollBarClass);
    RegisterTable(g_menuClass);
    RegisterBuiltin(wszDialogClass, kControlStyle, DefDlgProcA, DefDlgProcW, 30, kArrowCursor);
    RegisterBuiltin(AtomName(kDesktopClassAtom), kControlStyle, DefWindowProcA, DefWindowProcW, 0, kArrowCursor);
    RegisterBuiltin(statusBarName, kControlStyle, StatusBarWindowProcA, StatusBarWindowProcW, 0, kArrowCursor);
    RegisterBuiltin(AtomName(kSwitchClassAtom), CS_DBLCLKS, DefWindowProcA, DefWindowProcW, 0, kArrowCursor);
}
