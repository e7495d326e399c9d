// What the window manager offers the user for a window: move, resize,
// minimize and maximize follow the style; close is withdrawn while the
// window holds the mouse capture.
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowpos.h"

namespace {

int FunctionsOfStyle(DWORD style)
{
    int functions = 0;
    const bool caption = (style & WS_CAPTION) == WS_CAPTION;
    if (caption)
        functions |= GDK_FUNC_MOVE;
    if (style & WS_THICKFRAME)
        functions |= GDK_FUNC_RESIZE;
    if (caption && (style & WS_SYSMENU) && (style & WS_MINIMIZEBOX))
        functions |= GDK_FUNC_MINIMIZE;
    if (caption && (style & WS_SYSMENU) && (style & WS_MAXIMIZEBOX))
        functions |= GDK_FUNC_MAXIMIZE;
    return functions;
}

} // namespace

void EnableWindowFuncs(HWND hWnd, BOOL enable)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr || pWnd->window == nullptr)
        return;
    int functions = FunctionsOfStyle(pWnd->dwStyle);
    if (enable)
        functions |= GDK_FUNC_CLOSE;
    gdk_window_set_functions(pWnd->window, static_cast<GdkWMFunction>(functions));
}
