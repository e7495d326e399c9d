// Painting regions: FillRgn and FrameRgn on a context that records its
// Rectangle calls with the clip, pen and brush in force at the time, and
// the two painting calls that no context provides.
#include <gtest/gtest.h>

#include "gdi/dc_test_helpers.h"

#include <vector>

using vorlan_test::RectIs;

namespace {

struct RecordedRectangle {
    RECT rect;
    HRGN clip; // a copy of the clip in force, owned by the test
    HGDIOBJ pen;
    UINT penStyle; // read while the pen lives
    HGDIOBJ brush;
};

// A context over a 200 x 100 device that draws nothing but records.
class RecordingContext : public vorlan::CommonDeviceContext {
public:
    RecordingContext() : CommonDeviceContext(OBJ_DC) { initObj(); }
    ~RecordingContext() override
    {
        for (RecordedRectangle &call : calls) {
            if (call.clip != nullptr)
                DeleteObject(call.clip);
        }
    }

    BOOL Rectangle(int left, int top, int right, int bottom) override
    {
        LOGPEN pen = {};
        pen.lopnStyle = ~0u;
        GetObjectW(dcState.hObjects[OBJ_PEN], sizeof pen, &pen);
        calls.push_back({{left, top, right, bottom},
                         vorlan::CopyRegionObject(dcState.hClipRegion),
                         dcState.hObjects[OBJ_PEN],
                         pen.lopnStyle,
                         dcState.hObjects[OBJ_BRUSH]});
        return TRUE;
    }
    BOOL PatBlt(int, int, int, int, DWORD) override { return TRUE; }
    COLORREF GetNearestColor(COLORREF color) override { return color; }
    UINT RealizePalette() override { return 0; }
    HDC CreateCompatibleDC() override { return nullptr; }
    int GetDeviceCaps(int) override { return 0; }
    DHANDLE RealizeObject(HGDIOBJ) override { return 1; }
    int GetVisibleRgn(HRGN region) override
    {
        RECT rc;
        GetDrawableRect(&rc);
        HRGN area = CreateRectRgnIndirect(&rc);
        if (dcState.hClipRegion != nullptr)
            CombineRgn(area, area, dcState.hClipRegion, RGN_AND);
        const int type = CombineRgn(region, area, nullptr, RGN_COPY);
        DeleteObject(area);
        return type;
    }
    BOOL drawPangoLayout(PangoLayout *, int, int, const RECT *, LPCWSTR, int) override { return FALSE; }
    BOOL GetDrawableRect(RECT *rect) override { return SetRect(rect, 0, 0, 200, 100); }
    void setGdkRegionToDevice(GdkRegion *) override {}

    std::vector<RecordedRectangle> calls;
};

// Made and deleted through the table like any other context.
class Recorder {
public:
    Recorder()
    {
        vorlan::GtkCriticalSection lock;
        m_context = new RecordingContext;
        m_hdc = static_cast<HDC>(m_context->handle);
    }
    ~Recorder() { DeleteDC(m_hdc); }
    Recorder(const Recorder &) = delete;
    Recorder &operator=(const Recorder &) = delete;

    operator HDC() const { return m_hdc; }
    const std::vector<RecordedRectangle> &calls() const { return m_context->calls; }

private:
    RecordingContext *m_context;
    HDC m_hdc;
};

} // namespace

TEST(RegionPainting, FillPaintsTheBoxUnderANullPenClippedToTheRegion)
{
    Recorder dc;
    HBRUSH brush = CreateSolidBrush(0x00FF00);
    HRGN region = CreateRectRgn(10, 10, 30, 20);
    HRGN other = CreateRectRgn(50, 10, 60, 40);
    CombineRgn(region, region, other, RGN_OR);
    const HGDIOBJ penBefore = GetCurrentObject(dc, OBJ_PEN);
    const HGDIOBJ brushBefore = GetCurrentObject(dc, OBJ_BRUSH);

    EXPECT_TRUE(FillRgn(dc, region, brush));
    ASSERT_EQ(dc.calls().size(), 1u);
    const RecordedRectangle &call = dc.calls()[0];
    // One more on the right and bottom: the fill stops one short of them.
    EXPECT_TRUE(RectIs(call.rect, 10, 10, 61, 41));
    EXPECT_EQ(call.brush, brush);
    EXPECT_EQ(call.penStyle, UINT(PS_NULL));
    ASSERT_NE(call.clip, nullptr);
    EXPECT_TRUE(EqualRgn(call.clip, region));

    // Everything is put back, and the null pen is gone.
    EXPECT_EQ(GetCurrentObject(dc, OBJ_PEN), penBefore);
    EXPECT_EQ(GetCurrentObject(dc, OBJ_BRUSH), brushBefore);
    EXPECT_EQ(GetObjectType(call.pen), 0u);
    HRGN out = CreateRectRgn(0, 0, 0, 0);
    EXPECT_EQ(GetClipRgn(dc, out), 0);
    for (HGDIOBJ object : {HGDIOBJ(brush), HGDIOBJ(region), HGDIOBJ(other), HGDIOBJ(out)})
        DeleteObject(object);
}

TEST(RegionPainting, FillKeepsThePresentClipAndFollowsTheLogicalOrigin)
{
    Recorder dc;
    HBRUSH brush = CreateSolidBrush(0);
    ASSERT_EQ(IntersectClipRect(dc, 0, 0, 20, 100), SIMPLEREGION);
    HRGN region = CreateRectRgn(10, 10, 50, 50);
    EXPECT_TRUE(FillRgn(dc, region, brush));
    ASSERT_EQ(dc.calls().size(), 1u);
    RECT clipBox;
    GetRgnBox(dc.calls()[0].clip, &clipBox);
    EXPECT_TRUE(RectIs(clipBox, 10, 10, 20, 50));
    HRGN out = CreateRectRgn(0, 0, 0, 0);
    ASSERT_EQ(GetClipRgn(dc, out), 1);
    GetRgnBox(out, &clipBox);
    EXPECT_TRUE(RectIs(clipBox, 0, 0, 20, 100));

    // A region beside the clip paints nothing and fails.
    HRGN beside = CreateRectRgn(30, 0, 40, 10);
    EXPECT_FALSE(FillRgn(dc, beside, brush));
    EXPECT_EQ(dc.calls().size(), 1u);
    ASSERT_EQ(GetClipRgn(dc, out), 1);
    GetRgnBox(out, &clipBox);
    EXPECT_TRUE(RectIs(clipBox, 0, 0, 20, 100));

    // The region moves by the image of the logical origin; the rectangle is
    // logical, so the mapping moves it the same way.
    SelectClipRgn(dc, nullptr);
    SetViewportOrgEx(dc, 5, 7, nullptr);
    SetRectRgn(region, 10, 10, 20, 20);
    EXPECT_TRUE(FillRgn(dc, region, brush));
    ASSERT_EQ(dc.calls().size(), 2u);
    GetRgnBox(dc.calls()[1].clip, &clipBox);
    EXPECT_TRUE(RectIs(clipBox, 15, 17, 25, 27));
    EXPECT_TRUE(RectIs(dc.calls()[1].rect, 10, 10, 21, 21));
    for (HGDIOBJ object : {HGDIOBJ(brush), HGDIOBJ(region), HGDIOBJ(beside), HGDIOBJ(out)})
        DeleteObject(object);
}

TEST(RegionPainting, EmptyOrBadRegionsAndBrushesPaintNothing)
{
    Recorder dc;
    HBRUSH brush = CreateSolidBrush(0);
    HRGN empty = CreateRectRgn(5, 5, 5, 5);
    HRGN dead = CreateRectRgn(0, 0, 10, 10);
    DeleteObject(dead);
    EXPECT_FALSE(FillRgn(dc, empty, brush));
    EXPECT_FALSE(FillRgn(dc, dead, brush));
    EXPECT_FALSE(FillRgn(dc, nullptr, brush));
    EXPECT_FALSE(FrameRgn(dc, empty, brush, 1, 1));
    EXPECT_FALSE(FrameRgn(dc, dead, brush, 1, 1));
    EXPECT_FALSE(FrameRgn(dc, nullptr, brush, 1, 1));
    EXPECT_TRUE(dc.calls().empty());
    // Without a brush nothing is drawn, and the call succeeds.
    HRGN region = CreateRectRgn(0, 0, 10, 10);
    EXPECT_TRUE(FillRgn(dc, region, nullptr));
    EXPECT_TRUE(dc.calls().empty());
    // A brush that isn't one selects nothing and draws nothing.
    EXPECT_TRUE(FillRgn(dc, region, reinterpret_cast<HBRUSH>(region)));
    EXPECT_TRUE(dc.calls().empty());
    // Paint and invert are not provided.
    EXPECT_FALSE(PaintRgn(dc, region));
    EXPECT_FALSE(InvertRgn(dc, region));
    EXPECT_TRUE(dc.calls().empty());
    for (HGDIOBJ object : {HGDIOBJ(brush), HGDIOBJ(empty), HGDIOBJ(region)})
        DeleteObject(object);
}

TEST(RegionPainting, FrameFillsTheBorderTakenOffByShrinking)
{
    Recorder dc;
    HBRUSH brush = CreateSolidBrush(0);
    HRGN region = CreateRectRgn(10, 10, 50, 40);
    // Negative sizes count as their absolute values.
    EXPECT_TRUE(FrameRgn(dc, region, brush, -3, 2));
    ASSERT_EQ(dc.calls().size(), 1u);
    HRGN clip = dc.calls()[0].clip;
    EXPECT_TRUE(RectIs(dc.calls()[0].rect, 10, 10, 51, 41));
    EXPECT_TRUE(PtInRegion(clip, 10, 10));
    EXPECT_TRUE(PtInRegion(clip, 12, 20));
    EXPECT_FALSE(PtInRegion(clip, 13, 20));
    EXPECT_TRUE(PtInRegion(clip, 20, 11));
    EXPECT_FALSE(PtInRegion(clip, 20, 12));
    EXPECT_TRUE(PtInRegion(clip, 47, 20));
    EXPECT_FALSE(PtInRegion(clip, 46, 20));
    EXPECT_TRUE(PtInRegion(clip, 20, 38));
    EXPECT_FALSE(PtInRegion(clip, 20, 37));
    // The caller's region is unchanged.
    RECT box;
    GetRgnBox(region, &box);
    EXPECT_TRUE(RectIs(box, 10, 10, 50, 40));
    DeleteObject(brush);
    DeleteObject(region);
}
