// What the GDI objects ask of the display and the locale: the depth of the
// screen, the character set of the system locale, and the default system
// palette.
#include "gdi/vorlgdisystem.h"

#include <gdk/gdk.h>

// The depth of the screen, as a device context on it reports BITSPIXEL.

namespace vorlan {

int ScreenBitsPerPixel()
{
    return gdk_visual_get_system()->depth;
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// The character set of the system locale.

namespace vorlan {

BYTE CharsetOfAnsiCodePage(UINT codePage)
{
    switch (codePage) {
    case 932:
        return SHIFTJIS_CHARSET;
    case 936:
        return GB2312_CHARSET;
    case 949:
        return HANGUL_CHARSET;
    case 950:
        return CHINESEBIG5_CHARSET;
    default:
        return ANSI_CHARSET;
    }
}

} // namespace vorlan

// GetACP answers for the process locale, which is the system locale here.
BYTE getSystemCharset(LCID)
{
    return vorlan::CharsetOfAnsiCodePage(GetACP());
}

// ----------------------------------------------------------------------------
// The default system palette: the 16 VGA colours with the four reserved
// grey and pastel entries in the middle.

namespace vorlan {

const PALETTEENTRY kDefaultPaletteEntries[kDefaultPaletteSize] = {
    {0x00, 0x00, 0x00, 0}, {0x80, 0x00, 0x00, 0}, {0x00, 0x80, 0x00, 0}, {0x80, 0x80, 0x00, 0},
    {0x00, 0x00, 0x80, 0}, {0x80, 0x00, 0x80, 0}, {0x00, 0x80, 0x80, 0}, {0xC0, 0xC0, 0xC0, 0},
    {0xC0, 0xDC, 0xC0, 0}, {0xA6, 0xCA, 0xF0, 0}, {0xFF, 0xFB, 0xF0, 0}, {0xA0, 0xA0, 0xA4, 0},
    {0x80, 0x80, 0x80, 0}, {0xFF, 0x00, 0x00, 0}, {0x00, 0xFF, 0x00, 0}, {0xFF, 0xFF, 0x00, 0},
    {0x00, 0x00, 0xFF, 0}, {0xFF, 0x00, 0xFF, 0}, {0x00, 0xFF, 0xFF, 0}, {0xFF, 0xFF, 0xFF, 0},
};

} // namespace vorlan
