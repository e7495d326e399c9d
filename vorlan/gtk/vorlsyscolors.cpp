// GetSysColor: a fixed table, with the button, 3D and selection colours
// taken from the GTK theme at each call.
#include <windows.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlthemecolors.h"

namespace {

constexpr int kSysColorCount = 31;

// Brightness steps from the window colour to the shaded 3D colours.
constexpr int kShadowDelta = -50;
constexpr int kDarkShadowDelta = -150;
constexpr int kLightDelta = 10;

constexpr COLORREF kWhite = 0xFFFFFF;

const COLORREF SysColor[kSysColorCount] = {
    0xC8D0D4, // COLOR_SCROLLBAR
    0x984E00, // COLOR_BACKGROUND
    0xE35400, // COLOR_ACTIVECAPTION
    0xDF967A, // COLOR_INACTIVECAPTION
    0xFFFFFF, // COLOR_MENU
    0xFFFFFF, // COLOR_WINDOW
    0x000000, // COLOR_WINDOWFRAME
    0x000000, // COLOR_MENUTEXT
    0x000000, // COLOR_WINDOWTEXT
    0xFFFFFF, // COLOR_CAPTIONTEXT
    0xC8D0D4, // COLOR_ACTIVEBORDER
    0xC8D0D4, // COLOR_INACTIVEBORDER
    0x808080, // COLOR_APPWORKSPACE
    0xC56A31, // COLOR_HIGHLIGHT
    0xFFFFFF, // COLOR_HIGHLIGHTTEXT
    0xD8E9EC, // COLOR_BTNFACE
    0x99A8AC, // COLOR_BTNSHADOW
    0x99A8AC, // COLOR_GRAYTEXT
    0x000000, // COLOR_BTNTEXT
    0xF8E4D8, // COLOR_INACTIVECAPTIONTEXT
    0xFFFFFF, // COLOR_BTNHIGHLIGHT
    0x646F71, // COLOR_3DDKSHADOW
    0xE2EFF1, // COLOR_3DLIGHT
    0x000000, // COLOR_INFOTEXT
    0xE1FFFF, // COLOR_INFOBK
    0xB5B5B5, // 25, unnamed
    0x800000, // COLOR_HOTLIGHT
    0xFF953D, // COLOR_GRADIENTACTIVECAPTION
    0xEBB99D, // COLOR_GRADIENTINACTIVECAPTION
    0xC56A31, // COLOR_MENUHILIGHT
    0xD8E9EC, // COLOR_MENUBAR
};

COLORREF WindowColor()
{
    GdkColor color = {};
    GetGtkWindowColor(&color);
    return GdkColorToColorRef(color);
}

COLORREF ShadedWindowColor(int delta)
{
    return COLORREF(AdjustBrightness(WindowColor(), delta));
}

COLORREF SelectionColor(bool text)
{
    GdkColor color = {};
    GetGtkEntryColors(GTK_STATE_SELECTED, text ? nullptr : &color, text ? &color : nullptr);
    return GdkColorToColorRef(color);
}

COLORREF SysColorOf(int index)
{
    switch (index) {
    case COLOR_HIGHLIGHT:
        return SelectionColor(false);
    case COLOR_HIGHLIGHTTEXT:
        return SelectionColor(true);
    case COLOR_BTNFACE:
        return WindowColor();
    case COLOR_BTNSHADOW:
        return ShadedWindowColor(kShadowDelta);
    case COLOR_BTNHIGHLIGHT:
        return kWhite;
    case COLOR_3DDKSHADOW:
        return ShadedWindowColor(kDarkShadowDelta);
    case COLOR_3DLIGHT:
        return ShadedWindowColor(kLightDelta);
    default:
        return SysColor[index];
    }
}

} // namespace

DWORD WINAPI GetSysColor(int nIndex)
{
    vorlan::GtkCriticalSection lock;
    if (nIndex < 0 || nIndex >= kSysColorCount)
        return 0;
    return SysColorOf(nIndex);
}
