// CombineRgn: the result is worked out on a copy of the first source and
// then replaces the destination's region, so the destination may be one of
// the sources.
#include "gdi/vorlgdiobject.h"
#include "gdi/vorlregion.h"
#include "gtk/vorlgtklock.h"
#include "vorlassert.h"

namespace {

bool IsCombineMode(int mode)
{
    return mode >= RGN_AND && mode <= RGN_COPY;
}

void ApplyCombineMode(GdkRegion *result, const GdkRegion *other, int mode)
{
    switch (mode) {
    case RGN_AND:
        gdk_region_intersect(result, other);
        break;
    case RGN_OR:
        gdk_region_union(result, other);
        break;
    case RGN_XOR:
        gdk_region_xor(result, other);
        break;
    case RGN_DIFF:
        gdk_region_subtract(result, other);
        break;
    default: // RGN_COPY: the copy is the result
        break;
    }
}

} // namespace

// The second source is not looked at for RGN_COPY.
int WINAPI CombineRgn(HRGN hrgnDst, HRGN hrgnSrc1, HRGN hrgnSrc2, int iMode)
{
    vorlan::GtkCriticalSection lock;
    if (iMode == RGN_COPY && hrgnDst == hrgnSrc1)
        return checkRegionType(hrgnDst);
    GdkRegion *destination = GetGdkRegion(hrgnDst);
    GdkRegion *source1 = GetGdkRegion(hrgnSrc1);
    GdkRegion *source2 = GetGdkRegion(hrgnSrc2);
    if (destination == nullptr || source1 == nullptr || !IsCombineMode(iMode))
        return ERROR;
    if (iMode != RGN_COPY && source2 == nullptr)
        return ERROR;
    GdkRegion *temp = gdk_region_copy(source1);
    VORLAN_ASSERT("vorlan/gdi/vorlregioncombine", temp);
    ApplyCombineMode(temp, source2, iMode);
    vorlan::ReplaceGdkRegion(hrgnDst, temp);
    return checkRegionType(hrgnDst);
}
