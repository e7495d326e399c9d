// WM_NCPAINT of undecorated frames, the non-client mouse messages, and the
// sizing loop they lead to, on real windows of the private display.
#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlxwindow.h"
#include "support/gtk_helpers.h"
#include "support/message_recorder.h"

#include <string>
#include <thread>
#include <vector>

using vorlan_test::MessageRecorder;
using vorlan_test::PumpUntil;

namespace {

const COLORREF kFill = RGB(0, 200, 0);

void DrainMessages()
{
    MSG msg;
    for (int guard = 0; guard < 1000 && PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE); ++guard)
        DispatchMessageW(&msg);
}

// A shown window whose painting after the map is over.
HWND ShownWindow(MessageRecorder &recorder, DWORD style, DWORD exStyle, int cx = 80, int cy = 60)
{
    const HWND hwnd = recorder.Create(WS_POPUP | WS_VISIBLE | style, 40, 40, cx, cy, nullptr, exStyle);
    PumpUntil([&] {
        vorlan::GtkCriticalSection lock;
        return gdk_window_is_viewable(GetGdkWindow(hwnd)) != FALSE;
    });
    PumpUntil(
        [] {
            DrainMessages();
            return false;
        },
        150);
    DrainMessages();
    return hwnd;
}

// Fills the whole window, frame included, then has the default procedure
// paint the frame.
void FillAndPaintFrame(HWND hwnd)
{
    HDC hdc = GetWindowDC(hwnd);
    RECT all = {0, 0, 1000, 1000};
    HBRUSH fill = CreateSolidBrush(kFill);
    FillRect(hdc, &all, fill);
    DeleteObject(fill);
    ReleaseDC(hwnd, hdc);
    DefWindowProcW(hwnd, WM_NCPAINT, 1, 0);
}

// The pixels at window coordinates.
std::vector<COLORREF> PixelsAt(HWND hwnd, std::initializer_list<POINT> points)
{
    HDC hdc = GetWindowDC(hwnd);
    std::vector<COLORREF> colours;
    for (POINT pt : points)
        colours.push_back(GetPixel(hdc, pt.x, pt.y));
    ReleaseDC(hwnd, hdc);
    return colours;
}

TEST(NonClientPaint, BorderIsOnePixelOfTheWindowFrameColour)
{
    MessageRecorder recorder("VorlanNcBorder");
    const HWND hwnd = ShownWindow(recorder, WS_BORDER, 0);
    FillAndPaintFrame(hwnd);
    HDC hdc = GetWindowDC(hwnd);
    const COLORREF frame = GetNearestColor(hdc, GetSysColor(COLOR_WINDOWFRAME));
    ReleaseDC(hwnd, hdc);
    const std::vector<COLORREF> expected = {frame, frame, frame, frame, kFill, kFill};
    EXPECT_EQ(PixelsAt(hwnd, {{0, 0}, {79, 0}, {0, 59}, {79, 59}, {1, 1}, {78, 58}}), expected);
}

// The theme paints the dialog frame and the client edge: each covers its
// strip and leaves what lies inside it alone.
TEST(NonClientPaint, DialogFrameAndClientEdgeCoverTheirStripsOnly)
{
    struct Case {
        DWORD style, exStyle;
        int thickness;
    };
    const Case cases[] = {
        {WS_DLGFRAME, 0, GetSystemMetrics(SM_CXDLGFRAME)},
        {0, WS_EX_CLIENTEDGE, GetSystemMetrics(SM_CXEDGE)},
    };
    MessageRecorder recorder("VorlanNcFrames");
    for (const Case &c : cases) {
        SCOPED_TRACE(c.thickness);
        const HWND hwnd = ShownWindow(recorder, c.style, c.exStyle);
        FillAndPaintFrame(hwnd);
        const int t = c.thickness;
        const std::vector<COLORREF> strips =
            PixelsAt(hwnd, {{0, 30}, {t - 1, 30}, {40, 0}, {79, 30}, {40, 59}});
        for (COLORREF colour : strips)
            EXPECT_NE(colour, kFill);
        const std::vector<COLORREF> inside = {kFill, kFill, kFill};
        EXPECT_EQ(PixelsAt(hwnd, {{t, 30}, {40, t}, {79 - t, 59 - t}}), inside);
        DestroyWindow(hwnd);
    }
}

// With both bars the corner between them is the window background; it
// moves to the left with WS_EX_LEFTSCROLLBAR.
TEST(NonClientPaint, SizeBoxFillsTheCornerBetweenTheBars)
{
    MessageRecorder recorder("VorlanNcSizeBox");
    const int cx = GetSystemMetrics(SM_CXVSCROLL), cy = GetSystemMetrics(SM_CYHSCROLL);
    for (DWORD exStyle : {0ul, static_cast<unsigned long>(WS_EX_LEFTSCROLLBAR)}) {
        SCOPED_TRACE(exStyle);
        const HWND hwnd = ShownWindow(recorder, WS_HSCROLL | WS_VSCROLL, exStyle);
        FillAndPaintFrame(hwnd);
        HDC hdc = GetWindowDC(hwnd);
        const COLORREF face = GetNearestColor(hdc, GetSysColor(COLOR_BTNFACE));
        ReleaseDC(hwnd, hdc);
        const int cornerX = exStyle ? cx / 2 : 80 - cx / 2;
        const int otherX = exStyle ? 80 - cx / 2 : cx / 2;
        EXPECT_EQ(PixelsAt(hwnd, {{cornerX, 60 - cy / 2}})[0], face);
        EXPECT_EQ(PixelsAt(hwnd, {{otherX, 10}})[0], kFill) << "no bar is drawn yet";
        DestroyWindow(hwnd);
    }
}

TEST(NonClientMouse, PressesOverTheFrameBecomeCommands)
{
    struct Case {
        UINT message;
        WPARAM hit;
        UINT expected;     // 0: nothing is sent
        WPARAM expectedWParam;
    };
    MessageRecorder recorder("VorlanNcMouse");
    recorder.Answer(WM_SYSCOMMAND, [](HWND, WPARAM, LPARAM) { return 0; });
    recorder.Answer(WM_CONTEXTMENU, [](HWND, WPARAM, LPARAM) { return 0; });
    const HWND hwnd = recorder.Create(WS_POPUP, 0, 0, 50, 50);
    const Case cases[] = {
        {WM_NCLBUTTONDOWN, HTMENU, WM_SYSCOMMAND, SC_MOUSEMENU},
        {WM_NCLBUTTONDBLCLK, HTMENU, WM_SYSCOMMAND, SC_MOUSEMENU},
        {WM_NCLBUTTONDOWN, HTLEFT, WM_SYSCOMMAND, SC_SIZE | WMSZ_LEFT},
        {WM_NCLBUTTONDOWN, HTTOPRIGHT, WM_SYSCOMMAND, SC_SIZE | WMSZ_TOPRIGHT},
        {WM_NCLBUTTONDOWN, HTBOTTOMRIGHT, WM_SYSCOMMAND, SC_SIZE | WMSZ_BOTTOMRIGHT},
        {WM_NCRBUTTONUP, HTCAPTION, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(hwnd)},
        {WM_NCLBUTTONDOWN, HTCAPTION, 0, 0},
        {WM_NCLBUTTONDOWN, HTHSCROLL, 0, 0},
        {WM_NCMOUSEMOVE, HTMENU, 0, 0},
        {WM_NCLBUTTONUP, HTLEFT, 0, 0},
    };
    const LPARAM point = MAKELPARAM(-5, 7);
    for (const Case &c : cases) {
        SCOPED_TRACE(c.hit);
        recorder.Clear();
        EXPECT_EQ(DefWindowProcW(hwnd, c.message, c.hit, point), 0);
        const auto sent = recorder.Of(hwnd, c.expected ? c.expected : WM_SYSCOMMAND);
        if (c.expected == 0) {
            EXPECT_TRUE(sent.empty());
            EXPECT_FALSE(recorder.Saw(hwnd, WM_CONTEXTMENU));
            continue;
        }
        ASSERT_EQ(sent.size(), 1u);
        EXPECT_EQ(sent[0].wParam, c.expectedWParam);
        EXPECT_EQ(sent[0].lParam, point);
    }
}

// Sizing by the mouse runs its own loop: the messages it reads are queued
// before it starts.
class SizeCommand : public ::testing::Test {
protected:
    SizeCommand() : m_recorder("VorlanSizeLoop") {}

    HWND Window() { return ShownWindow(m_recorder, WS_THICKFRAME, 0, 120, 90); }
    // Queues a pointer message at a screen point.
    void Queue(HWND hwnd, UINT message, POINT screen)
    {
        ScreenToClient(hwnd, &screen);
        PostMessageW(hwnd, message, 0, MAKELPARAM(screen.x, screen.y));
    }
    RECT WindowRect(HWND hwnd)
    {
        RECT rc = {};
        GetWindowRect(hwnd, &rc);
        return rc;
    }
    void Size(HWND hwnd, int code, POINT start)
    {
        SendMessageW(hwnd, WM_SYSCOMMAND, SC_SIZE | code, MAKELPARAM(start.x, start.y));
    }

    MessageRecorder m_recorder;
};

TEST_F(SizeCommand, FollowedEdgesTrackThePointerUntilTheButtonGoesUp)
{
    struct Case {
        int code;
        POINT move;
        RECT delta;  // added to left, top, right, bottom
    };
    const Case cases[] = {
        {WMSZ_BOTTOMRIGHT, {30, 20}, {0, 0, 30, 20}},
        {WMSZ_LEFT, {-25, 40}, {-25, 0, 0, 0}},
        {WMSZ_TOP, {10, 15}, {0, 15, 0, 0}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.code);
        const HWND hwnd = Window();
        const RECT before = WindowRect(hwnd);
        const POINT start = {before.left + 5, before.top + 5};
        const POINT end = {start.x + c.move.x, start.y + c.move.y};
        Queue(hwnd, WM_MOUSEMOVE, end);
        Queue(hwnd, WM_LBUTTONUP, end);
        m_recorder.Clear();
        Size(hwnd, c.code, start);
        const RECT after = WindowRect(hwnd);
        EXPECT_EQ(after.left - before.left, c.delta.left);
        EXPECT_EQ(after.top - before.top, c.delta.top);
        EXPECT_EQ(after.right - before.right, c.delta.right);
        EXPECT_EQ(after.bottom - before.bottom, c.delta.bottom);
        EXPECT_EQ(m_recorder.Sequence({hwnd}, {WM_ENTERSIZEMOVE, WM_EXITSIZEMOVE}),
                  (std::vector<std::string>{"0:ENTERSIZEMOVE", "0:EXITSIZEMOVE"}));
        EXPECT_EQ(GetCapture(), nullptr);
        DestroyWindow(hwnd);
    }
}

TEST_F(SizeCommand, EscapeRestoresTheRectangleAndTheMinimumTrackSizeHolds)
{
    const HWND hwnd = Window();
    const RECT before = WindowRect(hwnd);
    const POINT corner = {before.right - 1, before.bottom - 1};
    Queue(hwnd, WM_MOUSEMOVE, {corner.x + 40, corner.y + 40});
    PostMessageW(hwnd, WM_KEYDOWN, VK_ESCAPE, 0);
    Size(hwnd, WMSZ_BOTTOMRIGHT, corner);
    const RECT restored = WindowRect(hwnd);
    EXPECT_TRUE(EqualRect(&restored, &before));

    // The window's own answer sets the smallest size.
    m_recorder.Answer(WM_GETMINMAXINFO, [](HWND, WPARAM, LPARAM lParam) {
        reinterpret_cast<MINMAXINFO *>(lParam)->ptMinTrackSize = {70, 50};
        return 0;
    });
    Queue(hwnd, WM_LBUTTONUP, {before.left - 500, before.top - 500});
    Size(hwnd, WMSZ_BOTTOMRIGHT, corner);
    const RECT shrunk = WindowRect(hwnd);
    EXPECT_EQ(shrunk.right - shrunk.left, 70);
    EXPECT_EQ(shrunk.bottom - shrunk.top, 50);
    EXPECT_EQ(shrunk.left, before.left);
}

// Forged and destroyed handles reach the frame code through the default
// procedure: nothing is painted, nothing is sent, nothing crashes.
TEST(NonClientBadInput, ForgedAndDeadHandlesGiveZero)
{
    MessageRecorder recorder("VorlanNcBadInput");
    const HWND dead = recorder.Create(WS_POPUP | WS_BORDER, 0, 0, 20, 20);
    DestroyWindow(dead);
    struct Call {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
    };
    RECT rc = {0, 0, 10, 10};
    const Call calls[] = {
        {WM_NCPAINT, 1, 0},
        {WM_NCHITTEST, 0, MAKELPARAM(5, 5)},
        {WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&rc)},
        {WM_NCCALCSIZE, FALSE, 0},
        {WM_NCLBUTTONDOWN, HTLEFT, 0},
        {WM_NCLBUTTONDOWN, HTMENU, 0},
        {WM_NCRBUTTONUP, HTBORDER, 0},
        {WM_SYSCOMMAND, SC_SIZE | WMSZ_LEFT, 0},
        {WM_SYSCOMMAND, SC_SIZE | 0xF, 0},
        {WM_ERASEBKGND, 0, 0},
    };
    for (HWND hwnd : {dead, reinterpret_cast<HWND>(0x4D726577 + 9999), reinterpret_cast<HWND>(-1)}) {
        for (const Call &c : calls) {
            SCOPED_TRACE(c.message);
            EXPECT_EQ(DefWindowProcW(hwnd, c.message, c.wParam, c.lParam), 0);
        }
    }
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_TRUE(recorder.Of(dead, WM_SYSCOMMAND).empty());
}

TEST(Capture, OneWindowOfTheThreadHoldsItAndHearsWhenItGoes)
{
    MessageRecorder recorder("VorlanCapture");
    const HWND first = ShownWindow(recorder, 0, 0);
    const HWND second = ShownWindow(recorder, 0, 0);
    EXPECT_FALSE(ReleaseCapture());
    EXPECT_EQ(SetCapture(first), nullptr);
    EXPECT_EQ(GetCapture(), first);
    recorder.Clear();
    EXPECT_EQ(SetCapture(second), first);
    const auto changed = recorder.Of(first, WM_CAPTURECHANGED);
    ASSERT_EQ(changed.size(), 1u);
    EXPECT_EQ(changed[0].lParam, reinterpret_cast<LPARAM>(second));
    EXPECT_TRUE(ReleaseCapture());
    EXPECT_TRUE(recorder.Saw(second, WM_CAPTURECHANGED));
    EXPECT_EQ(GetCapture(), nullptr);

    std::thread([&] { EXPECT_EQ(SetCapture(first), nullptr) << "another thread's window"; }).join();
    EXPECT_EQ(SetCapture(reinterpret_cast<HWND>(0x1234)), nullptr);
    EXPECT_EQ(GetCapture(), nullptr);
}

} // namespace
