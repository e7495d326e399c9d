#include <gtest/gtest.h>

#include "support/dc_test_helpers.h"
#include "support/canvas.h"
#include "gdi/screen/vorlscreendc.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlxwindow.h"
#include "support/gtk_helpers.h"
#include "support/message_recorder.h"

#include <gdk/gdkx.h>

using namespace vorlan_test;

namespace {

class ShownWindow {
public:
    ShownWindow() : m_recorder("VorlanScreenDrawing")
    {
        m_hwnd = m_recorder.Create(WS_POPUP, 30, 40, 60, 50);
        ShowWindow(m_hwnd, SW_SHOW);
        // GDK counts a window as shown at once; the server maps it only when
        // the window manager has let it.
        PumpUntil([this] {
            vorlan::GtkCriticalSection lock;
            GdkWindow *window = GetGdkWindow(m_hwnd);
            XWindowAttributes attributes = {};
            return window != nullptr &&
                   XGetWindowAttributes(XDisplay(), GDK_WINDOW_XID(window), &attributes) != 0 &&
                   attributes.map_state == IsViewable;
        });
        // Let the first expose and its background go by.
        PumpUntil([] { return false; }, 100);
    }
    ~ShownWindow() { DestroyWindow(m_hwnd); }
    HWND hwnd() const { return m_hwnd; }

private:
    MessageRecorder m_recorder;
    HWND m_hwnd;
};

} // namespace

TEST(ScreenWindowContext, ShapesLandInTheWindow)
{
    ShownWindow shown;
    HDC hdc = GetDC(shown.hwnd());
    ASSERT_NE(hdc, nullptr);
    EXPECT_TRUE(PatBlt(hdc, 0, 0, 60, 50, WHITENESS));
    HBRUSH blue = CreateSolidBrush(kBlue);
    HPEN red = CreatePen(PS_SOLID, 1, kRed);
    HGDIOBJ oldBrush = SelectObject(hdc, blue);
    HGDIOBJ oldPen = SelectObject(hdc, red);
    EXPECT_TRUE(Rectangle(hdc, 0, 0, 10, 10));
    EXPECT_EQ(GetPixel(hdc, 0, 0), kRed);
    EXPECT_EQ(GetPixel(hdc, 9, 9), kRed);
    EXPECT_EQ(GetPixel(hdc, 5, 5), kBlue);
    EXPECT_EQ(GetPixel(hdc, 10, 10), kWhite);
    EXPECT_TRUE(Ellipse(hdc, 20, 20, 40, 30));
    EXPECT_EQ(GetPixel(hdc, 20, 25), kRed);
    EXPECT_EQ(GetPixel(hdc, 30, 25), kBlue);
    SelectObject(hdc, oldBrush);
    SelectObject(hdc, oldPen);
    DeleteObject(blue);
    DeleteObject(red);
    ReleaseDC(shown.hwnd(), hdc);
}

TEST(ScreenWindowContext, OutputBoundsMoveAndCutTheContextAndOnlyWindowContextsTakeThem)
{
    ShownWindow shown;
    HDC whole = GetDC(shown.hwnd());
    HDC part = GetDC(shown.hwnd());
    PatBlt(whole, 0, 0, 60, 50, WHITENESS);
    const RECT bounds = {10, 5, 30, 25};
    EXPECT_TRUE(GdiSetDCOutputBounds(part, &bounds));
    RECT read = {};
    EXPECT_TRUE(GdiGetDCOutputBounds(part, &read));
    EXPECT_TRUE(EqualRect(&read, &bounds));
    PatBlt(part, 0, 0, 60, 50, BLACKNESS);
    // The part's (0, 0) is the window's (10, 5); nothing beyond 20 x 20.
    EXPECT_EQ(GetPixel(whole, 10, 5), kBlack);
    EXPECT_EQ(GetPixel(whole, 29, 24), kBlack);
    EXPECT_EQ(GetPixel(whole, 9, 5), kWhite);
    EXPECT_EQ(GetPixel(whole, 30, 24), kWhite);
    EXPECT_EQ(GetPixel(whole, 29, 25), kWhite);
    EXPECT_EQ(SetPixel(part, 1, 1, kGreen), kGreen);
    EXPECT_EQ(GetPixel(whole, 11, 6), kGreen);
    // Other contexts and null bounds are refused.
    Canvas canvas;
    EXPECT_FALSE(GdiSetDCOutputBounds(nullptr, &bounds));
    EXPECT_FALSE(GdiSetDCOutputBounds(reinterpret_cast<HDC>(GetStockObject(BLACK_PEN)), &bounds));
    EXPECT_FALSE(GdiSetDCOutputBounds(canvas, nullptr));
    ReleaseDC(shown.hwnd(), part);
    ReleaseDC(shown.hwnd(), whole);
}

TEST(ScreenWindowContext, SubWindowModeSetsTheGCsChildPolicy)
{
    ShownWindow shown;
    HDC hdc = GdiCreateWindowDC(shown.hwnd(), DCX_CLIPCHILDREN, GetGdkWindow(shown.hwnd()), nullptr);
    ASSERT_NE(hdc, nullptr);
    auto mode = [hdc] {
        vorlan::GtkCriticalSection lock;
        GdkGCValues values;
        gdk_gc_get_values(GetGdkGC(hdc), &values);
        return values.subwindow_mode;
    };
    EXPECT_EQ(mode(), GDK_CLIP_BY_CHILDREN);
    _SetDCSubWindowMode(hdc, FALSE);
    EXPECT_EQ(mode(), GDK_INCLUDE_INFERIORS);
    _SetDCSubWindowMode(hdc, TRUE);
    EXPECT_EQ(mode(), GDK_CLIP_BY_CHILDREN);
    _SetDCSubWindowMode(nullptr, TRUE); // ignored
    DeleteDC(hdc);
}

// A window context and a memory context with a bitmap of the screen's depth
// answer alike; the default bitmap is one bit deep and has no visual.
TEST(ScreenDeviceCaps, TrueColourScreenAnswersFromTheDisplay)
{
    ShownWindow shown;
    HDC window = GetDC(shown.hwnd());
    Canvas memory;
    MemoryDC plain;
    EXPECT_EQ(GetDeviceCaps(plain, NUMCOLORS), -1);
    for (HDC hdc : {window, memory.hdc(), plain.get()}) {
        for (int index : {TECHNOLOGY, PLANES, ASPECTX, ASPECTY})
            EXPECT_EQ(GetDeviceCaps(hdc, index), 1) << index;
        EXPECT_EQ(GetDeviceCaps(hdc, BITSPIXEL), 24);
        EXPECT_EQ(GetDeviceCaps(hdc, LOGPIXELSX), 96);
        EXPECT_EQ(GetDeviceCaps(hdc, LOGPIXELSY), 96);
        EXPECT_EQ(GetDeviceCaps(hdc, HORZRES), gdk_screen_width());
        EXPECT_EQ(GetDeviceCaps(hdc, VERTRES), gdk_screen_height());
        EXPECT_EQ(GetDeviceCaps(hdc, HORZSIZE), gdk_screen_width_mm());
        EXPECT_EQ(GetDeviceCaps(hdc, VERTSIZE), gdk_screen_height_mm());
        EXPECT_EQ(GetDeviceCaps(hdc, CURVECAPS), -1);
        EXPECT_EQ(GetDeviceCaps(hdc, 1234), -1);
        if (hdc == plain.get())
            continue;
        EXPECT_EQ(GetDeviceCaps(hdc, NUMCOLORS), 20);
        EXPECT_EQ(GetDeviceCaps(hdc, SIZEPALETTE), 256);
        EXPECT_EQ(GetDeviceCaps(hdc, RASTERCAPS), 0xE99);
    }
    EXPECT_EQ(GetSystemDisplayDepth(), 24);
    ReleaseDC(shown.hwnd(), window);
}
