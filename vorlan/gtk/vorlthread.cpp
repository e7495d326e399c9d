// The thread data records: creation by their own thread, lookup, removal
// when a thread ends, and blocking and waking a thread.
#include "gtk/vorlthread.h"

#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlpostmessage.h"
#include "gtk/vorlpumpdeps.h"
#include "vorlassert.h"
#include "vorlinitorder.h"

#include <gdk/gdk.h>

#include <algorithm>

namespace {

const char kSource[] = "vorlan/gtk/vorlthread";

// The calling thread's data.  The destructor runs when a thread that has
// data ends.
GPrivate *ThreadDataSlot()
{
    static GPrivate tls_addr = G_PRIVATE_INIT(ThreadData::thread_exit);
    return &tls_addr;
}

ThreadData *FindThreadData(DWORD tid)
{
    for (ThreadData *data : ThreadData::list()) {
        if (data->tid == tid)
            return data;
    }
    return nullptr;
}

DWORD ForegroundThreadId()
{
    HWND foreground = GetForegroundWindow();
    return foreground ? vorlan::WindowThreadId(foreground) : 0;
}

} // namespace

std::recursive_mutex g_threadListMutex VORLAN_INIT_ORDER(VORLAN_INIT_ORDER_THREAD_LIST);
std::recursive_mutex g_inputQueueMutex VORLAN_INIT_ORDER(VORLAN_INIT_ORDER_THREAD_LIST);

// Made at first use and never freed: nothing is torn down while other
// threads may still run.
std::vector<ThreadData *> &ThreadData::list()
{
    static auto *threads = new std::vector<ThreadData *>;
    return *threads;
}

ThreadData::ThreadData(DWORD threadId)
    : tid(threadId),
      context(threadId == vorlan::g_vorlData.dwMainThreadId ? g_main_context_ref(g_main_context_default())
                                                            : g_main_context_new())
{
}

ThreadData::~ThreadData()
{
    g_main_context_unref(context);
}

bool ThreadData::isMainThread() const
{
    return tid == vorlan::g_vorlData.dwMainThreadId;
}

ThreadData *ThreadData::GetThreadData(DWORD tid, BOOL create)
{
    if (tid == 0) {
        // The foreground thread has data of its own already; none is made.
        tid = ForegroundThreadId();
        if (tid == 0)
            return nullptr;
        create = FALSE;
    }
    const DWORD self = GetCurrentThreadId();
    if (tid == self) {
        if (auto *own = static_cast<ThreadData *>(g_private_get(ThreadDataSlot())))
            return own;
    }
    std::lock_guard<std::recursive_mutex> guard(g_threadListMutex);
    if (ThreadData *found = FindThreadData(tid))
        return found;
    if (!create || tid != self)
        return nullptr;
    VORLAN_ASSERT(kSource, g_private_get( ThreadDataSlot() ) == NULL);
    auto *data = new ThreadData(tid);
    list().push_back(data);
    g_private_set(ThreadDataSlot(), data);
    return data;
}

ThreadData *ThreadData::GetCurrentThreadData()
{
    return GetThreadData(GetCurrentThreadId(), TRUE);
}

void ThreadData::RemoveThreadData(DWORD dwThreadId)
{
    VORLAN_ASSERT(kSource, dwThreadId == GetCurrentThreadId());
    ThreadData *data = nullptr;
    {
        std::lock_guard<std::recursive_mutex> guard(g_threadListMutex);
        std::vector<ThreadData *> &threads = list();
        auto it = std::find_if(threads.begin(), threads.end(), [&](ThreadData *d) { return d->tid == dwThreadId; });
        if (it == threads.end())
            return;
        data = *it;
        threads.erase(it);
        // Nobody can queue for this thread any more: answer who still waits.
        data->answerPendingSenders();
    }
    g_private_set(ThreadDataSlot(), nullptr);
    delete data;
}

// A sender whose message this thread never ran gets 0, as from a window
// that went away, instead of waiting for ever.
void ThreadData::answerPendingSenders()
{
    std::deque<_MSG> pending = TakeGlobalQueueOf(tid);
    pending.insert(pending.begin(), qMsgs.begin(), qMsgs.end());
    qMsgs.clear();
    nSentMsgs = 0;
    for (const _MSG &record : pending) {
        if (record.dwSendingThread != 0)
            ReplyToSender(record.dwSendingThread, record.dwSendId, 0);
    }
}

void ThreadData::thread_exit(void *pData)
{
    auto *data = static_cast<ThreadData *>(pData);
    VORLAN_ASSERT(kSource, (data != NULL) && (data->tid == GetCurrentThreadId()));
    if (data->isMainThread())
        return;
    // The slot is already cleared while its destructor runs; put the data
    // back so that the window destruction below finds it.
    g_private_set(ThreadDataSlot(), data);
    // The window table and the queues are guarded by the toolkit lock.
    vorlan::GtkCriticalSection lock;
    DestroyThreadWindows(data->tid);
    RemoveThreadData(data->tid);
}

// A worker sends out what it has drawn before it sleeps.  Flushing is
// enough for that; a full gdk_flush would add a round trip to the X server
// to every wait.
void ThreadData::wait()
{
    if (!isMainThread()) {
        vorlan::GtkCriticalSection lock;
        gdk_display_flush(gdk_display_get_default());
    }
    VORLAN_ASSERT(kSource, tid == GetCurrentThreadId());
    // A message that arrived since the last look may have had its wake-up
    // taken by the pump already: then there is nothing to wait for.
    const size_t seen = qMsgs.size();
    pullGlobalQueue();
    if (qMsgs.size() != seen)
        return;
    vorlan::GtkLockReleaser unlocked;
    g_main_context_iteration(context, TRUE);
}

void ThreadData::waitMessage()
{
    if (!qMsgs.empty())
        processSentMessages();
    wait();
}

void ThreadData::notify()
{
    VORLAN_ASSERT(kSource, tid != GetCurrentThreadId());
    g_main_context_wakeup(context);
}

HWND GetCaretWindow()
{
    ThreadData *data = ThreadData::GetCurrentThreadData();
    std::lock_guard<std::recursive_mutex> guard(g_threadListMutex);
    return data->hWndCaret;
}

void SetCurrentThreadActiveWindow(HWND hWnd)
{
    ThreadData *data = ThreadData::GetCurrentThreadData();
    std::lock_guard<std::recursive_mutex> guard(g_threadListMutex);
    data->hWndActive = hWnd;
}
