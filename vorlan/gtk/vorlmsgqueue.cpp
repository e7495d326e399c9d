// Message retrieval from a thread's queues, in the order: one sent message,
// posted messages, WM_QUIT, the GDK pump, hardware input, WM_PAINT, WM_TIMER.
// Also the paint and timer queues and the message and window filters.
#include "gtk/vorlthread.h"

#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlpostmessage.h"
#include "gtk/vorlpumpdeps.h"
#include "vorlprivatemessages.h"

#include <gdk/gdk.h>
#include <imm.h>

namespace {

constexpr UINT kWideSendBit = 0x80000000u;
const HWND kOnlyThreadMessages = reinterpret_cast<HWND>(-1);
const HWND kOnlyThreadMessagesToo = reinterpret_cast<HWND>(-2);

// A message taken from a queue goes through the hooks; a hook that answers
// non-zero swallows it.
BOOL Deliver(tagMSG *msg, BOOL remove, BOOL wide)
{
    return !DispatchHook(msg, remove, wide);
}

void StampNow(tagMSG *msg)
{
    msg->time = GetTickCount();
    GetCursorPos(&msg->pt);
}

// The result string of the input method also reaches the window as a
// private message.
void ForwardImeResult(const tagMSG &msg, BOOL wide)
{
    if (msg.message == WM_IME_COMPOSITION && (msg.lParam & GCS_RESULTSTR))
        SendMessageAW(msg.hwnd, WM_PRIVATE_IME_RESULT, msg.wParam, msg.lParam, wide);
}

} // namespace

bool MessageFilter(UINT message, UINT min, UINT max)
{
    if (min == 0 && max == 0)
        return true;
    return min <= message && message <= max;
}

bool WindowFilter(HWND hWnd, HWND filter)
{
    if (filter == nullptr)
        return true;
    if (filter == kOnlyThreadMessages || filter == kOnlyThreadMessagesToo)
        return hWnd == nullptr;
    return hWnd == filter || vorlan::WindowIsDescendant(filter, hWnd);
}

bool IsKeyMessage(UINT message)
{
    return message >= WM_KEYFIRST && message < 265;
}

BOOL ThreadData::peekMessage(tagMSG *msg, HWND hWnd, UINT min, UINT max, UINT flags, BOOL wide)
{
    min &= 0xFFFF;
    max &= 0xFFFF;
    const BOOL remove = (flags & PM_REMOVE) ? TRUE : FALSE;

    // Messages sent by other threads are run before anything is returned;
    // pulling them in first spares them a turn.
    pullGlobalQueue();
    if (!qMsgs.empty())
        processSentMessages();
    if (peekPostedMessage(msg, hWnd, min, max, remove, wide)) {
        ForwardImeResult(*msg, wide);
        return Deliver(msg, remove, wide);
    }
    if (takeQuitMessage(msg, hWnd, remove))
        return Deliver(msg, remove, wide);
    if (min > max)
        return FALSE;
    pumpPendingEvents();
    if ((qsFlags.load() & QS_FLAG_INPUT) && peekInputMessage(msg, hWnd, min, max, remove))
        return Deliver(msg, remove, wide);
    if (MessageFilter(WM_PAINT, min, max) && peekPaintMessage(msg, hWnd))
        return Deliver(msg, remove, wide);
    if (peekTimerMessage(msg, hWnd, min, max, remove))
        return Deliver(msg, remove, wide);
    return FALSE;
}

void ThreadData::pullGlobalQueue()
{
    const size_t before = qMsgs.size();
    GetMessagesFromGlobalQueue(qMsgs);
    for (size_t i = before; i < qMsgs.size(); ++i) {
        if (qMsgs[i].dwSendingThread != 0)
            ++nSentMsgs;
    }
}

BOOL ThreadData::peekPostedMessage(tagMSG *msg, HWND hWnd, UINT min, UINT max, BOOL remove, BOOL)
{
    pullGlobalQueue();
    for (auto it = qMsgs.begin(); it != qMsgs.end(); ++it) {
        if (it->dwSendingThread != 0)
            continue;
        if (!MessageFilter(it->msg.message, min, max) || !WindowFilter(it->msg.hwnd, hWnd))
            continue;
        *msg = it->msg;
        if (remove)
            qMsgs.erase(it);
        return TRUE;
    }
    return FALSE;
}

// WM_QUIT is made from the flag that PostQuitMessage set; it passes every
// filter.
BOOL ThreadData::takeQuitMessage(tagMSG *msg, HWND hWnd, BOOL remove)
{
    if (!(qsFlags.load() & QS_FLAG_QUIT))
        return FALSE;
    msg->hwnd = hWnd == kOnlyThreadMessages ? nullptr : hWnd;
    msg->message = WM_QUIT;
    msg->wParam = static_cast<WPARAM>(nQuitCode);
    msg->lParam = 0;
    StampNow(msg);
    if (remove) {
        qsFlags.fetch_and(~static_cast<DWORD>(QS_FLAG_QUIT));
        nQuitCode = 0;
    }
    return TRUE;
}

// Only the main thread dispatches GDK events.  A worker's context has no
// sources, and iterating it would block until the next notify, so a worker
// does not pump at all.
void ThreadData::pumpPendingEvents()
{
    if (!isMainThread())
        return;
    while (gdk_events_pending()) {
        vorlan::GtkLockReleaser unlocked;
        g_main_context_iteration(context, TRUE);
    }
}

// A paint entry stays until the window's update region is gone, so PM_REMOVE
// does not end it.
BOOL ThreadData::peekPaintMessage(tagMSG *msg, HWND hWnd)
{
    for (size_t i = 0; i < qPaintWnds.size();) {
        const HWND window = qPaintWnds[i];
        if (!vorlan::WindowExists(window)) {
            qPaintWnds.erase(qPaintWnds.begin() + i);
            continue;
        }
        if (vorlan::TakeNcPaintPending(window))
            SendMessageAW(window, WM_NCPAINT, 1, 0, TRUE);
        // The non-client paint may have destroyed the window: a dead window
        // has no update region.
        if (!vorlan::HasUpdateRegion(window)) {
            if (i < qPaintWnds.size() && qPaintWnds[i] == window)
                qPaintWnds.erase(qPaintWnds.begin() + i);
            continue;
        }
        if (!WindowFilter(window, hWnd)) {
            ++i;
            continue;
        }
        msg->hwnd = window;
        msg->message = WM_PAINT;
        msg->wParam = 0;
        msg->lParam = 0;
        StampNow(msg);
        return TRUE;
    }
    return FALSE;
}

BOOL ThreadData::peekTimerMessage(tagMSG *msg, HWND hWnd, UINT min, UINT max, BOOL remove)
{
    if (!MessageFilter(WM_TIMER, min, max))
        return FALSE;
    for (auto it = qTimerMsgs.begin(); it != qTimerMsgs.end();) {
        if (it->hwnd != nullptr && !vorlan::WindowExists(it->hwnd)) {
            qTimerMsgs.erase(it);
            it = qTimerMsgs.begin();
            continue;
        }
        if (!WindowFilter(it->hwnd, hWnd)) {
            ++it;
            continue;
        }
        *msg = *it;
        if (remove)
            qTimerMsgs.erase(it);
        return TRUE;
    }
    return FALSE;
}

// Runs the first message that another thread sent to this one and hands
// the result to the waiting sender.
BOOL ThreadData::processSentMessages()
{
    if (nSentMsgs == 0)
        return FALSE;
    auto it = qMsgs.begin();
    while (it != qMsgs.end() && it->dwSendingThread == 0)
        ++it;
    if (it == qMsgs.end()) {
        nSentMsgs = 0;
        return FALSE;
    }
    const _MSG record = *it;
    qMsgs.erase(it);
    --nSentMsgs;

    const DWORD self = GetCurrentThreadId();
    LRESULT result = 0;
    // A window that has gone since the send answers 0.
    if (record.dwSendingThread != self && vorlan::WindowThreadId(record.msg.hwnd) == self) {
        const BOOL wide = (record.msg.message & kWideSendBit) ? TRUE : FALSE;
        result = SendMessageAW(record.msg.hwnd, record.msg.message & ~kWideSendBit, record.msg.wParam,
                               record.msg.lParam, wide);
    }
    ReplyToSender(record.dwSendingThread, record.dwSendId, result);
    return TRUE;
}

// Parents go before their children, so that they paint first.
void ThreadData::QueuePaintMessage(HWND hWnd)
{
    for (auto it = qPaintWnds.begin(); it != qPaintWnds.end(); ++it) {
        if (*it == hWnd)
            return;
        if (vorlan::WindowIsDescendant(hWnd, *it)) {
            qPaintWnds.insert(it, hWnd);
            return;
        }
    }
    qPaintWnds.push_back(hWnd);
}

void ThreadData::QueueTimerMessage(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    tagMSG msg = {hWnd, message, wParam, lParam, 0, {0, 0}};
    StampNow(&msg);
    qTimerMsgs.push_back(msg);
}
