// Posting to a thread, sending to another thread's window and waiting for
// the reply, and the global queue through which both travel.
#include "gtk/vorlpostmessage.h"

#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlpumpdeps.h"
#include "vorlinitorder.h"

#include <map>
#include <mutex>

namespace {

// Messages whose parameters point into the sender's memory.
const UINT invalidMsgs[] = {WM_CREATE, WM_NCCREATE, WM_SETTEXT, WM_GETTEXT};

constexpr UINT kWideSendBit = 0x80000000u;

std::mutex g_globalQueueMutex VORLAN_INIT_ORDER(VORLAN_INIT_ORDER_THREAD_LIST);

// Messages for each thread until it collects them.  Made at first use and
// never freed: nothing is torn down while other threads may still run.
std::map<DWORD, std::deque<_MSG>> &GlobalQueue()
{
    static auto *queues = new std::map<DWORD, std::deque<_MSG>>;
    return *queues;
}

bool IsRefusedMessage(UINT message)
{
    for (UINT refused : invalidMsgs) {
        if (message == refused)
            return true;
    }
    return false;
}

DWORD ResolveTargetThread(const tagMSG &msg, DWORD tid, DWORD self)
{
    if (tid != POST_TO_WINDOW_THREAD)
        return tid;
    return msg.hwnd ? vorlan::WindowThreadId(msg.hwnd) : self;
}

_MSG MakeRecord(const tagMSG &msg, BOOL wide, DWORD dwSendingThread, DWORD dwSendId)
{
    _MSG record = {};
    record.msg.hwnd = msg.hwnd;
    record.msg.message = msg.message;
    if (dwSendingThread != 0 && wide)
        record.msg.message |= kWideSendBit;
    record.msg.wParam = msg.wParam;
    record.msg.lParam = msg.lParam;
    record.msg.time = GetTickCount();
    GetCursorPos(&record.msg.pt);
    record.dwSendingThread = dwSendingThread;
    record.dwSendId = dwSendId;
    return record;
}

// Hands the record to the target's queue.  False when the target has no
// thread data.
bool DeliverRecord(const _MSG &record, DWORD target, ThreadData *self)
{
    std::lock_guard<std::recursive_mutex> guard(g_threadListMutex);
    ThreadData *targetData = target ? ThreadData::GetThreadData(target, FALSE) : nullptr;
    if (targetData == nullptr)
        return false;
    if (targetData == self) {
        self->qMsgs.push_back(record);
        if (record.dwSendingThread != 0)
            ++self->nSentMsgs;
    } else {
        if (PushMessageToGlobalQueue(record, target))
            targetData->notify();
    }
    return true;
}

// Blocks until the thread is woken: the main thread runs GDK meanwhile, a
// worker sleeps in its own context, which both a reply and a message sent
// to it wake.
void WaitForWakeUp(ThreadData *self)
{
    if (self->tid == vorlan::g_vorlData.dwMainThreadId) {
        self->wait();
        return;
    }
    vorlan::GtkLockReleaser unlocked;
    g_main_context_iteration(self->context, TRUE);
}

// Serves what other threads sent to this one until the reply is there or
// nothing is left to serve.  The global queue is pulled in as well, so that
// two threads that send to each other at the same moment serve each other.
void ServeSentMessages(ThreadData *self, const SendReplyWait &wait)
{
    for (;;) {
        if (wait.bSendReplied.load(std::memory_order_acquire))
            return;
        self->pullGlobalQueue();
        if (!self->processSentMessages())
            return;
    }
}

LRESULT WaitForReply(ThreadData *self, SendReplyWait &wait)
{
    for (;;) {
        ServeSentMessages(self, wait);
        if (wait.bSendReplied.load(std::memory_order_acquire))
            break;
        WaitForWakeUp(self);
    }
    self->endSendWait(wait);
    return wait.lSendResult;
}

} // namespace

// The toolkit lock is held throughout except while waiting, and the wait is
// registered before the record leaves, so no reply can be missed.
LRESULT PostMessageCore(tagMSG *msg, BOOL wide, BOOL send, DWORD tid)
{
    if (msg == nullptr || IsRefusedMessage(msg->message)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const DWORD self = GetCurrentThreadId();
    ThreadData *selfData = ThreadData::GetCurrentThreadData();
    const DWORD target = ResolveTargetThread(*msg, tid, self);
    const bool cross = target != self;
    if (send && !cross)
        return SendMessageAW(msg->hwnd, msg->message, msg->wParam, msg->lParam, wide);

    SendReplyWait wait;
    if (send)
        selfData->beginSendWait(wait);
    const _MSG record = MakeRecord(*msg, wide, send ? self : 0, wait.dwSendId);
    if (!DeliverRecord(record, target, selfData)) {
        if (send)
            selfData->endSendWait(wait);
        SetLastError(ERROR_INVALID_THREAD_ID);
        return 0;
    }
    if (!send)
        return 1;
    return WaitForReply(selfData, wait);
}

bool PushMessageToGlobalQueue(const _MSG &record, DWORD tid)
{
    std::lock_guard<std::mutex> guard(g_globalQueueMutex);
    std::deque<_MSG> &queue = GlobalQueue()[tid];
    queue.push_back(record);
    return queue.size() == 1;
}

void GetMessagesFromGlobalQueue(std::deque<_MSG> &queue)
{
    const DWORD self = GetCurrentThreadId();
    std::lock_guard<std::mutex> guard(g_globalQueueMutex);
    std::map<DWORD, std::deque<_MSG>> &g_globalQueue = GlobalQueue();
    auto entry = g_globalQueue.find(self);
    if (entry == g_globalQueue.end() || entry->second.empty())
        return;
    if (queue.empty()) {
        queue.swap(entry->second);
    } else {
        queue.insert(queue.end(), entry->second.begin(), entry->second.end());
        entry->second.clear();
    }
    // The emptied entry stays, so that the next post to this thread needs
    // no allocation; it goes with the thread's data.
}

std::deque<_MSG> TakeGlobalQueueOf(DWORD tid)
{
    std::deque<_MSG> taken;
    std::lock_guard<std::mutex> guard(g_globalQueueMutex);
    std::map<DWORD, std::deque<_MSG>> &g_globalQueue = GlobalQueue();
    auto entry = g_globalQueue.find(tid);
    if (entry != g_globalQueue.end()) {
        taken.swap(entry->second);
        g_globalQueue.erase(entry);
    }
    return taken;
}
