// Drawing throughput of a screen context, each beside the same drawing
// done with GDK directly on a pixmap of the same size and depth:
//
//   DrawLines/Vorlan      MoveToEx and LineTo with a 1-pixel pen
//   DrawRectangles/Vorlan Rectangle with a pen and a solid brush
//   DrawEllipses/Vorlan   Ellipse with a pen and a solid brush
//   PatternFills/Vorlan   PatBlt PATCOPY with an 8 x 8 pattern brush
//   .../Baseline          gdk_draw_line, gdk_draw_rectangle (filled and
//                         outlined), gdk_draw_arc (filled and outlined),
//                         a tiled gdk_draw_rectangle
//
// Every iteration draws a batch of shapes and waits for the X server to
// finish them (XSync), so both sides pay for the server's work and the
// request traffic.  Counters are shapes per second.
#include <benchmark/benchmark.h>

#include <windows.h>

#include <gdk/gdk.h>
#include <gdk/gdkx.h>

#include <vector>

namespace {

constexpr int kSize = 256;
constexpr int kBatch = 64;

// A memory DC with a screen-depth bitmap, a red pen and a blue brush.
class VorlanCanvas {
public:
    VorlanCanvas()
        : m_hdc(CreateCompatibleDC(nullptr)),
          m_bitmap(CreateBitmap(kSize, kSize, 1, GetDeviceCaps(m_hdc, BITSPIXEL), nullptr)),
          m_pen(CreatePen(PS_SOLID, 1, RGB(255, 0, 0))), m_brush(CreateSolidBrush(RGB(0, 0, 255)))
    {
        m_oldBitmap = SelectObject(m_hdc, m_bitmap);
        m_oldPen = SelectObject(m_hdc, m_pen);
        m_oldBrush = SelectObject(m_hdc, m_brush);
    }
    ~VorlanCanvas()
    {
        SelectObject(m_hdc, m_oldBrush);
        SelectObject(m_hdc, m_oldPen);
        SelectObject(m_hdc, m_oldBitmap);
        DeleteDC(m_hdc);
        DeleteObject(m_bitmap);
        DeleteObject(m_pen);
        DeleteObject(m_brush);
    }
    HDC hdc() const { return m_hdc; }

private:
    HDC m_hdc;
    HBITMAP m_bitmap;
    HPEN m_pen;
    HBRUSH m_brush;
    HGDIOBJ m_oldBitmap;
    HGDIOBJ m_oldPen;
    HGDIOBJ m_oldBrush;
};

// The same on GDK: a pixmap of the system visual's depth and one GC.
class GdkCanvas {
public:
    GdkCanvas()
    {
        gdk_threads_enter();
        m_pixmap = gdk_pixmap_new(gdk_get_default_root_window(), kSize, kSize, -1);
        m_gc = gdk_gc_new(m_pixmap);
        gdk_rgb_find_color(gdk_colormap_get_system(), &m_red);
        gdk_rgb_find_color(gdk_colormap_get_system(), &m_blue);
        gdk_threads_leave();
    }
    ~GdkCanvas()
    {
        gdk_threads_enter();
        g_object_unref(m_gc);
        g_object_unref(m_pixmap);
        gdk_threads_leave();
    }
    GdkPixmap *pixmap() const { return m_pixmap; }
    GdkGC *gc() const { return m_gc; }
    void Pen() const { gdk_gc_set_foreground(m_gc, &m_red); }
    void Brush() const { gdk_gc_set_foreground(m_gc, &m_blue); }

private:
    GdkPixmap *m_pixmap;
    GdkGC *m_gc;
    GdkColor m_red = {0, 0xFFFF, 0, 0};
    GdkColor m_blue = {0, 0, 0, 0xFFFF};
};

void WaitForServer()
{
    gdk_threads_enter();
    XSync(GDK_DISPLAY_XDISPLAY(gdk_display_get_default()), False);
    gdk_threads_leave();
}

// Shape i of a batch: boxes spread over the canvas.
RECT Box(int i)
{
    const int x = (i * 37) % (kSize - 48);
    const int y = (i * 53) % (kSize - 48);
    return RECT{x, y, x + 40, y + 30};
}

// Draws a batch of shapes per iteration through the library's calls and
// waits for the server.
template <typename Draw> void RunVorlanBatches(benchmark::State &state, HDC hdc, Draw draw)
{
    for (auto _ : state) {
        for (int i = 0; i < kBatch; ++i)
            draw(hdc, Box(i));
        WaitForServer();
    }
    state.SetItemsProcessed(state.iterations() * kBatch);
}

// The same with GDK directly, under GDK's lock as the library draws.
template <typename Draw> void RunGdkBatches(benchmark::State &state, const GdkCanvas &canvas, Draw draw)
{
    for (auto _ : state) {
        gdk_threads_enter();
        for (int i = 0; i < kBatch; ++i)
            draw(canvas, Box(i));
        gdk_threads_leave();
        WaitForServer();
    }
    state.SetItemsProcessed(state.iterations() * kBatch);
}

void BM_Lines_Vorlan(benchmark::State &state)
{
    VorlanCanvas canvas;
    RunVorlanBatches(state, canvas.hdc(), [](HDC hdc, const RECT &r) {
        MoveToEx(hdc, r.left, r.top, nullptr);
        LineTo(hdc, r.right, r.bottom);
    });
}
BENCHMARK(BM_Lines_Vorlan)->Name("DrawLines/Vorlan")->UseRealTime();

void BM_Lines_Baseline(benchmark::State &state)
{
    GdkCanvas canvas;
    RunGdkBatches(state, canvas, [](const GdkCanvas &c, const RECT &r) {
        c.Pen();
        gdk_draw_line(c.pixmap(), c.gc(), r.left, r.top, r.right - 1, r.bottom - 1);
    });
}
BENCHMARK(BM_Lines_Baseline)->Name("DrawLines/Baseline")->UseRealTime();

void BM_Rectangles_Vorlan(benchmark::State &state)
{
    VorlanCanvas canvas;
    RunVorlanBatches(state, canvas.hdc(),
                     [](HDC hdc, const RECT &r) { Rectangle(hdc, r.left, r.top, r.right, r.bottom); });
}
BENCHMARK(BM_Rectangles_Vorlan)->Name("DrawRectangles/Vorlan")->UseRealTime();

void BM_Rectangles_Baseline(benchmark::State &state)
{
    GdkCanvas canvas;
    RunGdkBatches(state, canvas, [](const GdkCanvas &c, const RECT &r) {
        c.Brush();
        gdk_draw_rectangle(c.pixmap(), c.gc(), TRUE, r.left, r.top, 39, 29);
        c.Pen();
        gdk_draw_rectangle(c.pixmap(), c.gc(), FALSE, r.left, r.top, 39, 29);
    });
}
BENCHMARK(BM_Rectangles_Baseline)->Name("DrawRectangles/Baseline")->UseRealTime();

void BM_Ellipses_Vorlan(benchmark::State &state)
{
    VorlanCanvas canvas;
    RunVorlanBatches(state, canvas.hdc(),
                     [](HDC hdc, const RECT &r) { Ellipse(hdc, r.left, r.top, r.right, r.bottom); });
}
BENCHMARK(BM_Ellipses_Vorlan)->Name("DrawEllipses/Vorlan")->UseRealTime();

void BM_Ellipses_Baseline(benchmark::State &state)
{
    GdkCanvas canvas;
    RunGdkBatches(state, canvas, [](const GdkCanvas &c, const RECT &r) {
        c.Brush();
        gdk_draw_arc(c.pixmap(), c.gc(), TRUE, r.left, r.top, 40, 30, 0, 360 * 64);
        c.Pen();
        gdk_draw_arc(c.pixmap(), c.gc(), FALSE, r.left, r.top, 40, 30, 0, 360 * 64);
    });
}
BENCHMARK(BM_Ellipses_Baseline)->Name("DrawEllipses/Baseline")->UseRealTime();

// An 8 x 8 two-colour checker of the screen's depth.
HBITMAP Checker()
{
    std::vector<BYTE> rows(8 * 24);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            rows[y * 24 + x * 3 + ((x + y) & 1 ? 0 : 2)] = 255;
    return CreateBitmap(8, 8, 1, 24, rows.data());
}

void BM_PatternFills_Vorlan(benchmark::State &state)
{
    VorlanCanvas canvas;
    HBITMAP checker = Checker();
    HBRUSH pattern = CreatePatternBrush(checker);
    DeleteObject(checker);
    HGDIOBJ old = SelectObject(canvas.hdc(), pattern);
    RunVorlanBatches(state, canvas.hdc(),
                     [](HDC hdc, const RECT &r) { PatBlt(hdc, r.left, r.top, 40, 30, PATCOPY); });
    SelectObject(canvas.hdc(), old);
    DeleteObject(pattern);
}
BENCHMARK(BM_PatternFills_Vorlan)->Name("PatternFills/Vorlan")->UseRealTime();

void BM_PatternFills_Baseline(benchmark::State &state)
{
    GdkCanvas canvas;
    gdk_threads_enter();
    GdkPixmap *tile = gdk_pixmap_new(canvas.pixmap(), 8, 8, -1);
    canvas.Brush();
    gdk_draw_rectangle(tile, canvas.gc(), TRUE, 0, 0, 8, 8);
    gdk_gc_set_tile(canvas.gc(), tile);
    gdk_threads_leave();
    RunGdkBatches(state, canvas, [](const GdkCanvas &c, const RECT &r) {
        gdk_gc_set_fill(c.gc(), GDK_TILED);
        gdk_draw_rectangle(c.pixmap(), c.gc(), TRUE, r.left, r.top, 40, 30);
        gdk_gc_set_fill(c.gc(), GDK_SOLID);
    });
    gdk_threads_enter();
    g_object_unref(tile);
    gdk_threads_leave();
}
BENCHMARK(BM_PatternFills_Baseline)->Name("PatternFills/Baseline")->UseRealTime();

} // namespace
