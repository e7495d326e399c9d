// Per-thread state of every thread that uses windows: its message queues,
// its keyboard view and the GLib main context it waits in.
//
// Message retrieval looks at the sources of a thread in a fixed order: one
// message sent by another thread, posted messages, WM_QUIT, the GDK pump
// (main thread only), hardware input, WM_PAINT, WM_TIMER.
//
// Locks, outermost first: the toolkit lock, g_threadListMutex, then
// g_inputQueueMutex or the global queue's mutex.  qMsgs, qPaintWnds and
// qTimerMsgs belong to their own thread and are touched under the toolkit
// lock; other threads reach a thread only through the global queue and
// notify().
#ifndef VORLAN_GTK_VORLTHREAD_H
#define VORLAN_GTK_VORLTHREAD_H

#include <windows.h>

#include <glib.h>

#include <atomic>
#include <deque>
#include <mutex>
#include <vector>

// Posted to the window that has the focus when F1 goes down.
#ifndef WM_KEYF1
#define WM_KEYF1 0x004D
#endif

// A posted message, or a message sent by another thread.
struct _MSG {
    tagMSG msg;             // for a sent record bit 31 of message: the sender used the wide form
    DWORD dwSendingThread;  // 0 for a posted message; else the sender, which waits for a reply
    DWORD dwSendId;         // the sender's reply wait that the result belongs to
};

// Hardware input as the GDK handler queues it, and after processing in the
// form of a message.
struct _InputMSG {
    HWND hwnd;        // 0 until processing, then the target
    UINT message;
    WPARAM wParam;    // virtual key, wheel delta, or 0
    LPARAM lParam;    // key data; mouse: X event time, after processing packed coordinates
    DWORD time;
    POINT pt;         // screen coordinates (mouse records)
    UINT uId;         // queue sequence number; the queue is sorted by it
    WORD wFlags;      // modifier and button state, see the INPUT_FLAG_ values
};

// Bits of _InputMSG::wFlags.
enum : WORD {
    INPUT_FLAG_SHIFT = 1,
    INPUT_FLAG_CONTROL = 2,
    INPUT_FLAG_ALT = 4,
    INPUT_FLAG_LBUTTON = 8,
    INPUT_FLAG_MBUTTON = 16,
    INPUT_FLAG_RBUTTON = 32,
    INPUT_FLAG_CAPSLOCK = 64,
};

// Bits of ThreadData::qsFlags.
enum : DWORD {
    QS_FLAG_KEYBOARD = 0x1,      // key records in qInputMsgs
    QS_FLAG_OTHER_INPUT = 0x6,   // other records there (both bits together)
    QS_FLAG_INPUT = 0x7,
    QS_FLAG_QUIT = 0x200,        // PostQuitMessage was called
};

// One cross-thread send waiting for its reply.  It lives on the sender's
// stack while the sender waits.  A procedure that runs during the wait may
// send again, so the waits of one thread form a stack; each reply names the
// wait it belongs to and cannot be taken by a nested one.
struct SendReplyWait {
    DWORD dwSendId = 0;
    LRESULT lSendResult = 0;
    std::atomic<BOOL> bSendReplied{FALSE};
    SendReplyWait *pOuter = nullptr;
};

// Guards the thread list and the reply waits.
extern std::recursive_mutex g_threadListMutex;
// Guards qInputMsgs, nInputKeyboard and the input bits of qsFlags of all threads.
extern std::recursive_mutex g_inputQueueMutex;

class ThreadData {
public:
    explicit ThreadData(DWORD threadId);
    ~ThreadData();
    ThreadData(const ThreadData &) = delete;
    ThreadData &operator=(const ThreadData &) = delete;

    // The data of thread `tid` (0: the foreground thread), made when missing
    // and `create` is set, but only by the thread itself.
    static ThreadData *GetThreadData(DWORD tid, BOOL create);
    static ThreadData *GetCurrentThreadData();
    // Unlinks and deletes the caller's own data.
    static void RemoveThreadData(DWORD dwThreadId);
    // Runs when a thread ends; the main thread's data stays.
    static void thread_exit(void *pData);

    void QueueInputMessage(_InputMSG *record);
    BOOL peekInputMessage(tagMSG *msg, HWND hWnd, UINT min, UINT max, BOOL remove);
    void removeInputMessage(UINT uId);
    void QueuePaintMessage(HWND hWnd);
    void QueueTimerMessage(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);

    BOOL peekMessage(tagMSG *msg, HWND hWnd, UINT min, UINT max, UINT flags, BOOL wide);
    BOOL peekPostedMessage(tagMSG *msg, HWND hWnd, UINT min, UINT max, BOOL remove, BOOL wide);
    BOOL processSentMessages();
    // Moves what other threads sent or posted to this one from the global
    // queue to the end of qMsgs.
    void pullGlobalQueue();

    // Blocks until the thread is woken; the main thread runs GDK meanwhile.
    void wait();
    void waitMessage();
    // Wakes the thread from wait(); never called by the thread itself.
    void notify();

    // Reply waits of cross-thread sends.
    void beginSendWait(SendReplyWait &wait);
    void endSendWait(SendReplyWait &wait);
    // Stores the result of a send in the sender's wait and wakes the sender.
    // A sender that has gone, or no longer waits, is skipped.
    static void ReplyToSender(DWORD dwSender, DWORD dwSendId, LRESULT result);

    DWORD dwCaretFlags = 0;
    std::atomic<DWORD> qsFlags{0};
    int nQuitCode = 0;
    SHORT keyState[256] = {};
    HWND hWndActive = nullptr;
    HWND hWndFocus = nullptr;
    HWND hWndCapture = nullptr;
    HWND hWndCaret = nullptr;
    HBITMAP hCaretBitmap = nullptr;
    RECT rcCaret = {};
    int nCaretHide = 1;
    tagMSG lastButtonMsg = {};
    std::deque<_MSG> qMsgs;
    // How many records of qMsgs are sent ones, so that a peek finds out
    // without walking the posted ones.
    size_t nSentMsgs = 0;
    std::deque<_InputMSG> qInputMsgs;
    UINT nInputKeyboard = 0;
    std::deque<HWND> qPaintWnds;
    std::deque<tagMSG> qTimerMsgs;
    const DWORD tid;
    GMainContext *const context;
    // The innermost reply wait of this thread, or null.  Guarded by
    // g_threadListMutex.
    SendReplyWait *pSendWait = nullptr;

    // All thread data, in order of creation.  Guarded by g_threadListMutex.
    static std::vector<ThreadData *> &list();

private:
    bool isMainThread() const;
    void pumpPendingEvents();
    BOOL takeQuitMessage(tagMSG *msg, HWND hWnd, BOOL remove);
    BOOL peekPaintMessage(tagMSG *msg, HWND hWnd);
    BOOL peekTimerMessage(tagMSG *msg, HWND hWnd, UINT min, UINT max, BOOL remove);
    void noteInputRecordRemoved(bool keyRecord);
    void setKeyStateFromFlags(WORD wFlags);
    std::deque<_InputMSG>::iterator findInputRecord(UINT uIdAtLeast);
    void answerPendingSenders();
};

// Both bounds 0: every message; otherwise min <= message <= max.
bool MessageFilter(UINT message, UINT min, UINT max);
// Filter 0: every window; -1 or -2: only hwnd 0; otherwise the window
// itself or one of its descendants.
bool WindowFilter(HWND hWnd, HWND filter);
// WM_KEYFIRST up to, but not including, 265.
bool IsKeyMessage(UINT message);

HWND GetCaretWindow();
void SetCurrentThreadActiveWindow(HWND hWnd);

#endif // VORLAN_GTK_VORLTHREAD_H
