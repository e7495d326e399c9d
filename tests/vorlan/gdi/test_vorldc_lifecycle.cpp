#include <gtest/gtest.h>

#include "support/dc_test_helpers.h"
#include "gdi/printer/vorlps_dc.h"
#include "gdi/screen/vorlscreendc.h"

#include <cstring>

using vorlan_test::LiveType;

namespace {

int s_deleteProcCalls = 0;
HDC s_deleteProcHdc = nullptr;
HWND s_deleteProcData = nullptr;

template <BOOL answer> BOOL RecordingDeleteProc(HDC hdc, HWND data)
{
    ++s_deleteProcCalls;
    s_deleteProcHdc = hdc;
    s_deleteProcData = data;
    return answer;
}

unsigned ScreenContextCount()
{
    vorlan::GtkCriticalSection lock;
    unsigned count = 0;
    for (vorlan::GdiObject *object : vorlan::GdiObject::gdiTable)
        count += object != nullptr && object->type() == OBJ_DC;
    return count;
}

} // namespace

TEST(DeviceContextLifecycle, CompatibleContextsAreMemoryContextsAndLeaveNoScreenContextBehind)
{
    const unsigned screenContexts = ScreenContextCount();
    HDC fromScreen = CreateCompatibleDC(nullptr);
    EXPECT_EQ(ScreenContextCount(), screenContexts);
    ASSERT_NE(fromScreen, nullptr);
    EXPECT_EQ(GetObjectType(fromScreen), static_cast<DWORD>(OBJ_MEMDC));
    HDC fromMemory = CreateCompatibleDC(fromScreen);
    ASSERT_NE(fromMemory, nullptr);
    EXPECT_NE(fromMemory, fromScreen);
    EXPECT_EQ(GetObjectType(fromMemory), static_cast<DWORD>(OBJ_MEMDC));
    HDC window = GetDC(nullptr);
    HDC fromWindow = CreateCompatibleDC(window);
    EXPECT_EQ(GetObjectType(fromWindow), static_cast<DWORD>(OBJ_MEMDC));
    EXPECT_EQ(GetDeviceCaps(fromWindow, BITSPIXEL), GetDeviceCaps(window, BITSPIXEL));
    EXPECT_EQ(WindowFromDC(fromWindow), nullptr);
    ReleaseDC(nullptr, window);
    for (HDC hdc : {fromScreen, fromMemory, fromWindow})
        EXPECT_TRUE(DeleteDC(hdc));
    SetLastError(0);
    EXPECT_FALSE(DeleteDC(fromScreen));
    EXPECT_EQ(GetLastError(), 87u);
    EXPECT_EQ(LiveType(fromScreen), 0u);
}

TEST(DeviceContextLifecycle, DeleteProcedureDecidesWhetherTheContextGoes)
{
    HDC hdc = CreateCompatibleDC(nullptr);
    HWND data = reinterpret_cast<HWND>(0x1234);
    s_deleteProcCalls = 0;
    EXPECT_TRUE(GdiSetDeleteDCProc(hdc, RecordingDeleteProc<FALSE>, data));
    EXPECT_FALSE(DeleteDC(hdc));
    EXPECT_EQ(s_deleteProcCalls, 1);
    EXPECT_EQ(s_deleteProcHdc, hdc);
    EXPECT_EQ(s_deleteProcData, data);
    EXPECT_EQ(GetObjectType(hdc), static_cast<DWORD>(OBJ_MEMDC));
    EXPECT_TRUE(GdiSetDeleteDCProc(hdc, RecordingDeleteProc<TRUE>, nullptr));
    EXPECT_TRUE(DeleteDC(hdc));
    EXPECT_EQ(s_deleteProcCalls, 2);
    EXPECT_EQ(s_deleteProcData, nullptr);
    EXPECT_EQ(GetObjectType(hdc), 0u);
    EXPECT_FALSE(GdiSetDeleteDCProc(hdc, RecordingDeleteProc<TRUE>, nullptr));
    // Without a procedure it just goes.
    HDC plain = CreateCompatibleDC(nullptr);
    GdiSetDeleteDCProc(plain, RecordingDeleteProc<FALSE>, nullptr);
    GdiSetDeleteDCProc(plain, nullptr, nullptr);
    EXPECT_TRUE(DeleteDC(plain));
}

TEST(DeviceContextLifecycle, NamedDeviceCallsOnlyMakePrinterContexts)
{
    static const WCHAR display[] = {'D', 'I', 'S', 'P', 'L', 'A', 'Y', 0};
    static const WCHAR driver[] = {'w', 'i', 'n', 's', 'p', 'o', 'o', 'l', 0};
    static const WCHAR printer[] = {'n', 'o', ' ', 's', 'u', 'c', 'h', 0};
    DEVMODEW devmode = {};
    devmode.dmSize = sizeof devmode;
    struct Case {
        const char *what;
        LPCWSTR driver;
        LPCWSTR device;
        const DEVMODEW *devmode;
    } cases[] = {
        {"no names", nullptr, nullptr, nullptr},
        {"display device with a driver", driver, display, nullptr},
        {"display driver with a devmode", display, nullptr, &devmode},
        {"display device with a devmode", nullptr, display, &devmode},
        {"display alone", display, nullptr, nullptr},
    };
    for (const Case &c : cases) {
        SetLastError(1234);
        EXPECT_EQ(CreateDCW(c.driver, c.device, nullptr, c.devmode), nullptr) << c.what;
        EXPECT_EQ(GetLastError(), 0u) << c.what;
        SetLastError(1234);
        EXPECT_EQ(CreateICW(c.driver, c.device, nullptr, c.devmode), nullptr) << c.what;
        EXPECT_EQ(GetLastError(), 0u) << c.what;
    }
    DEVMODEA narrow = {};
    narrow.dmSize = sizeof narrow;
    SetLastError(1234);
    EXPECT_EQ(CreateICA("DISPLAY", nullptr, "LPT1:", &narrow), nullptr);
    EXPECT_EQ(GetLastError(), 0u);
    // No printer can be opened yet.
    EXPECT_EQ(CreateDCW(driver, printer, nullptr, nullptr), nullptr);
    EXPECT_EQ(CreateDCA("winspool", "no such", nullptr, nullptr), nullptr);
}

TEST(DeviceContextLifecycle, NarrowDevmodeWidensFieldByField)
{
    DEVMODEA narrow = {};
    std::strcpy(reinterpret_cast<char *>(narrow.dmDeviceName), "Office printer");
    std::memset(narrow.dmFormName, 'F', sizeof narrow.dmFormName);
    narrow.dmSize = sizeof narrow;
    DEVMODEW wide;
    std::memset(&wide, 0xAB, sizeof wide);
    DEVMODE_A2W(&narrow, &wide);
    EXPECT_EQ(wide.dmSize, sizeof wide);
    EXPECT_EQ(wide.dmDeviceName[13], 'r');
    EXPECT_EQ(wide.dmDeviceName[14], 0);
    // A full, unterminated name is cut to fit with its terminator.
    EXPECT_EQ(wide.dmFormName[30], 'F');
    EXPECT_EQ(wide.dmFormName[31], 0);
    // A wrong size leaves the target alone.
    narrow.dmSize = 100;
    DEVMODEW untouched;
    std::memset(&untouched, 0x5A, sizeof untouched);
    DEVMODE_A2W(&narrow, &untouched);
    EXPECT_EQ(untouched.dmSize, 0x5A5A);
}

TEST(DeviceContextLifecycle, ResettingAScreenContextReturnsItsOwnHandleAndOnlyTheScreenHasOutputBounds)
{
    HDC hdc = CreateCompatibleDC(nullptr);
    DEVMODEW devmode = {};
    devmode.dmSize = sizeof devmode;
    EXPECT_EQ(ResetDCW(hdc, &devmode), hdc);
    EXPECT_EQ(ResetDCW(hdc, nullptr), hdc);
    DEVMODEA narrow = {};
    narrow.dmSize = sizeof narrow;
    EXPECT_EQ(ResetDCA(hdc, &narrow), hdc);
    EXPECT_EQ(ResetDCA(hdc, nullptr), hdc);

    HDC screen = GetDC(nullptr);
    RECT bounds;
    EXPECT_TRUE(GdiGetDCOutputBounds(screen, &bounds));
    EXPECT_EQ(bounds.left, 0);
    EXPECT_EQ(bounds.right, gdk_screen_width());
    EXPECT_TRUE(GdiGetDCOutputBounds(hdc, &bounds));
    EXPECT_TRUE(IsRectEmpty(&bounds));
    ReleaseDC(nullptr, screen);
    DeleteDC(hdc);
}
