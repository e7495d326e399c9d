// The atom table: integer atoms and "#" forms, case folding, reference
// counts, the length limit, error codes and concurrent use.
#include <gtest/gtest.h>

#include <windows.h>

#include <string>
#include <thread>
#include <vector>

namespace {

std::u16string Units(const char *text)
{
    std::u16string units;
    for (; *text != '\0'; ++text)
        units.push_back(static_cast<unsigned char>(*text));
    return units;
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

// Deletes the atom until it is gone.
void Purge(ATOM atom)
{
    for (int i = 0; i < 100 && DeleteAtom(atom) == 0; ++i) {
    }
}

} // namespace

TEST(Atoms, CaseFoldedNamesShareOneAtomWithTheFirstCase)
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
    SetLastError(0);
    EXPECT_EQ(FindAtomW(W(lower)), 0);
    EXPECT_EQ(GetLastError(), 87u);
}

TEST(Atoms, FoldingCoversAsciiLettersOnly)
{
    const std::u16string a = u"vorlan-\u00e9t\u00e9", b = u"VORLAN-\u00c9T\u00c9";
    const ATOM first = AddAtomW(W(a));
    const ATOM second = AddAtomW(W(b));
    EXPECT_NE(first, second);
    Purge(first);
    Purge(second);
}

TEST(Atoms, NumbersRiseAndAreNeverReused)
{
    const ATOM one = AddAtomW(W(Units("vorlan-rise-1")));
    Purge(one);
    const ATOM two = AddAtomW(W(Units("vorlan-rise-1")));
    EXPECT_GT(two, one);
    Purge(two);
}

TEST(Atoms, HashFormsAreIntegerAtoms)
{
    EXPECT_EQ(AddAtomW(W(Units("#100"))), 100);
    EXPECT_EQ(FindAtomW(W(Units("#100"))), 100);
    EXPECT_EQ(AddAtomW(W(Units("#49151"))), 0xBFFF);
    for (const char *bad : {"#0", "#49152", "#", "#12a", "#99999999999999999999"}) {
        SetLastError(0);
        EXPECT_EQ(AddAtomW(W(Units(bad))), 0) << bad;
        EXPECT_EQ(GetLastError(), 87u) << bad;
    }
}

TEST(Atoms, IntegerArgumentsStandForThemselves)
{
    EXPECT_EQ(AddAtomW(IntW(5)), 5);
    EXPECT_EQ(AddAtomA(reinterpret_cast<LPCSTR>(static_cast<ULONG_PTR>(0xBFFF))), 0xBFFF);
    EXPECT_EQ(FindAtomW(IntW(77)), 77);
    SetLastError(0);
    EXPECT_EQ(AddAtomW(IntW(0xC000)), 0);
    EXPECT_EQ(GetLastError(), 87u);
    SetLastError(0);
    EXPECT_EQ(AddAtomW(nullptr), 0);
    EXPECT_EQ(GetLastError(), 87u);
    EXPECT_EQ(DeleteAtom(100), 0);
}

TEST(Atoms, EmptyNameIsRefused)
{
    SetLastError(0);
    EXPECT_EQ(AddAtomW(W(u"")), 0);
    EXPECT_EQ(GetLastError(), 87u);
}

TEST(Atoms, NamesUpTo127UnitsAreAccepted)
{
    const std::u16string ok(127, u'q'), tooLong(128, u'q');
    const ATOM atom = AddAtomW(W(ok));
    EXPECT_NE(atom, 0);
    EXPECT_EQ(NameOf(atom), ok);
    Purge(atom);
    SetLastError(0);
    EXPECT_EQ(AddAtomW(W(tooLong)), 0);
    EXPECT_EQ(GetLastError(), 87u);
}

TEST(Atoms, GetAtomNameOfIntegerAtomNeedsRoomForTerminator)
{
    WCHAR buffer[8] = {};
    SetLastError(0);
    EXPECT_EQ(GetAtomNameW(100, buffer, 4), 0u);
    EXPECT_EQ(GetLastError(), 122u);
    EXPECT_EQ(GetAtomNameW(100, buffer, 5), 4u);
    EXPECT_EQ(std::u16string(reinterpret_cast<const char16_t *>(buffer)), u"#100");
}

TEST(Atoms, GetAtomNameErrors)
{
    WCHAR buffer[8] = {};
    SetLastError(0);
    EXPECT_EQ(GetAtomNameW(0, buffer, 8), 0u);
    EXPECT_EQ(GetLastError(), 87u);
    SetLastError(0);
    EXPECT_EQ(GetAtomNameW(100, nullptr, 8), 0u);
    EXPECT_EQ(GetLastError(), 87u);
    SetLastError(0);
    EXPECT_EQ(GetAtomNameW(0xFFF0, buffer, 8), 0u);
    EXPECT_EQ(GetLastError(), 87u);
    const ATOM atom = AddAtomW(W(Units("vorlan-short")));
    SetLastError(0);
    EXPECT_EQ(GetAtomNameW(atom, buffer, 8), 0u);
    EXPECT_EQ(GetLastError(), 122u);
    Purge(atom);
}

TEST(Atoms, NarrowNameCountIncludesTerminator)
{
    const ATOM atom = AddAtomA("vorlan-abc");
    char narrow[32] = {};
    WCHAR wide[32] = {};
    EXPECT_EQ(GetAtomNameA(atom, narrow, sizeof narrow), 11u);
    EXPECT_STREQ(narrow, "vorlan-abc");
    EXPECT_EQ(GetAtomNameW(atom, wide, 32), 10u);
    EXPECT_EQ(FindAtomA("VORLAN-ABC"), atom);
    EXPECT_EQ(GetAtomNameA(0, narrow, sizeof narrow), 0u);
    Purge(atom);
}

TEST(Atoms, DeleteOfUnknownAtomReturnsIt)
{
    SetLastError(0);
    EXPECT_EQ(DeleteAtom(0), 0);
    EXPECT_EQ(GetLastError(), 87u);
    SetLastError(0);
    EXPECT_EQ(DeleteAtom(0xFFEE), 0xFFEE);
    EXPECT_EQ(GetLastError(), 87u);
}

TEST(Atoms, GlobalCallsShareTheTable)
{
    const ATOM atom = GlobalAddAtomA("vorlan-global");
    EXPECT_EQ(FindAtomA("vorlan-global"), atom);
    EXPECT_EQ(GlobalFindAtomW(W(Units("Vorlan-Global"))), atom);
    char narrow[32] = {};
    WCHAR wide[32] = {};
    EXPECT_EQ(GlobalGetAtomNameA(atom, narrow, sizeof narrow), 14u);
    EXPECT_EQ(GlobalGetAtomNameW(atom, wide, 32), 13u);
    EXPECT_EQ(GlobalAddAtomW(W(Units("vorlan-global"))), atom);
    EXPECT_EQ(GlobalDeleteAtom(atom), 0);
    EXPECT_EQ(DeleteAtom(atom), 0);
    EXPECT_EQ(GlobalFindAtomA("vorlan-global"), 0);
}

// Threads add and delete the same names at once; every add is matched by
// a delete, so at the end no name is left and every count was kept.
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
