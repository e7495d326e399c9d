// Reading regions back in tests: their rectangles, their box, and a
// picture of which pixels they hold.
#ifndef TESTS_VORLAN_GDI_REGION_TEST_HELPERS_H
#define TESTS_VORLAN_GDI_REGION_TEST_HELPERS_H

#include <windows.h>

#include <string>
#include <vector>

namespace region_test {

// "(left,top,right,bottom)".
std::string Str(const RECT &rect);

// The region's rectangles in GDK's order (bands top to bottom, left to
// right in a band), each as Str gives it, joined by spaces.
std::string Rects(HRGN region);

// The box GetRgnBox reports, as Str gives it.
std::string Box(HRGN region);

// One line per row from top to bottom-1, '#' for a pixel PtInRegion holds,
// '.' for one it does not.
std::string Picture(HRGN region, int left, int top, int right, int bottom);

// The pixels of row y that the region holds, as [first, last+1) runs.
std::vector<std::pair<int, int>> RowRuns(HRGN region, int y, int fromX, int toX);

} // namespace region_test

#endif // TESTS_VORLAN_GDI_REGION_TEST_HELPERS_H
