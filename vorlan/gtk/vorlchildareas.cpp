// The share of an area that each visible child of a window lies under, for
// invalidation and validation alike.
#include "gtk/vorlpaint.h"

namespace vorlan {

void PassToVisibleChildren(Window *pWnd, HRGN screenArea, RECT Window::*covered,
                           BOOL (*apply)(Window *, HRGN, UINT), UINT flags)
{
    for (Window *child = pWnd->pWndChild; child != nullptr; child = child->pWndNext) {
        if (!(child->dwStyle & WS_VISIBLE))
            continue;
        HRGN part = CreateRectRgnIndirect(&(child->*covered));
        if (part == nullptr)
            continue;
        const int type = CombineRgn(part, part, screenArea, RGN_AND);
        if (type != ERROR && type != NULLREGION) {
            OffsetRgn(part, -child->rcClient.left, -child->rcClient.top);
            apply(child, part, flags);
        }
        DeleteObject(part);
    }
}

} // namespace vorlan
