// Every exported context call runs under the toolkit lock and lets it go
// again, with a live context and with a bad one.
#include <gtest/gtest.h>

#include "gdi/dc_test_helpers.h"
#include "support/gdk_lock_counter.h"

#include <functional>
#include <string>
#include <vector>

using vorlan_test::GdkLockCounter;

namespace {

struct Call {
    std::string name;
    std::function<void(HDC)> run;
};

} // namespace

TEST(DeviceContextLocking, EveryContextCallTakesTheToolkitLock)
{
    HDC live = CreateCompatibleDC(nullptr);
    HDC dead = CreateCompatibleDC(nullptr);
    DeleteDC(dead);
    HPEN pen = CreatePen(PS_SOLID, 1, 0);
    HRGN region = CreateRectRgn(0, 0, 3, 3);
    POINT pt = {};
    SIZE sz = {};
    const std::vector<Call> calls = {
        {"SelectObject", [&](HDC h) { SelectObject(h, pen); }},
        {"GetCurrentObject", [](HDC h) { GetCurrentObject(h, OBJ_PEN); }},
        {"SelectPalette", [](HDC h) { SelectPalette(h, HPALETTE(GetStockObject(DEFAULT_PALETTE)), TRUE); }},
        {"SaveDC", [](HDC h) { SaveDC(h); }},
        {"RestoreDC", [](HDC h) { RestoreDC(h, -1); }},
        {"WindowFromDC", [](HDC h) { WindowFromDC(h); }},
        {"SetBkMode", [](HDC h) { SetBkMode(h, OPAQUE); }},
        {"GetBkMode", [](HDC h) { GetBkMode(h); }},
        {"SetPolyFillMode", [](HDC h) { SetPolyFillMode(h, ALTERNATE); }},
        {"GetPolyFillMode", [](HDC h) { GetPolyFillMode(h); }},
        {"SetROP2", [](HDC h) { SetROP2(h, R2_COPYPEN); }},
        {"GetROP2", [](HDC h) { GetROP2(h); }},
        {"SetStretchBltMode", [](HDC h) { SetStretchBltMode(h, BLACKONWHITE); }},
        {"SetMapperFlags", [](HDC h) { SetMapperFlags(h, 0); }},
        {"SetBrushOrgEx", [&](HDC h) { SetBrushOrgEx(h, 0, 0, &pt); }},
        {"GetBrushOrgEx", [&](HDC h) { GetBrushOrgEx(h, &pt); }},
        {"SetTextColor", [](HDC h) { SetTextColor(h, 0); }},
        {"GetTextColor", [](HDC h) { GetTextColor(h); }},
        {"SetBkColor", [](HDC h) { SetBkColor(h, 0xFFFFFF); }},
        {"GetBkColor", [](HDC h) { GetBkColor(h); }},
        {"GetDeviceCaps", [](HDC h) { GetDeviceCaps(h, BITSPIXEL); }},
        {"SetTextCharacterExtra", [](HDC h) { SetTextCharacterExtra(h, 0); }},
        {"GetTextCharacterExtra", [](HDC h) { GetTextCharacterExtra(h); }},
        {"SelectClipRgn", [&](HDC h) { SelectClipRgn(h, region); }},
        {"GetClipRgn", [&](HDC h) { GetClipRgn(h, region); }},
        {"IntersectClipRect", [](HDC h) { IntersectClipRect(h, 0, 0, 1, 1); }},
        {"ExcludeClipRect", [](HDC h) { ExcludeClipRect(h, 0, 0, 1, 1); }},
        {"OffsetClipRgn", [](HDC h) { OffsetClipRgn(h, 1, 1); }},
        {"GetClipBox", [](HDC h) { RECT rc; GetClipBox(h, &rc); }},
        {"RectVisible", [](HDC h) { RECT rc = {0, 0, 1, 1}; RectVisible(h, &rc); }},
        {"SetLayout", [](HDC h) { SetLayout(h, 0); }},
        {"GetLayout", [](HDC h) { GetLayout(h); }},
        {"SetTextAlign", [](HDC h) { SetTextAlign(h, 0); }},
        {"GetTextAlign", [](HDC h) { GetTextAlign(h); }},
        {"MoveToEx", [&](HDC h) { MoveToEx(h, 0, 0, &pt); }},
        {"SetMapMode", [](HDC h) { SetMapMode(h, MM_TEXT); }},
        {"GetMapMode", [](HDC h) { GetMapMode(h); }},
        {"SetViewportOrgEx", [&](HDC h) { SetViewportOrgEx(h, 0, 0, &pt); }},
        {"SetViewportOrg", [&](HDC h) { SetViewportOrg(h, 0, 0, &pt); }},
        {"GetViewportOrgEx", [&](HDC h) { GetViewportOrgEx(h, &pt); }},
        {"OffsetViewportOrgEx", [&](HDC h) { OffsetViewportOrgEx(h, 0, 0, &pt); }},
        {"SetViewportExtEx", [&](HDC h) { SetViewportExtEx(h, 1, 1, &sz); }},
        {"ScaleViewportExtEx", [&](HDC h) { ScaleViewportExtEx(h, 1, 1, 1, 1, &sz); }},
        {"SetWindowOrgEx", [&](HDC h) { SetWindowOrgEx(h, 0, 0, &pt); }},
        {"GetWindowOrgEx", [&](HDC h) { GetWindowOrgEx(h, &pt); }},
        {"OffsetWindowOrgEx", [&](HDC h) { OffsetWindowOrgEx(h, 0, 0, &pt); }},
        {"SetWindowExtEx", [&](HDC h) { SetWindowExtEx(h, 1, 1, &sz); }},
        {"ScaleWindowExtEx", [&](HDC h) { ScaleWindowExtEx(h, 1, 1, 1, 1, &sz); }},
        {"LPtoDP", [&](HDC h) { LPtoDP(h, &pt, 1); }},
        {"DPtoLP", [&](HDC h) { DPtoLP(h, &pt, 1); }},
        {"ResetDCW", [](HDC h) { ResetDCW(h, nullptr); }},
        {"GdiSetDeleteDCProc", [](HDC h) { GdiSetDeleteDCProc(h, nullptr, nullptr); }},
        {"CreateCompatibleDC",
         [](HDC h) {
             if (HDC made = CreateCompatibleDC(h))
                 DeleteDC(made);
         }},
        {"DeleteDC", [](HDC h) { DeleteDC(h); }},
    };
    for (HDC hdc : {live, dead}) {
        for (const Call &call : calls) {
            if (call.name == "DeleteDC" && hdc == live)
                continue;
            GdkLockCounter counter;
            call.run(hdc);
            EXPECT_GE(counter.enters(), 1) << call.name;
            EXPECT_EQ(counter.enters(), counter.leaves()) << call.name;
        }
    }
    {
        GdkLockCounter counter;
        DeleteDC(live);
        EXPECT_GE(counter.enters(), 1);
        EXPECT_EQ(counter.enters(), counter.leaves());
    }
    DeleteObject(pen);
    DeleteObject(region);
}
