// GlobalAlloc and friends, and the host's plain OSLocalAlloc blocks.
#include <windows.h>

#include "support/expect_last_error.h"

#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace {

constexpr DWORD kErrorDiscarded = 157;
constexpr DWORD kErrorNotLocked = 158;

bool AllBytesAre(const void *data, size_t size, BYTE value)
{
    const BYTE *bytes = static_cast<const BYTE *>(data);
    for (size_t i = 0; i < size; ++i) {
        if (bytes[i] != value)
            return false;
    }
    return true;
}

void ExpectInvalidHandle(HGLOBAL handle)
{
    SCOPED_TRACE(handle);
    EXPECT_FAILS_WITH(GlobalLock(handle), nullptr, ERROR_INVALID_HANDLE);
    EXPECT_FAILS_WITH(GlobalUnlock(handle), FALSE, ERROR_INVALID_HANDLE);
    EXPECT_FAILS_WITH(GlobalSize(handle), 0u, ERROR_INVALID_HANDLE);
    EXPECT_FAILS_WITH(GlobalFlags(handle), (UINT)GMEM_INVALID_HANDLE, ERROR_INVALID_HANDLE);
    EXPECT_FAILS_WITH(GlobalReAlloc(handle, 10, GMEM_MOVEABLE), nullptr, ERROR_INVALID_HANDLE);
    EXPECT_FAILS_WITH(GlobalFree(handle), handle, ERROR_INVALID_HANDLE);
}

} // namespace

TEST(GlobalMemory, FixedBlockHandleIsItsAddressAndMayBeEmpty)
{
    HGLOBAL block = GlobalAlloc(GMEM_FIXED, 100);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(GlobalLock(block), block);
    EXPECT_EQ(GlobalSize(block), 100u);
    EXPECT_EQ(GlobalFlags(block) & GMEM_LOCKCOUNT, 0u) << "fixed blocks have no lock count";
    EXPECT_TRUE(GlobalUnlock(block));
    EXPECT_EQ(GlobalHandle(block), block);
    std::memset(block, 0xAB, 100);
    EXPECT_EQ(GlobalFree(block), nullptr);
    HGLOBAL empty = GlobalAlloc(GMEM_FIXED, 0);
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(GlobalSize(empty), 0u);
    EXPECT_EQ(GlobalFree(empty), nullptr);
}

TEST(GlobalMemory, ZeroInitZeroesAndTheShareFlagIsKept)
{
    HGLOBAL fixed = GlobalAlloc(GPTR, 300);
    ASSERT_NE(fixed, nullptr);
    EXPECT_TRUE(AllBytesAre(fixed, 300, 0));
    GlobalFree(fixed);
    HGLOBAL shared = GlobalAlloc(GMEM_DDESHARE | GMEM_ZEROINIT | GMEM_MOVEABLE, 4096);
    ASSERT_NE(shared, nullptr);
    void *data = GlobalLock(shared);
    ASSERT_NE(data, nullptr);
    EXPECT_NE(data, shared);
    EXPECT_TRUE(AllBytesAre(data, 4096, 0));
    EXPECT_EQ(GlobalFlags(shared) & GMEM_DDESHARE, (UINT)GMEM_DDESHARE);
    GlobalUnlock(shared);
    GlobalFree(shared);
}

TEST(GlobalMemory, MovableHandleIsNotThePointerAndCountsItsLocks)
{
    HGLOBAL handle = GlobalAlloc(GMEM_MOVEABLE, 64);
    ASSERT_NE(handle, nullptr);
    void *data = GlobalLock(handle);
    ASSERT_NE(data, nullptr);
    EXPECT_NE(data, handle);
    std::memset(data, 0x5C, 64);
    EXPECT_EQ(GlobalHandle(data), handle);
    EXPECT_EQ(GlobalSize(handle), 64u);
    EXPECT_FALSE(GlobalUnlock(handle));
    EXPECT_EQ(GlobalFree(handle), nullptr);

    HGLOBAL counted = GlobalAlloc(GMEM_MOVEABLE, 16);
    ASSERT_NE(counted, nullptr);
    EXPECT_EQ(GlobalFlags(counted) & GMEM_LOCKCOUNT, 0u);
    void *first = GlobalLock(counted);
    void *second = GlobalLock(counted);
    EXPECT_EQ(first, second);
    EXPECT_EQ(GlobalFlags(counted) & GMEM_LOCKCOUNT, 2u);

    SetLastError(12345);
    EXPECT_TRUE(GlobalUnlock(counted)) << "still locked once";
    EXPECT_EQ(GlobalFlags(counted) & GMEM_LOCKCOUNT, 1u);
    SetLastError(12345);
    EXPECT_FALSE(GlobalUnlock(counted));
    EXPECT_EQ(GetLastError(), (DWORD)NO_ERROR) << "unlocked: FALSE with NO_ERROR";
    EXPECT_FAILS_WITH(GlobalUnlock(counted), FALSE, kErrorNotLocked);
    GlobalFree(counted);
}

TEST(GlobalMemory, ZeroSizedMovableBlockIsDiscarded)
{
    HGLOBAL handle = GlobalAlloc(GMEM_MOVEABLE, 0);
    ASSERT_NE(handle, nullptr);
    EXPECT_FAILS_WITH(GlobalLock(handle), nullptr, kErrorDiscarded);
    EXPECT_EQ(GlobalSize(handle), 0u);
    EXPECT_EQ(GlobalFlags(handle) & GMEM_DISCARDED, (UINT)GMEM_DISCARDED);
    // Reallocating brings it back under the same handle.
    EXPECT_EQ(GlobalReAlloc(handle, 32, GMEM_MOVEABLE | GMEM_ZEROINIT), handle);
    void *data = GlobalLock(handle);
    ASSERT_NE(data, nullptr);
    EXPECT_TRUE(AllBytesAre(data, 32, 0));
    EXPECT_EQ(GlobalFlags(handle) & GMEM_DISCARDED, 0u);
    GlobalUnlock(handle);
    EXPECT_EQ(GlobalFree(handle), nullptr);
}

TEST(GlobalMemory, ReAllocMovableKeepsHandleAndContentAndMovesALockedBlockOnlyWhenAllowed)
{
    HGLOBAL handle = GlobalAlloc(GMEM_MOVEABLE, 8);
    ASSERT_NE(handle, nullptr);
    std::memcpy(GlobalLock(handle), "abcdefgh", 8);
    GlobalUnlock(handle);
    EXPECT_EQ(GlobalReAlloc(handle, 100000, GMEM_ZEROINIT), handle);
    EXPECT_EQ(GlobalSize(handle), 100000u);
    BYTE *data = static_cast<BYTE *>(GlobalLock(handle));
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(std::memcmp(data, "abcdefgh", 8), 0);
    EXPECT_TRUE(AllBytesAre(data + 8, 100000 - 8, 0)) << "growth zeroed";
    EXPECT_EQ(GlobalHandle(data), handle);
    GlobalUnlock(handle);
    EXPECT_EQ(GlobalReAlloc(handle, 4, 0), handle);
    EXPECT_EQ(GlobalSize(handle), 4u);
    EXPECT_EQ(std::memcmp(GlobalLock(handle), "abcd", 4), 0);
    GlobalUnlock(handle);
    GlobalFree(handle);

    HGLOBAL locked = GlobalAlloc(GMEM_MOVEABLE, 16);
    void *lockedData = GlobalLock(locked);
    ASSERT_NE(lockedData, nullptr);
    EXPECT_FAILS_WITH(GlobalReAlloc(locked, 1 << 20, 0), nullptr, ERROR_NOT_ENOUGH_MEMORY);
    EXPECT_EQ(GlobalSize(locked), 16u) << "failure leaves the block as it was";
    EXPECT_EQ(GlobalReAlloc(locked, 1 << 20, GMEM_MOVEABLE), locked);
    EXPECT_EQ(GlobalSize(locked), (SIZE_T)(1 << 20));
    // A locked block cannot be discarded.
    EXPECT_EQ(GlobalReAlloc(locked, 0, GMEM_MOVEABLE), nullptr);
    GlobalUnlock(locked);
    EXPECT_EQ(GlobalReAlloc(locked, 0, GMEM_MOVEABLE), locked);
    EXPECT_EQ(GlobalFlags(locked) & GMEM_DISCARDED, (UINT)GMEM_DISCARDED);
    GlobalFree(locked);
}

TEST(GlobalMemory, ReAllocFixedMovesOnlyWithMoveableAndModifyChangesAttributesOnly)
{
    HGLOBAL block = GlobalAlloc(GMEM_FIXED, 16);
    std::memcpy(block, "0123456789abcdef", 16);
    EXPECT_FAILS_WITH(GlobalReAlloc(block, 1 << 20, 0), nullptr, ERROR_NOT_ENOUGH_MEMORY);
    EXPECT_EQ(GlobalSize(block), 16u);
    HGLOBAL moved = GlobalReAlloc(block, 1 << 20, GMEM_MOVEABLE | GMEM_ZEROINIT);
    ASSERT_NE(moved, nullptr);
    EXPECT_EQ(std::memcmp(moved, "0123456789abcdef", 16), 0);
    EXPECT_TRUE(AllBytesAre(static_cast<BYTE *>(moved) + 16, (1 << 20) - 16, 0));
    EXPECT_EQ(GlobalSize(moved), (SIZE_T)(1 << 20));
    HGLOBAL shrunk = GlobalReAlloc(moved, 8, 0);
    EXPECT_EQ(shrunk, moved) << "shrinking happens in place";
    EXPECT_EQ(GlobalSize(shrunk), 8u);
    EXPECT_EQ(GlobalFree(shrunk), nullptr);

    HGLOBAL handle = GlobalAlloc(GMEM_MOVEABLE, 10);
    EXPECT_EQ(GlobalReAlloc(handle, 0, GMEM_MODIFY | GMEM_DISCARDABLE), handle);
    EXPECT_EQ(GlobalFlags(handle) & GMEM_DISCARDABLE, (UINT)GMEM_DISCARDABLE);
    EXPECT_EQ(GlobalSize(handle), 10u);
    EXPECT_EQ(GlobalReAlloc(handle, 0, GMEM_MODIFY), handle);
    EXPECT_EQ(GlobalFlags(handle) & GMEM_DISCARDABLE, 0u);
    GlobalFree(handle);

    HGLOBAL fixed = GlobalAlloc(GMEM_FIXED, 10);
    std::memcpy(fixed, "fixed!", 7);
    HGLOBAL movable = GlobalReAlloc(fixed, 0, GMEM_MODIFY | GMEM_MOVEABLE);
    ASSERT_NE(movable, nullptr);
    EXPECT_NE(movable, fixed);
    EXPECT_EQ(GlobalLock(movable), fixed) << "same memory, now movable";
    EXPECT_STREQ(static_cast<char *>(GlobalLock(movable)), "fixed!");
    EXPECT_EQ(GlobalSize(movable), 10u);
    EXPECT_EQ(GlobalFree(movable), nullptr);
}

TEST(GlobalMemory, ForgedFreedAndNullHandlesFail)
{
    int local = 0;
    ExpectInvalidHandle(reinterpret_cast<HGLOBAL>(&local));
    ExpectInvalidHandle(reinterpret_cast<HGLOBAL>(0x1234));
    ExpectInvalidHandle(reinterpret_cast<HGLOBAL>(0xFFFFF04));
    ExpectInvalidHandle(reinterpret_cast<HGLOBAL>(~static_cast<uintptr_t>(0) - 11));

    HGLOBAL movable = GlobalAlloc(GMEM_MOVEABLE, 8);
    void *data = GlobalLock(movable);
    EXPECT_FAILS_WITH(GlobalHandle(&local), nullptr, ERROR_INVALID_HANDLE);
    EXPECT_EQ(GlobalFree(movable), nullptr) << "freed even while locked";
    ExpectInvalidHandle(movable);
    EXPECT_EQ(GlobalHandle(data), nullptr);
    // The freed slot is reused later; the stale handle stays invalid.
    HGLOBAL reused = GlobalAlloc(GMEM_MOVEABLE, 8);
    EXPECT_NE(reused, movable);
    ExpectInvalidHandle(movable);
    GlobalFree(reused);

    HGLOBAL fixed = GlobalAlloc(GMEM_FIXED, 8);
    EXPECT_EQ(GlobalFree(fixed), nullptr);
    EXPECT_FAILS_WITH(GlobalFree(fixed), fixed, ERROR_INVALID_HANDLE); // double free

    EXPECT_EQ(GlobalFree(nullptr), nullptr);
    EXPECT_FAILS_WITH(GlobalLock(nullptr), nullptr, ERROR_INVALID_HANDLE);
    EXPECT_EQ(GlobalSize(nullptr), 0u);
    EXPECT_EQ(GlobalHandle(nullptr), nullptr);
}

TEST(GlobalMemory, InvalidFlagsAndHugeSizes)
{
    EXPECT_FAILS_WITH(GlobalAlloc(0x8000, 10), nullptr, ERROR_INVALID_PARAMETER);
    EXPECT_FAILS_WITH(GlobalAlloc(GMEM_MOVEABLE, ~static_cast<SIZE_T>(0)), nullptr, ERROR_NOT_ENOUGH_MEMORY);
    EXPECT_FAILS_WITH(GlobalAlloc(GMEM_FIXED, ~static_cast<SIZE_T>(0) / 2 + 1), nullptr, ERROR_NOT_ENOUGH_MEMORY);
    HGLOBAL handle = GlobalAlloc(GMEM_MOVEABLE, 8);
    EXPECT_FAILS_WITH(GlobalReAlloc(handle, ~static_cast<SIZE_T>(0), GMEM_MOVEABLE), nullptr,
                      ERROR_NOT_ENOUGH_MEMORY);
    EXPECT_EQ(GlobalSize(handle), 8u);
    GlobalFree(handle);
}

TEST(GlobalMemory, ConcurrentAllocationsStayConsistent)
{
    auto worker = [](BYTE fill) {
        std::vector<HGLOBAL> handles;
        for (int i = 0; i < 200; ++i) {
            HGLOBAL h = GlobalAlloc(i % 2 ? GMEM_MOVEABLE : GMEM_FIXED, 32);
            std::memset(GlobalLock(h), fill, 32);
            GlobalUnlock(h);
            handles.push_back(h);
        }
        bool intact = true;
        for (HGLOBAL h : handles) {
            intact = intact && GlobalSize(h) == 32 && AllBytesAre(GlobalLock(h), 32, fill);
            GlobalUnlock(h);
            intact = intact && GlobalFree(h) == nullptr;
        }
        return intact;
    };
    bool results[4] = {};
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&, t] { results[t] = worker(static_cast<BYTE>(0x10 + t)); });
    for (std::thread &thread : threads)
        thread.join();
    for (bool intact : results)
        EXPECT_TRUE(intact);
}

TEST(LocalBlocks, StatusAndBlockOrFailureAndNull)
{
    void *block = reinterpret_cast<void *>(1);
    EXPECT_FALSE(OS_STATUS_FAILED(OSLocalAlloc(64, &block)));
    ASSERT_NE(block, nullptr);
    std::memset(block, 0, 64);
    OSLocalFree(block);
    EXPECT_FALSE(OS_STATUS_FAILED(OSLocalAlloc(0, &block)));
    EXPECT_NE(block, nullptr);
    OSLocalFree(block);

    block = reinterpret_cast<void *>(1);
    const OSSTATUS status = OSLocalAlloc(~static_cast<SIZE_T>(0) - 64, &block);
    EXPECT_TRUE(OS_STATUS_FAILED(status));
    EXPECT_EQ(status, OS_STATUS_NO_MEMORY);
    EXPECT_EQ(block, nullptr);
    EXPECT_EQ(OSLocalAlloc(8, nullptr), OS_STATUS_BAD_ARGUMENT);
    EXPECT_EQ(OSLocalAllocNoStatus(~static_cast<SIZE_T>(0) - 64), nullptr);
    void *plain = OSLocalAllocNoStatus(10);
    EXPECT_NE(plain, nullptr);
    OSLocalFree(plain);
    OSLocalFree(nullptr);
}
