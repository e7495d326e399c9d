// The toolkit lock: counting, full release and restore, marking by code that
// GDK calls with the lock held, and the fatal balance checks.

#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"

#include <gdk/gdk.h>

#include <atomic>
#include <chrono>
#include <future>
#include <stdexcept>
#include <thread>

using vorlan::GtkCriticalSection;
using vorlan::GtkLockMark;
using vorlan::GtkLockReleaser;

namespace {

// Replaces GDK's lock functions by counting ones that forward to the
// originals.  Taking the lock a second time on one thread would deadlock
// GDK's mutex; the counting lock reports that as a failure instead.
class CountingGdkLock {
public:
    CountingGdkLock()
    {
        s_enters = 0;
        s_leaves = 0;
        s_originalLock = gdk_threads_lock;
        s_originalUnlock = gdk_threads_unlock;
        gdk_threads_lock = reinterpret_cast<GCallback>(&Lock);
        gdk_threads_unlock = reinterpret_cast<GCallback>(&Unlock);
    }
    ~CountingGdkLock()
    {
        gdk_threads_lock = s_originalLock;
        gdk_threads_unlock = s_originalUnlock;
    }

    static int enters() { return s_enters; }
    static int leaves() { return s_leaves; }

private:
    static void Lock()
    {
        if (t_holding) {
            ADD_FAILURE() << "GDK's lock taken twice by one thread";
            return;
        }
        reinterpret_cast<void (*)()>(s_originalLock)();
        t_holding = true;
        ++s_enters;
    }
    static void Unlock()
    {
        t_holding = false;
        ++s_leaves;
        reinterpret_cast<void (*)()>(s_originalUnlock)();
    }

    static inline std::atomic<int> s_enters{0};
    static inline std::atomic<int> s_leaves{0};
    static inline GCallback s_originalLock = nullptr;
    static inline GCallback s_originalUnlock = nullptr;
    static inline thread_local bool t_holding = false;
};

bool OwnedByCaller()
{
    return GtkCriticalSection::owner_thread() == GetCurrentThreadId();
}

bool NoOwner()
{
    return GtkCriticalSection::owner_thread() == GtkCriticalSection::kNoOwner;
}

// Starts a thread that opens a GtkCriticalSection; the future is ready once
// it got the lock (and has released it again).
std::future<void> EnterFromOtherThread()
{
    return std::async(std::launch::async, [] { GtkCriticalSection lock; });
}

bool ReadyWithin(std::future<void> &future, int milliseconds)
{
    return future.wait_for(std::chrono::milliseconds(milliseconds)) == std::future_status::ready;
}

} // namespace

TEST(GtkCriticalSection, IsFreeBetweenCalls)
{
    EXPECT_EQ(GtkCriticalSection::depth(), 0);
    EXPECT_TRUE(NoOwner());
}

TEST(GtkCriticalSection, NestedScopesTakeGdkLockOnce)
{
    CountingGdkLock counting;
    {
        GtkCriticalSection outer;
        EXPECT_EQ(GtkCriticalSection::depth(), 1);
        EXPECT_TRUE(OwnedByCaller());
        {
            GtkCriticalSection inner;
            EXPECT_EQ(GtkCriticalSection::depth(), 2);
        }
        EXPECT_EQ(GtkCriticalSection::depth(), 1);
        EXPECT_TRUE(OwnedByCaller());
        EXPECT_EQ(CountingGdkLock::leaves(), 0);
    }
    EXPECT_EQ(CountingGdkLock::enters(), 1);
    EXPECT_EQ(CountingGdkLock::leaves(), 1);
    EXPECT_EQ(GtkCriticalSection::depth(), 0);
    EXPECT_TRUE(NoOwner());
}

TEST(GtkCriticalSection, OtherThreadWaitsUntilOutermostScopeEnds)
{
    std::future<void> other;
    {
        GtkCriticalSection outer;
        {
            GtkCriticalSection inner;
            other = EnterFromOtherThread();
            EXPECT_FALSE(ReadyWithin(other, 50));
        }
        EXPECT_FALSE(ReadyWithin(other, 50));
    }
    EXPECT_TRUE(ReadyWithin(other, 5000));
}

TEST(GtkCriticalSection, LeaveAllAtDepthThreeThenEnterAllRestores)
{
    CountingGdkLock counting;
    GtkCriticalSection one, two, three;
    const int saved = GtkCriticalSection::leave_all();
    EXPECT_EQ(saved, 3);
    EXPECT_TRUE(NoOwner());
    EXPECT_EQ(CountingGdkLock::leaves(), 1);
    GtkCriticalSection::enter_all(saved);
    EXPECT_EQ(GtkCriticalSection::depth(), 3);
    EXPECT_TRUE(OwnedByCaller());
    EXPECT_EQ(CountingGdkLock::enters(), 2);
}

TEST(GtkCriticalSection, LeaveAllWithoutTheLockReturnsMinusOne)
{
    CountingGdkLock counting;
    const int saved = GtkCriticalSection::leave_all();
    EXPECT_EQ(saved, -1);
    GtkCriticalSection::enter_all(saved);
    EXPECT_EQ(GtkCriticalSection::depth(), 0);
    EXPECT_TRUE(NoOwner());
    EXPECT_EQ(CountingGdkLock::enters(), 0);
    EXPECT_EQ(CountingGdkLock::leaves(), 0);
}

TEST(GtkCriticalSection, LeaveByAnotherThreadChangesNothing)
{
    GtkCriticalSection outer, inner;
    std::async(std::launch::async, [] {
        EXPECT_EQ(GtkCriticalSection::leave_all(), -1);
        GtkCriticalSection::leave_once();
    }).get();
    EXPECT_EQ(GtkCriticalSection::depth(), 2);
    EXPECT_TRUE(OwnedByCaller());
}

TEST(GtkCriticalSection, EnterAllOfZeroDoesNothing)
{
    CountingGdkLock counting;
    GtkCriticalSection::enter_all(0);
    EXPECT_EQ(CountingGdkLock::enters(), 0);
    EXPECT_TRUE(NoOwner());
}

TEST(GtkLockReleaser, OtherThreadProceedsWhileReleasedAndDepthComesBack)
{
    GtkCriticalSection outer, inner;
    {
        GtkLockReleaser released;
        EXPECT_EQ(released.saved_depth(), 2);
        EXPECT_TRUE(NoOwner());
        std::future<void> other = EnterFromOtherThread();
        EXPECT_TRUE(ReadyWithin(other, 5000));
    }
    EXPECT_EQ(GtkCriticalSection::depth(), 2);
    EXPECT_TRUE(OwnedByCaller());
}

TEST(GtkLockReleaser, ExceptionPassingRestoresDepth)
{
    GtkCriticalSection outer, inner;
    EXPECT_THROW(
        {
            GtkLockReleaser released;
            throw std::runtime_error("from application code");
        },
        std::runtime_error);
    EXPECT_EQ(GtkCriticalSection::depth(), 2);
    EXPECT_TRUE(OwnedByCaller());
}

TEST(GtkLockReleaser, DoesNothingWithoutTheLock)
{
    CountingGdkLock counting;
    {
        GtkLockReleaser released;
        EXPECT_EQ(released.saved_depth(), -1);
    }
    EXPECT_EQ(CountingGdkLock::enters(), 0);
    EXPECT_TRUE(NoOwner());
}

TEST(GtkCriticalSection, MarkEnteredThenScopeDoesNotTakeGdkLockAgain)
{
    CountingGdkLock counting;
    gdk_threads_enter(); // as GDK does around its dispatch
    GtkCriticalSection::mark_entered();
    EXPECT_EQ(GtkCriticalSection::depth(), 1);
    EXPECT_TRUE(OwnedByCaller());
    {
        GtkCriticalSection exported;
        EXPECT_EQ(GtkCriticalSection::depth(), 2);
    }
    EXPECT_EQ(CountingGdkLock::enters(), 1);
    EXPECT_EQ(CountingGdkLock::leaves(), 0);
    GtkCriticalSection::mark_left();
    EXPECT_EQ(GtkCriticalSection::depth(), 0);
    EXPECT_TRUE(NoOwner());
    gdk_threads_leave();
    EXPECT_EQ(CountingGdkLock::leaves(), 1);
}

TEST(GtkCriticalSection, MarkInsideOwnScopeKeepsOwnerAndDepth)
{
    GtkCriticalSection outer;
    GtkCriticalSection::mark_entered();
    EXPECT_EQ(GtkCriticalSection::depth(), 2);
    GtkCriticalSection::mark_left();
    EXPECT_EQ(GtkCriticalSection::depth(), 1);
    EXPECT_TRUE(OwnedByCaller());
}

TEST(GtkLockMark, ExceptionPassingUnmarks)
{
    gdk_threads_enter();
    EXPECT_THROW(
        {
            GtkLockMark mark;
            EXPECT_TRUE(OwnedByCaller());
            throw std::runtime_error("from a callback");
        },
        std::runtime_error);
    EXPECT_EQ(GtkCriticalSection::depth(), 0);
    EXPECT_TRUE(NoOwner());
    gdk_threads_leave();
}

// A window procedure called from inside a GDK callback: the releaser frees
// GDK's own hold as well, so another thread gets through, and the hold is
// back before GDK continues.
TEST(GtkLockReleaser, InsideGdkCallbackFreesTheLockForOthers)
{
    gdk_threads_enter();
    {
        GtkLockMark mark;
        GtkCriticalSection exported;
        {
            GtkLockReleaser released;
            std::future<void> other = EnterFromOtherThread();
            EXPECT_TRUE(ReadyWithin(other, 5000));
        }
        EXPECT_EQ(GtkCriticalSection::depth(), 2);
    }
    EXPECT_TRUE(NoOwner());
    std::future<void> blocked = EnterFromOtherThread();
    EXPECT_FALSE(ReadyWithin(blocked, 50));
    gdk_threads_leave();
    EXPECT_TRUE(ReadyWithin(blocked, 5000));
}

using GtkCriticalSectionDeathTest = ::testing::Test;

// An unbalanced mark_left leaves the count below the owner's holds.
TEST_F(GtkCriticalSectionDeathTest, LeaveOnceBelowOneIsFatal)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(
        {
            GtkCriticalSection::mark_left();
            GtkCriticalSection::enter_once();
            GtkCriticalSection::leave_once();
        },
        "vorlan/gtk/vorlgtklock:[0-9]+:.*leave_once.*assertion failed: \\(lock_ref >= 1\\)");
}

TEST_F(GtkCriticalSectionDeathTest, LeaveAllBelowZeroIsFatal)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(
        {
            GtkCriticalSection::mark_left();
            GtkCriticalSection::mark_left();
            GtkCriticalSection::enter_once();
            GtkCriticalSection::leave_all();
        },
        "vorlan/gtk/vorlgtklock:[0-9]+:.*leave_all.*assertion failed: \\(lock_ref>=0\\)");
}
