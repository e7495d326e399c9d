// The screen context: draws through GDK into an X drawable, a GdkWindow for
// a window DC (OBJ_DC) or the pixmap of the selected bitmap for a memory DC
// (OBJ_MEMDC).
//
// A window DC has its own coordinate space inside the drawable:
// outputBounds gives where it lies, and its left and top are added to every
// device point on the way to GDK.
#ifndef VORLAN_GDI_SCREEN_VORLSCREENDC_H
#define VORLAN_GDI_SCREEN_VORLSCREENDC_H

#include "gdi/vorldc.h"

// What a brush becomes on the screen: the GC values that paint with it,
// kept in the brush's physical slot 0 and made anew when the colormap of
// the target, or the colours a mono pattern was expanded in, change.
struct PhysicalScreenBrush {
    GdkColormap *colormap; // of the target at realisation; null on depth 1
    GdkGCValuesMask mask;  // 0 for a null brush
    GdkGCValues values;    // foreground, fill, tile (counted), origin
    COLORREF crText;       // colours a mono pattern was expanded in, else -1
    COLORREF crBk;

    // Unrefs the tile and frees the record.
    static void free(DHANDLE record);
};

class ScreenContext : public vorlan::CommonDeviceContext {
public:
    // A window DC on `drawable`, which must not be null.
    ScreenContext(HWND hwnd, DWORD flags, GdkDrawable *drawable, const RECT *rect);
    // A memory DC on `colormap`, with the default 1 x 1 bitmap selected.
    explicit ScreenContext(GdkColormap *colormap);
    ~ScreenContext() override;

    // ---- Drawing.
    COLORREF GetPixel(int x, int y) override;
    COLORREF SetPixel(int x, int y, COLORREF color) override;
    BOOL PatBlt(int x, int y, int w, int h, DWORD rop) override;
    BOOL LineTo(int x, int y) override;
    BOOL Polyline(const POINT *points, int count) override;
    BOOL Rectangle(int left, int top, int right, int bottom) override;
    BOOL RoundRect(int left, int top, int right, int bottom, int width, int height) override;
    BOOL Ellipse(int left, int top, int right, int bottom) override;
    BOOL Polygon(const POINT *points, int count) override;
    BOOL Arc(int left, int top, int right, int bottom, int x1, int y1, int x2, int y2) override;
    BOOL Chord(int left, int top, int right, int bottom, int x1, int y1, int x2, int y2) override;
    BOOL Pie(int left, int top, int right, int bottom, int x1, int y1, int x2, int y2) override;
    BOOL drawPangoLayout(PangoLayout *layout, int x, int y, const RECT *clip, LPCWSTR text, int count) override;

    // ---- Mapping: window DCs laid out right to left are mirrored.
    BOOL LPtoDP(LPPOINT points, int count) override;
    BOOL DPtoLP(LPPOINT points, int count) override;
    BOOL LogicalToRealDevice(LPPOINT points, int count) override;
    using CommonDeviceContext::LogicalToRealDevice;

    // ---- Device and attributes.
    COLORREF GetNearestColor(COLORREF color) override;
    HPALETTE SelectPalette(HPALETTE palette, BOOL forceBackground) override;
    UINT RealizePalette() override;
    BOOL UpdateColors() override;
    HWND WindowFromDC() override;
    HDC CreateCompatibleDC() override;
    int GetDeviceCaps(int index) override;
    int SetROP2(int mode) override;
    COLORREF SetBkColor(COLORREF color) override;
    int SetBkMode(int mode) override;
    int SetPolyFillMode(int mode) override;
    DHANDLE RealizeObject(HGDIOBJ object) override;
    int ApplyObject(UINT type) override;
    GdkColor GetGdkColor(COLORREF color) override;

    // ---- Clipping.
    int GetVisibleRgn(HRGN region) override;
    int setClipRegion(HRGN region) override;
    int setUpdateRgn(HRGN region) override;
    BOOL GetDrawableRect(RECT *rect) override;
    void setGdkRegionToDevice(GdkRegion *region) override;
    // Gives the GC the composition of the bounds and both clip regions.
    int UpdateClipping();

    // ---- Window side.
    void GetOutputBounds(RECT *rect) const { *rect = outputBounds; }
    // Moves the DC's space inside the drawable and re-clips.
    void SetOutputBounds(const RECT *rect);
    // Non-zero: children clip the output; 0: it goes over them.
    void SetSubWindowMode(BOOL clipChildren);
    // Paints `region` (device coordinates of this DC, without the output
    // bounds' offset) with the selected brush, inside the current clip;
    // FALSE when the brush is null.  For the region painting calls.
    BOOL FillDeviceRegion(const GdkRegion *region);

    GdkGC *gc;
    GdkDrawable *drawable;
    RECT outputBounds;
    GdkColormap *colormap;
    HWND hwnd;
    DWORD dwFlags;

private:
    // Width across which points mirror; false when they don't.
    bool mirrorWidth(LONG &width);
    void mirror(LPPOINT points, int count);
    DHANDLE realizeBitmap(HGDIOBJ bitmap);
    bool uploadBitmapBits(GdkPixmap *pixmap, const BITMAP &bm);
    DHANDLE realizeBrush(HGDIOBJ brush);
    // Fills a fresh record for `logbrush`; false when the style can't be had.
    bool RealizeBrush(PhysicalScreenBrush *record, const LOGBRUSH &logbrush);
    // A pixmap of the target's depth with a mono bitmap's 0 bits in the text
    // colour and its 1 bits in the background colour; null on failure.
    GdkPixmap *expandMonoPattern(GdkPixmap *mono);
    // A pixmap of the target's depth with the picture of a packed DIB.
    GdkPixmap *dibPatternPixmap(HGLOBAL packedDib);
    int applyBitmap();
    int applyPen();
    int applyBrush();
    int applyFont();
    void setGCColors();
    // The target is a depth-1 pixmap, which has no colormap.
    bool targetIsMono();
    // The logical point lies in the clip box (the drawable while no clip
    // box can be had).
    bool pointInClipBox(int x, int y);
    // Device corner of the DC's space in the drawable.
    POINT deviceOffset() const;
    GdkRegion *deviceClipArea();
    void fillChord(int cx, int cy, int rx, int ry, int a1, int a2, const POINT &p1, const POINT &p2);
    struct Radial;
    // The device geometry of an arc, chord or pie given in logical units.
    Radial mapRadial(int left, int top, int right, int bottom, int x1, int y1, int x2, int y2);
    // The arc of `shape` drawn, or its pie slice filled.
    void drawRadialArc(const Radial &shape, gboolean filled);
};

// The screen context of a window or memory DC handle, or null.
ScreenContext *GetScreenContext(HDC hdc);

#endif // VORLAN_GDI_SCREEN_VORLSCREENDC_H
