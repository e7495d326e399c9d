// RegisterWindowMessageA: one number per name, shared by every caller,
// taken from the string atoms.
#include <gtest/gtest.h>

#include <windows.h>

#include <string>

// Names that differ only in ASCII case share a number; the first spelling
// is the one the atom keeps.
TEST(RegisteredMessages, SameNameInAnyCaseGivesTheSameNumberInTheStringAtomRange)
{
    const UINT first = RegisterWindowMessageA("VorlanRegisteredPing");
    const UINT other = RegisterWindowMessageA("VorlanRegisteredPong");
    for (UINT message : {first, other}) {
        EXPECT_GE(message, 0xC000u);
        EXPECT_LE(message, 0xFFFFu);
    }
    EXPECT_NE(first, other);
    EXPECT_EQ(RegisterWindowMessageA("VorlanRegisteredPing"), first);
    EXPECT_EQ(RegisterWindowMessageA("VORLANREGISTEREDPING"), first);
    EXPECT_EQ(RegisterWindowMessageA("vorlanregisteredping"), first);
    char name[64] = {};
    EXPECT_GT(GetAtomNameA(static_cast<ATOM>(first), name, sizeof name), 0u);
    EXPECT_STREQ(name, "VorlanRegisteredPing");
}

TEST(RegisteredMessages, RegisteringAgainTakesNoFurtherReference)
{
    const UINT message = RegisterWindowMessageA("VorlanRegisteredOnce");
    ASSERT_NE(message, 0u);
    RegisterWindowMessageA("VorlanRegisteredOnce");
    RegisterWindowMessageA("VORLANREGISTEREDONCE");
    // One delete balances the one registration that added the name.
    EXPECT_EQ(DeleteAtom(static_cast<ATOM>(message)), 0);
    SetLastError(0);
    EXPECT_EQ(FindAtomA("VorlanRegisteredOnce"), 0);
}

TEST(RegisteredMessages, BadNamesFailWithInvalidParameter)
{
    const std::string longest(127, 'm');
    const std::string tooLong(128, 'm');
    EXPECT_NE(RegisterWindowMessageA(longest.c_str()), 0u);
    for (const char *name : {static_cast<const char *>(nullptr), "", tooLong.c_str()}) {
        SetLastError(0);
        EXPECT_EQ(RegisterWindowMessageA(name), 0u);
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    }
}
