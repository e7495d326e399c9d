// Window objects for tests.
#include "vorlwindowproc.h"
#include "support/window_objects.h"

#include "gtk/vorlgtklock.h"
#include "gtk/vorlstartup.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlxwindow.h"
#include "support/gtk_helpers.h"

#include <gdk/gdkx.h>

namespace vorlan_test {

namespace {

bool IsEmptyRect(const RECT &rect)
{
    return rect.right <= rect.left || rect.bottom <= rect.top;
}

std::unique_ptr<WindowClass> MakeClass(const WindowOptions &options)
{
    auto wc = std::make_unique<WindowClass>();
    *wc = WindowClass{};
    wc->atom = options.classAtom != 0 ? options.classAtom : TestClassAtom();
    wc->nIdWndProc = AllocWndProcId(DefWindowProcA, DefWindowProcW);
    wc->cbWndExtra = options.cbExtra;
    return wc;
}

} // namespace

ATOM TestClassAtom()
{
    static const ATOM atom = AddAtomA("VorlanTestWindow");
    return atom;
}

TestWindow::TestWindow(const WindowOptions &options) : m_class(MakeClass(options))
{
    vorlan::GtkCriticalSection lock;
    auto *pWnd = new vorlan::Window(m_class.get());
    m_hWnd = pWnd->hWnd;
    pWnd->dwStyle = options.style;
    pWnd->rcWindow = options.rcWindow;
    pWnd->rcClient = IsEmptyRect(options.rcClient) ? options.rcWindow : options.rcClient;
    LinkWindow(m_hWnd, options.parent != nullptr ? options.parent : g_hWndDesktop);
    if (options.withXWindow) {
        pWnd->CreateOSWindow();
        PlaceXWindow(m_hWnd);
    }
}

TestWindow::~TestWindow()
{
    vorlan::GtkCriticalSection lock;
    vorlan::Window *pWnd = vorlan::getWindow(m_hWnd);
    if (pWnd == nullptr || pWnd->pClass != m_class.get())
        return;
    if (pWnd->window != nullptr)
        gdk_window_destroy(pWnd->window);
    UnlinkWindow(m_hWnd);
    delete pWnd;
}

XID TestWindow::xid() const
{
    vorlan::GtkCriticalSection lock;
    vorlan::Window *pWnd = vorlan::getWindow(m_hWnd);
    return pWnd != nullptr && pWnd->window != nullptr ? GDK_WINDOW_XID(pWnd->window) : 0;
}

void PlaceXWindow(HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    RECT rect;
    vorlan::CalcXWindowRect(pWnd, &rect);
    gdk_window_move_resize(pWnd->window, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top);
    pWnd->rcXWindow = rect;
    gdk_flush();
}

ServerGeometry QueryServerGeometry(XID window)
{
    vorlan::GtkCriticalSection lock;
    ::Window root = None;
    int x = 0, y = 0;
    unsigned width = 0, height = 0, border = 0, depth = 0;
    XGetGeometry(XDisplay(), window, &root, &x, &y, &width, &height, &border, &depth);
    return {x, y, width, height};
}

} // namespace vorlan_test
