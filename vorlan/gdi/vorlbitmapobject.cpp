// Device-dependent bitmaps and DIB sections.
//
// A plain bitmap keeps its bits in bmBits only when it was created with
// some; otherwise its pixels live in the pixmap that a screen context
// makes for it.  A DIB section always has its bits in memory, either its
// own block or a locked section handle.
#include "gdi/vorlbitmapobject.h"
#include "gdi/vorlgdiobject.h"
#include "gdi/vorlgdisystem.h"
#include "gtk/vorlgtklock.h"

#include <climits>
#include <cstdint>
#include <cstdlib>
#include <cstring>

using vorlan::LogicalBitmap;
using vorlan::LogicalGdiObject;

namespace {

bool IsBitmapDepth(UINT depth)
{
    return depth == 1 || depth == 4 || depth == 8 || depth == 16 || depth == 24 || depth == 32;
}

// Rows of a device-dependent bitmap are padded to 16 bits, those of a DIB
// to 32 bits; -1 when the row does not fit a LONG.
int64_t RowBytes(int64_t depth, int64_t width, int64_t alignBits)
{
    const int64_t bytes = (depth * width + alignBits - 1) / alignBits * (alignBits / 8);
    return bytes <= INT_MAX ? bytes : -1;
}

// A zeroed block with the first `copied` bytes from `source`.
void *CopyOfBits(const void *source, size_t copied, size_t size)
{
    void *block = std::calloc(size != 0 ? size : 1, 1);
    if (block != nullptr && copied != 0)
        std::memcpy(block, source, copied);
    return block;
}

// The bitmap object without the size checks of the exports; the caller
// holds the lock.  Depth and row length are valid.
HBITMAP NewBitmap(int width, int height, UINT planes, UINT depth, const void *bits, size_t bitsBytes)
{
    const int64_t rowBytes = RowBytes(depth, width, 16);
    const size_t size = static_cast<size_t>(rowBytes) * static_cast<size_t>(height);
    void *block = nullptr;
    if (bits != nullptr && (block = CopyOfBits(bits, bitsBytes < size ? bitsBytes : size, size)) == nullptr) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    LogicalGdiObject *object = LogicalGdiObject::Create(OBJ_BITMAP);
    if (object == nullptr) {
        std::free(block);
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    BITMAP &bm = object->record.bitmap.bitmap;
    bm.bmType = 0;
    bm.bmWidth = width;
    bm.bmHeight = height;
    bm.bmWidthBytes = static_cast<LONG>(rowBytes);
    bm.bmPlanes = static_cast<WORD>(planes);
    bm.bmBitsPixel = static_cast<WORD>(depth);
    bm.bmBits = block;
    return static_cast<HBITMAP>(object->handle);
}

// Bytes of memory behind bmBits.
size_t BitsBytes(const LogicalBitmap &bitmap)
{
    if (bitmap.pHeader != nullptr)
        return bitmap.pHeader->biSizeImage;
    return static_cast<size_t>(bitmap.bitmap.bmWidthBytes) * static_cast<size_t>(std::labs(bitmap.bitmap.bmHeight));
}

UINT ColorTableEntries(WORD bitCount)
{
    return bitCount <= 8 ? 1u << bitCount : 0;
}

bool IsDIBSectionHeader(const BITMAPINFOHEADER &header)
{
    if (header.biWidth <= 0 || header.biHeight == 0 || header.biHeight == INT_MIN || !IsBitmapDepth(header.biBitCount))
        return false;
    // The logical row is measured at the device's depth, at most 32 bits.
    if (RowBytes(32, header.biWidth, 32) < 0)
        return false;
    return RowBytes(header.biBitCount, header.biWidth, 32) * std::llabs(header.biHeight) <= INT_MAX;
}

// The header and colour table of the section, with the image size and
// colour counts of the memory block.
BITMAPINFOHEADER *CopyOfHeader(const BITMAPINFO *pbmi)
{
    const UINT colors = ColorTableEntries(pbmi->bmiHeader.biBitCount);
    const size_t size = sizeof(BITMAPINFOHEADER) + colors * sizeof(RGBQUAD);
    auto *header = static_cast<BITMAPINFOHEADER *>(std::malloc(size));
    if (header == nullptr)
        return nullptr;
    std::memcpy(header, pbmi, size);
    header->biSizeImage = static_cast<DWORD>(RowBytes(header->biBitCount, header->biWidth, 32) *
                                             std::llabs(header->biHeight));
    header->biClrUsed = colors;
    header->biClrImportant = colors;
    return header;
}

// The section's bits: behind the locked section handle, or a block of the
// image size.
void *SectionBits(const BITMAPINFOHEADER &header, HANDLE hSection, DWORD offset)
{
    if (hSection == nullptr)
        return std::malloc(header.biSizeImage);
    BYTE *base = static_cast<BYTE *>(GlobalLock(hSection));
    return base != nullptr ? base + offset : nullptr;
}

} // namespace

HBITMAP WINAPI CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitCount, const void *lpBits)
{
    if (nWidth == 0 && nHeight == 0) {
        nWidth = 1;
        nHeight = 1;
        nBitCount = 1;
    } else {
        if (nBitCount == 0)
            nBitCount = 1;
        if (!IsBitmapDepth(nBitCount))
            return nullptr;
    }
    if (nWidth < 0 || nHeight < 0 || RowBytes(nBitCount, nWidth, 16) < 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    vorlan::GtkCriticalSection lock;
    return NewBitmap(nWidth, nHeight, nPlanes, nBitCount, lpBits, SIZE_MAX);
}

// The logical BITMAP carries the depth of the device; the header keeps the
// depth of the memory block.
HBITMAP WINAPI CreateDIBSection(HDC, const BITMAPINFO *pbmi, UINT, void **ppvBits, HANDLE hSection, DWORD offset)
{
    if (ppvBits != nullptr)
        *ppvBits = nullptr;
    if (pbmi == nullptr || ppvBits == nullptr || !IsDIBSectionHeader(pbmi->bmiHeader)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    vorlan::GtkCriticalSection lock;
    LogicalGdiObject *object = LogicalGdiObject::Create(OBJ_BITMAP);
    if (object == nullptr) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    const BITMAPINFOHEADER &info = pbmi->bmiHeader;
    const int depth = info.biBitCount == 1 ? 1 : vorlan::ScreenBitsPerPixel();
    LogicalBitmap &bitmap = object->record.bitmap;
    bitmap.bitmap.bmWidth = info.biWidth;
    bitmap.bitmap.bmHeight = info.biHeight;
    bitmap.bitmap.bmPlanes = 1;
    bitmap.bitmap.bmBitsPixel = static_cast<WORD>(depth);
    bitmap.bitmap.bmWidthBytes = static_cast<LONG>(RowBytes(depth, info.biWidth, 32));
    bitmap.pHeader = CopyOfHeader(pbmi);
    bitmap.dshSection = hSection;
    bitmap.dsOffset = offset;
    void *bits = bitmap.pHeader != nullptr ? SectionBits(*bitmap.pHeader, hSection, offset) : nullptr;
    if (bits == nullptr) {
        delete object;
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    bitmap.bitmap.bmBits = bits;
    *ppvBits = bits;
    return static_cast<HBITMAP>(object->handle);
}

namespace vorlan {

HBITMAP bitmapCopy(HBITMAP hbm)
{
    const LogicalGdiObject *source = LogicalGdiObject::FromHandle(hbm, OBJ_BITMAP);
    if (source == nullptr)
        return nullptr;
    const LogicalBitmap &bitmap = source->record.bitmap;
    const BITMAP &bm = bitmap.bitmap;
    // A top-down section has a negative height; the copy is a plain bitmap.
    const int height = bm.bmHeight < 0 ? -bm.bmHeight : bm.bmHeight;
    return NewBitmap(bm.bmWidth, height, bm.bmPlanes, bm.bmBitsPixel, bm.bmBits, BitsBytes(bitmap));
}

} // namespace vorlan
