/*
 * vorlan demo.  For now a console program: it reads its string table,
 * converts the text into the encodings an application meets, shows a
 * message hook at work, and reports what the desktop looks like to a
 * Win32 program.  Windows join it as the window layer grows.
 */
#include <windows.h>

#include <stdio.h>

#include "demo_ids.h"

static void print_hex(const char *label, const char *bytes, int count)
{
    printf("  %-8s", label);
    for (int i = 0; i < count; ++i)
        printf(" %02x", (unsigned)(BYTE)bytes[i]);
    printf("\n");
}

static LRESULT CALLBACK show_hook(int code, WPARAM wParam, LPARAM lParam)
{
    const MSG *msg = (const MSG *)lParam;
    printf("  hook saw message 0x%04x (code %d)\n", msg->message, code);
    return CallNextHookEx(NULL, code, wParam, lParam);
}

static void print_desktop(void)
{
    RECT work;
    COLORREF face = GetSysColor(COLOR_BTNFACE);
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    printf("screen %dx%d, work area (%d,%d)-(%d,%d), scroll bar width %d\n",
           GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN),
           (int)work.left, (int)work.top, (int)work.right, (int)work.bottom,
           GetSystemMetrics(SM_CXVSCROLL));
    printf("button face colour from the GTK theme: #%02x%02x%02x\n",
           (unsigned)GetRValue(face), (unsigned)GetGValue(face), (unsigned)GetBValue(face));
}

int main(void)
{
    WCHAR title[64];
    WCHAR welcome[128];
    char utf8[256];
    char narrow[256];

    int titleLength = LoadStringW(NULL, IDS_APP_TITLE, title, 64);
    int welcomeLength = LoadStringW(NULL, IDS_WELCOME, welcome, 128);
    WideCharToMultiByte(CP_UTF8, 0, title, -1, utf8, sizeof utf8, NULL, NULL);
    printf("%s: %d units\n", utf8, titleLength);

    WideCharToMultiByte(CP_UTF8, 0, welcome, -1, utf8, sizeof utf8, NULL, NULL);
    printf("string table: \"%s\" (%d units)\n", utf8, welcomeLength);

    printf("encodings of the first characters:\n");
    int n = WideCharToMultiByte(CP_UTF8, 0, welcome, 5, narrow, sizeof narrow, NULL, NULL);
    print_hex("UTF-8", narrow, n);
    n = WideCharToMultiByte(1252, 0, welcome, 5, narrow, sizeof narrow, NULL, NULL);
    print_hex("CP1252", narrow, n);
    n = WideCharToMultiByte(936, 0, welcome + welcomeLength - 2, 2, narrow, sizeof narrow, NULL, NULL);
    print_hex("CP936", narrow, n);
    printf("process ANSI code page: %u\n", GetACP());

    HHOOK hook = SetWindowsHookExW(WH_GETMESSAGE, show_hook, NULL, GetCurrentThreadId());
    MSG msg = {0};
    msg.message = WM_USER;
    CallWindowsHook(WH_GETMESSAGE, HC_ACTION, PM_REMOVE, (LPARAM)&msg, TRUE);
    UnhookWindowsHookEx(hook);

    print_desktop();
    return 0;
}
