// Checks of windows made through the exports: their X windows as the server
// has them, rectangles with readable failure messages, and window objects
// described in one call.
#ifndef VORLAN_TESTS_SUPPORT_WINDOW_CHECKS_H
#define VORLAN_TESTS_SUPPORT_WINDOW_CHECKS_H

#include <gtest/gtest.h>

#include <windows.h>

#include "support/window_objects.h"

#include <X11/Xlib.h>

#include <string>

namespace vorlan_test {

// The X window of a window handle, 0 when it has none.
XID XidOf(HWND hwnd);
// The X window's rectangle relative to its X parent, and on the screen.
RECT XGeometry(XID xid);
RECT XScreenRect(XID xid);
XID XParentOf(XID xid);
XID TransientFor(XID xid);
bool XWindowViewable(XID xid);
// The raw items of a window property (bytes, or longs widened to the
// platform's long as Xlib gives them), with the item count and type name.
std::string XPropertyData(XID xid, const char *name, unsigned long *items = nullptr, std::string *typeName = nullptr);

// Runs `call` with the last error cleared and checks that it gives
// `failure` and leaves `error` as the last error.
template <typename Value, typename Call>
::testing::AssertionResult FailsWith(DWORD error, Value failure, Call call)
{
    SetLastError(0);
    const auto result = call();
    const DWORD lastError = GetLastError();
    if (result == static_cast<decltype(result)>(failure) && lastError == error)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "gave " << result << " with error " << lastError << " instead of "
                                         << failure << " with " << error;
}

RECT WindowRectOf(HWND hwnd);
::testing::AssertionResult SameRect(const RECT &actual, const RECT &expected);

// A window object below `parent` (0: the desktop), with an X window only
// when asked.
WindowOptions ObjectSpec(HWND parent, DWORD style = WS_CHILD, RECT rect = {0, 0, 0, 0}, bool withXWindow = false);

} // namespace vorlan_test

#endif // VORLAN_TESTS_SUPPORT_WINDOW_CHECKS_H
