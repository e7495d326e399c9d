#include <gtest/gtest.h>

#include "support/forged_handles.h"

#include "support/region_test_helpers.h"

#include "gdi/vorlgdiobject.h"
#include "gdi/vorlregion.h"
#include "gtk/vorlgtklock.h"

#include <string>
#include <vector>

using region_test::Rects;
using region_test::Str;

using gdi_test::FreeIndex;
using gdi_test::WithTag;

namespace {

HRGN Forge(ULONG_PTR value)
{
    return gdi_test::Forge<HRGN>(value);
}

using NotARegion = gdi_test::NamedHandle<HRGN>;

void ExpectEveryCallFails(const NotARegion &bad, HRGN good, HRGN other)
{
    SCOPED_TRACE(bad.what);
    const HRGN h = bad.handle;
    EXPECT_EQ(CombineRgn(h, good, other, RGN_OR), ERROR);
    EXPECT_EQ(CombineRgn(h, good, nullptr, RGN_COPY), ERROR);
    EXPECT_EQ(CombineRgn(h, h, nullptr, RGN_COPY), ERROR);
    for (int mode : {RGN_AND, RGN_OR, RGN_XOR, RGN_DIFF}) {
        EXPECT_EQ(CombineRgn(good, h, other, mode), ERROR) << mode;
        EXPECT_EQ(CombineRgn(good, good, h, mode), ERROR) << mode;
    }
    EXPECT_EQ(CombineRgn(good, h, nullptr, RGN_COPY), ERROR);
    EXPECT_EQ(OffsetRgn(h, 1, 1), ERROR);
    EXPECT_FALSE(SetRectRgn(h, 0, 0, 5, 5));
    EXPECT_EQ(EqualRgn(h, good), ERROR);
    EXPECT_EQ(EqualRgn(good, h), ERROR);
    EXPECT_EQ(EqualRgn(h, h), ERROR);
    EXPECT_FALSE(PtInRegion(h, 0, 0));
    const RECT rect = {-100, -100, 100, 100};
    EXPECT_FALSE(RectInRegion(h, &rect));
    // Only the null handle fails here; any other reads as an empty region.
    RECT box = {1, 2, 3, 4};
    EXPECT_EQ(GetRgnBox(h, &box), h == nullptr ? ERROR : NULLREGION);
    EXPECT_EQ(Str(box), h == nullptr ? "(1,2,3,4)" : "(0,0,0,0)");
    vorlan::GtkCriticalSection lock;
    EXPECT_EQ(checkRegionType(h), ERROR);
    EXPECT_FALSE(vorlan::ReplaceGdkRegion(h, gdk_region_new()));
}

} // namespace

TEST(RegionBadHandles, EveryCallFailsOnHandlesThatNameNoRegion)
{
    HRGN good = CreateRectRgn(0, 0, 10, 10);
    HRGN other = CreateRectRgn(5, 5, 15, 15);
    HPEN pen = CreatePen(PS_SOLID, 3, 0x123456);
    HBRUSH brush = CreateSolidBrush(0x654321);
    HBITMAP bitmap = CreateBitmap(4, 4, 1, 1, nullptr);
    HFONT font = static_cast<HFONT>(GetStockObject(SYSTEM_FONT));
    HPALETTE palette = static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
    HRGN deleted = CreateRectRgn(0, 0, 10, 10);
    ASSERT_TRUE(DeleteObject(deleted));
    std::vector<NotARegion> handles = {
        {"null", nullptr},
        {"deleted region", deleted},
        {"pen", reinterpret_cast<HRGN>(pen)},
        {"brush", reinterpret_cast<HRGN>(brush)},
        {"bitmap", reinterpret_cast<HRGN>(bitmap)},
        {"stock font", reinterpret_cast<HRGN>(font)},
        {"stock palette", reinterpret_cast<HRGN>(palette)},
        {"region under the pen tag", Forge(WithTag(good, OBJ_PEN))},
        {"pen under the region tag", Forge(WithTag(pen, OBJ_REGION))},
        {"bitmap under the region tag", Forge(WithTag(bitmap, OBJ_REGION))},
        {"small number", Forge(8)},
    };
    gdi_test::Append(handles, gdi_test::ForgeriesOf<HRGN>(good, OBJ_REGION));
    for (const NotARegion &bad : handles)
        ExpectEveryCallFails(bad, good, other);

    EXPECT_EQ(Rects(good), "(0,0,10,10)");
    EXPECT_EQ(Rects(other), "(5,5,15,15)");
    LOGPEN lp = {};
    ASSERT_EQ(GetObjectW(pen, sizeof lp, &lp), static_cast<int>(sizeof lp));
    EXPECT_EQ(lp.lopnColor, 0x123456u);
    LOGBRUSH lb = {};
    ASSERT_EQ(GetObjectW(brush, sizeof lb, &lb), static_cast<int>(sizeof lb));
    EXPECT_EQ(lb.lbColor, 0x654321u);
    BITMAP bm = {};
    ASSERT_EQ(GetObjectW(bitmap, sizeof bm, &bm), static_cast<int>(sizeof bm));
    EXPECT_EQ(bm.bmWidth, 4);
    for (HGDIOBJ live : {static_cast<HGDIOBJ>(good), static_cast<HGDIOBJ>(other), static_cast<HGDIOBJ>(pen),
                         static_cast<HGDIOBJ>(brush), static_cast<HGDIOBJ>(bitmap)})
        EXPECT_TRUE(DeleteObject(live));
}
