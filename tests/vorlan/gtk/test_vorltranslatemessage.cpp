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

const Modifiers kNone = {};
const Modifiers kShift = {true, false, false};
const Modifiers kControl = {false, true, false};
const Modifiers kCapsLock = {false, false, true};

} // namespace

TEST_F(TranslateKeys, KeyDownsPostCharOrSysCharWithTheKeyDataToTheWindow)
{
    ASSERT_TRUE(Translate(WM_KEYDOWN, 'Q'));
    ASSERT_EQ(m_posted.size(), 1u);
    EXPECT_EQ(m_posted[0].hwnd, m_hwnd);
    EXPECT_EQ(m_posted[0].message, static_cast<UINT>(WM_CHAR));
    EXPECT_EQ(m_posted[0].wParam, static_cast<WPARAM>('q'));
    EXPECT_EQ(m_posted[0].lParam, kKeyData);

    const LPARAM altData = kKeyData | (1 << 29);
    ASSERT_TRUE(Translate(WM_SYSKEYDOWN, 'F', {}, altData));
    ASSERT_EQ(m_posted.size(), 1u);
    EXPECT_EQ(m_posted[0].message, static_cast<UINT>(WM_SYSCHAR));
    EXPECT_EQ(m_posted[0].wParam, static_cast<WPARAM>('f'));
    EXPECT_EQ(m_posted[0].lParam, altData);
}

// Key ups and VK_PROCESSKEY (the input method's) are translated but post
// nothing; other messages are not translated.
TEST_F(TranslateKeys, KeyUpsAndProcessKeyPostNothingAndOtherMessagesAreNotTranslated)
{
    for (UINT message : {UINT(WM_KEYUP), UINT(WM_SYSKEYUP)}) {
        EXPECT_TRUE(Translate(message, 'A')) << message;
        EXPECT_TRUE(m_posted.empty());
    }
    EXPECT_TRUE(Translate(WM_KEYDOWN, VK_PROCESSKEY));
    EXPECT_TRUE(m_posted.empty());
    for (UINT message : {UINT(WM_CHAR), UINT(WM_SYSCHAR), UINT(WM_MOUSEMOVE), UINT(WM_NULL), UINT(WM_USER)}) {
        EXPECT_FALSE(Translate(message, 'A')) << message;
        EXPECT_TRUE(m_posted.empty());
    }
    EXPECT_FALSE(TranslateMessage(nullptr));
}

// The character of each key press for the US layout; -1: none is posted.
TEST_F(TranslateKeys, CharacterFollowsTheKeyAndTheModifiers)
{
    struct Case {
        WPARAM vk;
        Modifiers modifiers;
        long expected;
    };
    const Modifiers controlShift = {true, true, false};
    const Modifiers capsShift = {true, false, true};
    const Case cases[] = {
        // Letters with Shift and Caps Lock.
        {'A', kNone, 'a'}, {'Z', kNone, 'z'}, {'A', kShift, 'A'}, {'M', kCapsLock, 'M'}, {'M', capsShift, 'm'},
        // Shifted digits are the US symbols; Caps Lock does not shift digits.
        {'0', kShift, ')'}, {'1', kShift, '!'}, {'2', kShift, '@'}, {'3', kShift, '#'}, {'4', kShift, '$'},
        {'5', kShift, '%'}, {'6', kShift, '^'}, {'7', kShift, '&'}, {'8', kShift, '*'}, {'9', kShift, '('},
        {'0', kNone, '0'}, {'9', kNone, '9'}, {'1', kCapsLock, '1'},
        // Control codes, also with Shift; digits, space and keypad give none.
        {'A', kControl, 1}, {'C', kControl, 3}, {'Z', kControl, 26}, {'C', controlShift, 3},
        {VK_RETURN, kControl, 0x0A}, {VK_BACK, kControl, 0x7F}, {'1', kControl, -1}, {VK_SPACE, kControl, -1},
        {VK_NUMPAD1, kControl, -1},
        // Editing keys, Cancel and the keypad.
        {VK_BACK, kNone, 0x08}, {VK_TAB, kNone, 0x09}, {VK_RETURN, kNone, 0x0D}, {VK_ESCAPE, kNone, 0x1B},
        {VK_SPACE, kNone, ' '}, {VK_CANCEL, kNone, 0x1B}, {VK_NUMPAD0, kNone, '0'}, {VK_NUMPAD9, kNone, '9'},
        {VK_MULTIPLY, kNone, '*'}, {VK_ADD, kNone, '+'}, {VK_SUBTRACT, kNone, '-'}, {VK_DECIMAL, kNone, '.'},
        {VK_DIVIDE, kNone, '/'},
        // Keys without a character.
        {VK_F1, kNone, -1}, {VK_LEFT, kNone, -1}, {VK_SHIFT, kNone, -1}, {VK_DELETE, kNone, -1},
        {VK_F10, kNone, -1},
        // Keyvals in the library's 0xFF form give their Unicode character
        // whatever the modifiers; one without a character gives none.
        {(0xE9 << 8) | 0xFF, kNone, 0xE9}, {(0x20AC << 8) | 0xFF, kNone, 0x20AC},
        {(0xE9 << 8) | 0xFF, kControl, 0xE9}, {(0xFFE1 << 8) | 0xFF, kNone, -1},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(::testing::Message() << "vk 0x" << std::hex << c.vk << " shift " << c.modifiers.shift
                                          << " control " << c.modifiers.control << " caps " << c.modifiers.capsLock);
        EXPECT_EQ(CharOf(c.vk, c.modifiers), c.expected);
    }
}

// The character queues behind what was posted before and, dispatched,
// reaches the window procedure.
TEST_F(TranslateKeys, CharacterQueuesBehindWhatIsPostedAndReachesTheWindowProcedure)
{
    SetModifiers(kShift);
    ASSERT_TRUE(PostMessageW(m_hwnd, WM_USER + 7, 0, 0));
    MSG key = {m_hwnd, WM_KEYDOWN, '2', kKeyData, 0, {0, 0}};
    ASSERT_TRUE(TranslateMessage(&key));
    MSG out;
    ASSERT_TRUE(PeekMessageW(&out, m_hwnd, 0, 0, PM_REMOVE));
    EXPECT_EQ(out.message, static_cast<UINT>(WM_USER + 7));
    m_recorder.Clear();
    ASSERT_TRUE(PeekMessageW(&out, m_hwnd, 0, 0, PM_REMOVE));
    EXPECT_EQ(out.message, static_cast<UINT>(WM_CHAR));
    DispatchMessageW(&out);
    const auto chars = m_recorder.Of(m_hwnd, WM_CHAR);
    ASSERT_EQ(chars.size(), 1u);
    EXPECT_EQ(chars[0].wParam, static_cast<WPARAM>('@'));
}
