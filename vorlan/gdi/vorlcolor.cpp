// Palettes and colours: how a colour value becomes a colour of a GDK
// colormap, palette objects, selection and realisation, and the system
// palette.
#include "gdi/screen/vorlscreendc.h"
#include "gdi/vorlcolor.h"
#include "gdi/vorldc.h"
#include "vorlassert.h"
#include "gdi/vorlgdiobject.h"
#include "gtk/vorlgtklock.h"

#include <cstdlib>
#include <cstring>
#include <vector>

// ----------------------------------------------------------------------------
// Colour lookup of screen contexts.  A colour value is read by its top
// byte: 0x01 picks an entry of the selected palette by the index in its low
// 16 bits, 0x02 asks for the palette entry nearest to its RGB part (on
// displays with a palette), and anything else is plain RGB with red in the
// low byte.

namespace {

constexpr BYTE kPaletteIndexTag = 0x01;
constexpr BYTE kPaletteRgbTag = 0x02;

BYTE ColorTag(COLORREF color) { return static_cast<BYTE>(color >> 24); }

// Depth-1 pixmaps have no colormap: a colour becomes the nearer of black
// and white by its luminance, with the pixel value a mono pixmap stores.
GdkColor MonoColor(COLORREF color)
{
    const int luminance = (GetBValue(color) * 114 + GetGValue(color) * 587 + GetRValue(color) * 299) / 1000;
    const bool white = luminance >= 128;
    GdkColor result;
    vorlan::getGdkColor(&result, white ? RGB(255, 255, 255) : RGB(0, 0, 0), gdk_colormap_get_system());
    result.pixel = white ? 1 : 0;
    return result;
}

COLORREF ColorRefOf(const GdkColor &color)
{
    return RGB(color.red >> 8, color.green >> 8, color.blue >> 8);
}

} // namespace

namespace vorlan {

void getGdkColor(GdkColor *out, COLORREF color, GdkColormap *colormap)
{
    *out = GdkColor();
    out->red = static_cast<guint16>(GetRValue(color) << 8);
    out->green = static_cast<guint16>(GetGValue(color) << 8);
    out->blue = static_cast<guint16>(GetBValue(color) << 8);
    gdk_colormap_alloc_color(colormap, out, FALSE, TRUE);
    gdk_colormap_query_color(colormap, out->pixel, out);
}

} // namespace vorlan

// The selected bitmap decides for a memory context: a depth-1 pixmap has no
// colormap.
bool ScreenContext::targetIsMono()
{
    return drawable != nullptr && gdk_drawable_get_colormap(drawable) == nullptr &&
           gdk_drawable_get_depth(drawable) == 1;
}

GdkColor ScreenContext::GetGdkColor(COLORREF color)
{
    const int caps = GetDeviceCaps(RASTERCAPS);
    const bool paletteDevice = caps != -1 && (caps & RC_PALETTE) != 0;
    HPALETTE palette = static_cast<HPALETTE>(dcState.hObjects[OBJ_PAL]);
    if (ColorTag(color) == kPaletteRgbTag) {
        color &= 0xFFFFFF;
        if (paletteDevice)
            color = 0x01000000 | (GetNearestPaletteIndex(palette, color) & 0xFFFF);
    }
    if (ColorTag(color) == kPaletteIndexTag) {
        PALETTEENTRY entry = {};
        if (GetPaletteEntries(palette, color & 0xFFFF, 1, &entry) == 0) {
            // An index past the palette's end is black.
            GdkColor black;
            vorlan::getGdkColor(&black, RGB(0, 0, 0), gdk_colormap_get_system());
            return black;
        }
        color = RGB(entry.peRed, entry.peGreen, entry.peBlue);
    }
    if (targetIsMono())
        return MonoColor(color);
    GdkColormap *target = drawable != nullptr ? gdk_drawable_get_colormap(drawable) : nullptr;
    // A pixmap of a depth other than the screen's has no colormap either;
    // the context's own stands in.
    GdkColor result;
    vorlan::getGdkColor(&result, color, target != nullptr ? target : colormap);
    return result;
}

COLORREF ScreenContext::GetNearestColor(COLORREF color)
{
    const GdkColor device = GetGdkColor(color);
    if (targetIsMono())
        return ColorRefOf(device);
    GdkColor shown = {};
    gdk_colormap_query_color(gdk_colormap_get_system(), device.pixel, &shown);
    return ColorRefOf(shown);
}

COLORREF WINAPI GetNearestColor(HDC hdc, COLORREF color)
{
    return vorlan::CallOnDC(hdc, CLR_INVALID,
                            [&](vorlan::DeviceContext *dc) { return dc->GetNearestColor(color); });
}

// ----------------------------------------------------------------------------
// Logical palettes.  The entries run on past the object's record, in as
// many extra bytes as the palette needs.

using vorlan::LogicalGdiObject;

namespace {

constexpr UINT kMaxPaletteEntries = 1024;

int ColorDistance(const PALETTEENTRY &entry, COLORREF color)
{
    return std::abs(entry.peRed - GetRValue(color)) + std::abs(entry.peGreen - GetGValue(color)) +
           std::abs(entry.peBlue - GetBValue(color));
}

} // namespace

HPALETTE WINAPI CreatePalette(const LOGPALETTE *plpal)
{
    if (plpal == nullptr || plpal->palNumEntries == 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const UINT count = plpal->palNumEntries < kMaxPaletteEntries ? plpal->palNumEntries : kMaxPaletteEntries;
    vorlan::GtkCriticalSection lock;
    LogicalGdiObject *object = LogicalGdiObject::Create(OBJ_PAL, count * sizeof(PALETTEENTRY) - sizeof(PALETTEENTRY));
    if (object == nullptr) {
        SetLastError(0);
        return nullptr;
    }
    object->record.palette.palVersion = plpal->palVersion;
    object->record.palette.palNumEntries = static_cast<WORD>(count);
    std::memcpy(object->paletteEntries(), plpal->palPalEntry, count * sizeof(PALETTEENTRY));
    return static_cast<HPALETTE>(object->handle);
}

// The first exact match, else the first of the nearest entries by the sum
// of the channel differences.
UINT WINAPI GetNearestPaletteIndex(HPALETTE h, COLORREF color)
{
    vorlan::GtkCriticalSection lock;
    LogicalGdiObject *object = LogicalGdiObject::FromHandle(h, OBJ_PAL);
    if (object == nullptr)
        return 0;
    const PALETTEENTRY *entries = object->paletteEntries();
    int best = 0x30000;
    UINT bestIndex = static_cast<UINT>(-1);
    for (UINT i = 0; i < object->record.palette.palNumEntries; ++i) {
        const int distance = ColorDistance(entries[i], color);
        if (distance == 0)
            return i;
        if (distance < best) {
            best = distance;
            bestIndex = i;
        }
    }
    return bestIndex;
}

// A null output asks for the number of entries.
UINT WINAPI GetPaletteEntries(HPALETTE hpal, UINT iStart, UINT cEntries, LPPALETTEENTRY pPalEntries)
{
    if (cEntries == 0)
        return 0;
    vorlan::GtkCriticalSection lock;
    LogicalGdiObject *object = LogicalGdiObject::FromHandle(hpal, OBJ_PAL);
    if (object == nullptr)
        return 0;
    const UINT count = object->record.palette.palNumEntries;
    if (pPalEntries == nullptr)
        return count;
    if (iStart >= count)
        return 0;
    const UINT copied = cEntries < count - iStart ? cEntries : count - iStart;
    std::memcpy(pPalEntries, object->paletteEntries() + iStart, copied * sizeof(PALETTEENTRY));
    return copied;
}

// ----------------------------------------------------------------------------
// Selecting and realising palettes in screen contexts.  On a true-colour
// display both do almost nothing: colours are looked up in the selected
// palette at each use, and realising has no colormap cells to fill.

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

// ----------------------------------------------------------------------------
// The system palette as the screen shows it: only displays with a palette
// have one, and its entries are reported as zeros.

// A count of 0 asks for the whole colormap; a null output only counts.
UINT vorlan::CommonDeviceContext::GetSystemPaletteEntries(UINT start, UINT count, LPPALETTEENTRY entries)
{
    GdkColormap *system = gdk_colormap_get_system();
    const UINT size = static_cast<UINT>(system->size);
    if (system->colors == nullptr || start >= size)
        return 0;
    if (count == 0 || count > size - start)
        count = size - start;
    if (entries != nullptr)
        std::memset(entries, 0, count * sizeof(PALETTEENTRY));
    return count;
}

UINT WINAPI GetSystemPaletteEntries(HDC hdc, UINT iStart, UINT cEntries, LPPALETTEENTRY pPalEntries)
{
    return vorlan::CallOnDC(hdc, 0U, [&](vorlan::DeviceContext *dc) {
        return HasPaletteCaps(dc) ? dc->GetSystemPaletteEntries(iStart, cEntries, pPalEntries) : 0U;
    });
}

UINT WINAPI GetSystemPaletteUse(HDC hdc)
{
    return vorlan::CallOnDC(hdc, 0U, [&](vorlan::DeviceContext *dc) {
        return HasPaletteCaps(dc) ? UINT(SYSPAL_NOSTATIC) : 0U;
    });
}

// The shapes and colour updates every concrete context must draw itself.

namespace vorlan {

BOOL CommonDeviceContext::UpdateColors()
{
    VORLAN_FAIL("false");
}

} // namespace vorlan
