// Counts how often GDK's thread lock is taken and released while the
// object lives, by putting counting functions in front of GDK's own.  Tells
// whether an exported call runs under the toolkit lock.  Only one counter
// may live at a time; the counts cover every thread.  A thread that takes
// GDK's lock while holding it is reported as a test failure.
#ifndef VORLAN_TESTS_SUPPORT_GDK_LOCK_COUNTER_H
#define VORLAN_TESTS_SUPPORT_GDK_LOCK_COUNTER_H

#include <gdk/gdk.h>

namespace vorlan_test {

class GdkLockCounter {
public:
    GdkLockCounter();
    ~GdkLockCounter();
    GdkLockCounter(const GdkLockCounter &) = delete;
    GdkLockCounter &operator=(const GdkLockCounter &) = delete;

    int enters() const;
    int leaves() const;
};

} // namespace vorlan_test

#endif // VORLAN_TESTS_SUPPORT_GDK_LOCK_COUNTER_H
