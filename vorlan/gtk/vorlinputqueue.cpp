// Hardware input queue of a thread: queuing with merging of mouse moves and
// wheel steps, retrieval with the class filters, and removal, which moves
// the thread's key state.
//
// Records are sorted by uId, so that a retrieval that skips records can
// resume where it stopped by binary search.
#include "gtk/vorlthread.h"

#include "gtk/vorlpostmessage.h"
#include "gtk/vorlpumpdeps.h"
#include "vorlassert.h"

#include <algorithm>

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
    VORLAN_ASSERT("vorlan/gtk/vorlinputqueue", this->qInputMsgs.size() >= this->nInputKeyboard);
}
