// System values: SystemParametersInfo, the system metrics and colours, the
// desktop's work area, and the locale calls that the window layer answers.
#include <windows.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlsysparams.h"
#include "gtk/vorltheme.h"

#include <cstring>
#include <gdk/gdk.h>
#include <X11/Xatom.h>
#include <gdk/gdkx.h>
#include <cstddef>
#include <unicode/uloc.h>
#include <algorithm>
#include <vector>
#include <glib.h>

// ----------------------------------------------------------------------------
// SystemParametersInfoW and SystemParametersInfoA.

namespace {

constexpr UINT kNonClientMetricsWBytes = sizeof(NONCLIENTMETRICSW);
constexpr UINT kNonClientMetricsABytes = sizeof(NONCLIENTMETRICSA);
static_assert(kNonClientMetricsWBytes == 500, "NONCLIENTMETRICSW layout");
static_assert(kNonClientMetricsABytes == 340, "NONCLIENTMETRICSA layout");

constexpr LONG kCaptionFontHeight = 15;
constexpr LONG kCaptionFontWeight = 400;
constexpr BYTE kCaptionFontCharset = 1;

BOOL StoreOne(PVOID data)
{
    if (data == nullptr)
        return FALSE;
    *static_cast<UINT *>(data) = 1;
    return TRUE;
}

UINT RecordSize(PVOID data)
{
    UINT size = 0;
    std::memcpy(&size, data, sizeof size);
    return size;
}

// The one font every non-client text uses; every size field stays 0.
BOOL GetNonClientMetricsW(PVOID data)
{
    if (data == nullptr || RecordSize(data) != kNonClientMetricsWBytes)
        return FALSE;
    NONCLIENTMETRICSW *metrics = static_cast<NONCLIENTMETRICSW *>(data);
    std::memset(metrics, 0, kNonClientMetricsWBytes);
    metrics->lfCaptionFont.lfHeight = kCaptionFontHeight;
    metrics->lfCaptionFont.lfWeight = kCaptionFontWeight;
    metrics->lfCaptionFont.lfCharSet = kCaptionFontCharset;
    metrics->lfSmCaptionFont = metrics->lfCaptionFont;
    metrics->lfMenuFont = metrics->lfCaptionFont;
    metrics->lfStatusFont = metrics->lfCaptionFont;
    metrics->lfMessageFont = metrics->lfCaptionFont;
    return TRUE;
}

BOOL GetWorkArea(PVOID data)
{
    if (data == nullptr)
        return FALSE;
    *static_cast<RECT *>(data) = vorlan::GetDesktopWorkArea();
    return TRUE;
}

BOOL GetHighContrast(PVOID data)
{
    if (data == nullptr || RecordSize(data) != sizeof(HIGHCONTRASTW))
        return FALSE;
    static_cast<HIGHCONTRASTW *>(data)->dwFlags = 0;
    return TRUE;
}

BOOL SystemParameter(UINT action, PVOID data)
{
    switch (action) {
    case SPI_GETDRAGFULLWINDOWS:
    case SPI_GETFOCUSBORDERWIDTH:
    case SPI_GETFOCUSBORDERHEIGHT:
        return StoreOne(data);
    case SPI_GETNONCLIENTMETRICS:
        return GetNonClientMetricsW(data);
    case SPI_GETWORKAREA:
        return GetWorkArea(data);
    case SPI_GETHIGHCONTRAST:
        return GetHighContrast(data);
    case SPI_SETFOREGROUNDLOCKTIMEOUT:
        return TRUE;
    default:
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
}

// The numbers of the wide record and each font through CopyLOGFONT_W2A.
BOOL NarrowNonClientMetrics(const NONCLIENTMETRICSW &w, NONCLIENTMETRICSA &a)
{
    a.cbSize = w.cbSize;
    a.iBorderWidth = w.iBorderWidth;
    a.iScrollWidth = w.iScrollWidth;
    a.iScrollHeight = w.iScrollHeight;
    a.iCaptionWidth = w.iCaptionWidth;
    a.iCaptionHeight = w.iCaptionHeight;
    a.iSmCaptionWidth = w.iSmCaptionWidth;
    a.iSmCaptionHeight = w.iSmCaptionHeight;
    a.iMenuWidth = w.iMenuWidth;
    a.iMenuHeight = w.iMenuHeight;
    return CopyLOGFONT_W2A(&w.lfCaptionFont, &a.lfCaptionFont) &&
           CopyLOGFONT_W2A(&w.lfSmCaptionFont, &a.lfSmCaptionFont) &&
           CopyLOGFONT_W2A(&w.lfMenuFont, &a.lfMenuFont) && CopyLOGFONT_W2A(&w.lfStatusFont, &a.lfStatusFont) &&
           CopyLOGFONT_W2A(&w.lfMessageFont, &a.lfMessageFont);
}

// The caller's record is written only when everything converted.
BOOL GetNonClientMetricsA(UINT param, PVOID data, UINT flags)
{
    if (data == nullptr || RecordSize(data) != kNonClientMetricsABytes)
        return FALSE;
    NONCLIENTMETRICSW wide = {};
    wide.cbSize = kNonClientMetricsWBytes;
    if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, param, &wide, flags))
        return FALSE;
    NONCLIENTMETRICSA narrow = {};
    if (!NarrowNonClientMetrics(wide, narrow))
        return FALSE;
    std::memcpy(data, &narrow, sizeof narrow);
    return TRUE;
}

} // namespace

BOOL WINAPI SystemParametersInfoW(UINT uiAction, UINT, PVOID pvParam, UINT)
{
    vorlan::GtkCriticalSection lock;
    return SystemParameter(uiAction, pvParam);
}

BOOL WINAPI SystemParametersInfoA(UINT uiAction, UINT uiParam, PVOID pvParam, UINT fWinIni)
{
    if (uiAction == SPI_GETNONCLIENTMETRICS)
        return GetNonClientMetricsA(uiParam, pvParam, fWinIni);
    return SystemParametersInfoW(uiAction, uiParam, pvParam, fWinIni);
}

// ----------------------------------------------------------------------------
// GetSystemMetrics: fixed values that window layout and painting agree
// on, the screen size, and scroll bar sizes from the theme.

namespace {

// Indexes at or above this give 0.
constexpr int kMetricCount = 70;

int ScrollBarWidth()
{
    int sliderWidth = 0;
    int troughBorder = 0;
    GetGtkScrollBarMetrics(&sliderWidth, &troughBorder, nullptr, nullptr);
    return sliderWidth + 2 * troughBorder;
}

// The values that do not depend on the screen or the theme; 0 for an
// index without a value.
int FixedMetric(int index)
{
    switch (index) {
    case SM_CYCAPTION:
        return 26;
    case SM_CXBORDER:
    case SM_CYBORDER:
    case SM_MOUSEPRESENT:
    case SM_DBCSENABLED:
        return 1;
    case SM_CXDLGFRAME:
    case SM_CYDLGFRAME:
        return 3;
    case SM_CYVTHUMB:
    case SM_CXHTHUMB:
        return 17;
    case SM_CXICON:
    case SM_CYICON:
    case SM_CXCURSOR:
    case SM_CYCURSOR:
        return 32;
    case SM_CYMENU:
        return 20;
    case SM_CXMIN:
        return 123;
    case SM_CYMIN:
        return 34;
    case SM_CXSIZE:
    case SM_CYSIZE:
        return 25;
    case SM_CXFRAME:
    case SM_CYFRAME:
    case SM_CXDRAG:
    case SM_CYDRAG:
        return 4;
    case SM_CYICONSPACING:
        return 75;
    case SM_CXEDGE:
    case SM_CYEDGE:
        return 2;
    default:
        return 0;
    }
}

int Metric(int index)
{
    switch (index) {
    case SM_CXSCREEN:
    case SM_CXFULLSCREEN:
        return gdk_screen_width();
    case SM_CYSCREEN:
        return gdk_screen_height();
    case SM_CXVSCROLL:
    case SM_CYHSCROLL:
    case SM_CYVSCROLL:
    case SM_CXHSCROLL:
        return ScrollBarWidth();
    default:
        return FixedMetric(index);
    }
}

} // namespace

int WINAPI GetSystemMetrics(int nIndex)
{
    vorlan::GtkCriticalSection lock;
    if (nIndex < 0 || nIndex >= kMetricCount)
        return 0;
    return Metric(nIndex);
}

// ----------------------------------------------------------------------------
// GetSysColor: a fixed table, with the button, 3D and selection colours
// taken from the GTK theme at each call.

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

// ----------------------------------------------------------------------------
// Reads _NET_WORKAREA from the root window.

namespace vorlan {

namespace {

// Four values per desktop: x, y, width, height.
constexpr unsigned long kValuesPerDesktop = 4;

struct WorkAreaProperty {
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned char *data = nullptr;

    ~WorkAreaProperty()
    {
        if (data != nullptr)
            XFree(data);
    }

    bool IsValid() const
    {
        return type == XA_CARDINAL && format == 32 && data != nullptr && count != 0 &&
               count % kValuesPerDesktop == 0;
    }

    // Format 32 items come as longs whatever their width in the protocol.
    long Value(int index) const { return reinterpret_cast<const long *>(data)[index]; }
};

// Reads the property with X errors trapped; false when X reported one.
bool ReadWorkAreaProperty(WorkAreaProperty &property)
{
    Display *display = gdk_x11_get_default_xdisplay();
    const Atom name = gdk_x11_get_xatom_by_name("_NET_WORKAREA");
    unsigned long bytesAfter = 0;
    gdk_error_trap_push();
    const int status = XGetWindowProperty(display, DefaultRootWindow(display), name, 0, G_MAXLONG / 4, False,
                                          XA_CARDINAL, &property.type, &property.format, &property.count,
                                          &bytesAfter, &property.data);
    const bool trapped = gdk_error_trap_pop() != 0;
    return status == Success && !trapped;
}

RECT ScreenRect()
{
    return RECT{0, 0, gdk_screen_width(), gdk_screen_height()};
}

} // namespace

RECT GetDesktopWorkArea()
{
    WorkAreaProperty property;
    if (!ReadWorkAreaProperty(property) || !property.IsValid())
        return ScreenRect();
    const LONG x = LONG(property.Value(0));
    const LONG y = LONG(property.Value(1));
    return RECT{x, y, LONG(x + property.Value(2)), LONG(y + property.Value(3))};
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// CopyLOGFONT_W2A.

namespace {

// Everything in front of the face name has the same layout in both forms.
constexpr size_t kNumericPartBytes = offsetof(LOGFONTW, lfFaceName);
static_assert(kNumericPartBytes == offsetof(LOGFONTA, lfFaceName), "LOGFONT layouts");
static_assert(kNumericPartBytes == 28, "LOGFONT numeric part");

int FaceNameLength(const WCHAR *name)
{
    int length = 0;
    while (length < LF_FACESIZE && name[length] != 0)
        ++length;
    return length;
}

} // namespace

BOOL CopyLOGFONT_W2A(const LOGFONTW *w, LOGFONTA *a)
{
    if (w == nullptr || a == nullptr)
        return FALSE;
    std::memcpy(a, w, kNumericPartBytes);
    if (FaceNameLength(w->lfFaceName) < LF_FACESIZE)
        return WideCharToMultiByte(0, 0, w->lfFaceName, -1, a->lfFaceName, LF_FACESIZE, nullptr, nullptr) != 0;
    // A name that fills the array without a terminator: the part that fits.
    const int written =
        WideCharToMultiByte(0, 0, w->lfFaceName, LF_FACESIZE - 1, a->lfFaceName, LF_FACESIZE - 1, nullptr, nullptr);
    a->lfFaceName[written > 0 ? written : 0] = '\0';
    return written != 0;
}

// ----------------------------------------------------------------------------
// The locale calls: default locale ids from the host, GetLocaleInfoW over
// the host's GetLocaleInfoA, and IsValidLocale over ICU's locale list.
// None of them touches toolkit state, so none takes the toolkit lock.

namespace {

constexpr int kNumberUnits = int(sizeof(DWORD) / sizeof(WCHAR));
// Narrow buffers up to this size live on the stack.
constexpr int kStackNarrowBytes = 256;

// The LCIDs of ICU's available locales, sorted; locales without an LCID
// are left out.  Built once: the list does not change in a process.
const std::vector<LCID> &AvailableLcids()
{
    static const std::vector<LCID> lcids = [] {
        std::vector<LCID> found;
        const int32_t count = uloc_countAvailable();
        for (int32_t i = 0; i < count; ++i) {
            const uint32_t lcid = uloc_getLCID(uloc_getAvailable(i));
            if (lcid != 0)
                found.push_back(lcid);
        }
        std::sort(found.begin(), found.end());
        return found;
    }();
    return lcids;
}

int FailLocaleInfo(DWORD error)
{
    SetLastError(error);
    return 0;
}

// LOCALE_RETURN_NUMBER: the value is a DWORD, two units in the wide form.
int GetLocaleNumberW(LCID locale, LCTYPE type, LPWSTR buffer, int size)
{
    DWORD number = 0;
    if (GetLocaleInfoA(locale, type, reinterpret_cast<LPSTR>(&number), int(sizeof number)) <= 0)
        return 0;
    if (size == 0)
        return kNumberUnits;
    if (size < kNumberUnits)
        return FailLocaleInfo(ERROR_INSUFFICIENT_BUFFER);
    std::memcpy(buffer, &number, sizeof number);
    return kNumberUnits;
}

// Widens the narrow text into the caller's buffer, which is written only
// when the whole text fits.
int WidenLocaleText(const char *narrow, int narrowCount, LPWSTR buffer, int size)
{
    const int units = MultiByteToWideChar(0, 0, narrow, -1, nullptr, 0);
    if (units <= 0)
        return FailLocaleInfo(ERROR_INTERNAL_ERROR);
    if (units > size)
        return FailLocaleInfo(ERROR_INSUFFICIENT_BUFFER);
    if (MultiByteToWideChar(0, 0, narrow, -1, buffer, size) <= 0)
        return FailLocaleInfo(ERROR_INTERNAL_ERROR);
    return narrowCount;
}

int GetLocaleTextW(LCID locale, LCTYPE type, LPWSTR buffer, int size, char *narrow)
{
    const int count = GetLocaleInfoA(locale, type, narrow, size);
    if (count < 1 || size == 0)
        return count;
    return WidenLocaleText(narrow, count, buffer, size);
}

} // namespace

LCID WINAPI GetThreadLocale(void)
{
    return GetSystemDefaultLCID();
}

HKL WINAPI GetKeyboardLayout(DWORD)
{
    return reinterpret_cast<HKL>(UINT_PTR(LANGIDFROMLCID(GetSystemDefaultLCID())));
}

int WINAPI GetLocaleInfoW(LCID Locale, LCTYPE LCType, LPWSTR lpLCData, int cchData)
{
    if (cchData < 0 || (lpLCData == nullptr && cchData != 0))
        return FailLocaleInfo(ERROR_INVALID_PARAMETER);
    if (LCType & LOCALE_RETURN_NUMBER)
        return GetLocaleNumberW(Locale, LCType, lpLCData, cchData);
    if (cchData <= kStackNarrowBytes) {
        char narrow[kStackNarrowBytes];
        return GetLocaleTextW(Locale, LCType, lpLCData, cchData, cchData == 0 ? nullptr : narrow);
    }
    char *narrow = static_cast<char *>(g_try_malloc(gsize(cchData)));
    if (narrow == nullptr)
        return FailLocaleInfo(ERROR_NOT_ENOUGH_MEMORY);
    const int result = GetLocaleTextW(Locale, LCType, lpLCData, cchData, narrow);
    g_free(narrow);
    return result;
}

BOOL WINAPI IsValidLocale(LCID Locale, DWORD)
{
    const std::vector<LCID> &lcids = AvailableLcids();
    return std::binary_search(lcids.begin(), lcids.end(), Locale);
}

HKL WINAPI LoadKeyboardLayoutA(LPCSTR, UINT)
{
    return nullptr;
}

HKL WINAPI ActivateKeyboardLayout(HKL, UINT)
{
    return nullptr;
}

BOOL WINAPI ExitWindowsEx(UINT, DWORD)
{
    return FALSE;
}
