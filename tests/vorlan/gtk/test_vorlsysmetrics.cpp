// GetSystemMetrics: the fixed values, the screen, the theme's scroll bar
// width, bad indexes and the toolkit lock.

#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlthemecolors.h"
#include "support/gdk_lock_counter.h"

#include <windows.h>

#include <gdk/gdk.h>

#include <map>

using vorlan_test::GdkLockCounter;

namespace {

int ScreenWidth()
{
    vorlan::GtkCriticalSection lock;
    return gdk_screen_width();
}

int ScreenHeight()
{
    vorlan::GtkCriticalSection lock;
    return gdk_screen_height();
}

} // namespace

TEST(SystemMetrics, FixedValues)
{
    const std::map<int, int> expected = {
        {SM_CYCAPTION, 26},     {SM_CXBORDER, 1},       {SM_CYBORDER, 1},      {SM_CXDLGFRAME, 3},
        {SM_CYDLGFRAME, 3},     {SM_CYVTHUMB, 17},      {SM_CXHTHUMB, 17},     {SM_CXICON, 32},
        {SM_CYICON, 32},        {SM_CXCURSOR, 32},      {SM_CYCURSOR, 32},     {SM_CYMENU, 20},
        {SM_MOUSEPRESENT, 1},   {SM_DBCSENABLED, 1},    {SM_CXMIN, 123},       {SM_CYMIN, 34},
        {SM_CXSIZE, 25},        {SM_CYSIZE, 25},        {SM_CXFRAME, 4},       {SM_CYFRAME, 4},
        {SM_CXDRAG, 4},         {SM_CYDRAG, 4},         {SM_CYICONSPACING, 75}, {SM_CXEDGE, 2},
        {SM_CYEDGE, 2},
    };
    for (const auto &entry : expected)
        EXPECT_EQ(GetSystemMetrics(entry.first), entry.second) << "index " << entry.first;
}

TEST(SystemMetrics, ScreenSize)
{
    EXPECT_EQ(GetSystemMetrics(SM_CXSCREEN), ScreenWidth());
    EXPECT_EQ(GetSystemMetrics(SM_CXFULLSCREEN), ScreenWidth());
    EXPECT_EQ(GetSystemMetrics(SM_CYSCREEN), ScreenHeight());
}

TEST(SystemMetrics, ScrollBarSizesComeFromTheTheme)
{
    int slider = 0, trough = 0;
    GetGtkScrollBarMetrics(&slider, &trough, nullptr, nullptr);
    const int width = slider + 2 * trough;
    EXPECT_GT(width, 0);
    for (int index : {SM_CXVSCROLL, SM_CYHSCROLL, SM_CYVSCROLL, SM_CXHSCROLL})
        EXPECT_EQ(GetSystemMetrics(index), width) << "index " << index;
}

TEST(SystemMetrics, IndexesWithoutValueGiveZero)
{
    for (int index : {SM_CYFULLSCREEN, 18, 22, 23, 43, 44, 47, 67, 70, 71, 1000, -1, -1000})
        EXPECT_EQ(GetSystemMetrics(index), 0) << "index " << index;
}

TEST(SystemMetrics, EveryIndexBelowLimitIsAnswered)
{
    for (int index = 0; index < 70; ++index)
        EXPECT_GE(GetSystemMetrics(index), 0) << "index " << index;
}

TEST(SystemMetrics, TakesTheToolkitLockOnce)
{
    GdkLockCounter counter;
    GetSystemMetrics(SM_CXVSCROLL);
    EXPECT_EQ(counter.enters(), 1);
    GetSystemMetrics(SM_CYCAPTION);
    GetSystemMetrics(-5);
    EXPECT_EQ(counter.enters(), 3);
    EXPECT_EQ(counter.leaves(), 3);
}
