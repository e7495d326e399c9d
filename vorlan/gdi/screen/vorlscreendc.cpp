// Screen contexts: construction, the device's answers, objects on GDK, and
// the mapping and clipping peculiar to window DCs.
#include "gdi/screen/vorlscreendc.h"

#include "gdi/vorlregion.h"
#include "gtk/vorlgtklock.h"
#include "vorlassert.h"

#include <cstdio>
#include <cstdlib>
#include <vector>

using vorlan::CommonDeviceContext;
using vorlan::LogicalGdiObject;

namespace {

void UnrefPixmap(DHANDLE pixmap)
{
    g_object_unref(reinterpret_cast<GdkPixmap *>(pixmap));
}

// Colour of a bitmap whose pixels were never set.
constexpr COLORREF kUninitialisedBitmapColor = 0x000042;

} // namespace

ScreenContext::ScreenContext(HWND window, DWORD flags, GdkDrawable *target, const RECT *rect)
    : CommonDeviceContext(OBJ_DC), gc(nullptr), drawable(target), outputBounds(), colormap(nullptr), hwnd(window),
      dwFlags(flags)
{
    VORLAN_ASSERT(target != 0);
    if (rect != nullptr)
        outputBounds = *rect;
    colormap = gdk_drawable_get_colormap(drawable);
    if (colormap == nullptr) {
        std::printf("%s %d Error gdk_drawable_get_colormap returns NULL, use system colormap instead\n",
                    VORLAN_SOURCE, __LINE__);
        colormap = gdk_colormap_get_system();
    }
    g_object_ref(colormap);
    gc = gdk_gc_new(drawable);
    gdk_gc_set_exposures(gc, TRUE);
    if (!(dwFlags & DCX_CLIPCHILDREN) || (dwFlags & DCX_WINDOW))
        gdk_gc_set_subwindow(gc, GDK_INCLUDE_INFERIORS);
    GdkRectangle bounds = {outputBounds.left, outputBounds.top, outputBounds.right - outputBounds.left,
                           outputBounds.bottom - outputBounds.top};
    gdk_gc_set_clip_rectangle(gc, &bounds);
    setGCColors();
    createPangoContext();
    gdk_pango_context_set_colormap(pangoContext, colormap);
    // The default bitmap is refused: a window DC is no memory DC.
    initObj();
}

ScreenContext::ScreenContext(GdkColormap *memoryColormap)
    : CommonDeviceContext(OBJ_MEMDC), gc(nullptr), drawable(nullptr), outputBounds(), colormap(memoryColormap),
      hwnd(nullptr), dwFlags(0)
{
    VORLAN_ASSERT(colormap);
    g_object_ref(colormap);
    createPangoContext();
    gdk_pango_context_set_colormap(pangoContext, colormap);
    // Selecting the default bitmap makes the GC and sets the drawable.
    initObj();
    if (gc == nullptr || drawable == nullptr)
        std::puts("Create Compatible DC failed");
    if (gc != nullptr)
        setGCColors();
}

ScreenContext::~ScreenContext()
{
    if (gc != nullptr)
        g_object_unref(gc);
    if (colormap != nullptr)
        g_object_unref(colormap);
}

void ScreenContext::setGCColors()
{
    GdkColor background = GetGdkColor(dcState.crBkColor);
    GdkColor foreground = GetGdkColor(dcState.crTextColor);
    gdk_gc_set_background(gc, &background);
    gdk_gc_set_foreground(gc, &foreground);
}

// ---- Drawing ------------------------------------------------------------------

BOOL ScreenContext::drawPangoLayout(PangoLayout *, int, int, const RECT *, LPCWSTR, int) { return FALSE; }

// ---- Mapping --------------------------------------------------------------------

// Only window DCs laid out exactly LAYOUT_RTL, of a live window, mirror,
// across the width of the window or of its client area.
bool ScreenContext::mirrorWidth(LONG &width)
{
    if (type() != OBJ_DC || dcState.dwLayout != LAYOUT_RTL || hwnd == nullptr || !IsWindow(hwnd))
        return false;
    RECT rc = {};
    if (dwFlags & DCX_WINDOW)
        GetWindowRect(hwnd, &rc);
    else
        GetClientRect(hwnd, &rc);
    width = rc.right - rc.left;
    return true;
}

void ScreenContext::mirror(LPPOINT points, int count)
{
    LONG width = 0;
    if (count <= 0 || points == nullptr || !mirrorWidth(width))
        return;
    for (int i = 0; i < count; ++i)
        points[i].x = width - points[i].x;
}

BOOL ScreenContext::LPtoDP(LPPOINT points, int count)
{
    if (!CommonDeviceContext::LPtoDP(points, count))
        return FALSE;
    mirror(points, count);
    return TRUE;
}

BOOL ScreenContext::DPtoLP(LPPOINT points, int count)
{
    if (count < 0 || (count > 0 && points == nullptr))
        return FALSE;
    mirror(points, count);
    return CommonDeviceContext::DPtoLP(points, count);
}

// The DC's own space starts at the corner of outputBounds in the drawable.
BOOL ScreenContext::LogicalToRealDevice(LPPOINT points, int count)
{
    if (!LPtoDP(points, count))
        return FALSE;
    if (type() == OBJ_DC) {
        for (int i = 0; i < count; ++i) {
            points[i].x += outputBounds.left;
            points[i].y += outputBounds.top;
        }
    }
    return TRUE;
}

// ---- Device and attributes ----------------------------------------------------

HWND ScreenContext::WindowFromDC() { return hwnd; }

HDC ScreenContext::CreateCompatibleDC()
{
    auto *context = new ScreenContext(colormap);
    return static_cast<HDC>(context->handle);
}

int ScreenContext::GetDeviceCaps(int index)
{
    GdkVisual *visual = drawable != nullptr ? gdk_drawable_get_visual(drawable) : nullptr;
    const bool directColour =
        visual != nullptr && (visual->type == GDK_VISUAL_TRUE_COLOR || visual->type == GDK_VISUAL_DIRECT_COLOR);
    switch (index) {
    case TECHNOLOGY:
    case PLANES:
    case ASPECTX:
    case ASPECTY:
        return 1;
    case HORZSIZE:
        return gdk_screen_width_mm();
    case VERTSIZE:
        return gdk_screen_height_mm();
    case HORZRES:
        return gdk_screen_width();
    case VERTRES:
        return gdk_screen_height();
    case BITSPIXEL: {
        GdkVisual *own = colormap != nullptr ? gdk_colormap_get_visual(colormap) : nullptr;
        return own != nullptr ? own->depth : 0;
    }
    case NUMCOLORS:
    case SIZEPALETTE:
        if (visual == nullptr)
            return -1;
        if (directColour)
            return index == NUMCOLORS ? 20 : 256;
        return visual->colormap_size;
    case RASTERCAPS:
        if (visual == nullptr)
            return -1;
        return directColour ? 0xE99 : 0xF99;
    case LOGPIXELSX:
    case LOGPIXELSY:
        return 96;
    default:
        std::printf("GetDeviceCaps is called with flag %d but not implemented. return ERROR\n", index);
        return -1;
    }
}

int ScreenContext::SetROP2(int mode)
{
    static const struct {
        int rop2;
        GdkFunction function;
    } kFunctions[] = {
        {R2_BLACK, GDK_CLEAR},        {R2_MASKNOTPEN, GDK_AND_INVERT},  {R2_NOTCOPYPEN, GDK_COPY_INVERT},
        {R2_MASKPENNOT, GDK_AND_REVERSE}, {R2_NOT, GDK_INVERT},       {R2_XORPEN, GDK_XOR},
        {R2_NOTMASKPEN, GDK_NAND},    {R2_MASKPEN, GDK_AND},            {R2_NOTXORPEN, GDK_EQUIV},
        {R2_NOP, GDK_NOOP},           {R2_MERGENOTPEN, GDK_OR_INVERT},  {R2_COPYPEN, GDK_COPY},
        {R2_MERGEPENNOT, GDK_OR_REVERSE}, {R2_MERGEPEN, GDK_OR},      {R2_WHITE, GDK_SET},
    };
    if (mode == dcState.nROP2)
        return mode;
    for (const auto &entry : kFunctions) {
        if (entry.rop2 == mode) {
            if (gc != nullptr)
                gdk_gc_set_function(gc, entry.function);
            return CommonDeviceContext::SetROP2(mode);
        }
    }
    return 0;
}

COLORREF ScreenContext::SetBkColor(COLORREF color)
{
    const COLORREF old = CommonDeviceContext::SetBkColor(color);
    if (old != color && gc != nullptr) {
        GdkColor background = GetGdkColor(color);
        gdk_gc_set_background(gc, &background);
    }
    return old;
}

// ---- Objects --------------------------------------------------------------------

DHANDLE ScreenContext::realizeBitmap(HGDIOBJ handle)
{
    LogicalGdiObject *object = LogicalGdiObject::FromHandle(handle, OBJ_BITMAP);
    if (object->physical[vorlan::kScreenSlot].handle != 0)
        return object->physical[vorlan::kScreenSlot].handle;
    const BITMAP &bm = object->record.bitmap.bitmap;
    const int width = std::abs(bm.bmWidth);
    const int height = std::abs(bm.bmHeight);
    GdkPixmap *pixmap = gdk_pixmap_new(nullptr, width, height, bm.bmBitsPixel);
    if (pixmap == nullptr) {
        std::printf("RealizeObject Fail! Pixmap is nothing -- bm.bmWidth=%d;  bm.bmHeight=%d\n", bm.bmWidth,
                    bm.bmHeight);
        return 0;
    }
    if (bm.bmBitsPixel == GetDeviceCaps(BITSPIXEL))
        gdk_drawable_set_colormap(pixmap, colormap);
    SetPhysicalObject(handle, vorlan::kScreenSlot, reinterpret_cast<DHANDLE>(pixmap), UnrefPixmap, 0);
    if (bm.bmBits != nullptr && object->record.bitmap.pHeader == nullptr && uploadBitmapBits(pixmap, bm))
        return reinterpret_cast<DHANDLE>(pixmap);
    // Pixels nobody set start dark red-brown, not black.
    GdkGC *fill = gdk_gc_new(pixmap);
    GdkColor colour = {};
    colour.red = static_cast<guint16>(GetRValue(kUninitialisedBitmapColor) * 257);
    gdk_rgb_find_color(gdk_colormap_get_system(), &colour);
    gdk_gc_set_foreground(fill, &colour);
    gdk_draw_rectangle(pixmap, fill, TRUE, 0, 0, width, height);
    g_object_unref(fill);
    return reinterpret_cast<DHANDLE>(pixmap);
}

// Device-dependent rows as CreateBitmap takes them: mono rows most
// significant bit first with 1 for white, colour rows as blue, green, red
// (and a pad byte at 32 bits).  Other layouts are left to the caller.
bool ScreenContext::uploadBitmapBits(GdkPixmap *pixmap, const BITMAP &bm)
{
    const int width = std::abs(bm.bmWidth);
    const int height = std::abs(bm.bmHeight);
    const auto *rows = static_cast<const guchar *>(bm.bmBits);
    if (bm.bmBitsPixel == 1) {
        // GDK's bitmaps are least significant bit first, rows whole bytes.
        const int stride = (width + 7) / 8;
        std::vector<gchar> data(static_cast<size_t>(stride) * height);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                if (rows[y * bm.bmWidthBytes + (x >> 3)] & (0x80 >> (x & 7)))
                    data[static_cast<size_t>(y) * stride + (x >> 3)] |= static_cast<gchar>(1 << (x & 7));
            }
        }
        GdkPixmap *source = gdk_bitmap_create_from_data(nullptr, data.data(), width, height);
        if (source == nullptr)
            return false;
        GdkGC *copy = gdk_gc_new(pixmap);
        gdk_draw_drawable(pixmap, copy, source, 0, 0, 0, 0, width, height);
        g_object_unref(copy);
        g_object_unref(source);
        return true;
    }
    if ((bm.bmBitsPixel != 24 && bm.bmBitsPixel != 32) || gdk_drawable_get_colormap(pixmap) == nullptr)
        return false;
    const int step = bm.bmBitsPixel / 8;
    std::vector<guchar> rgb(static_cast<size_t>(width) * height * 3);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const guchar *p = rows + y * bm.bmWidthBytes + x * step;
            guchar *out = &rgb[(static_cast<size_t>(y) * width + x) * 3];
            out[0] = p[2];
            out[1] = p[1];
            out[2] = p[0];
        }
    }
    GdkGC *copy = gdk_gc_new(pixmap);
    gdk_draw_rgb_image(pixmap, copy, 0, 0, width, height, GDK_RGB_DITHER_NONE, rgb.data(), width * 3);
    g_object_unref(copy);
    return true;
}

DHANDLE ScreenContext::RealizeObject(HGDIOBJ object)
{
    const UINT objectType = GetObjectType(object);
    if (objectType == 0)
        return 0;
    if (objectType == OBJ_BITMAP)
        return realizeBitmap(object);
    if (objectType == OBJ_BRUSH)
        return realizeBrush(object);
    return 1;
}

// The drawable follows the bitmap; a GC made for another depth is made anew
// with the same values, and its colours become pixels of the new depth.
int ScreenContext::applyBitmap()
{
    GdkPixmap *pixmap = GetGdkPixmap(dcState.hObjects[OBJ_BITMAP]);
    if (pixmap == nullptr)
        return 0;
    bool remade = false;
    if (gc != nullptr && drawable != nullptr && gdk_drawable_get_depth(drawable) != gdk_drawable_get_depth(pixmap)) {
        GdkGCValues values;
        gdk_gc_get_values(gc, &values);
        g_object_unref(gc);
        const auto mask = static_cast<GdkGCValuesMask>(GDK_GC_FOREGROUND | GDK_GC_BACKGROUND | GDK_GC_FUNCTION |
                                                       GDK_GC_FILL | GDK_GC_SUBWINDOW);
        gc = gdk_gc_new_with_values(pixmap, &values, mask);
        remade = true;
    } else if (gc == nullptr) {
        gc = gdk_gc_new(pixmap);
    }
    drawable = pixmap;
    if (remade)
        setGCColors();
    return 1;
}

int ScreenContext::ApplyObject(UINT objectType)
{
    VORLAN_ASSERT(objectType < vorlan::kDCObjectSlots && dcState.hObjects[objectType] != nullptr);
    switch (objectType) {
    case OBJ_BITMAP:
        return applyBitmap();
    case OBJ_PEN:
        return applyPen();
    case OBJ_BRUSH:
        return applyBrush();
    case OBJ_FONT:
        return applyFont();
    default:
        return 1;
    }
}

// ---- Clipping -------------------------------------------------------------------

BOOL ScreenContext::GetDrawableRect(RECT *rect)
{
    VORLAN_ASSERT(drawable != nullptr);
    if (hwnd == nullptr) {
        gint width = 0;
        gint height = 0;
        gdk_drawable_get_size(drawable, &width, &height);
        SetRect(rect, 0, 0, width, height);
        return TRUE;
    }
    if (dwFlags & DCX_WINDOW) {
        GetWindowRect(hwnd, rect);
        OffsetRect(rect, -rect->left, -rect->top);
        return TRUE;
    }
    return GetClientRect(hwnd, rect);
}

// In DC coordinates, without the bounds' offset.
int ScreenContext::GetVisibleRgn(HRGN region)
{
    if (region == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return ERROR;
    }
    if (hwnd != nullptr && !IsWindowVisible(hwnd))
        return NULLREGION;
    RECT rc = {};
    GetDrawableRect(&rc);
    const GdkRectangle box = {rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top};
    GdkRegion *area = gdk_region_rectangle(&box);
    if (GdkRegion *clip = GetGdkRegion(dcState.hClipRegion))
        gdk_region_intersect(area, clip);
    if (GdkRegion *update = GetGdkRegion(hUpdateRegion))
        gdk_region_intersect(area, update);
    const int type = vorlan::RegionAreaType(area);
    return vorlan::ReplaceRegionArea(region, area) ? type : ERROR;
}

void ScreenContext::setGdkRegionToDevice(GdkRegion *region)
{
    if (gc != nullptr)
        gdk_gc_set_clip_region(gc, region);
}

int ScreenContext::setClipRegion(HRGN region)
{
    if (CommonDeviceContext::setClipRegion(region) == ERROR)
        return ERROR;
    return UpdateClipping();
}

// The bounds of a window DC, cut by its update region and the application's
// clip; for a memory DC the application's clip inside the pixmap, or null
// when nothing clips.  Drawable coordinates; the caller destroys it.
GdkRegion *ScreenContext::deviceClipArea()
{
    GdkRegion *clip = GetGdkRegion(dcState.hClipRegion);
    if (hwnd != nullptr) {
        const GdkRectangle box = {0, 0, outputBounds.right - outputBounds.left,
                                  outputBounds.bottom - outputBounds.top};
        GdkRegion *area = gdk_region_rectangle(&box);
        if (GdkRegion *update = GetGdkRegion(hUpdateRegion))
            gdk_region_intersect(area, update);
        if (clip != nullptr)
            gdk_region_intersect(area, clip);
        gdk_region_offset(area, outputBounds.left, outputBounds.top);
        return area;
    }
    if (clip == nullptr || drawable == nullptr)
        return nullptr;
    gint width = 0;
    gint height = 0;
    gdk_drawable_get_size(drawable, &width, &height);
    const GdkRectangle box = {0, 0, width, height};
    GdkRegion *area = gdk_region_rectangle(&box);
    gdk_region_intersect(area, clip);
    return area;
}

int ScreenContext::UpdateClipping()
{
    if (gc == nullptr)
        return 1;
    GdkRegion *area = deviceClipArea();
    gdk_gc_set_clip_region(gc, area);
    if (area != nullptr)
        gdk_region_destroy(area);
    return 1;
}

BOOL ScreenContext::FillDeviceRegion(const GdkRegion *region)
{
    if (region == nullptr || drawable == nullptr || ApplyObject(OBJ_BRUSH) == 0)
        return FALSE;
    GdkRegion *area = gdk_region_copy(region);
    const POINT offset = deviceOffset();
    gdk_region_offset(area, offset.x, offset.y);
    if (GdkRegion *clip = deviceClipArea()) {
        gdk_region_intersect(area, clip);
        gdk_region_destroy(clip);
    }
    GdkRectangle box;
    gdk_region_get_clipbox(area, &box);
    gdk_gc_set_clip_region(gc, area);
    gdk_draw_rectangle(drawable, gc, TRUE, box.x, box.y, box.width, box.height);
    gdk_region_destroy(area);
    UpdateClipping();
    return TRUE;
}

void ScreenContext::SetOutputBounds(const RECT *rect)
{
    outputBounds = *rect;
    UpdateClipping();
}

void ScreenContext::SetSubWindowMode(BOOL clipChildren)
{
    if (gc != nullptr)
        gdk_gc_set_subwindow(gc, clipChildren ? GDK_CLIP_BY_CHILDREN : GDK_INCLUDE_INFERIORS);
}

// ---- Glue for the window side ----------------------------------------------------

HDC GdiCreateWindowDC(HWND hwnd, DWORD flags, GdkDrawable *drawable, const RECT *rect)
{
    auto *context = new ScreenContext(hwnd, flags, drawable, rect);
    return static_cast<HDC>(context->handle);
}

ScreenContext *GetScreenContext(HDC hdc)
{
    const UINT tag = vorlan::GdiHandleType(hdc);
    if (tag != OBJ_DC && tag != OBJ_MEMDC)
        return nullptr;
    return dynamic_cast<ScreenContext *>(vorlan::GetDeviceContext(hdc));
}

BOOL GdiGetDCOutputBounds(HDC hdc, RECT *rect)
{
    ScreenContext *context = GetScreenContext(hdc);
    if (context == nullptr || rect == nullptr)
        return FALSE;
    context->GetOutputBounds(rect);
    return TRUE;
}

BOOL GdiSetDCOutputBounds(HDC hdc, const RECT *rect)
{
    ScreenContext *context = GetScreenContext(hdc);
    if (context == nullptr || rect == nullptr)
        return FALSE;
    context->SetOutputBounds(rect);
    return TRUE;
}

void _SetDCSubWindowMode(HDC hdc, BOOL mode)
{
    if (ScreenContext *context = GetScreenContext(hdc))
        context->SetSubWindowMode(mode);
}

GdkGC *GetGdkGC(HDC hdc)
{
    ScreenContext *context = GetScreenContext(hdc);
    return context != nullptr ? context->gc : nullptr;
}

GdkDrawable *GetGdkDrawable(HDC hdc)
{
    ScreenContext *context = GetScreenContext(hdc);
    return context != nullptr ? context->drawable : nullptr;
}

int GetSystemDisplayDepth() { return gdk_visual_get_system()->depth; }

// ----------------------------------------------------------------------------
// The painting clip of a screen context goes to its GC together with the
// output bounds and the application's clip.

int ScreenContext::setUpdateRgn(HRGN region)
{
    if (CommonDeviceContext::setUpdateRgn(region) == ERROR)
        return ERROR;
    return UpdateClipping();
}
