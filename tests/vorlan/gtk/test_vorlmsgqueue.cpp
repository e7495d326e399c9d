// Message retrieval of one thread: source order, filters, quit, the input,
// paint and timer queues, and the life of thread data.
#include <gtest/gtest.h>

#include "gtk/vorlstartup.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlmessage.h"
#include "gtk/vorlthread.h"
#include "gtk/vorlwindow.h"
#include "support/gtk_helpers.h"
#include "support/queue_helpers.h"
#include "support/window_objects.h"

#include <gdk/gdkx.h>
#include <imm.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

using namespace vorlan_test;

namespace {

struct Call {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
};

std::vector<Call> g_calls;

LRESULT CALLBACK RecordingProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM)
{
    g_calls.push_back({hWnd, message, wParam});
    return 0;
}

class MessageQueue : public ::testing::Test {
protected:
    void SetUp() override
    {
        ResetCurrentThreadQueues();
        g_calls.clear();
    }
    void TearDown() override
    {
        ResetCurrentThreadQueues();
        for (HWND window : m_windows)
            DestroyWindow(window);
    }

    HWND Window()
    {
        m_windows.push_back(CreateQueueWindow(RecordingProc));
        return m_windows.back();
    }
    ThreadData *Data() { return ThreadData::GetCurrentThreadData(); }

    void QueueInput(UINT message, WPARAM wParam, int x = 0, int y = 0, WORD wFlags = 0)
    {
        _InputMSG record = {};
        record.message = message;
        record.wParam = wParam;
        record.pt = {x, y};
        record.wFlags = wFlags;
        vorlan::GtkCriticalSection lock;
        Data()->QueueInputMessage(&record);
    }
    void QueueTimer(HWND hWnd, WPARAM id)
    {
        vorlan::GtkCriticalSection lock;
        Data()->QueueTimerMessage(hWnd, WM_TIMER, id, 0);
    }
    void QueuePaint(HWND hWnd)
    {
        vorlan::GtkCriticalSection lock;
        Data()->QueuePaintMessage(hWnd);
    }
    std::deque<HWND> PaintQueue()
    {
        vorlan::GtkCriticalSection lock;
        return Data()->qPaintWnds;
    }
    void RequestQuit(int code)
    {
        Data()->nQuitCode = code;
        Data()->qsFlags.fetch_or(QS_FLAG_QUIT);
    }

private:
    std::vector<HWND> m_windows;
};

// A worker whose send to `target` is in the global queue once the
// constructor returns; the destructor waits for the reply.
class PendingSend {
public:
    PendingSend(HWND target, UINT message)
    {
        m_thread = std::thread([this, target, message] {
            vorlan::GtkCriticalSection lock;
            m_sending = true;
            MSG msg = {target, message, 0, 0, 0, {0, 0}};
            PostMessageCore(&msg, TRUE, TRUE, POST_TO_WINDOW_THREAD);
            m_replied = true;
        });
        SpinUntil([this] { return m_sending.load(); });
        // The record leaves before the sender drops the toolkit lock.
        vorlan::GtkCriticalSection lock;
    }
    ~PendingSend() { m_thread.join(); }
    bool replied() const { return m_replied; }

private:
    std::atomic<bool> m_sending{false};
    std::atomic<bool> m_replied{false};
    std::thread m_thread;
};

TEST_F(MessageQueue, SourcesAreTakenInTheirOrder)
{
    HWND window = Window();
    Data()->hWndFocus = window;
    QueueTimer(window, 1);
    QueuePaint(window);
    SetUpdateRegion(window, true);
    QueueInput(WM_KEYDOWN, 'A');
    RequestQuit(7);
    ASSERT_EQ(LockedPost(window, WM_USER), 1);
    PendingSend send(window, WM_USER + 1);

    MSG msg;
    std::vector<UINT> taken;
    ASSERT_TRUE(LockedPeek(&msg));
    // The sent message ran before anything was returned.
    ASSERT_EQ(g_calls.size(), 1u);
    EXPECT_EQ(g_calls[0].message, static_cast<UINT>(WM_USER + 1));
    taken.push_back(msg.message);
    while (LockedPeek(&msg)) {
        taken.push_back(msg.message);
        if (msg.message == WM_PAINT)
            SetUpdateRegion(window, false);
    }
    const std::vector<UINT> expected = {WM_USER, WM_QUIT, WM_KEYDOWN, WM_PAINT, WM_TIMER};
    EXPECT_EQ(taken, expected);
    EXPECT_TRUE(SpinUntil([&] { return send.replied(); }));
}

TEST_F(MessageQueue, PostedImeResultAlsoReachesTheWindowAsPrivateMessage)
{
    HWND window = Window();
    ASSERT_EQ(LockedPost(window, WM_IME_COMPOSITION, 0x41, GCS_RESULTSTR), 1);
    ASSERT_EQ(LockedPost(window, WM_IME_COMPOSITION, 0x42, GCS_COMPSTR), 1);
    MSG msg;
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_IME_COMPOSITION));
    ASSERT_EQ(g_calls.size(), 1u);
    EXPECT_EQ(g_calls[0].message, 1014u);
    EXPECT_EQ(g_calls[0].wParam, 0x41u);
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(g_calls.size(), 1u);
}

TEST_F(MessageQueue, PostedMessagesKeepTheirOrderUnderRemovalAndFilters)
{
    for (UINT i = 0; i < 4; ++i)
        ASSERT_EQ(LockedPost(nullptr, WM_USER + i, 5, 6), 1);
    MSG first, second, msg;
    ASSERT_TRUE(LockedPeek(&first, nullptr, 0, 0, PM_NOREMOVE));
    ASSERT_TRUE(LockedPeek(&second, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(first.message, static_cast<UINT>(WM_USER));
    EXPECT_EQ(first.wParam, 5u);
    EXPECT_EQ(first.lParam, 6);
    EXPECT_EQ(second.message, first.message);
    ASSERT_TRUE(LockedPeek(&msg, nullptr, WM_USER + 2, WM_USER + 2));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_USER + 2));
    ASSERT_TRUE(LockedPeek(&msg, nullptr, 0x10000 + WM_USER + 3, 0x20000 + WM_USER + 3));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_USER + 3));
    for (UINT i = 0; i < 2; ++i) {
        ASSERT_TRUE(LockedPeek(&msg));
        EXPECT_EQ(msg.message, WM_USER + i);
    }
    EXPECT_FALSE(LockedPeek(&msg));
}

TEST_F(MessageQueue, BoundsInTheWrongOrderStillRunSentMessagesAndQuit)
{
    HWND window = Window();
    QueueTimer(window, 1);
    ASSERT_EQ(LockedPost(nullptr, 0x450), 1);
    MSG msg;
    {
        PendingSend send(window, WM_USER + 3);
        // 0x10400 is cut to 0x400, below the lower bound.
        EXPECT_FALSE(LockedPeek(&msg, nullptr, 0x500, 0x10400));
        ASSERT_EQ(g_calls.size(), 1u);
        EXPECT_EQ(g_calls[0].message, static_cast<UINT>(WM_USER + 3));
    }
    RequestQuit(3);
    ASSERT_TRUE(LockedPeek(&msg, nullptr, 0x500, 0x10400));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(msg.wParam, 3u);
}

TEST_F(MessageQueue, QuitPassesEveryFilterAndIsTakenOnce)
{
    HWND window = Window();
    RequestQuit(42);
    MSG msg;
    ASSERT_TRUE(LockedPeek(&msg, window, WM_USER, WM_USER, PM_NOREMOVE));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(msg.hwnd, window);
    EXPECT_EQ(msg.wParam, 42u);
    EXPECT_EQ(msg.lParam, 0);
    ASSERT_TRUE(LockedPeek(&msg, reinterpret_cast<HWND>(-1), WM_USER, WM_USER, PM_REMOVE));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(msg.hwnd, nullptr);
    EXPECT_FALSE(LockedPeek(&msg));
}

TEST_F(MessageQueue, PaintStaysUntilTheRegionIsValidatedAndFollowsTheWindowFilter)
{
    HWND window = Window();
    HWND other = Window();
    QueuePaint(other);
    QueuePaint(window);
    SetUpdateRegion(window, true);
    SetUpdateRegion(other, true);
    MSG msg;
    ASSERT_TRUE(LockedPeek(&msg, window, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_PAINT));
    EXPECT_EQ(msg.hwnd, window);
    EXPECT_FALSE(LockedPeek(&msg, window, WM_PAINT + 1, WM_PAINT + 1));
    ASSERT_TRUE(LockedPeek(&msg, window, 0, 0, PM_REMOVE));
    ASSERT_TRUE(LockedPeek(&msg, window));
    EXPECT_EQ(msg.hwnd, window);
    SetUpdateRegion(window, false);
    SetUpdateRegion(other, false);
    EXPECT_FALSE(LockedPeek(&msg));
    EXPECT_TRUE(PaintQueue().empty());
}

TEST_F(MessageQueue, TimersFollowTheFiltersAndDeadWindowsLeaveTheQueues)
{
    HWND first = Window();
    HWND second = Window();
    HWND dead = CreateQueueWindow(RecordingProc);
    QueuePaint(dead);
    QueueTimer(dead, 9);
    QueueTimer(first, 1);
    QueueTimer(second, 2);
    QueueTimer(nullptr, 3);
    DestroyWindow(dead);
    MSG msg;
    EXPECT_FALSE(LockedPeek(&msg, nullptr, WM_TIMER + 1, WM_TIMER + 5));
    ASSERT_TRUE(LockedPeek(&msg, second, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(msg.wParam, 2u);
    ASSERT_TRUE(LockedPeek(&msg, nullptr, WM_TIMER, WM_TIMER));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_TIMER));
    EXPECT_EQ(msg.wParam, 1u);
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(msg.wParam, 2u);
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(msg.wParam, 3u);
    EXPECT_EQ(msg.hwnd, nullptr);
    EXPECT_FALSE(LockedPeek(&msg));
    EXPECT_TRUE(PaintQueue().empty());
}

TEST_F(MessageQueue, OnlyAPlainPeekOfTheMainThreadPumpsPendingGdkEvents)
{
    PlainGdkWindow window(0, 0, 10, 10);
    PumpPending();
    SendExpose(window.xid(), 0, 0, 5, 5);
    MSG msg;
    {
        vorlan::GtkCriticalSection lock;
        ASSERT_TRUE(gdk_events_pending());
        EXPECT_FALSE(Data()->peekMessage(&msg, nullptr, 0x500, 0x400, PM_REMOVE, TRUE));
        EXPECT_TRUE(gdk_events_pending());
    }
    std::atomic<bool> returned{false};
    std::atomic<ThreadData *> workerData{nullptr};
    std::thread worker([&] {
        workerData = ThreadData::GetCurrentThreadData();
        MSG workerMsg;
        LockedPeek(&workerMsg);
        LockedPeek(&workerMsg, nullptr, 0, 0, PM_NOREMOVE);
        returned = true;
    });
    const bool inTime = SpinUntil([&] { return returned.load(); }, 3000);
    // A worker stuck in the pump is let go before the test fails.
    while (!returned.load()) {
        PumpPending();
        if (workerData.load())
            workerData.load()->notify();
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    worker.join();
    EXPECT_TRUE(inTime);
    vorlan::GtkCriticalSection lock;
    EXPECT_FALSE(Data()->peekMessage(&msg, nullptr, 0, 0, PM_REMOVE, TRUE));
    EXPECT_FALSE(gdk_events_pending());
}

class InputQueue : public MessageQueue {
protected:
    void SetUp() override
    {
        MessageQueue::SetUp();
        m_keyWindow = Window();
        m_mouseWindow = Window();
        Data()->hWndFocus = m_keyWindow;
        Data()->hWndActive = m_mouseWindow;
    }

    void Key(UINT message, WPARAM key, WORD wFlags = 0) { QueueInput(message, key, 0, 0, wFlags); }
    void Move(int x, int y, WORD wFlags = 0) { QueueInput(WM_MOUSEMOVE, 0, x, y, wFlags); }
    void Wheel(int delta, WORD wFlags = 0) { QueueInput(WM_MOUSEWHEEL, static_cast<WPARAM>(delta), 1, 1, wFlags); }

    std::vector<_InputMSG> Records()
    {
        std::lock_guard<std::recursive_mutex> guard(g_inputQueueMutex);
        return {Data()->qInputMsgs.begin(), Data()->qInputMsgs.end()};
    }

    HWND m_keyWindow = nullptr;
    HWND m_mouseWindow = nullptr;
};

TEST_F(InputQueue, MovesAndWheelStepsMergeOnlyWithTheirLikeRightBefore)
{
    Move(1, 1);
    Move(2, 2);
    Move(3, 4);
    auto records = Records();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].pt.x, 3);
    EXPECT_EQ(records[0].pt.y, 4);
    Move(5, 5, INPUT_FLAG_LBUTTON);
    Key(WM_KEYDOWN, 'A');
    Move(5, 5, INPUT_FLAG_LBUTTON);
    records = Records();
    ASSERT_EQ(records.size(), 4u);
    EXPECT_LT(records[0].uId, records[1].uId);
    MSG msg;
    while (LockedPeek(&msg)) {
    }

    Wheel(120);
    Wheel(120);
    Wheel(-120);
    Wheel(-120);
    Wheel(-120, INPUT_FLAG_CONTROL);
    records = Records();
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(static_cast<LONG>(records[0].wParam), 240);
    EXPECT_EQ(static_cast<LONG>(records[1].wParam), -240);
    EXPECT_EQ(static_cast<LONG>(records[2].wParam), -120);
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_MOUSEWHEEL));
    EXPECT_EQ(HIWORD(msg.wParam), 240);
}

TEST_F(InputQueue, AKeyWithoutTargetIsDroppedWhenPeeked)
{
    Data()->hWndFocus = nullptr;
    Data()->hWndActive = nullptr;
    Key(WM_KEYDOWN, 'A');
    MSG msg;
    EXPECT_FALSE(LockedPeek(&msg, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_TRUE(Records().empty());
    EXPECT_EQ(Data()->qsFlags.load() & QS_FLAG_INPUT, 0u);
}

TEST_F(InputQueue, ClassFiltersPickPointerOrKeyboard)
{
    Key(WM_KEYDOWN, 'A');
    Move(7, 8);
    MSG msg;
    EXPECT_FALSE(LockedPeek(&msg, nullptr, WM_CHAR, WM_CHAR));
    EXPECT_EQ(Records().size(), 2u);
    ASSERT_TRUE(LockedPeek(&msg, nullptr, WM_MOUSEFIRST, WM_MOUSELAST));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_MOUSEMOVE));
    EXPECT_EQ(msg.hwnd, m_mouseWindow);
    EXPECT_EQ(msg.pt.x, 7);
    EXPECT_EQ(msg.lParam, MAKELPARAM(7, 8));
    EXPECT_FALSE(LockedPeek(&msg, nullptr, WM_MOUSEFIRST, WM_MOUSELAST));
    ASSERT_TRUE(LockedPeek(&msg, nullptr, WM_KEYDOWN, WM_CHAR));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_KEYDOWN));
    EXPECT_EQ(msg.hwnd, m_keyWindow);
}

TEST_F(InputQueue, KeyStateFollowsTheRemovedRecord)
{
    Data()->keyState['Q'] = -128;
    Move(1, 1, INPUT_FLAG_LBUTTON | INPUT_FLAG_SHIFT | INPUT_FLAG_CAPSLOCK);
    MSG msg;
    ASSERT_TRUE(LockedPeek(&msg, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(Data()->keyState[VK_LBUTTON], 0);
    EXPECT_EQ(Data()->keyState['Q'], -128);
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(Data()->keyState[VK_LBUTTON], -128);
    EXPECT_EQ(Data()->keyState[VK_SHIFT], -128);
    EXPECT_EQ(Data()->keyState[VK_CAPITAL], 1);
    EXPECT_EQ(Data()->keyState[VK_CONTROL], 0);
    EXPECT_EQ(Data()->keyState[VK_MENU], 0);
    EXPECT_EQ(Data()->keyState['Q'], 0);
    EXPECT_EQ(msg.wParam, static_cast<WPARAM>(MK_LBUTTON | MK_SHIFT));

    Key(WM_KEYDOWN, 'A', INPUT_FLAG_CONTROL | INPUT_FLAG_ALT | INPUT_FLAG_MBUTTON | INPUT_FLAG_RBUTTON);
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(msg.wParam, static_cast<WPARAM>('A'));
    for (int key : {VK_CONTROL, VK_MENU, VK_MBUTTON, VK_RBUTTON})
        EXPECT_EQ(Data()->keyState[key], -128) << key;
    for (int key : {VK_SHIFT, VK_LBUTTON})
        EXPECT_EQ(Data()->keyState[key], 0) << key;
}

TEST_F(InputQueue, F1DownQueuesKeyF1BehindTheKey)
{
    Key(WM_KEYDOWN, VK_F1);
    MSG msg;
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_KEYDOWN));
    EXPECT_EQ(msg.wParam, static_cast<WPARAM>(VK_F1));
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_KEYF1));
    EXPECT_EQ(msg.hwnd, m_keyWindow);
    EXPECT_FALSE(LockedPeek(&msg));
}

TEST_F(InputQueue, RecordsRejectedByTheWindowFilterKeepTheirPlace)
{
    for (int i = 0; i < 50; ++i)
        Key(i % 2 ? WM_KEYUP : WM_KEYDOWN, 'A' + (i % 20));
    Move(3, 3);
    Key(WM_KEYDOWN, 'Z');
    MSG msg;
    ASSERT_TRUE(LockedPeek(&msg, m_mouseWindow));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_MOUSEMOVE));
    for (int i = 0; i < 50; ++i) {
        ASSERT_TRUE(LockedPeek(&msg));
        EXPECT_EQ(msg.message, static_cast<UINT>(i % 2 ? WM_KEYUP : WM_KEYDOWN));
        EXPECT_EQ(msg.wParam, static_cast<WPARAM>('A' + (i % 20)));
    }
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(msg.wParam, static_cast<WPARAM>('Z'));
    EXPECT_FALSE(LockedPeek(&msg));
}

const HRGN kSomeRegion = reinterpret_cast<HRGN>(static_cast<ULONG_PTR>(0x5EA1));

WindowOptions TopLevel()
{
    WindowOptions options;
    options.withXWindow = false;
    return options;
}

WindowOptions ChildOf(HWND parent)
{
    WindowOptions options = TopLevel();
    options.parent = parent;
    options.style = WS_CHILD;
    return options;
}

void SetUpdateRegion(HWND hWnd, HRGN region)
{
    vorlan::GtkCriticalSection lock;
    vorlan::getWindow(hWnd)->hUpdateRegion = region;
}

using RealWindowQueue = MessageQueue;

TEST_F(RealWindowQueue, PostToAWindowWhoseThreadHasNoQueueFails)
{
    TestWindow window(TopLevel());
    const DWORD gone = EndedThreadId();
    ASSERT_EQ(ThreadData::GetThreadData(gone, FALSE), nullptr);
    {
        vorlan::GtkCriticalSection lock;
        window.object()->dwThreadId = gone;
    }
    SetLastError(0);
    EXPECT_EQ(LockedPost(window.hwnd(), WM_USER), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_THREAD_ID));
    MSG msg;
    EXPECT_FALSE(LockedPeek(&msg));
    vorlan::GtkCriticalSection lock;
    window.object()->dwThreadId = GetCurrentThreadId();
}

TEST_F(RealWindowQueue, PaintQueuePutsAParentBeforeItsChild)
{
    TestWindow parent(TopLevel());
    TestWindow child(ChildOf(parent.hwnd()));
    TestWindow grandchild(ChildOf(child.hwnd()));
    TestWindow other(TopLevel());
    QueuePaint(grandchild.hwnd());
    QueuePaint(other.hwnd());
    QueuePaint(child.hwnd());
    QueuePaint(parent.hwnd());
    QueuePaint(child.hwnd()); // queued once only
    const std::deque<HWND> expected = {parent.hwnd(), child.hwnd(), grandchild.hwnd(), other.hwnd()};
    EXPECT_EQ(PaintQueue(), expected);

    for (HWND hWnd : expected)
        SetUpdateRegion(hWnd, kSomeRegion);
    MSG msg;
    for (HWND hWnd : expected) {
        ASSERT_TRUE(LockedPeek(&msg));
        EXPECT_EQ(msg.message, static_cast<UINT>(WM_PAINT));
        EXPECT_EQ(msg.hwnd, hWnd);
        SetUpdateRegion(hWnd, nullptr);
    }
    EXPECT_FALSE(LockedPeek(&msg));
    EXPECT_TRUE(PaintQueue().empty());
}

TEST_F(RealWindowQueue, WindowFilterTakesDescendantsAndNotSiblings)
{
    TestWindow filter(TopLevel());
    TestWindow child(ChildOf(filter.hwnd()));
    TestWindow grandchild(ChildOf(child.hwnd()));
    TestWindow sibling(TopLevel());
    TestWindow siblingsChild(ChildOf(sibling.hwnd()));
    ASSERT_EQ(LockedPost(sibling.hwnd(), WM_USER + 1), 1);
    ASSERT_EQ(LockedPost(siblingsChild.hwnd(), WM_USER + 2), 1);
    ASSERT_EQ(LockedPost(child.hwnd(), WM_USER + 3), 1);
    ASSERT_EQ(LockedPost(nullptr, WM_USER + 5), 1);
    ASSERT_EQ(LockedPost(grandchild.hwnd(), WM_USER + 4), 1);

    MSG msg;
    ASSERT_TRUE(LockedPeek(&msg, filter.hwnd()));
    EXPECT_EQ(msg.hwnd, child.hwnd());
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_USER + 3));
    ASSERT_TRUE(LockedPeek(&msg, filter.hwnd()));
    EXPECT_EQ(msg.hwnd, grandchild.hwnd());
    EXPECT_FALSE(LockedPeek(&msg, filter.hwnd())) << "messages of a sibling pass the filter";
    EXPECT_FALSE(LockedPeek(&msg, child.hwnd()));
    ASSERT_TRUE(LockedPeek(&msg, reinterpret_cast<HWND>(-1)));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_USER + 5));
    EXPECT_FALSE(LockedPeek(&msg, reinterpret_cast<HWND>(-1)));

    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(msg.hwnd, sibling.hwnd());
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(msg.hwnd, siblingsChild.hwnd());
}

TEST(VorlThread, ForeignThreadDataIsNeverMadeFromOutside)
{
    ThreadWithoutQueue worker;
    EXPECT_EQ(ThreadData::GetThreadData(worker.id(), TRUE), nullptr);
    EXPECT_EQ(ThreadData::GetThreadData(worker.id(), FALSE), nullptr);
    EXPECT_EQ(ThreadData::GetThreadData(0, TRUE), nullptr);
}

TEST(VorlThread, EndingWorkerLosesItsDataAndWindowsButTheMainThreadKeepsItsOwn)
{
    TestWindow mainWindow(TopLevel());
    TestWindow mainChild(ChildOf(mainWindow.hwnd()));
    std::unique_ptr<TestWindow> workerTop, workerChild;
    HWND top = nullptr, child = nullptr;
    DWORD workerId = 0;
    std::thread worker([&] {
        workerId = GetCurrentThreadId();
        EXPECT_NE(ThreadData::GetCurrentThreadData()->context, g_main_context_default());
        workerTop = std::make_unique<TestWindow>(TopLevel());
        workerChild = std::make_unique<TestWindow>(ChildOf(workerTop->hwnd()));
        top = workerTop->hwnd();
        child = workerChild->hwnd();
    });
    worker.join();
    EXPECT_EQ(ThreadData::GetThreadData(workerId, FALSE), nullptr);
    {
        std::lock_guard<std::recursive_mutex> guard(g_threadListMutex);
        for (ThreadData *data : ThreadData::list())
            EXPECT_NE(data->tid, workerId);
    }

    ThreadData *data = ThreadData::GetCurrentThreadData();
    ThreadData::thread_exit(data);
    EXPECT_EQ(ThreadData::GetThreadData(GetCurrentThreadId(), FALSE), data);
    vorlan::GtkCriticalSection lock;
    EXPECT_EQ(vorlan::getWindow(top), nullptr);
    EXPECT_EQ(vorlan::getWindow(child), nullptr);
    EXPECT_FALSE(vorlan::WindowExists(top));
    EXPECT_NE(mainWindow.object(), nullptr);
    EXPECT_NE(mainChild.object(), nullptr);
    EXPECT_TRUE(vorlan::WindowExists(mainWindow.hwnd()));
}

TEST(VorlThread, NotifyWakesAWorkerThatWaits)
{
    std::atomic<ThreadData *> workerData{nullptr};
    std::atomic<bool> woke{false};
    std::thread worker([&] {
        ThreadData *data = ThreadData::GetCurrentThreadData();
        workerData = data;
        vorlan::GtkCriticalSection lock;
        data->wait();
        woke = true;
    });
    ASSERT_TRUE(SpinUntil([&] { return workerData.load() != nullptr; }));
    // The wake-up is kept if it comes before the worker blocks.
    workerData.load()->notify();
    const bool wokeInTime = SpinUntil([&] { return woke.load(); }, 5000);
    if (!wokeInTime)
        workerData.load()->notify();
    worker.join();
    EXPECT_TRUE(wokeInTime);
}

// The pump of the main thread can take the wake-up of a message that arrives
// after the queues were looked at; waiting must not then sleep on it.
TEST(VorlThread, WaitReturnsForAMessageWhoseWakeUpWasTaken)
{
    ResetCurrentThreadQueues();
    ThreadData *data = ThreadData::GetCurrentThreadData();
    std::thread poster([] { LockedPost(nullptr, WM_USER, 0, 0, vorlan::g_vorlData.dwMainThreadId); });
    poster.join();
    while (g_main_context_iteration(nullptr, FALSE)) {
    }
    std::atomic<bool> waited{false};
    std::thread rescuer([&] {
        if (!SpinUntil([&] { return waited.load(); }, 3000))
            g_main_context_wakeup(nullptr);
    });
    const auto start = std::chrono::steady_clock::now();
    {
        vorlan::GtkCriticalSection lock;
        data->waitMessage();
    }
    waited = true;
    rescuer.join();
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    MSG msg;
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_USER));
}

} // namespace
