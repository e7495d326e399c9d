#include <gtest/gtest.h>

#include "support/forged_handles.h"

#include "gdi/vorlgdiobject.h"
#include "gtk/vorlgtklock.h"

#include <cstring>
#include <string>
#include <vector>

using gdi_test::FreeIndex;
using gdi_test::WithTag;

namespace {

HGDIOBJ Forge(ULONG_PTR value)
{
    return gdi_test::Forge<HGDIOBJ>(value);
}

using BadHandle = gdi_test::NamedHandle<HGDIOBJ>;

// One object of each logical type, deleted: the handles the application
// may still hold.  The pattern brush's own bitmap dies with it.
std::vector<BadHandle> StaleHandlesOfEveryType()
{
    LOGFONTW lf = {};
    lf.lfHeight = 10;
    BYTE paletteBlock[sizeof(LOGPALETTE) + sizeof(PALETTEENTRY)] = {};
    auto *lp = reinterpret_cast<LOGPALETTE *>(paletteBlock);
    lp->palVersion = 0x300;
    lp->palNumEntries = 2;
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof info.bmiHeader, 8, 8, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    void *bits = nullptr;
    HBITMAP pattern = CreateBitmap(8, 8, 1, 1, nullptr);
    HBRUSH patternBrush = CreatePatternBrush(pattern);
    LOGBRUSH lb = {};
    GetObjectW(patternBrush, sizeof lb, &lb);
    std::vector<BadHandle> stale = {
        {"deleted pen", CreatePen(PS_DASH, 2, 0)},
        {"deleted brush", CreateHatchBrush(HS_BDIAGONAL, 0)},
        {"deleted pattern brush", patternBrush},
        {"bitmap of a deleted pattern brush", reinterpret_cast<HGDIOBJ>(lb.lbHatch)},
        {"deleted font", CreateFontIndirectW(&lf)},
        {"deleted palette", CreatePalette(lp)},
        {"deleted region", CreateRectRgn(1, 2, 3, 4)},
        {"deleted DIB section", CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0)},
    };
    EXPECT_TRUE(DeleteObject(pattern));
    for (const BadHandle &bad : stale) {
        EXPECT_NE(bad.handle, nullptr) << bad.what;
        if (bad.handle != reinterpret_cast<HGDIOBJ>(lb.lbHatch)) {
            EXPECT_TRUE(DeleteObject(bad.handle)) << bad.what;
        }
    }
    return stale;
}

void ExpectFailureEverywhere(const BadHandle &bad)
{
    SCOPED_TRACE(bad.what);
    const HGDIOBJ h = bad.handle;
    BYTE buffer[256];
    EXPECT_EQ(GetObjectType(h), 0u);
    EXPECT_EQ(GetObjectW(h, sizeof buffer, buffer), 0);
    EXPECT_EQ(GetObjectW(h, 0, nullptr), 0);
    EXPECT_EQ(GetObjectW(h, 0, buffer), 0);
    EXPECT_EQ(GetObjectW(h, -1, buffer), 0);
    EXPECT_EQ(GetObjectA(h, sizeof buffer, buffer), 0);
    EXPECT_EQ(GetObjectA(h, 0, nullptr), 0);
    EXPECT_FALSE(DeleteObject(h));
    EXPECT_EQ(CreatePatternBrush(static_cast<HBITMAP>(h)), nullptr);
    EXPECT_EQ(GetNearestPaletteIndex(static_cast<HPALETTE>(h), 0), 0u);
    PALETTEENTRY entry;
    EXPECT_EQ(GetPaletteEntries(static_cast<HPALETTE>(h), 0, 1, &entry), 0u);
    EXPECT_EQ(GetPaletteEntries(static_cast<HPALETTE>(h), 0, 1, nullptr), 0u);
    // The context is only asked for its depth; a bad one must not crash.
    const BITMAPINFOHEADER header = {sizeof header, 4, 4, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    BITMAPINFO info = {};
    info.bmiHeader = header;
    void *bits = nullptr;
    if (HBITMAP section = CreateDIBSection(static_cast<HDC>(h), &info, DIB_RGB_COLORS, &bits, nullptr, 0)) {
        EXPECT_TRUE(DeleteObject(section));
    }
    vorlan::GtkCriticalSection lock;
    EXPECT_EQ(vorlan::GdiObject::getGdiObject(h), nullptr);
    EXPECT_FALSE(IsStockObject(h));
    EXPECT_EQ(GetStockObjectIndex(h), -1);
    for (int which = 0; which < 3; ++which) {
        EXPECT_EQ(AddRef(h, which), 0);
        EXPECT_EQ(ReleaseRef(h, which), -1);
    }
    EXPECT_EQ(GetSelectRef(h), 0);
    EXPECT_FALSE(SetPhysicalObject(h, 0, 1, nullptr, 0));
    EXPECT_EQ(GetGdkRegion(h), nullptr);
    EXPECT_EQ(GetGdkPixmap(h), nullptr);
}

} // namespace

TEST(GdiBadHandles, DeadAndForgedHandlesFailEverywhere)
{
    HPEN pen = CreatePen(PS_SOLID, 9, 0x010203);
    HBRUSH brush = CreateSolidBrush(0x040506);
    HPALETTE palette = static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
    HRGN region = CreateRectRgn(0, 0, 4, 4);
    HBITMAP bitmap = CreateBitmap(4, 4, 1, 1, nullptr);
    HBITMAP dead = CreateBitmap(4, 4, 1, 1, nullptr);
    ASSERT_TRUE(DeleteObject(dead));
    const std::vector<BadHandle> stale = StaleHandlesOfEveryType();
    const ULONG_PTR penValue = reinterpret_cast<ULONG_PTR>(pen);
    std::vector<BadHandle> handles = {
        {"deleted bitmap", dead},
        {"free slot", vorlan::MakeGdiHandle(OBJ_PAL, FreeIndex())},
        {"top byte 0", Forge(penValue & 0xFFFFFF)},
        {"pen under the brush tag", Forge(WithTag(pen, OBJ_BRUSH))},
        {"brush under the pen tag", Forge(WithTag(brush, OBJ_PEN))},
        {"palette under the bitmap tag", Forge(WithTag(palette, OBJ_BITMAP))},
        {"region under the palette tag", Forge(WithTag(region, OBJ_PAL))},
        {"pen under the DC tag", Forge(WithTag(pen, OBJ_DC))},
        {"bitmap under the metafile tag", Forge(WithTag(bitmap, OBJ_METAFILE))},
        {"free slot under the DC tag", vorlan::MakeGdiHandle(OBJ_DC, FreeIndex())},
        {"free slot under the memory DC tag", vorlan::MakeGdiHandle(OBJ_MEMDC, FreeIndex())},
        {"free slot under the metafile DC tag", vorlan::MakeGdiHandle(OBJ_METADC, FreeIndex())},
        {"free slot under the metafile tag", vorlan::MakeGdiHandle(OBJ_METAFILE, FreeIndex())},
        {"tag 11", Forge(WithTag(pen, 11))},
    };
    gdi_test::Append(handles, gdi_test::ForgeriesOf<HGDIOBJ>(pen, OBJ_PEN));
    for (const BadHandle &bad : handles)
        ExpectFailureEverywhere(bad);
    for (const BadHandle &bad : stale)
        ExpectFailureEverywhere(bad);
    LOGPEN lp;
    ASSERT_EQ(GetObjectW(pen, sizeof lp, &lp), static_cast<int>(sizeof lp));
    EXPECT_EQ(lp.lopnWidth.x, 9);
    LOGBRUSH lb;
    ASSERT_EQ(GetObjectW(brush, sizeof lb, &lb), static_cast<int>(sizeof lb));
    EXPECT_EQ(lb.lbColor, 0x040506u);
    EXPECT_EQ(GetPaletteEntries(palette, 0, 1, nullptr), 20u);
    for (HGDIOBJ live : {static_cast<HGDIOBJ>(pen), static_cast<HGDIOBJ>(brush), static_cast<HGDIOBJ>(region),
                         static_cast<HGDIOBJ>(bitmap)})
        EXPECT_TRUE(DeleteObject(live));
}
