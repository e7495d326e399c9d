// WM_NCCALCSIZE and WM_NCHITTEST of the default procedure, and
// AdjustWindowRectEx.
#include <gtest/gtest.h>

#include "support/expect_last_error.h"
#include "support/message_recorder.h"

#include <initializer_list>
#include <ostream>

using vorlan_test::MessageRecorder;

namespace {

struct Rect {
    LONG left, top, right, bottom;
    bool operator==(const Rect &o) const
    {
        return left == o.left && top == o.top && right == o.right && bottom == o.bottom;
    }
};

std::ostream &operator<<(std::ostream &os, const Rect &r)
{
    return os << "{" << r.left << ", " << r.top << ", " << r.right << ", " << r.bottom << "}";
}

Rect ToRect(const RECT &r)
{
    return {r.left, r.top, r.right, r.bottom};
}

// What the default procedure leaves of the window rectangle 0, 0, cx, cy.
Rect NcCalcSize(HWND hwnd, int cx = 200, int cy = 150)
{
    RECT rc = {0, 0, cx, cy};
    EXPECT_EQ(DefWindowProcW(hwnd, WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&rc)), 0);
    return ToRect(rc);
}

LRESULT HitTest(HWND hwnd, int x, int y)
{
    return DefWindowProcW(hwnd, WM_NCHITTEST, 0, MAKELPARAM(x, y));
}

int ScrollWidth()
{
    return GetSystemMetrics(SM_CXVSCROLL);
}

int ScrollHeight()
{
    return GetSystemMetrics(SM_CYHSCROLL);
}

struct Hit {
    int x, y;
    LRESULT code;
};

void ExpectHits(HWND hwnd, std::initializer_list<Hit> hits)
{
    for (const Hit &hit : hits)
        EXPECT_EQ(HitTest(hwnd, hit.x, hit.y), hit.code) << "at " << hit.x << ", " << hit.y;
}

class NonClientFrame : public ::testing::Test {
protected:
    MessageRecorder recorder{"VorlanNonClient"};
};

} // namespace

TEST_F(NonClientFrame, CalcSizeTakesFrameCaptionEdgeAndScrollBars)
{
    const HWND parent = recorder.Create(WS_POPUP, 0, 0, 400, 400);
    struct Case {
        DWORD style;
        DWORD exStyle;
        Rect expected;
    };
    const int w = ScrollWidth();
    const int h = ScrollHeight();
    const Case cases[] = {
        {WS_POPUP, 0, {0, 0, 200, 150}},
        {WS_POPUP | WS_BORDER, 0, {1, 1, 199, 149}},
        // A lone dialog frame counts here, though not in AdjustWindowRectEx.
        {WS_POPUP | WS_DLGFRAME, 0, {3, 3, 197, 147}},
        {WS_POPUP | WS_CAPTION | WS_THICKFRAME, 0, {4, 30, 196, 146}},
        // A sizing border alone is no frame of its own.
        {WS_CHILD | WS_THICKFRAME, 0, {0, 0, 200, 150}},
        {WS_CHILD | WS_CAPTION, 0, {3, 29, 197, 147}},
        {WS_POPUP | WS_BORDER, WS_EX_CLIENTEDGE, {3, 3, 197, 147}},
        {WS_POPUP | WS_HSCROLL | WS_VSCROLL, 0, {0, 0, 200 - w, 150 - h}},
        {WS_POPUP | WS_VSCROLL, WS_EX_LEFTSCROLLBAR, {w, 0, 200, 150}},
        // An overlapped window always takes the frame.
        {WS_OVERLAPPED, 0, {3, 29, 197, 147}},
    };
    for (const Case &c : cases) {
        const HWND hwnd = recorder.Create(c.style, 0, 0, 200, 150, (c.style & WS_CHILD) ? parent : nullptr,
                                          c.exStyle);
        ASSERT_NE(hwnd, nullptr) << std::hex << c.style;
        EXPECT_EQ(NcCalcSize(hwnd), c.expected) << "style " << std::hex << c.style << " ex " << c.exStyle;
        DestroyWindow(hwnd);
    }
}

TEST_F(NonClientFrame, ScrollBarsThatDoNotFitTakeNoRoom)
{
    const int w = ScrollWidth();
    const int h = ScrollHeight();
    const HWND hwnd = recorder.Create(WS_POPUP | WS_HSCROLL | WS_VSCROLL, 100, 100, w, h);
    ASSERT_NE(hwnd, nullptr);
    EXPECT_EQ(NcCalcSize(hwnd, w, h), (Rect{0, 0, w, h}));
    EXPECT_EQ(NcCalcSize(hwnd, w + 1, h + 1), (Rect{0, 0, 1, 1}));
    // The window itself is that small: the whole of it is client area.
    EXPECT_EQ(HitTest(hwnd, 100 + w - 1, 100 + h - 1), HTCLIENT);
}

TEST_F(NonClientFrame, HitTestOfAnUndecoratedBorderClientEdgeAndScrollBarsWithAnEmptyCorner)
{
    const HWND bordered = recorder.Create(WS_POPUP | WS_BORDER, 100, 100, 200, 150);
    ASSERT_NE(bordered, nullptr);
    ExpectHits(bordered, {{150, 150, HTCLIENT}, {100, 150, HTBORDER}, {299, 150, HTBORDER}, {150, 100, HTBORDER},
                          {150, 249, HTBORDER}, {99, 150, HTNOWHERE}, {300, 150, HTNOWHERE}});

    const HWND edged = recorder.Create(WS_POPUP, 100, 100, 200, 150, nullptr, WS_EX_CLIENTEDGE);
    ASSERT_NE(edged, nullptr);
    ExpectHits(edged, {{101, 150, HTBORDER}, {150, 248, HTBORDER}, {102, 150, HTCLIENT}});

    const int w = ScrollWidth();
    const int h = ScrollHeight();
    const HWND right = recorder.Create(WS_POPUP | WS_HSCROLL | WS_VSCROLL, 100, 100, 200, 150);
    ASSERT_NE(right, nullptr);
    ExpectHits(right, {{150, 249, HTHSCROLL}, {100, 250 - h, HTHSCROLL}, {299, 150, HTVSCROLL},
                       {300 - w, 100, HTVSCROLL}, {299, 249, HTNOWHERE}, {299 - w, 249 - h, HTCLIENT}});

    const HWND left =
        recorder.Create(WS_POPUP | WS_HSCROLL | WS_VSCROLL, 100, 100, 200, 150, nullptr, WS_EX_LEFTSCROLLBAR);
    ASSERT_NE(left, nullptr);
    ExpectHits(left, {{100, 150, HTVSCROLL}, {299, 150, HTCLIENT}, {299, 249, HTHSCROLL}, {100, 249, HTNOWHERE}});
}

TEST_F(NonClientFrame, DecoratedWindowsFrameBelongsToTheWindowManager)
{
    const HWND hwnd = recorder.Create(WS_OVERLAPPEDWINDOW, 100, 100, 300, 200);
    ASSERT_NE(hwnd, nullptr);
    RECT window;
    RECT client;
    ASSERT_TRUE(GetWindowRect(hwnd, &window));
    GetClientRect(hwnd, &client);
    EXPECT_EQ(ToRect(window), (Rect{100, 100, 400, 300}));
    EXPECT_EQ(client.right, 300 - 2 * 4);
    EXPECT_EQ(client.bottom, 200 - 2 * 4 - 26);
    // Caption, sides and bottom: no caption or sizing codes, only nowhere.
    ExpectHits(hwnd, {{200, 110, HTNOWHERE}, {101, 200, HTNOWHERE}, {398, 200, HTNOWHERE}, {200, 298, HTNOWHERE},
                      {100, 100, HTNOWHERE}, {200, 200, HTCLIENT}, {104, 130, HTCLIENT}});
}

TEST_F(NonClientFrame, ChildWithACaptionAndTheDialogClassBeforeAnyDialogBoxAreNotDecorated)
{
    const HWND parent = recorder.Create(WS_POPUP, 100, 100, 400, 300);
    const HWND child = recorder.Create(WS_CHILD | WS_CAPTION, 10, 10, 200, 150, parent);
    ASSERT_NE(child, nullptr);
    // Screen rectangle 110, 110, 310, 260: the caption's border bit gives
    // the outer pixel, the caption itself is nowhere.
    ExpectHits(child, {{110, 150, HTBORDER}, {150, 110, HTBORDER}, {150, 120, HTNOWHERE}, {150, 200, HTCLIENT}});

    const HWND framed = recorder.Create(WS_POPUP | WS_CAPTION, 100, 100, 200, 150);
    const HWND dialog = CreateWindowExW(0, MAKEINTRESOURCEW(32770), nullptr, WS_POPUP | WS_CAPTION, 100, 100, 200, 150,
                                        nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(framed, nullptr);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(HitTest(framed, 100, 150), HTNOWHERE);
    ExpectHits(dialog, {{100, 150, HTBORDER}, {101, 150, HTNOWHERE}});
    DestroyWindow(dialog);
}

TEST(NonClientAdjust, AdjustWindowRectGrowsByFrameCaptionMenuAndEdge)
{
    struct Case {
        DWORD style;
        BOOL menu;
        DWORD exStyle;
        Rect expected;
    };
    const Case cases[] = {
        {WS_POPUP, FALSE, 0, {10, 20, 110, 220}},
        {WS_POPUP | WS_DLGFRAME, FALSE, 0, {10, 20, 110, 220}},
        {WS_POPUP | WS_CAPTION, FALSE, 0, {7, -9, 113, 223}},
        {WS_CHILD | WS_CAPTION | WS_THICKFRAME, FALSE, 0, {6, -10, 114, 224}},
        {WS_POPUP, TRUE, 0, {10, 0, 110, 220}},
        {WS_POPUP | WS_BORDER, TRUE, WS_EX_CLIENTEDGE, {7, -3, 113, 223}},
    };
    for (const Case &c : cases) {
        RECT rc = {10, 20, 110, 220};
        SetLastError(0);
        EXPECT_TRUE(AdjustWindowRectEx(&rc, c.style, c.menu, c.exStyle));
        EXPECT_EQ(ToRect(rc), c.expected) << "style " << std::hex << c.style;
        if (c.exStyle == 0) {
            RECT plain = {10, 20, 110, 220};
            EXPECT_TRUE(AdjustWindowRect(&plain, c.style, c.menu));
            EXPECT_EQ(ToRect(plain), c.expected);
        }
    }
}

TEST(NonClientAdjust, AdjustWindowRectRefusesOverlappedStylesAndNullRectangles)
{
    RECT rc = {0, 0, 10, 10};
    EXPECT_FAILS_WITH(AdjustWindowRectEx(&rc, WS_OVERLAPPEDWINDOW, FALSE, 0), FALSE, ERROR_INVALID_PARAMETER);
    EXPECT_EQ(ToRect(rc), (Rect{0, 0, 10, 10}));
    EXPECT_FAILS_WITH(AdjustWindowRect(&rc, WS_OVERLAPPED, FALSE), FALSE, ERROR_INVALID_PARAMETER);
    EXPECT_FAILS_WITH(AdjustWindowRectEx(nullptr, WS_POPUP, FALSE, 0), FALSE, ERROR_INVALID_PARAMETER);
}

TEST_F(NonClientFrame, AdjustedRectangleCalculatesBackToTheClient)
{
    const DWORD styles[] = {WS_POPUP | WS_BORDER, WS_POPUP | WS_CAPTION, WS_POPUP | WS_CAPTION | WS_THICKFRAME};
    for (DWORD style : styles) {
        for (DWORD exStyle : {DWORD(0), DWORD(WS_EX_CLIENTEDGE)}) {
            RECT rc = {50, 60, 250, 210};
            ASSERT_TRUE(AdjustWindowRectEx(&rc, style, FALSE, exStyle));
            const HWND hwnd = recorder.Create(style, rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top,
                                              nullptr, exStyle);
            ASSERT_NE(hwnd, nullptr);
            DefWindowProcW(hwnd, WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&rc));
            EXPECT_EQ(ToRect(rc), (Rect{50, 60, 250, 210})) << "style " << std::hex << style << " ex " << exStyle;
            DestroyWindow(hwnd);
        }
    }
}
