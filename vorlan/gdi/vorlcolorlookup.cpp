// Colour lookup of screen contexts.  A colour value is read by its top
// byte: 0x01 picks an entry of the selected palette by the index in its low
// 16 bits, 0x02 asks for the palette entry nearest to its RGB part (on
// displays with a palette), and anything else is plain RGB with red in the
// low byte.
#include "gdi/vorlcolorlookup.h"

#include "gdi/screen/vorlscreendc.h"
#include "gdi/vorldccall.h"

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
