// Conversions between Win32 rectangles and GdkRectangles.
#include "gdi/vorlregionrect.h"

#include <algorithm>
#include <climits>
#include <cstdlib>

namespace {

// A distance that does not fit an int becomes the nearest int.
int ClampToInt(long long value)
{
    return static_cast<int>(std::clamp<long long>(value, INT_MIN, INT_MAX));
}

int Span(LONG from, LONG to)
{
    return ClampToInt(static_cast<long long>(to) - from);
}

int AbsoluteSpan(LONG from, LONG to)
{
    return ClampToInt(std::llabs(static_cast<long long>(to) - from));
}

} // namespace

GdkRectangle vorlan::GdkRectFromRect(const RECT &rect)
{
    return {rect.left, rect.top, Span(rect.left, rect.right), Span(rect.top, rect.bottom)};
}

GdkRectangle vorlan::GdkRectWithAbsoluteSize(const RECT &rect)
{
    return {rect.left, rect.top, AbsoluteSpan(rect.left, rect.right), AbsoluteSpan(rect.top, rect.bottom)};
}

GdkRectangle vorlan::NormalizedGdkRect(const RECT &rect)
{
    return {std::min(rect.left, rect.right), std::min(rect.top, rect.bottom), AbsoluteSpan(rect.left, rect.right),
            AbsoluteSpan(rect.top, rect.bottom)};
}

RECT vorlan::RectFromGdkRect(const GdkRectangle &rect)
{
    return {rect.x, rect.y, ClampToInt(static_cast<long long>(rect.x) + rect.width),
            ClampToInt(static_cast<long long>(rect.y) + rect.height)};
}
