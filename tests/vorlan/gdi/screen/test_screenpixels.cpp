// Pixels, pattern blits and mix modes on a screen context.
#include <gtest/gtest.h>

#include "gdi/screen/canvas.h"

using namespace vorlan_test;

TEST(ScreenPixels, SetPixelReturnsTheColourItPaintedAndGetPixelReadsIt)
{
    Canvas canvas;
    EXPECT_EQ(SetPixel(canvas, 3, 4, RGB(0x12, 0x34, 0x56)), RGB(0x12, 0x34, 0x56));
    EXPECT_EQ(GetPixel(canvas, 3, 4), RGB(0x12, 0x34, 0x56));
    EXPECT_EQ(GetPixel(canvas, 4, 4), kWhite);
    EXPECT_TRUE(SetPixelV(canvas, 5, 5, kRed));
    EXPECT_EQ(GetPixel(canvas, 5, 5), kRed);
}

TEST(ScreenPixels, PointsOutsideTheBitmapGiveInvalid)
{
    Canvas canvas(10, 10);
    EXPECT_EQ(GetPixel(canvas, 10, 0), CLR_INVALID);
    EXPECT_EQ(GetPixel(canvas, -1, 0), CLR_INVALID);
    EXPECT_EQ(SetPixel(canvas, 0, 12, kRed), CLR_INVALID);
    EXPECT_FALSE(SetPixelV(canvas, 0, 12, kRed));
}

TEST(ScreenPixels, PixelsFollowTheMapping)
{
    Canvas canvas;
    SetViewportOrgEx(canvas, 7, 8, nullptr);
    SetPixel(canvas, 1, 1, kGreen);
    SetViewportOrgEx(canvas, 0, 0, nullptr);
    EXPECT_EQ(GetPixel(canvas, 8, 9), kGreen);
}

TEST(ScreenPixels, MonoBitmapHoldsBlackAndWhite)
{
    Canvas mono(8, 8, 1);
    EXPECT_EQ(GetPixel(mono, 2, 2), kWhite);
    EXPECT_EQ(SetPixel(mono, 2, 2, RGB(10, 20, 30)), kBlack);
    EXPECT_EQ(GetPixel(mono, 2, 2), kBlack);
    EXPECT_EQ(SetPixel(mono, 2, 2, RGB(200, 220, 250)), kWhite);
    EXPECT_EQ(GetPixel(mono, 2, 2), kWhite);
}

TEST(ScreenPixels, MonoBitmapTakesTheNearerOfBlackAndWhiteForBrushesAndPens)
{
    Canvas mono(16, 16, 1);
    mono.UseBrush(CreateSolidBrush(kBlue));
    mono.UsePen(CreatePen(PS_SOLID, 1, RGB(250, 250, 200)));
    mono.Clear(kWhite);
    Rectangle(mono, 0, 0, 10, 10);
    EXPECT_EQ(mono.At(5, 5), kBlack);
    EXPECT_EQ(mono.At(0, 0), kWhite);
    mono.UseBrush(CreateSolidBrush(RGB(200, 200, 255)));
    PatBlt(mono, 0, 0, 16, 16, PATCOPY);
    EXPECT_EQ(mono.Count(kWhite), 16 * 16);
}

TEST(ScreenPatBlt, BlacknessWhitenessAndDstInvert)
{
    Canvas canvas;
    EXPECT_TRUE(PatBlt(canvas, 2, 2, 4, 3, BLACKNESS));
    EXPECT_EQ(canvas.Row(2, 1, 6, kBlack), ".####.");
    EXPECT_EQ(canvas.Column(2, 1, 5, kBlack), ".###.");
    EXPECT_TRUE(PatBlt(canvas, 3, 2, 1, 1, WHITENESS));
    EXPECT_EQ(canvas.Row(2, 1, 6, kBlack), ".#.##.");
    EXPECT_TRUE(PatBlt(canvas, 0, 0, 10, 10, DSTINVERT));
    EXPECT_EQ(canvas.At(0, 0), kBlack);
    EXPECT_EQ(canvas.At(2, 2), kWhite);
    EXPECT_EQ(canvas.At(3, 2), kBlack);
}

TEST(ScreenPatBlt, NegativeSizesAreNormalised)
{
    Canvas canvas;
    PatBlt(canvas, 6, 6, -4, -3, BLACKNESS);
    EXPECT_EQ(canvas.Row(4, 1, 6, kBlack), ".####.");
    EXPECT_EQ(canvas.Column(3, 2, 6, kBlack), ".###.");
}

TEST(ScreenPatBlt, PatCopyAndPatInvertUseTheBrush)
{
    Canvas canvas;
    canvas.UseBrush(CreateSolidBrush(kRed));
    EXPECT_TRUE(PatBlt(canvas, 0, 0, 5, 5, PATCOPY));
    EXPECT_EQ(canvas.At(4, 4), kRed);
    EXPECT_EQ(canvas.At(5, 5), kWhite);
    // Red XOR red is black, red XOR white cyan.
    EXPECT_TRUE(PatBlt(canvas, 0, 0, 10, 10, PATINVERT));
    EXPECT_EQ(canvas.At(1, 1), kBlack);
    EXPECT_EQ(canvas.At(7, 7), RGB(0, 255, 255));
    // The mix mode isn't left behind.
    canvas.UsePen(CreatePen(PS_SOLID, 1, kBlue));
    MoveToEx(canvas, 20, 20, nullptr);
    LineTo(canvas, 25, 20);
    EXPECT_EQ(canvas.At(21, 20), kBlue);
}

TEST(ScreenPatBlt, PatternAndDestinationMasks)
{
    Canvas canvas;
    canvas.Clear(RGB(255, 255, 0));
    canvas.UseBrush(CreateSolidBrush(RGB(0, 255, 255)));
    EXPECT_TRUE(PatBlt(canvas, 0, 0, 4, 4, 0xA000C9));
    EXPECT_EQ(canvas.At(1, 1), kGreen);
    EXPECT_EQ(canvas.At(5, 5), RGB(255, 255, 0));
}

TEST(ScreenPatBlt, UnknownOperationDrawsNothingAndSucceeds)
{
    Canvas canvas;
    canvas.UseBrush(CreateSolidBrush(kRed));
    EXPECT_TRUE(PatBlt(canvas, 0, 0, 10, 10, SRCCOPY));
    EXPECT_EQ(canvas.Count(kWhite), canvas.width() * canvas.height());
}

TEST(ScreenPatBlt, NullBrushPatCopyDrawsNothing)
{
    Canvas canvas;
    canvas.UseBrush(static_cast<HBRUSH>(GetStockObject(NULL_BRUSH)));
    EXPECT_TRUE(PatBlt(canvas, 0, 0, 10, 10, PATCOPY));
    EXPECT_EQ(canvas.At(5, 5), kWhite);
}

TEST(ScreenMixModes, NotMergePenHasNoFunctionAndLeavesTheMode)
{
    Canvas canvas;
    EXPECT_EQ(SetROP2(canvas, R2_NOTMERGEPEN), 0);
    EXPECT_EQ(GetROP2(canvas), R2_COPYPEN);
    EXPECT_EQ(SetROP2(canvas, R2_COPYPEN), R2_COPYPEN);
}

namespace {

// Draws a red pixel row with `mode` over a background of `ground` and
// returns the result.
COLORREF Mixed(int mode, COLORREF ground)
{
    Canvas canvas(8, 8);
    canvas.Clear(ground);
    canvas.UsePen(CreatePen(PS_SOLID, 1, kRed));
    EXPECT_EQ(SetROP2(canvas, mode), R2_COPYPEN) << mode;
    EXPECT_EQ(GetROP2(canvas), mode);
    MoveToEx(canvas, 0, 1, nullptr);
    LineTo(canvas, 4, 1);
    return canvas.At(2, 1);
}

} // namespace

TEST(ScreenMixModes, EachModeCombinesPenAndDestination)
{
    const COLORREF yellow = RGB(255, 255, 0);
    EXPECT_EQ(Mixed(R2_BLACK, yellow), kBlack);
    EXPECT_EQ(Mixed(R2_WHITE, yellow), kWhite);
    EXPECT_EQ(Mixed(R2_NOP, yellow), yellow);
    EXPECT_EQ(Mixed(R2_NOT, yellow), kBlue);
    EXPECT_EQ(Mixed(R2_COPYPEN, yellow), kRed);
    EXPECT_EQ(Mixed(R2_NOTCOPYPEN, yellow), RGB(0, 255, 255));
    EXPECT_EQ(Mixed(R2_XORPEN, yellow), kGreen);
    EXPECT_EQ(Mixed(R2_NOTXORPEN, yellow), RGB(255, 0, 255));
    EXPECT_EQ(Mixed(R2_MASKPEN, yellow), kRed);
    EXPECT_EQ(Mixed(R2_NOTMASKPEN, yellow), RGB(0, 255, 255));
    EXPECT_EQ(Mixed(R2_MERGEPEN, kBlue), RGB(255, 0, 255));
    EXPECT_EQ(Mixed(R2_MASKNOTPEN, yellow), kGreen);
    EXPECT_EQ(Mixed(R2_MASKPENNOT, kBlue), kRed);
    EXPECT_EQ(Mixed(R2_MERGENOTPEN, kBlack), RGB(0, 255, 255));
    EXPECT_EQ(Mixed(R2_MERGEPENNOT, kBlue), RGB(255, 255, 0));
}

TEST(ScreenMixModes, XorTwiceRestoresThePicture)
{
    Canvas canvas;
    canvas.UseBrush(CreateSolidBrush(kGreen));
    SetROP2(canvas, R2_XORPEN);
    Rectangle(canvas, 0, 0, 10, 10);
    EXPECT_NE(canvas.At(5, 5), kWhite);
    Rectangle(canvas, 0, 0, 10, 10);
    EXPECT_EQ(canvas.Count(kWhite), canvas.width() * canvas.height());
}
