/*
 * vorlan demo: a plain Win32 C program.  It opens a decorated top-level
 * window with a few child windows, paints shapes and a region in one of
 * them, and runs the usual message loop until the window is closed.  With "--seconds N" it closes itself after N
 * seconds, so that scripts can run it unattended.
 *
 * It prints what it does, so that a run without a screen still shows the
 * messages and strings at work.
 */
#include <windows.h>

#include <pthread.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "demo_ids.h"

static const WCHAR k_mainClass[] = {'V', 'o', 'r', 'l', 'a', 'n', 'D', 'e', 'm', 'o', 0};
static const WCHAR k_panelClass[] = {'D', 'e', 'm', 'o', 'P', 'a', 'n', 'e', 'l', 0};
static const WCHAR k_buttonClass[] = {'B', 'u', 't', 't', 'o', 'n', 0};
static const WCHAR k_staticClass[] = {'S', 't', 'a', 't', 'i', 'c', 0};

static void print_utf8(const char *label, const WCHAR *text)
{
    char utf8[256];
    WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8, sizeof utf8, NULL, NULL);
    printf("%s: %s\n", label, utf8);
}

/* Lays the children out in the client area: the label across the top, the
 * panel filling the middle, the button at the bottom right. */
static HWND g_welcome, g_panel, g_ok;

static void layout_children(int width, int height)
{
    MoveWindow(g_welcome, 12, 12, width - 24, 24, TRUE);
    MoveWindow(g_panel, 12, 48, width - 24, height - 100, TRUE);
    MoveWindow(g_ok, width - 92, height - 40, 80, 28, TRUE);
}

static HWND create_child(HWND parent, const WCHAR *className, UINT textId, int id)
{
    WCHAR text[128];
    LoadStringW(NULL, textId, text, 128);
    return CreateWindowExW(0, className, text, WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, parent, (HMENU)(INT_PTR)id,
                           NULL, NULL);
}

static LRESULT CALLBACK main_proc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_CREATE:
        g_welcome = create_child(hwnd, k_staticClass, IDS_WELCOME, IDC_WELCOME);
        g_panel = create_child(hwnd, k_panelClass, IDS_PANEL, IDC_PANEL);
        g_ok = create_child(hwnd, k_buttonClass, IDS_OK, IDC_OK);
        return g_welcome && g_panel && g_ok ? 0 : -1;
    case WM_SIZE:
        printf("client area %dx%d\n", LOWORD(lParam), HIWORD(lParam));
        layout_children(LOWORD(lParam), HIWORD(lParam));
        return 0;
    case WM_CHAR:
        printf("typed '%c'\n", (char)wParam);
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(hwnd, message, wParam, lParam);
    }
}

/* Shapes with pens and brushes of several kinds, across the panel. */
static void paint_shapes(HDC hdc, const RECT *client)
{
    const int w = client->right;
    const int h = client->bottom;
    HPEN dashed = CreatePen(PS_DASH, 1, RGB(0, 0, 128));
    HPEN thick = CreatePen(PS_SOLID, 3, RGB(128, 0, 0));
    HBRUSH green = CreateSolidBrush(RGB(120, 200, 120));
    HBRUSH yellow = CreateSolidBrush(RGB(250, 210, 60));
    HGDIOBJ oldPen = SelectObject(hdc, thick);
    HGDIOBJ oldBrush = SelectObject(hdc, yellow);

    Rectangle(hdc, 10, 10, w / 4, h / 2);
    SelectObject(hdc, green);
    Ellipse(hdc, w / 4 + 10, 10, w / 2, h / 2);
    SelectObject(hdc, yellow);
    Pie(hdc, w / 2 + 10, 10, 3 * w / 4, h / 2, 3 * w / 4, h / 4, w / 2 + 10, 10);
    RoundRect(hdc, 3 * w / 4 + 10, 10, w - 10, h / 2, 20, 20);

    POINT star[5] = {{w / 8, h / 2 + 10}, {w / 4 - 10, h - 10}, {10, h / 2 + 40},
                     {w / 4 - 10, h / 2 + 40}, {10, h - 10}};
    SetPolyFillMode(hdc, WINDING);
    Polygon(hdc, star, 5);

    SelectObject(hdc, dashed);
    for (int y = h / 2 + 10; y < h - 5; y += 8) {
        MoveToEx(hdc, w / 4 + 10, y, NULL);
        LineTo(hdc, w / 2, y);
    }
    SelectObject(hdc, oldPen);
    SelectObject(hdc, oldBrush);
    DeleteObject(dashed);
    DeleteObject(thick);
    DeleteObject(green);
    DeleteObject(yellow);
}

/* A region made of an ellipse with a rectangle cut out, filled and framed. */
static void paint_region(HDC hdc, const RECT *client)
{
    const int w = client->right;
    const int h = client->bottom;
    HRGN ellipse = CreateEllipticRgn(w / 2 + 10, h / 2 + 10, w - 10, h - 10);
    HRGN bar = CreateRectRgn(w / 2 + 10, 3 * h / 4 - 6, w - 10, 3 * h / 4 + 6);
    CombineRgn(ellipse, ellipse, bar, RGN_XOR);
    HBRUSH blue = CreateSolidBrush(RGB(60, 90, 200));
    HBRUSH black = (HBRUSH)GetStockObject(BLACK_BRUSH);
    FillRgn(hdc, ellipse, blue);
    FrameRgn(hdc, bar, black, 1, 1);
    DeleteObject(blue);
    DeleteObject(bar);
    DeleteObject(ellipse);
}

static LRESULT CALLBACK panel_proc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_PARENTNOTIFY)
        return 0;
    if (message == WM_PAINT) {
        PAINTSTRUCT ps;
        RECT client;
        HDC hdc = BeginPaint(hwnd, &ps);
        GetClientRect(hwnd, &client);
        paint_shapes(hdc, &client);
        paint_region(hdc, &client);
        EndPaint(hwnd, &ps);
        return 0;
    }
    return DefWindowProcW(hwnd, message, wParam, lParam);
}

static BOOL register_classes(HINSTANCE instance)
{
    WNDCLASSW wc;
    memset(&wc, 0, sizeof wc);
    wc.lpfnWndProc = main_proc;
    wc.hInstance = instance;
    wc.hbrBackground = (HBRUSH)(COLOR_BTNFACE + 1);
    wc.lpszClassName = k_mainClass;
    if (!RegisterClassW(&wc))
        return FALSE;
    wc.lpfnWndProc = panel_proc;
    wc.hbrBackground = (HBRUSH)(COLOR_WINDOW + 1);
    wc.lpszClassName = k_panelClass;
    return RegisterClassW(&wc) != 0;
}

struct closer {
    HWND hwnd;
    unsigned seconds;
};

/* Closes the main window after a while, as a user would. */
static void *close_later(void *argument)
{
    const struct closer *closer = argument;
    Sleep(closer->seconds * 1000);
    PostMessageW(closer->hwnd, WM_CLOSE, 0, 0);
    return NULL;
}

static void describe_window(HWND hwnd)
{
    RECT window, client;
    WCHAR title[64];
    GetWindowRect(hwnd, &window);
    GetClientRect(hwnd, &client);
    GetWindowTextW(hwnd, title, 64);
    print_utf8("window", title);
    printf("frame (%d,%d)-(%d,%d), client %dx%d, decorated by the window manager\n", (int)window.left,
           (int)window.top, (int)window.right, (int)window.bottom, (int)client.right, (int)client.bottom);
    for (HWND child = GetWindow(hwnd, GW_CHILD); child != NULL; child = GetWindow(child, GW_HWNDNEXT)) {
        WCHAR className[32];
        GetClassNameW(child, className, 32);
        GetWindowTextW(child, title, 64);
        GetWindowRect(child, &window);
        MapWindowPoints(NULL, hwnd, (POINT *)&window, 2);
        printf("  child %d at (%d,%d) %dx%d, ", (int)GetWindowLongPtrW(child, GWLP_ID), (int)window.left, (int)window.top,
               (int)(window.right - window.left), (int)(window.bottom - window.top));
        print_utf8("class", className);
    }
}

int main(int argc, char **argv)
{
    unsigned seconds = 0;
    if (argc == 3 && strcmp(argv[1], "--seconds") == 0)
        seconds = (unsigned)atoi(argv[2]);

    HINSTANCE instance = GetModuleHandleA(NULL);
    if (!register_classes(instance)) {
        printf("could not register the window classes (error %u)\n", (unsigned)GetLastError());
        return 1;
    }
    WCHAR title[64];
    LoadStringW(instance, IDS_APP_TITLE, title, 64);
    HWND hwnd = CreateWindowExW(0, k_mainClass, title, WS_OVERLAPPEDWINDOW, 120, 100, 480, 320, NULL, NULL,
                                instance, NULL);
    if (hwnd == NULL) {
        printf("could not create the main window (error %u)\n", (unsigned)GetLastError());
        return 1;
    }
    ShowWindow(hwnd, SW_SHOWNORMAL);
    describe_window(hwnd);
    fflush(stdout);

    struct closer closer = {hwnd, seconds};
    pthread_t thread;
    if (seconds > 0)
        pthread_create(&thread, NULL, close_later, &closer);

    MSG msg;
    while (GetMessageW(&msg, NULL, 0, 0) > 0) {
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
    }
    if (seconds > 0)
        pthread_join(thread, NULL);
    printf("message loop ended with %d\n", (int)msg.wParam);
    return (int)msg.wParam;
}
