// The attribute set of a context and the references a saved copy holds.
#include "gdi/vorldc.h"

namespace vorlan {

namespace {

constexpr XFORM kIdentity = {1.0f, 0.0f, 0.0f, 1.0f, 0.0f, 0.0f};

} // namespace

DCState::DCState()
    : nBkMode(OPAQUE), nROP2(R2_COPYPEN), nMapMode(MM_TEXT), xformWorld(kIdentity), xformWorldToDevice(kIdentity),
      xformDeviceToWorld(kIdentity), ptViewportOrg{0, 0}, szViewportExt{1, 1}, ptWindowOrg{0, 0},
      szWindowExt{1, 1}, nPolyFillMode(ALTERNATE), nStretchBltMode(BLACKONWHITE), bForceBackground(TRUE),
      ptBrushOrg{0, 0}, hObjects(), hClipRegion(nullptr), crBkColor(0xFFFFFF), crTextColor(0), nTextAlign(0),
      dwLayout(0), nBreakExtra(0), nCharExtra(0), ptCurrent{0, 0}
{
}

void DCState::increaseObjectRef()
{
    for (HGDIOBJ object : hObjects) {
        if (object != nullptr)
            AddRef(object, kSavedRef);
    }
    if (hClipRegion != nullptr)
        hClipRegion = CopyRegionObject(hClipRegion);
}

void DCState::decreaseObjectRef()
{
    for (HGDIOBJ object : hObjects) {
        if (object != nullptr)
            ReleaseRef(object, kSavedRef);
    }
    if (hClipRegion != nullptr) {
        DeleteObject(hClipRegion);
        hClipRegion = nullptr;
    }
}

} // namespace vorlan
