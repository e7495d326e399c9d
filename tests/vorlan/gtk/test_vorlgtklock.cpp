// The toolkit lock: counting, full release and restore, marking by code that
// GDK calls with the lock held, and the fatal balance checks.

#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "support/gdk_lock_counter.h"

#include <gdk/gdk.h>

#include <chrono>
#include <future>
#include <stdexcept>
#include <thread>

using vorlan::GtkCriticalSection;
using vorlan::GtkLockMark;
using vorlan::GtkLockReleaser;
using vorlan_test::GdkLockCounter;

namespace {

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

// Nested scopes take GDK's lock once; another thread waits until the
// outermost scope ends.
TEST(GtkCriticalSection, NestedScopesTakeGdkLockOnceAndOtherThreadsWait)
{
    GdkLockCounter counting;
    std::future<void> other;
    {
        GtkCriticalSection outer;
        EXPECT_EQ(GtkCriticalSection::depth(), 1);
        EXPECT_TRUE(OwnedByCaller());
        {
            GtkCriticalSection inner;
            EXPECT_EQ(GtkCriticalSection::depth(), 2);
            other = EnterFromOtherThread();
            EXPECT_FALSE(ReadyWithin(other, 50));
        }
        EXPECT_EQ(GtkCriticalSection::depth(), 1);
        EXPECT_TRUE(OwnedByCaller());
        EXPECT_FALSE(ReadyWithin(other, 50));
        EXPECT_EQ(counting.leaves(), 0);
        EXPECT_EQ(counting.enters(), 1);
    }
    EXPECT_TRUE(ReadyWithin(other, 5000));
    EXPECT_EQ(counting.enters(), 2);
    EXPECT_EQ(counting.leaves(), 2);
    EXPECT_EQ(GtkCriticalSection::depth(), 0);
    EXPECT_TRUE(NoOwner());
}

TEST(GtkCriticalSection, LeaveAllAtDepthThreeThenEnterAllRestores)
{
    GdkLockCounter counting;
    GtkCriticalSection one, two, three;
    const int saved = GtkCriticalSection::leave_all();
    EXPECT_EQ(saved, 3);
    EXPECT_TRUE(NoOwner());
    EXPECT_EQ(counting.leaves(), 1);
    GtkCriticalSection::enter_all(saved);
    EXPECT_EQ(GtkCriticalSection::depth(), 3);
    EXPECT_TRUE(OwnedByCaller());
    EXPECT_EQ(counting.enters(), 2);
}

// leave_all, enter_all(-1 or 0) and a releaser on a thread without the lock
// must neither take nor free GDK's lock, nor take it from its owner.
TEST(GtkCriticalSection, WithoutTheLockLeaveAllEnterAllAndReleaserDoNothing)
{
    {
        GtkCriticalSection outer, inner;
        std::async(std::launch::async, [] {
            EXPECT_EQ(GtkCriticalSection::leave_all(), -1);
            GtkCriticalSection::leave_once();
        }).get();
        EXPECT_EQ(GtkCriticalSection::depth(), 2);
        EXPECT_TRUE(OwnedByCaller());
    }
    GdkLockCounter counting;
    const int saved = GtkCriticalSection::leave_all();
    EXPECT_EQ(saved, -1);
    GtkCriticalSection::enter_all(saved);
    GtkCriticalSection::enter_all(0);
    {
        GtkLockReleaser released;
        EXPECT_EQ(released.saved_depth(), -1);
    }
    EXPECT_EQ(GtkCriticalSection::depth(), 0);
    EXPECT_TRUE(NoOwner());
    EXPECT_EQ(counting.enters(), 0);
    EXPECT_EQ(counting.leaves(), 0);
}

// Code that GDK calls with its lock held marks the lock instead of taking
// it; a mark inside a scope of the thread's own only counts.
TEST(GtkCriticalSection, MarkedLockIsNotTakenAgainAndKeepsTheOwner)
{
    GdkLockCounter counting;
    gdk_threads_enter(); // as GDK does around its dispatch
    GtkCriticalSection::mark_entered();
    EXPECT_EQ(GtkCriticalSection::depth(), 1);
    EXPECT_TRUE(OwnedByCaller());
    {
        GtkCriticalSection exported;
        EXPECT_EQ(GtkCriticalSection::depth(), 2);
        GtkCriticalSection::mark_entered();
        EXPECT_EQ(GtkCriticalSection::depth(), 3);
        GtkCriticalSection::mark_left();
        EXPECT_TRUE(OwnedByCaller());
    }
    EXPECT_EQ(counting.enters(), 1);
    EXPECT_EQ(counting.leaves(), 0);
    GtkCriticalSection::mark_left();
    EXPECT_EQ(GtkCriticalSection::depth(), 0);
    EXPECT_TRUE(NoOwner());
    gdk_threads_leave();
    EXPECT_EQ(counting.leaves(), 1);
}

// An exception from application code passing a released region restores
// the depth; one from a callback passing a mark unmarks.
TEST(GtkLockReleaser, ExceptionsPassingAReleaseOrAMarkRestoreTheLock)
{
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
// GDK's own hold as well, so another thread gets through, and the hold and
// the depth are back before GDK continues.
TEST(GtkLockReleaser, FreesTheLockForOthersAlsoInsideAGdkCallback)
{
    gdk_threads_enter();
    {
        GtkLockMark mark;
        GtkCriticalSection exported, inner;
        {
            GtkLockReleaser released;
            EXPECT_EQ(released.saved_depth(), 3);
            EXPECT_TRUE(NoOwner());
            std::future<void> other = EnterFromOtherThread();
            EXPECT_TRUE(ReadyWithin(other, 5000));
        }
        EXPECT_EQ(GtkCriticalSection::depth(), 3);
        EXPECT_TRUE(OwnedByCaller());
    }
    EXPECT_TRUE(NoOwner());
    std::future<void> blocked = EnterFromOtherThread();
    EXPECT_FALSE(ReadyWithin(blocked, 50));
    gdk_threads_leave();
    EXPECT_TRUE(ReadyWithin(blocked, 5000));
}

// An unbalanced mark_left leaves the count below the owner's holds.
TEST(GtkCriticalSectionDeathTest, UnbalancedLeavesAreFatal)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(
        {
            GtkCriticalSection::mark_left();
            GtkCriticalSection::enter_once();
            GtkCriticalSection::leave_once();
        },
        "vorlan/gtk/vorlgtklock:[0-9]+:.*leave_once.*assertion failed: \\(lock_ref >= 1\\)");
    EXPECT_DEATH(
        {
            GtkCriticalSection::mark_left();
            GtkCriticalSection::mark_left();
            GtkCriticalSection::enter_once();
            GtkCriticalSection::leave_all();
        },
        "vorlan/gtk/vorlgtklock:[0-9]+:.*leave_all.*assertion failed: \\(lock_ref>=0\\)");
}
