// Creating, resolving and deleting device contexts.
#include "gdi/vorldccall.h"
#include "gdi/printer/vorlps_dc.h"
#include "vorlstringtranslator.h"

#include <cstdlib>

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
