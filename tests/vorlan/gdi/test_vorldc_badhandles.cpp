#include <gtest/gtest.h>

#include "support/forged_handles.h"

#include "support/dc_test_helpers.h"
#include "gdi/screen/vorlscreendc.h"

#include <string>
#include <vector>

using gdi_test::FreeIndex;
using gdi_test::WithTag;

namespace {

HDC Forge(ULONG_PTR value)
{
    return gdi_test::Forge<HDC>(value);
}

using BadDC = gdi_test::NamedHandle<HDC>;

// Calls that check the handle: their failure value and error 87.
template <typename T> void ExpectChecked(const char *call, T result, T failure)
{
    EXPECT_EQ(result, failure) << call;
    EXPECT_EQ(GetLastError(), 87u) << call;
    SetLastError(0);
}

// The drawing calls fail with error 87; the pixel calls give CLR_INVALID
// and clear the error.
void ExpectDrawingCallsFail(HDC h)
{
    const POINT points[] = {{0, 0}, {5, 5}, {0, 5}};
    const INT counts[] = {3};
    ExpectChecked("LineTo", LineTo(h, 5, 5), FALSE);
    ExpectChecked("Polyline", Polyline(h, points, 3), FALSE);
    ExpectChecked("Polygon", Polygon(h, points, 3), FALSE);
    ExpectChecked("PolyPolygon", PolyPolygon(h, points, counts, 1), FALSE);
    ExpectChecked("Rectangle", Rectangle(h, 0, 0, 5, 5), FALSE);
    ExpectChecked("RoundRect", RoundRect(h, 0, 0, 5, 5, 2, 2), FALSE);
    ExpectChecked("Ellipse", Ellipse(h, 0, 0, 5, 5), FALSE);
    ExpectChecked("Arc", Arc(h, 0, 0, 5, 5, 5, 2, 2, 0), FALSE);
    ExpectChecked("Chord", Chord(h, 0, 0, 5, 5, 5, 2, 2, 0), FALSE);
    ExpectChecked("Pie", Pie(h, 0, 0, 5, 5, 5, 2, 2, 0), FALSE);
    ExpectChecked("PatBlt", PatBlt(h, 0, 0, 5, 5, BLACKNESS), FALSE);
    ExpectChecked("FloodFill", FloodFill(h, 1, 1, 0), FALSE);
    ExpectChecked("ExtFloodFill", ExtFloodFill(h, 1, 1, 0, FLOODFILLSURFACE), FALSE);
    SetLastError(5);
    EXPECT_EQ(GetPixel(h, 1, 1), CLR_INVALID);
    EXPECT_EQ(SetPixel(h, 1, 1, 0), CLR_INVALID);
    EXPECT_FALSE(SetPixelV(h, 1, 1, 0));
    EXPECT_EQ(GetLastError(), 0u) << "the pixel calls";
}

void ExpectFailureEverywhere(const BadDC &bad)
{
    SCOPED_TRACE(bad.what);
    const HDC h = bad.handle;
    POINT pt = {1, 2};
    SIZE sz = {3, 4};
    HRGN region = CreateRectRgn(0, 0, 5, 5);
    HPEN pen = CreatePen(PS_SOLID, 1, 0);
    SetLastError(0);
    ExpectChecked("SelectObject", SelectObject(h, pen), HGDIOBJ(nullptr));
    ExpectChecked("SelectObject region", SelectObject(h, region), HGDIOBJ(nullptr));
    ExpectChecked("GetCurrentObject", GetCurrentObject(h, OBJ_PEN), HGDIOBJ(nullptr));
    ExpectChecked("SelectPalette", SelectPalette(h, static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE)), TRUE),
                  HPALETTE(nullptr));
    ExpectChecked("SaveDC", SaveDC(h), 0);
    ExpectChecked("RestoreDC", RestoreDC(h, -1), FALSE);
    ExpectChecked("WindowFromDC", WindowFromDC(h), HWND(nullptr));
    // Null asks for a context like the screen's.
    if (h != nullptr)
        ExpectChecked("CreateCompatibleDC", CreateCompatibleDC(h), HDC(nullptr));
    ExpectChecked("SetBkMode", SetBkMode(h, TRANSPARENT), 0);
    ExpectChecked("GetBkMode", GetBkMode(h), 0);
    ExpectChecked("SetPolyFillMode", SetPolyFillMode(h, WINDING), 0);
    ExpectChecked("GetPolyFillMode", GetPolyFillMode(h), 0);
    ExpectChecked("SetROP2", SetROP2(h, R2_XORPEN), 0);
    ExpectChecked("GetROP2", GetROP2(h), 0);
    ExpectChecked("SetStretchBltMode", SetStretchBltMode(h, HALFTONE), 0);
    ExpectChecked("SetMapperFlags", SetMapperFlags(h, 1), DWORD(0));
    ExpectChecked("SetBrushOrgEx", SetBrushOrgEx(h, 1, 1, &pt), FALSE);
    ExpectChecked("GetBrushOrgEx", GetBrushOrgEx(h, &pt), FALSE);
    ExpectChecked("SetTextColor", SetTextColor(h, 1), CLR_INVALID);
    ExpectChecked("GetTextColor", GetTextColor(h), CLR_INVALID);
    ExpectChecked("SetBkColor", SetBkColor(h, 1), CLR_INVALID);
    ExpectChecked("GetBkColor", GetBkColor(h), CLR_INVALID);
    ExpectChecked("GetDeviceCaps", GetDeviceCaps(h, BITSPIXEL), -1);
    ExpectChecked("SetTextCharacterExtra", SetTextCharacterExtra(h, 1), int(0x80000000));
    ExpectChecked("GetTextCharacterExtra", GetTextCharacterExtra(h), int(0x80000000));
    RECT rc = {1, 2, 3, 4};
    ExpectChecked("SelectClipRgn", SelectClipRgn(h, region), ERROR);
    ExpectChecked("SelectClipRgn null", SelectClipRgn(h, nullptr), ERROR);
    ExpectChecked("GetClipRgn", GetClipRgn(h, region), -1);
    ExpectChecked("IntersectClipRect", IntersectClipRect(h, 0, 0, 5, 5), ERROR);
    ExpectChecked("ExcludeClipRect", ExcludeClipRect(h, 0, 0, 5, 5), ERROR);
    ExpectChecked("OffsetClipRgn", OffsetClipRgn(h, 1, 1), ERROR);
    ExpectChecked("GetClipBox", GetClipBox(h, &rc), ERROR);
    ExpectChecked("GetClipBox null", GetClipBox(h, nullptr), ERROR);
    ExpectChecked("RectVisible", RectVisible(h, &rc), FALSE);
    ExpectChecked("RectVisible null", RectVisible(h, nullptr), FALSE);
    ExpectChecked("FillRgn", FillRgn(h, region, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH))), FALSE);
    ExpectChecked("RealizePalette", RealizePalette(h), UINT(GDI_ERROR));
    ExpectChecked("GetNearestColor", GetNearestColor(h, 0xFF), CLR_INVALID);
    ExpectDrawingCallsFail(h);
    ExpectChecked("SetMapMode", SetMapMode(h, MM_LOMETRIC), 0);
    ExpectChecked("GetMapMode", GetMapMode(h), 0);
    ExpectChecked("SetViewportOrgEx", SetViewportOrgEx(h, 1, 1, &pt), FALSE);
    ExpectChecked("SetViewportOrg", SetViewportOrg(h, 1, 1, &pt), FALSE);
    ExpectChecked("GetViewportOrgEx", GetViewportOrgEx(h, &pt), FALSE);
    ExpectChecked("OffsetViewportOrgEx", OffsetViewportOrgEx(h, 1, 1, &pt), FALSE);
    ExpectChecked("SetViewportExtEx", SetViewportExtEx(h, 0, 0, &sz), FALSE);
    ExpectChecked("ScaleViewportExtEx", ScaleViewportExtEx(h, 1, 0, 1, 0, &sz), FALSE);
    ExpectChecked("SetWindowOrgEx", SetWindowOrgEx(h, 1, 1, &pt), FALSE);
    ExpectChecked("GetWindowOrgEx", GetWindowOrgEx(h, &pt), FALSE);
    ExpectChecked("OffsetWindowOrgEx", OffsetWindowOrgEx(h, 1, 1, &pt), FALSE);
    ExpectChecked("SetWindowExtEx", SetWindowExtEx(h, 0, 0, &sz), FALSE);
    ExpectChecked("ScaleWindowExtEx", ScaleWindowExtEx(h, 1, 0, 1, 0, &sz), FALSE);
    ExpectChecked("LPtoDP", LPtoDP(h, &pt, 1), FALSE);
    ExpectChecked("DPtoLP", DPtoLP(h, &pt, 1), FALSE);
    ExpectChecked("DeleteDC", DeleteDC(h), FALSE);
    ExpectChecked("ResetDCW", ResetDCW(h, nullptr), HDC(nullptr));
    ExpectChecked("ResetDCA", ResetDCA(h, nullptr), HDC(nullptr));
    ExpectChecked("GdiSetDeleteDCProc", GdiSetDeleteDCProc(h, nullptr, nullptr), FALSE);
    // The calls that expect a valid context give their failure value only.
    PALETTEENTRY entries[2];
    EXPECT_EQ(GetSystemPaletteEntries(h, 0, 2, entries), 0u);
    EXPECT_EQ(GetSystemPaletteUse(h), 0u);
    EXPECT_FALSE(UpdateColors(h));
    EXPECT_FALSE(FrameRgn(h, region, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)), 1, 1));
    EXPECT_FALSE(PaintRgn(h, region));
    EXPECT_FALSE(InvertRgn(h, region));
    EXPECT_EQ(SetLayout(h, LAYOUT_RTL), GDI_ERROR);
    EXPECT_EQ(GetLayout(h), GDI_ERROR);
    EXPECT_EQ(SetTextAlign(h, TA_RIGHT), UINT(GDI_ERROR));
    EXPECT_EQ(GetTextAlign(h), UINT(GDI_ERROR));
    EXPECT_FALSE(MoveToEx(h, 1, 1, &pt));
    // The helpers.
    int x = 1, y = 1, w = 1, hgt = 1;
    EXPECT_FALSE(vorlan::transforXY(h, &x, &y));
    EXPECT_FALSE(vorlan::transforWidthAndHeight(h, &x, &y, &w, &hgt));
    EXPECT_FALSE(vorlan::TransLPSize2DPSize(h, &w, &hgt));
    EXPECT_FALSE(vorlan::TransDPSize2LPSize(h, &w, &hgt));
    EXPECT_EQ(RealizeObject(h, pen), DHANDLE(0));
    EXPECT_FALSE(GdiGetDCOutputBounds(h, &rc));
    {
        vorlan::GtkCriticalSection lock;
        EXPECT_EQ(vorlan::GetDeviceContext(h), nullptr);
        EXPECT_EQ(vorlan::GetCommonDeviceContext(h), nullptr);
        EXPECT_FALSE(vorlan::IsValidHDC(h));
    }
    // The objects handed in are untouched.
    EXPECT_TRUE(DeleteObject(pen));
    EXPECT_EQ(GetObjectType(pen), 0u);
    EXPECT_TRUE(DeleteObject(region));
}

} // namespace

TEST(DeviceContextBadHandles, DeadAndForgedContextsFailEverywhere)
{
    HDC live = CreateCompatibleDC(nullptr);
    ASSERT_NE(live, nullptr);
    SetBkColor(live, 0x0BADF00D & 0xFFFFFF);
    HDC dead = CreateCompatibleDC(nullptr);
    ASSERT_TRUE(DeleteDC(dead));
    HDC deadWindow = GetDC(nullptr);
    ASSERT_TRUE(ReleaseDC(nullptr, deadWindow));
    HPEN pen = CreatePen(PS_SOLID, 1, 0x123456);
    HBRUSH brush = CreateSolidBrush(0);
    HRGN region = CreateRectRgn(0, 0, 1, 1);
    HBITMAP bitmap = CreateBitmap(2, 2, 1, 1, nullptr);
    std::vector<BadDC> handles = {
        {"null", nullptr},
        {"deleted memory DC", dead},
        {"released window DC", deadWindow},
        {"pen", reinterpret_cast<HDC>(pen)},
        {"brush", reinterpret_cast<HDC>(brush)},
        {"region", reinterpret_cast<HDC>(region)},
        {"bitmap", reinterpret_cast<HDC>(bitmap)},
        {"stock font", reinterpret_cast<HDC>(GetStockObject(SYSTEM_FONT))},
        {"pen under the DC tag", Forge(WithTag(pen, OBJ_DC))},
        {"pen under the memory DC tag", Forge(WithTag(pen, OBJ_MEMDC))},
        {"pen under the metafile DC tag", Forge(WithTag(pen, OBJ_METADC))},
        {"memory DC under the window DC tag", Forge(WithTag(live, OBJ_DC))},
        {"memory DC under the metafile DC tag", Forge(WithTag(live, OBJ_METADC))},
        {"memory DC under the pen tag", Forge(WithTag(live, OBJ_PEN))},
        {"memory DC under the enhanced metafile DC tag", Forge(WithTag(live, OBJ_ENHMETADC))},
        {"free slot under the DC tag", reinterpret_cast<HDC>(vorlan::MakeGdiHandle(OBJ_DC, FreeIndex()))},
        {"free slot under the metafile DC tag",
         reinterpret_cast<HDC>(vorlan::MakeGdiHandle(OBJ_METADC, FreeIndex()))},
        {"small integer", Forge(3)},
    };
    gdi_test::Append(handles, gdi_test::ForgeriesOf<HDC>(live, OBJ_MEMDC));
    for (const BadDC &bad : handles)
        ExpectFailureEverywhere(bad);
    // The live context the forged handles came from is unharmed.
    EXPECT_EQ(GetBkColor(live), 0xADF00Du);
    EXPECT_EQ(GetObjectType(pen), static_cast<DWORD>(OBJ_PEN));
    EXPECT_TRUE(DeleteDC(live));
    for (HGDIOBJ object : {HGDIOBJ(pen), HGDIOBJ(brush), HGDIOBJ(region), HGDIOBJ(bitmap)})
        EXPECT_TRUE(DeleteObject(object));
}
