// Every GDI object call runs under the toolkit lock, and lets it go again.
#include <gtest/gtest.h>

#include <windows.h>

#include "support/gdk_lock_counter.h"

#include <functional>
#include <string>
#include <vector>

using vorlan_test::GdkLockCounter;

namespace {

struct Call {
    std::string name;
    std::function<void()> run;
};

// Objects made during the calls, deleted afterwards.
std::vector<HGDIOBJ> g_made;

void Keep(HGDIOBJ object)
{
    ASSERT_NE(object, nullptr);
    g_made.push_back(object);
}

} // namespace

TEST(GdiLocking, EveryObjectCallTakesTheToolkitLock)
{
    HPEN pen = CreatePen(PS_SOLID, 1, 0);
    HBITMAP bitmap = CreateBitmap(8, 8, 1, 1, nullptr);
    HPALETTE palette = static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
    const LOGPEN lp = {PS_SOLID, {1, 1}, 0};
    const LOGBRUSH lb = {BS_SOLID, 0, 0};
    const LOGFONTW lfw = {};
    const LOGFONTA lfa = {};
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof info.bmiHeader, 4, 4, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    const RECT rect = {0, 0, 2, 2};
    BYTE buffer[128];
    const std::vector<Call> calls = {
        {"CreatePen", [] { Keep(CreatePen(PS_DOT, 1, 0)); }},
        {"CreatePenIndirect", [&] { Keep(CreatePenIndirect(&lp)); }},
        {"CreateBrushIndirect", [&] { Keep(CreateBrushIndirect(&lb)); }},
        {"CreateSolidBrush", [] { Keep(CreateSolidBrush(0)); }},
        {"CreateHatchBrush", [] { Keep(CreateHatchBrush(HS_CROSS, 0)); }},
        {"CreatePatternBrush", [&] { Keep(CreatePatternBrush(bitmap)); }},
        {"CreateFontIndirectW", [&] { Keep(CreateFontIndirectW(&lfw)); }},
        {"CreateFontIndirectA", [&] { Keep(CreateFontIndirectA(&lfa)); }},
        {"CreateFontA", [] { Keep(CreateFontA(9, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, "Mono")); }},
        {"CreateBitmap", [] { Keep(CreateBitmap(2, 2, 1, 8, nullptr)); }},
        {"CreateDIBSection",
         [&] {
             void *bits = nullptr;
             Keep(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
         }},
        {"CreateRectRgnIndirect", [&] { Keep(CreateRectRgnIndirect(&rect)); }},
        {"GetNearestPaletteIndex", [&] { GetNearestPaletteIndex(palette, 0); }},
        {"GetPaletteEntries", [&] { GetPaletteEntries(palette, 0, 1, nullptr); }},
        {"GetStockObject", [] { GetStockObject(BLACK_BRUSH); }},
        {"GetObjectType", [&] { GetObjectType(pen); }},
        {"GetObjectW", [&] { GetObjectW(pen, sizeof buffer, buffer); }},
        {"GetObjectA", [&] { GetObjectA(pen, sizeof buffer, buffer); }},
        {"DeleteObject", [] { DeleteObject(nullptr); }},
    };
    for (const Call &call : calls) {
        GdkLockCounter counter;
        call.run();
        EXPECT_GE(counter.enters(), 1) << call.name;
        EXPECT_EQ(counter.enters(), counter.leaves()) << call.name;
    }
    for (HGDIOBJ object : g_made)
        EXPECT_TRUE(DeleteObject(object));
    g_made.clear();
    DeleteObject(pen);
    DeleteObject(bitmap);
}
