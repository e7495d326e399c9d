// Runs a program as a child process with a chosen program name and
// environment, and collects what it writes.
#ifndef VORLAN_TESTS_SUPPORT_CHILD_PROCESS_H
#define VORLAN_TESTS_SUPPORT_CHILD_PROCESS_H

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vorlan_test {

struct ChildOptions {
    std::string path;                   // the program to execute
    std::vector<std::string> argv;      // argv[0] included: the name the child sees
    // Changes to the parent's environment: a value sets the variable, an
    // empty optional removes it.
    std::map<std::string, std::optional<std::string>> environment;
    int timeoutMilliseconds = 20000;
    // When set, the child is killed as soon as a line containing this text
    // appears on its standard output or standard error.
    std::string killAfterLineContaining;
};

struct ChildResult {
    std::string out;
    std::string err;
    int pid = -1;
    bool exited = false;          // ended by itself with an exit status
    int exitStatus = -1;
    bool killedAfterLine = false; // was still running when the line came
    bool timedOut = false;        // was still running at the deadline

    // The value of the first "key=value" line on standard output, or
    // nullopt when there is no such line.
    std::optional<std::string> Value(const std::string &key) const;
    // Every standard output and error line, for failure messages.
    std::string Transcript() const;
};

ChildResult RunChild(const ChildOptions &options);

} // namespace vorlan_test

#endif // VORLAN_TESTS_SUPPORT_CHILD_PROCESS_H
