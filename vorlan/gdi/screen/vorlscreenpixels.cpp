// Pixels and pattern blits of the screen context.
#include "gdi/screen/vorlscreendc.h"

namespace {

constexpr DWORD kPatAnd = 0xA000C9; // pattern AND destination

COLORREF ColorOf(const GdkColor &color)
{
    return RGB(color.red >> 8, color.green >> 8, color.blue >> 8);
}

} // namespace

bool ScreenContext::pointInClipBox(int x, int y)
{
    if (drawable == nullptr)
        return false;
    RECT box = {};
    const POINT logical = {x, y};
    if (GetClipBox(&box) != ERROR)
        return PtInRect(&box, logical) != FALSE;
    // No clip box to be had: the drawable's own area decides.
    POINT device = logical;
    LPtoDP(&device, 1);
    GetDrawableRect(&box);
    return PtInRect(&box, device) != FALSE;
}

COLORREF ScreenContext::SetPixel(int x, int y, COLORREF color)
{
    if (!pointInClipBox(x, y) || gc == nullptr)
        return CLR_INVALID;
    POINT point = {x, y};
    LogicalToRealDevice(&point, 1);
    if (gdk_drawable_get_depth(drawable) == 1) {
        const GdkColor pixel = GetGdkColor(color);
        gdk_gc_set_foreground(gc, &pixel);
        gdk_draw_point(drawable, gc, point.x, point.y);
        return pixel.pixel != 0 ? RGB(255, 255, 255) : RGB(0, 0, 0);
    }
    const GdkColor nearest = GetGdkColor(color);
    guchar rgb[4] = {static_cast<guchar>(nearest.red >> 8), static_cast<guchar>(nearest.green >> 8),
                     static_cast<guchar>(nearest.blue >> 8), 0};
    gdk_draw_rgb_32_image(drawable, gc, point.x, point.y, 1, 1, GDK_RGB_DITHER_NONE, rgb, 4);
    return RGB(rgb[0], rgb[1], rgb[2]);
}

COLORREF ScreenContext::GetPixel(int x, int y)
{
    if (!pointInClipBox(x, y))
        return CLR_INVALID;
    POINT point = {x, y};
    LogicalToRealDevice(&point, 1);
    gdk_error_trap_push();
    GdkImage *image = gdk_drawable_get_image(drawable, point.x, point.y, 1, 1);
    gdk_error_trap_pop();
    if (image == nullptr)
        return CLR_INVALID;
    const guint32 pixel = gdk_image_get_pixel(image, 0, 0);
    COLORREF result = CLR_INVALID;
    if (image->depth == 1) {
        result = pixel != 0 ? RGB(255, 255, 255) : RGB(0, 0, 0);
    } else {
        GdkColormap *map = gdk_image_get_colormap(image);
        if (map == nullptr)
            map = gdk_colormap_get_system();
        GdkColor color = {};
        gdk_colormap_query_color(map, pixel, &color);
        result = ColorOf(color);
    }
    g_object_unref(image);
    return result;
}

// Every blit fills the rectangle; what differs is what the GC paints with,
// which is put back afterwards.
BOOL ScreenContext::PatBlt(int x, int y, int w, int h, DWORD rop)
{
    if (gc == nullptr)
        return TRUE;
    RECT rc = {x, y, x + w, y + h};
    LogicalToRealDevice(&rc);
    vorlan::NormalizeRect(rc);
    GdkGCValues saved;
    gdk_gc_get_values(gc, &saved);
    auto mask = static_cast<GdkGCValuesMask>(0);
    bool draw = true;
    switch (rop) {
    case PATCOPY:
        mask = static_cast<GdkGCValuesMask>(GDK_GC_FOREGROUND | GDK_GC_FILL);
        draw = ApplyObject(OBJ_BRUSH) != 0;
        break;
    case PATINVERT:
    case kPatAnd:
        mask = static_cast<GdkGCValuesMask>(GDK_GC_FOREGROUND | GDK_GC_FILL | GDK_GC_FUNCTION);
        draw = ApplyObject(OBJ_BRUSH) != 0;
        gdk_gc_set_function(gc, rop == PATINVERT ? GDK_XOR : GDK_AND);
        break;
    case DSTINVERT:
        mask = GDK_GC_FUNCTION;
        gdk_gc_set_function(gc, GDK_INVERT);
        break;
    case BLACKNESS:
    case WHITENESS: {
        // A tile left by a pattern brush would paint instead of the colour.
        mask = static_cast<GdkGCValuesMask>(GDK_GC_FOREGROUND | GDK_GC_FILL);
        const GdkColor colour = GetGdkColor(rop == BLACKNESS ? RGB(0, 0, 0) : RGB(255, 255, 255));
        gdk_gc_set_foreground(gc, &colour);
        gdk_gc_set_fill(gc, GDK_SOLID);
        break;
    }
    default:
        return TRUE;
    }
    if (draw)
        gdk_draw_rectangle(drawable, gc, TRUE, rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top);
    gdk_gc_set_values(gc, &saved, mask);
    return TRUE;
}
