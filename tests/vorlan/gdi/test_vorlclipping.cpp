#include <gtest/gtest.h>

#include "support/dc_test_helpers.h"
#include "gtk/vorlwindow.h"
#include "support/message_recorder.h"

using vorlan_test::MemoryDC;
using vorlan_test::MessageRecorder;
using vorlan_test::RectIs;
using vorlan_test::RegionBox;
using vorlan_test::Scoped;

namespace {

constexpr int kBitmapWidth = 100;
constexpr int kBitmapHeight = 80;

// A memory context with a bitmap of its own selected.
class BitmapDC : public MemoryDC {
public:
    BitmapDC() : m_bitmap(CreateBitmap(kBitmapWidth, kBitmapHeight, 1, 1, nullptr))
    {
        m_old = SelectObject(*this, m_bitmap);
    }
    ~BitmapDC() { SelectObject(*this, m_old); }

private:
    Scoped<HBITMAP> m_bitmap;
    HGDIOBJ m_old;
};

class Region : public Scoped<HRGN> {
public:
    Region(int l, int t, int r, int b) : Scoped(CreateRectRgn(l, t, r, b)) {}
};

// The clip the context keeps, device coordinates; (-1, ...) without one.
RECT ClipRegionBox(HDC hdc)
{
    Region out(0, 0, 0, 0);
    if (GetClipRgn(hdc, out) != 1)
        return RECT{-1, -1, -1, -1};
    return RegionBox(out);
}

int ClipRegionType(HDC hdc)
{
    Region out(0, 0, 0, 0);
    if (GetClipRgn(hdc, out) != 1)
        return -1;
    return GetRgnBox(out, nullptr);
}

bool ClipContains(HDC hdc, int x, int y)
{
    Region out(0, 0, 0, 0);
    return GetClipRgn(hdc, out) == 1 && PtInRegion(out, x, y);
}

RECT ClipBox(HDC hdc, int *type = nullptr)
{
    RECT rc = {-7, -7, -7, -7};
    const int result = GetClipBox(hdc, &rc);
    if (type != nullptr)
        *type = result;
    return rc;
}

bool Visible(HDC hdc, int l, int t, int r, int b)
{
    const RECT rc = {l, t, r, b};
    return RectVisible(hdc, &rc) != FALSE;
}

// Two rectangles of a complex region, selected as the clip.
int SelectTwoRectangleClip(HDC hdc, const RECT &first, const RECT &second)
{
    Region two(first.left, first.top, first.right, first.bottom);
    Region other(second.left, second.top, second.right, second.bottom);
    CombineRgn(two, two, other, RGN_OR);
    return SelectClipRgn(hdc, two);
}

class ContextClip : public ::testing::Test {
protected:
    BitmapDC dc;
};

} // namespace

TEST_F(ContextClip, SelectingReportsWhatIsLeftVisibleAndNullRemovesTheClip)
{
    // A fresh context has no clip; any visible area is complex, one rectangle
    // too.
    Region out(0, 0, 0, 0);
    EXPECT_EQ(GetClipRgn(dc, out), 0);
    int type = 0;
    EXPECT_TRUE(RectIs(ClipBox(dc, &type), 0, 0, kBitmapWidth, kBitmapHeight));
    EXPECT_EQ(type, COMPLEXREGION);

    Region simple(10, 20, 50, 60);
    EXPECT_EQ(SelectClipRgn(dc, simple), SIMPLEREGION);
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 10, 20, 50, 60));
    EXPECT_TRUE(RectIs(ClipBox(dc), 10, 20, 50, 60));
    EXPECT_EQ(SelectTwoRectangleClip(dc, {0, 0, 10, 10}, {30, 30, 40, 40}), COMPLEXREGION);
    EXPECT_EQ(ClipRegionType(dc), COMPLEXREGION);
    // Outside the bitmap: the clip is kept as given, but nothing is visible.
    Region outside(200, 200, 300, 300);
    EXPECT_EQ(SelectClipRgn(dc, outside), NULLREGION);
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 200, 200, 300, 300));
    EXPECT_TRUE(RectIs(ClipBox(dc, &type), 0, 0, 0, 0));
    EXPECT_EQ(type, NULLREGION);
    EXPECT_EQ(SelectClipRgn(dc, nullptr), SIMPLEREGION);
    EXPECT_EQ(GetClipRgn(dc, out), 0);
    EXPECT_TRUE(RectIs(ClipBox(dc), 0, 0, kBitmapWidth, kBitmapHeight));
}

TEST_F(ContextClip, ContextKeepsACopyOfTheCallersRegionAlsoThroughSelectObject)
{
    HRGN region = CreateRectRgn(5, 5, 25, 25);
    ASSERT_EQ(SelectClipRgn(dc, region), SIMPLEREGION);
    // Changing or deleting the caller's region leaves the clip alone.
    SetRectRgn(region, 0, 0, 1, 1);
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 5, 5, 25, 25));
    EXPECT_TRUE(DeleteObject(region));
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 5, 5, 25, 25));
    // GetClipRgn copies too.
    Region out(0, 0, 0, 0);
    ASSERT_EQ(GetClipRgn(dc, out), 1);
    OffsetRgn(out, 50, 50);
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 5, 5, 25, 25));
    // SelectObject with a region gives the type, not a handle.
    Region other(1, 2, 30, 40);
    EXPECT_EQ(reinterpret_cast<INT_PTR>(SelectObject(dc, other)), SIMPLEREGION);
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 1, 2, 30, 40));
}

TEST_F(ContextClip, IntersectingMakesOrNarrowsTheClip)
{
    EXPECT_EQ(IntersectClipRect(dc, 40, 30, 10, 10), SIMPLEREGION) << "corners in either order";
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 10, 10, 40, 30));
    SelectClipRgn(dc, nullptr);
    ASSERT_EQ(IntersectClipRect(dc, 10, 10, 60, 60), SIMPLEREGION);
    EXPECT_EQ(IntersectClipRect(dc, 30, 0, 90, 40), SIMPLEREGION);
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 30, 10, 60, 40));
    // A rectangle beside it leaves nothing, and an empty clip stays empty.
    EXPECT_EQ(IntersectClipRect(dc, 0, 0, 5, 5), NULLREGION);
    EXPECT_EQ(ClipRegionType(dc), NULLREGION);
    EXPECT_EQ(IntersectClipRect(dc, 0, 0, kBitmapWidth, kBitmapHeight), NULLREGION);

    // A complex clip keeps its shape.
    ASSERT_EQ(SelectTwoRectangleClip(dc, {0, 0, 20, 20}, {40, 0, 60, 20}), COMPLEXREGION);
    EXPECT_EQ(IntersectClipRect(dc, 10, 5, 50, 15), COMPLEXREGION);
    EXPECT_TRUE(ClipContains(dc, 15, 10));
    EXPECT_TRUE(ClipContains(dc, 45, 10));
    EXPECT_FALSE(ClipContains(dc, 30, 10));
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 10, 5, 50, 15));
    EXPECT_EQ(IntersectClipRect(dc, 0, 0, 30, 30), SIMPLEREGION);
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 10, 5, 20, 15));
}

TEST_F(ContextClip, ExcludingCutsAHoleInTheWholeSpaceOrNarrowsTheClip)
{
    EXPECT_EQ(ExcludeClipRect(dc, 10, 10, 20, 20), COMPLEXREGION);
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), -32768, -32768, 32767, 32767));
    EXPECT_FALSE(ClipContains(dc, 15, 15));
    EXPECT_TRUE(ClipContains(dc, 25, 15));
    // What is visible is the bitmap without the hole.
    EXPECT_TRUE(RectIs(ClipBox(dc), 0, 0, kBitmapWidth, kBitmapHeight));
    EXPECT_FALSE(Visible(dc, 12, 12, 18, 18));
    EXPECT_TRUE(Visible(dc, 12, 12, 25, 18));

    SelectClipRgn(dc, nullptr);
    ASSERT_EQ(IntersectClipRect(dc, 10, 10, 50, 50), SIMPLEREGION);
    EXPECT_EQ(ExcludeClipRect(dc, 40, 0, 60, 60), SIMPLEREGION) << "a strip off one side";
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 10, 10, 40, 50));
    EXPECT_EQ(ExcludeClipRect(dc, 20, 20, 30, 30), COMPLEXREGION) << "a hole in the middle";
    EXPECT_FALSE(ClipContains(dc, 25, 25));
    EXPECT_EQ(ExcludeClipRect(dc, 60, 60, 0, 0), NULLREGION) << "covering all of it";
    EXPECT_EQ(ClipRegionType(dc), NULLREGION);
}

TEST_F(ContextClip, OffsettingMovesTheClip)
{
    // Without a clip there is nothing to move.
    EXPECT_EQ(OffsetClipRgn(dc, 5, 5), ERROR);
    Region out(0, 0, 0, 0);
    EXPECT_EQ(GetClipRgn(dc, out), 0);
    ASSERT_EQ(IntersectClipRect(dc, 10, 10, 30, 20), SIMPLEREGION);
    EXPECT_EQ(OffsetClipRgn(dc, 5, -3), SIMPLEREGION);
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 15, 7, 35, 17));
    // Moved off the bitmap the clip keeps its shape but shows nothing.
    EXPECT_EQ(OffsetClipRgn(dc, 200, 0), NULLREGION);
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 215, 7, 235, 17));
}

TEST_F(ContextClip, RectVisibleTellsWhetherAnyPartCanBeDrawn)
{
    EXPECT_TRUE(Visible(dc, 0, 0, 10, 10));
    EXPECT_TRUE(Visible(dc, 90, 70, 200, 200));
    EXPECT_FALSE(Visible(dc, 100, 0, 120, 10));
    EXPECT_FALSE(Visible(dc, -20, -20, 0, 0));
    ASSERT_EQ(IntersectClipRect(dc, 10, 10, 30, 30), SIMPLEREGION);
    EXPECT_TRUE(Visible(dc, 29, 29, 40, 40));
    EXPECT_FALSE(Visible(dc, 30, 30, 40, 40));
    EXPECT_TRUE(Visible(dc, 40, 40, 29, 29)) << "corners in either order";
    ASSERT_EQ(IntersectClipRect(dc, 50, 50, 60, 60), NULLREGION);
    EXPECT_FALSE(Visible(dc, 0, 0, kBitmapWidth, kBitmapHeight));
    // Null rectangles are refused.
    SetLastError(0);
    EXPECT_EQ(GetClipBox(dc, nullptr), ERROR);
    EXPECT_EQ(GetLastError(), 87u);
    SetLastError(0);
    EXPECT_FALSE(RectVisible(dc, nullptr));
    EXPECT_EQ(GetLastError(), 87u);
}

TEST_F(ContextClip, RectanglesAreLogicalAndTheClipIsInDeviceUnits)
{
    ASSERT_TRUE(SetViewportOrgEx(dc, 10, 5, nullptr));
    EXPECT_EQ(IntersectClipRect(dc, 0, 0, 20, 20), SIMPLEREGION);
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 10, 5, 30, 25));
    EXPECT_TRUE(RectIs(ClipBox(dc), 0, 0, 20, 20));
    EXPECT_TRUE(Visible(dc, 19, 19, 25, 25));
    EXPECT_FALSE(Visible(dc, 20, 20, 25, 25));
    // The offset is a distance: the origin doesn't add to it.
    EXPECT_EQ(OffsetClipRgn(dc, 3, 4), SIMPLEREGION);
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 13, 9, 33, 29));
    EXPECT_EQ(ExcludeClipRect(dc, 3, 4, 13, 24), SIMPLEREGION);
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 23, 9, 33, 29));
    // A region is taken in device units as it is.
    Region device(0, 0, 10, 10);
    EXPECT_EQ(SelectClipRgn(dc, device), SIMPLEREGION);
    EXPECT_TRUE(RectIs(ClipBox(dc), -10, -5, 0, 5));

    // Logical y growing upwards from device row 40, one unit two pixels.
    SelectClipRgn(dc, nullptr);
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowExtEx(dc, 1, 1, nullptr);
    SetViewportExtEx(dc, 2, -2, nullptr);
    SetViewportOrgEx(dc, 0, 40, nullptr);
    EXPECT_EQ(IntersectClipRect(dc, 0, 0, 10, -10), SIMPLEREGION);
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 0, 40, 20, 60));
    // The box comes back in logical units, the corners as they map.
    int type = 0;
    EXPECT_TRUE(RectIs(ClipBox(dc, &type), 0, 0, 10, -10));
    EXPECT_EQ(type, COMPLEXREGION);
    EXPECT_TRUE(Visible(dc, 9, -9, 12, -12));
    EXPECT_FALSE(Visible(dc, 10, 0, 12, 5));
    EXPECT_EQ(OffsetClipRgn(dc, 5, 5), SIMPLEREGION);
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 10, 30, 30, 50));
    EXPECT_EQ(ExcludeClipRect(dc, 5, 5, 10, -5), SIMPLEREGION);
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 20, 30, 30, 50));
}

TEST_F(ContextClip, RestoringBringsBackTheSavedClipOrNone)
{
    ASSERT_EQ(SaveDC(dc), 1);
    ASSERT_EQ(IntersectClipRect(dc, 10, 10, 50, 50), SIMPLEREGION);
    ASSERT_EQ(SaveDC(dc), 2);
    EXPECT_EQ(IntersectClipRect(dc, 20, 20, 30, 30), SIMPLEREGION);
    ASSERT_EQ(SaveDC(dc), 3);
    EXPECT_EQ(SelectClipRgn(dc, nullptr), SIMPLEREGION);
    ASSERT_EQ(SaveDC(dc), 4);
    EXPECT_EQ(ExcludeClipRect(dc, 0, 0, 5, 5), COMPLEXREGION);

    ASSERT_TRUE(RestoreDC(dc, -1));
    Region out(0, 0, 0, 0);
    EXPECT_EQ(GetClipRgn(dc, out), 0);
    EXPECT_TRUE(RectIs(ClipBox(dc), 0, 0, kBitmapWidth, kBitmapHeight));
    ASSERT_TRUE(RestoreDC(dc, 2));
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 10, 10, 50, 50));
    EXPECT_TRUE(RectIs(ClipBox(dc), 10, 10, 50, 50));
    // The saved clip is a copy of its own: changes in place don't reach it.
    ASSERT_EQ(SaveDC(dc), 2);
    EXPECT_EQ(OffsetClipRgn(dc, 5, 5), SIMPLEREGION);
    EXPECT_EQ(ExcludeClipRect(dc, 0, 0, 30, 80), SIMPLEREGION);
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 30, 15, 55, 55));
    ASSERT_TRUE(RestoreDC(dc, -1));
    EXPECT_TRUE(RectIs(ClipRegionBox(dc), 10, 10, 50, 50));
    // A state saved without a clip restores to none.
    ASSERT_TRUE(RestoreDC(dc, 1));
    EXPECT_EQ(GetClipRgn(dc, out), 0);
    EXPECT_TRUE(Visible(dc, 60, 60, 70, 70));
}

TEST_F(ContextClip, BadRegionsLeaveTheClipAsItWas)
{
    ASSERT_EQ(IntersectClipRect(dc, 10, 10, 20, 20), SIMPLEREGION);
    HRGN dead = CreateRectRgn(0, 0, 50, 50);
    ASSERT_TRUE(DeleteObject(dead));
    HPEN pen = CreatePen(PS_SOLID, 1, 0);
    for (HRGN h : {dead, reinterpret_cast<HRGN>(pen), reinterpret_cast<HRGN>(GetStockObject(WHITE_BRUSH)),
                   reinterpret_cast<HRGN>(ULONG_PTR(0x70080000) | 0xFFFF), reinterpret_cast<HRGN>(~ULONG_PTR(0))}) {
        SCOPED_TRACE(reinterpret_cast<ULONG_PTR>(h));
        EXPECT_EQ(SelectClipRgn(dc, h), ERROR);
        EXPECT_TRUE(RectIs(ClipRegionBox(dc), 10, 10, 20, 20));
        EXPECT_EQ(GetClipRgn(dc, h), -1);
    }
    // With no clip, GetClipRgn answers 0 before it looks at the region.
    SelectClipRgn(dc, nullptr);
    EXPECT_EQ(GetClipRgn(dc, dead), 0);
    EXPECT_EQ(GetObjectType(pen), static_cast<DWORD>(OBJ_PEN));
    DeleteObject(pen);
}

// ---- Window contexts -------------------------------------------------------

class WindowContextClip : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_hwnd = m_recorder.Create(WS_POPUP, 30, 40, 120, 90);
        ASSERT_NE(m_hwnd, nullptr);
        ShowWindow(m_hwnd, SW_SHOWNA);
        m_hdc = GetDC(m_hwnd);
        ASSERT_NE(m_hdc, nullptr);
    }
    void TearDown() override
    {
        if (m_hdc != nullptr)
            ReleaseDC(m_hwnd, m_hdc);
        if (m_hwnd != nullptr)
            DestroyWindow(m_hwnd);
    }

    MessageRecorder m_recorder{"VorlanClipWindow"};
    HWND m_hwnd = nullptr;
    HDC m_hdc = nullptr;
};

TEST_F(WindowContextClip, ClipBoxIsTheClientAreaCutByTheClip)
{
    RECT client;
    ASSERT_TRUE(GetClientRect(m_hwnd, &client));
    int type = 0;
    EXPECT_TRUE(RectIs(ClipBox(m_hdc, &type), 0, 0, client.right, client.bottom));
    EXPECT_EQ(type, COMPLEXREGION);
    EXPECT_EQ(IntersectClipRect(m_hdc, 100, 70, 200, 200), SIMPLEREGION);
    EXPECT_TRUE(RectIs(ClipRegionBox(m_hdc), 100, 70, 200, 200));
    EXPECT_TRUE(RectIs(ClipBox(m_hdc), 100, 70, client.right, client.bottom));
    EXPECT_TRUE(Visible(m_hdc, 110, 80, 111, 81));
    EXPECT_FALSE(Visible(m_hdc, 0, 0, 100, 70));
    EXPECT_EQ(ExcludeClipRect(m_hdc, 0, 0, 110, 200), SIMPLEREGION);
    EXPECT_EQ(OffsetClipRgn(m_hdc, 100, 0), NULLREGION);
    EXPECT_EQ(SelectClipRgn(m_hdc, nullptr), SIMPLEREGION);
    EXPECT_TRUE(RectIs(ClipBox(m_hdc), 0, 0, client.right, client.bottom));
}

TEST_F(WindowContextClip, HiddenOrFullyObscuredWindowHasNothingVisible)
{
    // Obscured: no rectangle is visible, but the clip box doesn't ask X.
    const LONG flags = GetWindowLongW(m_hwnd, GWL_VORLFLAGS);
    SetWindowLongW(m_hwnd, GWL_VORLFLAGS, flags | WF_OBSCURED);
    EXPECT_FALSE(Visible(m_hdc, 0, 0, 10, 10));
    RECT rc;
    EXPECT_EQ(GetClipBox(m_hdc, &rc), COMPLEXREGION);
    SetWindowLongW(m_hwnd, GWL_VORLFLAGS, flags & ~WF_OBSCURED);
    EXPECT_TRUE(Visible(m_hdc, 0, 0, 10, 10));

    ShowWindow(m_hwnd, SW_HIDE);
    EXPECT_EQ(GetClipBox(m_hdc, &rc), NULLREGION);
    EXPECT_TRUE(RectIs(rc, 0, 0, 0, 0));
    EXPECT_FALSE(Visible(m_hdc, 0, 0, 10, 10));
    // The clip is still kept, and shows again with the window.
    EXPECT_EQ(IntersectClipRect(m_hdc, 0, 0, 10, 10), NULLREGION);
    EXPECT_TRUE(RectIs(ClipRegionBox(m_hdc), 0, 0, 10, 10));
    ShowWindow(m_hwnd, SW_SHOWNA);
    EXPECT_TRUE(RectIs(ClipBox(m_hdc), 0, 0, 10, 10));
}

// The painting clip is set from outside and lives beside the application's
// clip, outside the save stack.
TEST_F(WindowContextClip, UpdateRegionStaysInForceWhateverTheApplicationSelects)
{
    {
        vorlan::GtkCriticalSection lock;
        vorlan::CommonDeviceContext *context = vorlan::GetCommonDeviceContext(m_hdc);
        ASSERT_NE(context, nullptr);
        context->hUpdateRegion = CreateRectRgn(0, 0, 50, 50);
    }
    EXPECT_TRUE(RectIs(ClipBox(m_hdc), 0, 0, 50, 50));
    EXPECT_EQ(IntersectClipRect(m_hdc, 30, 30, 100, 100), SIMPLEREGION);
    EXPECT_TRUE(RectIs(ClipBox(m_hdc), 30, 30, 50, 50));
    EXPECT_FALSE(Visible(m_hdc, 50, 50, 60, 60));
    ASSERT_EQ(SaveDC(m_hdc), 1);
    EXPECT_EQ(SelectClipRgn(m_hdc, nullptr), SIMPLEREGION);
    EXPECT_TRUE(RectIs(ClipBox(m_hdc), 0, 0, 50, 50));
    ASSERT_TRUE(RestoreDC(m_hdc, -1));
    EXPECT_TRUE(RectIs(ClipBox(m_hdc), 30, 30, 50, 50));
    // Nothing of the update region left: nothing visible, though the
    // application's clip remains.
    EXPECT_EQ(IntersectClipRect(m_hdc, 60, 60, 70, 70), NULLREGION);
    EXPECT_FALSE(Visible(m_hdc, 0, 0, 120, 90));
}
