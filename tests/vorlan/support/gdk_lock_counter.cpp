// GDK lock counting for the tests.
#include "support/gdk_lock_counter.h"

#include <atomic>

namespace vorlan_test {

namespace {

std::atomic<int> s_enters{0};
std::atomic<int> s_leaves{0};
GCallback s_originalLock = nullptr;
GCallback s_originalUnlock = nullptr;

void CountingLock()
{
    reinterpret_cast<void (*)()>(s_originalLock)();
    ++s_enters;
}

void CountingUnlock()
{
    ++s_leaves;
    reinterpret_cast<void (*)()>(s_originalUnlock)();
}

} // namespace

GdkLockCounter::GdkLockCounter()
{
    s_enters = 0;
    s_leaves = 0;
    s_originalLock = gdk_threads_lock;
    s_originalUnlock = gdk_threads_unlock;
    gdk_threads_lock = reinterpret_cast<GCallback>(&CountingLock);
    gdk_threads_unlock = reinterpret_cast<GCallback>(&CountingUnlock);
}

GdkLockCounter::~GdkLockCounter()
{
    gdk_threads_lock = s_originalLock;
    gdk_threads_unlock = s_originalUnlock;
}

int GdkLockCounter::enters() const
{
    return s_enters;
}

int GdkLockCounter::leaves() const
{
    return s_leaves;
}

} // namespace vorlan_test
