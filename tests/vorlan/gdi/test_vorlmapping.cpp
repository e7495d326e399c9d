#include <gtest/gtest.h>

#include "support/dc_test_helpers.h"

#include <climits>
#include <cmath>
#include <vector>

using vorlan_test::MemoryDC;
using vorlan_test::StateOf;

namespace {

POINT ToDevice(HDC hdc, int x, int y)
{
    POINT point = {x, y};
    EXPECT_TRUE(LPtoDP(hdc, &point, 1));
    return point;
}

POINT ToLogical(HDC hdc, int x, int y)
{
    POINT point = {x, y};
    EXPECT_TRUE(DPtoLP(hdc, &point, 1));
    return point;
}

#define EXPECT_POINT(point, ex, ey)                                                                                \
    do {                                                                                                           \
        const POINT p_ = (point);                                                                                  \
        EXPECT_EQ(p_.x, (ex));                                                                                     \
        EXPECT_EQ(p_.y, (ey));                                                                                     \
    } while (0)

struct ScreenSize {
    int hs, vs, hr, vr;
};

ScreenSize ScreenOf(HDC hdc)
{
    return {GetDeviceCaps(hdc, HORZSIZE), GetDeviceCaps(hdc, VERTSIZE), GetDeviceCaps(hdc, HORZRES),
            GetDeviceCaps(hdc, VERTRES)};
}

} // namespace

TEST(CoordinateMapping, TextModeMapsEveryPointToItselfAndRoundsHalvesUp)
{
    MemoryDC dc;
    for (POINT p : {POINT{0, 0}, POINT{-7, 13}, POINT{INT_MAX, INT_MIN}, POINT{INT_MIN, INT_MAX}, POINT{1, -1}}) {
        EXPECT_POINT(ToDevice(dc, p.x, p.y), p.x, p.y);
        EXPECT_POINT(ToLogical(dc, p.x, p.y), p.x, p.y);
    }
    POINT unused = {3, 4};
    EXPECT_TRUE(LPtoDP(dc, &unused, 0));
    EXPECT_TRUE(DPtoLP(dc, nullptr, 0));
    EXPECT_FALSE(LPtoDP(dc, &unused, -1));
    // Halves round towards positive infinity.
    SetWindowExtEx(dc, 2, 2, nullptr);
    EXPECT_POINT(ToDevice(dc, 1, -1), 1, 0);
    EXPECT_POINT(ToDevice(dc, 3, -3), 2, -1);
    EXPECT_POINT(ToDevice(dc, -5, 5), -2, 3);
}

TEST(CoordinateMapping, FixedModesTakeTheirExtentsFromTheScreen)
{
    MemoryDC dc;
    const ScreenSize s = ScreenOf(dc);
    struct Mode {
        int mode;
        SIZE window;
    } modes[] = {
        {MM_LOMETRIC, {s.hs * 10, s.vs * 10}},
        {MM_TWIPS, {(s.hs * 14400 + 127) / 254, (s.vs * 14400 + 127) / 254}},
    };
    int previous = MM_TEXT;
    for (const Mode &m : modes) {
        EXPECT_EQ(SetMapMode(dc, m.mode), previous);
        const vorlan::DCState state = StateOf(dc);
        EXPECT_EQ(state.szViewportExt.cx, s.hr) << m.mode;
        EXPECT_EQ(state.szViewportExt.cy, -s.vr) << m.mode;
        EXPECT_EQ(state.szWindowExt.cx, m.window.cx) << m.mode;
        EXPECT_EQ(state.szWindowExt.cy, m.window.cy) << m.mode;
        previous = m.mode;
    }
    // y grows upward in the metric modes.
    SetMapMode(dc, MM_LOMETRIC);
    const POINT p = ToDevice(dc, 0, 100);
    EXPECT_LT(p.y, 0);
    const float sy = static_cast<float>(static_cast<double>(-s.vr) / (s.vs * 10));
    EXPECT_EQ(p.y, static_cast<LONG>(std::floor(100.0L * sy + 0.5L)));
    EXPECT_EQ(p.x, 0);
}

TEST(CoordinateMapping, FreeModesKeepTheExtentsWithoutAspectCorrectionAndAnyModeAboveIsStored)
{
    MemoryDC dc;
    SetWindowExtEx(dc, 40, 50, nullptr);
    SetViewportExtEx(dc, 60, 70, nullptr);
    for (int mode : {MM_ISOTROPIC, MM_ANISOTROPIC, 9, 1000}) {
        SetMapMode(dc, mode);
        EXPECT_EQ(GetMapMode(dc), mode);
        const vorlan::DCState state = StateOf(dc);
        EXPECT_EQ(state.szWindowExt.cx, 40);
        EXPECT_EQ(state.szViewportExt.cy, 70);
    }
    EXPECT_EQ(SetMapMode(dc, 0), 0);
    EXPECT_EQ(SetMapMode(dc, -3), 0);
    EXPECT_EQ(GetMapMode(dc), 1000);
    // The isotropic mode gets no aspect correction.
    SetMapMode(dc, MM_ISOTROPIC);
    SetWindowExtEx(dc, 100, 100, nullptr);
    SetViewportExtEx(dc, 300, -50, nullptr);
    EXPECT_POINT(ToDevice(dc, 100, 100), 300, -50);
    // Setting a fixed mode again rebuilds nothing.
    EXPECT_EQ(SetMapMode(dc, MM_HIMETRIC), MM_ISOTROPIC);
    SetViewportExtEx(dc, 5, 5, nullptr);
    SetWindowExtEx(dc, 1, 1, nullptr);
    EXPECT_EQ(SetMapMode(dc, MM_HIMETRIC), MM_HIMETRIC);
    EXPECT_POINT(ToDevice(dc, 2, 3), 10, 15);
}

TEST(CoordinateMapping, OriginsAndExtentsSetInTextModeChangeTheMappingButOnlyTheViewportOriginOffsets)
{
    MemoryDC dc;
    SIZE oldSize = {};
    EXPECT_TRUE(SetWindowExtEx(dc, 2, 4, &oldSize));
    EXPECT_EQ(oldSize.cx, 1);
    EXPECT_EQ(oldSize.cy, 1);
    EXPECT_POINT(ToDevice(dc, 10, 10), 5, 3);
    POINT oldPoint = {};
    EXPECT_TRUE(SetViewportOrgEx(dc, 100, 200, &oldPoint));
    EXPECT_POINT(oldPoint, 0, 0);
    EXPECT_TRUE(SetWindowOrgEx(dc, 10, 20, nullptr));
    EXPECT_POINT(ToDevice(dc, 10, 20), 100, 200);
    EXPECT_POINT(ToLogical(dc, 101, 201), 12, 24);
    POINT org;
    EXPECT_FALSE(GetWindowOrgEx(dc, nullptr));
    EXPECT_FALSE(GetViewportOrgEx(dc, nullptr));
    EXPECT_TRUE(SetViewportOrg(dc, 0, 0, &oldPoint));
    EXPECT_POINT(oldPoint, 100, 200);

    // Only the viewport origin can be offset, and no extent scaled.
    SetWindowExtEx(dc, 1, 1, nullptr);
    SetViewportExtEx(dc, 1, 1, nullptr);
    SetViewportOrgEx(dc, 5, 6, nullptr);
    SetWindowOrgEx(dc, 1, 1, nullptr);
    POINT old = {-1, -1};
    EXPECT_TRUE(OffsetViewportOrgEx(dc, 10, -20, &old));
    EXPECT_POINT(old, 5, 6);
    GetViewportOrgEx(dc, &org);
    EXPECT_POINT(org, 15, -14);
    EXPECT_POINT(ToDevice(dc, 1, 1), 15, -14);
    EXPECT_FALSE(OffsetWindowOrgEx(dc, 3, 3, &old));
    GetWindowOrgEx(dc, &org);
    EXPECT_POINT(org, 1, 1);
    SIZE size = {-1, -1};
    EXPECT_FALSE(ScaleWindowExtEx(dc, 2, 1, 2, 1, &size));
    EXPECT_FALSE(ScaleViewportExtEx(dc, 2, 1, 2, 1, &size));
    EXPECT_EQ(StateOf(dc).szWindowExt.cx, 1);
    EXPECT_EQ(StateOf(dc).szViewportExt.cx, 1);
}

TEST(CoordinateMapping, ZeroExtentsKeepTheLastInverseAndNeverFault)
{
    MemoryDC dc;
    SetViewportOrgEx(dc, 3, 4, nullptr);
    SetWindowExtEx(dc, 2, 4, nullptr);
    SetViewportExtEx(dc, 1, 1, nullptr);
    EXPECT_POINT(ToLogical(dc, 13, 14), 20, 40);

    EXPECT_TRUE(SetWindowExtEx(dc, 0, 0, nullptr));
    EXPECT_POINT(ToLogical(dc, 13, 14), 20, 40);
    // The axes collapse onto the viewport origin.
    EXPECT_POINT(ToDevice(dc, 100, -100), 3, 4);

    EXPECT_TRUE(SetViewportExtEx(dc, 0, 0, nullptr));
    EXPECT_POINT(ToDevice(dc, INT_MAX, INT_MIN), 3, 4);
    EXPECT_TRUE(SetWindowExtEx(dc, 5, 0, nullptr));
    EXPECT_POINT(ToDevice(dc, 50, 50), 3, 4);
    EXPECT_POINT(ToLogical(dc, 13, 14), 20, 40);
    EXPECT_TRUE(SetViewportExtEx(dc, 5, 5, nullptr));
    EXPECT_POINT(ToDevice(dc, 50, 50), 53, 4);
    // A working extent gives a working inverse again.
    EXPECT_TRUE(SetWindowExtEx(dc, 5, 5, nullptr));
    EXPECT_POINT(ToLogical(dc, 13, 14), 10, 10);
}

TEST(CoordinateMapping, NegativeExtentsMirrorAndComeBackExactly)
{
    MemoryDC dc;
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowExtEx(dc, -1, 1, nullptr);
    SetViewportExtEx(dc, 1, -1, nullptr);
    EXPECT_POINT(ToDevice(dc, 5, 7), -5, -7);
    EXPECT_POINT(ToLogical(dc, -5, -7), 5, 7);
    SetWindowExtEx(dc, -3, -3, nullptr);
    SetViewportExtEx(dc, -3, -3, nullptr);
    for (int v : {INT_MIN + 1, -12345, 0, 999, INT_MAX})
        EXPECT_POINT(ToLogical(dc, ToDevice(dc, v, v).x, ToDevice(dc, v, v).y), v, v);
}

TEST(CoordinateMapping, HugeExtentsSaturateInsteadOfWrapping)
{
    MemoryDC dc;
    SetMapMode(dc, MM_ANISOTROPIC);
    SetViewportExtEx(dc, INT_MAX, INT_MAX, nullptr);
    EXPECT_POINT(ToDevice(dc, 2, 2), INT_MAX, INT_MAX);
    EXPECT_POINT(ToDevice(dc, -2, -2), INT_MIN, INT_MIN);
    EXPECT_POINT(ToDevice(dc, 0, 0), 0, 0);
    EXPECT_POINT(ToLogical(dc, INT_MAX, INT_MIN), 1, -1);

    SetViewportExtEx(dc, 1, 1, nullptr);
    SetWindowExtEx(dc, INT_MAX, INT_MAX, nullptr);
    EXPECT_POINT(ToDevice(dc, INT_MAX, INT_MIN), 1, -1);
    // A scale this small has no usable inverse: the last one, the identity
    // of the unit extents, stays.
    EXPECT_POINT(ToLogical(dc, 5, -5), 5, -5);
    SetWindowExtEx(dc, 100000, 100000, nullptr);
    EXPECT_POINT(ToLogical(dc, 5, -5), 500000, -500000);
    EXPECT_POINT(ToLogical(dc, 30000, -30000), INT_MAX, INT_MIN);

    SetViewportExtEx(dc, INT_MIN, INT_MIN, nullptr);
    SetWindowExtEx(dc, INT_MIN, INT_MIN, nullptr);
    EXPECT_POINT(ToDevice(dc, 77, -77), 77, -77);

    SetViewportExtEx(dc, INT_MIN, 1, nullptr);
    SetWindowExtEx(dc, 1, INT_MIN, nullptr);
    SetViewportOrgEx(dc, INT_MAX, INT_MIN, nullptr);
    SetWindowOrgEx(dc, INT_MIN, INT_MAX, nullptr);
    ToDevice(dc, INT_MAX, INT_MIN);
    ToLogical(dc, INT_MIN, INT_MAX);
}

TEST(CoordinateMapping, RoundTripsInEveryMode)
{
    MemoryDC dc;
    const std::vector<int> samples = {-5000, -1234, -3, -1, 0, 1, 2, 17, 640, 4999};
    // Where a pixel holds several logical units, a device point comes back
    // from its logical point unchanged; where a logical unit covers several
    // pixels, a logical point comes back from its device point.
    for (int mode = MM_LOMETRIC; mode <= MM_TWIPS; ++mode) {
        SetMapMode(dc, mode);
        SetViewportOrgEx(dc, 37, -11, nullptr);
        SetWindowOrgEx(dc, -250, 400, nullptr);
        const XFORM toDevice = StateOf(dc).xformWorldToDevice;
        const bool fine = std::fabs(toDevice.eM11) < 1.0f && std::fabs(toDevice.eM22) < 1.0f;
        for (int x : samples) {
            for (int y : samples) {
                if (fine) {
                    const POINT l = ToLogical(dc, x, y);
                    EXPECT_POINT(ToDevice(dc, l.x, l.y), x, y);
                } else {
                    const POINT d = ToDevice(dc, x, y);
                    EXPECT_POINT(ToLogical(dc, d.x, d.y), x, y);
                }
            }
        }
    }
}

TEST(CoordinateMapping, CombineTransformAppliesTheFirstThenTheSecond)
{
    const XFORM scale = {2.0f, 0.0f, 0.0f, 3.0f, 0.0f, 0.0f};
    const XFORM shift = {1.0f, 0.0f, 0.0f, 1.0f, 10.0f, 20.0f};
    XFORM out;
    ASSERT_TRUE(CombineTransform(&out, &scale, &shift));
    EXPECT_FLOAT_EQ(out.eM11, 2.0f);
    EXPECT_FLOAT_EQ(out.eM22, 3.0f);
    EXPECT_FLOAT_EQ(out.eDx, 10.0f);
    EXPECT_FLOAT_EQ(out.eDy, 20.0f);
    const XFORM rotate = {0.0f, 1.0f, -1.0f, 0.0f, 1.0f, 2.0f};
    XFORM b = rotate;
    ASSERT_TRUE(CombineTransform(&b, &rotate, &b));
    EXPECT_FLOAT_EQ(b.eM11, -1.0f);
    EXPECT_FLOAT_EQ(b.eM12, 0.0f);
    EXPECT_FLOAT_EQ(b.eDx, -1.0f);
    EXPECT_FLOAT_EQ(b.eDy, 3.0f);
    EXPECT_FALSE(CombineTransform(nullptr, &scale, &shift));
    EXPECT_FALSE(CombineTransform(&out, nullptr, &shift));
    EXPECT_FALSE(CombineTransform(&out, &scale, nullptr));
}
