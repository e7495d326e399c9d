#include "support/region_test_helpers.h"

#include "gdi/vorlgdiobject.h"
#include "gtk/vorlgtklock.h"

namespace region_test {

std::string Str(const RECT &rect)
{
    return "(" + std::to_string(rect.left) + "," + std::to_string(rect.top) + "," + std::to_string(rect.right) + "," +
           std::to_string(rect.bottom) + ")";
}

std::string Rects(HRGN region)
{
    vorlan::GtkCriticalSection lock;
    GdkRegion *gdkRegion = GetGdkRegion(region);
    if (gdkRegion == nullptr)
        return "no region";
    GdkRectangle *rectangles = nullptr;
    gint count = 0;
    gdk_region_get_rectangles(gdkRegion, &rectangles, &count);
    std::string text;
    for (gint i = 0; i < count; ++i) {
        const GdkRectangle &r = rectangles[i];
        text += (i ? " " : "") + Str({r.x, r.y, r.x + r.width, r.y + r.height});
    }
    g_free(rectangles);
    return text;
}

std::string Box(HRGN region)
{
    RECT box = {-1, -1, -1, -1};
    GetRgnBox(region, &box);
    return Str(box);
}

std::string Picture(HRGN region, int left, int top, int right, int bottom)
{
    std::string text;
    for (int y = top; y < bottom; ++y) {
        for (int x = left; x < right; ++x)
            text += PtInRegion(region, x, y) ? '#' : '.';
        text += '\n';
    }
    return text;
}

std::vector<std::pair<int, int>> RowRuns(HRGN region, int y, int fromX, int toX)
{
    std::vector<std::pair<int, int>> runs;
    for (int x = fromX; x < toX; ++x) {
        if (!PtInRegion(region, x, y))
            continue;
        if (!runs.empty() && runs.back().second == x)
            runs.back().second = x + 1;
        else
            runs.push_back({x, x + 1});
    }
    return runs;
}

} // namespace region_test
