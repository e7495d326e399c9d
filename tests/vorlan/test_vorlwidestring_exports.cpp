// The 16-bit string functions reach -fshort-wchar programs under their own
// symbol version; the rest of the process keeps the C library's 32-bit ones.
#include <gtest/gtest.h>

#include "support/child_process.h"

#include <windows.h>
#include <vorlwchar.h>

#include <glib.h>

#include <cstdlib>
#include <cwchar>
#include <dlfcn.h>
#include <string>

using vorlan_test::ChildOptions;
using vorlan_test::ChildResult;
using vorlan_test::RunChild;

namespace {

const char kWchar16Version[] = "VORLAN_WCHAR16";

// The AddressSanitizer runtime comes first in every instrumented program
// and defines wcslen and its kin without symbol versions; the dynamic
// linker lets such a definition satisfy any versioned reference, so in a
// sanitizer build the C names of a -fshort-wchar program reach the
// runtime's 32-bit interceptors instead of the library.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kSanitizerTakesWideNames = true;
#else
constexpr bool kSanitizerTakesWideNames = false;
#endif

void *LibraryHandle()
{
    Dl_info info = {};
    if (dladdr(reinterpret_cast<void *>(&_wtoi), &info) == 0)
        return nullptr;
    return dlopen(info.dli_fname, RTLD_NOW | RTLD_NOLOAD);
}

ChildResult RunProbe(const char *path)
{
    ChildOptions options;
    options.path = path;
    options.argv = {path};
    return RunChild(options);
}

void ExpectProbeResults(const ChildResult &result)
{
    ASSERT_TRUE(result.exited) << result.Transcript();
    EXPECT_EQ(result.exitStatus, 0) << result.Transcript();
    EXPECT_EQ(result.Value("wchar_size"), "2") << result.Transcript();
    EXPECT_EQ(result.Value("wcslen"), "11") << result.Transcript();
    EXPECT_EQ(result.Value("wcscmp_less"), "-1");
    EXPECT_EQ(result.Value("wcscmp_high"), "1");
    EXPECT_EQ(result.Value("wcsncmp2"), "0");
    EXPECT_EQ(result.Value("wcschr"), "6");
    EXPECT_EQ(result.Value("wcschr_zero"), "null");
    EXPECT_EQ(result.Value("wcscpy_equal"), "1");
    EXPECT_EQ(result.Value("wcstol"), "77");
    EXPECT_EQ(result.Value("wcstol_end"), "4");
    EXPECT_EQ(result.Value("wcstod"), "2.5");
    EXPECT_EQ(result.Value("wtoi"), "-31");
    EXPECT_EQ(result.Value("wcs2str"), "abc");
    EXPECT_EQ(result.Value("ltoa"), "ff");
    EXPECT_EQ(result.Value("glib_utf8"), "5");
    EXPECT_EQ(result.Value("gtk_check"), "ok");
}

} // namespace

TEST(WideStringExports, ShortWcharCAndCxxProgramsReachTheCNames)
{
    if (kSanitizerTakesWideNames)
        GTEST_SKIP() << "the sanitizer runtime interposes the C wide names";
    for (const char *probe : {VORLAN_WCHAR16_PROBE, VORLAN_WCHAR16_PROBE_CXX}) {
        SCOPED_TRACE(probe);
        ExpectProbeResults(RunProbe(probe));
    }
}

TEST(WideStringExports, CNamesCarryTheirOwnVersionAndCountSixteenBitUnits)
{
    void *library = LibraryHandle();
    ASSERT_NE(library, nullptr);
    for (const char *name : {"wcslen", "wcscmp", "wcsncmp", "wcschr", "wcscpy", "wcstol", "wcstod"}) {
        void *versioned = dlvsym(library, name, kWchar16Version);
        EXPECT_NE(versioned, nullptr) << name;
        EXPECT_NE(versioned, dlsym(RTLD_DEFAULT, name)) << name;
    }
    using LengthFunction = size_t (*)(const WCHAR *);
    auto length = reinterpret_cast<LengthFunction>(dlvsym(library, "wcslen", kWchar16Version));
    ASSERT_NE(length, nullptr);
    const WCHAR text[] = {'a', 'b', 'c', 0, 'x', 0};
    EXPECT_EQ(length(text), 3u);
    dlclose(library);
    EXPECT_EQ(dlsym(RTLD_DEFAULT, "vorlan_wchar16_wcslen"), nullptr) << "internal names are not exported";
}

TEST(WideStringExports, ThisProcessAndGlibKeepThirtyTwoBitWideFunctions)
{
    // Through a volatile pointer, so that the compiler cannot fold the calls.
    static const wchar_t text[] = L"h\u00e9llo";
    const wchar_t *volatile pointer = text;
    EXPECT_EQ(std::wcslen(pointer), 5u);
    EXPECT_EQ(std::wcscmp(pointer, L"h\u00e9llo"), 0);
    EXPECT_EQ(std::wcschr(pointer, L'l'), text + 2);
    wchar_t formatted[32];
    ASSERT_EQ(std::swprintf(formatted, 32, L"%ls-%d", pointer, 42), 8);
    EXPECT_EQ(std::wstring(formatted), L"h\u00e9llo-42");
    EXPECT_EQ(std::wcstol(L"123", nullptr, 10), 123);
    const std::wstring copied(pointer);
    EXPECT_EQ(copied.size(), 5u);
    static const wchar_t world[] = L"w\u00f6rld";
    gchar *utf8 = g_ucs4_to_utf8(reinterpret_cast<const gunichar *>(world), -1, nullptr, nullptr, nullptr);
    ASSERT_NE(utf8, nullptr);
    EXPECT_STREQ(utf8, "w\xc3\xb6rld");
    g_free(utf8);
    char multibyte[16];
    EXPECT_EQ(std::wcstombs(multibyte, L"abc", sizeof multibyte), 3u);
}
