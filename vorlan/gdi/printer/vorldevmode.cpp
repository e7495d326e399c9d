// Widening a DEVMODEA: every numeric field as it is, the two names through
// the process code page.
#include "gdi/printer/vorlps_dc.h"

#include "vorltextencoding.h"

#include <cstring>

namespace {

constexpr WORD kNarrowDevModeSize = 156;

// Converts a name of a fixed narrow field (not necessarily terminated) into
// a fixed wide field, cut to fit and terminated.
void WidenName(const BYTE *narrow, size_t narrowSize, WCHAR *wide, size_t wideUnits)
{
    const size_t length = strnlen(reinterpret_cast<const char *>(narrow), narrowSize);
    std::memset(wide, 0, wideUnits * sizeof(WCHAR));
    if (length == 0)
        return;
    vorlan::StringTranslator translator;
    const WCHAR *converted = translator.AnsiToUtf16(reinterpret_cast<const char *>(narrow), static_cast<int>(length));
    if (converted == nullptr)
        return;
    for (size_t i = 0; i + 1 < wideUnits && converted[i] != 0; ++i)
        wide[i] = converted[i];
}

} // namespace

void DEVMODE_A2W(const DEVMODEA *narrow, DEVMODEW *wide)
{
    if (narrow == nullptr || wide == nullptr || narrow->dmSize != kNarrowDevModeSize)
        return;
    std::memset(wide, 0, sizeof *wide);
    WidenName(narrow->dmDeviceName, sizeof narrow->dmDeviceName, wide->dmDeviceName, CCHDEVICENAME);
    wide->dmSpecVersion = narrow->dmSpecVersion;
    wide->dmDriverVersion = narrow->dmDriverVersion;
    wide->dmSize = sizeof *wide;
    wide->dmDriverExtra = narrow->dmDriverExtra;
    wide->dmFields = narrow->dmFields;
    // The printer and display variants of the union share its bytes.
    wide->dmPosition = narrow->dmPosition;
    wide->dmDisplayOrientation = narrow->dmDisplayOrientation;
    wide->dmDisplayFixedOutput = narrow->dmDisplayFixedOutput;
    wide->dmColor = narrow->dmColor;
    wide->dmDuplex = narrow->dmDuplex;
    wide->dmYResolution = narrow->dmYResolution;
    wide->dmTTOption = narrow->dmTTOption;
    wide->dmCollate = narrow->dmCollate;
    WidenName(narrow->dmFormName, sizeof narrow->dmFormName, wide->dmFormName, CCHFORMNAME);
    wide->dmLogPixels = narrow->dmLogPixels;
    wide->dmBitsPerPel = narrow->dmBitsPerPel;
    wide->dmPelsWidth = narrow->dmPelsWidth;
    wide->dmPelsHeight = narrow->dmPelsHeight;
    wide->dmDisplayFlags = narrow->dmDisplayFlags;
    wide->dmDisplayFrequency = narrow->dmDisplayFrequency;
    wide->dmICMMethod = narrow->dmICMMethod;
    wide->dmICMIntent = narrow->dmICMIntent;
    wide->dmMediaType = narrow->dmMediaType;
    wide->dmDitherType = narrow->dmDitherType;
    wide->dmReserved1 = narrow->dmReserved1;
    wide->dmReserved2 = narrow->dmReserved2;
    wide->dmPanningWidth = narrow->dmPanningWidth;
    wide->dmPanningHeight = narrow->dmPanningHeight;
}
