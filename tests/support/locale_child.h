// Runs one test of this binary in a child process with its own locale
// environment.  The host reads the locale once per process, so anything
// that depends on it has to be checked in a fresh process.
#ifndef VORLAN_TESTS_LOCALE_CHILD_H
#define VORLAN_TESTS_LOCALE_CHILD_H

#include <gtest/gtest.h>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <string>
#include <utility>
#include <vector>

extern char **environ;

namespace locale_child {

using Environment = std::vector<std::pair<std::string, std::string>>;

inline bool IsLocaleOrTestVariable(const char *entry)
{
    static const char *const kPrefixes[] = {"LC_", "LANG=", "LANGUAGE=", "GTEST_", "EXPECT_"};
    for (const char *prefix : kPrefixes) {
        if (std::strncmp(entry, prefix, std::strlen(prefix)) == 0)
            return true;
    }
    return false;
}

inline std::vector<std::string> ChildEnvironment(const Environment &settings)
{
    std::vector<std::string> entries;
    for (char **entry = environ; *entry; ++entry) {
        if (!IsLocaleOrTestVariable(*entry))
            entries.push_back(*entry);
    }
    for (const auto &setting : settings)
        entries.push_back(setting.first + "=" + setting.second);
    return entries;
}

inline std::vector<char *> PointerArray(std::vector<std::string> &strings)
{
    std::vector<char *> pointers;
    for (std::string &text : strings)
        pointers.push_back(&text[0]);
    pointers.push_back(nullptr);
    return pointers;
}

inline std::string ReadAll(int fd)
{
    std::string output;
    char buffer[4096];
    ssize_t count;
    while ((count = read(fd, buffer, sizeof buffer)) > 0)
        output.append(buffer, (size_t)count);
    return output;
}

// Runs the (normally disabled) test `testName` with `settings` added to a
// copy of the environment stripped of locale variables.
inline ::testing::AssertionResult RunTestInChild(const std::string &testName, const Environment &settings)
{
    std::vector<std::string> arguments = {"/proc/self/exe", "--gtest_filter=" + testName,
                                          "--gtest_also_run_disabled_tests"};
    std::vector<std::string> environment = ChildEnvironment(settings);
    std::vector<char *> argv = PointerArray(arguments);
    std::vector<char *> envp = PointerArray(environment);

    int pipeFds[2];
    if (pipe(pipeFds) != 0)
        return ::testing::AssertionFailure() << "pipe failed";
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipeFds[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, pipeFds[1], STDERR_FILENO);
    posix_spawn_file_actions_addclose(&actions, pipeFds[0]);
    pid_t child = 0;
    int spawnError = posix_spawn(&child, "/proc/self/exe", &actions, nullptr, argv.data(), envp.data());
    posix_spawn_file_actions_destroy(&actions);
    close(pipeFds[1]);
    if (spawnError != 0) {
        close(pipeFds[0]);
        return ::testing::AssertionFailure() << "posix_spawn failed: " << spawnError;
    }
    std::string output = ReadAll(pipeFds[0]);
    close(pipeFds[0]);
    int status = 0;
    waitpid(child, &status, 0);
    bool ran = output.find("[  PASSED  ] 1 test") != std::string::npos;
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0 && ran)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "child " << testName << " failed:\n" << output;
}

} // namespace locale_child

#endif
