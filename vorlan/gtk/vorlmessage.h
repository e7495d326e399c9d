// The message calls inside the library: the shared cores of the exported
// calls, posting to a thread's queue and sending to a window of another
// thread.
#ifndef VORLAN_GTK_VORLMESSAGE_H
#define VORLAN_GTK_VORLMESSAGE_H

#include <windows.h>

#include "gtk/vorlthread.h"

// ----------------------------------------------------------------------------
// The shared cores of the exported message calls.

// The window filter of a message retrieval: 0 and -1 always pass; any other
// handle must name a live window of the calling thread.  Sets 1400 and
// answers false otherwise.  The caller holds the toolkit lock.
bool CheckRetrievalWindow(HWND hWnd);

// The arguments of PeekMessage: a message record, a filter window that
// passes CheckRetrievalWindow, min <= max.  Sets 87 or 1400 and answers
// false otherwise.  The caller holds the toolkit lock.
bool CheckRetrievalArguments(const MSG *msg, HWND hWnd, UINT min, UINT max);

// The core of PeekMessageA and PeekMessageW; the caller holds the toolkit
// lock.  Of `flags` only PM_REMOVE counts.
BOOL PeekMessageAW(MSG *msg, HWND hWnd, UINT min, UINT max, UINT flags, BOOL wide);

// ----------------------------------------------------------------------------
// Posting to a thread's queue and sending to a window of another thread.
//
// Messages between threads travel through one process-wide queue keyed by
// the target's thread id; the target moves its share into its own qMsgs
// when it next looks for messages.

// `tid` value that stands for the thread of msg->hwnd.
constexpr DWORD POST_TO_WINDOW_THREAD = static_cast<DWORD>(-1);

// Posts (send FALSE) or sends across threads (send TRUE) the hwnd, message,
// wParam and lParam of `msg` to thread `tid`.  A post returns 1; a send
// waits for the reply and returns the procedure's result.  Failure: 0 with
// 87 for messages that carry pointers, 1444 when the target has no queue.
// The caller holds the toolkit lock.
LRESULT PostMessageCore(tagMSG *msg, BOOL wide, BOOL send, DWORD tid);

// Appends the record to the global queue of thread `tid`.  True when that
// queue was empty: only then does the target need a wake-up, as it has not
// collected the earlier records, and their wake-up is still due.
bool PushMessageToGlobalQueue(const _MSG &record, DWORD tid);
// Moves every record of the calling thread from the global queue to the end
// of `queue`.
void GetMessagesFromGlobalQueue(std::deque<_MSG> &queue);
// Takes every record of thread `tid` out of the global queue (for a thread
// whose data goes away).
std::deque<_MSG> TakeGlobalQueueOf(DWORD tid);

// ----------------------------------------------------------------------------
// What the message queues ask about a window.  They answer from the window
// object of the handle; the caller holds the toolkit lock.

namespace vorlan {
// The thread that owns the window (GetWindowThreadProcessId), 0 for a bad handle.
DWORD WindowThreadId(HWND hWnd);
// The handle names a live window (IsWindow).
bool WindowExists(HWND hWnd);
// `hWnd` lies below `parent` along the parent links (IsChild); never the
// window itself.
bool WindowIsDescendant(HWND parent, HWND hWnd);
// Clears WF_NCPAINTPENDING of the window and tells whether it was set.
bool TakeNcPaintPending(HWND hWnd);
// The window has an hUpdateRegion; false for a dead window.
bool HasUpdateRegion(HWND hWnd);
} // namespace vorlan

// The core of SendMessageW and SendMessageA: a window of the calling thread
// gets its procedure called, a window of another thread gets the message
// through the queues.  The caller holds the toolkit lock.
LRESULT SendMessageAW(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, BOOL wide);

// Runs the hook chain for a message taken from a queue; non-zero swallows it.
BOOL DispatchHook(MSG *msg, BOOL remove, BOOL wide);

#endif // VORLAN_GTK_VORLMESSAGE_H
