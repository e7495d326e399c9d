#include <gtest/gtest.h>

#include "support/dc_test_helpers.h"

using vorlan_test::LiveType;
using vorlan_test::MemoryDC;

TEST(DeviceContextSaveStack, LevelsCountFromTheBottomAndFromTheTop)
{
    MemoryDC dc;
    EXPECT_EQ(SaveDC(dc), 1);
    EXPECT_TRUE(RestoreDC(dc, -1));
    EXPECT_FALSE(RestoreDC(dc, -1));
    EXPECT_FALSE(RestoreDC(dc, 0));
    EXPECT_FALSE(RestoreDC(dc, 1));
    EXPECT_EQ(SaveDC(dc), 1);
    EXPECT_EQ(SaveDC(dc), 2);
    EXPECT_EQ(SaveDC(dc), 3);
    EXPECT_FALSE(RestoreDC(dc, 4));
    EXPECT_FALSE(RestoreDC(dc, -4));
    EXPECT_FALSE(RestoreDC(dc, 0));
    ASSERT_TRUE(RestoreDC(dc, 1));

    // A positive level drops the states above it; -2 is the second from the top.
    SetBkColor(dc, 1);
    SaveDC(dc);
    SetBkColor(dc, 2);
    SaveDC(dc);
    SetBkColor(dc, 3);
    SaveDC(dc);
    SetBkColor(dc, 4);
    EXPECT_TRUE(RestoreDC(dc, 2));
    EXPECT_EQ(GetBkColor(dc), 2u);
    EXPECT_EQ(SaveDC(dc), 2);
    SetBkColor(dc, 5);
    EXPECT_TRUE(RestoreDC(dc, -2));
    EXPECT_EQ(GetBkColor(dc), 1u);
    EXPECT_FALSE(RestoreDC(dc, -1)) << "nothing left saved";
}

TEST(DeviceContextSaveStack, RestoreBringsBackEveryAttribute)
{
    MemoryDC dc;
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowExtEx(dc, 10, 20, nullptr);
    SetViewportExtEx(dc, 30, -40, nullptr);
    SetWindowOrgEx(dc, 5, 6, nullptr);
    SetViewportOrgEx(dc, 7, 8, nullptr);
    SetStretchBltMode(dc, HALFTONE);
    SetBrushOrgEx(dc, 3, 4, nullptr);
    SetTextColor(dc, 0x0C0B0A);
    SetTextCharacterExtra(dc, 9);
    MoveToEx(dc, 11, 12, nullptr);
    POINT mapped = {100, 100};
    LPtoDP(dc, &mapped, 1);

    ASSERT_EQ(SaveDC(dc), 1);
    SetMapMode(dc, MM_LOMETRIC);
    SetStretchBltMode(dc, BLACKONWHITE);
    SetBrushOrgEx(dc, 0, 0, nullptr);
    SetTextColor(dc, 0);
    SetTextCharacterExtra(dc, 0);
    MoveToEx(dc, 0, 0, nullptr);
    ASSERT_TRUE(RestoreDC(dc, -1));

    EXPECT_EQ(GetMapMode(dc), MM_ANISOTROPIC);
    EXPECT_EQ(SetStretchBltMode(dc, HALFTONE), HALFTONE);
    POINT org;
    GetBrushOrgEx(dc, &org);
    EXPECT_EQ(org.x, 3);
    EXPECT_EQ(org.y, 4);
    EXPECT_EQ(GetTextColor(dc), 0x0C0B0Au);
    EXPECT_EQ(GetTextCharacterExtra(dc), 9);
    POINT current;
    MoveToEx(dc, 0, 0, &current);
    EXPECT_EQ(current.x, 11);
    EXPECT_EQ(current.y, 12);
    POINT again = {100, 100};
    LPtoDP(dc, &again, 1);
    EXPECT_EQ(again.x, mapped.x);
    EXPECT_EQ(again.y, mapped.y);
}

TEST(DeviceContextSaveStack, DeletedPenOrBitmapSurvivesInTheSavedStateAndComesBack)
{
    MemoryDC dc;
    HPEN pen = CreatePen(PS_DASH, 1, 0x00AA00);
    SelectObject(dc, pen);
    ASSERT_EQ(SaveDC(dc), 1);
    EXPECT_TRUE(DeleteObject(pen));
    EXPECT_EQ(SelectObject(dc, GetStockObject(WHITE_PEN)), pen);
    // Only the saved state holds it now.
    EXPECT_EQ(LiveType(pen), static_cast<DWORD>(OBJ_PEN));
    EXPECT_TRUE(RestoreDC(dc, -1));
    EXPECT_EQ(GetCurrentObject(dc, OBJ_PEN), pen);
    EXPECT_EQ(LiveType(pen), static_cast<DWORD>(OBJ_PEN));
    SelectObject(dc, GetStockObject(BLACK_PEN));
    EXPECT_EQ(LiveType(pen), 0u);
    // A bitmap is restored into the memory context the same way.
    HBITMAP bitmap = CreateBitmap(5, 5, 1, 1, nullptr);
    SelectObject(dc, bitmap);
    SaveDC(dc);
    SelectObject(dc, GetStockObject(21));
    DeleteObject(bitmap);
    EXPECT_TRUE(RestoreDC(dc, -1));
    EXPECT_EQ(GetCurrentObject(dc, OBJ_BITMAP), bitmap);
    SelectObject(dc, GetStockObject(21));
    EXPECT_EQ(LiveType(bitmap), 0u);
}

TEST(DeviceContextSaveStack, DroppedStatesReleaseTheirObjects)
{
    HBRUSH brush = CreateSolidBrush(0x777777);
    {
        MemoryDC dc;
        SelectObject(dc, brush);
        SaveDC(dc);
        SaveDC(dc);
        SelectObject(dc, GetStockObject(BLACK_BRUSH));
        DeleteObject(brush);
        EXPECT_EQ(LiveType(brush), static_cast<DWORD>(OBJ_BRUSH));
        // Restoring the first level pops the second without selecting it.
        EXPECT_TRUE(RestoreDC(dc, 1));
        EXPECT_EQ(GetCurrentObject(dc, OBJ_BRUSH), brush);
        SaveDC(dc);
        SelectObject(dc, GetStockObject(BLACK_BRUSH));
        EXPECT_EQ(LiveType(brush), static_cast<DWORD>(OBJ_BRUSH));
    }
    // The context went with a saved state still on its stack.
    EXPECT_EQ(LiveType(brush), 0u);
}
