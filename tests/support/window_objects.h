// Window objects for tests, built from the window layer's own parts: a
// class record, a Window in the table, its place in the tree and, when
// asked, its X window with the geometry that CalcXWindowRect gives it.
#ifndef VORLAN_TESTS_SUPPORT_WINDOW_OBJECTS_H
#define VORLAN_TESTS_SUPPORT_WINDOW_OBJECTS_H

#include <windows.h>

#include "gtk/vorlwindow.h"
#include "vorlwindowclass.h"

#include <X11/Xlib.h>

#include <memory>

namespace vorlan_test {

struct WindowOptions {
    HWND parent = nullptr;        // 0: the desktop
    DWORD style = WS_POPUP;
    RECT rcWindow = {0, 0, 0, 0}; // screen coordinates
    RECT rcClient = {0, 0, 0, 0}; // screen coordinates; empty: rcWindow
    int cbExtra = 0;
    ATOM classAtom = 0;           // 0: the tests' own class
    bool withXWindow = true;      // CreateOSWindow and place the X window
};

// A window object that lives as long as this object.  Destruction takes
// it out of the tree, destroys its GDK window and frees it, unless the
// object died before (DestroyThreadWindows).
class TestWindow {
public:
    explicit TestWindow(const WindowOptions &options);
    ~TestWindow();
    TestWindow(const TestWindow &) = delete;
    TestWindow &operator=(const TestWindow &) = delete;

    HWND hwnd() const { return m_hWnd; }
    vorlan::Window *object() const { return vorlan::getWindow(m_hWnd); }
    XID xid() const;

private:
    std::unique_ptr<WindowClass> m_class;
    HWND m_hWnd;
};

// The atom of the tests' window class name "VorlanTestWindow".
ATOM TestClassAtom();

// Computes the X geometry of the window and gives it to its X window.
void PlaceXWindow(HWND hWnd);

// Geometry of an X window relative to its X parent, as the server has it.
struct ServerGeometry {
    int x, y;
    unsigned width, height;
};
ServerGeometry QueryServerGeometry(XID window);

} // namespace vorlan_test

#endif // VORLAN_TESTS_SUPPORT_WINDOW_OBJECTS_H
