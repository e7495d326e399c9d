#include <gtest/gtest.h>

#include "support/canvas.h"

using namespace vorlan_test;

TEST(ScreenPixels, SetPixelPaintsThroughTheMappingAndPointsOutsideGiveInvalid)
{
    Canvas canvas(40, 40);
    EXPECT_EQ(SetPixel(canvas, 3, 4, RGB(0x12, 0x34, 0x56)), RGB(0x12, 0x34, 0x56));
    EXPECT_EQ(GetPixel(canvas, 3, 4), RGB(0x12, 0x34, 0x56));
    EXPECT_EQ(GetPixel(canvas, 4, 4), kWhite);
    EXPECT_TRUE(SetPixelV(canvas, 5, 5, kRed));
    EXPECT_EQ(GetPixel(canvas, 5, 5), kRed);
    EXPECT_EQ(GetPixel(canvas, 40, 0), CLR_INVALID);
    EXPECT_EQ(GetPixel(canvas, -1, 0), CLR_INVALID);
    EXPECT_EQ(SetPixel(canvas, 0, 42, kRed), CLR_INVALID);
    EXPECT_FALSE(SetPixelV(canvas, 0, 42, kRed));
    SetViewportOrgEx(canvas, 7, 8, nullptr);
    SetPixel(canvas, 1, 1, kGreen);
    SetViewportOrgEx(canvas, 0, 0, nullptr);
    EXPECT_EQ(GetPixel(canvas, 8, 9), kGreen);
}

TEST(ScreenPixels, MonoBitmapTakesTheNearerOfBlackAndWhiteForPixelsBrushesAndPens)
{
    Canvas mono(16, 16, 1);
    EXPECT_EQ(GetPixel(mono, 2, 2), kWhite);
    EXPECT_EQ(SetPixel(mono, 2, 2, RGB(10, 20, 30)), kBlack);
    EXPECT_EQ(GetPixel(mono, 2, 2), kBlack);
    EXPECT_EQ(SetPixel(mono, 2, 2, RGB(200, 220, 250)), kWhite);
    EXPECT_EQ(GetPixel(mono, 2, 2), kWhite);
    mono.UseBrush(CreateSolidBrush(kBlue));
    mono.UsePen(CreatePen(PS_SOLID, 1, RGB(250, 250, 200)));
    Rectangle(mono, 0, 0, 10, 10);
    EXPECT_EQ(mono.At(5, 5), kBlack);
    EXPECT_EQ(mono.At(0, 0), kWhite);
    mono.UseBrush(CreateSolidBrush(RGB(200, 200, 255)));
    PatBlt(mono, 0, 0, 16, 16, PATCOPY);
    EXPECT_EQ(mono.Count(kWhite), 16 * 16);
}

TEST(ScreenPatBlt, BlacknessWhitenessAndDstInvertWithSizesOfEitherSign)
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
    canvas.Clear();
    PatBlt(canvas, 6, 6, -4, -3, BLACKNESS);
    EXPECT_EQ(canvas.Row(4, 1, 6, kBlack), ".####.");
    EXPECT_EQ(canvas.Column(3, 2, 6, kBlack), ".###.");
}

TEST(ScreenPatBlt, PatternOperationsUseTheBrushAndLeaveNoMixModeBehind)
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
    canvas.UsePen(CreatePen(PS_SOLID, 1, kBlue));
    MoveToEx(canvas, 20, 20, nullptr);
    LineTo(canvas, 25, 20);
    EXPECT_EQ(canvas.At(21, 20), kBlue);
    // Pattern AND destination.
    canvas.Clear(RGB(255, 255, 0));
    canvas.UseBrush(CreateSolidBrush(RGB(0, 255, 255)));
    EXPECT_TRUE(PatBlt(canvas, 0, 0, 4, 4, 0xA000C9));
    EXPECT_EQ(canvas.At(1, 1), kGreen);
    EXPECT_EQ(canvas.At(5, 5), RGB(255, 255, 0));
}

TEST(ScreenPatBlt, UnknownOperationOrNullBrushDrawsNothingAndSucceeds)
{
    Canvas canvas;
    canvas.UseBrush(CreateSolidBrush(kRed));
    EXPECT_TRUE(PatBlt(canvas, 0, 0, 10, 10, SRCCOPY));
    canvas.UseBrush(static_cast<HBRUSH>(GetStockObject(NULL_BRUSH)));
    EXPECT_TRUE(PatBlt(canvas, 0, 0, 10, 10, PATCOPY));
    EXPECT_EQ(canvas.Count(kWhite), canvas.width() * canvas.height());
}

TEST(ScreenMixModes, EachModeCombinesPenAndDestination)
{
    const COLORREF yellow = RGB(255, 255, 0);
    const COLORREF cyan = RGB(0, 255, 255);
    const COLORREF magenta = RGB(255, 0, 255);
    const struct {
        int mode;
        COLORREF ground;
        COLORREF result;
    } cases[] = {
        {R2_BLACK, yellow, kBlack},    {R2_WHITE, yellow, kWhite},      {R2_NOP, yellow, yellow},
        {R2_NOT, yellow, kBlue},       {R2_COPYPEN, yellow, kRed},      {R2_NOTCOPYPEN, yellow, cyan},
        {R2_XORPEN, yellow, kGreen},   {R2_NOTXORPEN, yellow, magenta}, {R2_MASKPEN, yellow, kRed},
        {R2_NOTMASKPEN, yellow, cyan}, {R2_MERGEPEN, kBlue, magenta},   {R2_MASKNOTPEN, yellow, kGreen},
        {R2_MASKPENNOT, kBlue, kRed},  {R2_MERGENOTPEN, kBlack, cyan},  {R2_MERGEPENNOT, kBlue, yellow},
    };
    for (const auto &c : cases) {
        // A red pen row over the ground colour.
        Canvas canvas(8, 8);
        canvas.Clear(c.ground);
        canvas.UsePen(CreatePen(PS_SOLID, 1, kRed));
        EXPECT_EQ(SetROP2(canvas, c.mode), R2_COPYPEN) << c.mode;
        EXPECT_EQ(GetROP2(canvas), c.mode);
        MoveToEx(canvas, 0, 1, nullptr);
        LineTo(canvas, 4, 1);
        EXPECT_EQ(canvas.At(2, 1), c.result) << c.mode;
    }
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
