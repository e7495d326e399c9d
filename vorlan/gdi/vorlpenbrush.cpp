// Pens and brushes.
#include "gdi/vorlbitmapobject.h"
#include "gdi/vorlgdiobject.h"
#include "gtk/vorlgtklock.h"

using vorlan::LogicalGdiObject;

HPEN WINAPI CreatePenIndirect(const LOGPEN *plpen)
{
    if (plpen == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    vorlan::GtkCriticalSection lock;
    LogicalGdiObject *object = LogicalGdiObject::Create(OBJ_PEN);
    if (object == nullptr) {
        SetLastError(0);
        return nullptr;
    }
    object->record.pen = *plpen;
    return static_cast<HPEN>(object->handle);
}

HPEN WINAPI CreatePen(int iStyle, int cWidth, COLORREF color)
{
    const LOGPEN pen = {static_cast<UINT>(iStyle), {cWidth, cWidth}, color};
    return CreatePenIndirect(&pen);
}

// A pattern brush keeps a copy of its bitmap, so that the application may
// delete its own.
HBRUSH WINAPI CreateBrushIndirect(const LOGBRUSH *plbrush)
{
    if (plbrush == nullptr) {
        SetLastError(0);
        return nullptr;
    }
    vorlan::GtkCriticalSection lock;
    LOGBRUSH logbrush = *plbrush;
    HBITMAP hPatternCopy = nullptr;
    if (logbrush.lbStyle == BS_PATTERN) {
        hPatternCopy = vorlan::bitmapCopy(reinterpret_cast<HBITMAP>(logbrush.lbHatch));
        if (hPatternCopy == nullptr) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return nullptr;
        }
        logbrush.lbHatch = reinterpret_cast<ULONG_PTR>(hPatternCopy);
    }
    LogicalGdiObject *object = LogicalGdiObject::Create(OBJ_BRUSH);
    if (object == nullptr) {
        ReleaseRef(hPatternCopy, vorlan::kObjectRef);
        SetLastError(0);
        return nullptr;
    }
    object->record.brush.logbrush = logbrush;
    object->record.brush.hPatternCopy = hPatternCopy;
    return static_cast<HBRUSH>(object->handle);
}

HBRUSH WINAPI CreateSolidBrush(COLORREF color)
{
    const LOGBRUSH brush = {BS_SOLID, color, 0};
    return CreateBrushIndirect(&brush);
}

HBRUSH WINAPI CreateHatchBrush(int iHatch, COLORREF color)
{
    const LOGBRUSH brush = {BS_HATCHED, color, static_cast<ULONG_PTR>(iHatch)};
    return CreateBrushIndirect(&brush);
}

HBRUSH WINAPI CreatePatternBrush(HBITMAP hbm)
{
    const LOGBRUSH brush = {BS_PATTERN, 0, reinterpret_cast<ULONG_PTR>(hbm)};
    return CreateBrushIndirect(&brush);
}

// The packed DIB stays the caller's; the brush only names it.
HBRUSH WINAPI CreateDIBPatternBrush(HGLOBAL h, UINT iUsage)
{
    const LOGBRUSH brush = {BS_DIBPATTERN, iUsage, reinterpret_cast<ULONG_PTR>(h)};
    return CreateBrushIndirect(&brush);
}

// Brushes from a packed DIB in plain memory are not supported.
HBRUSH WINAPI CreateDIBPatternBrushPt(const void *, UINT)
{
    return nullptr;
}
