// What of a context can be drawn on: its clip box and the visibility of a
// rectangle, both asked in logical coordinates, and the cut of a device
// rectangle to the visible area.
#include "gdi/vorldc.h"
#include "gdi/vorlregion.h"
#include "gtk/vorlwindow.h"

namespace vorlan {

namespace {

// An empty region object for GetVisibleRgn to fill, deleted with the scope.
class VisibleArea {
public:
    explicit VisibleArea(CommonDeviceContext *context)
        : m_region(CreateRectRgn(0, 0, 0, 0)), m_type(m_region != nullptr ? context->GetVisibleRgn(m_region) : ERROR)
    {
    }
    ~VisibleArea()
    {
        if (m_region != nullptr)
            DeleteObject(m_region);
    }
    VisibleArea(const VisibleArea &) = delete;
    VisibleArea &operator=(const VisibleArea &) = delete;

    HRGN region() const { return m_region; }
    int type() const { return m_type; }
    RECT box() const
    {
        RECT rc = {};
        GetRgnBox(m_region, &rc);
        return rc;
    }

private:
    HRGN m_region;
    int m_type;
};

bool FullyObscured(HWND window)
{
    return window != nullptr && (GetWindowLongW(window, GWL_VORLFLAGS) & WF_OBSCURED) != 0;
}

} // namespace

// Any visible area is reported as COMPLEXREGION, a single rectangle too.
int CommonDeviceContext::GetClipBox(LPRECT rect)
{
    if (rect == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return ERROR;
    }
    SetRectEmpty(rect);
    VisibleArea visible(this);
    if (visible.type() <= NULLREGION)
        return visible.type();
    *rect = visible.box();
    DPtoLP(reinterpret_cast<LPPOINT>(rect), 2);
    return COMPLEXREGION;
}

// The caller's rectangle is read only; its device image is normalised
// before the test, so flipped mappings work.
BOOL CommonDeviceContext::RectVisible(const RECT *rect)
{
    if (rect == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    if (FullyObscured(WindowFromDC()))
        return FALSE;
    VisibleArea visible(this);
    if (visible.type() < SIMPLEREGION)
        return FALSE;
    RECT device = *rect;
    if (!LPtoDP(reinterpret_cast<LPPOINT>(&device), 2))
        return FALSE;
    NormalizeRect(device);
    return RectInRegion(visible.region(), &device);
}

BOOL CommonDeviceContext::ClipDevRect(RECT *rect)
{
    if (rect == nullptr)
        return FALSE;
    VisibleArea visible(this);
    switch (visible.type()) {
    case ERROR:
        return FALSE;
    case NULLREGION:
        SetRectEmpty(rect);
        return TRUE;
    case SIMPLEREGION: {
        NormalizeRect(*rect);
        const RECT box = visible.box();
        IntersectRect(rect, rect, &box);
        return TRUE;
    }
    default: {
        NormalizeRect(*rect);
        const GdkRectangle wanted = {rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top};
        GdkRegion *overlap = gdk_region_rectangle(&wanted);
        gdk_region_intersect(overlap, GetGdkRegion(visible.region()));
        GdkRectangle box;
        gdk_region_get_clipbox(overlap, &box);
        gdk_region_destroy(overlap);
        SetRect(rect, box.x, box.y, box.x + box.width, box.y + box.height);
        return TRUE;
    }
    }
}

} // namespace vorlan
