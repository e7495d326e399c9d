// RegisterWindowMessageA: one number per name, shared by every caller,
// taken from the string atoms.
#include <gtest/gtest.h>

#include <windows.h>

#include <string>

TEST(RegisteredMessages, SameNameGivesTheSameNumberInTheStringAtomRange)
{
    const UINT first = RegisterWindowMessageA("VorlanRegisteredPing");
    const UINT again = RegisterWindowMessageA("VorlanRegisteredPing");
    const UINT other = RegisterWindowMessageA("VorlanRegisteredPong");
    EXPECT_GE(first, 0xC000u);
    EXPECT_LE(first, 0xFFFFu);
    EXPECT_GE(other, 0xC000u);
    EXPECT_LE(other, 0xFFFFu);
    EXPECT_EQ(first, again);
    EXPECT_NE(first, other);
    // The number names its atom.
    char name[64] = {};
    EXPECT_GT(GetAtomNameA(static_cast<ATOM>(first), name, sizeof name), 0u);
    EXPECT_STREQ(name, "VorlanRegisteredPing");
}

TEST(RegisteredMessages, NamesThatDifferOnlyInAsciiCaseShareANumber)
{
    const UINT mixed = RegisterWindowMessageA("VorlanRegisteredCase");
    EXPECT_EQ(RegisterWindowMessageA("VORLANREGISTEREDCASE"), mixed);
    EXPECT_EQ(RegisterWindowMessageA("vorlanregisteredcase"), mixed);
    // The first spelling is the one kept.
    char name[64] = {};
    GetAtomNameA(static_cast<ATOM>(mixed), name, sizeof name);
    EXPECT_STREQ(name, "VorlanRegisteredCase");
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

TEST(RegisteredMessages, RegisteredMessageTravelsThroughTheQueue)
{
    const UINT message = RegisterWindowMessageA("VorlanRegisteredTravel");
    ASSERT_TRUE(PostMessageW(nullptr, message, 11, 22));
    MSG msg = {};
    ASSERT_TRUE(PeekMessageW(&msg, reinterpret_cast<HWND>(-1), message, message, PM_REMOVE));
    EXPECT_EQ(msg.message, message);
    EXPECT_EQ(msg.wParam, 11u);
    EXPECT_EQ(msg.lParam, 22);
}
