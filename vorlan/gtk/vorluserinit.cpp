// The window layer's part of start-up: the built-in classes and the
// desktop window, whose handle every other part compares with.
#include "gtk/vorlglobals.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindow.h"
#include "vorlassert.h"

namespace {

constexpr ATOM kDesktopClassAtom = 32769;
constexpr DWORD kDesktopStyle = WS_POPUP | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;

RECT ScreenRect()
{
    RECT rect = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    return rect;
}

// The desktop has no parent and no X window of its own: it stands for the
// root window.
void CreateDesktopWindow()
{
    WindowClass *desktopClass = WindowClass_FindClass(kDesktopClassAtom);
    VORLAN_ASSERT("vorlan/gtk/vorluserinit", desktopClass != nullptr);
    auto *desktop = new vorlan::Window(desktopClass);
    desktop->dwStyle = kDesktopStyle;
    desktop->foreignWindow = gdk_get_default_root_window();
    desktop->rcWindow = ScreenRect();
    desktop->rcClient = desktop->rcWindow;
    g_hWndDesktop = desktop->hWnd;
}

} // namespace

void UserInitialize()
{
    WindowClass_RegisterBuiltins();
    CreateDesktopWindow();
}
