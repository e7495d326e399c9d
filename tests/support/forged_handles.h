// Handle values for the bad-handle sweeps of the GDI tests: a live
// object's index under another type tag, and a table index nobody uses.
#ifndef VORLAN_TESTS_GDI_FORGED_HANDLES_H
#define VORLAN_TESTS_GDI_FORGED_HANDLES_H

#include "gdi/vorlgdiobject.h"
#include "gtk/vorlgtklock.h"

#include <string>
#include <vector>

namespace gdi_test {

template <typename Handle> Handle Forge(ULONG_PTR value)
{
    return reinterpret_cast<Handle>(value);
}

// The handle value of `h` with its OBJ_ tag replaced.
inline ULONG_PTR WithTag(const void *h, ULONG_PTR tag)
{
    return (reinterpret_cast<ULONG_PTR>(h) & ~0x7F0000ul) | (tag << 16);
}

// The highest free index of the GDI table, or 0.
inline unsigned FreeIndex()
{
    vorlan::GtkCriticalSection lock;
    for (unsigned i = vorlan::kGdiTableSize - 1; i > 0; --i) {
        if (vorlan::GdiObject::gdiTable[i] == nullptr)
            return i;
    }
    return 0;
}

// A bad handle of a sweep and what it is, for the failure messages.
template <typename Handle> struct NamedHandle {
    std::string what;
    Handle handle;
};

// Values made from the live `h` that name no object: pushed out of the
// table's range, under tags nothing has, all ones, and a free slot under
// `tag`.
template <typename Handle> std::vector<NamedHandle<Handle>> ForgeriesOf(const void *h, UINT tag)
{
    const ULONG_PTR value = reinterpret_cast<ULONG_PTR>(h);
    return {
        {"top byte 0x71", Forge<Handle>(value + 0x01000000)},
        {"bits above 32", Forge<Handle>(value | (ULONG_PTR(1) << 32))},
        {"tag 0", Forge<Handle>(WithTag(h, 0))},
        {"tag 127", Forge<Handle>(WithTag(h, 127))},
        {"all ones", Forge<Handle>(~ULONG_PTR(0))},
        {"free slot under its tag", static_cast<Handle>(vorlan::MakeGdiHandle(tag, FreeIndex()))},
    };
}

template <typename Handle>
void Append(std::vector<NamedHandle<Handle>> &handles, const std::vector<NamedHandle<Handle>> &more)
{
    handles.insert(handles.end(), more.begin(), more.end());
}

} // namespace gdi_test

#endif // VORLAN_TESTS_GDI_FORGED_HANDLES_H
