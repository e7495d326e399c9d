// The cores of GetClassLong and SetClassLong and of their pointer-sized
// forms.  The caller holds the toolkit lock.
//
// Where a LONG cannot hold a pointer the 32-bit forms refuse the indexes
// that hold pointers or handles (error 1413), as the window longs do.  The
// class extra bytes and the indexes without a field read and write nothing
// and give 0.
#ifndef VORLAN_VORLCLASSLONG_H
#define VORLAN_VORLCLASSLONG_H

#include <windows.h>

#include "gtk/vorlwindowlong.h"

namespace vorlan {

ULONG_PTR GetClassLongCore(HWND hWnd, int index, BOOL wide, LongWidth width);
ULONG_PTR SetClassLongCore(HWND hWnd, int index, LONG_PTR value, BOOL wide, LongWidth width);

} // namespace vorlan

#endif // VORLAN_VORLCLASSLONG_H
