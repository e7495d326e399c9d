// Start-up and system values seen from child processes that load the library.
#include <gtest/gtest.h>

#include "support/child_process.h"

#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <utility>

using vorlan_test::ChildResult;
using vorlan_test::ChildOptions;
using vorlan_test::RunChild;

namespace {

const char kAllFatalSignals[] = "4,11,1,8,26";

// A child that loads the library with a clean start-up environment.  Unless
// a test sets them, the variables that steer start-up are removed.
ChildOptions ProbeOptions(const std::string &programName, const std::string &mode = "report")
{
    ChildOptions options;
    options.path = VORLAN_STARTUP_PROBE;
    options.argv = {programName, mode};
    options.environment["HOOK_FATAL_SIGNALS"] = std::nullopt;
    options.environment["BRANOBIN"] = std::nullopt;
    options.environment["XSynchronize"] = std::nullopt;
    options.environment["VORLAN_PROBE_STOP_AT_GTK_INIT"] = std::nullopt;
    return options;
}

// Start-up up to gtk_init, where the probe stops: no X connection is made,
// whatever DISPLAY says.
ChildOptions ProbeStoppingAtGtkInit(const std::string &programName)
{
    ChildOptions options = ProbeOptions(programName);
    options.environment["VORLAN_PROBE_STOP_AT_GTK_INIT"] = std::string("1");
    return options;
}

std::string ValueOr(const ChildResult &result, const std::string &key)
{
    return result.Value(key).value_or("(missing)");
}

// The child prints `report` (after "(pid N") once `pauseLine` shows, then
// waits instead of going on to print `passedMarker`.
void ExpectReportAndPause(ChildOptions options, const char *pauseLine, bool onStandardError,
                          const std::string &report, const char *passedMarker)
{
    options.killAfterLineContaining = pauseLine;
    const ChildResult result = RunChild(options);
    ASSERT_TRUE(result.killedAfterLine) << result.Transcript();
    EXPECT_FALSE(result.exited) << "the process did not wait: " << result.Transcript();
    const std::string &stream = onStandardError ? result.err : result.out;
    const std::string expected = "(pid " + std::to_string(result.pid) + report;
    EXPECT_NE(stream.find(expected), std::string::npos) << result.Transcript();
    EXPECT_EQ(result.out.find(passedMarker), std::string::npos);
}

// Whether some X server listens for display number n, on the file system
// socket or the abstract one.
bool DisplayServerExists(int n)
{
    const std::string socket = "/tmp/.X11-unix/X" + std::to_string(n);
    struct stat info;
    if (stat(socket.c_str(), &info) == 0)
        return true;
    std::ifstream unixSockets("/proc/net/unix");
    std::stringstream all;
    all << unixSockets.rdbuf();
    return all.str().find("@" + socket) != std::string::npos;
}

// The system values probe, with no theme file and no XSynchronize.
ChildOptions SysValuesProbeOptions()
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
    ChildOptions options = SysValuesProbeOptions();
    options.environment["GTK2_RC_FILES"] = std::string(VORLAN_TEST_THEMES) + "/" + name;
    return RunChild(options);
}

// The probe on a private 800x600 X server, with or without a window manager.
ChildResult RunOnOwnServer(bool windowManager, const char *probeArgument = nullptr)
{
    ChildOptions options = SysValuesProbeOptions();
    options.path = VORLAN_WITH_XVFB;
    options.argv = {VORLAN_WITH_XVFB, "--size", "800x600", "--", VORLAN_SYSVALUES_PROBE};
    if (!windowManager)
        options.argv.insert(options.argv.begin() + 1, "--no-wm");
    if (probeArgument != nullptr)
        options.argv.push_back(probeArgument);
    options.timeoutMilliseconds = 30000;
    return RunChild(options);
}

} // namespace

// Before gtk_init the host library is up and an unset or empty DISPLAY has
// become the default display; a set one is kept.
TEST(StartupProcess, HostLibraryAndDisplayAreReadyBeforeGtkInit)
{
    const std::pair<std::optional<std::string>, std::string> cases[] = {
        {std::nullopt, ":0.0"}, {"", ":0.0"}, {":42.0", ":42.0"}};
    for (const auto &[display, expected] : cases) {
        SCOPED_TRACE(display.value_or("(unset)"));
        ChildOptions options = ProbeStoppingAtGtkInit("/usr/bin/app");
        options.environment["DISPLAY"] = display;
        const ChildResult result = RunChild(options);
        ASSERT_TRUE(result.exited) << result.Transcript();
        EXPECT_EQ(ValueOr(result, "display_at_gtk_init"), expected) << result.Transcript();
        EXPECT_EQ(ValueOr(result, "calls_before_gtk_init"), "GetModuleHandleA,OSInit") << result.Transcript();
    }
}

TEST(StartupProcess, DisplayThatCannotBeOpenedEndsTheProcessAsGtkDoes)
{
    const int unusedDisplay = 987;
    if (DisplayServerExists(unusedDisplay))
        GTEST_SKIP() << "an X server listens on :" << unusedDisplay;
    ChildOptions options = ProbeOptions("/usr/bin/app");
    options.environment["DISPLAY"] = ":" + std::to_string(unusedDisplay);
    const ChildResult result = RunChild(options);
    ASSERT_FALSE(result.timedOut) << result.Transcript();
    ASSERT_TRUE(result.exited) << result.Transcript();
    EXPECT_NE(result.exitStatus, 0);
    EXPECT_NE(result.err.find("cannot open display: :987"), std::string::npos) << result.Transcript();
    EXPECT_FALSE(result.Value("module_path")) << "main() ran: " << result.Transcript();
}

// The module path is the program's name, or BRANOBIN's host program with or
// without a trailing slash.
TEST(StartupProcess, ModulePathComesFromTheProgramOrBranobin)
{
    struct Case {
        const char *program;
        std::optional<std::string> branobin;
        const char *expected;
    };
    const Case cases[] = {
        {"/opt/suite/bin/writer", std::nullopt, "/opt/suite/bin/writer"},
        {"/usr/bin/app", "/opt/host/bin", "/opt/host/bin/brano"},
        {"/usr/bin/app", "/opt/host/bin/", "/opt/host/bin/brano"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.branobin.value_or(c.program));
        ChildOptions options = ProbeStoppingAtGtkInit(c.program);
        options.environment["BRANOBIN"] = c.branobin;
        const ChildResult result = RunChild(options);
        EXPECT_EQ(ValueOr(result, "module_path"), c.expected) << result.Transcript();
    }
}

TEST(StartupProcess, ProgramNameIsReadUpTo259Bytes)
{
    const std::string longName = "/" + std::string(300, 'd') + "/brano";
    ChildOptions options = ProbeStoppingAtGtkInit(longName);
    options.environment["HOOK_FATAL_SIGNALS"] = std::string("1");
    const ChildResult result = RunChild(options);
    EXPECT_EQ(ValueOr(result, "module_path"), longName.substr(0, 259)) << result.Transcript();
    // Cut short, the name no longer ends in "/brano".
    EXPECT_EQ(ValueOr(result, "hooked_signals"), "") << result.Transcript();
}

// Only the host program, by path or bare name, with HOOK_FATAL_SIGNALS set
// (to anything, even empty) hooks the fatal signals.
TEST(StartupProcess, OnlyTheHostProgramWithTheHookVariableGetsFatalSignalHooks)
{
    struct Case {
        const char *program;
        std::optional<std::string> hookVariable;
        const char *expected;
    };
    const Case cases[] = {
        {"/opt/host/bin/brano", "1", kAllFatalSignals}, {"brano", "", kAllFatalSignals},
        {"/opt/host/bin/brano", std::nullopt, ""},      {"/opt/host/bin/xbrano", "1", ""},
        {"xbrano", "1", ""},                            {"bran", "1", ""},
        {"/opt/brano/app", "1", ""},                    {"/opt/host/brano.bin", "1", ""},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(std::string(c.program) + (c.hookVariable ? " with" : " without") + " HOOK_FATAL_SIGNALS");
        ChildOptions options = ProbeStoppingAtGtkInit(c.program);
        options.environment["HOOK_FATAL_SIGNALS"] = c.hookVariable;
        const ChildResult result = RunChild(options);
        EXPECT_EQ(ValueOr(result, "hooked_signals"), c.expected) << result.Transcript();
    }
}

TEST(StartupProcess, HookedSignalIsReportedAndTheProcessWaits)
{
    ChildOptions options = ProbeOptions("/opt/host/bin/brano", "raise-hup");
    options.environment["HOOK_FATAL_SIGNALS"] = std::string("1");
    ExpectReportAndPause(options, "You can kill it or attach it to debug", true,
                         " )vorlan signal 1 caught, now paused. You can kill it or attach it to debug \n",
                         "hup_passed");
}

TEST(StartupProcess, ConnectionIsSynchronousOnlyWithXSynchronize)
{
    for (bool synchronize : {true, false}) {
        SCOPED_TRACE(synchronize ? "XSynchronize set" : "XSynchronize unset");
        ChildOptions options = ProbeOptions("/usr/bin/app", "xsync-state");
        if (synchronize)
            options.environment["XSynchronize"] = std::string("1");
        const ChildResult result = RunChild(options);
        ASSERT_TRUE(result.exited) << result.Transcript();
        EXPECT_EQ(ValueOr(result, "x_synchronous"), synchronize ? "1" : "0") << result.Transcript();
    }
}

TEST(StartupProcess, XErrorUnderXSynchronizeIsReportedAndTheProcessWaits)
{
    ChildOptions options = ProbeOptions("/usr/bin/app", "x-error");
    options.environment["XSynchronize"] = std::string("1");
    ExpectReportAndPause(options, "occurs, waiting for debug or kill...", false,
                         " ) X lib error (3:BadWindow (invalid Window parameter)) occurs, "
                         "waiting for debug or kill...\n",
                         "x_error_passed");
}

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
        {"btnhighlight", "ffffff", "ffffff"},
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
