// What the screen and printer contexts share: construction and teardown,
// the operations that do no work on them, and the plain attributes.
#include "gdi/vorldc.h"

#include "gtk/vorlgtklock.h"
#include "vorlassert.h"

#include <gtk/gtk.h>

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

BOOL CommonDeviceContext::LineTo(int, int)
{
    g_assertion_message_expr(nullptr, "vorlan/gdi/vorldrawing", __LINE__, G_STRFUNC, "false");
}

BOOL CommonDeviceContext::Polyline(const POINT *, int)
{
    g_assertion_message_expr(nullptr, "vorlan/gdi/vorldrawing", __LINE__, G_STRFUNC, "false");
}

BOOL CommonDeviceContext::Rectangle(int, int, int, int)
{
    g_assertion_message_expr(nullptr, "vorlan/gdi/vorldrawing", __LINE__, G_STRFUNC, "false");
}

BOOL CommonDeviceContext::RoundRect(int, int, int, int, int, int)
{
    g_assertion_message_expr(nullptr, "vorlan/gdi/vorldrawing", __LINE__, G_STRFUNC, "false");
}

BOOL CommonDeviceContext::Ellipse(int, int, int, int)
{
    g_assertion_message_expr(nullptr, "vorlan/gdi/vorldrawing", __LINE__, G_STRFUNC, "false");
}

BOOL CommonDeviceContext::Polygon(const POINT *, int)
{
    g_assertion_message_expr(nullptr, "vorlan/gdi/vorldrawing", __LINE__, G_STRFUNC, "false");
}

BOOL CommonDeviceContext::Arc(int, int, int, int, int, int, int, int)
{
    g_assertion_message_expr(nullptr, "vorlan/gdi/vorldrawing", __LINE__, G_STRFUNC, "false");
}

BOOL CommonDeviceContext::Chord(int, int, int, int, int, int, int, int)
{
    g_assertion_message_expr(nullptr, "vorlan/gdi/vorldrawing", __LINE__, G_STRFUNC, "false");
}

BOOL CommonDeviceContext::Pie(int, int, int, int, int, int, int, int)
{
    g_assertion_message_expr(nullptr, "vorlan/gdi/vorldrawing", __LINE__, G_STRFUNC, "false");
}

BOOL CommonDeviceContext::UpdateColors()
{
    g_assertion_message_expr(nullptr, "vorlan/gdi/vorlcolor", __LINE__, G_STRFUNC, "false");
}

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
