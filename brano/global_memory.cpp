// Global memory blocks.
//
// A fixed block's handle is its address.  A movable block's handle is an
// encoded slot number that can never be mistaken for an address:
//
//     handle = (slot + 1) << 8 | (generation & 0xF) << 4 | 0x4
//
// Heap addresses are at least 8-aligned, so bit 2 tells the two kinds apart.
// Every handle is looked up in the tables before use, and the generation
// makes a freed movable handle fail even after its slot is reused; forged
// and stale handles give ERROR_INVALID_HANDLE.  One mutex guards the tables.
#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <malloc.h>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace {

constexpr DWORD kErrorDiscarded = 157;  // ERROR_DISCARDED
constexpr DWORD kErrorNotLocked = 158;  // ERROR_NOT_LOCKED
constexpr UINT kKeptFlags = GMEM_DISCARDABLE | GMEM_DDESHARE;
constexpr UINT kMaxReportedLocks = GMEM_LOCKCOUNT;
constexpr uintptr_t kMovableTag = 0x4;
constexpr uintptr_t kTagMask = 0xF;
constexpr size_t kMaxSlots = size_t(1) << 23;
constexpr SIZE_T kMaxBlockSize = static_cast<SIZE_T>(PTRDIFF_MAX);

struct MovableBlock {
    void *data = nullptr;  // null once discarded
    SIZE_T size = 0;
    UINT lockCount = 0;
    UINT flags = 0;
    unsigned generation = 0;
    bool inUse = false;
};

struct GlobalHeap {
    std::mutex mutex;
    std::vector<MovableBlock> slots;
    std::deque<size_t> freeSlots;  // reused oldest first, to delay reuse
    std::unordered_map<const void *, SIZE_T> fixedSizes;
    std::unordered_map<const void *, size_t> slotOfData;
};

GlobalHeap &Heap()
{
    static GlobalHeap *s_heap = new GlobalHeap;  // outlives every static destructor
    return *s_heap;
}

HGLOBAL EncodeHandle(size_t slot, unsigned generation)
{
    const uintptr_t value = (static_cast<uintptr_t>(slot + 1) << 8) |
                            (static_cast<uintptr_t>(generation & 0xF) << 4) | kMovableTag;
    return reinterpret_cast<HGLOBAL>(value);
}

bool LooksMovable(HGLOBAL handle)
{
    return (reinterpret_cast<uintptr_t>(handle) & kTagMask) == kMovableTag;
}

// The live movable block of a handle, or null.
MovableBlock *FindMovable(GlobalHeap &heap, HGLOBAL handle)
{
    const uintptr_t value = reinterpret_cast<uintptr_t>(handle);
    if (!LooksMovable(handle) || (value >> 8) == 0)
        return nullptr;
    const size_t slot = (value >> 8) - 1;
    if (slot >= heap.slots.size())
        return nullptr;
    MovableBlock &block = heap.slots[slot];
    if (!block.inUse || (block.generation & 0xF) != ((value >> 4) & 0xF))
        return nullptr;
    return &block;
}

SIZE_T *FindFixed(GlobalHeap &heap, HGLOBAL handle)
{
    if (handle == nullptr || LooksMovable(handle))
        return nullptr;
    const auto it = heap.fixedSizes.find(handle);
    return it != heap.fixedSizes.end() ? &it->second : nullptr;
}

size_t SlotOf(const GlobalHeap &heap, const MovableBlock *block)
{
    return static_cast<size_t>(block - heap.slots.data());
}

// A block of at least one byte, so that a size of zero still has an address.
void *AllocateBytes(SIZE_T size, bool zero)
{
    const SIZE_T bytes = size != 0 ? size : 1;
    return zero ? std::calloc(1, bytes) : std::malloc(bytes);
}

void ZeroGrowth(void *data, SIZE_T oldSize, SIZE_T newSize)
{
    if (newSize > oldSize)
        std::memset(static_cast<BYTE *>(data) + oldSize, 0, newSize - oldSize);
}

bool FitsInPlace(void *data, SIZE_T size)
{
    return data != nullptr && malloc_usable_size(data) >= size;
}

HGLOBAL NewMovable(GlobalHeap &heap, void *data, SIZE_T size, UINT flags)
{
    size_t slot;
    if (!heap.freeSlots.empty()) {
        slot = heap.freeSlots.front();
        heap.freeSlots.pop_front();
    } else {
        if (heap.slots.size() >= kMaxSlots)
            return nullptr;
        heap.slots.emplace_back();
        slot = heap.slots.size() - 1;
    }
    MovableBlock &block = heap.slots[slot];
    block.data = data;
    block.size = size;
    block.lockCount = 0;
    block.flags = flags & kKeptFlags;
    block.inUse = true;
    if (data != nullptr)
        heap.slotOfData[data] = slot;
    return EncodeHandle(slot, block.generation);
}

void ReleaseMovable(GlobalHeap &heap, MovableBlock &block)
{
    if (block.data != nullptr) {
        heap.slotOfData.erase(block.data);
        std::free(block.data);
    }
    block = MovableBlock{nullptr, 0, 0, 0, block.generation + 1, false};
    heap.freeSlots.push_back(SlotOf(heap, &block));
}

void ReplaceData(GlobalHeap &heap, MovableBlock &block, void *data)
{
    if (block.data != nullptr)
        heap.slotOfData.erase(block.data);
    block.data = data;
    if (data != nullptr)
        heap.slotOfData[data] = SlotOf(heap, &block);
}

HGLOBAL AllocateMovable(GlobalHeap &heap, UINT flags, SIZE_T size)
{
    // A zero-sized movable block starts out discarded.
    void *data = nullptr;
    if (size != 0) {
        data = AllocateBytes(size, (flags & GMEM_ZEROINIT) != 0);
        if (data == nullptr)
            return nullptr;
    }
    HGLOBAL handle = NewMovable(heap, data, size, flags);
    if (handle == nullptr)
        std::free(data);
    return handle;
}

HGLOBAL AllocateFixed(GlobalHeap &heap, UINT flags, SIZE_T size)
{
    void *data = AllocateBytes(size, (flags & GMEM_ZEROINIT) != 0);
    if (data != nullptr)
        heap.fixedSizes[data] = size;
    return data;
}

// GMEM_MODIFY: only the discardable attribute of a movable block changes; a
// fixed block asked to become movable gets a movable handle for its data.
HGLOBAL ModifyAttributes(GlobalHeap &heap, HGLOBAL handle, UINT flags)
{
    if (MovableBlock *block = FindMovable(heap, handle)) {
        block->flags = (block->flags & ~static_cast<UINT>(GMEM_DISCARDABLE)) | (flags & GMEM_DISCARDABLE);
        return handle;
    }
    if ((flags & GMEM_MOVEABLE) == 0)
        return handle;
    const SIZE_T size = heap.fixedSizes[handle];
    HGLOBAL movable = NewMovable(heap, handle, size, flags);
    if (movable != nullptr)
        heap.fixedSizes.erase(handle);
    else
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return movable;
}

// Moving needs GMEM_MOVEABLE for a fixed or a locked block; otherwise a
// block may only change size where it is.
HGLOBAL ResizeFixed(GlobalHeap &heap, HGLOBAL handle, SIZE_T size, UINT flags)
{
    SIZE_T &oldSize = heap.fixedSizes[handle];
    void *data = handle;
    if (!FitsInPlace(data, size)) {
        if ((flags & GMEM_MOVEABLE) == 0)
            return nullptr;
        data = std::realloc(data, size != 0 ? size : 1);
        if (data == nullptr)
            return nullptr;
    }
    const SIZE_T previous = oldSize;
    if (data != handle) {
        heap.fixedSizes.erase(handle);
        heap.fixedSizes[data] = size;
    } else {
        oldSize = size;
    }
    if (flags & GMEM_ZEROINIT)
        ZeroGrowth(data, previous, size);
    return data;
}

bool DiscardMovable(GlobalHeap &heap, MovableBlock &block)
{
    if (block.lockCount != 0)
        return false;
    void *old = block.data;
    ReplaceData(heap, block, nullptr);
    std::free(old);
    block.size = 0;
    return true;
}

bool ResizeMovable(GlobalHeap &heap, MovableBlock &block, SIZE_T size, UINT flags)
{
    const bool zero = (flags & GMEM_ZEROINIT) != 0;
    if (block.data == nullptr) {
        void *data = AllocateBytes(size, zero);
        if (data == nullptr)
            return false;
        ReplaceData(heap, block, data);
        block.size = size;
        return true;
    }
    void *data = block.data;
    if (!FitsInPlace(data, size)) {
        if (block.lockCount != 0 && (flags & GMEM_MOVEABLE) == 0)
            return false;
        const size_t slot = SlotOf(heap, &block);
        heap.slotOfData.erase(block.data);
        data = std::realloc(block.data, size);
        if (data == nullptr) {
            heap.slotOfData[block.data] = slot;
            return false;
        }
        block.data = data;
        heap.slotOfData[data] = slot;
    }
    if (zero)
        ZeroGrowth(data, block.size, size);
    block.size = size;
    return true;
}

HGLOBAL ReAllocateMovable(GlobalHeap &heap, HGLOBAL handle, MovableBlock &block, SIZE_T size, UINT flags)
{
    const bool ok = (size == 0 && (flags & GMEM_MOVEABLE) != 0) ? DiscardMovable(heap, block)
                                                                 : ResizeMovable(heap, block, size, flags);
    return ok ? handle : nullptr;
}

void FailWith(DWORD error)
{
    SetLastError(error);
}

} // namespace

HGLOBAL WINAPI GlobalAlloc(UINT uFlags, SIZE_T dwBytes)
{
    if ((uFlags & ~static_cast<UINT>(GMEM_VALID_FLAGS)) != 0) {
        FailWith(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (dwBytes > kMaxBlockSize) {
        FailWith(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    GlobalHeap &heap = Heap();
    std::lock_guard<std::mutex> lock(heap.mutex);
    HGLOBAL handle = (uFlags & GMEM_MOVEABLE) ? AllocateMovable(heap, uFlags, dwBytes)
                                              : AllocateFixed(heap, uFlags, dwBytes);
    if (handle == nullptr)
        FailWith(ERROR_NOT_ENOUGH_MEMORY);
    return handle;
}

// A fixed block's address is returned unchanged and has no lock count.
LPVOID WINAPI GlobalLock(HGLOBAL hMem)
{
    GlobalHeap &heap = Heap();
    std::lock_guard<std::mutex> lock(heap.mutex);
    if (MovableBlock *block = FindMovable(heap, hMem)) {
        if (block->data == nullptr) {
            FailWith(kErrorDiscarded);
            return nullptr;
        }
        ++block->lockCount;
        return block->data;
    }
    if (FindFixed(heap, hMem) != nullptr)
        return hMem;
    FailWith(ERROR_INVALID_HANDLE);
    return nullptr;
}

// TRUE while the block stays locked; FALSE with NO_ERROR once the count
// reaches zero, with ERROR_NOT_LOCKED if it was not locked.  Unlocking a
// fixed block has no effect and reports TRUE.
BOOL WINAPI GlobalUnlock(HGLOBAL hMem)
{
    GlobalHeap &heap = Heap();
    std::lock_guard<std::mutex> lock(heap.mutex);
    if (MovableBlock *block = FindMovable(heap, hMem)) {
        if (block->lockCount == 0) {
            FailWith(kErrorNotLocked);
            return FALSE;
        }
        if (--block->lockCount != 0)
            return TRUE;
        FailWith(NO_ERROR);
        return FALSE;
    }
    if (FindFixed(heap, hMem) != nullptr)
        return TRUE;
    FailWith(ERROR_INVALID_HANDLE);
    return FALSE;
}

// The size asked for (0 for a discarded block).
SIZE_T WINAPI GlobalSize(HGLOBAL hMem)
{
    GlobalHeap &heap = Heap();
    std::lock_guard<std::mutex> lock(heap.mutex);
    if (MovableBlock *block = FindMovable(heap, hMem))
        return block->size;
    if (SIZE_T *size = FindFixed(heap, hMem))
        return *size;
    FailWith(ERROR_INVALID_HANDLE);
    return 0;
}

// Low byte: lock count (saturated); GMEM_DISCARDABLE, GMEM_DISCARDED and
// GMEM_DDESHARE as set.  GMEM_INVALID_HANDLE for an unknown handle.
UINT WINAPI GlobalFlags(HGLOBAL hMem)
{
    GlobalHeap &heap = Heap();
    std::lock_guard<std::mutex> lock(heap.mutex);
    if (MovableBlock *block = FindMovable(heap, hMem)) {
        UINT flags = block->flags;
        flags |= block->lockCount < kMaxReportedLocks ? block->lockCount : kMaxReportedLocks;
        if (block->data == nullptr)
            flags |= GMEM_DISCARDED;
        return flags;
    }
    if (FindFixed(heap, hMem) != nullptr)
        return 0;
    FailWith(ERROR_INVALID_HANDLE);
    return GMEM_INVALID_HANDLE;
}

// The handle of a block given its address: the address itself for a fixed
// block, the movable handle for a movable block's current address.
HGLOBAL WINAPI GlobalHandle(LPCVOID pMem)
{
    GlobalHeap &heap = Heap();
    std::lock_guard<std::mutex> lock(heap.mutex);
    if (pMem != nullptr && heap.fixedSizes.count(pMem) != 0)
        return const_cast<LPVOID>(pMem);
    const auto it = pMem != nullptr ? heap.slotOfData.find(pMem) : heap.slotOfData.end();
    if (it != heap.slotOfData.end())
        return EncodeHandle(it->second, heap.slots[it->second].generation);
    FailWith(ERROR_INVALID_HANDLE);
    return nullptr;
}

// NULL on success (and for a null handle); the handle itself when it is not
// a live block.  A block is freed even while locked.
HGLOBAL WINAPI GlobalFree(HGLOBAL hMem)
{
    if (hMem == nullptr)
        return nullptr;
    GlobalHeap &heap = Heap();
    std::lock_guard<std::mutex> lock(heap.mutex);
    if (MovableBlock *block = FindMovable(heap, hMem)) {
        ReleaseMovable(heap, *block);
        return nullptr;
    }
    if (FindFixed(heap, hMem) != nullptr) {
        heap.fixedSizes.erase(hMem);
        std::free(hMem);
        return nullptr;
    }
    FailWith(ERROR_INVALID_HANDLE);
    return hMem;
}

// Resizes (or with GMEM_MODIFY re-flags) a block.  A movable block keeps
// its handle; a fixed block's handle changes if it moves.  A size of zero
// with GMEM_MOVEABLE discards an unlocked movable block.  GMEM_ZEROINIT
// zeroes the growth.  Failure leaves the block as it was.
HGLOBAL WINAPI GlobalReAlloc(HGLOBAL hMem, SIZE_T dwBytes, UINT uFlags)
{
    GlobalHeap &heap = Heap();
    std::lock_guard<std::mutex> lock(heap.mutex);
    MovableBlock *block = FindMovable(heap, hMem);
    if (block == nullptr && FindFixed(heap, hMem) == nullptr) {
        FailWith(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    if (uFlags & GMEM_MODIFY)
        return ModifyAttributes(heap, hMem, uFlags);
    if (dwBytes > kMaxBlockSize) {
        FailWith(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    HGLOBAL result = block != nullptr ? ReAllocateMovable(heap, hMem, *block, dwBytes, uFlags)
                                      : ResizeFixed(heap, hMem, dwBytes, uFlags);
    if (result == nullptr)
        FailWith(ERROR_NOT_ENOUGH_MEMORY);
    return result;
}
