// Selecting and realising palettes in screen contexts.  On a true-colour
// display both do almost nothing: colours are looked up in the selected
// palette at each use, and realising has no colormap cells to fill.
#include "gdi/screen/vorlscreendc.h"
#include "gdi/vorldccall.h"

#include <vector>

using vorlan::LogicalGdiObject;

namespace {

bool HasPaletteCaps(vorlan::DeviceContext *dc)
{
    const int caps = dc->GetDeviceCaps(RASTERCAPS);
    return caps != -1 && (caps & RC_PALETTE) != 0;
}

} // namespace

// A palette keeps the depth of the first screen context that selected it
// as a plain number in its screen slot, and is refused by contexts of any
// other depth.
HPALETTE ScreenContext::SelectPalette(HPALETTE palette, BOOL forceBackground)
{
    if (LogicalGdiObject::FromHandle(palette, OBJ_PAL) == nullptr)
        return nullptr;
    const int depth = GetDeviceCaps(BITSPIXEL);
    const DHANDLE boundDepth = GetPhysicalObject(palette, vorlan::kScreenSlot);
    if (boundDepth == 0)
        SetPhysicalObject(palette, vorlan::kScreenSlot, static_cast<DHANDLE>(depth), nullptr, 0);
    else if (boundDepth != static_cast<DHANDLE>(depth))
        return nullptr;
    HGDIOBJ &slot = dcState.hObjects[OBJ_PAL];
    HGDIOBJ old = slot;
    dcState.bForceBackground = forceBackground;
    if (old != palette) {
        AddRef(palette, vorlan::kSelectRef);
        slot = palette;
        ReleaseRef(old, vorlan::kSelectRef);
    }
    return static_cast<HPALETTE>(old);
}

// Allocates the palette's colours in the system colormap and counts those
// that could be had.  The pixels aren't kept: lookups allocate again.
UINT ScreenContext::RealizePalette()
{
    if (!HasPaletteCaps(this))
        return 0;
    HPALETTE palette = static_cast<HPALETTE>(dcState.hObjects[OBJ_PAL]);
    const UINT count = GetPaletteEntries(palette, 0, 0xFFFF, nullptr);
    if (count == 0)
        return 0;
    std::vector<PALETTEENTRY> entries(count);
    const UINT read = GetPaletteEntries(palette, 0, count, entries.data());
    if (read == 0)
        return 0;
    std::vector<GdkColor> colors(read);
    for (UINT i = 0; i < read; ++i) {
        colors[i].pixel = 0;
        colors[i].red = static_cast<guint16>(entries[i].peRed * 256);
        colors[i].green = static_cast<guint16>(entries[i].peGreen * 256);
        colors[i].blue = static_cast<guint16>(entries[i].peBlue * 256);
    }
    std::vector<gboolean> success(read);
    const gint failed = gdk_colormap_alloc_colors(gdk_colormap_get_system(), colors.data(), static_cast<gint>(read),
                                                  FALSE, TRUE, success.data());
    return read - static_cast<UINT>(failed);
}

// Screen colours are looked up at each use, so there is nothing to redraw.
BOOL ScreenContext::UpdateColors() { return FALSE; }

UINT WINAPI RealizePalette(HDC hdc)
{
    return vorlan::CallOnDC(hdc, GDI_ERROR, [&](vorlan::DeviceContext *dc) { return dc->RealizePalette(); });
}

BOOL WINAPI UpdateColors(HDC hdc)
{
    return vorlan::CallOnDC(hdc, FALSE, [&](vorlan::DeviceContext *dc) {
        return HasPaletteCaps(dc) ? dc->UpdateColors() : FALSE;
    });
}
