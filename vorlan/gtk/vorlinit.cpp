// Process start-up of the library: runs from a static constructor when the
// process loads libvorlan.  The host base library is brought up first so
// that every later stage can use its calls.
#include <windows.h>

#include <dlfcn.h>

namespace {

const char *LibraryPath()
{
    Dl_info info;
    if (dladdr(reinterpret_cast<void *>(&LibraryPath), &info) && info.dli_fname)
        return info.dli_fname;
    return nullptr;
}

struct HostInitializer {
    HostInitializer()
    {
        GetModuleHandleA(LibraryPath());
        OSInit(0);
    }
};

HostInitializer s_hostInitializer;

} // namespace
