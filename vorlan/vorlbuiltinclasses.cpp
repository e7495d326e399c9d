// The classes the library registers at start-up, before the desktop window
// exists: the controls, menus, dialogs, the desktop and the status bar.
// Seven of them are also published as tables for code that builds the
// same classes elsewhere, and the dialog manager finds the control classes
// by the exported names.
#include "vorlwindowclass.h"

#include "gtk/vorlpumpdeps.h"
#include "vorlassert.h"
#include "vorlcontrolprocs.h"
#include "vorlwindowproc.h"

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
    VORLAN_ASSERT("vorlan/vorlbuiltinclasses", wc != nullptr);
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
