/*
 * Compile-only check of the public headers.
 *
 * Built with -fsyntax-only as C99 and (through header_check.cpp) as C++17,
 * for ILP32 (-m32) and LP64 (-m64), with every warning an error.  Besides
 * the size checks inside the headers it pins the offsets of fields that are
 * easy to misplace, a few constant values, the generic (A/W) names, and
 * that a typical window procedure and message loop type-check.
 */
#include <windows.h>
#include <winres.h>
#include <afxres.h>
#include <stddef.h>

#ifdef __cplusplus
#define CHECK(cond) static_assert(cond, #cond)
#else
#define CHECK(cond) \
    typedef char VORLAN_CAT(header_check_line_, __LINE__)[(cond) ? 1 : -1] __attribute__((unused))
#endif

/* The value for the ABI being compiled: Win32 layout or Win64 layout. */
#if VORLAN_LP64
#define ABI(v32, v64) (v64)
#else
#define ABI(v32, v64) (v32)
#endif
#define OFFSET(type, field, v32, v64) CHECK(offsetof(type, field) == ABI(v32, v64))

/* ---- Messages and windows ------------------------------------------- */
OFFSET(MSG, wParam, 8, 16);
OFFSET(MSG, time, 16, 32);
OFFSET(MSG, pt, 20, 36);
OFFSET(WNDCLASSA, hInstance, 16, 24);
OFFSET(WNDCLASSW, lpszClassName, 36, 64);
OFFSET(WNDCLASSEXW, hIconSm, 44, 72);
OFFSET(CREATESTRUCTA, cy, 16, 32);
OFFSET(CREATESTRUCTA, style, 32, 48);
OFFSET(CREATESTRUCTA, lpszName, 36, 56);
OFFSET(CREATESTRUCTA, dwExStyle, 44, 72);
OFFSET(CREATESTRUCTW, dwExStyle, 44, 72);
OFFSET(WINDOWPOS, x, 8, 16);
OFFSET(WINDOWPOS, flags, 24, 32);
OFFSET(NCCALCSIZE_PARAMS, lppos, 48, 48);
OFFSET(MINMAXINFO, ptMaxTrackSize, 32, 32);
OFFSET(WINDOWPLACEMENT, rcNormalPosition, 28, 28);
OFFSET(PAINTSTRUCT, rcPaint, 8, 12);
OFFSET(PAINTSTRUCT, rgbReserved, 32, 36);
OFFSET(HELPINFO, MousePos, 20, 32);
OFFSET(NMHDR, code, 8, 16);
OFFSET(COPYDATASTRUCT, lpData, 8, 16);
OFFSET(GUITHREADINFO, rcCaret, 32, 56);
OFFSET(CURSORINFO, ptScreenPos, 12, 16);
OFFSET(ICONINFO, hbmMask, 12, 16);
OFFSET(TRACKMOUSEEVENT, dwHoverTime, 12, 16);
OFFSET(KBDLLHOOKSTRUCT, dwExtraInfo, 16, 16);
OFFSET(MSLLHOOKSTRUCT, dwExtraInfo, 20, 24);
OFFSET(CWPRETSTRUCT, hwnd, 16, 32);

/* ---- Controls, menus, dialogs --------------------------------------- */
OFFSET(SCROLLINFO, nTrackPos, 24, 24);
OFFSET(MENUITEMINFOA, hSubMenu, 20, 24);
OFFSET(MENUITEMINFOW, dwTypeData, 36, 56);
OFFSET(MENUITEMINFOW, cch, 40, 64);
OFFSET(MENUITEMINFOW, hbmpItem, 44, 72);
OFFSET(MENUINFO, dwMenuData, 24, 32);
OFFSET(DRAWITEMSTRUCT, hwndItem, 20, 24);
OFFSET(DRAWITEMSTRUCT, rcItem, 28, 40);
OFFSET(DRAWITEMSTRUCT, itemData, 44, 56);
OFFSET(MEASUREITEMSTRUCT, itemData, 20, 24);
OFFSET(DELETEITEMSTRUCT, itemData, 16, 24);
OFFSET(COMPAREITEMSTRUCT, itemData2, 24, 40);
OFFSET(COMPAREITEMSTRUCT, dwLocaleId, 28, 48);
OFFSET(ACCEL, key, 2, 2);
OFFSET(ACCEL, cmd, 4, 4);
OFFSET(DLGTEMPLATE, cdit, 8, 8);
OFFSET(DLGTEMPLATE, x, 10, 10);
OFFSET(DLGITEMTEMPLATE, id, 16, 16);
OFFSET(MSGBOXPARAMSA, dwStyle, 20, 40);
OFFSET(MSGBOXPARAMSA, dwLanguageId, 36, 72);
OFFSET(NONCLIENTMETRICSA, lfMessageFont, 280, 280);
OFFSET(NONCLIENTMETRICSW, lfCaptionFont, 24, 24);
OFFSET(NONCLIENTMETRICSW, iMenuHeight, 220, 220);
OFFSET(NONCLIENTMETRICSW, lfMenuFont, 224, 224);
OFFSET(NONCLIENTMETRICSW, lfMessageFont, 408, 408);
OFFSET(MONITORINFOEXW, szDevice, 40, 40);

/* ---- GDI -------------------------------------------------------------- */
OFFSET(LOGFONTA, lfFaceName, 28, 28);
OFFSET(LOGFONTW, lfFaceName, 28, 28);
OFFSET(ENUMLOGFONTEXW, elfScript, 284, 284);
OFFSET(TEXTMETRICA, tmFirstChar, 44, 44);
OFFSET(TEXTMETRICW, tmItalic, 52, 52);
OFFSET(TEXTMETRICW, tmCharSet, 56, 56);
OFFSET(NEWTEXTMETRICW, ntmFlags, 60, 60);
OFFSET(OUTLINETEXTMETRICA, otmPanoseNumber, 61, 61);
OFFSET(OUTLINETEXTMETRICA, otmfsSelection, 72, 72);
OFFSET(OUTLINETEXTMETRICA, otmpFamilyName, 196, 200);
OFFSET(OUTLINETEXTMETRICW, otmpFamilyName, 200, 200);
OFFSET(GLYPHMETRICS, gmCellIncX, 16, 16);
OFFSET(BITMAP, bmBits, 20, 24);
OFFSET(BITMAPFILEHEADER, bfSize, 2, 2);
OFFSET(BITMAPFILEHEADER, bfOffBits, 10, 10);
OFFSET(BITMAPV5HEADER, bV5Endpoints, 60, 60);
OFFSET(BITMAPV5HEADER, bV5Intent, 108, 108);
OFFSET(DIBSECTION, dsBmih, 24, 32);
OFFSET(DIBSECTION, dsBitfields, 64, 72);
OFFSET(DIBSECTION, dshSection, 76, 88);
OFFSET(DIBSECTION, dsOffset, 80, 96);
OFFSET(LOGBRUSH, lbHatch, 8, 8);
OFFSET(EXTLOGPEN, elpNumEntries, 20, 24);
OFFSET(EXTLOGPEN, elpStyleEntry, 24, 28);
OFFSET(RGNDATA, Buffer, 32, 32);
OFFSET(METAHEADER, mtSize, 6, 6);
OFFSET(METAHEADER, mtMaxRecord, 12, 12);
OFFSET(METAHEADER, mtNoParameters, 16, 16);
OFFSET(METAFILEPICT, hMF, 12, 16);
OFFSET(GCP_RESULTSW, nGlyphs, 28, 56);
OFFSET(TRIVERTEX, Red, 8, 8);
OFFSET(DOCINFOW, fwType, 16, 32);
OFFSET(DEVMODEA, dmFields, 40, 40);
OFFSET(DEVMODEA, dmPosition, 44, 44);
OFFSET(DEVMODEA, dmColor, 60, 60);
OFFSET(DEVMODEA, dmFormName, 70, 70);
OFFSET(DEVMODEA, dmBitsPerPel, 104, 104);
OFFSET(DEVMODEA, dmNup, 116, 116);
OFFSET(DEVMODEW, dmSpecVersion, 64, 64);
OFFSET(DEVMODEW, dmFields, 72, 72);
OFFSET(DEVMODEW, dmOrientation, 76, 76);
OFFSET(DEVMODEW, dmPrintQuality, 90, 90);
OFFSET(DEVMODEW, dmDisplayFixedOutput, 88, 88);
OFFSET(DEVMODEW, dmFormName, 102, 102);
OFFSET(DEVMODEW, dmLogPixels, 166, 166);
OFFSET(DEVMODEW, dmBitsPerPel, 168, 168);
OFFSET(DEVMODEW, dmPanningHeight, 216, 216);

/* ---- Registry, spooler, common dialogs, shell, IME -------------------- */
OFFSET(SECURITY_ATTRIBUTES, bInheritHandle, 8, 16);
OFFSET(PRINTER_INFO_2A, pDevMode, 28, 56);
OFFSET(PRINTER_INFO_2A, Attributes, 52, 104);
OFFSET(PRINTER_DEFAULTSW, DesiredAccess, 8, 16);
OFFSET(OPENFILENAMEA, nFileOffset, 56, 100);
OFFSET(OPENFILENAMEW, lpstrDefExt, 60, 104);
OFFSET(OPENFILENAMEW, FlagsEx, 84, 148);
OFFSET(CHOOSECOLORW, lpCustColors, 16, 32);
OFFSET(CHOOSEFONTA, nFontType, 48, 88);
OFFSET(CHOOSEFONTW, nSizeMin, 52, 92);
OFFSET(PRINTDLGA, nFromPage, 24, 44);
OFFSET(PRINTDLGA, nCopies, 32, 52);
OFFSET(PRINTDLGA, hInstance, 34, 56);
OFFSET(PRINTDLGW, hSetupTemplate, 62, 112);
OFFSET(PAGESETUPDLGA, rtMargin, 44, 60);
OFFSET(FINDREPLACEA, wFindWhatLen, 24, 48);
OFFSET(NOTIFYICONDATAA, szTip, 24, 40);
OFFSET(NOTIFYICONDATAA, uTimeout, 416, 432);
OFFSET(NOTIFYICONDATAA, guidItem, 488, 504);
OFFSET(NOTIFYICONDATAW, guidItem, 936, 952);
OFFSET(COMPOSITIONFORM, rcArea, 12, 12);
OFFSET(CANDIDATEFORM, rcArea, 16, 16);

CHECK(OPENFILENAME_SIZE_VERSION_400A == ABI(76, 136));
CHECK(NOTIFYICONDATAA_V1_SIZE == ABI(88, 104));
CHECK(NOTIFYICONDATAW_V1_SIZE == ABI(152, 168));
CHECK(NOTIFYICONDATAA_V2_SIZE == ABI(488, 504));

/* ---- Constant values -------------------------------------------------- */
CHECK(WM_USER == 0x0400);
CHECK(WM_IME_COMPOSITION == 0x010F);
CHECK(WM_IME_NOTIFY == 0x0282);
CHECK(WS_OVERLAPPEDWINDOW == 0x00CF0000);
CHECK(WS_POPUPWINDOW == 0x80880000);
CHECK(SPI_GETNONCLIENTMETRICS == 41);
CHECK(SPI_GETWORKAREA == 48);
CHECK(SM_CXVIRTUALSCREEN == 78);
CHECK(COLOR_BTNFACE == 15);
CHECK(GWLP_USERDATA == -21);
CHECK(DWLP_DLGPROC == ABI(4, 8));
CHECK(DWLP_USER == ABI(8, 16));
CHECK(IDC_STATIC == -1);
CHECK(IDOK == 1 && IDCANCEL == 2);
CHECK(VK_F1 == 0x70 && VK_OEM_PLUS == 0xBB);
CHECK(SRCCOPY == 0x00CC0020);
CHECK(RGB(0x12, 0x34, 0x56) == 0x00563412);
CHECK(GetGValue(RGB(0x12, 0x34, 0x56)) == 0x34);
CHECK(KEY_READ == 0x00020019);
CHECK(KEY_WRITE == 0x00020006);
CHECK(KEY_ALL_ACCESS == 0x000F003F);
CHECK(PRINTER_ALL_ACCESS == 0x000F000C);
CHECK(SND_RESOURCE == 0x00040004);
CHECK(GCS_RESULTSTR == 0x0800);
CHECK(CF_UNICODETEXT == 13);
CHECK(LANG_ENGLISH == 0x09 && SUBLANG_ENGLISH_US == 0x01);
CHECK(VS_FFI_FILEFLAGSMASK == 0x3F);
#if !VORLAN_LP64
CHECK(GWL_USERDATA == GWLP_USERDATA);
#endif

/* ---- Functions type-check as a program would use them ----------------- */
LRESULT CALLBACK header_check_wndproc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
INT_PTR CALLBACK header_check_dlgproc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
int header_check_program(HINSTANCE hInstance);

LRESULT CALLBACK header_check_wndproc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    switch (msg) {
    case WM_CREATE: {
        const CREATESTRUCT *cs = (const CREATESTRUCT *)lParam;
        SetWindowLongPtr(hwnd, GWLP_USERDATA, (LONG_PTR)cs->lpCreateParams);
        return 0;
    }
    case WM_PAINT: {
        PAINTSTRUCT ps;
        HDC hdc = BeginPaint(hwnd, &ps);
        HGDIOBJ old = SelectObject(hdc, GetStockObject(DEFAULT_GUI_FONT));
        RECT rc;
        SIZE extent;
        static const TCHAR text[] = { 'v', 'o', 'r', 'l', 'a', 'n', 0 };
        GetClientRect(hwnd, &rc);
        SetBkMode(hdc, TRANSPARENT);
        SetTextColor(hdc, GetSysColor(COLOR_WINDOWTEXT));
        DrawText(hdc, text, -1, &rc, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
        GetTextExtentPoint32(hdc, text, 6, &extent);
        FillRect(hdc, &rc, (HBRUSH)(COLOR_WINDOW + 1));
        DrawEdge(hdc, &rc, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
        BitBlt(hdc, 0, 0, extent.cx, extent.cy, hdc, 0, 0, SRCCOPY);
        SelectObject(hdc, old);
        EndPaint(hwnd, &ps);
        return 0;
    }
    case WM_MOUSEWHEEL: {
        POINTS pts = MAKEPOINTS(lParam);
        POINT pt;
        POINTSTOPOINT(pt, pts);
        ScreenToClient(hwnd, &pt);
        return GET_WHEEL_DELTA_WPARAM(wParam) > 0 ? 1 : 0;
    }
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK && HIWORD(wParam) == BN_CLICKED)
            DialogBoxParam((HINSTANCE)GetWindowLongPtr(hwnd, GWLP_HINSTANCE), MAKEINTRESOURCE(100), hwnd,
                           header_check_dlgproc, 0);
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProc(hwnd, msg, wParam, lParam);
}

INT_PTR CALLBACK header_check_dlgproc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    (void)lParam;
    if (msg == WM_INITDIALOG) {
        CheckDlgButton(hwnd, 1002, BST_CHECKED);
        SendDlgItemMessage(hwnd, 1003, CB_SETCURSEL, 0, 0);
        return TRUE;
    }
    if (msg == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
        EndDialog(hwnd, LOWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

int header_check_program(HINSTANCE hInstance)
{
    static const TCHAR name[] = { 'c', 'h', 'e', 'c', 'k', 0 };
    WNDCLASSEX wc;
    MSG msg;
    HWND hwnd;
    HACCEL accel;
    HKEY key;
    DWORD type = 0, size = 0;
    NONCLIENTMETRICS ncm;
    LONG_PTR (WINAPI *get_long_ptr)(HWND, int) = GetWindowLongPtrA;
    ULONG_PTR (WINAPI *set_class_ptr)(HWND, int, LONG_PTR) = SetClassLongPtrW;

    (void)get_long_ptr;
    (void)set_class_ptr;
    wc.cbSize = sizeof(wc);
    wc.style = CS_HREDRAW | CS_VREDRAW | CS_DBLCLKS;
    wc.lpfnWndProc = header_check_wndproc;
    wc.cbClsExtra = 0;
    wc.cbWndExtra = 0;
    wc.hInstance = hInstance;
    wc.hIcon = LoadIcon(NULL, IDI_APPLICATION);
    wc.hCursor = LoadCursor(NULL, IDC_ARROW);
    wc.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    wc.lpszMenuName = MAKEINTRESOURCE(200);
    wc.lpszClassName = name;
    wc.hIconSm = NULL;
    if (!RegisterClassEx(&wc))
        return 1;

    ncm.cbSize = sizeof(ncm);
    SystemParametersInfo(SPI_GETNONCLIENTMETRICS, sizeof(ncm), &ncm, 0);

    hwnd = CreateWindowEx(WS_EX_APPWINDOW, name, name, WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                          CW_USEDEFAULT, CW_USEDEFAULT, HWND_DESKTOP, NULL, hInstance, NULL);
    SetWindowPos(hwnd, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    ShowWindow(hwnd, SW_SHOWDEFAULT);
    UpdateWindow(hwnd);

    if (RegOpenKeyEx(HKEY_CURRENT_USER, name, 0, KEY_READ, &key) == ERROR_SUCCESS) {
        RegQueryValueEx(key, name, NULL, &type, NULL, &size);
        RegCloseKey(key);
    }

    accel = LoadAccelerators(hInstance, MAKEINTRESOURCE(300));
    while (GetMessage(&msg, NULL, 0, 0) > 0) {
        if (TranslateAccelerator(hwnd, accel, &msg))
            continue;
        TranslateMessage(&msg);
        DispatchMessage(&msg);
    }
    return (int)msg.wParam;
}

/* The generic names follow UNICODE. */
#ifdef UNICODE
CHECK(sizeof(TCHAR) == 2);
CHECK(sizeof(LOGFONT) == sizeof(LOGFONTW));
CHECK(sizeof(DEVMODE) == 220);
CHECK(sizeof(NONCLIENTMETRICS) == 500);
#else
CHECK(sizeof(TCHAR) == 1);
CHECK(sizeof(LOGFONT) == sizeof(LOGFONTA));
CHECK(sizeof(DEVMODE) == 156);
CHECK(sizeof(NONCLIENTMETRICS) == 340);
#endif
