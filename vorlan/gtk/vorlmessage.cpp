// The message calls: retrieval (GetMessage, PeekMessage, WaitMessage),
// posting and sending within and across threads, dispatching with its
// hooks, registered window messages, and what the queues ask of windows.
#include "gtk/vorlmessage.h"

#include <brano.h>

#include "gtk/vorlstartup.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlthread.h"
#include "gtk/vorlwindow.h"
#include "vorlinitorder.h"
#include "vorlwindowproc.h"

#include <map>
#include <mutex>

// ----------------------------------------------------------------------------
// PeekMessageA/W, GetMessageA/W and WaitMessage: argument checks and the
// toolkit lock around the calling thread's ThreadData.

namespace {

const HWND kThreadMessagesOnly = reinterpret_cast<HWND>(static_cast<LONG_PTR>(-1));

// Checks the arguments once, under the lock; -1 stands for an error.
int CheckGetMessageArguments(const MSG *msg, HWND hWnd, UINT min, UINT max)
{
    vorlan::GtkCriticalSection lock;
    return CheckRetrievalArguments(msg, hWnd, min, max) ? 1 : -1;
}

// No lock is held between the turns: the wait drops it, and other threads
// may post, send or destroy windows meanwhile.
BOOL GetMessageAW(MSG *msg, HWND hWnd, UINT min, UINT max, BOOL wide)
{
    if (CheckGetMessageArguments(msg, hWnd, min, max) < 0)
        return -1;
    for (;;) {
        BOOL found;
        {
            vorlan::GtkCriticalSection lock;
            found = PeekMessageAW(msg, hWnd, min, max, PM_REMOVE, wide);
        }
        if (found)
            return msg->message == WM_QUIT ? FALSE : TRUE;
        WaitMessage();
    }
}

} // namespace

bool CheckRetrievalWindow(HWND hWnd)
{
    if (hWnd == nullptr || hWnd == kThreadMessagesOnly)
        return true;
    if (!vorlan::WindowExists(hWnd) || vorlan::WindowThreadId(hWnd) != GetCurrentThreadId()) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return false;
    }
    return true;
}

bool CheckRetrievalArguments(const MSG *msg, HWND hWnd, UINT min, UINT max)
{
    if (msg == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    if (!CheckRetrievalWindow(hWnd))
        return false;
    if (min > max) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    return true;
}

BOOL PeekMessageAW(MSG *msg, HWND hWnd, UINT min, UINT max, UINT flags, BOOL wide)
{
    if (!CheckRetrievalArguments(msg, hWnd, min, max))
        return FALSE;
    ThreadData *data = ThreadData::GetCurrentThreadData();
    return data->peekMessage(msg, hWnd, min, max, flags & PM_REMOVE, wide);
}

BOOL WINAPI PeekMessageA(LPMSG lpMsg, HWND hWnd, UINT wMsgFilterMin, UINT wMsgFilterMax, UINT wRemoveMsg)
{
    vorlan::GtkCriticalSection lock;
    return PeekMessageAW(lpMsg, hWnd, wMsgFilterMin, wMsgFilterMax, wRemoveMsg, FALSE);
}

BOOL WINAPI PeekMessageW(LPMSG lpMsg, HWND hWnd, UINT wMsgFilterMin, UINT wMsgFilterMax, UINT wRemoveMsg)
{
    vorlan::GtkCriticalSection lock;
    return PeekMessageAW(lpMsg, hWnd, wMsgFilterMin, wMsgFilterMax, wRemoveMsg, TRUE);
}

BOOL WINAPI GetMessageA(LPMSG lpMsg, HWND hWnd, UINT wMsgFilterMin, UINT wMsgFilterMax)
{
    return GetMessageAW(lpMsg, hWnd, wMsgFilterMin, wMsgFilterMax, FALSE);
}

BOOL WINAPI GetMessageW(LPMSG lpMsg, HWND hWnd, UINT wMsgFilterMin, UINT wMsgFilterMax)
{
    return GetMessageAW(lpMsg, hWnd, wMsgFilterMin, wMsgFilterMax, TRUE);
}

// Returns once something wakes the thread, which may be an event that
// brings no message.
BOOL WINAPI WaitMessage(void)
{
    vorlan::GtkCriticalSection lock;
    ThreadData *data = ThreadData::GetCurrentThreadData();
    if (data == nullptr) {
        SetLastError(ERROR_INVALID_THREAD_ID);
        return FALSE;
    }
    data->waitMessage();
    return TRUE;
}

// ----------------------------------------------------------------------------
// PostMessageA/W, PostThreadMessageA and PostQuitMessage: argument checks
// and the toolkit lock around PostMessageCore and the quit flag.

namespace {

// hWnd 0 posts to the calling thread; any other handle must name a live
// window, whose thread gets the message.
BOOL PostMessageAW(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, BOOL wide)
{
    vorlan::GtkCriticalSection lock;
    if (hWnd != nullptr && !vorlan::WindowExists(hWnd)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    tagMSG msg = {hWnd, message, wParam, lParam, 0, {0, 0}};
    return PostMessageCore(&msg, wide, FALSE, POST_TO_WINDOW_THREAD) != 0;
}

} // namespace

BOOL WINAPI PostMessageA(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    return PostMessageAW(hWnd, Msg, wParam, lParam, FALSE);
}

BOOL WINAPI PostMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    return PostMessageAW(hWnd, Msg, wParam, lParam, TRUE);
}

BOOL WINAPI PostThreadMessageA(DWORD idThread, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    vorlan::GtkCriticalSection lock;
    tagMSG msg = {nullptr, Msg, wParam, lParam, 0, {0, 0}};
    return PostMessageCore(&msg, FALSE, FALSE, idThread) != 0;
}

// Nothing is queued: the next retrieval that finds the flag makes WM_QUIT.
void WINAPI PostQuitMessage(int nExitCode)
{
    vorlan::GtkCriticalSection lock;
    ThreadData *data = ThreadData::GetCurrentThreadData();
    data->nQuitCode = nExitCode;
    data->qsFlags.fetch_or(QS_FLAG_QUIT);
}

// ----------------------------------------------------------------------------
// Posting to a thread, sending to another thread's window and waiting for
// the reply, and the global queue through which both travel.

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

// ----------------------------------------------------------------------------
// SendMessageA/W and their core: a window of the calling thread has its
// procedure called directly, a window of another thread gets the message
// through the queues and the caller waits for the reply.

namespace {

// The window's procedure in the caller's form, through CallWindowProc,
// which drops the lock around it.  No hook runs for a sent message.
LRESULT CallOwnProcedure(const vorlan::Window *pWnd, UINT message, WPARAM wParam, LPARAM lParam, BOOL wide)
{
    const UINT id = pWnd->nIdWndProc;
    if (id == 0)
        return 0;
    const HWND hWnd = pWnd->hWnd;
    auto procedure = reinterpret_cast<WNDPROC>(GetWndProc(id, wide));
    if (wide)
        return CallWindowProcW(procedure, hWnd, message, wParam, lParam);
    return CallWindowProcA(procedure, hWnd, message, wParam, lParam);
}

LRESULT SendToOtherThread(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, BOOL wide)
{
    tagMSG msg = {hWnd, message, wParam, lParam, 0, {0, 0}};
    return PostMessageCore(&msg, wide, TRUE, POST_TO_WINDOW_THREAD);
}

} // namespace

LRESULT SendMessageAW(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, BOOL wide)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return 0;
    }
    if (pWnd->dwThreadId != GetCurrentThreadId())
        return SendToOtherThread(hWnd, message, wParam, lParam, wide);
    return CallOwnProcedure(pWnd, message, wParam, lParam, wide);
}

LRESULT WINAPI SendMessageA(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    vorlan::GtkCriticalSection lock;
    return SendMessageAW(hWnd, Msg, wParam, lParam, FALSE);
}

LRESULT WINAPI SendMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    vorlan::GtkCriticalSection lock;
    return SendMessageAW(hWnd, Msg, wParam, lParam, TRUE);
}

// ----------------------------------------------------------------------------
// DispatchMessageA and DispatchMessageW: a WM_TIMER with a timer procedure
// calls that procedure, any other message goes to the window's procedure.
// No lock is taken here; the application's code runs without it.

namespace {

LRESULT CallTimerProcedure(const MSG &msg)
{
    auto procedure = reinterpret_cast<TIMERPROC>(msg.lParam);
    const int depth = vorlan::GtkCriticalSection::leave_all();
    procedure(msg.hwnd, WM_TIMER, msg.wParam, GetTickCount());
    vorlan::GtkCriticalSection::enter_all(depth);
    return 0;
}

LRESULT DispatchMessageAW(const MSG *msg, BOOL wide)
{
    if (msg == nullptr)
        return 0;
    if (msg->message == WM_TIMER && msg->lParam != 0)
        return CallTimerProcedure(*msg);
    const LONG_PTR value = wide ? GetWindowLongPtrW(msg->hwnd, GWLP_WNDPROC) : GetWindowLongPtrA(msg->hwnd, GWLP_WNDPROC);
    auto procedure = reinterpret_cast<WNDPROC>(value);
    if (procedure == nullptr)
        return 0;
    if (wide)
        return CallWindowProcW(procedure, msg->hwnd, msg->message, msg->wParam, msg->lParam);
    return CallWindowProcA(procedure, msg->hwnd, msg->message, msg->wParam, msg->lParam);
}

} // namespace

LRESULT WINAPI DispatchMessageA(const MSG *lpMsg)
{
    return DispatchMessageAW(lpMsg, FALSE);
}

LRESULT WINAPI DispatchMessageW(const MSG *lpMsg)
{
    return DispatchMessageAW(lpMsg, TRUE);
}

// ----------------------------------------------------------------------------
// The hooks that see every message a retrieval delivers: keyboard messages
// go to WH_KEYBOARD, mouse button and move messages to WH_MOUSE, all others
// to WH_GETMESSAGE.  The chains themselves live in the host base library.

namespace {

bool IsKeyboardHookMessage(UINT message)
{
    return message == WM_KEYDOWN || message == WM_KEYUP || message == WM_SYSKEYDOWN || message == WM_SYSKEYUP;
}

// WM_MOUSEMOVE up to WM_MBUTTONDBLCLK; the wheel is not among them.
bool IsMouseHookMessage(UINT message)
{
    return message >= WM_MOUSEMOVE && message <= WM_MBUTTONDBLCLK;
}

} // namespace

// The hook procedures are the application's code and run without the lock.
BOOL DispatchHook(MSG *msg, BOOL remove, BOOL wide)
{
    if (msg == nullptr)
        return FALSE;
    const int code = remove ? HC_ACTION : HC_NOREMOVE;
    vorlan::GtkLockReleaser unlocked;
    if (IsKeyboardHookMessage(msg->message))
        return CallWindowsHook(WH_KEYBOARD, code, msg->wParam, msg->lParam, wide) != 0;
    if (IsMouseHookMessage(msg->message))
        return CallWindowsHook(WH_MOUSE, code, msg->wParam, msg->lParam, wide) != 0;
    return CallWindowsHook(WH_GETMESSAGE, code, msg->wParam, reinterpret_cast<LPARAM>(msg), wide) != 0;
}

// ----------------------------------------------------------------------------
// RegisterWindowMessage: a message number shared by every window that
// registers the same name, taken from the atom table (0xC000 to 0xFFFF).

UINT WINAPI RegisterWindowMessageA(LPCSTR lpString)
{
    vorlan::GtkCriticalSection lock;
    ATOM atom = FindAtomA(lpString);
    if (atom == 0)
        atom = AddAtomA(lpString);
    return atom;
}

UINT WINAPI RegisterWindowMessageW(LPCWSTR lpString)
{
    vorlan::GtkCriticalSection lock;
    ATOM atom = FindAtomW(lpString);
    if (atom == 0)
        atom = AddAtomW(lpString);
    return atom;
}

// ----------------------------------------------------------------------------
// What the message queues ask about a window: its thread, whether it lives,
// whether it lies below another window, and the two paint states.
// The caller holds the toolkit lock, which guards the window table.

namespace vorlan {

DWORD WindowThreadId(HWND hWnd)
{
    const Window *pWnd = getWindow(hWnd);
    return pWnd != nullptr ? pWnd->dwThreadId : 0;
}

bool WindowExists(HWND hWnd)
{
    return getWindow(hWnd) != nullptr;
}

bool WindowIsDescendant(HWND parent, HWND hWnd)
{
    if (parent == nullptr)
        return false;
    const Window *pWnd = getWindow(hWnd);
    if (pWnd == nullptr)
        return false;
    for (const Window *above = pWnd->pWndParent; above != nullptr; above = above->pWndParent) {
        if (above->hWnd == parent)
            return true;
    }
    return false;
}

bool TakeNcPaintPending(HWND hWnd)
{
    Window *pWnd = getWindow(hWnd);
    if (pWnd == nullptr)
        return false;
    const bool pending = (pWnd->dwFlags & WF_NCPAINTPENDING) != 0;
    pWnd->dwFlags &= ~static_cast<DWORD>(WF_NCPAINTPENDING);
    return pending;
}

bool HasUpdateRegion(HWND hWnd)
{
    const Window *pWnd = getWindow(hWnd);
    return pWnd != nullptr && pWnd->hUpdateRegion != nullptr;
}

} // namespace vorlan
