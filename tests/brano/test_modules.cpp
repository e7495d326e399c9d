// Module handles are load addresses of ELF objects; names resolve to them.
#include <windows.h>

#include "support/expect_last_error.h"

#include <cstring>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <string>

namespace {

HMODULE BaseOfObjectContaining(const void *address)
{
    Dl_info info;
    if (dladdr(address, &info) == 0)
        return nullptr;
    return static_cast<HMODULE>(info.dli_fbase);
}

int g_objectInExecutable;

std::string MainModulePath()
{
    char path[4096];
    const DWORD length = GetModuleFileNameA(nullptr, path, sizeof path);
    return std::string(path, length);
}

} // namespace

TEST(Modules, NullNameIsTheExecutablesLoadBaseAlsoFoundByPathAndFileName)
{
    EXPECT_TRUE(OSInit(0)) << "start-up may run again";
    HMODULE main = GetModuleHandleA(nullptr);
    ASSERT_NE(main, nullptr);
    EXPECT_EQ(main, BaseOfObjectContaining(&g_objectInExecutable));
    EXPECT_EQ(std::memcmp(main, "\x7f" "ELF", 4), 0) << "the handle addresses the ELF header";
    const std::string path = MainModulePath();
    ASSERT_FALSE(path.empty());
    const std::string fileName = path.substr(path.rfind('/') + 1);
    EXPECT_EQ(fileName, "brano_tests");
    EXPECT_EQ(GetModuleHandleA(path.c_str()), GetModuleHandleA(nullptr));
    EXPECT_EQ(GetModuleHandleA(fileName.c_str()), GetModuleHandleA(nullptr));
    EXPECT_EQ(GetModuleHandleA("BRANO_TESTS.EXE"), GetModuleHandleA(nullptr));
}

TEST(Modules, LibraryFoundByWin32StyleNamesUnknownNamesFailWithModNotFound)
{
    HMODULE library = BaseOfObjectContaining(reinterpret_cast<const void *>(&GetModuleHandleA));
    ASSERT_NE(library, nullptr);
    ASSERT_NE(library, GetModuleHandleA(nullptr));
    for (const char *name : {"libbrano.so.1", "libbrano.so", "brano", "BRANO.DLL", "Brano.dll"})
        EXPECT_EQ(GetModuleHandleA(name), library) << name;
    char path[4096];
    ASSERT_GT(GetModuleFileNameA(library, path, sizeof path), 0u);
    EXPECT_EQ(GetModuleHandleA(path), library);
    for (const char *name : {"no-such-module.so", "", "/nonexistent/libbrano.so.1", "xyzzy"}) {
        SCOPED_TRACE(name);
        EXPECT_FAILS_WITH(GetModuleHandleA(name), nullptr, ERROR_MOD_NOT_FOUND);
    }
}

TEST(Modules, FileNameIsTruncatedAndTerminatedOrFitsExactly)
{
    const std::string path = MainModulePath();
    char small[32];
    std::memset(small, 'Z', sizeof small);
    EXPECT_FAILS_WITH(GetModuleFileNameA(nullptr, small, 5), 5u, ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(std::string(small), path.substr(0, 4));
    for (size_t i = 5; i < sizeof small; ++i)
        EXPECT_EQ(small[i], 'Z') << "byte " << i << " written past nSize";
    std::string buffer(path.size() + 1, 'Z');
    EXPECT_EQ(GetModuleFileNameA(nullptr, &buffer[0], static_cast<DWORD>(path.size() + 1)), path.size());
    EXPECT_EQ(std::string(buffer.c_str()), path);
    // One byte less: the terminator no longer fits.
    std::string shorter(path.size(), 'Z');
    EXPECT_EQ(GetModuleFileNameA(nullptr, &shorter[0], static_cast<DWORD>(path.size())), path.size());
    EXPECT_EQ(std::string(shorter.c_str()), path.substr(0, path.size() - 1));
}

TEST(Modules, FileNameBadArguments)
{
    char buffer[16] = "untouched";
    EXPECT_FAILS_WITH(GetModuleFileNameA(reinterpret_cast<HMODULE>(0x1234000), buffer, sizeof buffer), 0u,
                      ERROR_MOD_NOT_FOUND);
    EXPECT_FAILS_WITH(GetModuleFileNameA(nullptr, nullptr, 100), 0u, ERROR_INVALID_PARAMETER);
    EXPECT_FAILS_WITH(GetModuleFileNameA(nullptr, buffer, 0), 0u, ERROR_INSUFFICIENT_BUFFER);
    EXPECT_STREQ(buffer, "untouched");
}
