/* The library's own public header is usable from C. */
#include <windows.h>
#include <vorlan.h>

void vorlan_h_in_c(void);

void vorlan_h_in_c(void)
{
    void (*callback)(void) = QRTInitedCallback;
    HWND (*lookup)(unsigned long) = GetWindowHandleFromXID;
    HWND (*search)(HWND, POINT, FINDWINDOWFILTER) = FindWindowFromPointEx;
    (void)callback;
    (void)lookup;
    (void)search;
}
