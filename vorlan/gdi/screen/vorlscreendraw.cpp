// Drawing on the screen context: lines, shapes, pattern fills and pixels
// through the context's GdkGC.
#include "gdi/screen/vorlscreendc.h"

#include <cmath>
#include <vector>

// ----------------------------------------------------------------------------
// Lines and shapes of the screen context, with the corrections that make
// GDK's geometry come out as GDI's.

namespace {

// Arc angles of GDK are in 1/64 degree.
constexpr int kArcUnit = 64;
// A full turn as ellipses pass it to GDK: a little more than 360 degrees,
// so that the outline closes.
constexpr int kEllipseSweep = 23064;
constexpr double kRadiansPerDegree = 3.1415926 / 180;

// The point at `angle` degrees on the ellipse of centre (cx, cy).
POINT PointOnEllipse(int cx, int cy, int rx, int ry, int angle)
{
    const double radians = angle * kRadiansPerDegree;
    return POINT{static_cast<LONG>(std::cos(radians) * rx + cx + 0.5),
                 static_cast<LONG>(cy - std::sin(radians) * ry + 0.5)};
}

// One step towards `to`, along each axis on which the points differ.
LONG StepTowards(LONG from, LONG to)
{
    if (to > from)
        return from + 1;
    if (to < from)
        return from - 1;
    return from;
}

} // namespace

POINT ScreenContext::deviceOffset() const
{
    if (type() == OBJ_DC)
        return POINT{outputBounds.left, outputBounds.top};
    return POINT{0, 0};
}

BOOL ScreenContext::LineTo(int x, int y)
{
    if (ApplyObject(OBJ_PEN) == 0)
        return FALSE;
    if (dcState.ptCurrent.x == x && dcState.ptCurrent.y == y)
        return TRUE;
    POINT ends[2] = {dcState.ptCurrent, {x, y}};
    LogicalToRealDevice(ends, 2);
    // GDI leaves the last pixel out.
    ends[1].x = StepTowards(ends[1].x, ends[0].x);
    ends[1].y = StepTowards(ends[1].y, ends[0].y);
    gdk_draw_line(drawable, gc, ends[0].x, ends[0].y, ends[1].x, ends[1].y);
    dcState.ptCurrent = POINT{x, y};
    return TRUE;
}

BOOL ScreenContext::Polyline(const POINT *points, int count)
{
    if (ApplyObject(OBJ_PEN) == 0)
        return FALSE;
    std::vector<POINT> device(points, points + count);
    LogicalToRealDevice(device.data(), count);
    std::vector<GdkPoint> line(count);
    for (int i = 0; i < count; ++i)
        line[i] = GdkPoint{device[i].x, device[i].y};
    gdk_draw_lines(drawable, gc, line.data(), count);
    return TRUE;
}

BOOL ScreenContext::Polygon(const POINT *points, int count)
{
    std::vector<POINT> device(points, points + count);
    LogicalToRealDevice(device.data(), count);
    std::vector<GdkPoint> shape(count);
    for (int i = 0; i < count; ++i)
        shape[i] = GdkPoint{device[i].x, device[i].y};
    if (ApplyObject(OBJ_BRUSH))
        gdk_draw_polygon(drawable, gc, TRUE, shape.data(), count);
    if (ApplyObject(OBJ_PEN))
        gdk_draw_polygon(drawable, gc, FALSE, shape.data(), count);
    return TRUE;
}

// X fills w x h pixels but outlines w + 1 x h + 1: with right and bottom
// one less, the outline ends on GDI's last pixel and the fill inside it.
BOOL ScreenContext::Rectangle(int left, int top, int right, int bottom)
{
    RECT rc = {left, top, right, bottom};
    LogicalToRealDevice(&rc);
    vorlan::NormalizeRect(rc);
    if (rc.right > rc.left)
        --rc.right;
    if (rc.bottom > rc.top)
        --rc.bottom;
    const int width = rc.right - rc.left;
    const int height = rc.bottom - rc.top;
    if (ApplyObject(OBJ_BRUSH))
        gdk_draw_rectangle(drawable, gc, TRUE, rc.left, rc.top, width, height);
    if (ApplyObject(OBJ_PEN))
        gdk_draw_rectangle(drawable, gc, FALSE, rc.left, rc.top, width, height);
    return TRUE;
}

BOOL ScreenContext::Ellipse(int left, int top, int right, int bottom)
{
    RECT rc = {left, top, right, bottom};
    LogicalToRealDevice(&rc);
    vorlan::NormalizeRect(rc);
    const int width = rc.right - rc.left;
    const int height = rc.bottom - rc.top;
    if (ApplyObject(OBJ_BRUSH))
        gdk_draw_arc(drawable, gc, TRUE, rc.left, rc.top, width, height, 0, kEllipseSweep);
    if (ApplyObject(OBJ_PEN))
        gdk_draw_arc(drawable, gc, FALSE, rc.left, rc.top, width, height, 0, kEllipseSweep);
    return TRUE;
}

// Corner boxes are twice the given sizes; the sizes aren't mapped.
BOOL ScreenContext::RoundRect(int left, int top, int right, int bottom, int w, int h)
{
    if (w == 0 || h == 0)
        return TRUE;
    RECT rc = {left, top, right, bottom};
    LogicalToRealDevice(&rc);
    vorlan::NormalizeRect(rc);
    const int l = rc.left, t = rc.top, r = rc.right, b = rc.bottom;
    struct Corner {
        int x, y, start;
    };
    const Corner corners[] = {
        {l, t, 90 * kArcUnit}, {r - 2 * w, t, 0}, {r - 2 * w, b - 2 * h, 270 * kArcUnit}, {l, b - 2 * h, 180 * kArcUnit}};
    const int quarter = 90 * kArcUnit;
    if (ApplyObject(OBJ_BRUSH)) {
        for (const Corner &c : corners)
            gdk_draw_arc(drawable, gc, TRUE, c.x, c.y, 2 * w, 2 * h, c.start, quarter);
        gdk_draw_rectangle(drawable, gc, TRUE, l, t + h, r - l, b - t - 2 * h);
        gdk_draw_rectangle(drawable, gc, TRUE, l + w, t, r - l - 2 * w, b - t);
    }
    if (ApplyObject(OBJ_PEN)) {
        GdkSegment sides[] = {{l + w, t, r - w, t}, {r, t + h, r, b - h}, {l + w, b, r - w, b}, {l, t + h, l, b - h}};
        gdk_draw_segments(drawable, gc, sides, G_N_ELEMENTS(sides));
        for (const Corner &c : corners)
            gdk_draw_arc(drawable, gc, FALSE, c.x, c.y, 2 * w, 2 * h, c.start, quarter);
    }
    return TRUE;
}

// An arc, chord or pie in device pixels: its box, centre, start and end
// angles in degrees, and the points where the arc starts and ends.
struct ScreenContext::Radial {
    int left, top, width, height;
    int cx, cy, a1, a2;
    POINT start, end;
};

ScreenContext::Radial ScreenContext::mapRadial(int left, int top, int right, int bottom, int x1, int y1, int x2,
                                               int y2)
{
    POINT p[4] = {{left, top}, {right, bottom}, {x1, y1}, {x2, y2}};
    LogicalToRealDevice(p, 4);
    Radial shape = {};
    vorlan::calcRadial(shape.cx, shape.cy, p[0].x, p[0].y, p[1].x, p[1].y, p[2].x, p[2].y, p[3].x, p[3].y, shape.a1,
                       shape.a2);
    shape.left = p[0].x;
    shape.top = p[0].y;
    shape.width = p[1].x - p[0].x;
    shape.height = p[1].y - p[0].y;
    shape.start = PointOnEllipse(shape.cx, shape.cy, shape.width >> 1, shape.height >> 1, shape.a1);
    shape.end = PointOnEllipse(shape.cx, shape.cy, shape.width >> 1, shape.height >> 1, shape.a2);
    return shape;
}

void ScreenContext::drawRadialArc(const Radial &shape, gboolean filled)
{
    gdk_draw_arc(drawable, gc, filled, shape.left, shape.top, shape.width, shape.height, shape.a1 * kArcUnit,
                 (shape.a2 - shape.a1) * kArcUnit);
}

BOOL ScreenContext::Arc(int left, int top, int right, int bottom, int x1, int y1, int x2, int y2)
{
    const Radial shape = mapRadial(left, top, right, bottom, x1, y1, x2, y2);
    if (ApplyObject(OBJ_PEN))
        drawRadialArc(shape, FALSE);
    return TRUE;
}

BOOL ScreenContext::Pie(int left, int top, int right, int bottom, int x1, int y1, int x2, int y2)
{
    if (x1 == x2 && y1 == y2)
        return Ellipse(left, top, right, bottom);
    const Radial shape = mapRadial(left, top, right, bottom, x1, y1, x2, y2);
    if (ApplyObject(OBJ_BRUSH))
        drawRadialArc(shape, TRUE);
    if (ApplyObject(OBJ_PEN)) {
        drawRadialArc(shape, FALSE);
        gdk_draw_line(drawable, gc, shape.cx, shape.cy, shape.start.x, shape.start.y);
        gdk_draw_line(drawable, gc, shape.cx, shape.cy, shape.end.x, shape.end.y);
    }
    return TRUE;
}

// Fills the segment between the chord p1-p2 and the arc from a1 to a2 with
// triangles, halving the arc until a span is at most a degree.
void ScreenContext::fillChord(int cx, int cy, int rx, int ry, int a1, int a2, const POINT &p1, const POINT &p2)
{
    const int span = a2 - a1;
    if (span <= 1)
        return;
    const int middle = a1 + (span >> 1);
    const POINT pm = PointOnEllipse(cx, cy, rx, ry, middle);
    GdkPoint triangle[3] = {{pm.x, pm.y}, {p1.x, p1.y}, {p2.x, p2.y}};
    gdk_draw_polygon(drawable, gc, TRUE, triangle, 3);
    fillChord(cx, cy, rx, ry, a1, middle, p1, pm);
    fillChord(cx, cy, rx, ry, middle, a2, pm, p2);
}

BOOL ScreenContext::Chord(int left, int top, int right, int bottom, int x1, int y1, int x2, int y2)
{
    if (x1 == x2 && y1 == y2)
        return Ellipse(left, top, right, bottom);
    const Radial shape = mapRadial(left, top, right, bottom, x1, y1, x2, y2);
    if (ApplyObject(OBJ_BRUSH))
        fillChord(shape.cx, shape.cy, shape.width >> 1, shape.height >> 1, shape.a1, shape.a2, shape.start, shape.end);
    if (ApplyObject(OBJ_PEN)) {
        drawRadialArc(shape, FALSE);
        gdk_draw_line(drawable, gc, shape.start.x, shape.start.y, shape.end.x, shape.end.y);
    }
    return TRUE;
}

// ----------------------------------------------------------------------------
// Pixels and pattern blits of the screen context.

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
