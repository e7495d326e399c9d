// The shape of an exported context call: take the toolkit lock, check the
// handle, and make one virtual call on the context, or give the call's
// failure value.
#ifndef VORLAN_GDI_VORLDCCALL_H
#define VORLAN_GDI_VORLDCCALL_H

#include "gdi/vorldc.h"
#include "gtk/vorlgtklock.h"

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

#endif // VORLAN_GDI_VORLDCCALL_H
