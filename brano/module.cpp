// Module handles and names over the dynamic loader's list of objects, and
// the host's one-time start-up.
#include "module.h"

#include <algorithm>
#include <cctype>
#include <climits>
#include <cstring>
#include <initializer_list>
#include <link.h>
#include <mutex>
#include <string>
#include <unistd.h>

namespace {

struct LoadedObject {
    HMODULE base;
    std::string path;
    bool isMainProgram;
};

std::string ExecutablePath()
{
    char path[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path - 1);
    if (length <= 0)
        return std::string();
    return std::string(path, static_cast<size_t>(length));
}

// The lowest page of the object's loadable segments, as mapped.
HMODULE MappedBase(const dl_phdr_info *info)
{
    ElfW(Addr) lowest = ~static_cast<ElfW(Addr)>(0);
    for (ElfW(Half) i = 0; i < info->dlpi_phnum; ++i) {
        if (info->dlpi_phdr[i].p_type == PT_LOAD)
            lowest = std::min(lowest, info->dlpi_phdr[i].p_vaddr);
    }
    if (lowest == ~static_cast<ElfW(Addr)>(0))
        return nullptr;
    const ElfW(Addr) pageMask = static_cast<ElfW(Addr)>(sysconf(_SC_PAGESIZE)) - 1;
    return reinterpret_cast<HMODULE>(info->dlpi_addr + (lowest & ~pageMask));
}

// Visits the loaded objects in load order until the visitor returns true.
// The first object reported by the loader is the main program.
template <typename Visitor>
void ForEachLoadedObject(Visitor visit)
{
    struct State {
        Visitor *visit;
        bool first;
    } state{&visit, true};
    dl_iterate_phdr(
        [](dl_phdr_info *info, size_t, void *data) -> int {
            State *s = static_cast<State *>(data);
            LoadedObject object;
            object.base = MappedBase(info);
            object.isMainProgram = s->first;
            s->first = false;
            object.path = object.isMainProgram ? ExecutablePath()
                                               : std::string(info->dlpi_name ? info->dlpi_name : "");
            if (object.base == nullptr)
                return 0;
            return (*s->visit)(object) ? 1 : 0;
        },
        &state);
}

std::string BaseName(const std::string &path)
{
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string LowerCase(std::string text)
{
    for (char &c : text)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

bool EndsWith(const std::string &text, const char *suffix)
{
    const size_t length = std::strlen(suffix);
    return text.size() >= length && text.compare(text.size() - length, length, suffix) == 0;
}

void StripVersionSuffixes(std::string &name)
{
    for (;;) {
        const size_t dot = name.rfind('.');
        if (dot == std::string::npos || dot + 1 == name.size())
            return;
        if (!std::all_of(name.begin() + static_cast<std::ptrdiff_t>(dot) + 1, name.end(),
                         [](char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }))
            return;
        name.erase(dot);
    }
}

// The file name reduced to what a ported program may call it: no directory,
// no case, no "lib" prefix, no ".so.N" / ".dll" / ".exe" suffix.  So
// "FOO.DLL", "foo", "libfoo.so" and "/usr/lib/libfoo.so.1" all agree.
std::string ModuleStem(const std::string &path)
{
    std::string name = LowerCase(BaseName(path));
    StripVersionSuffixes(name);
    for (const char *suffix : {".so", ".dll", ".exe"}) {
        if (EndsWith(name, suffix)) {
            name.erase(name.size() - std::strlen(suffix));
            break;
        }
    }
    if (name.size() > 3 && name.compare(0, 3, "lib") == 0)
        name.erase(0, 3);
    return name;
}

std::string CanonicalPath(const char *path)
{
    char resolved[PATH_MAX];
    return realpath(path, resolved) != nullptr ? std::string(resolved) : std::string(path);
}

HMODULE FindByPath(const char *name)
{
    const std::string wanted = CanonicalPath(name);
    HMODULE found = nullptr;
    ForEachLoadedObject([&](const LoadedObject &object) {
        if (object.path.empty() || CanonicalPath(object.path.c_str()) != wanted)
            return false;
        found = object.base;
        return true;
    });
    return found;
}

// An exact file name wins over a looser stem match.
HMODULE FindByFileName(const char *name)
{
    const std::string exact = LowerCase(name);
    const std::string stem = ModuleStem(name);
    HMODULE exactMatch = nullptr;
    HMODULE stemMatch = nullptr;
    ForEachLoadedObject([&](const LoadedObject &object) {
        if (object.path.empty())
            return false;
        if (LowerCase(BaseName(object.path)) == exact) {
            exactMatch = object.base;
            return true;
        }
        if (stemMatch == nullptr && !stem.empty() && ModuleStem(object.path) == stem)
            stemMatch = object.base;
        return false;
    });
    return exactMatch != nullptr ? exactMatch : stemMatch;
}

bool FindPathOfModule(HMODULE module, std::string &path)
{
    bool found = false;
    ForEachLoadedObject([&](const LoadedObject &object) {
        if (object.base != module)
            return false;
        path = object.path;
        found = true;
        return true;
    });
    return found;
}

HMODULE LocateMainModule()
{
    HMODULE main = nullptr;
    ForEachLoadedObject([&](const LoadedObject &object) {
        main = object.base;
        return true;
    });
    return main;
}

} // namespace

namespace brano {

HMODULE MainModule()
{
    static const HMODULE s_main = LocateMainModule();
    return s_main;
}

bool IsLoadedModule(HMODULE module)
{
    if (module == nullptr)
        return false;
    bool found = false;
    ForEachLoadedObject([&](const LoadedObject &object) {
        found = object.base == module;
        return found;
    });
    return found;
}

} // namespace brano

// NULL is the main executable.  A name containing '/' is a path to the
// object; otherwise the file name is compared without case, then loosely
// (see ModuleStem) so that Win32-style names find their shared objects.
HMODULE WINAPI GetModuleHandleA(LPCSTR lpModuleName)
{
    if (lpModuleName == nullptr)
        return brano::MainModule();
    HMODULE module = nullptr;
    if (*lpModuleName != '\0')
        module = std::strchr(lpModuleName, '/') != nullptr ? FindByPath(lpModuleName)
                                                           : FindByFileName(lpModuleName);
    if (module == nullptr)
        SetLastError(ERROR_MOD_NOT_FOUND);
    return module;
}

// A result equal to nSize means the path was truncated to nSize-1 bytes and
// terminated (ERROR_INSUFFICIENT_BUFFER).
DWORD WINAPI GetModuleFileNameA(HMODULE hModule, LPSTR lpFilename, DWORD nSize)
{
    std::string path;
    if (hModule == nullptr)
        hModule = brano::MainModule();
    if (!FindPathOfModule(hModule, path) || path.empty()) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return 0;
    }
    if (lpFilename == nullptr && nSize > 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if (nSize == 0) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    if (path.size() < nSize) {
        std::memcpy(lpFilename, path.c_str(), path.size() + 1);
        return static_cast<DWORD>(path.size());
    }
    std::memcpy(lpFilename, path.data(), nSize - 1);
    lpFilename[nSize - 1] = '\0';
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return nSize;
}

// Looks up the main module once up front, so that later calls with a null
// module handle need no walk of the loader's list.  Idempotent.
BOOL OSInit(DWORD flags)
{
    (void)flags;
    static std::once_flag s_once;
    std::call_once(s_once, [] {
        brano::MainModule();
    });
    return TRUE;
}
