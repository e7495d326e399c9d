// Copies of regions that a context keeps.  Everything goes through the
// region module, so the area of a region object is always a GdkRegion
// owned by the object.
#include "gdi/vorldc.h"
#include "gdi/vorlregion.h"

namespace vorlan {

BOOL CopyRegionArea(HRGN dest, HRGN source)
{
    GdkRegion *sourceRegion = GetGdkRegion(source);
    if (sourceRegion == nullptr || GetGdkRegion(dest) == nullptr)
        return FALSE;
    if (dest == source)
        return TRUE;
    return ReplaceGdkRegion(dest, gdk_region_copy(sourceRegion));
}

BOOL ReplaceRegionArea(HRGN dest, GdkRegion *area) { return ReplaceGdkRegion(dest, area); }

HRGN CopyRegionObject(HRGN region) { return createRgn(GetGdkRegion(region)); }

} // namespace vorlan
