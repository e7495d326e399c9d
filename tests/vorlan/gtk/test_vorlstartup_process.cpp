// Start-up as a whole, seen from child processes that load the library with
// a chosen program name and environment (the probe program reports what
// start-up did).

#include <gtest/gtest.h>

#include "support/child_process.h"

#include <fstream>
#include <sstream>
#include <string>
#include <sys/stat.h>

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

} // namespace

TEST(StartupProcess, UnsetDisplayBecomesDefaultDisplayBeforeGtkInit)
{
    ChildOptions options = ProbeStoppingAtGtkInit("/usr/bin/app");
    options.environment["DISPLAY"] = std::nullopt;
    const ChildResult result = RunChild(options);
    ASSERT_TRUE(result.exited) << result.Transcript();
    EXPECT_EQ(ValueOr(result, "display_at_gtk_init"), ":0.0") << result.Transcript();
}

TEST(StartupProcess, EmptyDisplayBecomesDefaultDisplayBeforeGtkInit)
{
    ChildOptions options = ProbeStoppingAtGtkInit("/usr/bin/app");
    options.environment["DISPLAY"] = std::string();
    const ChildResult result = RunChild(options);
    ASSERT_TRUE(result.exited) << result.Transcript();
    EXPECT_EQ(ValueOr(result, "display_at_gtk_init"), ":0.0") << result.Transcript();
}

TEST(StartupProcess, SetDisplayIsKept)
{
    ChildOptions options = ProbeStoppingAtGtkInit("/usr/bin/app");
    options.environment["DISPLAY"] = std::string(":42.0");
    const ChildResult result = RunChild(options);
    EXPECT_EQ(ValueOr(result, "display_at_gtk_init"), ":42.0") << result.Transcript();
}

TEST(StartupProcess, HostLibraryIsUpBeforeGtkInit)
{
    const ChildResult result = RunChild(ProbeStoppingAtGtkInit("/usr/bin/app"));
    EXPECT_EQ(ValueOr(result, "calls_before_gtk_init"), "GetModuleHandleA,OSInit") << result.Transcript();
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

TEST(StartupProcess, ModulePathIsTheProgramWithoutBranobin)
{
    const ChildResult result = RunChild(ProbeStoppingAtGtkInit("/opt/suite/bin/writer"));
    EXPECT_EQ(ValueOr(result, "module_path"), "/opt/suite/bin/writer") << result.Transcript();
}

TEST(StartupProcess, BranobinWithAndWithoutSlashGiveTheSameModulePath)
{
    ChildOptions plain = ProbeStoppingAtGtkInit("/usr/bin/app");
    plain.environment["BRANOBIN"] = std::string("/opt/host/bin");
    ChildOptions slashed = ProbeStoppingAtGtkInit("/usr/bin/app");
    slashed.environment["BRANOBIN"] = std::string("/opt/host/bin/");
    const ChildResult plainResult = RunChild(plain);
    const ChildResult slashedResult = RunChild(slashed);
    EXPECT_EQ(ValueOr(plainResult, "module_path"), "/opt/host/bin/brano") << plainResult.Transcript();
    EXPECT_EQ(ValueOr(slashedResult, "module_path"), "/opt/host/bin/brano") << slashedResult.Transcript();
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

TEST(StartupProcess, HostProgramByPathGetsFatalSignalHooks)
{
    ChildOptions options = ProbeStoppingAtGtkInit("/opt/host/bin/brano");
    options.environment["HOOK_FATAL_SIGNALS"] = std::string("1");
    const ChildResult result = RunChild(options);
    EXPECT_EQ(ValueOr(result, "hooked_signals"), kAllFatalSignals) << result.Transcript();
}

TEST(StartupProcess, HostProgramByBareNameGetsFatalSignalHooks)
{
    ChildOptions options = ProbeStoppingAtGtkInit("brano");
    options.environment["HOOK_FATAL_SIGNALS"] = std::string();
    const ChildResult result = RunChild(options);
    EXPECT_EQ(ValueOr(result, "hooked_signals"), kAllFatalSignals) << result.Transcript();
}

TEST(StartupProcess, OtherProgramsGetNoFatalSignalHooks)
{
    for (const char *name : {"/opt/host/bin/xbrano", "xbrano", "bran", "/opt/brano/app", "/opt/host/brano.bin"}) {
        ChildOptions options = ProbeStoppingAtGtkInit(name);
        options.environment["HOOK_FATAL_SIGNALS"] = std::string("1");
        const ChildResult result = RunChild(options);
        EXPECT_EQ(ValueOr(result, "hooked_signals"), "") << name << "\n" << result.Transcript();
    }
}

TEST(StartupProcess, HostProgramWithoutHookVariableGetsNoHooks)
{
    const ChildResult result = RunChild(ProbeStoppingAtGtkInit("/opt/host/bin/brano"));
    EXPECT_EQ(ValueOr(result, "hooked_signals"), "") << result.Transcript();
}

TEST(StartupProcess, HookedSignalIsReportedAndTheProcessWaits)
{
    ChildOptions options = ProbeOptions("/opt/host/bin/brano", "raise-hup");
    options.environment["HOOK_FATAL_SIGNALS"] = std::string("1");
    options.killAfterLineContaining = "You can kill it or attach it to debug";
    const ChildResult result = RunChild(options);
    ASSERT_TRUE(result.killedAfterLine) << result.Transcript();
    EXPECT_FALSE(result.exited) << "the process did not wait: " << result.Transcript();
    const std::string expected = "(pid " + std::to_string(result.pid) +
                                 " )vorlan signal 1 caught, now paused. You can kill it or attach it to debug \n";
    EXPECT_NE(result.err.find(expected), std::string::npos) << result.Transcript();
    EXPECT_EQ(result.out.find("hup_passed"), std::string::npos);
}

TEST(StartupProcess, XSynchronizeMakesTheConnectionSynchronous)
{
    ChildOptions options = ProbeOptions("/usr/bin/app", "xsync-state");
    options.environment["XSynchronize"] = std::string("1");
    const ChildResult result = RunChild(options);
    ASSERT_TRUE(result.exited) << result.Transcript();
    EXPECT_EQ(ValueOr(result, "x_synchronous"), "1") << result.Transcript();
}

TEST(StartupProcess, ConnectionIsAsynchronousWithoutXSynchronize)
{
    const ChildResult result = RunChild(ProbeOptions("/usr/bin/app", "xsync-state"));
    ASSERT_TRUE(result.exited) << result.Transcript();
    EXPECT_EQ(ValueOr(result, "x_synchronous"), "0") << result.Transcript();
}

TEST(StartupProcess, XErrorUnderXSynchronizeIsReportedAndTheProcessWaits)
{
    ChildOptions options = ProbeOptions("/usr/bin/app", "x-error");
    options.environment["XSynchronize"] = std::string("1");
    options.killAfterLineContaining = "occurs, waiting for debug or kill...";
    const ChildResult result = RunChild(options);
    ASSERT_TRUE(result.killedAfterLine) << result.Transcript();
    EXPECT_FALSE(result.exited) << "the process did not wait: " << result.Transcript();
    const std::string expected = "(pid " + std::to_string(result.pid) +
                                 " ) X lib error (3:BadWindow (invalid Window parameter)) occurs, "
                                 "waiting for debug or kill...\n";
    EXPECT_NE(result.out.find(expected), std::string::npos) << result.Transcript();
    EXPECT_EQ(result.out.find("x_error_passed"), std::string::npos);
}
