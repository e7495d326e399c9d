// The toolkit lock: one process-wide lock over GDK, GTK and every table of
// the library, built on GDK's thread lock.
//
// GDK's lock is not recursive.  GtkCriticalSection counts how often the
// owning thread holds it, so that exported calls can nest, lets a thread drop
// it completely around anything that blocks or runs application code, and
// lets code that GDK calls with the lock already taken (event filters, the
// event handler, GTK signal handlers) mark itself as the owner without
// taking the lock a second time.
//
// Rules of use:
//  1. An exported call that touches library state opens a GtkCriticalSection
//     in its outermost scope; nested exported calls add to the depth.
//  2. Around code that blocks, waits for another thread or runs application
//     code, a GtkLockReleaser drops the whole depth and restores it, also
//     when an exception passes.
//  3. A callback entered from GDK or GTK with the lock held opens no
//     GtkCriticalSection; it brackets its work with a GtkLockMark
//     (mark_entered / mark_left).
#ifndef VORLAN_GTK_VORLGTKLOCK_H
#define VORLAN_GTK_VORLGTKLOCK_H

#include <windows.h>

#include <atomic>

namespace vorlan {

class GtkCriticalSection {
public:
    GtkCriticalSection() { enter_once(); }
    ~GtkCriticalSection() { leave_once(); }
    GtkCriticalSection(const GtkCriticalSection &) = delete;
    GtkCriticalSection &operator=(const GtkCriticalSection &) = delete;

    // Takes GDK's lock unless the caller already owns it; adds 1 to the depth.
    static void enter_once();
    // Subtracts 1 from the depth of the owning caller and releases GDK's lock
    // at depth 0.  A caller that is not the owner changes nothing.
    static void leave_once();
    // Drops the whole depth of the owning caller and returns it; a caller
    // that is not the owner gets -1 and nothing changes.
    static int leave_all();
    // Takes the lock n times; n of 0 or below does nothing, so the -1 of
    // leave_all passes straight through.
    static void enter_all(int n);
    // For code running with GDK's lock already held by this thread: counts
    // the depth and makes the caller the owner without calling GDK.
    static void mark_entered();
    static void mark_left();

    // Observers, for diagnostics and the tests.  The depth is meaningful to
    // the owner only.
    static int depth() { return lock_ref; }
    static DWORD owner_thread() { return g_dwOwnerThread.load(std::memory_order_relaxed); }
    static bool held_by_caller();

    // Value of the owner thread id while nobody owns the lock.
    static constexpr DWORD kNoOwner = 0xFFFFFFFFu;

private:
    static void become_owner();
    static void give_up_ownership();

    // How many times the owner holds the lock.  Touched only by the owner.
    static int lock_ref;
    // The owner's thread id.  Other threads only compare it with their own
    // id, which can never be in it, so an unordered atomic access suffices.
    static std::atomic<DWORD> g_dwOwnerThread;
};

// Rule 2: drops the caller's whole lock depth for the lifetime of the object
// and restores the same depth afterwards, also during stack unwinding.  On a
// thread that does not hold the lock it does nothing.
class GtkLockReleaser {
public:
    GtkLockReleaser() : m_savedDepth(GtkCriticalSection::leave_all()) {}
    ~GtkLockReleaser() { GtkCriticalSection::enter_all(m_savedDepth); }
    GtkLockReleaser(const GtkLockReleaser &) = delete;
    GtkLockReleaser &operator=(const GtkLockReleaser &) = delete;

    int saved_depth() const { return m_savedDepth; }

private:
    const int m_savedDepth;
};

// Rule 3: marks the lock that GDK already holds for this thread as owned by
// the caller for the lifetime of the object, also during stack unwinding.
class GtkLockMark {
public:
    GtkLockMark() { GtkCriticalSection::mark_entered(); }
    ~GtkLockMark() { GtkCriticalSection::mark_left(); }
    GtkLockMark(const GtkLockMark &) = delete;
    GtkLockMark &operator=(const GtkLockMark &) = delete;
};

} // namespace vorlan

#endif // VORLAN_GTK_VORLGTKLOCK_H
