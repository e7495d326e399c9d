// The drawing calls given handles that are no live context: each gives its
// failure value with the documented last error, and nothing is drawn or
// crashes.
#include <gtest/gtest.h>

#include "gdi/screen/canvas.h"

#include <functional>
#include <string>
#include <vector>

namespace {

std::vector<std::pair<std::string, HDC>> BadContexts()
{
    HDC dead = CreateCompatibleDC(nullptr);
    DeleteDC(dead);
    return {{"null", nullptr},
            {"dead", dead},
            {"pen", reinterpret_cast<HDC>(GetStockObject(BLACK_PEN))},
            {"forged", reinterpret_cast<HDC>(static_cast<ULONG_PTR>(0x7003FFF0))},
            {"garbage", reinterpret_cast<HDC>(static_cast<ULONG_PTR>(0x1234))}};
}

} // namespace

TEST(ScreenDrawingBadHandles, ShapeCallsFailWithBadArgument)
{
    const POINT points[] = {{0, 0}, {5, 5}, {0, 5}};
    const INT counts[] = {3};
    const std::vector<std::pair<const char *, std::function<BOOL(HDC)>>> calls = {
        {"LineTo", [](HDC h) { return LineTo(h, 5, 5); }},
        {"Polyline", [&](HDC h) { return Polyline(h, points, 3); }},
        {"Polygon", [&](HDC h) { return Polygon(h, points, 3); }},
        {"PolyPolygon", [&](HDC h) { return PolyPolygon(h, points, counts, 1); }},
        {"Rectangle", [](HDC h) { return Rectangle(h, 0, 0, 5, 5); }},
        {"RoundRect", [](HDC h) { return RoundRect(h, 0, 0, 5, 5, 2, 2); }},
        {"Ellipse", [](HDC h) { return Ellipse(h, 0, 0, 5, 5); }},
        {"Arc", [](HDC h) { return Arc(h, 0, 0, 5, 5, 5, 2, 2, 0); }},
        {"Chord", [](HDC h) { return Chord(h, 0, 0, 5, 5, 5, 2, 2, 0); }},
        {"Pie", [](HDC h) { return Pie(h, 0, 0, 5, 5, 5, 2, 2, 0); }},
        {"PatBlt", [](HDC h) { return PatBlt(h, 0, 0, 5, 5, BLACKNESS); }},
        {"FloodFill", [](HDC h) { return FloodFill(h, 1, 1, 0); }},
        {"ExtFloodFill", [](HDC h) { return ExtFloodFill(h, 1, 1, 0, FLOODFILLSURFACE); }},
    };
    for (const auto &bad : BadContexts()) {
        for (const auto &call : calls) {
            SetLastError(0);
            EXPECT_FALSE(call.second(bad.second)) << call.first << " on " << bad.first;
            EXPECT_EQ(GetLastError(), 87u) << call.first << " on " << bad.first;
        }
    }
}

TEST(ScreenDrawingBadHandles, PixelCallsClearTheErrorAndGiveInvalid)
{
    for (const auto &bad : BadContexts()) {
        SetLastError(5);
        EXPECT_EQ(GetPixel(bad.second, 1, 1), CLR_INVALID) << bad.first;
        EXPECT_EQ(GetLastError(), 0u) << bad.first;
        SetLastError(5);
        EXPECT_EQ(SetPixel(bad.second, 1, 1, 0), CLR_INVALID) << bad.first;
        EXPECT_EQ(GetLastError(), 0u) << bad.first;
        SetLastError(5);
        EXPECT_FALSE(SetPixelV(bad.second, 1, 1, 0)) << bad.first;
        EXPECT_EQ(GetLastError(), 0u) << bad.first;
    }
}

TEST(ScreenFloodFill, FloodFillsAreNotProvided)
{
    vorlan_test::Canvas canvas;
    EXPECT_FALSE(FloodFill(canvas, 5, 5, vorlan_test::kBlack));
    EXPECT_FALSE(ExtFloodFill(canvas, 5, 5, vorlan_test::kWhite, FLOODFILLSURFACE));
    EXPECT_EQ(canvas.Count(vorlan_test::kWhite), canvas.width() * canvas.height());
}
