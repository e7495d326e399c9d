// Contexts for the device context tests, deleted at the end of the scope.
#ifndef VORLAN_TESTS_GDI_DC_TEST_HELPERS_H
#define VORLAN_TESTS_GDI_DC_TEST_HELPERS_H

#include <gtest/gtest.h>
#include <windows.h>

#include "gdi/vorldc.h"
#include "gtk/vorlgtklock.h"

namespace vorlan_test {

// A handle deleted with the scope: a context with DeleteDC, any other
// object with DeleteObject.
template <typename Handle> class Scoped {
public:
    explicit Scoped(Handle handle) : m_handle(handle) {}
    ~Scoped()
    {
        if (m_handle != nullptr)
            Release(m_handle);
    }
    Scoped(const Scoped &) = delete;
    Scoped &operator=(const Scoped &) = delete;

    Handle get() const { return m_handle; }
    operator Handle() const { return m_handle; }

private:
    static void Release(HDC hdc) { DeleteDC(hdc); }
    static void Release(HGDIOBJ object) { DeleteObject(object); }

    Handle m_handle;
};

// A memory context like the screen's.
class MemoryDC : public Scoped<HDC> {
public:
    MemoryDC() : Scoped(CreateCompatibleDC(nullptr)) {}
};

// The state of a context as the library holds it, for what no export reads
// (the extents and the transforms).
inline vorlan::DCState StateOf(HDC hdc)
{
    vorlan::GtkCriticalSection lock;
    const vorlan::CommonDeviceContext *context = vorlan::GetCommonDeviceContext(hdc);
    return context != nullptr ? context->state() : vorlan::DCState();
}

// The bounding box of a region object, read from its GdkRegion.
inline RECT RegionBox(HRGN region)
{
    vorlan::GtkCriticalSection lock;
    GdkRegion *area = GetGdkRegion(region);
    if (area == nullptr)
        return RECT{-1, -1, -1, -1};
    GdkRectangle box;
    gdk_region_get_clipbox(area, &box);
    return RECT{box.x, box.y, box.x + box.width, box.y + box.height};
}

// The type of a handle as the table sees it: 0 once the object is gone.
inline DWORD LiveType(HGDIOBJ h)
{
    return GetObjectType(h);
}

inline ::testing::AssertionResult RectIs(const RECT &rc, LONG l, LONG t, LONG r, LONG b)
{
    if (rc.left == l && rc.top == t && rc.right == r && rc.bottom == b)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << "got (" << rc.left << ", " << rc.top << ", " << rc.right << ", " << rc.bottom << "), want (" << l
           << ", " << t << ", " << r << ", " << b << ")";
}

} // namespace vorlan_test

#endif // VORLAN_TESTS_GDI_DC_TEST_HELPERS_H
