// Painting a region with a brush.  The region becomes the clip for the
// length of the call and the brush fills its box through the context's own
// Rectangle operation under a null pen, so each kind of context paints
// regions the way it paints rectangles.
#include "gdi/vorldc.h"
#include "gdi/vorlregion.h"
#include "gtk/vorlgtklock.h"

namespace {

// The clip a context had before the call, put back at the end.
class SavedClip {
public:
    explicit SavedClip(HDC hdc) : m_hdc(hdc), m_region(CreateRectRgn(0, 0, 0, 0))
    {
        if (m_region != nullptr && GetClipRgn(hdc, m_region) != 1) {
            DeleteObject(m_region);
            m_region = nullptr;
        }
    }
    ~SavedClip()
    {
        SelectClipRgn(m_hdc, m_region);
        if (m_region != nullptr)
            DeleteObject(m_region);
    }
    SavedClip(const SavedClip &) = delete;
    SavedClip &operator=(const SavedClip &) = delete;

    HRGN region() const { return m_region; }

private:
    HDC m_hdc;
    HRGN m_region;
};

// The region where the brush may paint, in device units: the region moved
// by the image of the logical origin, cut by the present clip.  Null when
// that leaves nothing.
HRGN PaintArea(HDC hdc, HRGN hrgn, const SavedClip &clip)
{
    POINT origin = {0, 0};
    if (!LPtoDP(hdc, &origin, 1))
        return nullptr;
    HRGN area = vorlan::createRgn(GetGdkRegion(hrgn));
    if (area == nullptr)
        return nullptr;
    OffsetRgn(area, origin.x, origin.y);
    if (clip.region() != nullptr && CombineRgn(area, area, clip.region(), RGN_AND) < SIMPLEREGION) {
        DeleteObject(area);
        return nullptr;
    }
    return area;
}

// The context's own Rectangle, under the lock the caller holds.
void FillBox(HDC hdc, HBRUSH hbr, const RECT &box)
{
    if (GetObjectType(hbr) != OBJ_BRUSH)
        return;
    HPEN nullPen = CreatePen(PS_NULL, 0, 0);
    HGDIOBJ oldPen = SelectObject(hdc, nullPen);
    HGDIOBJ oldBrush = SelectObject(hdc, hbr);
    if (oldBrush != nullptr) {
        vorlan::GetDeviceContext(hdc)->Rectangle(box.left, box.top, box.right + 1, box.bottom + 1);
        SelectObject(hdc, oldBrush);
    }
    if (oldPen != nullptr)
        SelectObject(hdc, oldPen);
    DeleteObject(nullPen);
}

} // namespace

BOOL WINAPI FillRgn(HDC hdc, HRGN hrgn, HBRUSH hbr)
{
    vorlan::GtkCriticalSection lock;
    if (!vorlan::IsValidHDC(hdc))
        return FALSE;
    RECT box = {};
    GetRgnBox(hrgn, &box);
    if (IsRectEmpty(&box))
        return FALSE;
    SavedClip clip(hdc);
    HRGN area = PaintArea(hdc, hrgn, clip);
    if (area == nullptr)
        return FALSE;
    SelectClipRgn(hdc, area);
    if (hbr != nullptr)
        FillBox(hdc, hbr, box);
    DeleteObject(area);
    return TRUE;
}

// The frame is what shrinking the region by |w| and |h| takes away.
BOOL WINAPI FrameRgn(HDC hdc, HRGN hrgn, HBRUSH hbr, int w, int h)
{
    vorlan::GtkCriticalSection lock;
    if (!vorlan::IsValidHDC(hdc))
        return FALSE;
    GdkRegion *region = GetGdkRegion(hrgn);
    if (region == nullptr || gdk_region_empty(region))
        return FALSE;
    GdkRegion *inner = gdk_region_copy(region);
    gdk_region_shrink(inner, w < 0 ? -w : w, h < 0 ? -h : h);
    GdkRegion *frame = gdk_region_copy(region);
    gdk_region_subtract(frame, inner);
    gdk_region_destroy(inner);
    HRGN frameRegion = vorlan::AdoptGdkRegion(frame);
    if (frameRegion == nullptr)
        return FALSE;
    FillRgn(hdc, frameRegion, hbr);
    DeleteObject(frameRegion);
    return TRUE;
}

// Neither is provided on any context.
BOOL WINAPI PaintRgn(HDC, HRGN)
{
    vorlan::GtkCriticalSection lock;
    return FALSE;
}

BOOL WINAPI InvertRgn(HDC, HRGN)
{
    vorlan::GtkCriticalSection lock;
    return FALSE;
}
