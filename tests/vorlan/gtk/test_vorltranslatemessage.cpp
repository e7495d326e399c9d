// TranslateMessage: which key messages post a character, which character
// for the modifier state of the calling thread, and where it is queued.
#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlthread.h"
#include "support/message_recorder.h"
#include "support/queue_helpers.h"

#include <vector>

using vorlan_test::MessageRecorder;

namespace {

constexpr LPARAM kKeyData = 0x001E0001; // repeat count 1, scan code 0x1E

struct Modifiers {
    bool shift = false;
    bool control = false;
    bool capsLock = false;
};

// The key state of the calling thread, as the last removed input record
// would have left it.
void SetModifiers(const Modifiers &m)
{
    vorlan::GtkCriticalSection lock;
    ThreadData *data = ThreadData::GetCurrentThreadData();
    data->keyState[VK_SHIFT] = m.shift ? -128 : 0;
    data->keyState[VK_CONTROL] = m.control ? -128 : 0;
    data->keyState[VK_CAPITAL] = m.capsLock ? 1 : 0;
}

class TranslateKeys : public ::testing::Test {
protected:
    void SetUp() override
    {
        vorlan_test::ResetCurrentThreadQueues();
        m_hwnd = m_recorder.Create(WS_POPUP, 0, 0, 20, 20);
        ASSERT_NE(m_hwnd, nullptr);
    }
    void TearDown() override { vorlan_test::ResetCurrentThreadQueues(); }

    // Translates one key message and takes what it posted.
    BOOL Translate(UINT message, WPARAM vk, const Modifiers &m = {}, LPARAM lParam = kKeyData)
    {
        SetModifiers(m);
        MSG msg = {m_hwnd, message, vk, lParam, 0, {0, 0}};
        const BOOL result = TranslateMessage(&msg);
        m_posted.clear();
        MSG out;
        for (int i = 0; i < 16 && PeekMessageW(&out, m_hwnd, 0, 0, PM_REMOVE); ++i)
            m_posted.push_back(out);
        return result;
    }

    // The one character a key press posts, or -1.
    long CharOf(WPARAM vk, const Modifiers &m = {})
    {
        EXPECT_TRUE(Translate(WM_KEYDOWN, vk, m));
        if (m_posted.empty())
            return -1;
        EXPECT_EQ(m_posted.size(), 1u);
        EXPECT_EQ(m_posted[0].message, static_cast<UINT>(WM_CHAR));
        return static_cast<long>(m_posted[0].wParam);
    }

    MessageRecorder m_recorder{"VorlanTranslateKeys"};
    HWND m_hwnd = nullptr;
    std::vector<MSG> m_posted;
};

Modifiers Shift()
{
    Modifiers m;
    m.shift = true;
    return m;
}

Modifiers Control()
{
    Modifiers m;
    m.control = true;
    return m;
}

Modifiers CapsLock(bool shift = false)
{
    Modifiers m;
    m.capsLock = true;
    m.shift = shift;
    return m;
}

} // namespace

TEST_F(TranslateKeys, KeyDownPostsCharWithTheKeyDataToTheWindow)
{
    ASSERT_TRUE(Translate(WM_KEYDOWN, 'Q'));
    ASSERT_EQ(m_posted.size(), 1u);
    EXPECT_EQ(m_posted[0].hwnd, m_hwnd);
    EXPECT_EQ(m_posted[0].message, static_cast<UINT>(WM_CHAR));
    EXPECT_EQ(m_posted[0].wParam, static_cast<WPARAM>('q'));
    EXPECT_EQ(m_posted[0].lParam, kKeyData);
}

TEST_F(TranslateKeys, SysKeyDownPostsSysChar)
{
    const LPARAM altData = kKeyData | (1 << 29);
    ASSERT_TRUE(Translate(WM_SYSKEYDOWN, 'F', {}, altData));
    ASSERT_EQ(m_posted.size(), 1u);
    EXPECT_EQ(m_posted[0].message, static_cast<UINT>(WM_SYSCHAR));
    EXPECT_EQ(m_posted[0].wParam, static_cast<WPARAM>('f'));
    EXPECT_EQ(m_posted[0].lParam, altData);
}

TEST_F(TranslateKeys, KeyUpsAreTranslatedButPostNothing)
{
    EXPECT_TRUE(Translate(WM_KEYUP, 'A'));
    EXPECT_TRUE(m_posted.empty());
    EXPECT_TRUE(Translate(WM_SYSKEYUP, 'A'));
    EXPECT_TRUE(m_posted.empty());
}

TEST_F(TranslateKeys, OtherMessagesAreNotTranslated)
{
    for (UINT message : {UINT(WM_CHAR), UINT(WM_SYSCHAR), UINT(WM_MOUSEMOVE), UINT(WM_NULL), UINT(WM_USER)}) {
        EXPECT_FALSE(Translate(message, 'A')) << message;
        EXPECT_TRUE(m_posted.empty());
    }
    EXPECT_FALSE(TranslateMessage(nullptr));
}

TEST_F(TranslateKeys, ProcessKeyBelongsToTheInputMethod)
{
    EXPECT_TRUE(Translate(WM_KEYDOWN, VK_PROCESSKEY));
    EXPECT_TRUE(m_posted.empty());
}

TEST_F(TranslateKeys, KeysWithoutACharacterPostNothing)
{
    for (WPARAM vk : {WPARAM(VK_F1), WPARAM(VK_LEFT), WPARAM(VK_SHIFT), WPARAM(VK_DELETE), WPARAM(VK_F10)})
        EXPECT_EQ(CharOf(vk), -1) << vk;
}

TEST_F(TranslateKeys, LettersFollowShiftAndCapsLock)
{
    EXPECT_EQ(CharOf('A'), 'a');
    EXPECT_EQ(CharOf('Z'), 'z');
    EXPECT_EQ(CharOf('A', Shift()), 'A');
    EXPECT_EQ(CharOf('M', CapsLock()), 'M');
    EXPECT_EQ(CharOf('M', CapsLock(true)), 'm');
}

TEST_F(TranslateKeys, ShiftedDigitsAreTheUsSymbols)
{
    const char plain[] = "0123456789";
    const char shifted[] = ")!@#$%^&*(";
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(CharOf('0' + i), plain[i]);
        EXPECT_EQ(CharOf('0' + i, Shift()), shifted[i]);
    }
    // Caps Lock does not shift digits.
    EXPECT_EQ(CharOf('1', CapsLock()), '1');
}

TEST_F(TranslateKeys, ControlGivesControlCodes)
{
    EXPECT_EQ(CharOf('A', Control()), 1);
    EXPECT_EQ(CharOf('C', Control()), 3);
    EXPECT_EQ(CharOf('Z', Control()), 26);
    EXPECT_EQ(CharOf(VK_RETURN, Control()), 0x0A);
    EXPECT_EQ(CharOf(VK_BACK, Control()), 0x7F);
    // Control with Shift is still the control code.
    Modifiers both = Control();
    both.shift = true;
    EXPECT_EQ(CharOf('C', both), 3);
    // Digits, space and the keypad make no character with Control.
    EXPECT_EQ(CharOf('1', Control()), -1);
    EXPECT_EQ(CharOf(VK_SPACE, Control()), -1);
    EXPECT_EQ(CharOf(VK_NUMPAD1, Control()), -1);
}

TEST_F(TranslateKeys, EditingKeysKeypadAndCancel)
{
    EXPECT_EQ(CharOf(VK_BACK), 0x08);
    EXPECT_EQ(CharOf(VK_TAB), 0x09);
    EXPECT_EQ(CharOf(VK_RETURN), 0x0D);
    EXPECT_EQ(CharOf(VK_ESCAPE), 0x1B);
    EXPECT_EQ(CharOf(VK_SPACE), ' ');
    EXPECT_EQ(CharOf(VK_CANCEL), 0x1B);
    EXPECT_EQ(CharOf(VK_NUMPAD0), '0');
    EXPECT_EQ(CharOf(VK_NUMPAD9), '9');
    EXPECT_EQ(CharOf(VK_MULTIPLY), '*');
    EXPECT_EQ(CharOf(VK_ADD), '+');
    EXPECT_EQ(CharOf(VK_SUBTRACT), '-');
    EXPECT_EQ(CharOf(VK_DECIMAL), '.');
    EXPECT_EQ(CharOf(VK_DIVIDE), '/');
}

TEST_F(TranslateKeys, KeyvalKeysGiveTheirUnicodeCharacter)
{
    // e acute and the euro sign as keyvals, in the library's 0xFF form.
    EXPECT_EQ(CharOf((0xE9 << 8) | 0xFF), 0xE9);
    EXPECT_EQ(CharOf((0x20AC << 8) | 0xFF), 0x20AC);
    // Modifiers do not change a keyval's character.
    EXPECT_EQ(CharOf((0xE9 << 8) | 0xFF, Control()), 0xE9);
    // A keyval with no character posts nothing.
    EXPECT_EQ(CharOf((0xFFE1 << 8) | 0xFF), -1);
}

TEST_F(TranslateKeys, CharacterQueuesBehindWhatIsPosted)
{
    SetModifiers({});
    ASSERT_TRUE(PostMessageW(m_hwnd, WM_USER + 7, 0, 0));
    MSG key = {m_hwnd, WM_KEYDOWN, 'K', kKeyData, 0, {0, 0}};
    ASSERT_TRUE(TranslateMessage(&key));
    MSG out;
    ASSERT_TRUE(PeekMessageW(&out, m_hwnd, 0, 0, PM_REMOVE));
    EXPECT_EQ(out.message, static_cast<UINT>(WM_USER + 7));
    ASSERT_TRUE(PeekMessageW(&out, m_hwnd, 0, 0, PM_REMOVE));
    EXPECT_EQ(out.message, static_cast<UINT>(WM_CHAR));
    EXPECT_EQ(out.wParam, static_cast<WPARAM>('k'));
}

TEST_F(TranslateKeys, DispatchedCharacterReachesTheWindowProcedure)
{
    SetModifiers(Shift());
    MSG key = {m_hwnd, WM_KEYDOWN, '2', kKeyData, 0, {0, 0}};
    ASSERT_TRUE(TranslateMessage(&key));
    m_recorder.Clear();
    MSG out;
    ASSERT_TRUE(PeekMessageW(&out, m_hwnd, WM_CHAR, WM_CHAR, PM_REMOVE));
    DispatchMessageW(&out);
    const auto chars = m_recorder.Of(m_hwnd, WM_CHAR);
    ASSERT_EQ(chars.size(), 1u);
    EXPECT_EQ(chars[0].wParam, static_cast<WPARAM>('@'));
}
