/*
 * A plain C99 application built against an installed vorlan: it reads its
 * own embedded resources, converts text between encodings, and drives a
 * message hook, checking the Win32 results of each call, bad input
 * included.  Prints one line per failed check and a summary line.
 */
#include <windows.h>

#include <stdio.h>
#include <string.h>

#include "consumer_ids.h"

static int g_passed;
static int g_failed;

#define CHECK(cond)                                                         \
    do {                                                                    \
        if (cond) {                                                         \
            ++g_passed;                                                     \
        } else {                                                            \
            ++g_failed;                                                     \
            printf("FAILED %s:%d: %s\n", __FILE__, __LINE__, #cond);        \
        }                                                                   \
    } while (0)

/* A failure must give the stated result and last error. */
#define CHECK_FAILS_WITH(expr, failure, error)                              \
    do {                                                                    \
        SetLastError(0xdeadbeef);                                           \
        CHECK((expr) == (failure));                                         \
        CHECK(GetLastError() == (DWORD)(error));                            \
    } while (0)

static const WCHAR k_unicodeText[] = {'G', 'r', 0xfc, 0xdf, 'e', ' ', 0x4e2d, 0x6587, 0};

static int wide_equal(const WCHAR *a, const WCHAR *b)
{
    while (*a && *a == *b) {
        ++a;
        ++b;
    }
    return *a == *b;
}

static void test_string_resources(void)
{
    WCHAR buffer[64];
    int length = LoadStringW(GetModuleHandleA(NULL), IDS_GREETING, buffer, 64);
    CHECK(length == 24);
    CHECK(buffer[0] == 'H' && buffer[23] == 's' && buffer[24] == 0);

    length = LoadStringW(NULL, IDS_UNICODE, buffer, 64);
    CHECK(length == 8);
    CHECK(wide_equal(buffer, k_unicodeText));

    /* Truncation keeps room for the terminator. */
    buffer[5] = 0x7777;
    CHECK(LoadStringW(NULL, IDS_GREETING, buffer, 6) == 5);
    CHECK(buffer[5] == 0);

    /* A missing string gives 0. */
    CHECK(LoadStringW(NULL, 4000, buffer, 64) == 0);
}

static void test_dialog_resource(void)
{
    HRSRC info = FindResourceA(NULL, MAKEINTRESOURCEA(IDD_ABOUT), MAKEINTRESOURCEA(5));
    CHECK(info != NULL);
    /* The same resource through the "#n" spelling of type and name. */
    CHECK(FindResourceA(NULL, "#200", "#5") == info);

    HGLOBAL data = LoadResource(NULL, info);
    const BYTE *bytes = (const BYTE *)LockResource(data);
    CHECK(bytes != NULL);
    if (bytes) {
        DWORD style;
        WORD itemCount, cx, cy;
        memcpy(&style, bytes, 4);
        memcpy(&itemCount, bytes + 8, 2);
        memcpy(&cx, bytes + 14, 2);
        memcpy(&cy, bytes + 16, 2);
        CHECK((style & WS_CAPTION) == WS_CAPTION);
        CHECK((style & DS_MODALFRAME) != 0);
        CHECK(itemCount == 3);
        CHECK(cx == 180 && cy == 60);
    }
    CHECK(SizeofResource(NULL, info) > 18);

    CHECK_FAILS_WITH(FindResourceA(NULL, MAKEINTRESOURCEA(999), MAKEINTRESOURCEA(5)), NULL,
                     ERROR_RESOURCE_NAME_NOT_FOUND);
    CHECK_FAILS_WITH(FindResourceA(NULL, MAKEINTRESOURCEA(IDD_ABOUT), "NOSUCHTYPE"), NULL,
                     ERROR_RESOURCE_TYPE_NOT_FOUND);
    CHECK(LoadResource(NULL, NULL) == NULL);
    CHECK(LockResource(NULL) == NULL);
}

static void test_utf8_round_trip(void)
{
    char utf8[32];
    WCHAR wide[16];
    /* Size query: 8 units + terminator become 2 + 3 + 1 + 6 + 1 + 1 bytes... */
    int needed = WideCharToMultiByte(CP_UTF8, 0, k_unicodeText, -1, NULL, 0, NULL, NULL);
    CHECK(needed == 15);
    CHECK(WideCharToMultiByte(CP_UTF8, 0, k_unicodeText, -1, utf8, 32, NULL, NULL) == 15);
    CHECK(strcmp(utf8, "Gr\xc3\xbc\xc3\x9f" "e \xe4\xb8\xad\xe6\x96\x87") == 0);
    /* Without the terminator in the count nothing is terminated. */
    CHECK(WideCharToMultiByte(CP_UTF8, 0, k_unicodeText, 3, NULL, 0, NULL, NULL) == 4);
    CHECK_FAILS_WITH(WideCharToMultiByte(CP_UTF8, 0, k_unicodeText, -1, utf8, 14, NULL, NULL), 0,
                     ERROR_INSUFFICIENT_BUFFER);

    CHECK(MultiByteToWideChar(CP_UTF8, 0, utf8, -1, NULL, 0) == 9);
    CHECK(MultiByteToWideChar(CP_UTF8, 0, utf8, -1, wide, 16) == 9);
    CHECK(wide_equal(wide, k_unicodeText));
    CHECK_FAILS_WITH(MultiByteToWideChar(CP_UTF8, 0, utf8, -1, wide, 8), 0,
                     ERROR_INSUFFICIENT_BUFFER);
}

static void test_code_page_round_trips(void)
{
    const WCHAR euro[] = {0x20ac, 'x', 0};
    const WCHAR chinese[] = {0x4e2d, 0x6587, 0};
    char narrow[16];
    WCHAR wide[8];

    CHECK(WideCharToMultiByte(1252, 0, euro, -1, narrow, 16, NULL, NULL) == 3);
    CHECK((BYTE)narrow[0] == 0x80 && narrow[1] == 'x' && narrow[2] == 0);
    CHECK(MultiByteToWideChar(1252, 0, narrow, -1, wide, 8) == 3);
    CHECK(wide[0] == 0x20ac && wide[1] == 'x');

    CHECK(WideCharToMultiByte(936, 0, chinese, -1, NULL, 0, NULL, NULL) == 5);
    CHECK(WideCharToMultiByte(936, 0, chinese, -1, narrow, 16, NULL, NULL) == 5);
    CHECK(memcmp(narrow, "\xd6\xd0\xce\xc4", 5) == 0);
    CHECK(MultiByteToWideChar(936, 0, narrow, 4, NULL, 0) == 2);
    CHECK(MultiByteToWideChar(936, 0, narrow, -1, wide, 8) == 3);
    CHECK(wide_equal(wide, chinese));
    CHECK_FAILS_WITH(WideCharToMultiByte(936, 0, chinese, -1, narrow, 3, NULL, NULL), 0,
                     ERROR_INSUFFICIENT_BUFFER);

    /* A character CP1252 lacks becomes the default character. */
    BOOL usedDefault = FALSE;
    CHECK(WideCharToMultiByte(1252, 0, chinese, -1, narrow, 16, NULL, &usedDefault) == 3);
    CHECK(usedDefault && narrow[0] == '?');
}

static void test_conversion_bad_input(void)
{
    WCHAR wide[8];
    char narrow[8];
    CHECK_FAILS_WITH(MultiByteToWideChar(CP_UTF8, 0, NULL, -1, wide, 8), 0, ERROR_INVALID_PARAMETER);
    CHECK_FAILS_WITH(MultiByteToWideChar(CP_UTF8, 0, "abc", 0, wide, 8), 0, ERROR_INVALID_PARAMETER);
    CHECK_FAILS_WITH(MultiByteToWideChar(CP_UTF8, 0, "abc", -1, wide, -1), 0, ERROR_INVALID_PARAMETER);
    CHECK_FAILS_WITH(MultiByteToWideChar(CP_UTF8, 0, "abc", -1, NULL, 8), 0, ERROR_INVALID_PARAMETER);
    CHECK_FAILS_WITH(MultiByteToWideChar(12345, 0, "abc", -1, wide, 8), 0, ERROR_INVALID_PARAMETER);
    CHECK_FAILS_WITH(WideCharToMultiByte(12345, 0, k_unicodeText, -1, narrow, 8, NULL, NULL), 0,
                     ERROR_INVALID_PARAMETER);
    CHECK_FAILS_WITH(WideCharToMultiByte(CP_UTF8, 0, NULL, -1, narrow, 8, NULL, NULL), 0,
                     ERROR_INVALID_PARAMETER);
    CHECK_FAILS_WITH(MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, "\xff", 1, wide, 8), 0,
                     ERROR_NO_UNICODE_TRANSLATION);
}

static int g_hookCalls;
static LRESULT CALLBACK get_message_hook(int code, WPARAM wParam, LPARAM lParam)
{
    MSG *msg = (MSG *)lParam;
    ++g_hookCalls;
    if (code == HC_ACTION && msg->message == WM_USER + 7)
        msg->wParam = 42;    /* a WH_GETMESSAGE hook may rewrite the message */
    return CallNextHookEx(NULL, code, wParam, lParam);
}

static void test_get_message_hook(void)
{
    MSG msg;
    memset(&msg, 0, sizeof msg);
    msg.message = WM_USER + 7;
    msg.wParam = 1;

    HHOOK hook = SetWindowsHookExW(WH_GETMESSAGE, get_message_hook, NULL, GetCurrentThreadId());
    CHECK(hook != NULL);
    CallWindowsHook(WH_GETMESSAGE, HC_ACTION, PM_REMOVE, (LPARAM)&msg, TRUE);
    CHECK(g_hookCalls == 1);
    CHECK(msg.wParam == 42);

    CHECK(UnhookWindowsHookEx(hook));
    CallWindowsHook(WH_GETMESSAGE, HC_ACTION, PM_REMOVE, (LPARAM)&msg, TRUE);
    CHECK(g_hookCalls == 1);

    CHECK_FAILS_WITH(UnhookWindowsHookEx(hook), FALSE, ERROR_INVALID_HOOK_HANDLE);
    CHECK_FAILS_WITH(UnhookWindowsHookEx((HHOOK)(ULONG_PTR)0x1234), FALSE, ERROR_INVALID_HOOK_HANDLE);
    CHECK_FAILS_WITH(SetWindowsHookExW(WH_GETMESSAGE, NULL, NULL, GetCurrentThreadId()), NULL,
                     ERROR_INVALID_FILTER_PROC);
    CHECK_FAILS_WITH(SetWindowsHookExW(99, get_message_hook, NULL, GetCurrentThreadId()), NULL,
                     ERROR_INVALID_HOOK_FILTER);
}

int main(void)
{
    test_string_resources();
    test_dialog_resource();
    test_utf8_round_trip();
    test_code_page_round_trips();
    test_conversion_bad_input();
    test_get_message_hook();
    printf("consumer: %d passed, %d failed\n", g_passed, g_failed);
    return g_failed == 0 ? 0 : 1;
}
