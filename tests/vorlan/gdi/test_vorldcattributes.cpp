// Attributes of a new context and what their setters and getters do.
#include <gtest/gtest.h>

#include "gdi/dc_test_helpers.h"

using vorlan_test::MemoryDC;
using vorlan_test::StateOf;

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
    const vorlan::DCState state = StateOf(dc);
    EXPECT_EQ(state.nStretchBltMode, 1);
    EXPECT_EQ(state.bForceBackground, TRUE);
    EXPECT_EQ(state.hClipRegion, nullptr);
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

TEST(DeviceContextAttributes, SettersReturnTheOldValueAndGettersTheNewOne)
{
    MemoryDC dc;
    EXPECT_EQ(SetBkMode(dc, TRANSPARENT), OPAQUE);
    EXPECT_EQ(GetBkMode(dc), TRANSPARENT);
    EXPECT_EQ(SetBkColor(dc, 0x123456), 0xFFFFFFu);
    EXPECT_EQ(GetBkColor(dc), 0x123456u);
    EXPECT_EQ(SetTextColor(dc, 0x654321), 0u);
    EXPECT_EQ(GetTextColor(dc), 0x654321u);
    EXPECT_EQ(SetROP2(dc, R2_XORPEN), R2_COPYPEN);
    EXPECT_EQ(GetROP2(dc), R2_XORPEN);
    EXPECT_EQ(SetPolyFillMode(dc, WINDING), ALTERNATE);
    EXPECT_EQ(GetPolyFillMode(dc), WINDING);
    EXPECT_EQ(SetTextAlign(dc, TA_RIGHT | TA_BASELINE), 0u);
    EXPECT_EQ(GetTextAlign(dc), static_cast<UINT>(TA_RIGHT | TA_BASELINE));
    EXPECT_EQ(SetLayout(dc, LAYOUT_RTL), 0u);
    EXPECT_EQ(GetLayout(dc), static_cast<DWORD>(LAYOUT_RTL));
    EXPECT_EQ(SetStretchBltMode(dc, COLORONCOLOR), BLACKONWHITE);
    EXPECT_EQ(SetStretchBltMode(dc, HALFTONE), COLORONCOLOR);
    EXPECT_EQ(SetTextCharacterExtra(dc, -3), 0);
    EXPECT_EQ(GetTextCharacterExtra(dc), -3);
    // No value is checked.
    EXPECT_EQ(SetBkMode(dc, 77), TRANSPARENT);
    EXPECT_EQ(GetBkMode(dc), 77);
    EXPECT_EQ(SetPolyFillMode(dc, -5), WINDING);
    EXPECT_EQ(GetPolyFillMode(dc), -5);
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

TEST(DeviceContextAttributes, CurrentPositionAndBrushOriginHandBackTheOldPoint)
{
    MemoryDC dc;
    POINT old = {-1, -1};
    EXPECT_TRUE(MoveToEx(dc, 10, 20, &old));
    EXPECT_EQ(old.x, 0);
    EXPECT_EQ(old.y, 0);
    EXPECT_TRUE(MoveToEx(dc, -3, 4, nullptr));
    EXPECT_TRUE(MoveToEx(dc, 0, 0, &old));
    EXPECT_EQ(old.x, -3);
    EXPECT_EQ(old.y, 4);
    EXPECT_TRUE(SetBrushOrgEx(dc, 7, 8, nullptr));
    EXPECT_TRUE(SetBrushOrgEx(dc, 1, 2, &old));
    EXPECT_EQ(old.x, 7);
    EXPECT_EQ(old.y, 8);
    EXPECT_FALSE(GetBrushOrgEx(dc, nullptr));
    POINT org;
    EXPECT_TRUE(GetBrushOrgEx(dc, &org));
    EXPECT_EQ(org.x, 1);
    EXPECT_EQ(org.y, 2);
}
