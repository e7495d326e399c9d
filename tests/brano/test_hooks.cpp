// Hook chains, CallNextHookEx and CallMsgFilter.
#include <windows.h>

#include "support/expect_last_error.h"

#include <condition_variable>
#include <cstdint>
#include <gtest/gtest.h>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr UINT kWmChar = 0x0102;
constexpr UINT kWmKeyDown = 0x0100;

struct HookCall {
    std::string who;
    int code;
    WPARAM wParam;
    LPARAM lParam;
};

thread_local std::vector<HookCall> t_calls;
thread_local HHOOK t_handles[3];

void Record(const char *who, int code, WPARAM wParam, LPARAM lParam)
{
    t_calls.push_back({who, code, wParam, lParam});
}

LRESULT CALLBACK PassOnA(int code, WPARAM wParam, LPARAM lParam)
{
    Record("A", code, wParam, lParam);
    return CallNextHookEx(t_handles[0], code, wParam, lParam);
}

LRESULT CALLBACK PassOnBWithNullHandle(int code, WPARAM wParam, LPARAM lParam)
{
    Record("B", code, wParam, lParam);
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CALLBACK LastReturns42(int code, WPARAM wParam, LPARAM lParam)
{
    Record("C", code, wParam, lParam);
    const LRESULT next = CallNextHookEx(t_handles[2], code, wParam, lParam);
    return next == 0 ? 42 : -1;
}

LRESULT CALLBACK Swallow(int code, WPARAM wParam, LPARAM lParam)
{
    Record("swallow", code, wParam, lParam);
    return 1;
}

LRESULT CALLBACK UnhookSelf(int code, WPARAM wParam, LPARAM lParam)
{
    Record("self", code, wParam, lParam);
    EXPECT_TRUE(UnhookWindowsHookEx(t_handles[0]));
    return CallNextHookEx(t_handles[0], code, wParam, lParam);
}

LRESULT CALLBACK UnhookNext(int code, WPARAM wParam, LPARAM lParam)
{
    Record("unhook-next", code, wParam, lParam);
    EXPECT_TRUE(UnhookWindowsHookEx(t_handles[1]));
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CALLBACK Plain(int code, WPARAM wParam, LPARAM lParam)
{
    Record("plain", code, wParam, lParam);
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

std::vector<std::string> Callers()
{
    std::vector<std::string> names;
    for (const HookCall &call : t_calls)
        names.push_back(call.who);
    return names;
}

// Runs the hooks of `type` on a new thread and gives who ran there.
std::vector<std::string> CallersOnAnotherThread(int type, LPARAM lParam = 0)
{
    std::vector<std::string> seen;
    std::thread([&] {
        CallWindowsHook(type, HC_ACTION, 0, lParam, FALSE);
        seen = Callers();
    }).join();
    return seen;
}

class Hooks : public ::testing::Test {
protected:
    void SetUp() override { t_calls.clear(); }
    void TearDown() override
    {
        for (HHOOK &hook : t_handles) {
            if (hook != nullptr)
                UnhookWindowsHookEx(hook);
            hook = nullptr;
        }
    }
    HHOOK Install(int slot, int type, HOOKPROC proc, bool wide = false)
    {
        const DWORD thread = GetCurrentThreadId();
        t_handles[slot] = wide ? SetWindowsHookExW(type, proc, nullptr, thread)
                               : SetWindowsHookExA(type, proc, nullptr, thread);
        EXPECT_NE(t_handles[slot], nullptr);
        return t_handles[slot];
    }
};

void ExpectInstallFails(int type, HOOKPROC proc, DWORD thread, DWORD error)
{
    SCOPED_TRACE(type);
    EXPECT_FAILS_WITH(SetWindowsHookExA(type, proc, nullptr, thread), nullptr, error);
}

} // namespace

TEST_F(Hooks, NewestRunsFirstAndChainsToTheEnd)
{
    Install(2, WH_KEYBOARD, LastReturns42);
    Install(1, WH_KEYBOARD, PassOnBWithNullHandle);
    Install(0, WH_KEYBOARD, PassOnA);
    const LRESULT result = CallWindowsHook(WH_KEYBOARD, HC_ACTION, 'Q', 0x1234, FALSE);
    EXPECT_EQ(result, 42) << "the result travels back through the chain";
    EXPECT_EQ(Callers(), (std::vector<std::string>{"A", "B", "C"}));
    for (const HookCall &call : t_calls) {
        EXPECT_EQ(call.wParam, (WPARAM)'Q');
        EXPECT_EQ(call.lParam, 0x1234);
    }
}

TEST_F(Hooks, ANonZeroResultIsReportedAndNoHooksMeansZero)
{
    Install(1, WH_MOUSE, Plain);
    Install(0, WH_MOUSE, Swallow);
    EXPECT_EQ(CallWindowsHook(WH_MOUSE, HC_ACTION, 0, 0, FALSE), 1);
    EXPECT_EQ(Callers(), (std::vector<std::string>{"swallow"})) << "the chain stops where a hook stops it";
    EXPECT_EQ(CallWindowsHook(WH_CBT, 0, 0, 0, FALSE), 0);
    EXPECT_EQ(CallWindowsHook(999, 0, 0, 0, FALSE), 0);
    EXPECT_EQ(CallWindowsHook(-50, 0, 0, 0, FALSE), 0);
    EXPECT_EQ(CallNextHookEx(nullptr, 0, 0, 0), 0) << "outside any hook";
}

TEST_F(Hooks, UnhookingTheRunningOrTheNextHookIsSafe)
{
    Install(1, WH_KEYBOARD, Plain);
    Install(0, WH_KEYBOARD, UnhookSelf);
    CallWindowsHook(WH_KEYBOARD, HC_ACTION, 1, 2, FALSE);
    EXPECT_EQ(Callers(), (std::vector<std::string>{"self", "plain"}));
    t_handles[0] = nullptr;
    t_calls.clear();
    CallWindowsHook(WH_KEYBOARD, HC_ACTION, 1, 2, FALSE);
    EXPECT_EQ(Callers(), (std::vector<std::string>{"plain"}));
    UnhookWindowsHookEx(t_handles[1]);
    t_handles[1] = nullptr;

    // A hook removed by the one before it in the running chain is skipped.
    Install(1, WH_KEYBOARD, Swallow);
    Install(0, WH_KEYBOARD, UnhookNext);
    t_calls.clear();
    EXPECT_EQ(CallWindowsHook(WH_KEYBOARD, HC_ACTION, 0, 0, FALSE), 0);
    EXPECT_EQ(Callers(), (std::vector<std::string>{"unhook-next"}));
    t_handles[1] = nullptr;
}

TEST_F(Hooks, ThreadHooksStayOnTheirThreadGlobalHooksRunEverywhereAfterThem)
{
    MSG msg = {};
    Install(0, WH_GETMESSAGE, Plain);
    EXPECT_TRUE(CallersOnAnotherThread(WH_GETMESSAGE, reinterpret_cast<LPARAM>(&msg)).empty());
    CallWindowsHook(WH_GETMESSAGE, HC_ACTION, 0, reinterpret_cast<LPARAM>(&msg), FALSE);
    EXPECT_EQ(Callers(), (std::vector<std::string>{"plain"}));

    t_calls.clear();
    t_handles[2] = SetWindowsHookExA(WH_KEYBOARD, Plain, nullptr, 0);
    ASSERT_NE(t_handles[2], nullptr);
    Install(1, WH_KEYBOARD, PassOnBWithNullHandle);
    CallWindowsHook(WH_KEYBOARD, HC_ACTION, 0, 0, FALSE);
    EXPECT_EQ(Callers(), (std::vector<std::string>{"B", "plain"}));
    EXPECT_EQ(CallersOnAnotherThread(WH_KEYBOARD), (std::vector<std::string>{"plain"}));
}

TEST_F(Hooks, HookForAnotherThreadRunsThere)
{
    std::mutex mutex;
    std::condition_variable ready;
    DWORD otherId = 0;
    bool installed = false;
    std::vector<std::string> seenOnOther;
    std::thread other([&] {
        {
            std::unique_lock<std::mutex> lock(mutex);
            otherId = GetCurrentThreadId();
            ready.notify_all();
            ready.wait(lock, [&] { return installed; });
        }
        CallWindowsHook(WH_KEYBOARD, HC_ACTION, 0, 0, FALSE);
        seenOnOther = Callers();
    });
    HHOOK hook;
    {
        std::unique_lock<std::mutex> lock(mutex);
        ready.wait(lock, [&] { return otherId != 0; });
        hook = SetWindowsHookExA(WH_KEYBOARD, Plain, nullptr, otherId);
        EXPECT_NE(hook, nullptr);
        installed = true;
        ready.notify_all();
    }
    other.join();
    EXPECT_EQ(seenOnOther, (std::vector<std::string>{"plain"}));
    CallWindowsHook(WH_KEYBOARD, HC_ACTION, 0, 0, FALSE);
    EXPECT_TRUE(t_calls.empty()) << "not on the installing thread";
    // Removed when its thread ended.
    EXPECT_FAILS_WITH(UnhookWindowsHookEx(hook), FALSE, ERROR_INVALID_HOOK_HANDLE);
}

TEST_F(Hooks, InstallationChecksAndBadHandles)
{
    for (int type : {WH_JOURNALRECORD, WH_JOURNALPLAYBACK, WH_KEYBOARD_LL, WH_MOUSE_LL, WH_HARDWARE,
                     WH_MIN - 1, WH_MAX + 1, 1000})
        ExpectInstallFails(type, Plain, GetCurrentThreadId(), ERROR_INVALID_HOOK_FILTER);
    ExpectInstallFails(WH_KEYBOARD, nullptr, GetCurrentThreadId(), ERROR_INVALID_FILTER_PROC);
    ExpectInstallFails(WH_KEYBOARD, Plain, 0x7FFFFFF0u, ERROR_INVALID_PARAMETER);
    ExpectInstallFails(WH_SYSMSGFILTER, Plain, GetCurrentThreadId(), ERROR_GLOBAL_ONLY_HOOK);
    for (int type : {WH_MSGFILTER, WH_KEYBOARD, WH_GETMESSAGE, WH_CALLWNDPROC, WH_CBT, WH_MOUSE,
                     WH_FOREGROUNDIDLE, WH_CALLWNDPROCRET}) {
        HHOOK hook = SetWindowsHookExW(type, Plain, nullptr, GetCurrentThreadId());
        EXPECT_NE(hook, nullptr) << "type " << type;
        EXPECT_TRUE(UnhookWindowsHookEx(hook));
    }
    int local = 0;
    for (HHOOK bad : {static_cast<HHOOK>(nullptr), reinterpret_cast<HHOOK>(&local),
                      reinterpret_cast<HHOOK>(0x18), reinterpret_cast<HHOOK>(~static_cast<uintptr_t>(0))}) {
        EXPECT_FAILS_WITH(UnhookWindowsHookEx(bad), FALSE, ERROR_INVALID_HOOK_HANDLE);
    }
    HHOOK hook = Install(0, WH_CBT, Plain);
    EXPECT_TRUE(UnhookWindowsHookEx(hook));
    t_handles[0] = nullptr;
    EXPECT_FAILS_WITH(UnhookWindowsHookEx(hook), FALSE, ERROR_INVALID_HOOK_HANDLE); // twice
}

TEST_F(Hooks, ForeignHandleInCallNextContinuesAfterTheRunningHook)
{
    static HHOOK s_forged = reinterpret_cast<HHOOK>(0x9990);
    Install(1, WH_KEYBOARD, Plain);
    Install(0, WH_KEYBOARD, [](int code, WPARAM wParam, LPARAM lParam) -> LRESULT {
        Record("forged", code, wParam, lParam);
        return CallNextHookEx(s_forged, code, wParam, lParam);
    });
    CallWindowsHook(WH_KEYBOARD, HC_ACTION, 0, 0, FALSE);
    EXPECT_EQ(Callers(), (std::vector<std::string>{"forged", "plain"}));
}

TEST_F(Hooks, CharacterMessagesAreConvertedForHooksOfTheOtherForm)
{
    static WPARAM s_seen;
    Install(0, WH_GETMESSAGE, [](int code, WPARAM wParam, LPARAM lParam) -> LRESULT {
        MSG *msg = reinterpret_cast<MSG *>(lParam);
        s_seen = msg->wParam;
        msg->wParam = 0x00E9;  // é
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }, true);
    MSG msg = {};
    msg.message = kWmChar;
    msg.wParam = 'a';
    msg.time = 77;
    CallWindowsHook(WH_GETMESSAGE, HC_ACTION, 0, reinterpret_cast<LPARAM>(&msg), FALSE);
    EXPECT_EQ(s_seen, (WPARAM)'a');
    const WCHAR eAcute = 0x00E9;
    char ansi[4] = {};
    const int bytes = WideCharToMultiByte(CP_ACP, 0, &eAcute, 1, ansi, sizeof ansi, nullptr, nullptr);
    ASSERT_GT(bytes, 0);
    WPARAM expected = 0;
    for (int i = 0; i < bytes; ++i)
        expected |= static_cast<WPARAM>(static_cast<unsigned char>(ansi[i])) << (8 * i);
    EXPECT_EQ(msg.wParam, expected) << "the change comes back in the ANSI page";
    EXPECT_EQ(msg.time, 77u);

    static WPARAM s_seenByAnsi;
    Install(1, WH_MSGFILTER, [](int, WPARAM, LPARAM lParam) -> LRESULT {
        s_seenByAnsi = reinterpret_cast<MSG *>(lParam)->wParam;
        return 0;
    });
    MSG wideMsg = {};
    wideMsg.message = kWmChar;
    wideMsg.wParam = 'x';
    CallWindowsHook(WH_MSGFILTER, MSGF_DIALOGBOX, 0, reinterpret_cast<LPARAM>(&wideMsg), TRUE);
    EXPECT_EQ(s_seenByAnsi, (WPARAM)'x');
    EXPECT_EQ(wideMsg.wParam, (WPARAM)'x') << "untouched message is left as it was";
    wideMsg.message = kWmKeyDown;
    wideMsg.wParam = 0x1234;
    CallWindowsHook(WH_MSGFILTER, MSGF_DIALOGBOX, 0, reinterpret_cast<LPARAM>(&wideMsg), TRUE);
    EXPECT_EQ(s_seenByAnsi, (WPARAM)0x1234) << "only character messages are converted";
}

TEST_F(Hooks, CallMsgFilterRunsSystemThenThreadFilters)
{
    t_handles[0] = SetWindowsHookExA(WH_SYSMSGFILTER, Plain, nullptr, 0);
    ASSERT_NE(t_handles[0], nullptr);
    Install(1, WH_MSGFILTER, PassOnBWithNullHandle);
    MSG msg = {};
    EXPECT_FALSE(CallMsgFilterA(&msg, MSGF_MENU));
    EXPECT_EQ(Callers(), (std::vector<std::string>{"plain", "B"}));
    ASSERT_EQ(t_calls.size(), 2u);
    EXPECT_EQ(t_calls[0].code, MSGF_MENU);
    EXPECT_EQ(t_calls[1].lParam, reinterpret_cast<LPARAM>(&msg));

    UnhookWindowsHookEx(t_handles[1]);
    t_handles[1] = nullptr;
    Install(1, WH_MSGFILTER, Swallow);
    t_calls.clear();
    EXPECT_TRUE(CallMsgFilterW(&msg, MSGF_MENU));
    EXPECT_FALSE(CallMsgFilterW(nullptr, MSGF_MENU));
    EXPECT_FALSE(CallMsgFilterA(nullptr, MSGF_MENU));
}
