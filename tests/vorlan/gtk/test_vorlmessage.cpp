// The exported message calls over the calling thread's queues, their error
// paths, TranslateMessage and RegisterWindowMessageA.
#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"
#include "support/message_recorder.h"
#include "support/queue_helpers.h"
#include "support/window_objects.h"

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

using namespace vorlan_test;

namespace {

constexpr UINT WM_PROBE = WM_USER + 21;
const HWND kBogus = reinterpret_cast<HWND>(static_cast<ULONG_PTR>(0x1234));

struct Received {
    int calls = 0;
    HWND hwnd = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    std::u16string text;
    bool lockHeld = false;
};

Received g_received;
int g_timerCalls = 0;
int g_hookCalls = 0;
int g_lastHookCode = -1;
bool g_hookLockHeld = false;

// Records what arrives; WM_PROBE answers wParam * 10 + lParam.
LRESULT CALLBACK RecordingProcW(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    ++g_received.calls;
    g_received.hwnd = hWnd;
    g_received.message = message;
    g_received.wParam = wParam;
    g_received.lParam = lParam;
    g_received.lockHeld = vorlan::GtkCriticalSection::held_by_caller();
    if (message == WM_SETTEXT && lParam != 0) {
        g_received.text = reinterpret_cast<const char16_t *>(lParam);
        return TRUE;
    }
    return message == WM_PROBE ? static_cast<LRESULT>(wParam * 10) + lParam : 0;
}

void CALLBACK CountingTimerProc(HWND, UINT, UINT_PTR, DWORD)
{
    ++g_timerCalls;
}

// Swallows the message (answers 1) or lets it pass (0).
template <LRESULT answer>
LRESULT CALLBACK RecordingHook(int code, WPARAM, LPARAM)
{
    ++g_hookCalls;
    g_lastHookCode = code;
    g_hookLockHeld = vorlan::GtkCriticalSection::held_by_caller();
    return answer;
}

WindowOptions HiddenTopLevel()
{
    WindowOptions options;
    options.withXWindow = false;
    return options;
}

// A window of the calling thread whose procedure is RecordingProcW.
class MessageCalls : public ::testing::Test {
protected:
    void SetUp() override
    {
        ResetCurrentThreadQueues();
        g_received = Received();
        g_timerCalls = g_hookCalls = 0;
        g_lastHookCode = -1;
        g_hookLockHeld = true;
        m_window = std::make_unique<TestWindow>(HiddenTopLevel());
        SetWindowLongPtrW(m_window->hwnd(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(RecordingProcW));
    }
    void TearDown() override
    {
        m_window.reset();
        ResetCurrentThreadQueues();
    }
    HWND window() const { return m_window->hwnd(); }

private:
    std::unique_ptr<TestWindow> m_window;
};

TEST_F(MessageCalls, PostsAndQuitReachGetMessageAndPeekMessage)
{
    ASSERT_TRUE(PostMessageW(nullptr, WM_PROBE, 3, 4));
    ASSERT_TRUE(PostMessageA(window(), WM_PROBE, 1, 2));
    MSG msg = {};
    ASSERT_TRUE(PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(msg.message, WM_PROBE);
    EXPECT_EQ(GetMessageW(&msg, window(), WM_PROBE, WM_PROBE), 1);
    EXPECT_EQ(msg.hwnd, window());
    EXPECT_EQ(msg.wParam, static_cast<WPARAM>(1));
    EXPECT_TRUE(PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(msg.hwnd, nullptr);
    EXPECT_EQ(msg.message, WM_PROBE);
    EXPECT_EQ(msg.wParam, static_cast<WPARAM>(3));
    EXPECT_EQ(msg.lParam, static_cast<LPARAM>(4));
    EXPECT_FALSE(PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE));

    PostQuitMessage(42);
    EXPECT_EQ(GetMessageA(&msg, nullptr, 0, 0), 0);
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(msg.wParam, static_cast<WPARAM>(42));
    EXPECT_FALSE(PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(g_received.calls, 0);
}

TEST_F(MessageCalls, PostThreadMessageReachesAWorkerAndNotAThreadWithoutQueue)
{
    std::atomic<DWORD> workerTid{0};
    std::atomic<UINT> received{0};
    WPARAM wParam = 0;
    std::thread worker([&] {
        MSG msg = {};
        PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE); // makes the queue
        workerTid = GetCurrentThreadId();
        if (GetMessageW(&msg, nullptr, 0, 0) > 0) {
            wParam = msg.wParam;
            received = msg.message;
        }
    });
    SpinUntil([&] { return workerTid.load() != 0; });
    EXPECT_TRUE(PostThreadMessageA(workerTid, WM_PROBE, 77, 0));
    worker.join();
    EXPECT_EQ(received.load(), WM_PROBE);
    EXPECT_EQ(wParam, static_cast<WPARAM>(77));

    SetLastError(0);
    EXPECT_FALSE(PostThreadMessageA(EndedThreadId(), WM_PROBE, 0, 0));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_THREAD_ID));
}

// A handle that names no window, or a window of another thread as filter,
// fails with 1400 (dispatching to no window answers 0 without an error).
TEST_F(MessageCalls, BadHandlesAndWindowsOfOtherThreadsGive1400)
{
    MSG msg = {};
    SetLastError(0);
    EXPECT_FALSE(PostMessageW(kBogus, WM_PROBE, 0, 0));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
    SetLastError(0);
    EXPECT_EQ(SendMessageW(kBogus, WM_PROBE, 1, 1), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
    TestWindow foreign(HiddenTopLevel());
    {
        vorlan::GtkCriticalSection lock;
        foreign.object()->dwThreadId = EndedThreadId();
    }
    for (HWND hWnd : {kBogus, foreign.hwnd()}) {
        SetLastError(0);
        EXPECT_FALSE(PeekMessageW(&msg, hWnd, 0, 0, PM_REMOVE));
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
        SetLastError(0);
        EXPECT_EQ(GetMessageA(&msg, hWnd, 0, 0), -1);
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
    }
    msg = {kBogus, WM_PROBE, 0, 0, 0, {0, 0}};
    EXPECT_EQ(DispatchMessageA(&msg), 0);
    EXPECT_EQ(DispatchMessageW(nullptr), 0);
    EXPECT_EQ(g_received.calls, 0);
    vorlan::GtkCriticalSection lock;
    foreign.object()->dwThreadId = GetCurrentThreadId();
}

TEST_F(MessageCalls, RefusedArgumentsGive87)
{
    MSG msg = {};
    SetLastError(0);
    EXPECT_FALSE(PostMessageA(nullptr, WM_CREATE, 0, 0));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    SetLastError(0);
    EXPECT_FALSE(PeekMessageW(&msg, nullptr, 100, 50, 0));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    SetLastError(0);
    EXPECT_FALSE(PeekMessageA(nullptr, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    SetLastError(0);
    EXPECT_EQ(GetMessageW(&msg, nullptr, 100, 50), -1);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

// The procedure runs without the toolkit lock, with the caller's arguments;
// the A form converts text for a wide procedure.
TEST_F(MessageCalls, SameThreadSendCallsTheProcedure)
{
    EXPECT_EQ(SendMessageW(window(), WM_PROBE, 4, 2), static_cast<LRESULT>(42));
    EXPECT_EQ(g_received.hwnd, window());
    EXPECT_EQ(g_received.message, WM_PROBE);
    EXPECT_EQ(g_received.wParam, static_cast<WPARAM>(4));
    EXPECT_EQ(g_received.lParam, static_cast<LPARAM>(2));
    EXPECT_FALSE(g_received.lockHeld);
    EXPECT_EQ(SendMessageA(window(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>("Hello")), static_cast<LRESULT>(TRUE));
    EXPECT_EQ(g_received.message, static_cast<UINT>(WM_SETTEXT));
    EXPECT_EQ(g_received.text, u"Hello");
}

// A send from another thread is answered through the queues; text cannot
// cross threads.
TEST_F(MessageCalls, WorkerSendReturnsTheProceduresResultAndTextIsRefusedWith87)
{
    std::atomic<bool> done{false};
    std::atomic<LRESULT> result{0};
    std::atomic<LRESULT> textResult{-1};
    std::atomic<DWORD> error{0};
    const HWND target = window();
    std::thread worker([&] {
        result = SendMessageW(target, WM_PROBE, 7, 3);
        SetLastError(0);
        textResult = SendMessageA(target, WM_SETTEXT, 0, reinterpret_cast<LPARAM>("x"));
        error = GetLastError();
        done = true;
    });
    EXPECT_TRUE(ServeMessagesUntil([&] { return done.load(); }, nullptr, 10000));
    worker.join();
    EXPECT_EQ(result.load(), static_cast<LRESULT>(73));
    EXPECT_EQ(g_received.hwnd, target);
    EXPECT_EQ(g_received.message, WM_PROBE);
    EXPECT_EQ(textResult.load(), 0);
    EXPECT_EQ(error.load(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

// WM_TIMER with a procedure in lParam goes to that procedure only.
TEST_F(MessageCalls, DispatchGoesToTheWindowProcedureOrTheTimerProcedure)
{
    MSG msg = {window(), WM_PROBE, 0, 5, 0, {0, 0}};
    EXPECT_EQ(DispatchMessageW(&msg), 5);
    EXPECT_EQ(DispatchMessageA(&msg), 5);
    msg = {window(), WM_TIMER, 1, 0, 0, {0, 0}};
    DispatchMessageW(&msg);
    EXPECT_EQ(g_received.calls, 3);
    EXPECT_EQ(g_timerCalls, 0);
    msg.lParam = reinterpret_cast<LPARAM>(CountingTimerProc);
    EXPECT_EQ(DispatchMessageW(&msg), 0);
    EXPECT_EQ(g_received.calls, 3);
    EXPECT_EQ(g_timerCalls, 1);
}

// A keyboard hook runs without the toolkit lock for a key being removed and
// may swallow it; a message hook sees peeks with and without removal.
TEST_F(MessageCalls, HooksSeeRetrievedMessagesAndMaySwallowKeys)
{
    HHOOK hook = SetWindowsHookExW(WH_KEYBOARD, RecordingHook<1>, nullptr, GetCurrentThreadId());
    ASSERT_NE(hook, nullptr);
    ASSERT_TRUE(PostMessageW(window(), WM_KEYDOWN, 'A', 0));
    ASSERT_TRUE(PostMessageW(window(), WM_PROBE, 0, 0));
    MSG msg = {};
    EXPECT_FALSE(PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(g_hookCalls, 1);
    EXPECT_EQ(g_lastHookCode, HC_ACTION);
    EXPECT_FALSE(g_hookLockHeld);
    EXPECT_EQ(GetMessageW(&msg, nullptr, 0, 0), 1);
    EXPECT_EQ(msg.message, WM_PROBE);
    UnhookWindowsHookEx(hook);

    g_hookCalls = 0;
    hook = SetWindowsHookExW(WH_GETMESSAGE, RecordingHook<0>, nullptr, GetCurrentThreadId());
    ASSERT_NE(hook, nullptr);
    ASSERT_TRUE(PostMessageW(nullptr, WM_PROBE, 0, 0));
    EXPECT_TRUE(PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(g_lastHookCode, HC_NOREMOVE);
    EXPECT_TRUE(PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(g_lastHookCode, HC_ACTION);
    EXPECT_EQ(g_hookCalls, 2);
    UnhookWindowsHookEx(hook);
}

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
        {'A', kNone, 'a'}, {'A', kShift, 'A'}, {'M', kCapsLock, 'M'}, {'M', capsShift, 'm'},
        // Shifted digits are the US symbols; Caps Lock does not shift digits.
        {'0', kShift, ')'}, {'2', kShift, '@'}, {'6', kShift, '^'}, {'9', kNone, '9'}, {'1', kCapsLock, '1'},
        // Control codes, also with Shift; digits, space and keypad give none.
        {'Z', kControl, 26}, {'C', controlShift, 3}, {VK_RETURN, kControl, 0x0A}, {VK_BACK, kControl, 0x7F},
        {'1', kControl, -1}, {VK_SPACE, kControl, -1}, {VK_NUMPAD1, kControl, -1},
        // Editing keys, Cancel and the keypad.
        {VK_BACK, kNone, 0x08}, {VK_RETURN, kNone, 0x0D}, {VK_CANCEL, kNone, 0x1B}, {VK_NUMPAD9, kNone, '9'},
        {VK_DECIMAL, kNone, '.'}, {VK_DIVIDE, kNone, '/'},
        // Keys without a character.
        {VK_F1, kNone, -1}, {VK_SHIFT, kNone, -1}, {VK_DELETE, kNone, -1},
        // Keyvals in the library's 0xFF form give their Unicode character
        // whatever the modifiers; one without a character gives none.
        {(0x20AC << 8) | 0xFF, kNone, 0x20AC}, {(0xE9 << 8) | 0xFF, kControl, 0xE9}, {(0xFFE1 << 8) | 0xFF, kNone, -1},
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
