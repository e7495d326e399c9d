// Many threads posting and sending to each other and to the main thread:
// every reply right, posts in order, no deadlock (a watchdog aborts), and a
// bounded run time.
#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlthread.h"
#include "support/queue_helpers.h"
#include "support/window_objects.h"

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <future>
#include <memory>
#include <thread>
#include <vector>

using namespace vorlan_test;

namespace {

constexpr int kWorkers = 4;
constexpr int kParticipants = kWorkers + 1; // the main thread is participant 0
constexpr int kMessagesPerWorker = 20000;
constexpr UINT WM_STRESS_SEND = WM_USER + 100;
constexpr UINT WM_STRESS_POST = WM_USER + 101;
constexpr auto kTimeLimit = std::chrono::seconds(90);

// Depends on both parameters, so that a reply to the wrong sender shows.
LRESULT Expected(WPARAM wParam, LPARAM lParam)
{
    return static_cast<LRESULT>(wParam * 7 + static_cast<WPARAM>(lParam) * 13 + 1);
}

LRESULT CALLBACK StressProc(HWND, UINT message, WPARAM wParam, LPARAM lParam)
{
    return message == WM_STRESS_SEND ? Expected(wParam, lParam) : 0;
}

struct Participant {
    std::atomic<HWND> window{nullptr};
    std::atomic<long> postsReceived{0};
    std::atomic<long> postsExpected{0};
    std::atomic<long> outOfOrder{0};
    std::vector<long> lastSequenceFrom = std::vector<long>(kParticipants, -1);
};

struct Stress {
    Participant participants[kParticipants];
    std::atomic<long> rightReplies{0};
    std::atomic<long> failedCalls{0};
    std::atomic<int> sendersDone{0};
    std::atomic<long> progress{0};

    bool everyoneSent() const { return sendersDone.load() == kWorkers; }
    bool allPostsArrived(int self) const
    {
        return participants[self].postsReceived.load() >= participants[self].postsExpected.load();
    }
};

std::unique_ptr<TestWindow> MakeStressWindow()
{
    WindowOptions options;
    options.withXWindow = false;
    auto window = std::make_unique<TestWindow>(options);
    SetWindowLongPtrW(window->hwnd(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(StressProc));
    return window;
}

// A posted message carries the sender in lParam and its sequence number to
// that target in wParam; each sender's posts must arrive in order.
void NotePost(Stress &stress, int self, const MSG &msg)
{
    if (msg.message != WM_STRESS_POST)
        return;
    Participant &me = stress.participants[self];
    const int from = static_cast<int>(msg.lParam);
    const long sequence = static_cast<long>(msg.wParam);
    if (sequence != me.lastSequenceFrom[from] + 1)
        ++me.outOfOrder;
    me.lastSequenceFrom[from] = sequence;
    ++me.postsReceived;
}

void RunWorker(Stress &stress, int self)
{
    ThreadData::GetCurrentThreadData();
    std::unique_ptr<TestWindow> own = MakeStressWindow();
    stress.participants[self].window = own->hwnd();
    for (int p = 0; p < kParticipants; ++p)
        SpinUntil([&] { return stress.participants[p].window.load() != nullptr; });

    std::vector<long> postSequence(kParticipants, 0);
    for (int i = 0; i < kMessagesPerWorker; ++i) {
        const int target = (self + 1 + i % (kParticipants - 1)) % kParticipants;
        const HWND window = stress.participants[target].window;
        if (i % 2 == 0) {
            const WPARAM wParam = static_cast<WPARAM>(i);
            const LRESULT reply = SendMessageW(window, WM_STRESS_SEND, wParam, self);
            stress.rightReplies += reply == Expected(wParam, self);
        } else {
            if (!PostMessageW(window, WM_STRESS_POST, postSequence[target]++, self))
                ++stress.failedCalls;
        }
        ++stress.progress;
        if (i % 64 == 0) {
            MSG msg;
            while (LockedPeek(&msg))
                NotePost(stress, self, msg);
        }
    }
    ++stress.sendersDone;
    ServeMessagesUntil([&] { return stress.everyoneSent() && stress.allPostsArrived(self); },
                       [&](const MSG &msg) { NotePost(stress, self, msg); }, 120000);
}

// A deadlocked worker could not be joined: abort with a report instead.
std::thread Watchdog(const Stress &stress, std::future<void> finished)
{
    return std::thread([&stress, finished = std::move(finished)] {
        if (finished.wait_for(kTimeLimit) == std::future_status::ready)
            return;
        std::fprintf(stderr, "message stress test: no completion within the time limit (deadlock?); "
                             "%ld of %d calls made, %d senders done\n",
                     stress.progress.load(), kWorkers * kMessagesPerWorker, stress.sendersDone.load());
        std::fflush(stderr);
        std::abort();
    });
}

TEST(MessageStress, ThreadsSendAndPostToEachOtherAndToTheMainThread)
{
    ResetCurrentThreadQueues();
    Stress stress;
    // Each worker posts to a target on every other odd step.
    for (int worker = 1; worker < kParticipants; ++worker) {
        for (int i = 1; i < kMessagesPerWorker; i += 2) {
            const int target = (worker + 1 + i % (kParticipants - 1)) % kParticipants;
            ++stress.participants[target].postsExpected;
        }
    }
    std::unique_ptr<TestWindow> mainWindow = MakeStressWindow();
    stress.participants[0].window = mainWindow->hwnd();

    const auto start = std::chrono::steady_clock::now();
    std::promise<void> finished;
    std::thread watchdog = Watchdog(stress, finished.get_future());
    std::vector<std::thread> workers;
    for (int worker = 1; worker < kParticipants; ++worker)
        workers.emplace_back(RunWorker, std::ref(stress), worker);
    ServeMessagesUntil([&] { return stress.everyoneSent() && stress.allPostsArrived(0); },
                       [&](const MSG &msg) { NotePost(stress, 0, msg); }, 120000);
    for (std::thread &worker : workers)
        worker.join();
    finished.set_value();
    watchdog.join();
    const auto elapsed = std::chrono::steady_clock::now() - start;

    EXPECT_EQ(stress.rightReplies.load(), static_cast<long>(kWorkers) * kMessagesPerWorker / 2);
    EXPECT_EQ(stress.failedCalls.load(), 0);
    for (int p = 0; p < kParticipants; ++p) {
        EXPECT_EQ(stress.participants[p].postsReceived.load(), stress.participants[p].postsExpected.load())
            << "participant " << p;
        EXPECT_EQ(stress.participants[p].outOfOrder.load(), 0) << "participant " << p;
    }
    EXPECT_LT(elapsed, kTimeLimit);
    std::printf("stress: %d threads x %d messages in %.2f s\n", kWorkers, kMessagesPerWorker,
                std::chrono::duration<double>(elapsed).count());
}

} // namespace
