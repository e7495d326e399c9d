// Plain host memory blocks with a status result.
#include <windows.h>

#include <cstdint>
#include <cstdlib>

// A size of zero still gives a distinct block, so that every success has a
// non-null result the caller can free.
OSSTATUS OSLocalAlloc(SIZE_T size, void **block)
{
    if (block == nullptr)
        return OS_STATUS_BAD_ARGUMENT;
    // No object can be larger than the address difference type allows.
    if (size > static_cast<SIZE_T>(PTRDIFF_MAX)) {
        *block = nullptr;
        return OS_STATUS_NO_MEMORY;
    }
    *block = std::malloc(size != 0 ? size : 1);
    return *block != nullptr ? OS_STATUS_OK : OS_STATUS_NO_MEMORY;
}

void *OSLocalAllocNoStatus(SIZE_T size)
{
    void *block = nullptr;
    OSLocalAlloc(size, &block);
    return block;
}

void OSLocalFree(void *block)
{
    std::free(block);
}
