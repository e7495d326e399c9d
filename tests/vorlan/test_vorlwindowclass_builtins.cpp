// The classes registered at start-up and windows of those classes.
#include <gtest/gtest.h>

#include "support/expect_last_error.h"
#include "gtk/vorlpending.h"
#include "vorlwindowclass.h"

#include <dlfcn.h>

#include <string>

namespace {

std::u16string Wide(const char *text)
{
    return std::u16string(text, text + std::char_traits<char>::length(text));
}

} // namespace

TEST(BuiltinClasses, NamedClassesAnswerToTheirNamesInAnyCase)
{
    for (const char *name : {"static", "BUTTON", "edit", "LISTBOX", "combobox", "scrollbar", "MSCTLS_STATUSBAR"}) {
        WNDCLASSW wc = {};
        std::u16string wide = Wide(name);
        wc.lpszClassName = reinterpret_cast<LPCWSTR>(wide.c_str());
        wc.lpfnWndProc = DefWindowProcW;
        SCOPED_TRACE(name);
        EXPECT_FAILS_WITH(RegisterClassW(&wc), 0, ERROR_CLASS_ALREADY_EXISTS);
    }
}

TEST(BuiltinClasses, ButtonWindowKeepsItsTextAndRoutesToTheDefaultProcedure)
{
    const HWND parent = CreateWindowExW(0, MAKEINTRESOURCEW(32801), nullptr, WS_POPUP, 0, 0, 100, 100, nullptr, nullptr,
                                        nullptr, nullptr);
    ASSERT_NE(parent, nullptr);
    const HWND button = CreateWindowExW(0, reinterpret_cast<LPCWSTR>(u"button"), reinterpret_cast<LPCWSTR>(u"OK"),
                                        WS_CHILD | WS_VISIBLE, 5, 5, 60, 20, parent, nullptr, nullptr, nullptr);
    ASSERT_NE(button, nullptr);
    char16_t name[16] = {};
    EXPECT_EQ(GetClassNameW(button, reinterpret_cast<LPWSTR>(name), 16), 6);
    EXPECT_EQ(std::u16string(name), u"Button");
    char text[16] = {};
    EXPECT_EQ(GetWindowTextA(button, text, 16), 2);
    EXPECT_STREQ(text, "OK");
    // Each form of the procedure is the real address of that form.
    EXPECT_EQ(GetWindowLongPtrW(button, GWLP_WNDPROC), reinterpret_cast<LONG_PTR>(ButtonWindowProcW));
    EXPECT_EQ(GetWindowLongPtrA(button, GWLP_WNDPROC), reinterpret_cast<LONG_PTR>(ButtonWindowProcA));
    EXPECT_EQ(GetClassLongW(button, GCL_STYLE), 0xBu);
    // The default procedure's answers.
    EXPECT_EQ(SendMessageW(button, WM_USER + 1000, 1, 2), 0);
    EXPECT_EQ(SendMessageW(button, WM_VKEYTOITEM, 0, 0), -1);
    EXPECT_EQ(SendMessageA(button, WM_GETTEXTLENGTH, 0, 0), 2);
    // Twenty extra bytes per window: the last pointer-sized slot that fits
    // is accepted, one past it refused.
    SetLastError(0);
    SetWindowLongW(button, 16, 0x1234);
    EXPECT_EQ(GetLastError(), 0u);
    EXPECT_EQ(GetWindowLongW(button, 16), 0x1234);
    SetLastError(0);
    EXPECT_EQ(GetWindowLongW(button, 20), 0);
    EXPECT_NE(GetLastError(), 0u);
    EXPECT_EQ(SendMessageW(button, WM_CLOSE, 0, 0), 0);
    EXPECT_FALSE(IsWindow(button));
    DestroyWindow(parent);
}

TEST(BuiltinClasses, EveryControlClassMakesAWindow)
{
    for (const char *name : {"Static", "Edit", "ListBox", "ComboBox", "ScrollBar", "msctls_statusbar"}) {
        const HWND hwnd =
            CreateWindowExA(0, name, "x", WS_POPUP, 0, 0, 30, 30, nullptr, nullptr, nullptr, nullptr);
        ASSERT_NE(hwnd, nullptr) << name;
        char text[4] = {};
        EXPECT_EQ(GetWindowTextA(hwnd, text, 4), 1) << name;
        EXPECT_TRUE(DestroyWindow(hwnd));
    }
}

