// Posting to a thread's queue and sending to a window of another thread.
//
// Messages between threads travel through one process-wide queue keyed by
// the target's thread id; the target moves its share into its own qMsgs
// when it next looks for messages.
#ifndef VORLAN_GTK_VORLPOSTMESSAGE_H
#define VORLAN_GTK_VORLPOSTMESSAGE_H

#include "gtk/vorlthread.h"

// `tid` value that stands for the thread of msg->hwnd.
constexpr DWORD POST_TO_WINDOW_THREAD = static_cast<DWORD>(-1);

// Posts (send FALSE) or sends across threads (send TRUE) the hwnd, message,
// wParam and lParam of `msg` to thread `tid`.  A post returns 1; a send
// waits for the reply and returns the procedure's result.  Failure: 0 with
// 87 for messages that carry pointers, 1444 when the target has no queue.
// The caller holds the toolkit lock.
VORLAN_INTERNAL LRESULT PostMessageCore(tagMSG *msg, BOOL wide, BOOL send, DWORD tid);

// Appends the record to the global queue of thread `tid`.  True when that
// queue was empty: only then does the target need a wake-up, as it has not
// collected the earlier records, and their wake-up is still due.
VORLAN_INTERNAL bool PushMessageToGlobalQueue(const _MSG &record, DWORD tid);
// Moves every record of the calling thread from the global queue to the end
// of `queue`.
VORLAN_INTERNAL void GetMessagesFromGlobalQueue(std::deque<_MSG> &queue);
// Takes every record of thread `tid` out of the global queue (for a thread
// whose data goes away).
VORLAN_INTERNAL std::deque<_MSG> TakeGlobalQueueOf(DWORD tid);

#endif // VORLAN_GTK_VORLPOSTMESSAGE_H
