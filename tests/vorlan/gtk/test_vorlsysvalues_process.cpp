// System values seen from child processes under desktops of the tests'
// own: two GTK themes (gtkrc files given through GTK2_RC_FILES) and an X
// server without a window manager.

#include <gtest/gtest.h>

#include "support/child_process.h"

#include <windows.h>

#include <string>

using vorlan_test::ChildOptions;
using vorlan_test::ChildResult;
using vorlan_test::RunChild;

namespace {

std::string ThemeFile(const char *name)
{
    return std::string(VORLAN_TEST_THEMES) + "/" + name;
}

ChildOptions ProbeOptions()
{
    ChildOptions options;
    options.path = VORLAN_SYSVALUES_PROBE;
    options.argv = {VORLAN_SYSVALUES_PROBE};
    options.environment["GTK2_RC_FILES"] = std::nullopt;
    options.environment["XSynchronize"] = std::nullopt;
    return options;
}

ChildResult RunUnderTheme(const char *name)
{
    ChildOptions options = ProbeOptions();
    options.environment["GTK2_RC_FILES"] = ThemeFile(name);
    const ChildResult result = RunChild(options);
    EXPECT_TRUE(result.exited && result.exitStatus == 0) << result.Transcript();
    return result;
}

std::string ValueOr(const ChildResult &result, const char *key)
{
    return result.Value(key).value_or("(missing)");
}

// The two themes of tests/vorlan/themes.
class TwoThemes : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        s_blue = new ChildResult(RunUnderTheme("vorlan-test-blue.gtkrc"));
        s_sand = new ChildResult(RunUnderTheme("vorlan-test-sand.gtkrc"));
    }
    static void TearDownTestSuite()
    {
        delete s_blue;
        delete s_sand;
        s_blue = s_sand = nullptr;
    }

    static ChildResult *s_blue;
    static ChildResult *s_sand;
};

ChildResult *TwoThemes::s_blue = nullptr;
ChildResult *TwoThemes::s_sand = nullptr;

} // namespace

TEST_F(TwoThemes, ButtonFaceIsThemeWindowColour)
{
    // bg[NORMAL] "#336699" and "#c0a080" as COLORREF (blue, green, red).
    EXPECT_EQ(ValueOr(*s_blue, "btnface"), "996633") << s_blue->Transcript();
    EXPECT_EQ(ValueOr(*s_sand, "btnface"), "80a0c0") << s_sand->Transcript();
}

TEST_F(TwoThemes, ShadesFollowTheWindowColour)
{
    EXPECT_EQ(ValueOr(*s_blue, "btnshadow"), "673401");
    EXPECT_EQ(ValueOr(*s_sand, "btnshadow"), "4e6e8e");
    EXPECT_EQ(ValueOr(*s_blue, "3ddkshadow"), "030000");
    EXPECT_EQ(ValueOr(*s_sand, "3ddkshadow"), "000a2a");
    EXPECT_EQ(ValueOr(*s_blue, "3dlight"), "a3703d");
    EXPECT_EQ(ValueOr(*s_sand, "3dlight"), "8aaaca");
}

TEST_F(TwoThemes, SelectionFollowsEntryColours)
{
    EXPECT_EQ(ValueOr(*s_blue, "highlight"), "302010");
    EXPECT_EQ(ValueOr(*s_blue, "highlighttext"), "d0e0f0");
    EXPECT_EQ(ValueOr(*s_sand, "highlight"), "605040");
    EXPECT_EQ(ValueOr(*s_sand, "highlighttext"), "030201");
}

TEST_F(TwoThemes, ScrollBarWidthFollowsSliderAndTrough)
{
    // slider 20 + 2 * trough 3, and slider 11 + 2 * trough 0.
    for (const char *key : {"cxvscroll", "cyhscroll", "cyvscroll", "cxhscroll"}) {
        EXPECT_EQ(ValueOr(*s_blue, key), "26") << key;
        EXPECT_EQ(ValueOr(*s_sand, key), "11") << key;
    }
}

TEST_F(TwoThemes, FixedColoursIgnoreTheTheme)
{
    EXPECT_EQ(ValueOr(*s_blue, "btnhighlight"), "ffffff");
    EXPECT_EQ(ValueOr(*s_sand, "btnhighlight"), "ffffff");
    EXPECT_EQ(ValueOr(*s_blue, "inactivecaptiontext"), "f8e4d8");
    EXPECT_EQ(ValueOr(*s_sand, "inactivecaptiontext"), "f8e4d8");
}

TEST(WorkAreaWithoutWindowManager, IsTheWholeScreen)
{
    ChildOptions options = ProbeOptions();
    options.path = VORLAN_WITH_XVFB;
    options.argv = {VORLAN_WITH_XVFB, "--no-wm", "--size", "800x600", "--", VORLAN_SYSVALUES_PROBE};
    options.timeoutMilliseconds = 30000;
    const ChildResult result = RunChild(options);
    ASSERT_TRUE(result.exited && result.exitStatus == 0) << result.Transcript();
    EXPECT_EQ(ValueOr(result, "cxscreen"), "800") << result.Transcript();
    EXPECT_EQ(ValueOr(result, "cyscreen"), "600");
    EXPECT_EQ(ValueOr(result, "workarea_ok"), "1");
    EXPECT_EQ(ValueOr(result, "workarea"), "0,0,800,600");
}

TEST(WorkAreaWithWindowManager, ReservedStripIsLeftOut)
{
    ChildOptions options = ProbeOptions();
    options.path = VORLAN_WITH_XVFB;
    options.argv = {VORLAN_WITH_XVFB, "--size", "800x600", "--", VORLAN_SYSVALUES_PROBE, "strut"};
    options.timeoutMilliseconds = 30000;
    const ChildResult result = RunChild(options);
    ASSERT_TRUE(result.exited && result.exitStatus == 0) << result.Transcript();
    ASSERT_EQ(ValueOr(result, "strut_top"), "40") << result.Transcript();
    EXPECT_EQ(ValueOr(result, "workarea_ok"), "1");
    EXPECT_EQ(ValueOr(result, "workarea"), "0,40,800,600");
}

TEST(WorkAreaWithWindowManager, ChildSeesTheSameAreaAsThisProcess)
{
    RECT area = {};
    ASSERT_TRUE(SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0));
    const ChildResult result = RunChild(ProbeOptions());
    ASSERT_TRUE(result.exited && result.exitStatus == 0) << result.Transcript();
    const std::string expected = std::to_string(area.left) + "," + std::to_string(area.top) + "," +
                                 std::to_string(area.right) + "," + std::to_string(area.bottom);
    EXPECT_EQ(ValueOr(result, "workarea"), expected);
}
