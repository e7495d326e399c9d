// The message queues with window objects: posting reaches the owning
// thread's queue, the paint queue and the window filter follow the parent
// links, and a thread that ends takes its windows along.

#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlpostmessage.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlthread.h"
#include "gtk/vorlwindow.h"
#include "support/queue_helpers.h"
#include "support/window_objects.h"

#include <atomic>
#include <memory>
#include <thread>

using namespace vorlan_test;

namespace {

// Stands for a region while no region object exists; cleared before the
// window object is freed.
const HRGN kSomeRegion = reinterpret_cast<HRGN>(static_cast<ULONG_PTR>(0x5EA1));

WindowOptions TopLevel()
{
    WindowOptions options;
    options.style = WS_POPUP;
    options.withXWindow = false;
    return options;
}

WindowOptions ChildOf(HWND parent)
{
    WindowOptions options;
    options.parent = parent;
    options.style = WS_CHILD;
    options.withXWindow = false;
    return options;
}

void SetUpdateRegion(HWND hWnd, HRGN region)
{
    vorlan::GtkCriticalSection lock;
    vorlan::getWindow(hWnd)->hUpdateRegion = region;
}

DWORD WindowFlags(HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    return vorlan::getWindow(hWnd)->dwFlags;
}

// The id of a thread that has ended without ever having thread data.
DWORD EndedThreadId()
{
    DWORD tid = 0;
    std::thread([&] { tid = GetCurrentThreadId(); }).join();
    return tid;
}

class RealWindowQueue : public ::testing::Test {
protected:
    void SetUp() override { ResetCurrentThreadQueues(); }
    void TearDown() override { ResetCurrentThreadQueues(); }

    ThreadData *Data() { return ThreadData::GetCurrentThreadData(); }

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
};

TEST_F(RealWindowQueue, PostToAWindowOfAWorkerReachesTheWorkersQueue)
{
    constexpr UINT kMessage = WM_USER + 71;
    std::atomic<HWND> workerWindow{nullptr};
    MSG received = {};
    std::thread worker([&] {
        ThreadData::GetCurrentThreadData();
        TestWindow window(TopLevel());
        workerWindow = window.hwnd();
        ServeMessagesUntil([&] { return received.message == kMessage; },
                           [&](const MSG &msg) {
                               if (msg.message == kMessage)
                                   received = msg;
                           });
    });
    SpinUntil([&] { return workerWindow.load() != nullptr; });
    EXPECT_EQ(LockedPost(workerWindow, kMessage, 11, 22), 1);
    worker.join();
    EXPECT_EQ(received.hwnd, workerWindow.load());
    EXPECT_EQ(received.wParam, 11u);
    EXPECT_EQ(received.lParam, 22);
    MSG msg;
    EXPECT_FALSE(LockedPeek(&msg, nullptr, kMessage, kMessage)) << "the poster's own queue stays empty";
}

// Whether a post is taken depends on the window's owning thread only: one
// without a queue refuses it, the calling thread takes it in its own queue.
TEST_F(RealWindowQueue, PostGoesToTheQueueOfTheWindowsThreadAndFailsWithoutOne)
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

    {
        vorlan::GtkCriticalSection lock;
        window.object()->dwThreadId = GetCurrentThreadId();
    }
    ASSERT_EQ(LockedPost(window.hwnd(), WM_USER + 3, 5, 6), 1);
    ASSERT_TRUE(LockedPeek(&msg, window.hwnd()));
    EXPECT_EQ(msg.hwnd, window.hwnd());
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_USER + 3));
    EXPECT_EQ(msg.wParam, 5u);
    EXPECT_EQ(msg.lParam, 6);
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

TEST_F(RealWindowQueue, PaintQueueDropsADestroyedWindow)
{
    TestWindow survivor(TopLevel());
    auto doomed = std::make_unique<TestWindow>(TopLevel());
    const HWND doomedHandle = doomed->hwnd();
    QueuePaint(doomedHandle);
    QueuePaint(survivor.hwnd());
    SetUpdateRegion(survivor.hwnd(), kSomeRegion);
    doomed.reset();

    MSG msg;
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_PAINT));
    EXPECT_EQ(msg.hwnd, survivor.hwnd());
    const std::deque<HWND> left = {survivor.hwnd()};
    EXPECT_EQ(PaintQueue(), left);
    SetUpdateRegion(survivor.hwnd(), nullptr);
}

TEST_F(RealWindowQueue, PaintTakesThePendingNonClientPaint)
{
    TestWindow window(TopLevel());
    {
        vorlan::GtkCriticalSection lock;
        window.object()->dwFlags |= WF_NCPAINTPENDING | WF_ERASEPENDING;
    }
    QueuePaint(window.hwnd());
    SetUpdateRegion(window.hwnd(), kSomeRegion);
    MSG msg;
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(msg.hwnd, window.hwnd());
    EXPECT_EQ(WindowFlags(window.hwnd()) & WF_NCPAINTPENDING, 0u);
    EXPECT_NE(WindowFlags(window.hwnd()) & WF_ERASEPENDING, 0u) << "only the non-client flag is taken";
    SetUpdateRegion(window.hwnd(), nullptr);
    EXPECT_FALSE(LockedPeek(&msg));
    EXPECT_TRUE(PaintQueue().empty()) << "no update region: the entry ends";
}

// A window filter takes the window's descendants and not its siblings; the
// filter -1 takes only messages posted without a window.
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

TEST_F(RealWindowQueue, SeamsAnswerForWindowObjects)
{
    auto parent = std::make_unique<TestWindow>(TopLevel());
    const HWND hWnd = parent->hwnd();
    {
        TestWindow child(ChildOf(hWnd));
        vorlan::GtkCriticalSection lock;
        EXPECT_TRUE(vorlan::WindowIsDescendant(hWnd, child.hwnd()));
        EXPECT_FALSE(vorlan::WindowIsDescendant(child.hwnd(), hWnd));
        EXPECT_FALSE(vorlan::WindowIsDescendant(hWnd, hWnd));
        EXPECT_FALSE(vorlan::WindowIsDescendant(nullptr, child.hwnd()));
        EXPECT_EQ(vorlan::WindowThreadId(hWnd), GetCurrentThreadId());
        EXPECT_TRUE(vorlan::WindowExists(hWnd));
        EXPECT_FALSE(vorlan::HasUpdateRegion(hWnd));
        EXPECT_FALSE(vorlan::TakeNcPaintPending(hWnd));
    }
    parent.reset();
    vorlan::GtkCriticalSection lock;
    EXPECT_EQ(vorlan::WindowThreadId(hWnd), 0u);
    EXPECT_FALSE(vorlan::WindowExists(hWnd));
    EXPECT_FALSE(vorlan::HasUpdateRegion(hWnd));
}

// A worker that ends takes its windows along; thread_exit on the main
// thread keeps them.
TEST(RealWindowThreadExit, AWorkerTakesItsWindowsAlongAndTheMainThreadKeepsItsOwn)
{
    TestWindow mainWindow(TopLevel());
    TestWindow mainChild(ChildOf(mainWindow.hwnd()));
    std::unique_ptr<TestWindow> workerTop, workerChild;
    HWND top = nullptr, child = nullptr;
    std::thread worker([&] {
        ThreadData::GetCurrentThreadData();
        workerTop = std::make_unique<TestWindow>(TopLevel());
        workerChild = std::make_unique<TestWindow>(ChildOf(workerTop->hwnd()));
        top = workerTop->hwnd();
        child = workerChild->hwnd();
    });
    worker.join();
    ThreadData::thread_exit(ThreadData::GetCurrentThreadData());
    vorlan::GtkCriticalSection lock;
    EXPECT_EQ(vorlan::getWindow(top), nullptr);
    EXPECT_EQ(vorlan::getWindow(child), nullptr);
    EXPECT_FALSE(vorlan::WindowExists(top));
    EXPECT_NE(mainWindow.object(), nullptr);
    EXPECT_NE(mainChild.object(), nullptr);
    EXPECT_TRUE(vorlan::WindowExists(mainWindow.hwnd()));
}

} // namespace
