// The registry of test windows: stand-ins for window objects that the
// message queues can be driven with.
#include "gtk/vorltestwindows.h"

#include "gtk/vorlthread.h"

#include <map>
#include <mutex>

namespace vorlan {
namespace testing {

namespace {

struct TestWindow {
    DWORD tid;
    HWND parent;
    WNDPROC procedure;
    bool hasUpdateRegion;
    bool ncPaintPending;
};

constexpr uintptr_t kFirstHandle = 0x7E570000u;

std::mutex &RegistryMutex()
{
    static std::mutex *mutex = new std::mutex;
    return *mutex;
}

// Never freed: threads may still ask while the process exits.
std::map<HWND, TestWindow> &Registry()
{
    static auto *registry = new std::map<HWND, TestWindow>;
    return *registry;
}

TestWindow *Find(HWND hWnd)
{
    auto it = Registry().find(hWnd);
    return it == Registry().end() ? nullptr : &it->second;
}

} // namespace

// Like a real window, a stand-in gives its thread a queue before anyone can
// learn its handle: a send that names it must find the thread's data.
HWND CreateTestWindow(WNDPROC procedure, HWND parent)
{
    ThreadData::GetCurrentThreadData();
    static uintptr_t nextHandle = kFirstHandle;
    std::lock_guard<std::mutex> guard(RegistryMutex());
    HWND hWnd = reinterpret_cast<HWND>(++nextHandle);
    Registry()[hWnd] = TestWindow{GetCurrentThreadId(), parent, procedure, false, false};
    return hWnd;
}

void DestroyTestWindow(HWND hWnd)
{
    std::lock_guard<std::mutex> guard(RegistryMutex());
    Registry().erase(hWnd);
}

void DestroyTestWindowsOfThread(DWORD tid)
{
    std::lock_guard<std::mutex> guard(RegistryMutex());
    for (auto it = Registry().begin(); it != Registry().end();) {
        if (it->second.tid == tid)
            it = Registry().erase(it);
        else
            ++it;
    }
}

bool IsTestWindow(HWND hWnd)
{
    std::lock_guard<std::mutex> guard(RegistryMutex());
    return Find(hWnd) != nullptr;
}

DWORD TestWindowThread(HWND hWnd)
{
    std::lock_guard<std::mutex> guard(RegistryMutex());
    const TestWindow *window = Find(hWnd);
    return window ? window->tid : 0;
}

bool IsTestWindowDescendant(HWND parent, HWND hWnd)
{
    std::lock_guard<std::mutex> guard(RegistryMutex());
    if (parent == nullptr)
        return false;
    for (const TestWindow *window = Find(hWnd); window != nullptr; window = Find(window->parent)) {
        if (window->parent == parent)
            return true;
    }
    return false;
}

WNDPROC TestWindowProcedure(HWND hWnd)
{
    std::lock_guard<std::mutex> guard(RegistryMutex());
    const TestWindow *window = Find(hWnd);
    return window ? window->procedure : nullptr;
}

void SetTestWindowUpdateRegion(HWND hWnd, bool hasRegion)
{
    std::lock_guard<std::mutex> guard(RegistryMutex());
    if (TestWindow *window = Find(hWnd))
        window->hasUpdateRegion = hasRegion;
}

bool TestWindowHasUpdateRegion(HWND hWnd)
{
    std::lock_guard<std::mutex> guard(RegistryMutex());
    const TestWindow *window = Find(hWnd);
    return window && window->hasUpdateRegion;
}

void SetTestWindowNcPaintPending(HWND hWnd, bool pending)
{
    std::lock_guard<std::mutex> guard(RegistryMutex());
    if (TestWindow *window = Find(hWnd))
        window->ncPaintPending = pending;
}

bool TakeTestWindowNcPaintPending(HWND hWnd)
{
    std::lock_guard<std::mutex> guard(RegistryMutex());
    TestWindow *window = Find(hWnd);
    if (window == nullptr || !window->ncPaintPending)
        return false;
    window->ncPaintPending = false;
    return true;
}

} // namespace testing
} // namespace vorlan
