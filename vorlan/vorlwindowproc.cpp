// The window procedure table: allocation and sharing of ids, lookups.
#include "vorlwindowproc.h"

#include "vorlassert.h"

#include <glib.h>

WndProcEntry g_arrWndProcs[kMaxWndProcs];
std::atomic<UINT> g_nWndProcCount{0};
std::mutex g_wndProcMutex;

namespace {

// The default procedure always comes as a pair.
void CompleteDefaultPair(WNDPROC *pWndProcA, WNDPROC *pWndProcW)
{
    if (*pWndProcA == DefWindowProcA && *pWndProcW == nullptr)
        *pWndProcW = DefWindowProcW;
    else if (*pWndProcW == DefWindowProcW && *pWndProcA == nullptr)
        *pWndProcA = DefWindowProcA;
}

// An entry serves the request when the given side agrees and the other
// side was not asked for or agrees too.
bool EntryMatches(const WndProcEntry &entry, WNDPROC pWndProcA, WNDPROC pWndProcW)
{
    if (entry.pWndProcA == pWndProcA)
        return entry.pWndProcW == pWndProcW || pWndProcW == nullptr;
    return entry.pWndProcW == pWndProcW && pWndProcA == nullptr;
}

// The caller holds g_wndProcMutex.
UINT FindEntry(WNDPROC pWndProcA, WNDPROC pWndProcW, UINT count)
{
    for (UINT i = 0; i < count; ++i) {
        if (EntryMatches(g_arrWndProcs[i], pWndProcA, pWndProcW))
            return i + 1;
    }
    return 0;
}

// The caller holds g_wndProcMutex.
UINT AppendEntry(WNDPROC pWndProcA, WNDPROC pWndProcW, UINT count)
{
    if (count >= kMaxWndProcs)
        return 0;
    g_arrWndProcs[count] = {pWndProcA, pWndProcW};
    g_nWndProcCount.store(count + 1, std::memory_order_release);
    return count + 1;
}

} // namespace

UINT AllocWndProcId(WNDPROC pWndProcA, WNDPROC pWndProcW)
{
    if (pWndProcA == nullptr && pWndProcW == nullptr)
        g_assertion_message_expr(nullptr, "vorlan/vorlwindowproc", __LINE__, G_STRFUNC,
                                 "pWndProcA != __null || pWndProcW != __null");
    CompleteDefaultPair(&pWndProcA, &pWndProcW);
    std::lock_guard<std::mutex> guard(g_wndProcMutex);
    const UINT count = g_nWndProcCount.load(std::memory_order_relaxed);
    const UINT id = FindEntry(pWndProcA, pWndProcW, count);
    return id != 0 ? id : AppendEntry(pWndProcA, pWndProcW, count);
}

BOOL IsWndProcId(LONG_PTR value)
{
    return static_cast<ULONG_PTR>(value) - 1 < g_nWndProcCount.load(std::memory_order_acquire);
}

BOOL GetRealWndProc(UINT id, WNDPROC *pWndProcA, WNDPROC *pWndProcW)
{
    if (!IsWndProcId(id))
        return FALSE;
    const WndProcEntry &entry = g_arrWndProcs[id - 1];
    if (pWndProcA != nullptr)
        *pWndProcA = entry.pWndProcA;
    if (pWndProcW != nullptr)
        *pWndProcW = entry.pWndProcW;
    return TRUE;
}

LONG_PTR GetWndProc(UINT nIdWndProc, BOOL wide)
{
    VORLAN_ASSERT("vorlan/vorlwindowproc", (nIdWndProc - 1) < g_nWndProcCount);
    const WndProcEntry &entry = g_arrWndProcs[nIdWndProc - 1];
    WNDPROC side = wide ? entry.pWndProcW : entry.pWndProcA;
    return side != nullptr ? reinterpret_cast<LONG_PTR>(side) : static_cast<LONG_PTR>(nIdWndProc);
}
