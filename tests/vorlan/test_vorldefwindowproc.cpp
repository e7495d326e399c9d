// DefWindowProcA/W on windows of recording classes.
#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlthread.h"
#include "support/message_recorder.h"
#include "support/queue_helpers.h"

#include <string>

using vorlan_test::MessageRecorder;
using vorlan_test::RecordedMessage;

namespace {

LPARAM PointParam(int x, int y)
{
    return static_cast<LPARAM>(static_cast<DWORD>(MAKELONG(static_cast<WORD>(x), static_cast<WORD>(y))));
}

POINT PointOfParam(LPARAM lParam)
{
    return {static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam))};
}

std::u16string TitleOf(HWND hwnd)
{
    char16_t buffer[64] = {};
    GetWindowTextW(hwnd, reinterpret_cast<LPWSTR>(buffer), 64);
    return buffer;
}

// A top-level popup with a child and a grandchild, all of one recording
// class that passes everything to the default procedure.
struct Family {
    explicit Family(MessageRecorder &recorder, DWORD midExStyle = 0)
    {
        top = recorder.Create(WS_POPUP, 100, 100, 300, 200);
        mid = recorder.Create(WS_CHILD | WS_VISIBLE, 10, 20, 200, 150, top, midExStyle);
        leaf = recorder.Create(WS_CHILD | WS_VISIBLE, 30, 40, 100, 80, mid);
        recorder.Clear();
    }
    HWND top = nullptr;
    HWND mid = nullptr;
    HWND leaf = nullptr;
};

WINDOWPOS SizeChange(HWND hwnd, int cx, int cy, UINT flags = SWP_NOZORDER | SWP_NOMOVE)
{
    WINDOWPOS wp = {};
    wp.hwnd = hwnd;
    wp.cx = cx;
    wp.cy = cy;
    wp.flags = flags;
    return wp;
}

// Each test records the messages of windows of one class.
class DefaultProcedure : public ::testing::Test {
protected:
    // A 50 x 50 top-level popup at the given place, with nothing recorded yet.
    HWND Popup(int x = 0, int y = 0)
    {
        const HWND hwnd = recorder.Create(WS_POPUP, x, y, 50, 50);
        EXPECT_NE(hwnd, nullptr);
        recorder.Clear();
        return hwnd;
    }

    MessageRecorder recorder{"VorlanDefaultProcedure"};
};

} // namespace

TEST_F(DefaultProcedure, UnknownMessagesGiveZeroAndSendNothingOthersHaveFixedAnswers)
{
    const HWND hwnd = Popup();
    EXPECT_EQ(DefWindowProcW(hwnd, WM_USER + 321, 1, 2), 0);
    EXPECT_EQ(DefWindowProcA(hwnd, WM_APP + 5, 1, 2), 0);
    EXPECT_EQ(DefWindowProcW(hwnd, WM_GETMINMAXINFO, 0, 0), 0);
    EXPECT_TRUE(recorder.messages().empty());
    EXPECT_EQ(DefWindowProcW(hwnd, WM_VKEYTOITEM, 'A', 0), -1);
    EXPECT_EQ(DefWindowProcW(hwnd, WM_NCACTIVATE, FALSE, 0), 1);
    EXPECT_EQ(DefWindowProcA(hwnd, WM_NCACTIVATE, TRUE, 0), 1);
    // The control colours are colour indexes plus one, not brush handles.
    EXPECT_EQ(DefWindowProcW(hwnd, WM_CTLCOLOREDIT, 0, 0), COLOR_WINDOW + 1);
    EXPECT_EQ(DefWindowProcW(hwnd, WM_CTLCOLORSTATIC, 0, 0), COLOR_BTNFACE + 1);
    // No class brush: the background is left alone.
    EXPECT_EQ(DefWindowProcW(hwnd, WM_ERASEBKGND, 0, 0), 0);
    DestroyWindow(hwnd);
    EXPECT_EQ(DefWindowProcW(hwnd, WM_VKEYTOITEM, 0, 0), 0);
}

// A memory DC on a white 40 x 30 bitmap.
struct WhiteCanvas {
    WhiteCanvas()
        : hdc(CreateCompatibleDC(nullptr)), bitmap(CreateBitmap(40, 30, 1, GetDeviceCaps(hdc, BITSPIXEL), nullptr))
    {
        old = SelectObject(hdc, bitmap);
        PatBlt(hdc, 0, 0, 40, 30, WHITENESS);
    }
    ~WhiteCanvas()
    {
        SelectObject(hdc, old);
        DeleteObject(bitmap);
        DeleteDC(hdc);
    }
    HDC hdc;
    HBITMAP bitmap;
    HGDIOBJ old;
};

// The erase fills the client area, in the DC it is given, with the class
// brush, and a list box item's focus is drawn as a focus rectangle.
TEST(DefaultProcedurePainting, EraseUsesTheClassBrushAndListBoxFocusDrawsAFocusRectangle)
{
    const COLORREF red = RGB(200, 0, 0);
    HBRUSH brush = CreateSolidBrush(red);
    WNDCLASSW wc = {};
    wc.lpfnWndProc = DefWindowProcW;
    wc.hbrBackground = brush;
    wc.lpszClassName = reinterpret_cast<LPCWSTR>(u"VorlanEraseClass");
    ASSERT_NE(RegisterClassW(&wc), 0);
    const HWND hwnd = CreateWindowExW(0, wc.lpszClassName, nullptr, WS_POPUP, 0, 0, 30, 20, nullptr, nullptr,
                                      nullptr, nullptr);
    WhiteCanvas canvas;
    EXPECT_EQ(DefWindowProcW(hwnd, WM_ERASEBKGND, reinterpret_cast<WPARAM>(canvas.hdc), 0), 1);
    EXPECT_EQ(GetPixel(canvas.hdc, 0, 0), red);
    EXPECT_EQ(GetPixel(canvas.hdc, 29, 19), red);
    EXPECT_EQ(GetPixel(canvas.hdc, 30, 19), RGB(255, 255, 255));
    EXPECT_EQ(GetPixel(canvas.hdc, 29, 20), RGB(255, 255, 255));

    WhiteCanvas focus;
    DRAWITEMSTRUCT item = {};
    item.CtlType = ODT_LISTBOX;
    item.itemAction = ODA_FOCUS;
    item.hDC = focus.hdc;
    item.rcItem = {5, 5, 25, 15};
    EXPECT_EQ(DefWindowProcW(hwnd, WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item)), 0);
    int marked = 0;
    for (int x = 5; x < 25; ++x)
        marked += GetPixel(focus.hdc, x, 5) != RGB(255, 255, 255);
    EXPECT_GE(marked, 5) << "the top edge of the focus rectangle";
    EXPECT_EQ(GetPixel(focus.hdc, 10, 10), RGB(255, 255, 255));
    item.itemAction = ODA_DRAWENTIRE;
    item.rcItem = {30, 20, 38, 28};
    DefWindowProcW(hwnd, WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(GetPixel(focus.hdc, 30, 20), RGB(255, 255, 255));
    DestroyWindow(hwnd);
    UnregisterClassW(wc.lpszClassName, nullptr);
    DeleteObject(brush);
}

// --- creation and text ---------------------------------------------------

TEST_F(DefaultProcedure, NcCreateStoresTheTitleOfTheCreateStructOnlyWhenPassedOn)
{
    std::u16string before;
    std::u16string after;
    LRESULT answer = 0;
    recorder.Answer(WM_NCCREATE, [&](HWND hwnd, WPARAM wParam, LPARAM lParam) {
        before = TitleOf(hwnd);
        answer = DefWindowProcW(hwnd, WM_NCCREATE, wParam, lParam);
        after = TitleOf(hwnd);
        return answer;
    });
    const HWND hwnd = recorder.Create(WS_POPUP, 0, 0, 50, 50, nullptr, 0, 0, u"Caption");
    ASSERT_NE(hwnd, nullptr);
    EXPECT_EQ(before, u"");
    EXPECT_EQ(answer, TRUE);
    EXPECT_EQ(after, u"Caption");
    EXPECT_EQ(TitleOf(hwnd), u"Caption");

    recorder.Answer(WM_NCCREATE, [](HWND, WPARAM, LPARAM) { return TRUE; });
    const HWND untitled = recorder.Create(WS_POPUP, 0, 0, 50, 50, nullptr, 0, 0, u"Caption");
    ASSERT_NE(untitled, nullptr);
    EXPECT_EQ(TitleOf(untitled), u"");
}

TEST(DefaultProcedureAnsi, NcCreateOfAnAnsiWindowReadsAnAnsiTitle)
{
    MessageRecorder recorder("VorlanDefNcCreateAnsi", false);
    const HWND hwnd = CreateWindowExA(0, recorder.className(), "Narrow", WS_POPUP, 0, 0, 50, 50, nullptr, nullptr,
                                      nullptr, nullptr);
    ASSERT_NE(hwnd, nullptr);
    char buffer[16] = {};
    EXPECT_EQ(GetWindowTextA(hwnd, buffer, 16), 6);
    EXPECT_STREQ(buffer, "Narrow");
    // Called directly, the ANSI default procedure reads an ANSI create struct.
    CREATESTRUCTA cs = {};
    cs.lpszName = "Again";
    EXPECT_EQ(DefWindowProcA(hwnd, WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&cs)), TRUE);
    EXPECT_EQ(TitleOf(hwnd), u"Again");
    DestroyWindow(hwnd);
}

TEST_F(DefaultProcedure, TextMessagesCountInTheCallersForm)
{
    const HWND hwnd = Popup();
    // U+00FC takes two bytes in UTF-8 but one unit in UTF-16.
    const char16_t text[] = u"gr\u00fcn";
    EXPECT_EQ(DefWindowProcW(hwnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)), 1);
    EXPECT_EQ(DefWindowProcW(hwnd, WM_GETTEXTLENGTH, 0, 0), 4);
    char16_t wide[8] = {u'x', u'x', u'x'};
    EXPECT_EQ(DefWindowProcW(hwnd, WM_GETTEXT, 3, reinterpret_cast<LPARAM>(wide)), 2);
    EXPECT_EQ(std::u16string(wide), u"gr");
    // A zero size writes nothing.
    wide[0] = u'Q';
    EXPECT_EQ(DefWindowProcW(hwnd, WM_GETTEXT, 0, reinterpret_cast<LPARAM>(wide)), 0);
    EXPECT_EQ(wide[0], u'Q');
}

// --- activation and geometry ---------------------------------------------

TEST_F(DefaultProcedure, MouseActivateActivatesATopLevelWindowAndAsksAChildsParent)
{
    const HWND top = Popup();
    const LPARAM click = MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN);
    EXPECT_EQ(DefWindowProcW(top, WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(top), click), MA_ACTIVATE);
    MessageRecorder parents("VorlanDefMouseActivateParent");
    parents.Answer(WM_MOUSEACTIVATE, [](HWND, WPARAM, LPARAM) { return MA_NOACTIVATEANDEAT; });
    const HWND parent = parents.Create(WS_POPUP, 0, 0, 100, 100);
    const HWND child = recorder.Create(WS_CHILD, 0, 0, 50, 50, parent);
    ASSERT_NE(child, nullptr);
    parents.Clear();
    const LPARAM lParam = MAKELPARAM(HTCLIENT, WM_RBUTTONDOWN);
    EXPECT_EQ(DefWindowProcW(child, WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(parent), lParam),
              MA_NOACTIVATEANDEAT);
    const auto asked = parents.Of(parent, WM_MOUSEACTIVATE);
    ASSERT_EQ(asked.size(), 1u);
    EXPECT_EQ(asked[0].wParam, reinterpret_cast<WPARAM>(parent));
    EXPECT_EQ(asked[0].lParam, lParam);
}

TEST_F(DefaultProcedure, PosChangingKeepsSizableWindowsWithinTrackingLimitsAndLeavesOthersAlone)
{
    const HWND hwnd = recorder.Create(WS_OVERLAPPED, 0, 0, 200, 200);
    ASSERT_NE(hwnd, nullptr);
    recorder.Clear();
    // Without an answer the limits are 100 x 30 to 1024 x 768.
    WINDOWPOS small = SizeChange(hwnd, 10, 5);
    EXPECT_EQ(DefWindowProcW(hwnd, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&small)), 0);
    EXPECT_EQ(small.cx, 100);
    EXPECT_EQ(small.cy, 30);
    EXPECT_EQ(recorder.Of(hwnd, WM_GETMINMAXINFO).size(), 1u);
    WINDOWPOS large = SizeChange(hwnd, 5000, 4000);
    DefWindowProcW(hwnd, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&large));
    EXPECT_EQ(large.cx, 1024);
    EXPECT_EQ(large.cy, 768);

    // Fixed-size windows and changes without a size are left alone.
    const HWND popup = recorder.Create(WS_POPUP, 0, 0, 200, 200);
    const HWND child = recorder.Create(WS_CHILD, 0, 0, 50, 50, popup);
    const HWND sizablePopup = recorder.Create(WS_POPUP | WS_THICKFRAME, 0, 0, 200, 200);
    const HWND sizableChild = recorder.Create(WS_CHILD | WS_THICKFRAME, 0, 0, 50, 50, popup);
    ASSERT_NE(sizableChild, nullptr);
    for (HWND fixed : {popup, child}) {
        WINDOWPOS wp = SizeChange(fixed, 10, 5);
        DefWindowProcW(fixed, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&wp));
        EXPECT_EQ(wp.cx, 10);
        EXPECT_EQ(wp.cy, 5);
    }
    for (HWND sizable : {sizablePopup, sizableChild}) {
        WINDOWPOS wp = SizeChange(sizable, 10, 5);
        DefWindowProcW(sizable, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&wp));
        EXPECT_EQ(wp.cx, 100);
        EXPECT_EQ(wp.cy, 30);
    }
    WINDOWPOS noSize = SizeChange(sizablePopup, 10, 5, SWP_NOSIZE | SWP_NOZORDER);
    DefWindowProcW(sizablePopup, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&noSize));
    EXPECT_EQ(noSize.cx, 10);
    EXPECT_EQ(noSize.cy, 5);
    EXPECT_EQ(DefWindowProcW(sizablePopup, WM_WINDOWPOSCHANGING, 0, 0), 0);

    // The window's answer to WM_GETMINMAXINFO sets the limits; the maximum
    // wins over the minimum.
    MINMAXINFO offered = {};
    recorder.Answer(WM_GETMINMAXINFO, [&](HWND, WPARAM, LPARAM lParam) {
        auto *mmi = reinterpret_cast<MINMAXINFO *>(lParam);
        offered = *mmi;
        mmi->ptMinTrackSize = {250, 120};
        mmi->ptMaxTrackSize = {240, 400};
        return 0;
    });
    WINDOWPOS answered = SizeChange(hwnd, 10, 500);
    DefWindowProcW(hwnd, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&answered));
    EXPECT_EQ(offered.ptMinTrackSize.x, 100);
    EXPECT_EQ(offered.ptMinTrackSize.y, 30);
    EXPECT_EQ(offered.ptMaxTrackSize.x, 1024);
    EXPECT_EQ(offered.ptMaxTrackSize.y, 768);
    EXPECT_EQ(answered.cx, 240);
    EXPECT_EQ(answered.cy, 400);
}

TEST_F(DefaultProcedure, PosChangedReportsTheClientOriginAndSizeUnlessThePrivateFlagsSayTheyStayed)
{
    const HWND parent = recorder.Create(WS_POPUP, 40, 50, 300, 200);
    // A border of one pixel puts the client area inside the window.
    const HWND child = recorder.Create(WS_CHILD | WS_BORDER, 5, 6, 50, 40, parent);
    ASSERT_NE(child, nullptr);
    recorder.Clear();
    WINDOWPOS wp = SizeChange(child, 50, 40, SWP_NOZORDER);
    EXPECT_EQ(DefWindowProcW(child, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&wp)), 0);
    EXPECT_EQ(recorder.Sequence({child}), (std::vector<std::string>{"0:MOVE", "0:SIZE"}));
    const auto move = recorder.Of(child, WM_MOVE);
    const auto size = recorder.Of(child, WM_SIZE);
    ASSERT_EQ(move.size(), 1u);
    ASSERT_EQ(size.size(), 1u);
    EXPECT_EQ(move[0].lParam, MAKELPARAM(6, 7));
    EXPECT_EQ(size[0].wParam, static_cast<WPARAM>(SIZE_RESTORED));
    EXPECT_EQ(size[0].lParam, MAKELPARAM(48, 38));

    // A top-level window's client origin is in screen coordinates.
    recorder.Clear();
    WINDOWPOS top = SizeChange(parent, 300, 200, SWP_NOZORDER);
    DefWindowProcW(parent, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&top));
    ASSERT_EQ(recorder.Of(parent, WM_MOVE).size(), 1u);
    EXPECT_EQ(recorder.Of(parent, WM_MOVE)[0].lParam, MAKELPARAM(40, 50));

    const HWND popup = Popup();
    const UINT kClientSizeStays = 0x800;
    const UINT kClientStays = 0x1000;
    WINDOWPOS sizeStays = SizeChange(popup, 50, 50, SWP_NOZORDER | kClientSizeStays);
    DefWindowProcW(popup, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&sizeStays));
    EXPECT_EQ(recorder.Sequence({popup}), (std::vector<std::string>{"0:MOVE"}));
    recorder.Clear();
    WINDOWPOS placeStays = SizeChange(popup, 50, 50, SWP_NOZORDER | kClientStays);
    DefWindowProcW(popup, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&placeStays));
    EXPECT_EQ(recorder.Sequence({popup}), (std::vector<std::string>{"0:SIZE"}));
    recorder.Clear();
    WINDOWPOS bothStay = SizeChange(popup, 50, 50, SWP_NOZORDER | kClientStays | kClientSizeStays);
    DefWindowProcW(popup, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&bothStay));
    EXPECT_TRUE(recorder.messages().empty());
}

// --- messages that climb the tree ----------------------------------------

TEST_F(DefaultProcedure, ParentNotifyClimbsWithTheClickPointInEachParentsCoordinatesUpToANoParentNotifyWindow)
{
    Family family(recorder);
    ASSERT_NE(family.leaf, nullptr);
    // The leaf was clicked at (3, 4) of its client area: mid hears it in its
    // own coordinates first.
    const WPARAM click = MAKEWPARAM(WM_LBUTTONDOWN, 0);
    SendMessageW(family.mid, WM_PARENTNOTIFY, click, PointParam(33, 44));
    const auto atMid = recorder.Of(family.mid, WM_PARENTNOTIFY);
    const auto atTop = recorder.Of(family.top, WM_PARENTNOTIFY);
    ASSERT_EQ(atMid.size(), 1u);
    ASSERT_EQ(atTop.size(), 1u);
    EXPECT_EQ(atTop[0].wParam, click);
    EXPECT_EQ(atTop[0].lParam, PointParam(43, 64));

    // Other notices pass on unchanged.
    recorder.Clear();
    const WPARAM created = MAKEWPARAM(WM_CREATE, 9);
    SendMessageW(family.mid, WM_PARENTNOTIFY, created, reinterpret_cast<LPARAM>(family.leaf));
    ASSERT_EQ(recorder.Of(family.top, WM_PARENTNOTIFY).size(), 1u);
    EXPECT_EQ(recorder.Of(family.top, WM_PARENTNOTIFY)[0].lParam, reinterpret_cast<LPARAM>(family.leaf));

    // A negative point stays negative on the way.
    recorder.Clear();
    SendMessageW(family.mid, WM_PARENTNOTIFY, MAKEWPARAM(WM_RBUTTONDOWN, 0), PointParam(-15, -25));
    ASSERT_EQ(recorder.Of(family.top, WM_PARENTNOTIFY).size(), 1u);
    const POINT pt = PointOfParam(recorder.Of(family.top, WM_PARENTNOTIFY)[0].lParam);
    EXPECT_EQ(pt.x, -5);
    EXPECT_EQ(pt.y, -5);

    // It stops at a window with WS_EX_NOPARENTNOTIFY.
    Family quiet(recorder, WS_EX_NOPARENTNOTIFY);
    ASSERT_NE(quiet.leaf, nullptr);
    SendMessageW(quiet.mid, WM_PARENTNOTIFY, MAKEWPARAM(WM_MBUTTONDOWN, 0), PointParam(1, 1));
    EXPECT_EQ(recorder.Of(quiet.mid, WM_PARENTNOTIFY).size(), 1u);
    EXPECT_FALSE(recorder.Saw(quiet.top, WM_PARENTNOTIFY));
}

TEST_F(DefaultProcedure, ContextMenuFromTheRightButtonGoesUpToEveryAncestorTheWheelToTheParent)
{
    Family family(recorder);
    ASSERT_NE(family.leaf, nullptr);
    const LPARAM where = PointParam(150, 160);
    EXPECT_EQ(DefWindowProcW(family.leaf, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(family.leaf), where), 0);
    EXPECT_EQ(recorder.Sequence({family.top, family.mid, family.leaf}),
              (std::vector<std::string>{"1:CONTEXTMENU", "0:CONTEXTMENU"}));
    for (const RecordedMessage &m : recorder.messages()) {
        EXPECT_EQ(m.wParam, reinterpret_cast<WPARAM>(family.leaf));
        EXPECT_EQ(m.lParam, where);
    }

    // The right button asks at the screen point; the leaf's client origin
    // lies at 100 + 10 + 30, 100 + 20 + 40.
    recorder.Clear();
    EXPECT_EQ(DefWindowProcW(family.leaf, WM_RBUTTONUP, 0, PointParam(5, -6)), 0);
    EXPECT_EQ(recorder.Sequence({family.top, family.mid, family.leaf}),
              (std::vector<std::string>{"2:CONTEXTMENU", "1:CONTEXTMENU", "0:CONTEXTMENU"}));
    const auto menu = recorder.Of(family.leaf, WM_CONTEXTMENU);
    ASSERT_EQ(menu.size(), 1u);
    EXPECT_EQ(menu[0].wParam, reinterpret_cast<WPARAM>(family.leaf));
    const POINT pt = PointOfParam(menu[0].lParam);
    EXPECT_EQ(pt.x, 145);
    EXPECT_EQ(pt.y, 154);

    recorder.Answer(WM_MOUSEWHEEL, [](HWND, WPARAM, LPARAM) { return 0; });
    EXPECT_EQ(DefWindowProcW(family.leaf, WM_MOUSEWHEEL, MAKEWPARAM(0, 120), PointParam(1, 2)), 0);
    const auto wheel = recorder.Of(family.mid, WM_MOUSEWHEEL);
    ASSERT_EQ(wheel.size(), 1u);
    EXPECT_EQ(wheel[0].wParam, MAKEWPARAM(0, 120));
    EXPECT_EQ(wheel[0].lParam, PointParam(1, 2));
}

TEST_F(DefaultProcedure, AppsKeyAndShiftF10AskForAKeyboardContextMenu)
{
    vorlan_test::ResetCurrentThreadQueues();
    const HWND hwnd = Popup();
    recorder.Answer(WM_CONTEXTMENU, [](HWND, WPARAM, LPARAM) { return 0; });
    DefWindowProcW(hwnd, WM_KEYDOWN, VK_APPS, 0);
    const auto menu = recorder.Of(hwnd, WM_CONTEXTMENU);
    ASSERT_EQ(menu.size(), 1u);
    EXPECT_EQ(menu[0].wParam, reinterpret_cast<WPARAM>(hwnd));
    EXPECT_EQ(menu[0].lParam, -1);
    // F10 without Shift is no request.
    recorder.Clear();
    DefWindowProcW(hwnd, WM_KEYDOWN, VK_F10, 0);
    EXPECT_FALSE(recorder.Saw(hwnd, WM_CONTEXTMENU));
    {
        vorlan::GtkCriticalSection lock;
        ThreadData::GetCurrentThreadData()->keyState[VK_SHIFT] = -128;
    }
    DefWindowProcW(hwnd, WM_KEYDOWN, VK_F10, 0);
    vorlan_test::ResetCurrentThreadQueues();
    const auto shifted = recorder.Of(hwnd, WM_CONTEXTMENU);
    ASSERT_EQ(shifted.size(), 1u);
    EXPECT_EQ(shifted[0].lParam, -1);
}

TEST_F(DefaultProcedure, HelpGoesToTheParentAndF1AsksTheWindowItself)
{
    Family family(recorder);
    ASSERT_NE(family.leaf, nullptr);
    SetWindowLongPtrW(family.leaf, GWLP_ID, 42);
    HELPINFO seen = {};
    recorder.Answer(WM_HELP, [&](HWND hwnd, WPARAM wParam, LPARAM lParam) {
        if (hwnd == family.leaf)
            seen = *reinterpret_cast<HELPINFO *>(lParam);
        return DefWindowProcW(hwnd, WM_HELP, wParam, lParam);
    });
    EXPECT_EQ(DefWindowProcW(family.leaf, WM_KEYF1, 0, 0), 0);
    EXPECT_EQ(recorder.Sequence({family.top, family.mid, family.leaf}),
              (std::vector<std::string>{"2:HELP", "1:HELP", "0:HELP"}));
    EXPECT_EQ(seen.iContextType, HELPINFO_WINDOW);
    EXPECT_EQ(seen.iCtrlId, 42);
    EXPECT_EQ(seen.hItemHandle, family.leaf);
    EXPECT_EQ(DefWindowProcW(family.leaf, WM_HELP, 0, 0), 1);
}

// --- closing and commands ------------------------------------------------

TEST_F(DefaultProcedure, CloseAndTheCloseCommandDestroyTheWindow)
{
    const HWND hwnd = Popup();
    EXPECT_EQ(DefWindowProcW(hwnd, WM_CLOSE, 0, 0), 0);
    EXPECT_FALSE(IsWindow(hwnd));
    EXPECT_TRUE(recorder.Saw(hwnd, WM_DESTROY));
    const HWND other = Popup();
    EXPECT_EQ(DefWindowProcW(other, WM_SYSCOMMAND, SC_CLOSE, 0), 0);
    EXPECT_EQ(recorder.Sequence({other}, {WM_CLOSE, WM_DESTROY}), (std::vector<std::string>{"0:CLOSE", "0:DESTROY"}));
    EXPECT_FALSE(IsWindow(other));
}

TEST_F(DefaultProcedure, SysCharAndAReleasedAltAskTheRootForTheKeyboardMenu)
{
    const HWND hwnd = Popup();
    DefWindowProcW(hwnd, WM_SYSCHAR, 'f', 0);
    DefWindowProcW(hwnd, WM_SYSCHAR, 0, 0);
    const auto commands = recorder.Of(hwnd, WM_SYSCOMMAND);
    ASSERT_EQ(commands.size(), 1u);
    EXPECT_EQ(commands[0].wParam, static_cast<WPARAM>(SC_KEYMENU));
    EXPECT_EQ(commands[0].lParam, 'f');

    Family family(recorder);
    ASSERT_NE(family.leaf, nullptr);
    DefWindowProcW(family.leaf, WM_SYSKEYUP, VK_MENU, 0);
    DefWindowProcW(family.leaf, WM_SYSKEYUP, 'X', 0);
    EXPECT_EQ(recorder.Sequence({family.top, family.mid, family.leaf}, {WM_SYSCOMMAND}),
              (std::vector<std::string>{"0:0x0112"}));
    EXPECT_EQ(recorder.Of(family.top, WM_SYSCOMMAND)[0].wParam, static_cast<WPARAM>(SC_KEYMENU));
    EXPECT_EQ(recorder.Of(family.top, WM_SYSCOMMAND)[0].lParam, 0);
}

TEST_F(DefaultProcedure, ImeCharIsPostedAsACharacter)
{
    vorlan_test::ResetCurrentThreadQueues();
    const HWND hwnd = Popup();
    EXPECT_EQ(DefWindowProcW(hwnd, WM_IME_CHAR, 0x4E2D, 7), 0);
    MSG msg = {};
    ASSERT_TRUE(PeekMessageW(&msg, hwnd, WM_CHAR, WM_CHAR, PM_REMOVE));
    EXPECT_EQ(msg.wParam, 0x4E2Du);
    EXPECT_EQ(msg.lParam, 7);
}

TEST_F(DefaultProcedure, SetCursorAsksTheParentFirst)
{
    MessageRecorder parents("VorlanDefCursorParent");
    MessageRecorder &children = recorder;
    LRESULT parentAnswer = 1;
    parents.Answer(WM_SETCURSOR, [&](HWND, WPARAM, LPARAM) { return parentAnswer; });
    const HWND parent = parents.Create(WS_POPUP, 0, 0, 100, 100);
    const HWND child = children.Create(WS_CHILD, 0, 0, 50, 50, parent);
    ASSERT_NE(child, nullptr);
    parents.Clear();
    const LPARAM where = MAKELPARAM(HTCLIENT, WM_MOUSEMOVE);
    EXPECT_EQ(DefWindowProcW(child, WM_SETCURSOR, reinterpret_cast<WPARAM>(child), where), 1);
    const auto asked = parents.Of(parent, WM_SETCURSOR);
    ASSERT_EQ(asked.size(), 1u);
    EXPECT_EQ(asked[0].wParam, reinterpret_cast<WPARAM>(child));
    EXPECT_EQ(asked[0].lParam, where);
    // The parent declines and the child's class has no cursor: nothing set.
    parentAnswer = 0;
    EXPECT_EQ(DefWindowProcW(child, WM_SETCURSOR, reinterpret_cast<WPARAM>(child), where), 0);
    // A top-level window does not ask the desktop.
    children.Clear();
    const HWND top = children.Create(WS_POPUP, 0, 0, 50, 50);
    EXPECT_EQ(DefWindowProcW(top, WM_SETCURSOR, reinterpret_cast<WPARAM>(top), where), 0);
    EXPECT_EQ(children.Sequence({top}, {WM_SETCURSOR}), std::vector<std::string>{});
}

TEST_F(DefaultProcedure, LostForegroundDeactivatesAndTellsTheApplication)
{
    const HWND hwnd = Popup();
    const HWND other = Popup(60, 0);
    const std::vector<UINT> kinds = {WM_NCACTIVATE, WM_ACTIVATE, WM_ACTIVATEAPP};
    const UINT kLostForeground = WM_USER - 4;

    // The foreground left the process: both top-level windows hear it.
    EXPECT_EQ(SendMessageW(hwnd, kLostForeground, 0, 0), 0);
    const auto sequence = recorder.Sequence({hwnd, other}, kinds);
    ASSERT_GE(sequence.size(), 4u);
    EXPECT_EQ(sequence[0], "0:0x0086");
    EXPECT_EQ(sequence[1], "0:0x0006");
    EXPECT_EQ(recorder.Of(hwnd, WM_ACTIVATE)[0].wParam, MAKEWPARAM(WA_INACTIVE, 0));
    ASSERT_EQ(recorder.Of(hwnd, WM_ACTIVATEAPP).size(), 1u);
    ASSERT_EQ(recorder.Of(other, WM_ACTIVATEAPP).size(), 1u);
    EXPECT_EQ(recorder.Of(other, WM_ACTIVATEAPP)[0].wParam, static_cast<WPARAM>(FALSE));
    EXPECT_EQ(GetActiveWindow(), nullptr);

    // It moved to another window of this thread: no application notice.
    recorder.Clear();
    SendMessageW(hwnd, kLostForeground, 0, reinterpret_cast<LPARAM>(other));
    EXPECT_EQ(recorder.Of(hwnd, WM_ACTIVATE)[0].lParam, reinterpret_cast<LPARAM>(other));
    EXPECT_FALSE(recorder.Saw(hwnd, WM_ACTIVATEAPP));
    EXPECT_FALSE(recorder.Saw(other, WM_ACTIVATEAPP));

    // A child is no top-level window: no deactivation of its own.
    const HWND child = recorder.Create(WS_CHILD, 0, 0, 10, 10, hwnd);
    recorder.Clear();
    SendMessageW(child, kLostForeground, 0, reinterpret_cast<LPARAM>(other));
    EXPECT_TRUE(recorder.Sequence({child}, kinds).empty());
}
