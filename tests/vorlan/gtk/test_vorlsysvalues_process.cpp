// System values seen from child processes under desktops of the tests'
// own: two GTK themes (gtkrc files given through GTK2_RC_FILES) and an X
// server without a window manager.

#include <gtest/gtest.h>

#include "support/child_process.h"

#include <string>

using vorlan_test::ChildOptions;
using vorlan_test::ChildResult;
using vorlan_test::RunChild;

namespace {

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
    options.environment["GTK2_RC_FILES"] = std::string(VORLAN_TEST_THEMES) + "/" + name;
    return RunChild(options);
}

// The probe on a private 800x600 X server, with or without a window manager.
ChildResult RunOnOwnServer(bool windowManager, const char *probeArgument = nullptr)
{
    ChildOptions options = ProbeOptions();
    options.path = VORLAN_WITH_XVFB;
    options.argv = {VORLAN_WITH_XVFB, "--size", "800x600", "--", VORLAN_SYSVALUES_PROBE};
    if (!windowManager)
        options.argv.insert(options.argv.begin() + 1, "--no-wm");
    if (probeArgument != nullptr)
        options.argv.push_back(probeArgument);
    options.timeoutMilliseconds = 30000;
    return RunChild(options);
}

std::string ValueOr(const ChildResult &result, const char *key)
{
    return result.Value(key).value_or("(missing)");
}

} // namespace

// Two themes of tests/vorlan/themes: bg[NORMAL] "#336699" and "#c0a080",
// scroll bars of slider 20 + 2 * trough 3 and slider 11 + 2 * trough 0.
// Colours are COLORREF (blue, green, red) in hexadecimal.
TEST(TwoThemes, ThemeColoursAndScrollBarsFollowTheThemeAndFixedColoursDoNot)
{
    struct Expected {
        const char *key;
        const char *blue;
        const char *sand;
    };
    const Expected expected[] = {
        {"btnface", "996633", "80a0c0"},        {"btnshadow", "673401", "4e6e8e"},
        {"3ddkshadow", "030000", "000a2a"},     {"3dlight", "a3703d", "8aaaca"},
        {"highlight", "302010", "605040"},      {"highlighttext", "d0e0f0", "030201"},
        {"cxvscroll", "26", "11"},              {"cyhscroll", "26", "11"},
        {"cyvscroll", "26", "11"},              {"cxhscroll", "26", "11"},
        {"btnhighlight", "ffffff", "ffffff"},   {"inactivecaptiontext", "f8e4d8", "f8e4d8"},
    };
    const ChildResult blue = RunUnderTheme("vorlan-test-blue.gtkrc");
    const ChildResult sand = RunUnderTheme("vorlan-test-sand.gtkrc");
    ASSERT_TRUE(blue.exited && blue.exitStatus == 0) << blue.Transcript();
    ASSERT_TRUE(sand.exited && sand.exitStatus == 0) << sand.Transcript();
    for (const Expected &entry : expected) {
        SCOPED_TRACE(entry.key);
        EXPECT_EQ(ValueOr(blue, entry.key), entry.blue);
        EXPECT_EQ(ValueOr(sand, entry.key), entry.sand);
    }
}

TEST(WorkAreaWithoutWindowManager, IsTheWholeScreen)
{
    const ChildResult result = RunOnOwnServer(false);
    ASSERT_TRUE(result.exited && result.exitStatus == 0) << result.Transcript();
    EXPECT_EQ(ValueOr(result, "cxscreen"), "800") << result.Transcript();
    EXPECT_EQ(ValueOr(result, "cyscreen"), "600");
    EXPECT_EQ(ValueOr(result, "workarea_ok"), "1");
    EXPECT_EQ(ValueOr(result, "workarea"), "0,0,800,600");
}

TEST(WorkAreaWithWindowManager, ReservedStripIsLeftOut)
{
    const ChildResult result = RunOnOwnServer(true, "strut");
    ASSERT_TRUE(result.exited && result.exitStatus == 0) << result.Transcript();
    ASSERT_EQ(ValueOr(result, "strut_top"), "40") << result.Transcript();
    EXPECT_EQ(ValueOr(result, "workarea_ok"), "1");
    EXPECT_EQ(ValueOr(result, "workarea"), "0,40,800,600");
}
