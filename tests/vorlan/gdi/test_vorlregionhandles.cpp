// Region calls given handles that name no region: null, deleted, forged,
// and live objects of other types.  Every call gives its failure value and
// leaves the objects behind the handles alone.  Also: every region call
// runs under the toolkit lock.
#include <gtest/gtest.h>

#include "region_test_helpers.h"

#include "gdi/vorlgdiobject.h"
#include "gdi/vorlregion.h"
#include "gtk/vorlgtklock.h"
#include "support/gdk_lock_counter.h"

#include <functional>
#include <string>
#include <vector>

using region_test::Rects;
using region_test::Str;

namespace {

struct NotARegion {
    std::string what;
    HRGN handle;
};

HRGN Forge(ULONG_PTR value)
{
    return reinterpret_cast<HRGN>(value);
}

ULONG_PTR WithTag(HGDIOBJ h, ULONG_PTR tag)
{
    return (reinterpret_cast<ULONG_PTR>(h) & ~0x7F0000ul) | (tag << 16);
}

unsigned FreeIndex()
{
    vorlan::GtkCriticalSection lock;
    for (unsigned i = vorlan::kGdiTableSize - 1; i > 0; --i) {
        if (vorlan::GdiObject::gdiTable[i] == nullptr)
            return i;
    }
    return 0;
}

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
    const std::vector<NotARegion> handles = {
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
        {"free slot under the region tag", reinterpret_cast<HRGN>(vorlan::MakeGdiHandle(OBJ_REGION, FreeIndex()))},
        {"region with top byte 0x71", Forge(reinterpret_cast<ULONG_PTR>(good) + 0x01000000)},
        {"region with bits above 32", Forge(reinterpret_cast<ULONG_PTR>(good) | (ULONG_PTR(1) << 32))},
        {"small number", Forge(8)},
        {"all ones", Forge(~ULONG_PTR(0))},
    };
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

TEST(RegionBadHandles, DeletingARegionTwiceFailsTheSecondTime)
{
    HRGN region = CreateEllipticRgn(0, 0, 10, 10);
    EXPECT_TRUE(DeleteObject(region));
    EXPECT_FALSE(DeleteObject(region));
    EXPECT_EQ(GetObjectType(region), 0u);
}

TEST(RegionLocking, EveryRegionCallTakesTheToolkitLock)
{
    HRGN a = CreateRectRgn(0, 0, 10, 10);
    HRGN b = CreateRectRgn(5, 5, 15, 15);
    const RECT rect = {1, 2, 3, 4};
    const POINT points[] = {{0, 0}, {5, 0}, {0, 5}, {10, 10}, {15, 10}, {10, 15}};
    const INT counts[] = {3, 3};
    std::vector<HGDIOBJ> made;
    const std::vector<std::pair<std::string, std::function<void()>>> calls = {
        {"CreateRectRgn", [&] { made.push_back(CreateRectRgn(0, 0, 1, 1)); }},
        {"CreateEllipticRgn", [&] { made.push_back(CreateEllipticRgn(0, 0, 5, 5)); }},
        {"CreateEllipticRgnIndirect", [&] { made.push_back(CreateEllipticRgnIndirect(&rect)); }},
        {"CreateRoundRectRgn", [&] { made.push_back(CreateRoundRectRgn(0, 0, 9, 9, 3, 3)); }},
        {"CreatePolygonRgn", [&] { made.push_back(CreatePolygonRgn(points, 3, ALTERNATE)); }},
        {"CreatePolyPolygonRgn", [&] { made.push_back(CreatePolyPolygonRgn(points, counts, 2, WINDING)); }},
        {"CombineRgn", [&] { CombineRgn(a, a, b, RGN_OR); }},
        {"OffsetRgn", [&] { OffsetRgn(a, 1, 1); }},
        {"SetRectRgn", [&] { SetRectRgn(b, 5, 5, 15, 15); }},
        {"EqualRgn", [&] { EqualRgn(a, b); }},
        {"PtInRegion", [&] { PtInRegion(a, 1, 1); }},
        {"RectInRegion", [&] { RectInRegion(a, &rect); }},
        {"GetRgnBox", [&] { GetRgnBox(a, nullptr); }},
    };
    for (const auto &call : calls) {
        vorlan_test::GdkLockCounter counter;
        call.second();
        EXPECT_GE(counter.enters(), 1) << call.first;
        EXPECT_EQ(counter.enters(), counter.leaves()) << call.first;
    }
    for (HGDIOBJ object : made)
        EXPECT_TRUE(DeleteObject(object));
    DeleteObject(a);
    DeleteObject(b);
}
