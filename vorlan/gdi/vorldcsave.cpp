// The save stack of a context.
#include "gdi/vorldc.h"

namespace vorlan {

int CommonDeviceContext::SaveDC()
{
    DCState saved = dcState;
    saved.increaseObjectRef();
    savedStates.push_back(saved);
    return static_cast<int>(savedStates.size());
}

// A negative level counts from the top: -1 is the last saved state.
BOOL CommonDeviceContext::RestoreDC(int level)
{
    const int depth = static_cast<int>(savedStates.size());
    if (level < 0)
        level += depth + 1;
    if (level < 1 || level > depth)
        return FALSE;
    while (level < static_cast<int>(savedStates.size())) {
        savedStates.back().decreaseObjectRef();
        savedStates.pop_back();
    }
    const DCState saved = savedStates.back();
    restoreDCState(saved);
    savedStates.back().decreaseObjectRef();
    savedStates.pop_back();
    return TRUE;
}

void CommonDeviceContext::restoreDCState(const DCState &saved)
{
    HDC hdc = static_cast<HDC>(handle);
    ::SetBkMode(hdc, saved.nBkMode);
    ::SetROP2(hdc, saved.nROP2);

    dcState.xformWorld = saved.xformWorld;
    dcState.xformWorldToDevice = saved.xformWorldToDevice;
    dcState.xformDeviceToWorld = saved.xformDeviceToWorld;
    dcState.ptViewportOrg = saved.ptViewportOrg;
    dcState.szViewportExt = saved.szViewportExt;
    dcState.ptWindowOrg = saved.ptWindowOrg;
    dcState.szWindowExt = saved.szWindowExt;
    ::SetMapMode(hdc, saved.nMapMode);

    ::SetPolyFillMode(hdc, saved.nPolyFillMode);
    ::SetStretchBltMode(hdc, saved.nStretchBltMode);
    ::SetBrushOrgEx(hdc, saved.ptBrushOrg.x, saved.ptBrushOrg.y, nullptr);

    // The bitmap first: a memory context's drawable follows it.
    HGDIOBJ bitmap = saved.hObjects[OBJ_BITMAP];
    if (bitmap != nullptr && bitmap != dcState.hObjects[OBJ_BITMAP])
        ::SelectObject(hdc, bitmap);
    for (int i = 0; i < kDCObjectSlots; ++i) {
        HGDIOBJ object = saved.hObjects[i];
        if (i == OBJ_BITMAP || object == nullptr || object == dcState.hObjects[i])
            continue;
        if (i == OBJ_PAL)
            ::SelectPalette(hdc, static_cast<HPALETTE>(object), saved.bForceBackground);
        else
            ::SelectObject(hdc, object);
    }

    ::SelectClipRgn(hdc, nullptr);
    if (saved.hClipRegion != nullptr)
        ::SelectClipRgn(hdc, saved.hClipRegion);

    ::SetBkColor(hdc, saved.crBkColor);
    ::SetTextColor(hdc, saved.crTextColor);
    ::SetTextAlign(hdc, saved.nTextAlign);
    ::SetLayout(hdc, saved.dwLayout);
    ::SetTextCharacterExtra(hdc, saved.nCharExtra);

    dcState.nBreakExtra = saved.nBreakExtra;
    dcState.ptCurrent = saved.ptCurrent;
}

} // namespace vorlan
