/*
 * A plain C99 application with the usual message loop: it posts itself a
 * key press, the loop translates it, the window procedure sees the
 * character and ends the loop with a quit code, which becomes the exit
 * status.  Any other path ends with a different status.
 */
#include <windows.h>

#include <stdio.h>
#include <string.h>

#define QUIT_CODE_CHARACTER_SEEN 42
#define QUIT_CODE_NO_CHARACTER 3
#define QUIT_CODE_WRONG_CHARACTER 4

static const WCHAR k_className[] = {'M', 's', 'g', 'L', 'o', 'o', 'p', 0};
static const WCHAR k_title[] = {'L', 'o', 'o', 'p', 0};

static int g_sawCharacter;

static LRESULT CALLBACK loop_window_proc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_KEYDOWN:
        /* TranslateMessage has queued the character by now; this notice
         * comes behind it. */
        PostMessageW(hwnd, WM_APP, 0, 0);
        return 0;
    case WM_CHAR:
        g_sawCharacter = 1;
        PostQuitMessage(wParam == 'k' ? QUIT_CODE_CHARACTER_SEEN : QUIT_CODE_WRONG_CHARACTER);
        return 0;
    case WM_APP:
        if (!g_sawCharacter)
            PostQuitMessage(QUIT_CODE_NO_CHARACTER);
        return 0;
    default:
        return DefWindowProcW(hwnd, message, wParam, lParam);
    }
}

int main(void)
{
    WNDCLASSW wc;
    HWND hwnd;
    MSG msg;
    BOOL got;

    memset(&wc, 0, sizeof wc);
    wc.lpfnWndProc = loop_window_proc;
    wc.lpszClassName = k_className;
    if (RegisterClassW(&wc) == 0) {
        printf("msgloop: RegisterClassW failed with %lu\n", (unsigned long)GetLastError());
        return 1;
    }
    hwnd = CreateWindowExW(0, k_className, k_title, WS_POPUP, 0, 0, 100, 100, NULL, NULL, NULL, NULL);
    if (hwnd == NULL) {
        printf("msgloop: CreateWindowExW failed with %lu\n", (unsigned long)GetLastError());
        return 1;
    }
    /* Key K pressed: repeat count 1, scan code 0x25. */
    if (!PostMessageW(hwnd, WM_KEYDOWN, 'K', 0x00250001)) {
        printf("msgloop: PostMessageW failed with %lu\n", (unsigned long)GetLastError());
        return 1;
    }
    while ((got = GetMessageW(&msg, NULL, 0, 0)) != 0) {
        if (got == -1) {
            printf("msgloop: GetMessageW failed with %lu\n", (unsigned long)GetLastError());
            return 1;
        }
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
    }
    DestroyWindow(hwnd);
    return (int)msg.wParam;
}
