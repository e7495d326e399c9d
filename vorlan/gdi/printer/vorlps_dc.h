// The PostScript device context: a context that writes the GDI calls made
// on it as a PostScript document for the print system.
//
// Only the shape of the class is here so far; no printer context can be
// made yet, and CreatePrinterDCW refuses every printer.
#ifndef VORLAN_GDI_PRINTER_VORLPS_DC_H
#define VORLAN_GDI_PRINTER_VORLPS_DC_H

#include "gdi/vorldc.h"

namespace vorlan {

class VorlPSContext : public CommonDeviceContext {
public:
    VorlPSContext();
    ~VorlPSContext() override;

    BOOL PatBlt(int x, int y, int w, int h, DWORD rop) override;
    BOOL LineTo(int x, int y) override;
    BOOL Polyline(const POINT *points, int count) override;
    BOOL Rectangle(int left, int top, int right, int bottom) override;
    BOOL RoundRect(int left, int top, int right, int bottom, int width, int height) override;
    BOOL Ellipse(int left, int top, int right, int bottom) override;
    BOOL Polygon(const POINT *points, int count) override;
    BOOL Arc(int left, int top, int right, int bottom, int x1, int y1, int x2, int y2) override;
    BOOL Chord(int left, int top, int right, int bottom, int x1, int y1, int x2, int y2) override;
    BOOL Pie(int left, int top, int right, int bottom, int x1, int y1, int x2, int y2) override;
    COLORREF GetNearestColor(COLORREF color) override;
    UINT RealizePalette() override;
    BOOL UpdateColors() override;
    HDC CreateCompatibleDC() override;
    int GetDeviceCaps(int index) override;
    DHANDLE RealizeObject(HGDIOBJ object) override;
    int GetVisibleRgn(HRGN region) override;
    BOOL drawPangoLayout(PangoLayout *layout, int x, int y, const RECT *clip, LPCWSTR text, int count) override;
    BOOL GetDrawableRect(RECT *rect) override;
    void setGdkRegionToDevice(GdkRegion *region) override;
};

} // namespace vorlan

// A context for the named printer; 0 while no printer can be opened.
HDC CreatePrinterDCW(LPCWSTR driver, LPCWSTR device, const DEVMODEW *devmode);

// Copies a DEVMODEA of 156 bytes into a DEVMODEW field by field, the two
// names converted; any other size leaves `wide` as it is.
void DEVMODE_A2W(const DEVMODEA *narrow, DEVMODEW *wide);

#endif // VORLAN_GDI_PRINTER_VORLPS_DC_H
