// GDK lock counting for the tests.
#include "support/gdk_lock_counter.h"

#include <gtest/gtest.h>

#include <atomic>

namespace vorlan_test {

namespace {

std::atomic<int> s_enters{0};
std::atomic<int> s_leaves{0};
GCallback s_originalLock = nullptr;
GCallback s_originalUnlock = nullptr;
thread_local bool t_holding = false;

// A second take on one thread would deadlock GDK's mutex: report it instead.
void CountingLock()
{
    if (t_holding) {
        ADD_FAILURE() << "GDK's lock taken twice by one thread";
        return;
    }
    reinterpret_cast<void (*)()>(s_originalLock)();
    t_holding = true;
    ++s_enters;
}

void CountingUnlock()
{
    t_holding = false;
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
