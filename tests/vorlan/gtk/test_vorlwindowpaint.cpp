// Update regions, the paint cycle, window DCs and exposes from X, seen by
// recording window procedures.
#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlxwindow.h"
#include "support/gtk_helpers.h"
#include "support/message_recorder.h"
#include "support/window_checks.h"

#include <gdk/gdkx.h>
#include <X11/Xlib.h>

using namespace vorlan_test;
using Seq = std::vector<std::string>;

namespace {

const std::vector<UINT> kPaintMessages = {WM_NCPAINT, WM_ERASEBKGND, WM_PAINT};

RECT UpdateRect(HWND hwnd)
{
    RECT rect = {-1, -1, -1, -1};
    GetUpdateRect(hwnd, &rect, FALSE);
    return rect;
}

bool HasUpdate(HWND hwnd)
{
    return GetUpdateRect(hwnd, nullptr, FALSE) != FALSE;
}

// Dispatches every queued message of the thread, paint messages included.
void DrainMessages()
{
    MSG msg;
    for (int guard = 0; guard < 1000 && PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE); ++guard)
        DispatchMessageW(&msg);
}

// Waits until the window is mapped and whatever the window manager did
// after the map has been painted.
void WaitUntilMappedAndExposed(HWND hwnd)
{
    PumpUntil([&] {
        vorlan::GtkCriticalSection lock;
        return gdk_window_is_viewable(GetGdkWindow(hwnd)) != FALSE;
    });
    PumpUntil([] {
        DrainMessages();
        return false;
    }, 150);
    DrainMessages();
}

HWND PaintedPopup(MessageRecorder &recorder, int x, int y, int cx, int cy, DWORD style = 0)
{
    const HWND hwnd = recorder.Create(WS_POPUP | WS_VISIBLE | style, x, y, cx, cy);
    WaitUntilMappedAndExposed(hwnd);
    RedrawWindow(hwnd, nullptr, nullptr, RDW_VALIDATE | RDW_NOFRAME | RDW_ALLCHILDREN);
    recorder.Clear();
    return hwnd;
}

} // namespace

TEST(UpdateRegion, RectanglesGrowValidationShrinksAndOnlyVisibleWindowsTakeInvalidation)
{
    MessageRecorder recorder("VorlanPaintGrow");
    const HWND hidden = recorder.Create(WS_POPUP, 0, 0, 60, 40);
    EXPECT_TRUE(InvalidateRect(hidden, nullptr, TRUE));
    EXPECT_FALSE(HasUpdate(hidden));
    ShowWindow(hidden, SW_SHOWNA);
    EXPECT_TRUE(SameRect(UpdateRect(hidden), RECT{0, 0, 60, 40})) << "showing invalidates the whole window";
    DestroyWindow(hidden);

    const HWND hwnd = PaintedPopup(recorder, 0, 0, 100, 80);
    const RECT empty = {5, 5, 5, 30};
    EXPECT_TRUE(InvalidateRect(hwnd, &empty, FALSE));
    EXPECT_FALSE(HasUpdate(hwnd));

    const RECT first = {10, 10, 20, 20};
    const RECT second = {50, 40, 70, 60};
    InvalidateRect(hwnd, &first, FALSE);
    InvalidateRect(hwnd, &second, FALSE);
    EXPECT_TRUE(SameRect(UpdateRect(hwnd), RECT{10, 10, 70, 60}));
    HRGN region = CreateRectRgn(0, 0, 0, 0);
    EXPECT_EQ(GetUpdateRgn(hwnd, region, FALSE), 1);
    EXPECT_TRUE(PtInRegion(region, 15, 15));
    EXPECT_FALSE(PtInRegion(region, 30, 30));

    ValidateRect(hwnd, &first);
    EXPECT_TRUE(SameRect(UpdateRect(hwnd), second));
    ValidateRect(hwnd, nullptr);
    EXPECT_FALSE(HasUpdate(hwnd));
    EXPECT_EQ(GetUpdateRgn(hwnd, region, FALSE), 0);
    RECT box;
    EXPECT_EQ(GetRgnBox(region, &box), NULLREGION);

    const RECT beyond = {90, 70, 300, 300};
    InvalidateRect(hwnd, &beyond, FALSE);
    EXPECT_TRUE(SameRect(UpdateRect(hwnd), RECT{90, 70, 100, 80}));
    DeleteObject(region);

    // A region wholly outside the client area still brings one paint.
    ValidateRect(hwnd, nullptr);
    const RECT outside = {100, 100, 120, 120};
    EXPECT_TRUE(InvalidateRect(hwnd, &outside, FALSE));
    EXPECT_TRUE(HasUpdate(hwnd));
    EXPECT_TRUE(SameRect(UpdateRect(hwnd), RECT{0, 0, 0, 0}));
    recorder.Clear();
    DrainMessages();
    EXPECT_EQ(recorder.Sequence({hwnd}, kPaintMessages), (Seq{"0:PAINT"}));
    EXPECT_FALSE(HasUpdate(hwnd));
}

TEST(UpdateRegion, ClippingParentPassesNothingOnUnlessAllChildrenAreAsked)
{
    MessageRecorder recorder("VorlanPaintClipChildren");
    const HWND parent = PaintedPopup(recorder, 0, 0, 100, 100, WS_CLIPCHILDREN);
    const HWND child = recorder.Create(WS_CHILD | WS_VISIBLE, 10, 10, 30, 30, parent);
    RedrawWindow(parent, nullptr, nullptr, RDW_VALIDATE | RDW_NOFRAME | RDW_ALLCHILDREN);
    recorder.Clear();

    InvalidateRect(parent, nullptr, FALSE);
    EXPECT_TRUE(HasUpdate(parent));
    EXPECT_FALSE(HasUpdate(child));

    // Invalidation that reaches a child also owes it its frame.
    RedrawWindow(parent, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    UpdateWindow(parent);
    EXPECT_EQ(recorder.Sequence({parent, child}, kPaintMessages), (Seq{"0:PAINT", "1:NCPAINT", "1:PAINT"}));
    EXPECT_FALSE(HasUpdate(parent));
    EXPECT_FALSE(HasUpdate(child));
}

TEST(UpdateRegion, ChildGetsTheCoveredPartInItsOwnCoordinatesAndUpdatingItTakesItOutOfTheParent)
{
    MessageRecorder recorder("VorlanPaintChildPart");
    const HWND parent = PaintedPopup(recorder, 0, 0, 100, 100);
    const HWND child = recorder.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, 20, 30, 40, 40, parent);
    RedrawWindow(parent, nullptr, nullptr, RDW_VALIDATE | RDW_NOFRAME | RDW_ALLCHILDREN);
    const RECT part = {0, 0, 30, 45};
    InvalidateRect(parent, &part, FALSE);
    // The child's client area starts inside its border of one pixel.
    EXPECT_TRUE(SameRect(UpdateRect(child), RECT{0, 0, 9, 14}));
    // Validation uses the child's client rectangle.
    ValidateRect(parent, nullptr);
    EXPECT_FALSE(HasUpdate(child));

    InvalidateRect(parent, nullptr, FALSE);
    recorder.Clear();
    UpdateWindow(child);
    EXPECT_EQ(recorder.Sequence({parent, child}, kPaintMessages), (Seq{"1:NCPAINT", "1:PAINT"}));
    HRGN region = CreateRectRgn(0, 0, 0, 0);
    EXPECT_EQ(GetUpdateRgn(parent, region, FALSE), 1);
    EXPECT_FALSE(PtInRegion(region, 30, 40));
    EXPECT_TRUE(PtInRegion(region, 5, 5));
    EXPECT_TRUE(PtInRegion(region, 80, 80));
    DeleteObject(region);
}

TEST(PaintCycle, BeginPaintErasesWhenOwedAndReportsThePaintRectangle)
{
    MessageRecorder recorder("VorlanPaintBegin");
    PAINTSTRUCT seen = {};
    HDC paintDc = nullptr;
    bool updateLeftDuringPaint = true;
    recorder.Answer(WM_ERASEBKGND, [](HWND, WPARAM, LPARAM) { return LRESULT(0); });
    recorder.Answer(WM_PAINT, [&](HWND hwnd, WPARAM, LPARAM) {
        PAINTSTRUCT ps = {};
        paintDc = BeginPaint(hwnd, &ps);
        seen = ps;
        updateLeftDuringPaint = HasUpdate(hwnd);
        EndPaint(hwnd, &ps);
        return LRESULT(0);
    });
    const HWND hwnd = PaintedPopup(recorder, 0, 0, 80, 60);

    const RECT area = {10, 20, 30, 40};
    InvalidateRect(hwnd, &area, TRUE);
    UpdateWindow(hwnd);
    EXPECT_NE(paintDc, nullptr);
    EXPECT_EQ(seen.hdc, paintDc);
    EXPECT_TRUE(seen.fErase);
    EXPECT_TRUE(SameRect(seen.rcPaint, area));
    EXPECT_FALSE(updateLeftDuringPaint);
    EXPECT_EQ(recorder.Sequence({hwnd}, kPaintMessages), (Seq{"0:PAINT", "0:ERASEBKGND"}));
    EXPECT_EQ(GetObjectType(paintDc), 0u);

    recorder.Clear();
    InvalidateRect(hwnd, nullptr, FALSE);
    UpdateWindow(hwnd);
    EXPECT_FALSE(seen.fErase);
    EXPECT_TRUE(SameRect(seen.rcPaint, RECT{0, 0, 80, 60}));
    EXPECT_EQ(recorder.Sequence({hwnd}, kPaintMessages), (Seq{"0:PAINT"}));

    PAINTSTRUCT ps;
    EXPECT_TRUE(FailsWith(87, nullptr, [&] { return BeginPaint(hwnd, nullptr); }));
    EXPECT_TRUE(FailsWith(1400, nullptr, [&] { return BeginPaint(FakeHwnd(60010), &ps); }));
    EXPECT_FALSE(EndPaint(hwnd, nullptr));
}

TEST(PaintCycle, UpdateQueriesSendTheOwedFrameAndErase)
{
    MessageRecorder recorder("VorlanPaintQueries");
    const HWND hwnd = PaintedPopup(recorder, 0, 0, 40, 40);
    RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
    RECT rect;
    EXPECT_TRUE(GetUpdateRect(hwnd, &rect, TRUE));
    EXPECT_EQ(recorder.Sequence({hwnd}, kPaintMessages), (Seq{"0:NCPAINT", "0:ERASEBKGND"}));
    recorder.Clear();
    EXPECT_TRUE(GetUpdateRect(hwnd, &rect, TRUE));
    EXPECT_TRUE(recorder.Sequence({hwnd}, kPaintMessages).empty());

    const HWND bad = FakeHwnd(60011);
    EXPECT_TRUE(FailsWith(87, 0, [&] { return GetUpdateRgn(hwnd, nullptr, FALSE); }));
    HRGN region = CreateRectRgn(0, 0, 1, 1);
    EXPECT_TRUE(FailsWith(1400, 0, [&] { return GetUpdateRgn(bad, region, FALSE); }));
    EXPECT_TRUE(FailsWith(1400, FALSE, [&] { return GetUpdateRect(bad, &rect, FALSE); }));
    EXPECT_TRUE(FailsWith(1400, FALSE, [&] { return RedrawWindow(bad, nullptr, nullptr, RDW_INVALIDATE); }));
    EXPECT_TRUE(FailsWith(1400, FALSE, [&] { return InvalidateRect(bad, nullptr, TRUE); }));
    DeleteObject(region);
}

TEST(WindowDC, OwnDcIsTheSameEachTimeAndDiesWithTheWindowAndTheZeroHandleGivesADesktopDc)
{
    MessageRecorder recorder("VorlanPaintOwnDC", true, CS_OWNDC);
    const HWND hwnd = recorder.Create(WS_POPUP | WS_VISIBLE, 0, 0, 40, 40);
    const HDC first = GetDCEx(hwnd, nullptr, 0);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(GetDCEx(hwnd, nullptr, 0), first);
    EXPECT_EQ(GetDC(hwnd), first);
    EXPECT_EQ(ReleaseDC(hwnd, first), 1);
    EXPECT_EQ(GetObjectType(first), DWORD(OBJ_DC));
    // A cache or whole-window DC is a DC of its own.
    const HDC cache = GetDCEx(hwnd, nullptr, DCX_CACHE);
    EXPECT_NE(cache, first);
    ReleaseDC(hwnd, cache);
    EXPECT_EQ(GetObjectType(cache), 0u);
    DestroyWindow(hwnd);
    EXPECT_EQ(GetObjectType(first), 0u);

    // The zero handle gives a DC of the desktop, with error 1400 all the same.
    SetLastError(0);
    const HDC desktop = GetDC(nullptr);
    EXPECT_NE(desktop, nullptr);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_WINDOW_HANDLE));
    EXPECT_EQ(GetDeviceCaps(desktop, HORZRES), GetSystemMetrics(SM_CXSCREEN));
    EXPECT_EQ(ReleaseDC(nullptr, desktop), 1);
    const HDC whole = GetWindowDC(nullptr);
    EXPECT_NE(whole, nullptr);
    ReleaseDC(nullptr, whole);

    EXPECT_TRUE(FailsWith(1400, nullptr, [] { return GetDC(FakeHwnd(60012)); }));
    EXPECT_EQ(ReleaseDC(FakeHwnd(60012), nullptr), 0);
    EXPECT_TRUE(LockWindowUpdate(nullptr));
    EXPECT_TRUE(FailsWith(1400, FALSE, [] { return LockWindowUpdate(FakeHwnd(60012)); }));
}

TEST(ExposeFromX, UncoveredPartOfAWindowIsRepainted)
{
    MessageRecorder recorder("VorlanPaintExpose");
    std::vector<RECT> painted;
    recorder.Answer(WM_PAINT, [&](HWND hwnd, WPARAM, LPARAM) {
        PAINTSTRUCT ps;
        BeginPaint(hwnd, &ps);
        painted.push_back(ps.rcPaint);
        EndPaint(hwnd, &ps);
        return LRESULT(0);
    });
    const HWND hwnd = recorder.Create(WS_POPUP | WS_VISIBLE, 100, 100, 200, 150);
    ASSERT_NE(hwnd, nullptr);
    WaitUntilMappedAndExposed(hwnd);
    ASSERT_FALSE(painted.empty());

    // Another client's window covers part of ours, then goes.
    POINT origin = {0, 0};
    ClientToScreen(hwnd, &origin);
    Display *other = XOpenDisplay(nullptr);
    ASSERT_NE(other, nullptr);
    XSetWindowAttributes attributes = {};
    attributes.override_redirect = True;
    const ::Window cover = XCreateWindow(other, DefaultRootWindow(other), origin.x + 50, origin.y + 20, 40, 30, 0,
                                         CopyFromParent, InputOutput, CopyFromParent, CWOverrideRedirect,
                                         &attributes);
    XMapRaised(other, cover);
    XSync(other, False);
    PumpUntil([&] {
        DrainMessages();
        return false;
    }, 200);
    painted.clear();
    XDestroyWindow(other, cover);
    XSync(other, False);
    XCloseDisplay(other);
    ASSERT_TRUE(PumpUntil([&] {
        DrainMessages();
        return !painted.empty();
    }));
    ASSERT_EQ(painted.size(), 1u);
    EXPECT_TRUE(SameRect(painted[0], RECT{50, 20, 90, 50}));
}

TEST(WindowDC, DcKnowsItsWindowParentDcClassesGetFreshDcsAndClientDcsStartAtTheClientArea)
{
    MessageRecorder recorder("VorlanPaintParentDC", true, CS_PARENTDC);
    const HWND parent = recorder.Create(WS_POPUP | WS_VISIBLE, 0, 0, 80, 60);
    const HWND child = recorder.Create(WS_CHILD | WS_VISIBLE, 10, 10, 20, 20, parent);
    const HDC first = GetDC(child);
    EXPECT_EQ(WindowFromDC(first), child);
    EXPECT_EQ(ReleaseDC(child, first), 1);
    EXPECT_EQ(GetObjectType(first), 0u);
    const HDC second = GetDC(child);
    EXPECT_EQ(WindowFromDC(second), child);
    // The child's DC covers the child's client area only.
    RECT box = {};
    GetClipBox(second, &box);
    EXPECT_TRUE(SameRect(box, RECT{0, 0, 20, 20}));
    ReleaseDC(child, second);

    const HDC memory = CreateCompatibleDC(nullptr);
    EXPECT_EQ(WindowFromDC(memory), nullptr);
    DeleteDC(memory);
    EXPECT_EQ(WindowFromDC(nullptr), nullptr);

    // The client DC of a decorated window starts at its client area.
    MessageRecorder plain("VorlanPaintDecoratedDC");
    const HWND decorated = plain.Create(WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 150);
    RECT client;
    GetClientRect(decorated, &client);
    const HDC dc = GetDC(decorated);
    EXPECT_NE(GetClipBox(dc, &box), ERROR);
    EXPECT_TRUE(SameRect(box, client));
    ReleaseDC(decorated, dc);
}

TEST(PaintCycle, EraseNowErasesWithoutPaintingAndTheDefaultProcedureEndsTheCycle)
{
    MessageRecorder recorder("VorlanPaintEraseNow");
    const HWND hwnd = PaintedPopup(recorder, 0, 0, 40, 40);
    InvalidateRect(hwnd, nullptr, TRUE);
    EXPECT_TRUE(RedrawWindow(hwnd, nullptr, nullptr, RDW_ERASENOW));
    EXPECT_EQ(recorder.Sequence({hwnd}, kPaintMessages), (Seq{"0:ERASEBKGND"}));
    EXPECT_TRUE(HasUpdate(hwnd));
    recorder.Clear();
    // Nothing is owed any more.
    RedrawWindow(hwnd, nullptr, nullptr, RDW_ERASENOW);
    EXPECT_TRUE(recorder.Sequence({hwnd}, kPaintMessages).empty());
    // RDW_NOERASE on a partial validation drops the owed erase too.
    InvalidateRect(hwnd, nullptr, TRUE);
    const RECT part = {0, 0, 10, 10};
    RedrawWindow(hwnd, &part, nullptr, RDW_VALIDATE | RDW_NOERASE);
    RedrawWindow(hwnd, nullptr, nullptr, RDW_ERASENOW);
    EXPECT_TRUE(recorder.Sequence({hwnd}, kPaintMessages).empty());

    // The default procedure's WM_PAINT erases and ends the cycle.
    ValidateRect(hwnd, nullptr);
    InvalidateRect(hwnd, nullptr, TRUE);
    DrainMessages();
    EXPECT_EQ(recorder.Sequence({hwnd}, kPaintMessages), (Seq{"0:PAINT", "0:ERASEBKGND"}));
    EXPECT_FALSE(HasUpdate(hwnd));
    MSG msg;
    EXPECT_FALSE(PeekMessageW(&msg, hwnd, WM_PAINT, WM_PAINT, PM_NOREMOVE));
}

TEST(ExposeFromX, PaintedWindowShowsOnTheScreenAsDrawnAndRepaintingIsClippedToTheUpdateRegion)
{
    MessageRecorder recorder("VorlanPaintOnScreen");
    COLORREF squareColour = RGB(255, 0, 0);
    recorder.Answer(WM_ERASEBKGND, [](HWND, WPARAM, LPARAM) { return LRESULT(1); });
    recorder.Answer(WM_PAINT, [&](HWND hwnd, WPARAM, LPARAM) {
        PAINTSTRUCT ps;
        HDC hdc = BeginPaint(hwnd, &ps);
        const RECT all = {0, 0, 64, 48}, square = {8, 8, 24, 24};
        FillRect(hdc, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        HBRUSH brush = CreateSolidBrush(squareColour);
        FillRect(hdc, &square, brush);
        DeleteObject(brush);
        EndPaint(hwnd, &ps);
        return LRESULT(0);
    });
    const HWND hwnd = recorder.Create(WS_POPUP | WS_VISIBLE, 300, 200, 64, 48);
    ASSERT_NE(hwnd, nullptr);
    // The screen as another client reads it, where the window now is.
    Display *other = XOpenDisplay(nullptr);
    ASSERT_NE(other, nullptr);
    auto screenPixel = [&](int x, int y) {
        POINT at = {x, y};
        ClientToScreen(hwnd, &at);
        XImage *image = XGetImage(other, DefaultRootWindow(other), at.x, at.y, 1, 1, AllPlanes, ZPixmap);
        const unsigned long pixel = image != nullptr ? XGetPixel(image, 0, 0) : 0x123456;
        if (image != nullptr)
            XDestroyImage(image);
        return pixel & 0xFFFFFF;
    };
    EXPECT_TRUE(PumpUntil([&] {
        DrainMessages();
        return screenPixel(8, 8) == 0xFF0000 && screenPixel(63, 47) == 0xFFFFFF;
    }));
    EXPECT_EQ(screenPixel(23, 23), 0xFF0000u);
    EXPECT_EQ(screenPixel(24, 23), 0xFFFFFFu);
    EXPECT_EQ(screenPixel(7, 8), 0xFFFFFFu);
    EXPECT_EQ(screenPixel(0, 0), 0xFFFFFFu);

    // A repaint of part of the window draws the square blue only there.
    squareColour = RGB(0, 0, 255);
    const RECT area = {10, 10, 20, 15};
    InvalidateRect(hwnd, &area, FALSE);
    UpdateWindow(hwnd);
    const HDC dc = GetDC(hwnd);
    EXPECT_EQ(GetPixel(dc, 10, 10), RGB(0, 0, 255));
    EXPECT_EQ(GetPixel(dc, 19, 14), RGB(0, 0, 255));
    EXPECT_EQ(GetPixel(dc, 20, 14), RGB(255, 0, 0));
    EXPECT_EQ(GetPixel(dc, 9, 10), RGB(255, 0, 0));
    EXPECT_EQ(GetPixel(dc, 15, 15), RGB(255, 0, 0));
    ReleaseDC(hwnd, dc);
    EXPECT_TRUE(PumpUntil([&] { return screenPixel(19, 14) == 0x0000FF; }));
    EXPECT_EQ(screenPixel(20, 14), 0xFF0000u);
    XCloseDisplay(other);
}

TEST(WindowDC, KeptDcOfAChildCutByItsParentDrawsWhereOtherDcsDo)
{
    MessageRecorder parents("VorlanPaintCutParent");
    MessageRecorder children("VorlanPaintCutChild", true, CS_OWNDC);
    const HWND parent = parents.Create(WS_POPUP | WS_VISIBLE, 0, 0, 100, 80);
    const HWND child = children.Create(WS_CHILD | WS_VISIBLE, 10, 10, 40, 30, parent);
    WaitUntilMappedAndExposed(parent);
    const HDC kept = GetDC(child);
    MoveWindow(child, -10, 10, 40, 30, FALSE);
    EXPECT_EQ(GetDC(child), kept);
    SetPixel(kept, 15, 5, RGB(255, 0, 0));
    const HDC fresh = GetDCEx(child, nullptr, DCX_CACHE);
    EXPECT_EQ(GetPixel(fresh, 15, 5), RGB(255, 0, 0));
    ReleaseDC(child, fresh);
}

// The custom-frame idiom: a window DC limited by a region in screen
// coordinates, kept or cut away, and the whole-window value of WM_NCPAINT.
TEST(WindowDC, ClipRegionOfGetDCExIsKeptOrCutAwayAndBelongsToTheDC)
{
    MessageRecorder recorder("VorlanDCClipRegion");
    const HWND hwnd = PaintedPopup(recorder, 60, 70, 40, 20);
    const COLORREF red = RGB(255, 0, 0), white = RGB(255, 255, 255);
    auto paint = [&](HRGN region, DWORD flags, COLORREF colour) {
        HDC hdc = GetDCEx(hwnd, region, DCX_WINDOW | flags);
        EXPECT_NE(hdc, nullptr);
        HBRUSH brush = CreateSolidBrush(colour);
        RECT all = {0, 0, 40, 20};
        FillRect(hdc, &all, brush);
        DeleteObject(brush);
        ReleaseDC(hwnd, hdc);
    };
    auto leftAndRight = [&] {
        HDC hdc = GetWindowDC(hwnd);
        const std::vector<COLORREF> pixels = {GetPixel(hdc, 5, 10), GetPixel(hdc, 35, 10)};
        ReleaseDC(hwnd, hdc);
        return pixels;
    };
    struct Case {
        DWORD flags;
        std::vector<COLORREF> expected;
    };
    const Case cases[] = {
        {DCX_INTERSECTRGN, {red, white}},
        {DCX_EXCLUDERGN, {white, red}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.flags);
        paint(reinterpret_cast<HRGN>(1), DCX_INTERSECTRGN, white);
        // The left half of the window, on the screen.
        HRGN left = CreateRectRgn(60, 70, 80, 90);
        paint(left, c.flags, red);
        EXPECT_EQ(leftAndRight(), c.expected);
        EXPECT_EQ(GetObjectType(left), 0u) << "the DC took the region";
    }
    paint(reinterpret_cast<HRGN>(1), DCX_INTERSECTRGN, red);
    EXPECT_EQ(leftAndRight(), (std::vector<COLORREF>{red, red}));

    HRGN forged = reinterpret_cast<HRGN>(0x70040000 | 0x3FFF);
    SetLastError(0);
    EXPECT_EQ(GetDCEx(hwnd, forged, DCX_WINDOW | DCX_INTERSECTRGN), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    DestroyWindow(hwnd);
}
