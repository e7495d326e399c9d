// The exported device context calls: creation and deletion of contexts,
// and the attribute calls, each a lock, a handle check and one virtual
// call on the context.
#include "gdi/printer/vorlps_dc.h"
#include "gdi/vorldc.h"
#include "vorltextencoding.h"

#include <cstdlib>

// ----------------------------------------------------------------------------
// Creating, resolving and deleting device contexts.

namespace vorlan {

namespace {

bool IsContextType(UINT type)
{
    return type == OBJ_DC || type == OBJ_MEMDC || type == OBJ_METADC;
}

} // namespace

DeviceContext *GetDeviceContext(HDC hdc)
{
    if (!IsContextType(GdiHandleType(hdc)))
        return nullptr;
    return static_cast<DeviceContext *>(GdiObject::getGdiObject(hdc));
}

CommonDeviceContext *GetCommonDeviceContext(HDC hdc)
{
    return dynamic_cast<CommonDeviceContext *>(GetDeviceContext(hdc));
}

BOOL IsValidHDC(HDC hdc)
{
    if (GetDeviceContext(hdc) != nullptr)
        return TRUE;
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

} // namespace vorlan

using vorlan::CallOnDC;
using vorlan::DeviceContext;

// A context like the screen's when no context is given.
HDC WINAPI CreateCompatibleDC(HDC hdc)
{
    vorlan::GtkCriticalSection lock;
    HDC reference = hdc != nullptr ? hdc : GetDC(nullptr);
    HDC created = CallOnDC(reference, HDC(nullptr), [](DeviceContext *dc) { return dc->CreateCompatibleDC(); });
    if (hdc == nullptr && reference != nullptr)
        ReleaseDC(nullptr, reference);
    return created;
}

// A context with a delete procedure goes only when the procedure agrees.
BOOL WINAPI DeleteDC(HDC hdc)
{
    vorlan::GtkCriticalSection lock;
    if (!vorlan::IsValidHDC(hdc))
        return FALSE;
    DeviceContext *context = vorlan::GetDeviceContext(hdc);
    if (context->deleteProc != nullptr && !context->deleteProc(hdc, context->deleteProcData))
        return FALSE;
    // The procedure may have deleted the context itself.
    context = vorlan::GetDeviceContext(hdc);
    delete context;
    return TRUE;
}

BOOL GdiSetDeleteDCProc(HDC hdc, DeleteDCProc proc, HWND hWnd)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) {
        dc->deleteProc = proc;
        dc->deleteProcData = hWnd;
        return TRUE;
    });
}

HDC WINAPI ResetDCW(HDC hdc, const DEVMODEW *lpdm)
{
    return CallOnDC(hdc, HDC(nullptr), [&](DeviceContext *dc) { return dc->ResetDCW(lpdm); });
}

HDC WINAPI ResetDCA(HDC hdc, const DEVMODEA *lpdm)
{
    if (lpdm == nullptr)
        return ResetDCW(hdc, nullptr);
    DEVMODEW wide = {};
    DEVMODE_A2W(lpdm, &wide);
    return ResetDCW(hdc, &wide);
}

namespace {

bool IsDisplayName(LPCWSTR name)
{
    static const WCHAR kDisplay[] = {'D', 'I', 'S', 'P', 'L', 'A', 'Y', 0};
    if (name == nullptr)
        return false;
    int i = 0;
    for (; kDisplay[i] != 0; ++i) {
        if (name[i] != kDisplay[i])
            return false;
    }
    return name[i] == 0;
}

HDC RefuseDisplay()
{
    SetLastError(0);
    return nullptr;
}

} // namespace

// Only printers are made here: the screen's contexts come from GetDC.
HDC WINAPI CreateDCW(LPCWSTR pwszDriver, LPCWSTR pwszDevice, LPCWSTR, const DEVMODEW *pdm)
{
    if (pwszDriver == nullptr && pwszDevice == nullptr)
        return RefuseDisplay();
    if (IsDisplayName(pwszDevice) && pwszDriver != nullptr)
        return RefuseDisplay();
    const bool namesDisplay = IsDisplayName(pwszDriver) || IsDisplayName(pwszDevice);
    if (namesDisplay && pdm != nullptr)
        return RefuseDisplay();
    if (namesDisplay)
        return RefuseDisplay();
    return CreatePrinterDCW(pwszDriver, pwszDevice, pdm);
}

HDC WINAPI CreateDCA(LPCSTR pszDriver, LPCSTR pszDevice, LPCSTR, const DEVMODEA *pdm)
{
    vorlan::StringTranslator driver;
    vorlan::StringTranslator device;
    LPCWSTR wideDriver = pszDriver != nullptr ? driver.AnsiToUtf16(pszDriver) : nullptr;
    LPCWSTR wideDevice = pszDevice != nullptr ? device.AnsiToUtf16(pszDevice) : nullptr;
    if (pdm == nullptr)
        return CreateDCW(wideDriver, wideDevice, nullptr, nullptr);
    DEVMODEW wide = {};
    DEVMODE_A2W(pdm, &wide);
    return CreateDCW(wideDriver, wideDevice, nullptr, &wide);
}

HDC WINAPI CreateICW(LPCWSTR pszDriver, LPCWSTR pszDevice, LPCWSTR pszPort, const DEVMODEW *pdm)
{
    return CreateDCW(pszDriver, pszDevice, pszPort, pdm);
}

HDC WINAPI CreateICA(LPCSTR pszDriver, LPCSTR pszDevice, LPCSTR pszPort, const DEVMODEA *pdm)
{
    return CreateDCA(pszDriver, pszDevice, pszPort, pdm);
}

// ----------------------------------------------------------------------------
// Exported attribute, selection and save-stack calls of contexts.

using vorlan::CallOnDC;
using vorlan::CallOnTrustedDC;
using vorlan::DeviceContext;

HGDIOBJ WINAPI SelectObject(HDC hdc, HGDIOBJ h)
{
    return CallOnDC(hdc, HGDIOBJ(nullptr), [&](DeviceContext *dc) { return dc->SelectObject(h); });
}

HGDIOBJ WINAPI GetCurrentObject(HDC hdc, UINT type)
{
    return CallOnDC(hdc, HGDIOBJ(nullptr), [&](DeviceContext *dc) { return dc->GetCurrentObject(type); });
}

HPALETTE WINAPI SelectPalette(HDC hdc, HPALETTE hPal, BOOL bForceBkgd)
{
    return CallOnDC(hdc, HPALETTE(nullptr), [&](DeviceContext *dc) { return dc->SelectPalette(hPal, bForceBkgd); });
}

int WINAPI SaveDC(HDC hdc)
{
    return CallOnDC(hdc, 0, [&](DeviceContext *dc) { return dc->SaveDC(); });
}

BOOL WINAPI RestoreDC(HDC hdc, int nSavedDC)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->RestoreDC(nSavedDC); });
}

HWND WINAPI WindowFromDC(HDC hdc)
{
    return CallOnDC(hdc, HWND(nullptr), [&](DeviceContext *dc) { return dc->WindowFromDC(); });
}

int WINAPI SetBkMode(HDC hdc, int mode)
{
    return CallOnDC(hdc, 0, [&](DeviceContext *dc) { return dc->SetBkMode(mode); });
}

int WINAPI GetBkMode(HDC hdc)
{
    return CallOnDC(hdc, 0, [&](DeviceContext *dc) { return dc->GetBkMode(); });
}

int WINAPI SetPolyFillMode(HDC hdc, int mode)
{
    return CallOnDC(hdc, 0, [&](DeviceContext *dc) { return dc->SetPolyFillMode(mode); });
}

int WINAPI GetPolyFillMode(HDC hdc)
{
    return CallOnDC(hdc, 0, [&](DeviceContext *dc) { return dc->GetPolyFillMode(); });
}

int WINAPI SetROP2(HDC hdc, int rop2)
{
    return CallOnDC(hdc, 0, [&](DeviceContext *dc) { return dc->SetROP2(rop2); });
}

int WINAPI GetROP2(HDC hdc)
{
    return CallOnDC(hdc, 0, [&](DeviceContext *dc) { return dc->GetROP2(); });
}

int WINAPI SetStretchBltMode(HDC hdc, int mode)
{
    return CallOnDC(hdc, 0, [&](DeviceContext *dc) { return dc->SetStretchBltMode(mode); });
}

DWORD WINAPI SetMapperFlags(HDC hdc, DWORD flags)
{
    return CallOnDC(hdc, DWORD(0), [&](DeviceContext *dc) { return dc->SetMapperFlags(flags); });
}

BOOL WINAPI SetBrushOrgEx(HDC hdc, int x, int y, LPPOINT lppt)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->SetBrushOrgEx(x, y, lppt); });
}

BOOL WINAPI GetBrushOrgEx(HDC hdc, LPPOINT lppt)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->GetBrushOrgEx(lppt); });
}

COLORREF WINAPI SetTextColor(HDC hdc, COLORREF color)
{
    return CallOnDC(hdc, CLR_INVALID, [&](DeviceContext *dc) { return dc->SetTextColor(color); });
}

COLORREF WINAPI GetTextColor(HDC hdc)
{
    return CallOnDC(hdc, CLR_INVALID, [&](DeviceContext *dc) { return dc->GetTextColor(); });
}

COLORREF WINAPI SetBkColor(HDC hdc, COLORREF color)
{
    return CallOnDC(hdc, CLR_INVALID, [&](DeviceContext *dc) { return dc->SetBkColor(color); });
}

COLORREF WINAPI GetBkColor(HDC hdc)
{
    return CallOnDC(hdc, CLR_INVALID, [&](DeviceContext *dc) { return dc->GetBkColor(); });
}

int WINAPI GetDeviceCaps(HDC hdc, int index)
{
    return CallOnDC(hdc, -1, [&](DeviceContext *dc) { return dc->GetDeviceCaps(index); });
}

int WINAPI SetTextCharacterExtra(HDC hdc, int extra)
{
    return CallOnDC(hdc, int(0x80000000), [&](DeviceContext *dc) { return dc->SetTextCharacterExtra(extra); });
}

int WINAPI GetTextCharacterExtra(HDC hdc)
{
    return CallOnDC(hdc, int(0x80000000), [&](DeviceContext *dc) { return dc->GetTextCharacterExtra(); });
}

// These four and MoveToEx expect a valid context and set no error for a
// handle that isn't one.
DWORD WINAPI SetLayout(HDC hdc, DWORD l)
{
    return CallOnTrustedDC(hdc, GDI_ERROR, [&](DeviceContext *dc) { return dc->SetLayout(l); });
}

DWORD WINAPI GetLayout(HDC hdc)
{
    return CallOnTrustedDC(hdc, GDI_ERROR, [&](DeviceContext *dc) { return dc->GetLayout(); });
}

UINT WINAPI SetTextAlign(HDC hdc, UINT align)
{
    return CallOnTrustedDC(hdc, UINT(GDI_ERROR), [&](DeviceContext *dc) { return dc->SetTextAlign(align); });
}

UINT WINAPI GetTextAlign(HDC hdc)
{
    return CallOnTrustedDC(hdc, UINT(GDI_ERROR), [&](DeviceContext *dc) { return dc->GetTextAlign(); });
}

BOOL WINAPI MoveToEx(HDC hdc, int x, int y, LPPOINT lppt)
{
    return CallOnTrustedDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->MoveToEx(x, y, lppt); });
}

DHANDLE RealizeObject(HDC hdc, HGDIOBJ object)
{
    return CallOnDC(hdc, DHANDLE(0), [&](DeviceContext *dc) { return dc->RealizeObject(object); });
}
