// The toolkit lock: a counted, recursive view of GDK's thread lock.
#include "gtk/vorlgtklock.h"

#include "vorlassert.h"

#include <gdk/gdk.h>

namespace vorlan {

int GtkCriticalSection::lock_ref = 0;
std::atomic<DWORD> GtkCriticalSection::g_dwOwnerThread{GtkCriticalSection::kNoOwner};

bool GtkCriticalSection::held_by_caller()
{
    return owner_thread() == GetCurrentThreadId();
}

void GtkCriticalSection::become_owner()
{
    g_dwOwnerThread.store(GetCurrentThreadId(), std::memory_order_relaxed);
}

void GtkCriticalSection::give_up_ownership()
{
    g_dwOwnerThread.store(kNoOwner, std::memory_order_relaxed);
}

void GtkCriticalSection::enter_once()
{
    if (!held_by_caller()) {
        gdk_threads_enter();
        become_owner();
    }
    ++lock_ref;
}

void GtkCriticalSection::leave_once()
{
    if (!held_by_caller())
        return;
    VORLAN_ASSERT(lock_ref >= 1);
    if (--lock_ref == 0) {
        give_up_ownership();
        gdk_threads_leave();
    }
}

int GtkCriticalSection::leave_all()
{
    if (!held_by_caller())
        return -1;
    VORLAN_ASSERT(lock_ref>=0);
    const int depth = lock_ref;
    for (int i = 0; i < depth; ++i)
        leave_once();
    return depth;
}

void GtkCriticalSection::enter_all(int n)
{
    for (int i = 0; i < n; ++i)
        enter_once();
}

void GtkCriticalSection::mark_entered()
{
    if (++lock_ref == 1)
        become_owner();
}

void GtkCriticalSection::mark_left()
{
    if (--lock_ref == 0)
        give_up_ownership();
}

} // namespace vorlan
