/*
 * vorlan.h - calls of the library's own, beside the Win32 interface.
 */
#ifndef VORLAN_VORLAN_H
#define VORLAN_VORLAN_H

#include "windef.h"

#ifndef RC_INVOKED

#define VORLANAPI VORLAN_EXTERN_C VORLAN_EXPORT

/* The host program calls this once its environment manager is up: the
 * library then reads API_TIMECOST_LOG and VORL_LOG_FILE. */
VORLANAPI void QRTInitedCallback(void);

/* The window whose X window has the given XID, or 0 when that X window is
 * not one of the library's windows. */
VORLANAPI HWND GetWindowHandleFromXID(unsigned long xid);

#endif /* RC_INVOKED */
#endif /* VORLAN_VORLAN_H */
