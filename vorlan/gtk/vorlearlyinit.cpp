// First stage of start-up: before GLib, GDK or GTK run, the host base library
// is brought up, and the host program gets its fatal signal hooks.
#include "gtk/vorlglobals.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>

namespace {

constexpr size_t kProgramNameSize = 260;
const char kHostName[] = "brano";
const char kHostPathSuffix[] = "/brano";

// The program name as the kernel recorded it: the first string of
// /proc/<pid>/cmdline, at most kProgramNameSize - 1 bytes.
void ReadProgramName(char (&name)[kProgramNameSize])
{
    std::memset(name, 0, sizeof name);
    char path[64];
    std::snprintf(path, sizeof path, "/proc/%d/cmdline", static_cast<int>(getpid()));
    FILE *file = std::fopen(path, "rb");
    if (file == nullptr)
        return;
    const size_t read = std::fread(name, 1, sizeof name - 1, file);
    static_cast<void>(read);
    std::fclose(file);
}

bool EndsWith(const char *text, const char *suffix)
{
    const size_t textLength = std::strlen(text);
    const size_t suffixLength = std::strlen(suffix);
    return textLength >= suffixLength && std::strcmp(text + textLength - suffixLength, suffix) == 0;
}

// The host program is called "brano", by that bare name or by a path.
bool IsHostProgram(const char *programName)
{
    return std::strcmp(programName, kHostName) == 0 || EndsWith(programName, kHostPathSuffix);
}

void HookFatalSignals()
{
    const int fatalSignals[] = {SIGILL, SIGSEGV, SIGHUP, SIGFPE, SIGVTALRM};
    for (int sig : fatalSignals)
        std::signal(sig, vorl_signal_handler);
}

// The host module: "brano" in the directory BRANOBIN names, else the
// program itself.
std::string HostModulePath(const char *programName)
{
    const char *directory = std::getenv("BRANOBIN");
    if (directory == nullptr)
        return programName;
    std::string path(directory);
    if (path.empty() || path.back() != '/')
        path += '/';
    path += kHostName;
    return path;
}

} // namespace

namespace vorlan {

EarlyInitializer::EarlyInitializer()
{
    char programName[kProgramNameSize];
    ReadProgramName(programName);
    if (IsHostProgram(programName) && std::getenv("HOOK_FATAL_SIGNALS") != nullptr)
        HookFatalSignals();
    GetModuleHandleA(HostModulePath(programName).c_str());
    OSInit(0);
}

} // namespace vorlan
