// Logical GDI objects: allocation, construction and what dies with them.
#include "gdi/vorlgdiobject.h"

#include "gtk/vorlpumpdeps.h"

#include <cstdlib>
#include <cstring>

namespace vorlan {

LogicalGdiObject::LogicalGdiObject(UINT type)
    : GdiObject(type), objectRef(1), selectRef(0), savedRef(0), physical()
{
    std::memset(&record, 0, sizeof record);
}

LogicalGdiObject::~LogicalGdiObject()
{
    if (type() == OBJ_BITMAP)
        freeBitmapMemory();
    if (type() == OBJ_BRUSH && record.brush.logbrush.lbStyle == BS_PATTERN)
        ReleaseRef(record.brush.hPatternCopy, kObjectRef);
    const PhysicalObject &screen = physical[kScreenSlot];
    if (screen.handle != 0 && screen.freeProc != nullptr)
        screen.freeProc(screen.handle);
    const ULONG_PTR recordingContext = physical[kMetaFileSlot].extra;
    if (recordingContext != 0)
        DeleteObjectFromMetaFile(reinterpret_cast<HDC>(recordingContext), handle);
}

// Bits on a section handle stay the section's: only its lock is given back.
void LogicalGdiObject::freeBitmapMemory()
{
    LogicalBitmap &bitmap = record.bitmap;
    if (bitmap.bitmap.bmBits != nullptr) {
        if (bitmap.dshSection != nullptr) {
            GlobalUnlock(bitmap.dshSection);
            bitmap.dshSection = nullptr;
        } else {
            std::free(bitmap.bitmap.bmBits);
        }
        bitmap.bitmap.bmBits = nullptr;
    }
    std::free(bitmap.pHeader);
    bitmap.pHeader = nullptr;
}

void *LogicalGdiObject::operator new(size_t size) noexcept
{
    return std::malloc(size);
}

void *LogicalGdiObject::operator new(size_t size, ExtraBytes extra) noexcept
{
    return std::malloc(size + extra.count);
}

void LogicalGdiObject::operator delete(void *block)
{
    std::free(block);
}

void LogicalGdiObject::operator delete(void *block, ExtraBytes)
{
    std::free(block);
}

LogicalGdiObject *LogicalGdiObject::Create(UINT type, size_t extraBytes)
{
    return new (ExtraBytes{extraBytes}) LogicalGdiObject(type);
}

LogicalGdiObject *LogicalGdiObject::FromHandle(HGDIOBJ handle)
{
    GdiObject *object = getGdiObject(handle);
    if (object == nullptr || !IsLogicalGdiType(object->type()))
        return nullptr;
    return static_cast<LogicalGdiObject *>(object);
}

LogicalGdiObject *LogicalGdiObject::FromHandle(HGDIOBJ handle, UINT type)
{
    LogicalGdiObject *object = FromHandle(handle);
    return object != nullptr && object->type() == type ? object : nullptr;
}

LONG *LogicalGdiObject::refCount(int which)
{
    switch (which) {
    case kObjectRef:
        return &objectRef;
    case kSelectRef:
        return &selectRef;
    case kSavedRef:
        return &savedRef;
    default:
        return nullptr;
    }
}

PALETTEENTRY *LogicalGdiObject::paletteEntries()
{
    return reinterpret_cast<PALETTEENTRY *>(reinterpret_cast<BYTE *>(&record.palette) +
                                            offsetof(LogicalPalette, palPalEntry));
}

} // namespace vorlan
