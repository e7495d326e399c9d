// The toolkit lock: counting, release and restore, marking, fatal checks.
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

// Ready once another thread got (and released) the lock.
std::future<void> EnterFromOtherThread()
{
    return std::async(std::launch::async, [] { GtkCriticalSection lock; });
}

bool ReadyWithin(std::future<void> &future, int milliseconds)
{
    return future.wait_for(std::chrono::milliseconds(milliseconds)) == std::future_status::ready;
}

} // namespace

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

// Inside a GDK callback the releaser frees GDK's own hold as well.
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
