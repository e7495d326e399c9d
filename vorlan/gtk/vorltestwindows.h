// Stand-ins for window objects, for exercising the message queues with
// windows that have a procedure before window objects call theirs.
//
// A test window has an owning thread, an optional parent, a procedure, and
// the two flags that the paint queue reads (an update region, a pending
// non-client paint).  The window seams of vorlpumpdeps.h answer for window
// objects themselves and consult this registry only for handles that the
// window table does not know.  Its use is a window with a procedure: once
// window objects call their procedures, this registry and the tests that
// use it move to window objects.
//
// Test window handles lie at 0x7E570000 and above, away from the handles of
// the window table.
#ifndef VORLAN_GTK_VORLTESTWINDOWS_H
#define VORLAN_GTK_VORLTESTWINDOWS_H

#include <windows.h>

namespace vorlan {
namespace testing {

// A window owned by the calling thread.
HWND CreateTestWindow(WNDPROC procedure, HWND parent = nullptr);
void DestroyTestWindow(HWND hWnd);
void DestroyTestWindowsOfThread(DWORD tid);

bool IsTestWindow(HWND hWnd);
// The owning thread, 0 for a handle that is no test window.
DWORD TestWindowThread(HWND hWnd);
// `hWnd` lies below `parent` (not the window itself).
bool IsTestWindowDescendant(HWND parent, HWND hWnd);
WNDPROC TestWindowProcedure(HWND hWnd);

void SetTestWindowUpdateRegion(HWND hWnd, bool hasRegion);
bool TestWindowHasUpdateRegion(HWND hWnd);
void SetTestWindowNcPaintPending(HWND hWnd, bool pending);
// Clears the pending non-client paint and tells whether it was set.
bool TakeTestWindowNcPaintPending(HWND hWnd);

} // namespace testing
} // namespace vorlan

#endif // VORLAN_GTK_VORLTESTWINDOWS_H
