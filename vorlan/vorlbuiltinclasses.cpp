// The classes the library registers at start-up, before the desktop window
// exists.  For now that is the desktop's class, atom 32769, with the
// default procedure pair; being the first procedure registered, the pair
// has id 1.
#include "vorlwindowclass.h"

#include "gtk/vorlpumpdeps.h"
#include "vorlassert.h"
#include "vorlwindowproc.h"

namespace {

constexpr ATOM kDesktopClassAtom = 32769;
constexpr DWORD kDesktopStyle = CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS;

// A class with no class extra bytes, icon, cursor, background or menu.
void RegisterBuiltin(ATOM atom, DWORD style, WNDPROC pA, WNDPROC pW, int cbWndExtra)
{
    WindowClassFields fields = {};
    fields.style = style;
    fields.nIdWndProc = AllocWndProcId(pA, pW);
    fields.cbWndExtra = cbWndExtra;
    WindowClass *wc = RegisterClassCore(atom, fields);
    VORLAN_ASSERT("vorlan/vorlbuiltinclasses", wc != nullptr);
}

} // namespace

void WindowClass_RegisterBuiltins()
{
    RegisterBuiltin(kDesktopClassAtom, kDesktopStyle, DefWindowProcA, DefWindowProcW, 0);
}
