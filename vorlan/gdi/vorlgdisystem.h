// What the GDI objects ask of the display and the locale: the screen's
// depth, the character set of the system locale and the default system
// palette.
#ifndef VORLAN_GDI_VORLGDISYSTEM_H
#define VORLAN_GDI_VORLGDISYSTEM_H

#include <windows.h>

namespace vorlan {

// Bits per pixel of the default screen's system visual.
int ScreenBitsPerPixel();

// The character set that goes with an ANSI code page: the four East Asian
// double-byte pages have their own, every other page gives ANSI_CHARSET.
BYTE CharsetOfAnsiCodePage(UINT codePage);

// The 20 entries of the default system palette, black first, white last.
constexpr UINT kDefaultPaletteSize = 20;
extern const PALETTEENTRY kDefaultPaletteEntries[kDefaultPaletteSize];

} // namespace vorlan

// The character set of the system locale `lcid`, taken from the process's
// ANSI code page, which follows that locale.
BYTE getSystemCharset(LCID lcid);

#endif // VORLAN_GDI_VORLGDISYSTEM_H
