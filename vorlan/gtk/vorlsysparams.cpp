// SystemParametersInfoW and SystemParametersInfoA.
#include <windows.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorllogfontcopy.h"
#include "gtk/vorlworkarea.h"

#include <cstring>

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
