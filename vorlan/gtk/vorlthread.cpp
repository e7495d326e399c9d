// Per-thread data and message queues: thread records, the global queue
// of cross-thread messages, the posted, input, paint and timer queues, the
// retrieval order of peekMessage, and the replies to cross-thread sends.
#include "gtk/vorlthread.h"

#include <imm.h>

#include "gtk/vorlstartup.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlpending.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlmessage.h"
#include "vorlassert.h"
#include "vorlinitorder.h"
#include "vorlprivatemessages.h"

#include <gdk/gdk.h>
#include <algorithm>
#include <atomic>

// ----------------------------------------------------------------------------
// The thread data records: creation by their own thread, lookup, removal
// when a thread ends, and blocking and waking a thread.

namespace {

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
    VORLAN_ASSERT(g_private_get( ThreadDataSlot() ) == NULL);
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
    VORLAN_ASSERT(dwThreadId == GetCurrentThreadId());
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
    VORLAN_ASSERT((data != NULL) && (data->tid == GetCurrentThreadId()));
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
    VORLAN_ASSERT(tid == GetCurrentThreadId());
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
    VORLAN_ASSERT(tid != GetCurrentThreadId());
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

// ----------------------------------------------------------------------------
// Message retrieval from a thread's queues, in the order: one sent message,
// posted messages, WM_QUIT, the GDK pump, hardware input, WM_PAINT, WM_TIMER.
// Also the paint and timer queues and the message and window filters.

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

// ----------------------------------------------------------------------------
// Hardware input queue of a thread: queuing with merging of mouse moves and
// wheel steps, retrieval with the class filters, and removal, which moves
// the thread's key state.
//
// Records are sorted by uId, so that a retrieval that skips records can
// resume where it stopped by binary search.

namespace {

// Which record classes a message filter can return.
struct WantedClasses {
    bool keyboard;
    bool pointer;
};

bool RangesOverlap(UINT min, UINT max, UINT first, UINT last)
{
    return min <= last && first <= max;
}

// A filter on WM_CHAR alone (258) wants no key record.
WantedClasses ClassesWanted(UINT min, UINT max)
{
    if (min == 0 && max == 0)
        return {true, true};
    const bool keyboard = RangesOverlap(min, max, WM_KEYDOWN, WM_KEYUP) || RangesOverlap(min, max, 259, 264);
    const bool pointer = RangesOverlap(min, max, WM_MOUSEFIRST, 522) || RangesOverlap(min, max, 160, 169);
    return {keyboard, pointer};
}

bool IsPointerMessage(UINT message)
{
    return message >= WM_MOUSEFIRST && message <= 522;
}

LONG SignedDelta(WPARAM wParam)
{
    return static_cast<LONG>(static_cast<DWORD>(wParam));
}

bool SameDirection(WPARAM first, WPARAM second)
{
    return static_cast<long long>(SignedDelta(first)) * SignedDelta(second) >= 1;
}

void TakeEventFields(_InputMSG &into, const _InputMSG &from)
{
    into.lParam = from.lParam;
    into.time = from.time;
    into.pt = from.pt;
}

// The first record at or after `from` whose class is wanted.
std::deque<_InputMSG>::iterator FindWantedRecord(std::deque<_InputMSG> &queue,
                                                 std::deque<_InputMSG>::iterator from,
                                                 const WantedClasses &wanted)
{
    return std::find_if(from, queue.end(), [&](const _InputMSG &record) {
        return IsKeyMessage(record.message) ? wanted.keyboard : wanted.pointer;
    });
}

// The focus window learns of F1 through a message queued behind the key.
// The window is the calling thread's own and alive, so the post goes
// straight to the queue core.
void PostKeyF1(HWND hWnd)
{
    tagMSG msg = {hWnd, WM_KEYF1, 0, 0, 0, {0, 0}};
    PostMessageCore(&msg, TRUE, FALSE, POST_TO_WINDOW_THREAD);
}

} // namespace

std::deque<_InputMSG>::iterator ThreadData::findInputRecord(UINT uIdAtLeast)
{
    return std::lower_bound(qInputMsgs.begin(), qInputMsgs.end(), uIdAtLeast,
                            [](const _InputMSG &record, UINT uId) { return record.uId < uId; });
}

void ThreadData::QueueInputMessage(_InputMSG *record)
{
    static UINT uId = 0;
    std::lock_guard<std::recursive_mutex> guard(g_inputQueueMutex);
    if (!qInputMsgs.empty()) {
        _InputMSG &last = qInputMsgs.back();
        const bool sameKind = last.message == record->message && last.wFlags == record->wFlags;
        if (sameKind && record->message == WM_MOUSEMOVE) {
            last.wParam = record->wParam;
            TakeEventFields(last, *record);
            return;
        }
        if (sameKind && record->message == WM_MOUSEWHEEL && SameDirection(last.wParam, record->wParam)) {
            const LONG sum = SignedDelta(last.wParam) + SignedDelta(record->wParam);
            last.wParam = static_cast<WPARAM>(static_cast<INT_PTR>(sum));
            TakeEventFields(last, *record);
            return;
        }
    }
    record->uId = ++uId;
    if (IsKeyMessage(record->message)) {
        ++nInputKeyboard;
        qsFlags.fetch_or(QS_FLAG_KEYBOARD);
    } else {
        qsFlags.fetch_or(QS_FLAG_OTHER_INPUT);
    }
    qInputMsgs.push_back(*record);
}

BOOL ThreadData::peekInputMessage(tagMSG *msg, HWND hWnd, UINT min, UINT max, BOOL remove)
{
    const WantedClasses wanted = ClassesWanted(min, max);
    bool postKeyF1 = false;
    {
        std::lock_guard<std::recursive_mutex> guard(g_inputQueueMutex);
        UINT cursor = 0;
        _InputMSG copy;
        for (;;) {
            const DWORD flags = qsFlags.load();
            if (!(wanted.keyboard && (flags & QS_FLAG_KEYBOARD)) && !(wanted.pointer && (flags & QS_FLAG_OTHER_INPUT)))
                return FALSE;
            auto it = FindWantedRecord(qInputMsgs, findInputRecord(cursor), wanted);
            if (it == qInputMsgs.end())
                return FALSE;
            copy = *it;
            cursor = copy.uId + 1;
            const BOOL processed = IsKeyMessage(copy.message) ? ProcessKeyMessage(&copy) : ProcessMouseMessage(&copy);
            if (!processed) {
                removeInputMessage(copy.uId);
                continue;
            }
            if (WindowFilter(copy.hwnd, hWnd) && MessageFilter(copy.message, min, max))
                break;
        }
        msg->hwnd = copy.hwnd;
        msg->message = copy.message;
        msg->wParam = copy.wParam;
        msg->lParam = copy.lParam;
        msg->time = copy.time;
        msg->pt = copy.pt;
        postKeyF1 = copy.message == WM_KEYDOWN && copy.wParam == VK_F1;
        if (remove)
            removeInputMessage(copy.uId);
    }
    // Posted outside the input lock, which ranks below the thread list's.
    if (postKeyF1)
        PostKeyF1(msg->hwnd);
    if (IsPointerMessage(msg->message)) {
        WPARAM buttons = 0;
        if (keyState[VK_LBUTTON] < 0) buttons |= MK_LBUTTON;
        if (keyState[VK_RBUTTON] < 0) buttons |= MK_RBUTTON;
        if (keyState[VK_SHIFT] < 0) buttons |= MK_SHIFT;
        if (keyState[VK_CONTROL] < 0) buttons |= MK_CONTROL;
        if (keyState[VK_MBUTTON] < 0) buttons |= MK_MBUTTON;
        if (msg->message == WM_MOUSEWHEEL)
            buttons |= (msg->wParam & 0xFFFF) << 16;
        msg->wParam = buttons;
    }
    return TRUE;
}

void ThreadData::setKeyStateFromFlags(WORD wFlags)
{
    std::fill(std::begin(keyState), std::end(keyState), 0);
    const struct {
        WORD flag;
        int key;
    } pressed[] = {{INPUT_FLAG_SHIFT, VK_SHIFT},       {INPUT_FLAG_CONTROL, VK_CONTROL},
                   {INPUT_FLAG_ALT, VK_MENU},          {INPUT_FLAG_LBUTTON, VK_LBUTTON},
                   {INPUT_FLAG_MBUTTON, VK_MBUTTON},   {INPUT_FLAG_RBUTTON, VK_RBUTTON}};
    for (const auto &entry : pressed) {
        if (wFlags & entry.flag)
            keyState[entry.key] = -128;
    }
    if (wFlags & INPUT_FLAG_CAPSLOCK)
        keyState[VK_CAPITAL] = 1;
}

void ThreadData::noteInputRecordRemoved(bool keyRecord)
{
    if (keyRecord) {
        if (--nInputKeyboard == 0)
            qsFlags.fetch_and(~static_cast<DWORD>(QS_FLAG_KEYBOARD));
    } else if (qInputMsgs.size() == nInputKeyboard) {
        qsFlags.fetch_and(~static_cast<DWORD>(QS_FLAG_OTHER_INPUT));
    }
}

void ThreadData::removeInputMessage(UINT uId)
{
    std::lock_guard<std::recursive_mutex> guard(g_inputQueueMutex);
    auto it = findInputRecord(uId);
    if (it == qInputMsgs.end() || it->uId != uId)
        return;
    setKeyStateFromFlags(it->wFlags);
    const bool keyRecord = IsKeyMessage(it->message);
    qInputMsgs.erase(it);
    noteInputRecordRemoved(keyRecord);
    VORLAN_ASSERT(this->qInputMsgs.size() >= this->nInputKeyboard);
}

// ----------------------------------------------------------------------------
// Replies to cross-thread sends.
//
// Each send that waits registers a SendReplyWait with a process-wide unique
// id; the record it queues carries that id, and the replier stores the
// result in exactly that wait.  A procedure that runs while the thread waits
// may send again and wait in turn: the reply to the outer send, arriving
// meanwhile, lands in the outer wait and is found when the inner one ends.

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
