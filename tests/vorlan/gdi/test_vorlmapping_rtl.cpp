#include <gtest/gtest.h>

#include "support/dc_test_helpers.h"
#include "gdi/screen/vorlscreendc.h"
#include "gtk/vorlxwindow.h"
#include "support/message_recorder.h"

using vorlan_test::MemoryDC;
using vorlan_test::MessageRecorder;

namespace {

POINT Mapped(HDC hdc, int x, int y, bool toDevice = true)
{
    POINT point = {x, y};
    EXPECT_TRUE(toDevice ? LPtoDP(hdc, &point, 1) : DPtoLP(hdc, &point, 1));
    return point;
}

} // namespace

TEST(RightToLeftLayout, WindowContextsMirrorAcrossTheirWidthAndMemoryContextsNever)
{
    MessageRecorder recorder("VorlanRtlMapping");
    const HWND hwnd = recorder.Create(WS_POPUP, 20, 30, 180, 90);
    ASSERT_NE(hwnd, nullptr);
    RECT client;
    ASSERT_TRUE(GetClientRect(hwnd, &client));
    const LONG width = client.right - client.left;
    HDC hdc = GetDC(hwnd);
    ASSERT_NE(hdc, nullptr);
    EXPECT_EQ(WindowFromDC(hdc), hwnd);
    EXPECT_EQ(Mapped(hdc, 0, 0).x, 0);

    EXPECT_EQ(SetLayout(hdc, LAYOUT_RTL), 0u);
    POINT origin = Mapped(hdc, 0, 0);
    EXPECT_EQ(origin.x, width);
    EXPECT_EQ(origin.y, 0);
    POINT p = Mapped(hdc, 10, 5);
    EXPECT_EQ(p.x, width - 10);
    EXPECT_EQ(p.y, 5);
    POINT back = Mapped(hdc, width - 10, 5, false);
    EXPECT_EQ(back.x, 10);
    EXPECT_EQ(back.y, 5);

    // Mirroring comes after the mapping on the way to the device and before
    // it on the way back.
    SetWindowExtEx(hdc, 1, 1, nullptr);
    SetViewportExtEx(hdc, 2, 2, nullptr);
    SetViewportOrgEx(hdc, 3, 0, nullptr);
    p = Mapped(hdc, 10, 5);
    EXPECT_EQ(p.x, width - 23);
    back = Mapped(hdc, width - 23, 10, false);
    EXPECT_EQ(back.x, 10);
    EXPECT_EQ(back.y, 5);

    // Only exactly LAYOUT_RTL mirrors.
    SetLayout(hdc, LAYOUT_RTL | LAYOUT_BITMAPORIENTATIONPRESERVED);
    EXPECT_EQ(Mapped(hdc, 10, 5).x, 23);
    SetLayout(hdc, 0);
    EXPECT_EQ(Mapped(hdc, 10, 5).x, 23);
    ReleaseDC(hwnd, hdc);

    // A whole-window context mirrors across the window width.
    RECT rc;
    GetWindowRect(hwnd, &rc);
    {
        vorlan::GtkCriticalSection lock;
        const RECT bounds = {0, 0, rc.right - rc.left, rc.bottom - rc.top};
        hdc = GdiCreateWindowDC(hwnd, DCX_WINDOW, GetGdkWindow(hwnd), &bounds);
    }
    SetLayout(hdc, LAYOUT_RTL);
    EXPECT_EQ(Mapped(hdc, 1, 1).x, rc.right - rc.left - 1);
    DeleteDC(hdc);
    DestroyWindow(hwnd);

    // A memory context never mirrors.
    MemoryDC dc;
    SetLayout(dc, LAYOUT_RTL);
    EXPECT_EQ(Mapped(dc, 0, 0).x, 0);
    EXPECT_EQ(Mapped(dc, 7, 3, false).x, 7);
}
