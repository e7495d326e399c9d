// The state of one scroll bar: a window's frame bars (two records in one
// block, reached through the private window longs) and the scroll bar
// control share it.
#ifndef VORLAN_VORLSCROLLBARINFO_H
#define VORLAN_VORLSCROLLBARINFO_H

#include <windows.h>

struct ScrollBarInfo {
    int nMin;            // range start
    int nMax;            // range end
    UINT nPage;          // page size, at most nMax - nMin + 1
    int nPos;            // position
    double dTrackPos;    // position during thumb tracking
    UINT uFlags;         // kScrollBarVertical, kScrollBarDisabled
    int nHoverPart;      // part under the mouse
    int nPressedPart;    // part being pressed
    BOOL bFlat;          // set by InitializeFlatSB
    UINT uFlatMask;      // which flat properties were set
    int nFlatCx;
    int nFlatCy;
    int nFlatThumb;
    COLORREF crFlatBack; // background of the flat form
    HPALETTE hFlatPalette;
    int nFlatStyle;      // stored only
};

constexpr UINT kScrollBarVertical = 0x1;
constexpr UINT kScrollBarDisabled = 0x8000;

#endif // VORLAN_VORLSCROLLBARINFO_H
