// Throughput of posted messages and latency of cross-thread sends, each
// beside a baseline hand-off between the same two threads:
//
//   PostPeek/Queue      the main thread posts, a worker peeks with PM_REMOVE
//                       and waits in its own context when the queue is empty
//   PostPeek/Baseline   the same hand-off through a bare GAsyncQueue
//   SendRoundTrip/Queue the main thread sends to a worker's window and waits
//                       for the reply (the worker serves in a message loop)
//   SendRoundTrip/Baseline  a mutex and condition variable ping-pong
//
// The library's start-up needs a display: run through tools/with-xvfb.sh.
#include <benchmark/benchmark.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlmessage.h"
#include "gtk/vorlthread.h"

#include <glib.h>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace {

constexpr UINT WM_BENCH = WM_USER + 1;
constexpr UINT WM_BENCH_STOP = WM_USER + 2;

LRESULT CALLBACK EchoProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_BENCH)
        return static_cast<LRESULT>(wParam + 1);
    return DefWindowProcW(hWnd, message, wParam, lParam);
}

// A hidden window whose procedure answers WM_BENCH.
HWND CreateEchoWindow()
{
    static const WCHAR kClassName[] = {'B', 'e', 'n', 'c', 'h', 'E', 'c', 'h', 'o', 0};
    static const ATOM atom = [] {
        WNDCLASSW wc = {};
        wc.lpfnWndProc = EchoProc;
        wc.lpszClassName = kClassName;
        return RegisterClassW(&wc);
    }();
    return CreateWindowExW(0, reinterpret_cast<LPCWSTR>(static_cast<ULONG_PTR>(atom)), kClassName, WS_POPUP, 0, 0,
                           10, 10, nullptr, nullptr, nullptr, nullptr);
}

// A worker with a window and a message loop: peek with PM_REMOVE, wait
// when there is nothing, until WM_BENCH_STOP arrives.
class LoopWorker {
public:
    LoopWorker()
    {
        m_thread = std::thread([this] { Run(); });
        while (!m_ready.load())
            std::this_thread::yield();
    }
    ~LoopWorker()
    {
        Post(WM_BENCH_STOP);
        m_thread.join();
    }

    void Post(UINT message)
    {
        vorlan::GtkCriticalSection lock;
        MSG msg = {nullptr, message, 0, 0, 0, {0, 0}};
        PostMessageCore(&msg, TRUE, FALSE, m_tid);
    }
    LRESULT Send(WPARAM wParam)
    {
        vorlan::GtkCriticalSection lock;
        MSG msg = {m_window, WM_BENCH, wParam, 0, 0, {0, 0}};
        return PostMessageCore(&msg, TRUE, TRUE, POST_TO_WINDOW_THREAD);
    }
    long received() const { return m_received.load(std::memory_order_acquire); }

private:
    void Run()
    {
        ThreadData *data = ThreadData::GetCurrentThreadData();
        m_tid = GetCurrentThreadId();
        m_window = CreateEchoWindow();
        m_ready = true;
        vorlan::GtkCriticalSection lock;
        for (;;) {
            MSG msg;
            if (data->peekMessage(&msg, nullptr, 0, 0, PM_REMOVE, TRUE)) {
                if (msg.message == WM_BENCH_STOP)
                    break;
                if (msg.message == WM_BENCH)
                    m_received.fetch_add(1, std::memory_order_release);
                continue;
            }
            data->waitMessage();
        }
        DestroyWindow(m_window);
    }

    std::atomic<bool> m_ready{false};
    std::atomic<long> m_received{0};
    DWORD m_tid = 0;
    HWND m_window = nullptr;
    std::thread m_thread;
};

void WaitForCount(const std::function<long()> &count, long target)
{
    while (count() < target)
        std::this_thread::yield();
}

void BM_PostPeek_Queue(benchmark::State &state)
{
    ThreadData::GetCurrentThreadData();
    LoopWorker worker;
    long posted = 0;
    for (auto _ : state) {
        worker.Post(WM_BENCH);
        ++posted;
    }
    WaitForCount([&] { return worker.received(); }, posted);
    state.SetItemsProcessed(posted);
}
BENCHMARK(BM_PostPeek_Queue)->Name("PostPeek/Queue")->UseRealTime();

void BM_PostPeek_Baseline(benchmark::State &state)
{
    GAsyncQueue *queue = g_async_queue_new();
    std::atomic<long> received{0};
    static int message = 0;
    static int stop = 0;
    std::thread consumer([&] {
        for (;;) {
            gpointer item = g_async_queue_pop(queue);
            if (item == &stop)
                break;
            received.fetch_add(1, std::memory_order_release);
        }
    });
    long posted = 0;
    for (auto _ : state) {
        g_async_queue_push(queue, &message);
        ++posted;
    }
    WaitForCount([&] { return received.load(std::memory_order_acquire); }, posted);
    g_async_queue_push(queue, &stop);
    consumer.join();
    g_async_queue_unref(queue);
    state.SetItemsProcessed(posted);
}
BENCHMARK(BM_PostPeek_Baseline)->Name("PostPeek/Baseline")->UseRealTime();

void BM_SendRoundTrip_Queue(benchmark::State &state)
{
    ThreadData::GetCurrentThreadData();
    LoopWorker worker;
    WPARAM value = 0;
    for (auto _ : state) {
        const LRESULT reply = worker.Send(value);
        if (reply != static_cast<LRESULT>(value + 1)) {
            state.SkipWithError("wrong reply");
            break;
        }
        ++value;
    }
    state.SetItemsProcessed(static_cast<int64_t>(value));
}
BENCHMARK(BM_SendRoundTrip_Queue)->Name("SendRoundTrip/Queue")->UseRealTime();

void BM_SendRoundTrip_Baseline(benchmark::State &state)
{
    std::mutex mutex;
    std::condition_variable changed;
    long request = 0;
    long reply = 0;
    bool stop = false;
    std::thread server([&] {
        std::unique_lock<std::mutex> lock(mutex);
        for (;;) {
            changed.wait(lock, [&] { return stop || request != reply; });
            if (stop)
                break;
            reply = request;
            changed.notify_all();
        }
    });
    long sent = 0;
    for (auto _ : state) {
        std::unique_lock<std::mutex> lock(mutex);
        request = ++sent;
        changed.notify_all();
        changed.wait(lock, [&] { return reply == request; });
    }
    {
        std::lock_guard<std::mutex> lock(mutex);
        stop = true;
    }
    changed.notify_all();
    server.join();
    state.SetItemsProcessed(sent);
}
BENCHMARK(BM_SendRoundTrip_Baseline)->Name("SendRoundTrip/Baseline")->UseRealTime();

} // namespace

BENCHMARK_MAIN();
