// Thread and process identity, the millisecond tick counter and Sleep.
//
// A thread id is the kernel's thread id (gettid): a 32-bit value that is
// unique among the live threads of the system, stable for the life of the
// thread and, like a Win32 thread id, reusable once the thread has ended.
// It is not the pthread_t value; code that needs to compare threads compares
// GetCurrentThreadId() results.  Being the kernel id, a thread of this
// process can be recognised by its /proc/self/task entry.
#include <windows.h>

#include <cerrno>
#include <ctime>
#include <sched.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

DWORD QueryKernelThreadId()
{
    return static_cast<DWORD>(syscall(SYS_gettid));
}

void SleepForever()
{
    for (;;)
        pause();
}

void SleepMilliseconds(DWORD milliseconds)
{
    timespec remaining;
    remaining.tv_sec = static_cast<time_t>(milliseconds / 1000);
    remaining.tv_nsec = static_cast<long>(milliseconds % 1000) * 1000000L;
    // A signal handler may interrupt the sleep; Win32 Sleep always lasts.
    while (nanosleep(&remaining, &remaining) != 0 && errno == EINTR) {
    }
}

} // namespace

DWORD WINAPI GetCurrentThreadId(void)
{
    thread_local const DWORD t_threadId = QueryKernelThreadId();
    return t_threadId;
}

DWORD WINAPI GetCurrentProcessId(void)
{
    return static_cast<DWORD>(getpid());
}

// Milliseconds of the monotonic clock; wraps after 49.7 days like Win32.
DWORD WINAPI GetTickCount(void)
{
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    const unsigned long long ms =
        static_cast<unsigned long long>(now.tv_sec) * 1000ULL +
        static_cast<unsigned long long>(now.tv_nsec) / 1000000ULL;
    return static_cast<DWORD>(ms);
}

// Sleep(0) gives up the rest of the time slice; INFINITE never returns.
void WINAPI Sleep(DWORD dwMilliseconds)
{
    if (dwMilliseconds == 0) {
        sched_yield();
        return;
    }
    if (dwMilliseconds == INFINITE) {
        SleepForever();
        return;
    }
    SleepMilliseconds(dwMilliseconds);
}
