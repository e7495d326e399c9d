// Handle values for the bad-handle sweeps of the GDI tests: a live
// object's index under another type tag, and a table index nobody uses.
#ifndef VORLAN_TESTS_GDI_FORGED_HANDLES_H
#define VORLAN_TESTS_GDI_FORGED_HANDLES_H

#include "gdi/vorlgdiobject.h"
#include "gtk/vorlgtklock.h"

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

} // namespace gdi_test

#endif // VORLAN_TESTS_GDI_FORGED_HANDLES_H
