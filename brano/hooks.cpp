// Windows hooks: per-thread and process-wide hook chains.
//
// A chain holds the hooks of one type for one thread (thread id 0 being the
// process-wide chain), newest first.  A call runs the calling thread's
// chain followed by the process-wide one; each hook passes on with
// CallNextHookEx.  The tables are guarded by one mutex that is never held
// while a hook procedure runs: a call works on a snapshot of the chain, and
// hooks are reference-counted so that unhooking, even the running hook from
// inside itself, only frees the record once no snapshot uses it.  Unhooked
// hooks left in a snapshot are skipped.
//
// Global hooks need no module handle here: the whole application lives in
// one process, so hmod is accepted and ignored.
#include "hook_message_conversion.h"

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <unistd.h>
#include <unordered_map>
#include <utility>
#include <vector>

namespace {

struct HookRecord {
    HHOOK handle = nullptr;
    int type = 0;
    HOOKPROC proc = nullptr;
    DWORD threadId = 0;  // 0: every thread of the process
    bool unicode = false;
    std::atomic<bool> removed{false};
};

using HookPtr = std::shared_ptr<HookRecord>;
using ChainKey = std::pair<DWORD, int>;  // (thread id or 0, hook type)

constexpr int kTypeCount = WH_MAX - WH_MIN + 1;
constexpr DWORD kGlobalChain = 0;

struct HookTables {
    std::mutex mutex;
    std::map<ChainKey, std::vector<HookPtr>> chains;
    std::unordered_map<HHOOK, HookPtr> byHandle;
    uintptr_t nextSerial = 1;
    std::atomic<int> installed[kTypeCount] = {};  // lets calls skip types nobody hooks
};

HookTables &Tables()
{
    static HookTables *s_tables = new HookTables;  // used by thread-exit cleanup
    return *s_tables;
}

// One running hook call of this thread: the snapshot of the chain and the
// position of the hook currently running.
struct CallFrame {
    int type;
    std::vector<HookPtr> chain;
    size_t current = 0;
};

thread_local std::vector<CallFrame *> t_frames;

bool IsSupportedType(int type)
{
    switch (type) {
    case WH_MSGFILTER:
    case WH_KEYBOARD:
    case WH_GETMESSAGE:
    case WH_CALLWNDPROC:
    case WH_CBT:
    case WH_SYSMSGFILTER:
    case WH_MOUSE:
    case WH_DEBUG:
    case WH_SHELL:
    case WH_FOREGROUNDIDLE:
    case WH_CALLWNDPROCRET:
        return true;
    default:  // journal, low-level and obsolete hooks
        return false;
    }
}

bool IsGlobalOnlyType(int type)
{
    return type == WH_SYSMSGFILTER;
}

bool IsMessageHookType(int type)
{
    return type == WH_GETMESSAGE || type == WH_MSGFILTER || type == WH_SYSMSGFILTER;
}

// Thread ids are kernel thread ids (see thread_time.cpp).
bool IsThreadOfProcess(DWORD threadId)
{
    const std::string path = "/proc/self/task/" + std::to_string(threadId);
    return access(path.c_str(), F_OK) == 0;
}

std::atomic<int> &InstalledCount(HookTables &tables, int type)
{
    return tables.installed[type - WH_MIN];
}

void RemoveFromChain(HookTables &tables, const HookPtr &hook)
{
    const auto chainIt = tables.chains.find(ChainKey(hook->threadId, hook->type));
    if (chainIt == tables.chains.end())
        return;
    std::vector<HookPtr> &chain = chainIt->second;
    for (auto it = chain.begin(); it != chain.end(); ++it) {
        if (*it == hook) {
            chain.erase(it);
            break;
        }
    }
    if (chain.empty())
        tables.chains.erase(chainIt);
}

void RemoveHookLocked(HookTables &tables, const HookPtr &hook)
{
    hook->removed = true;
    RemoveFromChain(tables, hook);
    tables.byHandle.erase(hook->handle);
    --InstalledCount(tables, hook->type);
}

void RemoveHooksOfThread(DWORD threadId)
{
    HookTables &tables = Tables();
    std::lock_guard<std::mutex> lock(tables.mutex);
    std::vector<HookPtr> doomed;
    for (const auto &entry : tables.byHandle) {
        if (entry.second->threadId == threadId)
            doomed.push_back(entry.second);
    }
    for (const HookPtr &hook : doomed)
        RemoveHookLocked(tables, hook);
}

// A thread's own hooks go away when it ends, as they do on Win32, so that
// a later thread given the same id does not inherit them.
struct ThreadHookCleanup {
    DWORD threadId = 0;
    ~ThreadHookCleanup()
    {
        if (threadId != 0)
            RemoveHooksOfThread(threadId);
    }
};

void ArmThreadCleanup()
{
    thread_local ThreadHookCleanup t_cleanup;
    t_cleanup.threadId = GetCurrentThreadId();
}

HHOOK InstallHook(int type, HOOKPROC proc, DWORD threadId, bool unicode)
{
    if (type < WH_MIN || type > WH_MAX || !IsSupportedType(type)) {
        SetLastError(ERROR_INVALID_HOOK_FILTER);
        return nullptr;
    }
    if (proc == nullptr) {
        SetLastError(ERROR_INVALID_FILTER_PROC);
        return nullptr;
    }
    if (threadId != kGlobalChain && IsGlobalOnlyType(type)) {
        SetLastError(ERROR_GLOBAL_ONLY_HOOK);
        return nullptr;
    }
    if (threadId != kGlobalChain && !IsThreadOfProcess(threadId)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (threadId == GetCurrentThreadId())
        ArmThreadCleanup();
    auto hook = std::make_shared<HookRecord>();
    hook->type = type;
    hook->proc = proc;
    hook->threadId = threadId;
    hook->unicode = unicode;
    HookTables &tables = Tables();
    std::lock_guard<std::mutex> lock(tables.mutex);
    // Serial numbers, never addresses: a handle means nothing outside the table.
    hook->handle = reinterpret_cast<HHOOK>((tables.nextSerial++ << 4) | 0x8);
    std::vector<HookPtr> &chain = tables.chains[ChainKey(threadId, type)];
    chain.insert(chain.begin(), hook);
    tables.byHandle[hook->handle] = hook;
    ++InstalledCount(tables, type);
    return hook->handle;
}

void AppendChain(const HookTables &tables, DWORD threadId, int type, std::vector<HookPtr> &out)
{
    const auto it = tables.chains.find(ChainKey(threadId, type));
    if (it != tables.chains.end())
        out.insert(out.end(), it->second.begin(), it->second.end());
}

std::vector<HookPtr> SnapshotChain(int type)
{
    HookTables &tables = Tables();
    std::vector<HookPtr> snapshot;
    std::lock_guard<std::mutex> lock(tables.mutex);
    AppendChain(tables, GetCurrentThreadId(), type, snapshot);
    AppendChain(tables, kGlobalChain, type, snapshot);
    return snapshot;
}

// Calls a message hook whose form differs from the message's on a converted
// copy, then writes back whatever the hook changed.
LRESULT CallWithConvertedMessage(const HookRecord &hook, int code, WPARAM wParam, MSG *msg)
{
    MSG copy = *msg;
    const WPARAM sent = hook.unicode ? brano::AnsiCharToWide(msg->wParam) : brano::WideCharToAnsi(msg->wParam);
    copy.wParam = sent;
    const LRESULT result = hook.proc(code, wParam, reinterpret_cast<LPARAM>(&copy));
    const WPARAM original = msg->wParam;
    *msg = copy;
    if (copy.wParam == sent)
        msg->wParam = original;  // untouched: avoid a lossy round trip
    else if (brano::IsCharacterMessage(copy.message))
        msg->wParam = hook.unicode ? brano::WideCharToAnsi(copy.wParam) : brano::AnsiCharToWide(copy.wParam);
    return result;
}

LRESULT InvokeHook(const HookRecord &hook, int code, WPARAM wParam, LPARAM lParam, bool messageIsWide)
{
    MSG *msg = reinterpret_cast<MSG *>(lParam);
    if (IsMessageHookType(hook.type) && msg != nullptr && hook.unicode != messageIsWide &&
        brano::IsCharacterMessage(msg->message))
        return CallWithConvertedMessage(hook, code, wParam, msg);
    return hook.proc(code, wParam, lParam);
}

// Runs the first live hook at or after `start`; 0 past the end of the chain.
LRESULT RunFrom(CallFrame &frame, size_t start, int code, WPARAM wParam, LPARAM lParam, bool messageIsWide)
{
    size_t position = start;
    while (position < frame.chain.size() && frame.chain[position]->removed)
        ++position;
    if (position >= frame.chain.size())
        return 0;
    const size_t previous = frame.current;
    frame.current = position;
    const LRESULT result = InvokeHook(*frame.chain[position], code, wParam, lParam, messageIsWide);
    frame.current = previous;
    return result;
}

struct FrameScope {
    explicit FrameScope(CallFrame &frame) { t_frames.push_back(&frame); }
    ~FrameScope() { t_frames.pop_back(); }
    FrameScope(const FrameScope &) = delete;
    FrameScope &operator=(const FrameScope &) = delete;
};

LRESULT RunChain(int type, int code, WPARAM wParam, LPARAM lParam, bool messageIsWide)
{
    if (type < WH_MIN || type > WH_MAX || InstalledCount(Tables(), type) == 0)
        return 0;
    ArmThreadCleanup();
    CallFrame frame;
    frame.type = type;
    frame.chain = SnapshotChain(type);
    if (frame.chain.empty())
        return 0;
    FrameScope scope(frame);
    return RunFrom(frame, 0, code, wParam, lParam, messageIsWide);
}

// The position in the frame after which CallNextHookEx continues: after
// hhk when it is part of the running chain, else after the running hook.
size_t PositionOf(const CallFrame &frame, HHOOK hhk)
{
    if (hhk != nullptr) {
        for (size_t i = 0; i < frame.chain.size(); ++i) {
            if (frame.chain[i]->handle == hhk)
                return i;
        }
    }
    return frame.current;
}

BOOL RunMessageFilters(LPMSG lpMsg, int nCode, bool wide)
{
    if (lpMsg == nullptr)
        return FALSE;
    const LPARAM lParam = reinterpret_cast<LPARAM>(lpMsg);
    if (RunChain(WH_SYSMSGFILTER, nCode, 0, lParam, wide) != 0)
        return TRUE;
    return RunChain(WH_MSGFILTER, nCode, 0, lParam, wide) != 0 ? TRUE : FALSE;
}

} // namespace

// dwThreadId 0 installs a process-wide hook; otherwise the hook belongs to
// that thread of the process (ERROR_INVALID_PARAMETER if there is none).
HHOOK WINAPI SetWindowsHookExA(int idHook, HOOKPROC lpfn, HINSTANCE hmod, DWORD dwThreadId)
{
    (void)hmod;
    return InstallHook(idHook, lpfn, dwThreadId, false);
}

HHOOK WINAPI SetWindowsHookExW(int idHook, HOOKPROC lpfn, HINSTANCE hmod, DWORD dwThreadId)
{
    (void)hmod;
    return InstallHook(idHook, lpfn, dwThreadId, true);
}

BOOL WINAPI UnhookWindowsHookEx(HHOOK hhk)
{
    HookTables &tables = Tables();
    std::lock_guard<std::mutex> lock(tables.mutex);
    const auto it = tables.byHandle.find(hhk);
    if (it == tables.byHandle.end()) {
        SetLastError(ERROR_INVALID_HOOK_HANDLE);
        return FALSE;
    }
    const HookPtr hook = it->second;
    RemoveHookLocked(tables, hook);
    return TRUE;
}

// Outside a hook procedure there is no chain to continue, and 0 results.
LRESULT WINAPI CallNextHookEx(HHOOK hhk, int nCode, WPARAM wParam, LPARAM lParam)
{
    if (t_frames.empty())
        return 0;
    CallFrame &frame = *t_frames.back();
    const size_t position = PositionOf(frame, hhk);
    const bool messageIsWide = frame.chain[position]->unicode;
    return RunFrom(frame, position + 1, nCode, wParam, lParam, messageIsWide);
}

LRESULT CallWindowsHook(int type, int code, WPARAM wParam, LPARAM lParam, BOOL wide)
{
    return RunChain(type, code, wParam, lParam, wide != FALSE);
}

// WH_SYSMSGFILTER hooks first; if none of them asks to stop, WH_MSGFILTER.
BOOL WINAPI CallMsgFilterA(LPMSG lpMsg, int nCode)
{
    return RunMessageFilters(lpMsg, nCode, false);
}

BOOL WINAPI CallMsgFilterW(LPMSG lpMsg, int nCode)
{
    return RunMessageFilters(lpMsg, nCode, true);
}
