#include <gtest/gtest.h>

#include "support/dc_test_helpers.h"

using vorlan_test::MemoryDC;

TEST(DeviceContextAttributes, NewContextsHaveTheDefaultAttributesAndObjects)
{
    MemoryDC dc;
    ASSERT_NE(dc.get(), nullptr);
    EXPECT_EQ(GetObjectType(dc), static_cast<DWORD>(OBJ_MEMDC));
    EXPECT_EQ(GetBkMode(dc), OPAQUE);
    EXPECT_EQ(GetROP2(dc), R2_COPYPEN);
    EXPECT_EQ(GetMapMode(dc), MM_TEXT);
    EXPECT_EQ(GetPolyFillMode(dc), ALTERNATE);
    EXPECT_EQ(GetBkColor(dc), 0xFFFFFFu);
    EXPECT_EQ(GetTextColor(dc), 0u);
    EXPECT_EQ(GetTextAlign(dc), 0u);
    EXPECT_EQ(GetLayout(dc), 0u);
    EXPECT_EQ(GetTextCharacterExtra(dc), 0);
    EXPECT_EQ(GetCurrentObject(dc, OBJ_BITMAP), GetStockObject(21));
    EXPECT_EQ(GetCurrentObject(dc, OBJ_BRUSH), GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(GetCurrentObject(dc, OBJ_FONT), GetStockObject(SYSTEM_FONT));
    EXPECT_EQ(GetCurrentObject(dc, OBJ_PEN), GetStockObject(BLACK_PEN));
    EXPECT_EQ(GetCurrentObject(dc, OBJ_PAL), GetStockObject(DEFAULT_PALETTE));
    POINT org = {5, 5};
    EXPECT_TRUE(GetBrushOrgEx(dc, &org));
    EXPECT_EQ(org.x, 0);
    EXPECT_EQ(org.y, 0);
    for (UINT type : {0u, UINT(OBJ_DC), UINT(OBJ_METADC), UINT(OBJ_REGION), UINT(OBJ_METAFILE), UINT(OBJ_MEMDC),
                      14u, 15u, 1000u})
        EXPECT_EQ(GetCurrentObject(dc, type), nullptr) << "not selectable: " << type;

    // A window context has no bitmap.
    HDC hdc = GetDC(nullptr);
    ASSERT_NE(hdc, nullptr);
    EXPECT_EQ(GetObjectType(hdc), static_cast<DWORD>(OBJ_DC));
    EXPECT_EQ(GetCurrentObject(hdc, OBJ_BITMAP), nullptr);
    EXPECT_EQ(GetCurrentObject(hdc, OBJ_PEN), GetStockObject(BLACK_PEN));
    EXPECT_EQ(WindowFromDC(hdc), GetDesktopWindow());
    EXPECT_EQ(ReleaseDC(nullptr, hdc), 1);
}

TEST(DeviceContextAttributes, ModesAreStoredUncheckedAndNullPointsRefused)
{
    MemoryDC dc;
    EXPECT_EQ(SetBkMode(dc, 77), OPAQUE);
    EXPECT_EQ(GetBkMode(dc), 77);
    EXPECT_EQ(SetPolyFillMode(dc, -5), ALTERNATE);
    EXPECT_EQ(GetPolyFillMode(dc), -5);
    EXPECT_EQ(SetStretchBltMode(dc, COLORONCOLOR), BLACKONWHITE);
    EXPECT_FALSE(GetBrushOrgEx(dc, nullptr));
}

TEST(DeviceContextAttributes, RasterModeWithoutGdkFunctionIsRefused)
{
    MemoryDC dc;
    EXPECT_EQ(SetROP2(dc, R2_NOTMERGEPEN), 0);
    EXPECT_EQ(GetROP2(dc), R2_COPYPEN);
    EXPECT_EQ(SetROP2(dc, 99), 0);
    EXPECT_EQ(SetROP2(dc, R2_COPYPEN), R2_COPYPEN);
    for (int mode = R2_BLACK; mode <= R2_WHITE; ++mode) {
        if (mode == R2_NOTMERGEPEN)
            continue;
        const int old = GetROP2(dc);
        EXPECT_EQ(SetROP2(dc, mode), old) << mode;
        EXPECT_EQ(GetROP2(dc), mode);
    }
}
