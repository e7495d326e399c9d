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

class VORLAN_INTERNAL ScreenContext : public vorlan::CommonDeviceContext {
public:
    // A window DC on `drawable`, which must not be null.
    ScreenContext(HWND hwnd, DWORD flags, GdkDrawable *drawable, const RECT *rect);
    // A memory DC on `colormap`, with the default 1 x 1 bitmap selected.
    explicit ScreenContext(GdkColormap *colormap);
    ~ScreenContext() override;

    // ---- Drawing: arrives with the screen's drawing code.
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
    HWND WindowFromDC() override;
    HDC CreateCompatibleDC() override;
    int GetDeviceCaps(int index) override;
    int SetROP2(int mode) override;
    COLORREF SetBkColor(COLORREF color) override;
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
    int applyBitmap();
    void setGCColors();
};

// A window DC of `hwnd` on its GdkWindow; `rect` is the DC's place in the
// drawable.  The caller holds the toolkit lock.
VORLAN_INTERNAL HDC GdiCreateWindowDC(HWND hwnd, DWORD flags, GdkDrawable *drawable, const RECT *rect);
// The DC's place in its drawable; FALSE for anything but a screen context.
VORLAN_INTERNAL BOOL GdiGetDCOutputBounds(HDC hdc, RECT *rect);

#endif // VORLAN_GDI_SCREEN_VORLSCREENDC_H
