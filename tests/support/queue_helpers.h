// Helpers for driving the message queues the way the message calls do:
// with the toolkit lock held, on real threads that wait in their own main
// contexts.
#ifndef VORLAN_TESTS_SUPPORT_QUEUE_HELPERS_H
#define VORLAN_TESTS_SUPPORT_QUEUE_HELPERS_H

#include <windows.h>

#include "gtk/vorlthread.h"

#include <chrono>
#include <functional>
#include <future>
#include <thread>

namespace vorlan_test {

// ThreadData::peekMessage of the calling thread under the toolkit lock.
BOOL LockedPeek(MSG *msg, HWND hWnd = nullptr, UINT min = 0, UINT max = 0, UINT flags = PM_REMOVE);

// PostMessageCore under the toolkit lock: a post (tid -1: the window's
// thread) or a cross-thread send.
LRESULT LockedPost(HWND hWnd, UINT message, WPARAM wParam = 0, LPARAM lParam = 0,
                   DWORD tid = static_cast<DWORD>(-1));
LRESULT LockedSend(HWND hWnd, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

// A message loop on the calling thread until `done` holds or the timeout
// passes: peeks with PM_REMOVE, hands every message to `onMessage`, and
// waits when nothing is there.  Returns whether `done` became true.
bool ServeMessagesUntil(const std::function<bool()> &done,
                        const std::function<void(const MSG &)> &onMessage = nullptr,
                        int timeoutMilliseconds = 10000);

// Empties every queue of the calling thread and forgets its windows, quit
// request and key state, so that a test starts from a clean thread.
void ResetCurrentThreadQueues();

// The id of a thread that has ended without ever having thread data.
DWORD EndedThreadId();

// A live thread that never makes thread data; it ends with the object.
class ThreadWithoutQueue {
public:
    ThreadWithoutQueue();
    ~ThreadWithoutQueue();
    ThreadWithoutQueue(const ThreadWithoutQueue &) = delete;
    ThreadWithoutQueue &operator=(const ThreadWithoutQueue &) = delete;

    DWORD id() const { return m_id; }

private:
    std::promise<void> m_release;
    std::thread m_thread;
    DWORD m_id = 0;
};

// A hidden top-level window of the calling thread for queue tests.  Its
// class procedure hands the library's private messages (1014 and up) and
// the application's own messages to `procedure` and everything else to
// DefWindowProcW, so creation and destruction stay out of what `procedure`
// records.  It dies with DestroyWindow or with its thread.
HWND CreateQueueWindow(WNDPROC procedure);

// Gives the window an update region or takes it away, as invalidation and
// validation do, without queueing it for painting.
void SetUpdateRegion(HWND hWnd, bool present);

// Spins (with short sleeps) until `done` holds or the timeout passes.
bool SpinUntil(const std::function<bool()> &done, int timeoutMilliseconds = 10000);

} // namespace vorlan_test

#endif // VORLAN_TESTS_SUPPORT_QUEUE_HELPERS_H
