// Device contexts: the interface every kind of context implements, the state
// that the screen and printer contexts share, and the helpers around them.
//
// A context is an object of the GDI table like any other, tagged OBJ_DC,
// OBJ_MEMDC or OBJ_METADC.  Each exported drawing or attribute call resolves
// the handle, checks the tag and makes one virtual call here.
//
//   GdiObject
//     DeviceContext                 every operation abstract
//       MetaFileContext             OBJ_METADC, recording
//       CommonDeviceContext         attribute state, save stack, selection,
//                                   clipping, mapping
//         ScreenContext             OBJ_DC (window) or OBJ_MEMDC (memory)
//         VorlPSContext             OBJ_DC, PostScript
//
// Every operation expects its caller to hold the toolkit lock.
#ifndef VORLAN_GDI_VORLDC_H
#define VORLAN_GDI_VORLDC_H

#include <windows.h>
#include <vorlan.h>

#include "gdi/vorlgdiobject.h"
#include "gtk/vorlgtklock.h"
#include <gdk-pixbuf/gdk-pixbuf.h>
#include <gdk/gdk.h>
#include <pango/pango.h>
#include <deque>

namespace vorlan {

// Entries of DCState::hObjects, indexed directly by the OBJ_ tag.
constexpr int kDCObjectSlots = 15;

// One complete set of attributes of a context: the current one, and each
// entry of the save stack.  Plain data, copied bytewise; a saved copy holds
// a saved-state reference on each of its objects and a clip region of its
// own.
struct DCState {
    DCState();

    int nBkMode;
    int nROP2;
    int nMapMode;
    XFORM xformWorld;         // always the identity
    XFORM xformWorldToDevice; // logical to device
    XFORM xformDeviceToWorld; // device to logical
    POINT ptViewportOrg;
    SIZE szViewportExt;
    POINT ptWindowOrg;
    SIZE szWindowExt;
    int nPolyFillMode;
    int nStretchBltMode;
    BOOL bForceBackground; // last SelectPalette's third argument
    POINT ptBrushOrg;
    HGDIOBJ hObjects[kDCObjectSlots];
    HRGN hClipRegion; // the application's clip, device coordinates, owned
    COLORREF crBkColor;
    COLORREF crTextColor;
    UINT nTextAlign;
    DWORD dwLayout;
    int nBreakExtra;
    int nCharExtra;
    POINT ptCurrent; // logical

    // A saved copy takes a saved-state reference on each object and a copy
    // of the clip region (0 when the copy fails) ...
    void increaseObjectRef();
    // ... and gives them back when it is dropped.
    void decreaseObjectRef();
};

class DeviceContext : public GdiObject {
public:
    explicit DeviceContext(UINT type) : GdiObject(type), deleteProc(nullptr), deleteProcData(nullptr) {}
    ~DeviceContext() override = default;

    virtual BOOL BitBlt(int x, int y, int cx, int cy, HDC hdcSrc, int x1, int y1, DWORD rop) = 0;
    virtual int SetDIBitsToDevice(int xDest, int yDest, DWORD w, DWORD h, int xSrc, int ySrc, UINT startScan,
                                  UINT lines, const void *bits, const BITMAPINFO *bmi, UINT colorUse) = 0;
    virtual BOOL PatBlt(int x, int y, int w, int h, DWORD rop) = 0;
    virtual COLORREF GetPixel(int x, int y) = 0;
    virtual COLORREF SetPixel(int x, int y, COLORREF color) = 0;
    virtual BOOL StretchBlt(int xDest, int yDest, int wDest, int hDest, HDC hdcSrc, int xSrc, int ySrc, int wSrc,
                            int hSrc, DWORD rop) = 0;
    virtual int SetStretchBltMode(int mode) = 0;
    virtual BOOL AlphaBlend(int xDest, int yDest, int wDest, int hDest, HDC hdcSrc, int xSrc, int ySrc, int wSrc,
                            int hSrc, BLENDFUNCTION blend) = 0;
    virtual int StretchDIBits(int xDest, int yDest, int wDest, int hDest, int xSrc, int ySrc, int wSrc, int hSrc,
                              const void *bits, const BITMAPINFO *bmi, UINT usage, DWORD rop) = 0;
    virtual BOOL FloodFill(int x, int y, COLORREF color) = 0;
    virtual BOOL ExtFloodFill(int x, int y, COLORREF color, UINT type) = 0;
    virtual int GetTextCharacterExtra() = 0;
    virtual int SetTextCharacterExtra(int extra) = 0;
    virtual BOOL SetTextJustification(int extra, int count) = 0;
    virtual int EnumFontFamiliesExA(LPLOGFONTA logfont, FONTENUMPROCA proc, LPARAM lParam, DWORD flags) = 0;
    virtual BOOL GetTextExtentPoint32W(LPCWSTR text, int count, LPSIZE size) = 0;
    virtual int GetTextCharsetInfo(LPFONTSIGNATURE signature, DWORD flags) = 0;
    virtual BOOL GetTextMetricsA(LPTEXTMETRICA metrics) = 0;
    virtual BOOL ExtTextOutW(int x, int y, UINT options, const RECT *rect, LPCWSTR text, UINT count,
                             const INT *dx) = 0;
    virtual DWORD SetMapperFlags(DWORD flags) = 0;
    virtual DWORD GetCharacterPlacementW(LPCWSTR text, int count, int maxExtent, LPGCP_RESULTSW results,
                                         DWORD flags) = 0;
    virtual BOOL MoveToEx(int x, int y, LPPOINT old) = 0;
    virtual BOOL LineTo(int x, int y) = 0;
    virtual BOOL Polyline(const POINT *points, int count) = 0;
    virtual BOOL Rectangle(int left, int top, int right, int bottom) = 0;
    virtual BOOL RoundRect(int left, int top, int right, int bottom, int width, int height) = 0;
    virtual BOOL Ellipse(int left, int top, int right, int bottom) = 0;
    virtual BOOL Polygon(const POINT *points, int count) = 0;
    virtual BOOL Arc(int left, int top, int right, int bottom, int x1, int y1, int x2, int y2) = 0;
    virtual BOOL Chord(int left, int top, int right, int bottom, int x1, int y1, int x2, int y2) = 0;
    virtual BOOL Pie(int left, int top, int right, int bottom, int x1, int y1, int x2, int y2) = 0;
    virtual int GetMapMode() = 0;
    virtual int SetMapMode(int mode) = 0;
    virtual BOOL GetWindowOrgEx(LPPOINT point) = 0;
    virtual BOOL SetWindowOrgEx(int x, int y, LPPOINT old) = 0;
    virtual BOOL SetWindowExtEx(int cx, int cy, LPSIZE old) = 0;
    virtual BOOL GetViewportOrgEx(LPPOINT point) = 0;
    virtual BOOL SetViewportOrgEx(int x, int y, LPPOINT old) = 0;
    virtual BOOL OffsetViewportOrgEx(int dx, int dy, LPPOINT old) = 0;
    virtual BOOL OffsetWindowOrgEx(int dx, int dy, LPPOINT old) = 0;
    virtual BOOL SetViewportExtEx(int cx, int cy, LPSIZE old) = 0;
    virtual BOOL LPtoDP(LPPOINT points, int count) = 0;
    virtual BOOL DPtoLP(LPPOINT points, int count) = 0;
    virtual BOOL ScaleWindowExtEx(int xNum, int xDenom, int yNum, int yDenom, LPSIZE old) = 0;
    virtual BOOL ScaleViewportExtEx(int xNum, int xDenom, int yNum, int yDenom, LPSIZE old) = 0;
    virtual COLORREF GetNearestColor(COLORREF color) = 0;
    virtual HPALETTE SelectPalette(HPALETTE palette, BOOL forceBackground) = 0;
    virtual UINT RealizePalette() = 0;
    virtual UINT GetSystemPaletteEntries(UINT start, UINT count, LPPALETTEENTRY entries) = 0;
    virtual BOOL UpdateColors() = 0;
    virtual HWND WindowFromDC() = 0;
    virtual COLORREF SetTextColor(COLORREF color) = 0;
    virtual UINT GetTextAlign() = 0;
    virtual UINT SetTextAlign(UINT align) = 0;
    virtual DWORD GetLayout() = 0;
    virtual DWORD SetLayout(DWORD layout) = 0;
    virtual HGDIOBJ GetCurrentObject(UINT type) = 0;
    virtual HGDIOBJ SelectObject(HGDIOBJ object) = 0;
    virtual int SaveDC() = 0;
    virtual BOOL RestoreDC(int level) = 0;
    virtual HDC CreateCompatibleDC() = 0;
    virtual int GetDeviceCaps(int index) = 0;
    virtual int GetROP2() = 0;
    virtual int SetROP2(int mode) = 0;
    virtual int SetPolyFillMode(int mode) = 0;
    virtual int GetPolyFillMode() = 0;
    virtual COLORREF GetBkColor() = 0;
    virtual COLORREF SetBkColor(COLORREF color) = 0;
    virtual int GetBkMode() = 0;
    virtual int SetBkMode(int mode) = 0;
    virtual COLORREF GetTextColor() = 0;
    virtual BOOL GetBrushOrgEx(LPPOINT point) = 0;
    virtual BOOL SetBrushOrgEx(int x, int y, LPPOINT old) = 0;
    virtual int GetClipRgn(HRGN region) = 0;
    virtual int SelectClipRgn(HRGN region) = 0;
    virtual int IntersectClipRect(int left, int top, int right, int bottom) = 0;
    virtual int ExcludeClipRect(int left, int top, int right, int bottom) = 0;
    virtual int GetClipBox(LPRECT rect) = 0;
    virtual BOOL RectVisible(const RECT *rect) = 0;
    virtual int OffsetClipRgn(int x, int y) = 0;
    virtual HMETAFILE CloseMetaFile() = 0;
    virtual HDC ResetDCW(const DEVMODEW *devmode) = 0;
    virtual int Escape(int escape, int count, LPCSTR in, LPVOID out) = 0;
    virtual int StartDocW(const DOCINFOW *info) = 0;
    virtual int EndDoc() = 0;
    virtual int AbortDoc() = 0;
    virtual int SetAbortProc(ABORTPROC proc) = 0;
    virtual int StartPage() = 0;
    virtual int EndPage() = 0;
    // What the device made of a logical object (a pixmap, a brush record),
    // made on first use; 0 when the device can't have it.
    virtual DHANDLE RealizeObject(HGDIOBJ object) = 0;
    // Brings the selected object of `type` to the device before it is used;
    // 0 means the caller leaves that part out (a null pen, a null brush).
    virtual int ApplyObject(UINT type) = 0;

    // Asked by DeleteDC whether the context may go, with its data.
    DeleteDCProc deleteProc;
    HWND deleteProcData;
};

class CommonDeviceContext : public DeviceContext {
public:
    // Takes the table slot, empty save stack, default state and mapping.
    // The subclass makes the Pango context and calls initObj.
    explicit CommonDeviceContext(UINT type);
    // Releases the Pango context, both clip regions, every selected object
    // and every saved state.
    ~CommonDeviceContext() override;

    // ---- Operations with nothing to do on the contexts that inherit them.
    BOOL BitBlt(int x, int y, int cx, int cy, HDC hdcSrc, int x1, int y1, DWORD rop) override;
    int SetDIBitsToDevice(int xDest, int yDest, DWORD w, DWORD h, int xSrc, int ySrc, UINT startScan, UINT lines,
                          const void *bits, const BITMAPINFO *bmi, UINT colorUse) override;
    COLORREF GetPixel(int x, int y) override;
    COLORREF SetPixel(int x, int y, COLORREF color) override;
    BOOL StretchBlt(int xDest, int yDest, int wDest, int hDest, HDC hdcSrc, int xSrc, int ySrc, int wSrc, int hSrc,
                    DWORD rop) override;
    BOOL AlphaBlend(int xDest, int yDest, int wDest, int hDest, HDC hdcSrc, int xSrc, int ySrc, int wSrc, int hSrc,
                    BLENDFUNCTION blend) override;
    int StretchDIBits(int xDest, int yDest, int wDest, int hDest, int xSrc, int ySrc, int wSrc, int hSrc,
                      const void *bits, const BITMAPINFO *bmi, UINT usage, DWORD rop) override;
    BOOL FloodFill(int x, int y, COLORREF color) override;
    BOOL ExtFloodFill(int x, int y, COLORREF color, UINT type) override;
    BOOL SetTextJustification(int extra, int count) override;
    int EnumFontFamiliesExA(LPLOGFONTA logfont, FONTENUMPROCA proc, LPARAM lParam, DWORD flags) override;
    BOOL GetTextExtentPoint32W(LPCWSTR text, int count, LPSIZE size) override;
    int GetTextCharsetInfo(LPFONTSIGNATURE signature, DWORD flags) override;
    BOOL GetTextMetricsA(LPTEXTMETRICA metrics) override;
    BOOL ExtTextOutW(int x, int y, UINT options, const RECT *rect, LPCWSTR text, UINT count,
                     const INT *dx) override;
    DWORD SetMapperFlags(DWORD flags) override;
    DWORD GetCharacterPlacementW(LPCWSTR text, int count, int maxExtent, LPGCP_RESULTSW results,
                                 DWORD flags) override;
    // Every concrete context draws its own primitives: reaching these is a
    // programming error.
    BOOL LineTo(int x, int y) override;
    BOOL Polyline(const POINT *points, int count) override;
    BOOL Rectangle(int left, int top, int right, int bottom) override;
    BOOL RoundRect(int left, int top, int right, int bottom, int width, int height) override;
    BOOL Ellipse(int left, int top, int right, int bottom) override;
    BOOL Polygon(const POINT *points, int count) override;
    BOOL Arc(int left, int top, int right, int bottom, int x1, int y1, int x2, int y2) override;
    BOOL Chord(int left, int top, int right, int bottom, int x1, int y1, int x2, int y2) override;
    BOOL Pie(int left, int top, int right, int bottom, int x1, int y1, int x2, int y2) override;
    BOOL UpdateColors() override;
    HPALETTE SelectPalette(HPALETTE palette, BOOL forceBackground) override;
    UINT GetSystemPaletteEntries(UINT start, UINT count, LPPALETTEENTRY entries) override;
    HWND WindowFromDC() override;
    HMETAFILE CloseMetaFile() override;
    HDC ResetDCW(const DEVMODEW *devmode) override;
    int Escape(int escape, int count, LPCSTR in, LPVOID out) override;
    int StartDocW(const DOCINFOW *info) override;
    int EndDoc() override;
    int AbortDoc() override;
    int SetAbortProc(ABORTPROC proc) override;
    int StartPage() override;
    int EndPage() override;

    // ---- Attributes: store the value, return the old one; nothing checked.
    int SetStretchBltMode(int mode) override;
    int GetTextCharacterExtra() override;
    int SetTextCharacterExtra(int extra) override;
    BOOL MoveToEx(int x, int y, LPPOINT old) override;
    COLORREF SetTextColor(COLORREF color) override;
    UINT GetTextAlign() override;
    UINT SetTextAlign(UINT align) override;
    DWORD GetLayout() override;
    DWORD SetLayout(DWORD layout) override;
    int GetROP2() override;
    int SetROP2(int mode) override;
    int SetPolyFillMode(int mode) override;
    int GetPolyFillMode() override;
    COLORREF GetBkColor() override;
    COLORREF SetBkColor(COLORREF color) override;
    int GetBkMode() override;
    int SetBkMode(int mode) override;
    COLORREF GetTextColor() override;
    BOOL GetBrushOrgEx(LPPOINT point) override;
    BOOL SetBrushOrgEx(int x, int y, LPPOINT old) override;

    // ---- Objects and the save stack.
    HGDIOBJ GetCurrentObject(UINT type) override;
    HGDIOBJ SelectObject(HGDIOBJ object) override;
    int SaveDC() override;
    BOOL RestoreDC(int level) override;
    int ApplyObject(UINT type) override;

    // ---- Mapping.
    int GetMapMode() override;
    int SetMapMode(int mode) override;
    BOOL GetWindowOrgEx(LPPOINT point) override;
    BOOL SetWindowOrgEx(int x, int y, LPPOINT old) override;
    BOOL SetWindowExtEx(int cx, int cy, LPSIZE old) override;
    BOOL GetViewportOrgEx(LPPOINT point) override;
    BOOL SetViewportOrgEx(int x, int y, LPPOINT old) override;
    BOOL OffsetViewportOrgEx(int dx, int dy, LPPOINT old) override;
    BOOL OffsetWindowOrgEx(int dx, int dy, LPPOINT old) override;
    BOOL SetViewportExtEx(int cx, int cy, LPSIZE old) override;
    BOOL LPtoDP(LPPOINT points, int count) override;
    BOOL DPtoLP(LPPOINT points, int count) override;
    BOOL ScaleWindowExtEx(int xNum, int xDenom, int yNum, int yDenom, LPSIZE old) override;
    BOOL ScaleViewportExtEx(int xNum, int xDenom, int yNum, int yDenom, LPSIZE old) override;

    // ---- Clipping.
    int GetClipRgn(HRGN region) override;
    int SelectClipRgn(HRGN region) override;
    int IntersectClipRect(int left, int top, int right, int bottom) override;
    int ExcludeClipRect(int left, int top, int right, int bottom) override;
    int GetClipBox(LPRECT rect) override;
    BOOL RectVisible(const RECT *rect) override;
    int OffsetClipRgn(int x, int y) override;

    // ---- Operations that the screen and printer contexts add.
    // gdk_pango_context_get, left-to-right, the default language.
    virtual void createPangoContext();
    // The region the context can draw on, DC coordinates, into `region`;
    // the region type.
    virtual int GetVisibleRgn(HRGN region) = 0;
    // Stores a copy of `region` as the application's clip (null removes it)
    // and hands the combined clip to the device.
    virtual int setClipRegion(HRGN region);
    // Stores a copy of `region` as the painting clip of a window DC (null
    // removes it) and hands the combined clip to the device.
    virtual int setUpdateRgn(HRGN region);
    // Draws a shaped layout at a device point, clipped to `clip` when given.
    virtual BOOL drawPangoLayout(PangoLayout *layout, int x, int y, const RECT *clip, LPCWSTR text, int count) = 0;
    // Cuts a logical rectangle down to the visible part, with a pixel to spare.
    virtual BOOL ClipInputRect(RECT *rect);
    // The rectangle of the drawable in DC coordinates.
    virtual BOOL GetDrawableRect(RECT *rect) = 0;
    // Source and destination rectangles of a transfer, logical.
    virtual BOOL CalculateInputOutputRect(int xDest, int yDest, int wDest, int hDest, int xSrc, int ySrc, int wSrc,
                                          int hSrc, const BITMAPINFO *bmi, const RECT *bounds, RECT *rcSrc,
                                          RECT *rcDest, BOOL *flipX, BOOL *flipY);
    // Device steps of the transfers; real device coordinates.
    virtual int RenderPixbufToDevice(int x, int y, int w, int h, GdkPixbuf *pixbuf, HDC hdcSrc, DWORD rop);
    virtual BOOL RenderPixbuf(const RECT *rect, GdkPixbuf *pixbuf, DWORD rop);
    virtual int AlphaBlendPixbufToDevice(int x, int y, int w, int h, GdkPixbuf *pixbuf, const BLENDFUNCTION *blend);
    virtual BOOL RenderToDeviceWithoutZoom(int xDest, int yDest, int xSrc, int ySrc, int w, int h, HDC hdcSrc,
                                           DWORD rop);
    // Hands the combined clip to the device; null removes it.
    virtual void setGdkRegionToDevice(GdkRegion *region) = 0;
    virtual GdkColor GetGdkColor(COLORREF color);
    // A new pixbuf with the pixels of a rectangle of the drawable.
    virtual GdkPixbuf *GetClientImageData(const RECT *rect);
    // Logical points to points on the real drawable; LPtoDP unless the
    // device adds an offset of its own.
    virtual BOOL LogicalToRealDevice(LPPOINT points, int count);

    BOOL LogicalToRealDevice(LONG *x, LONG *y);
    BOOL LogicalToRealDevice(RECT *rect);

    // Selects the default objects of a new context.
    void initObj();
    // Deletes both clip regions.
    void clearInternalRegion();
    // Cuts a rectangle in device coordinates down to the visible area: to
    // the bounding box of the overlap, empty when nothing is visible; false
    // when the visible area can't be had.
    BOOL ClipDevRect(RECT *rect);
    // The mapping of a new context: unit extents, zero origins, identity.
    void init_coordinate_system();
    // Rebuilds the transforms from the origins and extents.
    void updateXforms();
    // Current attributes.
    const DCState &state() const { return dcState; }
    size_t savedDepth() const { return savedStates.size(); }

    PangoContext *pangoContext;
    DCState dcState;
    HRGN hUpdateRegion;
    std::deque<DCState> savedStates;

protected:
    // Background mode OPAQUE, white background, black text.
    void initBackAndColor();

private:
    // Puts a popped state back through the exported calls on this very
    // handle, so that the subclass sees every change.
    void restoreDCState(const DCState &saved);
    // Steps of SelectObject.
    bool mayHoldBitmap(HGDIOBJ bitmap);
    int storeClipRegion(HRGN region);
    // Steps of the clip calls: the type of the area the device draws on
    // now, and the selection of a new clip made from `area`, which is
    // taken over.
    int visibleRegionType();
    int selectClipArea(GdkRegion *area);
    // The rectangle with logical corners, in device coordinates and
    // normalised; null when the corners can't be converted.
    GdkRegion *deviceRectangleArea(int left, int top, int right, int bottom);
};

// ---- Handles -------------------------------------------------------------

// The handle names a live context (OBJ_DC, OBJ_MEMDC, OBJ_METADC); otherwise
// SetLastError(87) and FALSE.
BOOL IsValidHDC(HDC hdc);
// The context of a handle with one of those tags, or null; sets no error.
DeviceContext *GetDeviceContext(HDC hdc);
// The same, when the context is a screen or printer context.
CommonDeviceContext *GetCommonDeviceContext(HDC hdc);

// ---- Geometry helpers ----------------------------------------------------

// A negative width or height moves into the origin and becomes positive.
void NormalizeXYWH(int &x, int &y, int &w, int &h);
// Left at most right, top at most bottom.
void NormalizeRect(RECT &rc);
// Centre and the angles of the two radial points of an arc, whole degrees
// on the circle; a2 is at least a1.
void calcRadial(int &cx, int &cy, int l, int t, int r, int b, int x1, int y1, int x2, int y2,
                int &a1, int &a2);
// Mirrors a pixbuf in place: horizontally, vertically or both.
void MirrorImage(GdkPixbuf *pixbuf, BOOL flipX, BOOL flipY);
// A zeroed buffer long enough for a path name; the caller frees it with
// delete[].  `size` receives its size when given.
char *pathAlloc(int *size);
// The drawable is the root window of the default screen.
BOOL IsRootWindow(GdkDrawable *drawable);

// ---- Mapping helpers -------------------------------------------------------

// Transform arithmetic.  InvertXform leaves `out` alone and returns false
// when the transform has no usable inverse.
BOOL InvertXform(const XFORM &in, XFORM &out);
// One point through a transform, rounded half up, saturated to a LONG.
POINT TransformPoint(const XFORM &xform, LONG x, LONG y);

// Each takes a context handle and returns 0 for anything that isn't one.
// One point through LPtoDP, in place.
BOOL transforXY(HDC hdc, int *x, int *y);
// (x, y) and (x + w, y + h) through LPtoDP; w and h become the signed
// differences.
BOOL transforWidthAndHeight(HDC hdc, int *x, int *y, int *w, int *h);
// A size through LPtoDP or DPtoLP as the absolute difference of the images
// of (0, 0) and (cx, cy); either pointer may be null.
BOOL TransLPSize2DPSize(HDC hdc, int *cx, int *cy);
BOOL TransDPSize2LPSize(HDC hdc, int *cx, int *cy);

// Flips of a rectangle inside a height or width, no context involved.
void UpsetRectangle(int height, RECT *rc);
void LeftRightRectangle(int width, RECT *rc);

// ---- Regions the contexts keep --------------------------------------------

// A new region object with the same area as `region`, or 0.
HRGN CopyRegionObject(HRGN region);
// Replaces the area of `dest` by that of `source`; false for bad handles.
BOOL CopyRegionArea(HRGN dest, HRGN source);
// Gives `dest` the area `area`, which it takes over; false (and `area`
// destroyed) when `dest` is no live region.
BOOL ReplaceRegionArea(HRGN dest, GdkRegion *area);

} // namespace vorlan

// The virtual RealizeObject of the context; 0 for a bad handle.
DHANDLE RealizeObject(HDC hdc, HGDIOBJ object);

// ----------------------------------------------------------------------------
// The shape of an exported context call: take the toolkit lock, check the
// handle, and make one virtual call on the context, or give the call's
// failure value.

namespace vorlan {

// A handle that isn't a live context sets error 87 and gives `failure`.
template <typename Result, typename Call> Result CallOnDC(HDC hdc, Result failure, Call call)
{
    GtkCriticalSection lock;
    if (!IsValidHDC(hdc))
        return failure;
    return call(GetDeviceContext(hdc));
}

// For the calls that expect a valid context and so set no error: a handle
// that isn't one still only gives `failure`.
template <typename Result, typename Call> Result CallOnTrustedDC(HDC hdc, Result failure, Call call)
{
    GtkCriticalSection lock;
    DeviceContext *context = GetDeviceContext(hdc);
    if (context == nullptr)
        return failure;
    return call(context);
}

} // namespace vorlan

#endif // VORLAN_GDI_VORLDC_H
