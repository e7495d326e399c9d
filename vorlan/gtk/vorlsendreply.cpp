// Replies to cross-thread sends.
//
// Each send that waits registers a SendReplyWait with a process-wide unique
// id; the record it queues carries that id, and the replier stores the
// result in exactly that wait.  A procedure that runs while the thread waits
// may send again and wait in turn: the reply to the outer send, arriving
// meanwhile, lands in the outer wait and is found when the inner one ends.
#include "gtk/vorlthread.h"

#include <atomic>

namespace {

DWORD NextSendId()
{
    static std::atomic<DWORD> lastId{0};
    DWORD id = ++lastId;
    if (id == 0) // 0 marks no wait
        id = ++lastId;
    return id;
}

SendReplyWait *FindWait(SendReplyWait *innermost, DWORD dwSendId)
{
    for (SendReplyWait *wait = innermost; wait != nullptr; wait = wait->pOuter) {
        if (wait->dwSendId == dwSendId)
            return wait;
    }
    return nullptr;
}

} // namespace

void ThreadData::beginSendWait(SendReplyWait &wait)
{
    std::lock_guard<std::recursive_mutex> guard(g_threadListMutex);
    wait.dwSendId = NextSendId();
    wait.lSendResult = 0;
    wait.bSendReplied.store(FALSE, std::memory_order_relaxed);
    wait.pOuter = pSendWait;
    pSendWait = &wait;
}

void ThreadData::endSendWait(SendReplyWait &wait)
{
    std::lock_guard<std::recursive_mutex> guard(g_threadListMutex);
    SendReplyWait **link = &pSendWait;
    while (*link != nullptr && *link != &wait)
        link = &(*link)->pOuter;
    if (*link != nullptr)
        *link = wait.pOuter;
}

void ThreadData::ReplyToSender(DWORD dwSender, DWORD dwSendId, LRESULT result)
{
    std::lock_guard<std::recursive_mutex> guard(g_threadListMutex);
    ThreadData *sender = GetThreadData(dwSender, FALSE);
    if (sender == nullptr)
        return;
    SendReplyWait *wait = FindWait(sender->pSendWait, dwSendId);
    if (wait == nullptr)
        return;
    wait->lSendResult = result;
    wait->bSendReplied.store(TRUE, std::memory_order_release);
    if (dwSender != GetCurrentThreadId())
        sender->notify();
}
