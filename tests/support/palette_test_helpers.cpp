#include "support/palette_test_helpers.h"

#include <vector>

namespace vorlan_test {

HPALETTE PaletteOf(std::initializer_list<COLORREF> colours)
{
    std::vector<BYTE> block(sizeof(LOGPALETTE) + colours.size() * sizeof(PALETTEENTRY));
    auto *lp = reinterpret_cast<LOGPALETTE *>(block.data());
    lp->palVersion = 0x300;
    lp->palNumEntries = static_cast<WORD>(colours.size());
    PALETTEENTRY *entry = lp->palPalEntry;
    for (COLORREF colour : colours) {
        *entry++ = {GetRValue(colour), GetGValue(colour), GetBValue(colour), 0};
    }
    return CreatePalette(lp);
}

COLORREF PaintAndRead(Canvas &canvas, COLORREF colour)
{
    HBRUSH brush = CreateSolidBrush(colour);
    HGDIOBJ old = SelectObject(canvas, brush);
    PatBlt(canvas, 0, 0, canvas.width(), canvas.height(), PATCOPY);
    SelectObject(canvas, old);
    DeleteObject(brush);
    return canvas.At(canvas.width() / 2, canvas.height() / 2);
}

} // namespace vorlan_test
