// The atom table: integer and "#" forms, case folding, reference counts,
// limits, errors and concurrent use.
#include <gtest/gtest.h>

#include <windows.h>

#include "support/window_checks.h"

#include <string>
#include <thread>
#include <vector>

using vorlan_test::FailsWith;

namespace {

std::u16string Units(const char *text)
{
    return std::u16string(text, text + std::char_traits<char>::length(text));
}

LPCWSTR W(const std::u16string &text)
{
    return reinterpret_cast<LPCWSTR>(text.c_str());
}

LPCWSTR IntW(ULONG_PTR value)
{
    return reinterpret_cast<LPCWSTR>(value);
}

std::u16string NameOf(ATOM atom)
{
    WCHAR buffer[256] = {};
    const UINT length = GetAtomNameW(atom, buffer, 256);
    return std::u16string(reinterpret_cast<const char16_t *>(buffer), length);
}

void Purge(ATOM atom)
{
    for (int i = 0; i < 100 && DeleteAtom(atom) == 0; ++i) {
    }
}

} // namespace

TEST(Atoms, AsciiCaseFoldedNamesShareOneCountedAtomWithTheFirstCase)
{
    const std::u16string lower = Units("vorlan-case-abc"), upper = Units("VORLAN-CASE-ABC");
    const ATOM first = AddAtomW(W(lower));
    ASSERT_GE(first, 0xC000);
    EXPECT_EQ(AddAtomW(W(upper)), first);
    EXPECT_EQ(NameOf(first), lower);
    EXPECT_EQ(FindAtomW(W(upper)), first);
    EXPECT_EQ(DeleteAtom(first), 0);
    EXPECT_EQ(FindAtomW(W(lower)), first);
    EXPECT_EQ(DeleteAtom(first), 0);
    EXPECT_TRUE(FailsWith(87, 0, [&] { return FindAtomW(W(lower)); }));

    // Only ASCII letters fold.
    const ATOM accented = AddAtomW(W(u"vorlan-\u00e9t\u00e9")), upperAccented = AddAtomW(W(u"VORLAN-\u00c9T\u00c9"));
    EXPECT_NE(accented, upperAccented);
    Purge(accented);
    Purge(upperAccented);

    // Numbers rise and a deleted atom's number is not given out again.
    const ATOM one = AddAtomW(W(Units("vorlan-rise-1")));
    Purge(one);
    const ATOM two = AddAtomW(W(Units("vorlan-rise-1")));
    EXPECT_GT(two, one);
    Purge(two);
}

TEST(Atoms, IntegerArgumentsAndHashFormsAreIntegerAtoms)
{
    EXPECT_EQ(AddAtomW(W(Units("#100"))), 100);
    EXPECT_EQ(FindAtomW(W(Units("#100"))), 100);
    EXPECT_EQ(AddAtomW(W(Units("#49151"))), 0xBFFF);
    EXPECT_EQ(AddAtomW(IntW(5)), 5);
    EXPECT_EQ(AddAtomA(reinterpret_cast<LPCSTR>(static_cast<ULONG_PTR>(0xBFFF))), 0xBFFF);
    EXPECT_EQ(FindAtomW(IntW(77)), 77);
    EXPECT_EQ(DeleteAtom(100), 0);

    const std::u16string ok(127, u'q');
    const ATOM atom = AddAtomW(W(ok));
    EXPECT_NE(atom, 0);
    EXPECT_EQ(NameOf(atom), ok);
    Purge(atom);
}

TEST(Atoms, BadNamesAndIntegersAreRefusedWith87)
{
    const std::u16string tooLong(128, u'q');
    const std::vector<std::u16string> badNames = {
        Units("#0"), Units("#49152"), Units("#"), Units("#12a"), Units("#99999999999999999999"), u"", tooLong};
    for (const std::u16string &bad : badNames)
        EXPECT_TRUE(FailsWith(87, 0, [&] { return AddAtomW(W(bad)); })) << std::string(bad.begin(), bad.end());
    EXPECT_TRUE(FailsWith(87, 0, [] { return AddAtomW(IntW(0xC000)); }));
    EXPECT_TRUE(FailsWith(87, 0, [] { return AddAtomW(nullptr); }));
    // DeleteAtom gives back an atom it does not know.
    EXPECT_TRUE(FailsWith(87, 0, [] { return DeleteAtom(0); }));
    EXPECT_TRUE(FailsWith(87, 0xFFEE, [] { return DeleteAtom(0xFFEE); }));
}

TEST(Atoms, GetAtomNameCountsAndErrorsAndTheGlobalCallsShareTheTable)
{
    WCHAR buffer[8] = {};
    const ATOM shortName = AddAtomW(W(Units("vorlan-short")));
    EXPECT_TRUE(FailsWith(122, 0, [&] { return GetAtomNameW(100, buffer, 4); })) << "#100 and its terminator";
    EXPECT_TRUE(FailsWith(87, 0, [&] { return GetAtomNameW(0, buffer, 8); }));
    EXPECT_TRUE(FailsWith(87, 0, [&] { return GetAtomNameW(100, nullptr, 8); }));
    EXPECT_TRUE(FailsWith(87, 0, [&] { return GetAtomNameW(0xFFF0, buffer, 8); }));
    EXPECT_TRUE(FailsWith(122, 0, [&] { return GetAtomNameW(shortName, buffer, 8); }));
    Purge(shortName);
    EXPECT_EQ(GetAtomNameW(100, buffer, 5), 4u);
    EXPECT_EQ(std::u16string(reinterpret_cast<const char16_t *>(buffer)), u"#100");

    // The narrow count includes the terminator, the wide one does not.
    const ATOM atom = AddAtomA("vorlan-abc");
    char narrow[32] = {};
    WCHAR wide[32] = {};
    EXPECT_EQ(GetAtomNameA(atom, narrow, sizeof narrow), 11u);
    EXPECT_STREQ(narrow, "vorlan-abc");
    EXPECT_EQ(GetAtomNameW(atom, wide, 32), 10u);
    EXPECT_EQ(FindAtomA("VORLAN-ABC"), atom);
    EXPECT_EQ(GetAtomNameA(0, narrow, sizeof narrow), 0u);
    Purge(atom);

    const ATOM global = GlobalAddAtomA("vorlan-global");
    EXPECT_EQ(FindAtomA("vorlan-global"), global);
    EXPECT_EQ(GlobalFindAtomW(W(Units("Vorlan-Global"))), global);
    EXPECT_EQ(GlobalGetAtomNameA(global, narrow, sizeof narrow), 14u);
    EXPECT_EQ(GlobalDeleteAtom(global), 0);
    EXPECT_EQ(GlobalFindAtomA("vorlan-global"), 0);
}

// Every add is matched by a delete, so in the end only the kept name is left.
TEST(Atoms, ConcurrentAddsAndDeletesKeepCounts)
{
    const std::u16string shared = Units("vorlan-shared"), keeper = Units("vorlan-keeper");
    const ATOM kept = AddAtomW(W(keeper));
    std::vector<std::thread> threads;
    for (int t = 0; t < 6; ++t) {
        threads.emplace_back([&] {
            for (int i = 0; i < 2000; ++i) {
                const ATOM a = AddAtomW(W(shared));
                const ATOM b = AddAtomW(W(keeper));
                EXPECT_NE(a, 0);
                EXPECT_EQ(b, kept);
                EXPECT_EQ(DeleteAtom(b), 0);
                EXPECT_EQ(DeleteAtom(a), 0);
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(FindAtomW(W(shared)), 0);
    EXPECT_EQ(FindAtomW(W(keeper)), kept);
    EXPECT_EQ(DeleteAtom(kept), 0);
    EXPECT_EQ(FindAtomW(W(keeper)), 0);
}
