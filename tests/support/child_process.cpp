// Child processes for the tests, spawned with pipes for both output
// streams and always reaped, also when they must be killed.
#include "support/child_process.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char **environ;

namespace vorlan_test {

namespace {

using Clock = std::chrono::steady_clock;

std::vector<std::string> BuildEnvironment(const std::map<std::string, std::optional<std::string>> &changes)
{
    std::vector<std::string> result;
    for (char **entry = environ; *entry != nullptr; ++entry) {
        const std::string text(*entry);
        const std::string name = text.substr(0, text.find('='));
        if (changes.count(name) == 0)
            result.push_back(text);
    }
    for (const auto &change : changes) {
        if (change.second)
            result.push_back(change.first + "=" + *change.second);
    }
    return result;
}

std::vector<char *> PointersOf(std::vector<std::string> &strings)
{
    std::vector<char *> pointers;
    for (std::string &text : strings)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

struct Pipe {
    int read = -1;
    int write = -1;
};

Pipe MakePipe()
{
    int fds[2];
    if (pipe2(fds, O_CLOEXEC) != 0)
        return {};
    return {fds[0], fds[1]};
}

bool ContainsLine(const std::string &text, const std::string &needle)
{
    return !needle.empty() && text.find(needle) != std::string::npos;
}

// Reads both streams until both end, the wanted line appears or the deadline
// passes; the last two leave the child to be killed.
void Collect(int outFd, int errFd, const ChildOptions &options, ChildResult &result)
{
    const auto deadline = Clock::now() + std::chrono::milliseconds(options.timeoutMilliseconds);
    pollfd fds[2] = {{outFd, POLLIN, 0}, {errFd, POLLIN, 0}};
    std::string *sinks[2] = {&result.out, &result.err};
    int open = 2;
    while (open > 0) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
        if (left <= 0) {
            result.timedOut = true;
            return;
        }
        const int ready = poll(fds, 2, static_cast<int>(left));
        if (ready < 0 && errno == EINTR)
            continue;
        for (int i = 0; i < 2; ++i) {
            if (fds[i].fd < 0 || fds[i].revents == 0)
                continue;
            char buffer[4096];
            const ssize_t got = read(fds[i].fd, buffer, sizeof buffer);
            if (got <= 0) {
                fds[i].fd = -1;
                --open;
                continue;
            }
            sinks[i]->append(buffer, static_cast<size_t>(got));
        }
        if (ContainsLine(result.out, options.killAfterLineContaining) ||
            ContainsLine(result.err, options.killAfterLineContaining)) {
            result.killedAfterLine = true;
            return;
        }
    }
}

void Reap(int pid, bool kill, ChildResult &result)
{
    if (kill)
        ::kill(pid, SIGKILL);
    int status = 0;
    while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
    }
    if (WIFEXITED(status)) {
        result.exited = true;
        result.exitStatus = WEXITSTATUS(status);
    }
}

} // namespace

std::optional<std::string> ChildResult::Value(const std::string &key) const
{
    const std::string prefix = key + "=";
    size_t start = 0;
    while (start < out.size()) {
        size_t end = out.find('\n', start);
        if (end == std::string::npos)
            end = out.size();
        if (out.compare(start, prefix.size(), prefix) == 0)
            return out.substr(start + prefix.size(), end - start - prefix.size());
        start = end + 1;
    }
    return std::nullopt;
}

std::string ChildResult::Transcript() const
{
    return "--- stdout ---\n" + out + "--- stderr ---\n" + err;
}

ChildResult RunChild(const ChildOptions &options)
{
    ChildResult result;
    Pipe out = MakePipe();
    Pipe err = MakePipe();
    std::vector<std::string> argvStrings = options.argv;
    std::vector<std::string> envStrings = BuildEnvironment(options.environment);
    std::vector<char *> argv = PointersOf(argvStrings);
    std::vector<char *> envp = PointersOf(envStrings);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, out.write, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, err.write, STDERR_FILENO);
    pid_t pid = -1;
    const int failed = posix_spawn(&pid, options.path.c_str(), &actions, nullptr, argv.data(), envp.data());
    posix_spawn_file_actions_destroy(&actions);
    close(out.write);
    close(err.write);
    if (failed == 0) {
        result.pid = pid;
        Collect(out.read, err.read, options, result);
        Reap(pid, result.killedAfterLine || result.timedOut, result);
    } else {
        result.err = std::string("posix_spawn failed: ") + std::strerror(failed);
    }
    close(out.read);
    close(err.read);
    return result;
}

} // namespace vorlan_test
