// The device context core: the state every context shares, attributes,
// object selection, the save stack, and the geometry helpers.
#include "gdi/vorldc.h"

#include "gdi/vorlregion.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindowpaint.h"
#include "vorlassert.h"

#include <gtk/gtk.h>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <new>
#include <unistd.h>
#include <utility>

// ----------------------------------------------------------------------------
// What the screen and printer contexts share: construction and teardown,
// the operations that do no work on them, and the plain attributes.

namespace vorlan {

CommonDeviceContext::CommonDeviceContext(UINT type)
    : DeviceContext(type), pangoContext(nullptr), dcState(), hUpdateRegion(nullptr), savedStates()
{
    init_coordinate_system();
    initBackAndColor();
}

CommonDeviceContext::~CommonDeviceContext()
{
    if (pangoContext != nullptr)
        g_object_unref(pangoContext);
    clearInternalRegion();
    for (HGDIOBJ &object : dcState.hObjects) {
        if (object != nullptr)
            ReleaseRef(object, kSelectRef);
        object = nullptr;
    }
    while (!savedStates.empty()) {
        savedStates.back().decreaseObjectRef();
        savedStates.pop_back();
    }
}

void CommonDeviceContext::initBackAndColor()
{
    dcState.nBkMode = OPAQUE;
    dcState.crBkColor = 0xFFFFFF;
    dcState.crTextColor = 0;
}

void CommonDeviceContext::clearInternalRegion()
{
    if (dcState.hClipRegion != nullptr)
        DeleteObject(dcState.hClipRegion);
    if (hUpdateRegion != nullptr)
        DeleteObject(hUpdateRegion);
    dcState.hClipRegion = nullptr;
    hUpdateRegion = nullptr;
}

void CommonDeviceContext::createPangoContext()
{
    PangoContext *context = gdk_pango_context_get();
    pango_context_set_base_dir(context, PANGO_DIRECTION_LTR);
    pango_context_set_language(context, gtk_get_default_language());
    if (pangoContext != nullptr)
        g_object_unref(pangoContext);
    pangoContext = context;
}

// ---- Operations without work ------------------------------------------------

BOOL CommonDeviceContext::BitBlt(int, int, int, int, HDC, int, int, DWORD) { return FALSE; }

int CommonDeviceContext::SetDIBitsToDevice(int, int, DWORD, DWORD, int, int, UINT, UINT, const void *,
                                           const BITMAPINFO *, UINT)
{
    return 0;
}

COLORREF CommonDeviceContext::GetPixel(int, int) { return CLR_INVALID; }

COLORREF CommonDeviceContext::SetPixel(int, int, COLORREF) { return CLR_INVALID; }

BOOL CommonDeviceContext::StretchBlt(int, int, int, int, HDC, int, int, int, int, DWORD) { return FALSE; }

BOOL CommonDeviceContext::AlphaBlend(int, int, int, int, HDC, int, int, int, int, BLENDFUNCTION) { return FALSE; }

int CommonDeviceContext::StretchDIBits(int, int, int, int, int, int, int, int, const void *, const BITMAPINFO *,
                                       UINT, DWORD)
{
    return 0;
}

// No context that inherits these can flood fill.  The lock is taken and
// dropped like in the operations that do draw.
BOOL CommonDeviceContext::FloodFill(int, int, COLORREF)
{
    GtkCriticalSection lock;
    return FALSE;
}

BOOL CommonDeviceContext::ExtFloodFill(int, int, COLORREF, UINT)
{
    GtkCriticalSection lock;
    return FALSE;
}

BOOL CommonDeviceContext::SetTextJustification(int, int) { return FALSE; }

int CommonDeviceContext::EnumFontFamiliesExA(LPLOGFONTA, FONTENUMPROCA, LPARAM, DWORD) { return 0; }

BOOL CommonDeviceContext::GetTextExtentPoint32W(LPCWSTR, int, LPSIZE) { return FALSE; }

int CommonDeviceContext::GetTextCharsetInfo(LPFONTSIGNATURE, DWORD) { return DEFAULT_CHARSET; }

BOOL CommonDeviceContext::GetTextMetricsA(LPTEXTMETRICA) { return FALSE; }

BOOL CommonDeviceContext::ExtTextOutW(int, int, UINT, const RECT *, LPCWSTR, UINT, const INT *) { return FALSE; }

DWORD CommonDeviceContext::SetMapperFlags(DWORD) { return GDI_ERROR; }

DWORD CommonDeviceContext::GetCharacterPlacementW(LPCWSTR, int, int, LPGCP_RESULTSW, DWORD) { return 0; }

HPALETTE CommonDeviceContext::SelectPalette(HPALETTE, BOOL) { return nullptr; }

HWND CommonDeviceContext::WindowFromDC() { return nullptr; }

HMETAFILE CommonDeviceContext::CloseMetaFile() { return nullptr; }

// A context that can't print has nothing to reset.
HDC CommonDeviceContext::ResetDCW(const DEVMODEW *) { return static_cast<HDC>(handle); }

int CommonDeviceContext::Escape(int, int, LPCSTR, LPVOID) { return 0; }

int CommonDeviceContext::StartDocW(const DOCINFOW *) { return 0; }

int CommonDeviceContext::EndDoc() { return 0; }

int CommonDeviceContext::AbortDoc() { return -1; }

int CommonDeviceContext::SetAbortProc(ABORTPROC) { return -1; }

int CommonDeviceContext::StartPage() { return 0; }

int CommonDeviceContext::EndPage() { return 0; }

BOOL CommonDeviceContext::ClipInputRect(RECT *) { return FALSE; }

BOOL CommonDeviceContext::CalculateInputOutputRect(int, int, int, int, int, int, int, int, const BITMAPINFO *,
                                                   const RECT *, RECT *, RECT *, BOOL *, BOOL *)
{
    return FALSE;
}

int CommonDeviceContext::RenderPixbufToDevice(int, int, int, int, GdkPixbuf *, HDC, DWORD) { return 0; }

BOOL CommonDeviceContext::RenderPixbuf(const RECT *rect, GdkPixbuf *pixbuf, DWORD rop)
{
    if (rect == nullptr)
        return FALSE;
    RECT rc = *rect;
    NormalizeRect(rc);
    return RenderPixbufToDevice(rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top, pixbuf, nullptr, rop) != 0;
}

int CommonDeviceContext::AlphaBlendPixbufToDevice(int, int, int, int, GdkPixbuf *, const BLENDFUNCTION *)
{
    return 0;
}

BOOL CommonDeviceContext::RenderToDeviceWithoutZoom(int, int, int, int, int, int, HDC, DWORD) { return FALSE; }

GdkColor CommonDeviceContext::GetGdkColor(COLORREF)
{
    GdkColor none = {};
    return none;
}

GdkPixbuf *CommonDeviceContext::GetClientImageData(const RECT *) { return nullptr; }

BOOL CommonDeviceContext::LogicalToRealDevice(LPPOINT points, int count) { return LPtoDP(points, count); }

BOOL CommonDeviceContext::LogicalToRealDevice(LONG *x, LONG *y)
{
    POINT point = {*x, *y};
    const BOOL done = LogicalToRealDevice(&point, 1);
    *x = point.x;
    *y = point.y;
    return done;
}

BOOL CommonDeviceContext::LogicalToRealDevice(RECT *rect)
{
    return LogicalToRealDevice(reinterpret_cast<POINT *>(rect), 2);
}

// Fonts reach the device when text is drawn; the other objects need
// nothing at this level.
int CommonDeviceContext::ApplyObject(UINT type) { return type == OBJ_FONT ? 1 : 0; }

// ---- Attributes ------------------------------------------------------------

namespace {

template <typename T> T Exchange(T &field, T value)
{
    const T old = field;
    field = value;
    return old;
}

} // namespace

int CommonDeviceContext::SetStretchBltMode(int mode) { return Exchange(dcState.nStretchBltMode, mode); }

int CommonDeviceContext::GetTextCharacterExtra() { return dcState.nCharExtra; }

int CommonDeviceContext::SetTextCharacterExtra(int extra) { return Exchange(dcState.nCharExtra, extra); }

BOOL CommonDeviceContext::MoveToEx(int x, int y, LPPOINT old)
{
    if (old != nullptr)
        *old = dcState.ptCurrent;
    dcState.ptCurrent = {x, y};
    return TRUE;
}

COLORREF CommonDeviceContext::SetTextColor(COLORREF color) { return Exchange(dcState.crTextColor, color); }

UINT CommonDeviceContext::GetTextAlign() { return dcState.nTextAlign; }

UINT CommonDeviceContext::SetTextAlign(UINT align) { return Exchange(dcState.nTextAlign, align); }

DWORD CommonDeviceContext::GetLayout() { return dcState.dwLayout; }

DWORD CommonDeviceContext::SetLayout(DWORD layout) { return Exchange(dcState.dwLayout, layout); }

int CommonDeviceContext::GetROP2() { return dcState.nROP2; }

int CommonDeviceContext::SetROP2(int mode) { return Exchange(dcState.nROP2, mode); }

int CommonDeviceContext::SetPolyFillMode(int mode) { return Exchange(dcState.nPolyFillMode, mode); }

int CommonDeviceContext::GetPolyFillMode() { return dcState.nPolyFillMode; }

COLORREF CommonDeviceContext::GetBkColor() { return dcState.crBkColor; }

COLORREF CommonDeviceContext::SetBkColor(COLORREF color) { return Exchange(dcState.crBkColor, color); }

int CommonDeviceContext::GetBkMode() { return dcState.nBkMode; }

int CommonDeviceContext::SetBkMode(int mode) { return Exchange(dcState.nBkMode, mode); }

COLORREF CommonDeviceContext::GetTextColor() { return dcState.crTextColor; }

BOOL CommonDeviceContext::GetBrushOrgEx(LPPOINT point)
{
    GtkCriticalSection lock;
    if (point == nullptr)
        return FALSE;
    *point = dcState.ptBrushOrg;
    return TRUE;
}

// The origin takes effect when a pattern brush is next realised.
BOOL CommonDeviceContext::SetBrushOrgEx(int x, int y, LPPOINT old)
{
    GtkCriticalSection lock;
    if (old != nullptr)
        *old = dcState.ptBrushOrg;
    dcState.ptBrushOrg = {x, y};
    return TRUE;
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// The attribute set of a context and the references a saved copy holds.

namespace vorlan {

namespace {

constexpr XFORM kIdentity = {1.0f, 0.0f, 0.0f, 1.0f, 0.0f, 0.0f};

} // namespace

DCState::DCState()
    : nBkMode(OPAQUE), nROP2(R2_COPYPEN), nMapMode(MM_TEXT), xformWorld(kIdentity), xformWorldToDevice(kIdentity),
      xformDeviceToWorld(kIdentity), ptViewportOrg{0, 0}, szViewportExt{1, 1}, ptWindowOrg{0, 0},
      szWindowExt{1, 1}, nPolyFillMode(ALTERNATE), nStretchBltMode(BLACKONWHITE), bForceBackground(TRUE),
      ptBrushOrg{0, 0}, hObjects(), hClipRegion(nullptr), crBkColor(0xFFFFFF), crTextColor(0), nTextAlign(0),
      dwLayout(0), nBreakExtra(0), nCharExtra(0), ptCurrent{0, 0}
{
}

void DCState::increaseObjectRef()
{
    for (HGDIOBJ object : hObjects) {
        if (object != nullptr)
            AddRef(object, kSavedRef);
    }
    if (hClipRegion != nullptr)
        hClipRegion = CopyRegionObject(hClipRegion);
}

void DCState::decreaseObjectRef()
{
    for (HGDIOBJ object : hObjects) {
        if (object != nullptr)
            ReleaseRef(object, kSavedRef);
    }
    if (hClipRegion != nullptr) {
        DeleteObject(hClipRegion);
        hClipRegion = nullptr;
    }
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// Selecting objects into a context.  A selection holds a selection
// reference on the object, so an object the application deletes while it
// is selected lives on until the context lets it go.

namespace vorlan {

namespace {

// What each new context selects, in this order.
struct DefaultObject {
    UINT type;
    int stockIndex;
};
constexpr int kDefaultBitmapStockIndex = 21;
constexpr DefaultObject default_objects[] = {
    {OBJ_BITMAP, kDefaultBitmapStockIndex}, {OBJ_BRUSH, WHITE_BRUSH}, {OBJ_FONT, SYSTEM_FONT},
    {OBJ_PEN, BLACK_PEN},                   {OBJ_PAL, DEFAULT_PALETTE},
};

bool IsSelectableType(UINT type)
{
    return type == OBJ_PEN || type == OBJ_BRUSH || type == OBJ_FONT || type == OBJ_BITMAP || type == OBJ_REGION;
}

} // namespace

void CommonDeviceContext::initObj()
{
    for (HGDIOBJ &object : dcState.hObjects)
        object = nullptr;
    for (const DefaultObject &entry : default_objects) {
        HGDIOBJ object = GetStockObject(entry.stockIndex);
        if (entry.type == OBJ_PAL)
            SelectPalette(static_cast<HPALETTE>(object), TRUE);
        else
            SelectObject(object);
    }
}

HGDIOBJ CommonDeviceContext::GetCurrentObject(UINT type)
{
    switch (type) {
    case OBJ_PEN:
    case OBJ_BRUSH:
    case OBJ_PAL:
    case OBJ_FONT:
    case OBJ_BITMAP:
        return dcState.hObjects[type];
    default:
        return nullptr;
    }
}

// A bitmap goes into one memory context at a time (stock bitmaps into any),
// and only with one bit per pixel or the depth of the device.
bool CommonDeviceContext::mayHoldBitmap(HGDIOBJ bitmap)
{
    const LogicalGdiObject *object = LogicalGdiObject::FromHandle(bitmap, OBJ_BITMAP);
    if (object == nullptr || type() != OBJ_MEMDC)
        return false;
    if (!IsStockObject(bitmap) && object->selectRef > 1)
        return false;
    const int depth = object->record.bitmap.bitmap.bmBitsPixel;
    return depth == 1 || depth == GetDeviceCaps(BITSPIXEL);
}

HGDIOBJ CommonDeviceContext::SelectObject(HGDIOBJ object)
{
    const UINT objectType = GetObjectType(object);
    if (!IsSelectableType(objectType))
        return nullptr;
    if (objectType == OBJ_REGION)
        return reinterpret_cast<HGDIOBJ>(static_cast<INT_PTR>(SelectClipRgn(static_cast<HRGN>(object))));
    HGDIOBJ &slot = dcState.hObjects[objectType];
    if (slot == object)
        return object;
    HGDIOBJ old = slot;
    AddRef(object, kSelectRef);
    if (objectType == OBJ_BITMAP && !mayHoldBitmap(object)) {
        ReleaseRef(object, kSelectRef);
        return nullptr;
    }
    if (objectType != OBJ_FONT && RealizeObject(object) == 0) {
        ReleaseRef(object, kSelectRef);
        return nullptr;
    }
    slot = object;
    // Pens, brushes and fonts reach the device when drawing uses them.  A
    // bitmap becomes the drawable at once, before the old one is let go:
    // the device still compares against the old pixmap.
    if (objectType == OBJ_BITMAP)
        ApplyObject(objectType);
    ReleaseRef(old, kSelectRef);
    return old;
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// The save stack of a context.

namespace vorlan {

int CommonDeviceContext::SaveDC()
{
    DCState saved = dcState;
    saved.increaseObjectRef();
    savedStates.push_back(saved);
    return static_cast<int>(savedStates.size());
}

// A negative level counts from the top: -1 is the last saved state.
BOOL CommonDeviceContext::RestoreDC(int level)
{
    const int depth = static_cast<int>(savedStates.size());
    if (level < 0)
        level += depth + 1;
    if (level < 1 || level > depth)
        return FALSE;
    while (level < static_cast<int>(savedStates.size())) {
        savedStates.back().decreaseObjectRef();
        savedStates.pop_back();
    }
    const DCState saved = savedStates.back();
    restoreDCState(saved);
    savedStates.back().decreaseObjectRef();
    savedStates.pop_back();
    return TRUE;
}

void CommonDeviceContext::restoreDCState(const DCState &saved)
{
    HDC hdc = static_cast<HDC>(handle);
    ::SetBkMode(hdc, saved.nBkMode);
    ::SetROP2(hdc, saved.nROP2);

    dcState.xformWorld = saved.xformWorld;
    dcState.xformWorldToDevice = saved.xformWorldToDevice;
    dcState.xformDeviceToWorld = saved.xformDeviceToWorld;
    dcState.ptViewportOrg = saved.ptViewportOrg;
    dcState.szViewportExt = saved.szViewportExt;
    dcState.ptWindowOrg = saved.ptWindowOrg;
    dcState.szWindowExt = saved.szWindowExt;
    ::SetMapMode(hdc, saved.nMapMode);

    ::SetPolyFillMode(hdc, saved.nPolyFillMode);
    ::SetStretchBltMode(hdc, saved.nStretchBltMode);
    ::SetBrushOrgEx(hdc, saved.ptBrushOrg.x, saved.ptBrushOrg.y, nullptr);

    // The bitmap first: a memory context's drawable follows it.
    HGDIOBJ bitmap = saved.hObjects[OBJ_BITMAP];
    if (bitmap != nullptr && bitmap != dcState.hObjects[OBJ_BITMAP])
        ::SelectObject(hdc, bitmap);
    for (int i = 0; i < kDCObjectSlots; ++i) {
        HGDIOBJ object = saved.hObjects[i];
        if (i == OBJ_BITMAP || object == nullptr || object == dcState.hObjects[i])
            continue;
        if (i == OBJ_PAL)
            ::SelectPalette(hdc, static_cast<HPALETTE>(object), saved.bForceBackground);
        else
            ::SelectObject(hdc, object);
    }

    ::SelectClipRgn(hdc, nullptr);
    if (saved.hClipRegion != nullptr)
        ::SelectClipRgn(hdc, saved.hClipRegion);

    ::SetBkColor(hdc, saved.crBkColor);
    ::SetTextColor(hdc, saved.crTextColor);
    ::SetTextAlign(hdc, saved.nTextAlign);
    ::SetLayout(hdc, saved.dwLayout);
    ::SetTextCharacterExtra(hdc, saved.nCharExtra);

    dcState.nBreakExtra = saved.nBreakExtra;
    dcState.ptCurrent = saved.ptCurrent;
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// Small geometry helpers of the drawing code.

namespace vorlan {

void NormalizeXYWH(int &x, int &y, int &w, int &h)
{
    if (w < 0) {
        x += w;
        w = -w;
    }
    if (h < 0) {
        y += h;
        h = -h;
    }
}

void NormalizeRect(RECT &rc)
{
    if (rc.left > rc.right)
        std::swap(rc.left, rc.right);
    if (rc.top > rc.bottom)
        std::swap(rc.top, rc.bottom);
}

namespace {

constexpr double kPi = 3.1415926;

// Whole degrees of the direction from the centre to a point, y upward.
int RadialAngle(int cx, int cy, int x, int y)
{
    const int dy = cy - y;
    const int dx = x - cx;
    if (dx == 0)
        return dy >= 1 ? 90 : 270;
    return static_cast<int>(std::atan2(static_cast<double>(dy), static_cast<double>(dx)) * 180.0 / kPi + 0.5);
}

} // namespace

void calcRadial(int &cx, int &cy, int l, int t, int r, int b, int x1, int y1, int x2, int y2, int &a1, int &a2)
{
    cx = l + ((r - l) >> 1);
    cy = t + ((b - t) >> 1);
    a1 = RadialAngle(cx, cy, x1, y1);
    while (a1 < 0)
        a1 += 360;
    a2 = RadialAngle(cx, cy, x2, y2);
    while (a2 < a1)
        a2 += 360;
}

// Rows are as wide as width x channels, rounded up to 4 bytes.
void MirrorImage(GdkPixbuf *pixbuf, BOOL flipX, BOOL flipY)
{
    if (pixbuf == nullptr || (!flipX && !flipY))
        return;
    const int width = gdk_pixbuf_get_width(pixbuf);
    const int height = gdk_pixbuf_get_height(pixbuf);
    const int channels = gdk_pixbuf_get_n_channels(pixbuf);
    const int stride = (width * channels + 3) & ~3;
    guchar *pixels = gdk_pixbuf_get_pixels(pixbuf);
    if (flipX) {
        for (int row = 0; row < height; ++row) {
            guchar *line = pixels + static_cast<size_t>(row) * stride;
            for (int left = 0, right = width - 1; left < right; ++left, --right) {
                for (int c = 0; c < channels; ++c)
                    std::swap(line[left * channels + c], line[right * channels + c]);
            }
        }
    }
    if (flipY) {
        const size_t rowBytes = static_cast<size_t>(width) * channels;
        for (int top = 0, bottom = height - 1; top < bottom; ++top, --bottom) {
            guchar *a = pixels + static_cast<size_t>(top) * stride;
            guchar *b = pixels + static_cast<size_t>(bottom) * stride;
            for (size_t i = 0; i < rowBytes; ++i)
                std::swap(a[i], b[i]);
        }
    }
}

namespace {

// 0 until first asked; the path limit plus room for a terminator and one
// more character.
long s_pathMax = 0;
constexpr long kGuessedPathMax = 1024;

} // namespace

char *pathAlloc(int *size)
{
    if (s_pathMax == 0) {
        errno = 0;
        const long limit = pathconf("/", _PC_PATH_MAX);
        if (limit < 0) {
            if (errno != 0)
                std::perror("pathconf error for _PC_PATH_MAX");
            s_pathMax = kGuessedPathMax;
        } else {
            s_pathMax = limit;
        }
        s_pathMax += 2;
    }
    char *buffer = new (std::nothrow) char[s_pathMax]();
    if (buffer == nullptr)
        std::perror("new mem error for pathname");
    if (size != nullptr)
        *size = static_cast<int>(s_pathMax);
    return buffer;
}

BOOL IsRootWindow(GdkDrawable *drawable)
{
    return drawable != nullptr && drawable == gdk_get_default_root_window();
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// The painting clip of a window DC: the part of the window's update region
// that BeginPaint hands over.  It combines with the application's clip and
// is not part of the saved state.

namespace vorlan {

int CommonDeviceContext::setUpdateRgn(HRGN region)
{
    if (region == nullptr) {
        if (hUpdateRegion != nullptr)
            DeleteObject(hUpdateRegion);
        hUpdateRegion = nullptr;
    } else {
        if (GetGdkRegion(region) == nullptr)
            return ERROR;
        if (hUpdateRegion == nullptr)
            hUpdateRegion = CreateRectRgn(0, 0, 0, 0);
        if (!CopyRegionArea(hUpdateRegion, region))
            return ERROR;
    }
    GdkRegion *clip = GetGdkRegion(dcState.hClipRegion);
    GdkRegion *update = GetGdkRegion(hUpdateRegion);
    if (clip != nullptr && update != nullptr) {
        GdkRegion *combined = gdk_region_copy(clip);
        gdk_region_intersect(combined, update);
        setGdkRegionToDevice(combined);
        gdk_region_destroy(combined);
    } else {
        setGdkRegionToDevice(clip != nullptr ? clip : update);
    }
    return 1;
}

} // namespace vorlan

int _SetWindowDCUpdateRegion(HDC hdc, HRGN hrgn)
{
    vorlan::GtkCriticalSection lock;
    vorlan::CommonDeviceContext *context = vorlan::GetCommonDeviceContext(hdc);
    return context != nullptr ? context->setUpdateRgn(hrgn) : ERROR;
}
