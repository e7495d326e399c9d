// Exported clip calls of contexts.  A handle that is no live context gives
// error 87 and the call's failure value.
#include "gdi/vorldccall.h"

using vorlan::CallOnDC;
using vorlan::DeviceContext;

int WINAPI SelectClipRgn(HDC hdc, HRGN hrgn)
{
    return CallOnDC(hdc, ERROR, [&](DeviceContext *dc) { return dc->SelectClipRgn(hrgn); });
}

int WINAPI GetClipRgn(HDC hdc, HRGN hrgn)
{
    return CallOnDC(hdc, -1, [&](DeviceContext *dc) { return dc->GetClipRgn(hrgn); });
}

int WINAPI IntersectClipRect(HDC hdc, int left, int top, int right, int bottom)
{
    return CallOnDC(hdc, ERROR, [&](DeviceContext *dc) { return dc->IntersectClipRect(left, top, right, bottom); });
}

int WINAPI ExcludeClipRect(HDC hdc, int left, int top, int right, int bottom)
{
    return CallOnDC(hdc, ERROR, [&](DeviceContext *dc) { return dc->ExcludeClipRect(left, top, right, bottom); });
}

int WINAPI OffsetClipRgn(HDC hdc, int x, int y)
{
    return CallOnDC(hdc, ERROR, [&](DeviceContext *dc) { return dc->OffsetClipRgn(x, y); });
}

int WINAPI GetClipBox(HDC hdc, LPRECT lprect)
{
    return CallOnDC(hdc, ERROR, [&](DeviceContext *dc) { return dc->GetClipBox(lprect); });
}

BOOL WINAPI RectVisible(HDC hdc, const RECT *lprect)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->RectVisible(lprect); });
}
