// Helpers for driving the message queues.
#include "support/queue_helpers.h"

#include "gtk/vorlgtklock.h"
#include "gtk/vorlmessage.h"
#include "gtk/vorlwindow.h"

#include <algorithm>
#include <thread>

namespace vorlan_test {

BOOL LockedPeek(MSG *msg, HWND hWnd, UINT min, UINT max, UINT flags)
{
    vorlan::GtkCriticalSection lock;
    return ThreadData::GetCurrentThreadData()->peekMessage(msg, hWnd, min, max, flags, TRUE);
}

LRESULT LockedPost(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, DWORD tid)
{
    vorlan::GtkCriticalSection lock;
    MSG msg = {hWnd, message, wParam, lParam, 0, {0, 0}};
    return PostMessageCore(&msg, TRUE, FALSE, tid);
}

LRESULT LockedSend(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    vorlan::GtkCriticalSection lock;
    MSG msg = {hWnd, message, wParam, lParam, 0, {0, 0}};
    return PostMessageCore(&msg, TRUE, TRUE, POST_TO_WINDOW_THREAD);
}

namespace {

gboolean KeepTicking(gpointer)
{
    return TRUE;
}

} // namespace

bool ServeMessagesUntil(const std::function<bool()> &done, const std::function<void(const MSG &)> &onMessage,
                        int timeoutMilliseconds)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMilliseconds);
    ThreadData *data = ThreadData::GetCurrentThreadData();
    // A timeout wakes the wait now and then, so that the deadline is seen.
    GSource *ticker = g_timeout_source_new(10);
    g_source_set_callback(ticker, KeepTicking, nullptr, nullptr);
    g_source_attach(ticker, data->context);
    bool finished = true;
    while (!done()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            finished = false;
            break;
        }
        MSG msg;
        if (LockedPeek(&msg)) {
            if (onMessage)
                onMessage(msg);
            continue;
        }
        if (done())
            break;
        vorlan::GtkCriticalSection lock;
        data->waitMessage();
    }
    g_source_destroy(ticker);
    g_source_unref(ticker);
    return finished;
}

void ResetCurrentThreadQueues()
{
    vorlan::GtkCriticalSection lock;
    ThreadData *data = ThreadData::GetCurrentThreadData();
    std::deque<_MSG> pending;
    GetMessagesFromGlobalQueue(pending);
    data->qMsgs.clear();
    data->nSentMsgs = 0;
    data->qPaintWnds.clear();
    data->qTimerMsgs.clear();
    {
        std::lock_guard<std::recursive_mutex> guard(g_inputQueueMutex);
        data->qInputMsgs.clear();
        data->nInputKeyboard = 0;
        data->qsFlags = 0;
    }
    data->nQuitCode = 0;
    data->hWndActive = nullptr;
    data->hWndFocus = nullptr;
    data->hWndCapture = nullptr;
    std::fill(std::begin(data->keyState), std::end(data->keyState), 0);
}

namespace {

constexpr UINT kFirstPassedMessage = 1014;
const WCHAR kQueueWindowClass[] = {'Q', 'u', 'e', 'u', 'e', 'W', 'i', 'n', 'd', 'o', 'w', 0};

LRESULT CALLBACK QueueWindowProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message >= kFirstPassedMessage) {
        auto procedure = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(hWnd, GWLP_USERDATA));
        if (procedure != nullptr)
            return procedure(hWnd, message, wParam, lParam);
    }
    return DefWindowProcW(hWnd, message, wParam, lParam);
}

} // namespace

HWND CreateQueueWindow(WNDPROC procedure)
{
    static const ATOM atom = [] {
        WNDCLASSW wc = {};
        wc.lpfnWndProc = QueueWindowProc;
        wc.lpszClassName = kQueueWindowClass;
        return RegisterClassW(&wc);
    }();
    HWND hWnd = CreateWindowExW(0, reinterpret_cast<LPCWSTR>(static_cast<ULONG_PTR>(atom)), kQueueWindowClass,
                                WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    if (hWnd != nullptr)
        SetWindowLongPtrW(hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(procedure));
    return hWnd;
}

void SetUpdateRegion(HWND hWnd, bool present)
{
    vorlan::GtkCriticalSection lock;
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return;
    if (pWnd->hUpdateRegion != nullptr) {
        DeleteObject(pWnd->hUpdateRegion);
        pWnd->hUpdateRegion = nullptr;
    }
    if (present)
        pWnd->hUpdateRegion = CreateRectRgn(0, 0, 1, 1);
}

DWORD EndedThreadId()
{
    DWORD tid = 0;
    std::thread([&] { tid = GetCurrentThreadId(); }).join();
    return tid;
}

ThreadWithoutQueue::ThreadWithoutQueue()
{
    std::promise<DWORD> started;
    std::future<void> released = m_release.get_future();
    m_thread = std::thread([&started, released = std::move(released)]() mutable {
        started.set_value(GetCurrentThreadId());
        released.wait();
    });
    m_id = started.get_future().get();
}

ThreadWithoutQueue::~ThreadWithoutQueue()
{
    m_release.set_value();
    m_thread.join();
}

bool SpinUntil(const std::function<bool()> &done, int timeoutMilliseconds)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMilliseconds);
    while (!done()) {
        if (std::chrono::steady_clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    return true;
}

} // namespace vorlan_test
