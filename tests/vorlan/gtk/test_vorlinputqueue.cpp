// The hardware input queue: merging of mouse moves and wheel steps, the
// class filters, records kept in order when a filter rejects them, dropped
// records, and the key state that follows the removed records.

#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorltestwindows.h"
#include "gtk/vorlthread.h"
#include "support/queue_helpers.h"

#include <vector>

using namespace vorlan_test;
using vorlan::testing::CreateTestWindow;
using vorlan::testing::DestroyTestWindow;

namespace {

LRESULT CALLBACK ZeroProc(HWND, UINT, WPARAM, LPARAM)
{
    return 0;
}

class InputQueue : public ::testing::Test {
protected:
    void SetUp() override
    {
        ResetCurrentThreadQueues();
        m_keyWindow = CreateTestWindow(ZeroProc);
        m_mouseWindow = CreateTestWindow(ZeroProc);
        Data()->hWndFocus = m_keyWindow;
        Data()->hWndActive = m_mouseWindow;
    }
    void TearDown() override
    {
        ResetCurrentThreadQueues();
        DestroyTestWindow(m_keyWindow);
        DestroyTestWindow(m_mouseWindow);
    }

    ThreadData *Data() { return ThreadData::GetCurrentThreadData(); }

    void Queue(UINT message, WPARAM wParam, int x, int y, WORD wFlags)
    {
        _InputMSG record = {};
        record.message = message;
        record.wParam = wParam;
        record.pt = {x, y};
        record.wFlags = wFlags;
        vorlan::GtkCriticalSection lock;
        Data()->QueueInputMessage(&record);
    }
    void Key(UINT message, WPARAM key, WORD wFlags = 0) { Queue(message, key, 0, 0, wFlags); }
    void Move(int x, int y, WORD wFlags = 0) { Queue(WM_MOUSEMOVE, 0, x, y, wFlags); }
    void Wheel(int delta, WORD wFlags = 0) { Queue(WM_MOUSEWHEEL, static_cast<WPARAM>(delta), 1, 1, wFlags); }

    std::vector<_InputMSG> Records()
    {
        std::lock_guard<std::recursive_mutex> guard(g_inputQueueMutex);
        return {Data()->qInputMsgs.begin(), Data()->qInputMsgs.end()};
    }

    HWND m_keyWindow = nullptr;
    HWND m_mouseWindow = nullptr;
};

// A mouse move merges into a move right before it with the same buttons; a
// wheel step into one before it with the same direction and modifiers.
TEST_F(InputQueue, MovesAndWheelStepsMergeOnlyWithTheirLikeRightBefore)
{
    Move(1, 1);
    Move(2, 2);
    Move(3, 4);
    auto records = Records();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].pt.x, 3);
    EXPECT_EQ(records[0].pt.y, 4);
    Move(5, 5, INPUT_FLAG_LBUTTON);
    Key(WM_KEYDOWN, 'A');
    Move(5, 5, INPUT_FLAG_LBUTTON);
    records = Records();
    ASSERT_EQ(records.size(), 4u);
    EXPECT_LT(records[0].uId, records[1].uId);
    MSG msg;
    while (LockedPeek(&msg)) {
    }

    Wheel(120);
    Wheel(120);
    Wheel(-120);
    Wheel(-120);
    Wheel(-120, INPUT_FLAG_CONTROL);
    records = Records();
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(static_cast<LONG>(records[0].wParam), 240);
    EXPECT_EQ(static_cast<LONG>(records[1].wParam), -240);
    EXPECT_EQ(static_cast<LONG>(records[2].wParam), -120);
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_MOUSEWHEEL));
    EXPECT_EQ(HIWORD(msg.wParam), 240);
}

TEST_F(InputQueue, FlagsTellTheRecordClassesAndAKeyWithoutTargetIsDropped)
{
    Key(WM_KEYDOWN, 'A');
    EXPECT_EQ(Data()->qsFlags.load() & QS_FLAG_INPUT, static_cast<DWORD>(QS_FLAG_KEYBOARD));
    EXPECT_EQ(Data()->nInputKeyboard, 1u);
    Move(1, 1);
    EXPECT_EQ(Data()->qsFlags.load() & QS_FLAG_INPUT, static_cast<DWORD>(QS_FLAG_INPUT));
    MSG msg;
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(Data()->qsFlags.load() & QS_FLAG_INPUT, static_cast<DWORD>(QS_FLAG_OTHER_INPUT));
    EXPECT_EQ(Data()->nInputKeyboard, 0u);
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(Data()->qsFlags.load() & QS_FLAG_INPUT, 0u);

    // A key without a target is dropped when peeked.
    Data()->hWndFocus = nullptr;
    Data()->hWndActive = nullptr;
    Key(WM_KEYDOWN, 'A');
    EXPECT_FALSE(LockedPeek(&msg, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_TRUE(Records().empty());
    EXPECT_EQ(Data()->qsFlags.load() & QS_FLAG_INPUT, 0u);
}

// A WM_CHAR filter alone wants no key record; class filters pick pointer
// or keyboard records, each for its target window.
TEST_F(InputQueue, ClassFiltersPickPointerOrKeyboard)
{
    Key(WM_KEYDOWN, 'A');
    Move(7, 8);
    MSG msg;
    EXPECT_FALSE(LockedPeek(&msg, nullptr, WM_CHAR, WM_CHAR));
    EXPECT_EQ(Records().size(), 2u);
    ASSERT_TRUE(LockedPeek(&msg, nullptr, WM_MOUSEFIRST, WM_MOUSELAST));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_MOUSEMOVE));
    EXPECT_EQ(msg.hwnd, m_mouseWindow);
    EXPECT_EQ(msg.pt.x, 7);
    EXPECT_EQ(msg.lParam, MAKELPARAM(7, 8));
    EXPECT_FALSE(LockedPeek(&msg, nullptr, WM_MOUSEFIRST, WM_MOUSELAST));
    ASSERT_TRUE(LockedPeek(&msg, nullptr, WM_KEYDOWN, WM_CHAR));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_KEYDOWN));
    EXPECT_EQ(msg.hwnd, m_keyWindow);
}

// The key state changes when a record is removed, not when it is peeked,
// and then follows every modifier flag of that record.
TEST_F(InputQueue, KeyStateFollowsTheRemovedRecord)
{
    Data()->keyState['Q'] = -128;
    Move(1, 1, INPUT_FLAG_LBUTTON | INPUT_FLAG_SHIFT | INPUT_FLAG_CAPSLOCK);
    MSG msg;
    ASSERT_TRUE(LockedPeek(&msg, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(Data()->keyState[VK_LBUTTON], 0);
    EXPECT_EQ(Data()->keyState['Q'], -128);
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(Data()->keyState[VK_LBUTTON], -128);
    EXPECT_EQ(Data()->keyState[VK_SHIFT], -128);
    EXPECT_EQ(Data()->keyState[VK_CAPITAL], 1);
    EXPECT_EQ(Data()->keyState[VK_CONTROL], 0);
    EXPECT_EQ(Data()->keyState[VK_MENU], 0);
    EXPECT_EQ(Data()->keyState['Q'], 0);
    EXPECT_EQ(msg.wParam, static_cast<WPARAM>(MK_LBUTTON | MK_SHIFT));

    Key(WM_KEYDOWN, 'A', INPUT_FLAG_CONTROL | INPUT_FLAG_ALT | INPUT_FLAG_MBUTTON | INPUT_FLAG_RBUTTON);
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(msg.wParam, static_cast<WPARAM>('A'));
    for (int key : {VK_CONTROL, VK_MENU, VK_MBUTTON, VK_RBUTTON})
        EXPECT_EQ(Data()->keyState[key], -128) << key;
    for (int key : {VK_SHIFT, VK_LBUTTON})
        EXPECT_EQ(Data()->keyState[key], 0) << key;
}

TEST_F(InputQueue, RemovingAnUnknownRecordChangesNothing)
{
    Move(1, 1, INPUT_FLAG_LBUTTON);
    const UINT uId = Records()[0].uId;
    Data()->removeInputMessage(uId + 1000);
    EXPECT_EQ(Records().size(), 1u);
    EXPECT_EQ(Data()->keyState[VK_LBUTTON], 0);
    Data()->removeInputMessage(uId);
    EXPECT_TRUE(Records().empty());
    EXPECT_EQ(Data()->keyState[VK_LBUTTON], -128);
}

TEST_F(InputQueue, F1DownQueuesKeyF1BehindTheKey)
{
    Key(WM_KEYDOWN, VK_F1);
    MSG msg;
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_KEYDOWN));
    EXPECT_EQ(msg.wParam, static_cast<WPARAM>(VK_F1));
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_KEYF1));
    EXPECT_EQ(msg.hwnd, m_keyWindow);
    EXPECT_FALSE(LockedPeek(&msg));
}

// Records that the window filter rejects keep their place, also when many
// come before the one taken.
TEST_F(InputQueue, RecordsRejectedByTheWindowFilterKeepTheirPlace)
{
    for (int i = 0; i < 50; ++i)
        Key(i % 2 ? WM_KEYUP : WM_KEYDOWN, 'A' + (i % 20));
    Move(3, 3);
    Key(WM_KEYDOWN, 'Z');
    MSG msg;
    ASSERT_TRUE(LockedPeek(&msg, m_mouseWindow));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_MOUSEMOVE));
    for (int i = 0; i < 50; ++i) {
        ASSERT_TRUE(LockedPeek(&msg));
        EXPECT_EQ(msg.message, static_cast<UINT>(i % 2 ? WM_KEYUP : WM_KEYDOWN));
        EXPECT_EQ(msg.wParam, static_cast<WPARAM>('A' + (i % 20)));
    }
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(msg.wParam, static_cast<WPARAM>('Z'));
    EXPECT_FALSE(LockedPeek(&msg));
}

} // namespace
