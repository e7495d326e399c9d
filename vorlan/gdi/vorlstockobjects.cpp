// Stock objects: ordinary objects of the table, made when first asked
// for, that reference counting leaves alone.
#include "gdi/vorlgdiobject.h"
#include "gdi/vorlgdisystem.h"
#include "gtk/vorlgtklock.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace {

// Entries that never get an object (NULL_PEN, 9, 20) stay 0, which is why
// handle 0 counts as stock.
HGDIOBJ s_stockObjects[vorlan::kGdiStockSlots] = {};

constexpr int kDefaultBitmapIndex = 21;

// The seven font indices share the object of SYSTEM_FONT.
bool IsStockFontIndex(int index)
{
    return (index >= OEM_FIXED_FONT && index <= DEVICE_DEFAULT_FONT) || index == SYSTEM_FIXED_FONT ||
           index == DEFAULT_GUI_FONT;
}

HGDIOBJ MakeStockFont()
{
    LOGFONTA lf = {};
    lf.lfHeight = 12;
    lf.lfWidth = 12;
    lf.lfWeight = FW_NORMAL;
    lf.lfCharSet = getSystemCharset(GetSystemDefaultLCID());
    std::strcpy(lf.lfFaceName, "Luxi Sans");
    return CreateFontIndirectA(&lf);
}

// Without a palette device to ask, the default system palette.
HGDIOBJ MakeDefaultPalette()
{
    const size_t entriesOffset = offsetof(LOGPALETTE, palPalEntry);
    const size_t size = entriesOffset + sizeof vorlan::kDefaultPaletteEntries;
    auto *lp = static_cast<LOGPALETTE *>(std::malloc(size));
    if (lp == nullptr)
        return nullptr;
    lp->palVersion = 0x300;
    lp->palNumEntries = vorlan::kDefaultPaletteSize;
    std::memcpy(reinterpret_cast<BYTE *>(lp) + entriesOffset, vorlan::kDefaultPaletteEntries,
                sizeof vorlan::kDefaultPaletteEntries);
    HGDIOBJ palette = CreatePalette(lp);
    std::free(lp);
    return palette;
}

HGDIOBJ MakeStockObject(int index)
{
    static const LOGBRUSH nullBrush = {BS_NULL, 0, 0};
    switch (index) {
    case WHITE_BRUSH:
    case DC_BRUSH:
        return CreateSolidBrush(0xFFFFFF);
    case LTGRAY_BRUSH:
        return CreateSolidBrush(0xC0C0C0);
    case GRAY_BRUSH:
        return CreateSolidBrush(0x0D808080);
    case DKGRAY_BRUSH:
        return CreateSolidBrush(0x404040);
    case BLACK_BRUSH:
        return CreateSolidBrush(0);
    case NULL_BRUSH:
        return CreateBrushIndirect(&nullBrush);
    case WHITE_PEN:
    case DC_PEN:
        return CreatePen(PS_SOLID, 1, 0xFFFFFF);
    case BLACK_PEN:
        return CreatePen(PS_SOLID, 1, 0);
    case SYSTEM_FONT:
        return MakeStockFont();
    case DEFAULT_PALETTE:
        return MakeDefaultPalette();
    case kDefaultBitmapIndex:
        return CreateBitmap(1, 1, 1, 1, nullptr);
    default:
        return nullptr;
    }
}

} // namespace

int GetStockObjectIndex(HGDIOBJ handle)
{
    for (unsigned i = 0; i < vorlan::kGdiStockSlots; ++i) {
        if (s_stockObjects[i] == handle)
            return static_cast<int>(i);
    }
    return -1;
}

BOOL IsStockObject(HGDIOBJ handle)
{
    return GetStockObjectIndex(handle) != -1;
}

HGDIOBJ WINAPI GetStockObject(int i)
{
    if (i < 0 || i >= static_cast<int>(vorlan::kGdiStockSlots))
        return nullptr;
    if (IsStockFontIndex(i))
        i = SYSTEM_FONT;
    vorlan::GtkCriticalSection lock;
    if (s_stockObjects[i] == nullptr)
        s_stockObjects[i] = vorlan::GdiObject::SetStockBit(MakeStockObject(i));
    return s_stockObjects[i];
}
