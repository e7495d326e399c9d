// The system palette as the screen shows it: only displays with a palette
// have one, and its entries are reported as zeros.
#include "gdi/vorldccall.h"

#include <cstring>

namespace {

bool HasPaletteCaps(vorlan::DeviceContext *dc)
{
    const int caps = dc->GetDeviceCaps(RASTERCAPS);
    return caps != -1 && (caps & RC_PALETTE) != 0;
}

} // namespace

// A count of 0 asks for the whole colormap; a null output only counts.
UINT vorlan::CommonDeviceContext::GetSystemPaletteEntries(UINT start, UINT count, LPPALETTEENTRY entries)
{
    GdkColormap *system = gdk_colormap_get_system();
    const UINT size = static_cast<UINT>(system->size);
    if (system->colors == nullptr || start >= size)
        return 0;
    if (count == 0 || count > size - start)
        count = size - start;
    if (entries != nullptr)
        std::memset(entries, 0, count * sizeof(PALETTEENTRY));
    return count;
}

UINT WINAPI GetSystemPaletteEntries(HDC hdc, UINT iStart, UINT cEntries, LPPALETTEENTRY pPalEntries)
{
    return vorlan::CallOnDC(hdc, 0U, [&](vorlan::DeviceContext *dc) {
        return HasPaletteCaps(dc) ? dc->GetSystemPaletteEntries(iStart, cEntries, pPalEntries) : 0U;
    });
}

UINT WINAPI GetSystemPaletteUse(HDC hdc)
{
    return vorlan::CallOnDC(hdc, 0U, [&](vorlan::DeviceContext *dc) {
        return HasPaletteCaps(dc) ? UINT(SYSPAL_NOSTATIC) : 0U;
    });
}
