// The PostScript context so far: its place in the class tree.  No printer
// can be opened yet, so none is ever made.
#include "gdi/printer/vorlps_dc.h"

namespace vorlan {

VorlPSContext::VorlPSContext() : CommonDeviceContext(OBJ_DC)
{
    createPangoContext();
    initObj();
}

VorlPSContext::~VorlPSContext() = default;

BOOL VorlPSContext::PatBlt(int, int, int, int, DWORD) { return FALSE; }
BOOL VorlPSContext::LineTo(int, int) { return FALSE; }
BOOL VorlPSContext::Polyline(const POINT *, int) { return FALSE; }
BOOL VorlPSContext::Rectangle(int, int, int, int) { return FALSE; }
BOOL VorlPSContext::RoundRect(int, int, int, int, int, int) { return FALSE; }
BOOL VorlPSContext::Ellipse(int, int, int, int) { return FALSE; }
BOOL VorlPSContext::Polygon(const POINT *, int) { return FALSE; }
BOOL VorlPSContext::Arc(int, int, int, int, int, int, int, int) { return FALSE; }
BOOL VorlPSContext::Chord(int, int, int, int, int, int, int, int) { return FALSE; }
BOOL VorlPSContext::Pie(int, int, int, int, int, int, int, int) { return FALSE; }
COLORREF VorlPSContext::GetNearestColor(COLORREF color) { return color & 0xFFFFFF; }
UINT VorlPSContext::RealizePalette() { return 0; }
BOOL VorlPSContext::UpdateColors() { return FALSE; }
HDC VorlPSContext::CreateCompatibleDC() { return nullptr; }
int VorlPSContext::GetDeviceCaps(int) { return 0; }
DHANDLE VorlPSContext::RealizeObject(HGDIOBJ) { return 1; }
int VorlPSContext::GetVisibleRgn(HRGN) { return ERROR; }
BOOL VorlPSContext::drawPangoLayout(PangoLayout *, int, int, const RECT *, LPCWSTR, int) { return FALSE; }
BOOL VorlPSContext::GetDrawableRect(RECT *) { return FALSE; }
void VorlPSContext::setGdkRegionToDevice(GdkRegion *) {}

} // namespace vorlan

HDC CreatePrinterDCW(LPCWSTR, LPCWSTR, const DEVMODEW *)
{
    return nullptr;
}
