// Logical palettes.  The entries run on past the object's record, in as
// many extra bytes as the palette needs.
#include "gdi/vorlgdiobject.h"
#include "gtk/vorlgtklock.h"

#include <cstdlib>
#include <cstring>

using vorlan::LogicalGdiObject;

namespace {

constexpr UINT kMaxPaletteEntries = 1024;

int ColorDistance(const PALETTEENTRY &entry, COLORREF color)
{
    return std::abs(entry.peRed - GetRValue(color)) + std::abs(entry.peGreen - GetGValue(color)) +
           std::abs(entry.peBlue - GetBValue(color));
}

} // namespace

HPALETTE WINAPI CreatePalette(const LOGPALETTE *plpal)
{
    if (plpal == nullptr || plpal->palNumEntries == 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const UINT count = plpal->palNumEntries < kMaxPaletteEntries ? plpal->palNumEntries : kMaxPaletteEntries;
    vorlan::GtkCriticalSection lock;
    LogicalGdiObject *object = LogicalGdiObject::Create(OBJ_PAL, count * sizeof(PALETTEENTRY) - sizeof(PALETTEENTRY));
    if (object == nullptr) {
        SetLastError(0);
        return nullptr;
    }
    object->record.palette.palVersion = plpal->palVersion;
    object->record.palette.palNumEntries = static_cast<WORD>(count);
    std::memcpy(object->paletteEntries(), plpal->palPalEntry, count * sizeof(PALETTEENTRY));
    return static_cast<HPALETTE>(object->handle);
}

// The first exact match, else the first of the nearest entries by the sum
// of the channel differences.
UINT WINAPI GetNearestPaletteIndex(HPALETTE h, COLORREF color)
{
    vorlan::GtkCriticalSection lock;
    LogicalGdiObject *object = LogicalGdiObject::FromHandle(h, OBJ_PAL);
    if (object == nullptr)
        return 0;
    const PALETTEENTRY *entries = object->paletteEntries();
    int best = 0x30000;
    UINT bestIndex = static_cast<UINT>(-1);
    for (UINT i = 0; i < object->record.palette.palNumEntries; ++i) {
        const int distance = ColorDistance(entries[i], color);
        if (distance == 0)
            return i;
        if (distance < best) {
            best = distance;
            bestIndex = i;
        }
    }
    return bestIndex;
}

// A null output asks for the number of entries.
UINT WINAPI GetPaletteEntries(HPALETTE hpal, UINT iStart, UINT cEntries, LPPALETTEENTRY pPalEntries)
{
    if (cEntries == 0)
        return 0;
    vorlan::GtkCriticalSection lock;
    LogicalGdiObject *object = LogicalGdiObject::FromHandle(hpal, OBJ_PAL);
    if (object == nullptr)
        return 0;
    const UINT count = object->record.palette.palNumEntries;
    if (pPalEntries == nullptr)
        return count;
    if (iStart >= count)
        return 0;
    const UINT copied = cEntries < count - iStart ? cEntries : count - iStart;
    std::memcpy(pPalEntries, object->paletteEntries() + iStart, copied * sizeof(PALETTEENTRY));
    return copied;
}
