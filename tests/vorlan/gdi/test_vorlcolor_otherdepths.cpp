#include <gtest/gtest.h>

#include "support/palette_test_helpers.h"
#include "support/child_process.h"

#include <gdk/gdk.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>

using namespace vorlan_test;

namespace {

constexpr const char *kDepthVariable = "VORLAN_TEST_SCREEN_DEPTH";

bool RunningUnderDepth(const char *depth)
{
    const char *value = std::getenv(kDepthVariable);
    return value != nullptr && std::strcmp(value, depth) == 0;
}

std::string OwnExecutable()
{
    char path[4096] = {};
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path - 1);
    return length > 0 ? std::string(path, static_cast<size_t>(length)) : std::string();
}

ChildResult RunSuiteUnderDepth(const char *depth, const char *suite)
{
    ChildOptions options;
    options.path = VORLAN_WITH_XVFB;
    options.argv = {VORLAN_WITH_XVFB,
                    "--depth",
                    depth,
                    "--no-wm",
                    "--",
                    OwnExecutable(),
                    std::string("--gtest_filter=") + suite + ".*",
                    "--gtest_also_run_disabled_tests"};
    options.environment[kDepthVariable] = std::string(depth);
    options.environment["XSynchronize"] = std::nullopt;
    options.timeoutMilliseconds = 120000;
    return RunChild(options);
}

void ExpectChildSuitePassed(const ChildResult &result)
{
    EXPECT_TRUE(result.exited && result.exitStatus == 0) << result.Transcript();
    EXPECT_NE(result.out.find("[  PASSED  ]"), std::string::npos) << result.Transcript();
    EXPECT_EQ(result.out.find("[  SKIPPED ]"), std::string::npos) << result.Transcript();
    EXPECT_EQ(result.out.find("[  FAILED  ]"), std::string::npos) << result.Transcript();
}

// Runs only in the child started under a server of `kDepth` bits, whose
// visual must be of `kType`.
template <int kDepth, GdkVisualType kType> class ScreenOfDepth : public testing::Test {
protected:
    void SetUp() override
    {
        if (!RunningUnderDepth(std::to_string(kDepth).c_str()))
            GTEST_SKIP() << "runs as a child under a " << kDepth << "-bit server";
        ASSERT_EQ(gdk_visual_get_system()->type, kType);
        ASSERT_EQ(gdk_visual_get_system()->depth, kDepth);
    }
};

using PaletteOnPseudoColourScreen = ScreenOfDepth<8, GDK_VISUAL_PSEUDO_COLOR>;
using ColourOnSixteenBitScreen = ScreenOfDepth<16, GDK_VISUAL_TRUE_COLOR>;

} // namespace

TEST(PaletteUnderOtherScreenDepths, PseudoColourChecksPassUnderAnEightBitServer)
{
    ExpectChildSuitePassed(RunSuiteUnderDepth("8", "PaletteOnPseudoColourScreen"));
}

TEST(PaletteUnderOtherScreenDepths, SixteenBitChecksPassUnderASixteenBitServer)
{
    ExpectChildSuitePassed(RunSuiteUnderDepth("16", "ColourOnSixteenBitScreen"));
}

TEST_F(PaletteOnPseudoColourScreen, DISABLED_ContextsReportAPaletteAndCountAndZeroItsEntries)
{
    Canvas canvas(4, 4);
    EXPECT_EQ(GetDeviceCaps(canvas, BITSPIXEL), 8);
    EXPECT_NE(GetDeviceCaps(canvas, RASTERCAPS) & RC_PALETTE, 0);
    EXPECT_EQ(GetSystemPaletteUse(canvas), 2u);
    HDC screen = GetDC(nullptr);
    EXPECT_EQ(GetSystemPaletteUse(screen), 2u);
    ReleaseDC(nullptr, screen);
    PALETTEENTRY entries[300];
    std::memset(entries, 0xAB, sizeof entries);
    EXPECT_EQ(GetSystemPaletteEntries(canvas, 0, 0, entries), 256u);
    EXPECT_EQ(entries[0].peRed, 0);
    EXPECT_EQ(entries[255].peBlue, 0);
    EXPECT_EQ(entries[256].peRed, 0xAB);
    std::memset(entries, 0xAB, sizeof entries);
    EXPECT_EQ(GetSystemPaletteEntries(canvas, 250, 0, entries), 6u);
    EXPECT_EQ(entries[5].peGreen, 0);
    EXPECT_EQ(entries[6].peGreen, 0xAB);
    EXPECT_EQ(GetSystemPaletteEntries(canvas, 10, 300, entries), 246u);
    EXPECT_EQ(GetSystemPaletteEntries(canvas, 2, 3, entries), 3u);
    EXPECT_EQ(GetSystemPaletteEntries(canvas, 256, 1, entries), 0u);
    EXPECT_EQ(GetSystemPaletteEntries(canvas, 0, 0, nullptr), 256u);
}

TEST_F(PaletteOnPseudoColourScreen, DISABLED_RealizeCountsTheColoursAndIndicesPaintTheEntries)
{
    Canvas canvas(8, 8);
    EXPECT_EQ(RealizePalette(canvas), 20u);
    TestPalette palette({RGB(0x33, 0x66, 0x99), RGB(0xCC, 0x33, 0x00), kWhite, kBlack, RGB(0, 0x99, 0x33)});
    SelectPalette(canvas, palette, FALSE);
    EXPECT_EQ(RealizePalette(canvas), 5u);
    EXPECT_FALSE(UpdateColors(canvas));
    // The server's colormap may be full: an entry then paints the nearest
    // colour the colormap holds, as a plain value of that colour would.
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(0)), GetNearestColor(canvas, RGB(0x33, 0x66, 0x99)));
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(0)), PaintAndRead(canvas, RGB(0x33, 0x66, 0x99)));
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(1)), RGB(0xCC, 0x33, 0x00));
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(7)), kBlack);
}

TEST_F(PaletteOnPseudoColourScreen, DISABLED_RgbPaintsTheNearestPaletteEntryOrColormapColour)
{
    Canvas canvas(8, 8);
    const COLORREF nearest = GetNearestColor(canvas, RGB(0x12, 0x9A, 0x7E));
    EXPECT_NE(nearest, CLR_INVALID);
    EXPECT_EQ(PaintAndRead(canvas, RGB(0x12, 0x9A, 0x7E)), nearest);
    EXPECT_EQ(GetNearestColor(canvas, kWhite), kWhite);
    EXPECT_EQ(GetNearestColor(canvas, kBlack), kBlack);
    TestPalette palette({kBlack, RGB(0xCC, 0x33, 0x00), RGB(0x00, 0x66, 0xFF)});
    SelectPalette(canvas, palette, FALSE);
    EXPECT_EQ(PaintAndRead(canvas, PALETTERGB(0xC0, 0x40, 0x10)), RGB(0xCC, 0x33, 0x00));
    EXPECT_EQ(PaintAndRead(canvas, PALETTERGB(0x10, 0x50, 0xE0)), RGB(0x00, 0x66, 0xFF));
    EXPECT_EQ(GetNearestColor(canvas, PALETTERGB(0xC0, 0x40, 0x10)), RGB(0xCC, 0x33, 0x00));
    // Mono bitmaps take the nearer of black and white.
    Canvas mono(8, 8, 1);
    EXPECT_EQ(PaintAndRead(mono, RGB(0x80, 0x80, 0x80)), kWhite);
    EXPECT_EQ(PaintAndRead(mono, RGB(0x7F, 0x7F, 0x7F)), kBlack);
    EXPECT_EQ(PaintAndRead(mono, kGreen), kWhite);
    EXPECT_EQ(PaintAndRead(mono, kRed), kBlack);
}

TEST_F(ColourOnSixteenBitScreen, DISABLED_NearestColourIsTheValueTheDisplayHas)
{
    Canvas canvas(8, 8);
    EXPECT_EQ(GetDeviceCaps(canvas, BITSPIXEL), 16);
    EXPECT_EQ(GetDeviceCaps(canvas, RASTERCAPS) & RC_PALETTE, 0);
    // Five bits of red and blue, six of green.
    const COLORREF nearest = GetNearestColor(canvas, RGB(0x80, 0x80, 0x80));
    EXPECT_NE(nearest, RGB(0x80, 0x80, 0x80));
    EXPECT_EQ(PaintAndRead(canvas, RGB(0x80, 0x80, 0x80)), nearest);
    EXPECT_EQ(GetNearestColor(canvas, kWhite), kWhite);
    EXPECT_EQ(GetNearestColor(canvas, kBlack), kBlack);
    EXPECT_EQ(RealizePalette(canvas), 0u);
}
